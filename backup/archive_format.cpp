// SPDX-License-Identifier: MIT
#include "backup/archive_format.h"

#include "backup/block_codec.h"
#include "backup/byte_order.h"
#include "backup/sha256.h"
#include "machine/file_utils.h"
#include "text/caption_ids.h"
#include "text/text.h"

namespace scourwell {
namespace {

constexpr std::string_view kPieceMagic("SWQZP\r\n\x1A", 8);
constexpr std::string_view kTrailerMagic("QZPEND\r\n", 8);
constexpr std::size_t kItemSize = 60;  // without its path
constexpr std::size_t kMoreOfItem = kDigestSize + 4;
constexpr std::uint64_t kSecurityExtra = 1;
constexpr std::uint64_t kKeysExtra = 2;
constexpr std::size_t kLongestItemPath = 0xFFFF;

Outcome Damaged(const char* what) {
  return Outcome::Failed(kDeviceError, std::string("The archive is damaged: ") + what)
      .Because(Caption::ReasonDamaged);
}

std::uint64_t Blocks(std::uint64_t size) {
  return size / kArchiveBlock + (size % kArchiveBlock != 0 ? 1 : 0);
}

// What the content says of its size must fit what is stored for it.
bool SizesFit(const ArchiveItem& item) {
  if (item.kind == ItemKind::Folder) return item.size == 0 && item.stored == 0 && item.crc == 0;
  if (item.size > kLargestSize) return false;
  const std::uint64_t blocks = Blocks(item.size);
  return item.stored >= 5 * blocks && item.stored <= item.size + 4 * blocks;
}

std::string ExtrasOf(const ArchiveItem& item) {
  std::string extras;
  const auto put = [&](std::uint64_t tag, const std::string& extra) {
    if (extra.empty()) return;
    PutNumber(&extras, tag, 1);
    PutNumber(&extras, extra.size(), 4);
    extras += extra;
  };
  put(kSecurityExtra, item.security);
  put(kKeysExtra, item.keys);
  return extras;
}

void TakeExtras(std::string_view bytes, ArchiveItem* item, bool* valid) {
  NumberReader from(bytes);
  while (from.left() > 0 && *valid) {
    const std::uint64_t tag = from.Take(1);
    const std::string_view extra = from.TakeText(from.Take32());
    if (tag == kSecurityExtra) item->security = extra;
    if (tag == kKeysExtra) item->keys = extra;
    *valid = !from.failed();
  }
}

ArchiveItem TakeItem(NumberReader& from, std::uint32_t version, bool* valid) {
  ArchiveItem item;
  const std::uint64_t kind = from.Take(1);
  const std::uint64_t reserved = from.Take(1);
  const std::uint64_t length = from.Take(2);
  item.kind = static_cast<ItemKind>(kind);
  item.attributes = from.Take32();
  item.times.created = from.Take(8);
  item.times.accessed = from.Take(8);
  item.times.modified = from.Take(8);
  item.size = from.Take(8);
  item.offset = from.Take(8);
  item.stored = from.Take(8);
  item.crc = from.Take32();
  std::uint32_t extras = 0;
  if (version >= kArchiveVersion) {
    item.digest = from.TakeText(kDigestSize);
    if (item.digest == std::string(kDigestSize, '\0')) item.digest.clear();
    extras = from.Take32();
  }
  item.path = from.TakeText(length);
  const std::string_view more = from.TakeText(extras);
  *valid = !from.failed() && kind >= 1 && kind <= 3 && reserved == 0 && length > 0;
  TakeExtras(more, &item, valid);
  return item;
}

// They end before the mark.
bool TakeSpies(NumberReader& from, std::vector<ArchiveSpy>* spies) {
  const std::uint32_t count = from.Take32();
  if (count > from.left() / 4) return false;
  for (std::uint32_t i = 0; i < count && !from.failed(); ++i) {
    ArchiveSpy& spy = spies->emplace_back();
    spy.spy = from.TakeText(from.Take(2));
    spy.place = from.TakeText(from.Take(2));
  }
  from.TakeText(kDigestSize);
  return !from.failed();
}

}  // namespace

std::string EncodePieceHeader(const PieceHeader& header) {
  std::string bytes(kPieceMagic);
  PutNumber(&bytes, header.version, 4);
  PutNumber(&bytes, header.number, 4);
  PutNumber(&bytes, header.identity, 8);
  PutNumber(&bytes, 0, 4);
  PutNumber(&bytes, Crc32(bytes), 4);
  return bytes;
}

Outcome DecodePieceHeader(std::string_view bytes, PieceHeader* header) {
  if (bytes.size() < kPieceHeaderSize) {
    return Outcome::Failed(kPastEndOfFile, "The file is too short to be a backup archive");
  }
  NumberReader from(bytes);
  if (from.TakeText(kPieceMagic.size()) != kPieceMagic) {
    return Outcome::Failed(kTypeMismatch, "The file is not a backup archive");
  }
  header->version = from.Take32();
  if (header->version < kAnsiArchiveVersion || header->version > kArchiveVersion) {
    return Outcome::Failed(
        kTypeMismatch, "The archive has the unknown version " + std::to_string(header->version));
  }
  header->number = from.Take32();
  header->identity = from.Take(8);
  const std::uint32_t reserved = from.Take32();
  if (from.Take32() != Crc32(bytes.substr(0, kPieceHeaderSize - 4)) || reserved != 0) {
    return Damaged("its beginning does not match its checksum");
  }
  return {};
}

std::string EncodeTrailer(const ArchiveTrailer& trailer) {
  std::string bytes;
  PutNumber(&bytes, trailer.identity, 8);
  PutNumber(&bytes, trailer.data, 8);
  PutNumber(&bytes, trailer.index, 8);
  PutNumber(&bytes, trailer.index_crc, 4);
  PutNumber(&bytes, Crc32(bytes), 4);
  return bytes.append(kTrailerMagic);
}

Outcome DecodeTrailer(std::string_view bytes, ArchiveTrailer* trailer) {
  NumberReader from(bytes);
  trailer->identity = from.Take(8);
  trailer->data = from.Take(8);
  trailer->index = from.Take(8);
  trailer->index_crc = from.Take32();
  const std::uint32_t crc = from.Take32();
  if (from.TakeText(kTrailerMagic.size()) != kTrailerMagic) {
    return Outcome::Failed(kPastEndOfFile, "The archive is cut off: its end is missing");
  }
  if (crc != Crc32(bytes.substr(0, 28))) return Damaged("its end does not match its checksum");
  return {};
}

std::size_t EncodedSize(const ArchiveItem& item) {
  return kItemSize + kMoreOfItem + item.path.size() + ExtrasOf(item).size();
}

std::string EncodeIndex(const ArchiveIndex& index) {
  std::string bytes;
  PutNumber(&bytes, index.volumes.size(), 4);
  for (const std::uint64_t size : index.volumes) PutNumber(&bytes, size, 8);
  PutNumber(&bytes, index.items.size(), 4);
  for (const ArchiveItem& item : index.items) {
    PutNumber(&bytes, static_cast<std::uint64_t>(item.kind), 1);
    PutNumber(&bytes, 0, 1);
    PutNumber(&bytes, item.path.size(), 2);
    PutNumber(&bytes, item.attributes, 4);
    for (const std::uint64_t number : {item.times.created, item.times.accessed, item.times.modified,
                                       item.size, item.offset, item.stored}) {
      PutNumber(&bytes, number, 8);
    }
    PutNumber(&bytes, item.crc, 4);
    const std::string extras = ExtrasOf(item);
    bytes += item.digest.empty() ? std::string(kDigestSize, '\0') : item.digest;
    PutNumber(&bytes, extras.size(), 4);
    bytes += item.path + extras;
  }
  PutNumber(&bytes, index.spies.size(), 4);
  for (const ArchiveSpy& spy : index.spies) {
    for (const std::string* text : {&spy.spy, &spy.place}) {
      PutNumber(&bytes, text->size(), 2);
      bytes += *text;
    }
  }
  return bytes;
}

std::string MarkOf(std::string_view index, std::uint64_t identity, std::string_view key) {
  if (key.empty()) return std::string(kDigestSize, '\0');
  std::string bytes;
  PutNumber(&bytes, identity, 8);
  return KeyedDigest(key, bytes.append(index));
}

Outcome DecodeIndex(std::string_view bytes, std::uint64_t last_data, std::uint32_t version,
                    ArchiveIndex* index) {
  NumberReader from(bytes);
  const std::uint32_t volumes = from.Take32();
  if (volumes > kMostVolumes || volumes > from.left() / 8) return Damaged("it has no volume list");
  std::uint64_t total = last_data;
  for (std::uint32_t i = 0; i < volumes; ++i) {
    const std::uint64_t size = from.Take(8);
    if (size == 0 || total > kLargestSize || size > kLargestSize - total) {
      return Damaged("a volume has an impossible size");
    }
    total += size;
    index->volumes.push_back(size);
  }
  if (total > kLargestSize) return Damaged("its data has an impossible size");
  const std::uint32_t count = from.Take32();
  if (from.failed() || count > from.left() / kItemSize) return Damaged("its list is too short");
  index->items.reserve(count);
  std::uint64_t end = 0;
  for (std::uint32_t i = 0; i < count; ++i) {
    bool valid = false;
    index->items.push_back(TakeItem(from, version, &valid));
    const ArchiveItem& item = index->items.back();
    if (!valid || !SizesFit(item)) return Damaged("its list holds an impossible item");
    // Items that share data could make a small archive expand without end.
    if (item.offset < end || item.offset > total || item.stored > total - item.offset) {
      return Damaged("an item lies outside of its data");
    }
    end = item.offset + item.stored;
  }
  if (version >= kArchiveVersion && !TakeSpies(from, &index->spies)) {
    return Damaged("its list of spies is cut off");
  }
  return from.left() == 0 ? Outcome() : Damaged("its list is too long");
}

std::string VolumeName(std::string_view name, std::uint32_t number) {
  return std::string(name) + ".q" + Padded(number, 2);
}

bool IsStorablePath(std::string_view path) {
  return path.size() >= 4 && path.size() <= kLongestItemPath && path[1] == ':' && IsExactPath(path);
}

bool IsScriptName(std::string_view name) {
  constexpr std::string_view kEnding = ".reg";
  return name.size() > kEnding.size() && !HoldsSeparator(name) && EndsWithNoCase(name, kEnding) &&
         IsPlainPath("C:\\" + std::string(name)) && name.size() <= kLongestItemPath;
}

}  // namespace scourwell
