// SPDX-License-Identifier: MIT
#include "backup/archive_writer.h"

#include <algorithm>

#include "machine/file_utils.h"
#include "machine/real_path.h"
#include "text/caption_ids.h"

namespace scourwell {
namespace {

constexpr std::uint32_t kKeptAttributes = kReadOnly | kHidden | kSystem | kArchive;

// Tells the pieces of one archive from those of another.
std::uint64_t NewIdentity(Clock& clock, const std::string& path) {
  const LocalTime now = clock.Now();
  std::uint64_t identity = Crc32(path);
  for (const int part : {now.year, now.month, now.day, now.hour, now.minute, now.second,
                         now.millisecond, static_cast<int>(clock.Ticks())}) {
    identity = (identity ^ static_cast<std::uint32_t>(part)) * 1099511628211u;
  }
  return identity;
}

Outcome Stopped() {
  return Outcome::Failed(kInvalidCall, "The backup was stopped before its end")
      .Because(Caption::ReasonStopped);
}

ArchiveItem ItemFor(ItemKind kind, const std::string& path, const DirEntry& entry,
                    std::uint64_t offset) {
  ArchiveItem item;
  item.kind = kind;
  item.path = path;
  item.attributes = entry.attributes & kKeptAttributes;
  item.times = entry.times();
  item.offset = offset;
  return item;
}

}  // namespace

Outcome ArchiveWriter::Create(const std::string& path, ArchiveOptions options) {
  if (open_ || !broken_.ok()) return Outcome::Failed(kInvalidCall);
  block_.resize(kArchiveBlock);
  Outcome opened = volumes_.Open(path, NewIdentity(clock_, path), std::move(options));
  if (!opened.ok()) return Abandon(std::move(opened));
  open_ = true;
  return {};
}

Outcome ArchiveWriter::Abandon(Outcome why) {
  volumes_.Discard();
  open_ = false;
  broken_ = std::move(why);
  return broken_;
}

Outcome ArchiveWriter::AddFile(const std::string& path) {
  if (!open_) return broken_.ok() ? Outcome::Failed(kInvalidCall) : broken_;
  const std::string plain = std::string(WithoutEndSeparators(path));
  DirEntry entry;
  Outcome found = Outcome::Failed(kBadFileName, "The path cannot be stored");
  std::vector<std::unique_ptr<FolderHold>> way;
  if (IsStorablePath(plain)) found = HoldWay(plain, &way);
  if (found.ok()) found = files_.Stat(plain, &entry);
  if (found.ok()) {
    // Should a folder have to be made again, its 8.3 name would not do.
    const std::string real = RealPath(files_, plain);
    AddTree(IsStorablePath(real) ? real : plain, entry);
  } else {
    Fail(path, std::move(found));
  }
  return broken_;
}

// As a removal does: what lies behind a link among the folders above belongs to somebody else.
Outcome ArchiveWriter::HoldWay(const std::string& path,
                               std::vector<std::unique_ptr<FolderHold>>* way) {
  for (std::size_t end = FindSeparator(path, RootSize(path)); end != path.npos;
       end = FindSeparator(path, end + 1)) {
    std::unique_ptr<FolderHold> hold;
    if (Outcome held = files_.HoldFolder(path.substr(0, end), &hold); !held.ok()) return held;
    way->push_back(std::move(hold));
  }
  return {};
}

void ArchiveWriter::AddTree(const std::string& path, const DirEntry& entry) {
  if (broken_.ok() && !pump_.Next()) static_cast<void>(Abandon(Stopped()));
  if (!broken_.ok()) return;
  if (entry.IsLink()) {
    return Note(
        path,
        Outcome::Failed(kPathFileAccess, "A link is not stored").Because(Caption::ReasonLink));
  }
  if (!IsStorablePath(path)) {
    return Fail(path, Outcome::Failed(kBadFileName, "The path cannot be stored"));
  }
  if (entry.IsFolder()) return AddFolder(path, entry);
  if (stored_.count(path) == 0) AddContent(path, entry);
}

void ArchiveWriter::AddFolder(const std::string& path, const DirEntry& entry) {
  // Held, so that it is not swapped for a link while it is listed and read.
  std::unique_ptr<FolderHold> hold;
  std::vector<DirEntry> found;
  Outcome listed = files_.HoldFolder(path, &hold);
  if (listed.ok()) {
    listed = files_.List(AddPathToFileName(path, "*"), [&](const DirEntry& child) {
      found.push_back(child);
      return true;
    });
  }
  if (!listed.ok()) return Fail(path, std::move(listed));
  if (stored_.count(path) == 0) {
    ArchiveItem item = ItemFor(ItemKind::Folder, path, entry, volumes_.position());
    item.security = files_.Security(path);
    if (!Keep(std::move(item))) return;
  }
  for (const DirEntry& child : found) AddTree(AddPathToFileName(path, child.name), child);
}

bool ArchiveWriter::RoomFor(std::size_t bytes) const {
  return index_size_ + bytes <= kLargestIndex - (kMostVolumes + 1) * 8 - kDigestSize;
}

// Fails what would make the index larger than it is ever read.
bool ArchiveWriter::Keep(ArchiveItem item) {
  const std::size_t size = EncodedSize(item);
  if (!RoomFor(size)) {
    Fail(item.path, Outcome::Failed(kOverflow, "The archive holds too many items"));
    return false;
  }
  index_size_ += size;
  if (item.kind != ItemKind::Script) ++result_.files;
  result_.bytes += item.size;
  stored_.insert(item.path);
  if (item.kind != ItemKind::Script && files_.HasStreams(item.path)) {
    Note(item.path, Outcome::Failed(kPathFileAccess, "Its further streams are not stored")
                        .Because(Caption::ReasonStreamsNotKept));
  }
  items_.push_back(std::move(item));
  return true;
}

void ArchiveWriter::AddContent(const std::string& path, const DirEntry& entry) {
  std::unique_ptr<FileReader> reader;
  if (Outcome opened = files_.OpenReader(path, &reader); !opened.ok()) {
    return Fail(path, std::move(opened));
  }
  ArchiveItem item = ItemFor(ItemKind::File, path, entry, volumes_.position());
  item.security = files_.Security(path);
  Outcome stored = StoreContent(*reader, &item);
  if (!broken_.ok()) return;
  if (!stored.ok()) return Fail(path, std::move(stored));
  if (item.size != entry.size) {
    Note(path, Outcome::Failed(kPathFileAccess, "The file changed while it was stored"));
  }
  Keep(std::move(item));
}

// What was stored of a file that fails midway stays in the data, but no item owns it.
Outcome ArchiveWriter::StoreContent(FileReader& reader, ArchiveItem* item) {
  std::size_t filled = kArchiveBlock;
  Sha256 digest;
  while (filled == kArchiveBlock) {
    if (Outcome read = reader.ReadAt(item->size, block_.data(), kArchiveBlock, &filled);
        !read.ok()) {
      return read;
    }
    if (filled == 0) break;
    if (item->size > kLargestSize - filled) return Outcome::Failed(kOverflow);
    if (Outcome stored = StoreBlock({block_.data(), filled}, item, &digest); !stored.ok())
      return stored;
  }
  item->digest = digest.Finish();
  return {};
}

Outcome ArchiveWriter::StoreBlock(std::string_view plain, ArchiveItem* item, Sha256* digest) {
  std::string_view stored;
  Outcome packed = packer_.Pack(plain, &stored);
  if (packed.ok()) packed = volumes_.Write(stored);
  if (packed.ok() && !pump_.Next()) packed = Stopped();
  if (!packed.ok()) return Abandon(std::move(packed));
  item->crc = Crc32(plain, item->crc);
  digest->Add(plain);
  item->size += plain.size();
  item->stored += stored.size();
  return {};
}

Outcome ArchiveWriter::AddScript(const std::string& name, std::string_view text,
                                 const std::string& keys) {
  if (!open_) return broken_.ok() ? Outcome::Failed(kInvalidCall) : broken_;
  if (!IsScriptName(name)) return Outcome::Failed(kBadFileName);
  ArchiveItem item;
  item.kind = ItemKind::Script;
  item.path = name;
  item.keys = keys;
  item.offset = volumes_.position();
  Sha256 digest;
  while (!text.empty()) {
    const std::string_view block = text.substr(0, kArchiveBlock);
    if (Outcome stored = StoreBlock(block, &item, &digest); !stored.ok()) return stored;
    text.remove_prefix(block.size());
  }
  item.digest = digest.Finish();
  return Keep(std::move(item)) ? Outcome() : Outcome::Failed(kOverflow);
}

// A text that is cut would name another place.
void ArchiveWriter::AddSpy(const std::string& spy, const std::string& place) {
  constexpr std::size_t kLongest = 0xFFFF;
  const std::size_t size = 4 + spy.size() + place.size();
  if (spy.size() > kLongest || place.size() > kLongest || !RoomFor(size)) return;
  index_size_ += size;
  spies_.push_back({spy, place});
}

Outcome ArchiveWriter::Finish(const std::string& key) {
  if (!open_) return broken_.ok() ? Outcome::Failed(kInvalidCall) : broken_;
  if (pump_.closing()) return Abandon(Stopped());
  if (Outcome finished = volumes_.Finish({{}, std::move(items_), std::move(spies_)}, key);
      !finished.ok()) {
    return Abandon(std::move(finished));
  }
  open_ = false;
  return {};
}

}  // namespace scourwell
