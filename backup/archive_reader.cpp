// SPDX-License-Identifier: MIT
#include "backup/archive_reader.h"

#include <algorithm>

#include "backup/block_codec.h"
#include "backup/sha256.h"
#include "text/caption_ids.h"

namespace scourwell {
namespace {

constexpr std::size_t kBlockHeader = 4;

Outcome Damaged(const ArchiveItem& item) {
  return Outcome::Failed(kDeviceError, "What the archive holds of " + item.path + " is damaged")
      .Because(Caption::ReasonDamaged);
}

}  // namespace

Outcome ArchiveReader::Open(const std::string& path, FindVolume find, const std::string& key) {
  Outcome opened = volumes_.Open(path, std::move(find), key, &index_);
  if (!opened.ok() || volumes_.version() != kAnsiArchiveVersion) return opened;
  for (ArchiveItem& item : index_.items) {
    const std::string bytes = std::move(item.path);
    if (!code_pages_.Decode(code_pages_.System(), bytes, &item.path).ok()) {
      return Outcome::Failed(kDeviceError, "The archive is damaged: it holds impossible names")
          .Because(Caption::ReasonDamaged);
    }
  }
  return {};
}

Outcome ArchiveReader::ReadBlock(const ArchiveItem& item, std::uint64_t* at, std::size_t size,
                                 std::string_view* plain) {
  const std::uint64_t end = item.offset + item.stored;
  char header_bytes[kBlockHeader];
  if (end - *at < kBlockHeader) return Damaged(item);
  if (Outcome read = volumes_.ReadAt(*at, header_bytes, kBlockHeader); !read.ok()) return read;
  *at += kBlockHeader;
  const BlockHeader header = DecodeBlockHeader({header_bytes, kBlockHeader});
  if (header.length == 0 || header.length > size || header.length > end - *at) {
    return Damaged(item);
  }
  if (stored_.size() < header.length) stored_.resize(header.length);
  if (Outcome read = volumes_.ReadAt(*at, stored_.data(), header.length); !read.ok()) return read;
  *at += header.length;
  Outcome expanded =
      ExpandBlock(header, std::string_view(stored_).substr(0, header.length), size, &plain_, plain);
  return expanded.code() == kDeviceError ? Damaged(item) : std::move(expanded);
}

Outcome ArchiveReader::ReadItem(std::size_t number, const Sink& sink) {
  if (number >= index_.items.size()) return Outcome::Failed(kInvalidCall);
  const ArchiveItem& item = index_.items[number];
  std::uint64_t at = item.offset;
  std::uint32_t crc = 0;
  Sha256 digest;
  for (std::uint64_t left = item.size; left > 0;) {
    if (!pump_.Next())
      return Outcome::Failed(kInvalidCall, "Stopped before the end")
          .Because(Caption::ReasonStopped);
    const auto size = static_cast<std::size_t>(std::min<std::uint64_t>(left, kArchiveBlock));
    std::string_view plain;
    if (Outcome read = ReadBlock(item, &at, size, &plain); !read.ok()) return read;
    crc = Crc32(plain, crc);
    if (!item.digest.empty()) digest.Add(plain);
    if (Outcome taken = sink(plain); !taken.ok()) return taken;
    left -= size;
  }
  const bool right = at == item.offset + item.stored && crc == item.crc &&
                     (item.digest.empty() || digest.Finish() == item.digest);
  return right ? Outcome() : Damaged(item);
}

std::vector<ItemReport> ArchiveReader::Verify() {
  std::vector<ItemReport> damaged;
  for (std::size_t i = 0; i < index_.items.size() && !pump_.closing(); ++i) {
    Outcome read = ReadItem(i, [](std::string_view) { return Outcome(); });
    if (!read.ok()) damaged.push_back({index_.items[i].path, std::move(read)});
  }
  return damaged;
}

}  // namespace scourwell
