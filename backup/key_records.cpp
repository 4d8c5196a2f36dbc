// SPDX-License-Identifier: MIT
#include "backup/key_records.h"

#include "backup/byte_order.h"

namespace scourwell {
namespace {

constexpr std::size_t kMostRecordBytes = 4u << 20;
constexpr std::size_t kLongestKeyText = 0xFFFF;
constexpr std::uint32_t kAsBefore = 0xFFFF'FFFF;

}  // namespace

// Keys that lie together mostly have the same descriptor.
bool KeyRecords::Add(const std::string& path, const RegTraits& traits) {
  if (traits.kind.empty() && traits.security.empty()) return true;
  const bool as_before = traits.security == last_;
  const std::string_view security = as_before ? std::string_view() : traits.security;
  if (path.size() > kLongestKeyText || traits.kind.size() > kLongestKeyText ||
      bytes_.size() + path.size() + traits.kind.size() + security.size() > kMostRecordBytes) {
    return false;
  }
  PutNumber(&bytes_, path.size(), 2);
  PutNumber(&bytes_, traits.kind.size(), 2);
  PutNumber(&bytes_, as_before ? kAsBefore : security.size(), 4);
  bytes_.append(path).append(traits.kind).append(security);
  last_ = traits.security;
  return true;
}

std::vector<KeyRecord> ReadKeyRecords(std::string_view bytes) {
  std::vector<KeyRecord> records;
  NumberReader from(bytes);
  std::string last;
  while (from.left() > 0) {
    const std::uint64_t path = from.Take(2);
    const std::uint64_t kind = from.Take(2);
    const std::uint32_t security = from.Take32();
    KeyRecord record;
    record.path = from.TakeText(path);
    record.traits.kind = from.TakeText(kind);
    if (security != kAsBefore) last = from.TakeText(security);
    record.traits.security = last;
    if (from.failed()) break;
    records.push_back(std::move(record));
  }
  return records;
}

}  // namespace scourwell
