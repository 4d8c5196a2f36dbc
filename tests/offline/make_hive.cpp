// SPDX-License-Identifier: MIT
#include "tests/offline/make_hive.h"

#include "offline/little_endian.h"

namespace scourwell::test {
namespace {

constexpr std::size_t kBin = 0x1000;  // where offsets inside a hive begin
constexpr std::size_t kSize = 2 * kBin;
constexpr std::size_t kChecksum = 508;
constexpr std::uint64_t kTime = 0x01C0000000000000;
constexpr std::uint64_t kNone = 0xFFFFFFFF;

class Image {
 public:
  void Put(std::size_t at, std::uint64_t number, unsigned size) {
    for (unsigned i = 0; i < size; ++i) bytes_[at + i] = static_cast<char>(number >> (8 * i));
  }
  void Put(std::size_t at, std::string_view text) { bytes_.replace(at, text.size(), text); }
  const std::string& bytes() const { return bytes_; }

 private:
  std::string bytes_ = std::string(kSize, '\0');
};

std::size_t CellSize(std::size_t content) { return (4 + content + 7) & ~std::size_t{7}; }

// A descriptor with one entry: everybody may do everything.
constexpr std::string_view kSecurity(
    "\1\0\4\x80\0\0\0\0\0\0\0\0\0\0\0\0\x14\0\0\0"
    "\2\0\x1C\0\1\0\0\0\0\2\x14\0\x3F\0\x0F\0"
    "\1\1\0\0\0\0\0\1\0\0\0\0",
    48);

void PutRootKey(Image* image, std::size_t at, std::size_t security, const std::string& name) {
  image->Put(at, ~std::uint64_t{CellSize(76 + name.size())} + 1, 4);
  image->Put(at + 4, "nk");
  image->Put(at + 6, 0x2C, 2);  // a root, which stays, with a narrow name
  image->Put(at + 8, kTime, 8);
  for (const std::size_t list : {32, 36, 44, 52}) image->Put(at + list, kNone, 4);
  image->Put(at + 48, security - kBin, 4);
  image->Put(at + 76, name.size(), 2);
  image->Put(at + 80, name);
}

void PutSecurity(Image* image, std::size_t at) {
  image->Put(at, ~std::uint64_t{CellSize(20 + kSecurity.size())} + 1, 4);
  image->Put(at + 4, "sk");
  image->Put(at + 8, at - kBin, 4);
  image->Put(at + 12, at - kBin, 4);
  image->Put(at + 16, 1, 4);
  image->Put(at + 20, kSecurity.size(), 4);
  image->Put(at + 24, kSecurity);
}

}  // namespace

std::string EmptyHive(const std::string& root_name) {
  Image image;
  constexpr std::size_t kRoot = kBin + 32;
  const std::size_t security = kRoot + CellSize(76 + root_name.size());
  const std::size_t rest = security + CellSize(20 + kSecurity.size());
  image.Put(kBin, "hbin");
  image.Put(kBin + 8, kBin, 4);
  image.Put(kBin + 20, kTime, 8);
  PutRootKey(&image, kRoot, security, root_name);
  PutSecurity(&image, security);
  image.Put(rest, kSize - rest, 4);
  image.Put(0, "regf");
  image.Put(4, 1, 4);
  image.Put(8, 1, 4);
  image.Put(12, kTime, 8);
  image.Put(20, 1, 4);
  image.Put(24, 3, 4);
  image.Put(32, 1, 4);
  image.Put(36, kRoot - kBin, 4);
  image.Put(40, kBin, 4);
  image.Put(44, 1, 4);
  return WithChecksum(image.bytes());
}

std::string Unsaved(std::string hive) {
  ++hive[4];
  return WithChecksum(std::move(hive));
}

std::string Damaged(std::string hive) {
  const std::size_t end = kBin + DwordAt(hive, kBin + 8);
  for (std::size_t at = kBin + 32; at < end;) {
    const auto size = static_cast<std::int32_t>(DwordAt(hive, at));
    const std::size_t next = at + static_cast<std::size_t>(size < 0 ? -size : size);
    if (next >= end) hive.replace(at, 4, std::string("\3\0\0\0", 4));
    at = next;
  }
  return hive;
}

std::string WithChecksum(std::string hive) {
  std::uint32_t sum = 0;
  for (std::size_t at = 0; at < kChecksum; at += 4) sum ^= DwordAt(hive, at);
  if (sum == 0) sum = 1;
  if (sum == kNone) --sum;
  for (unsigned i = 0; i < 4; ++i) hive[kChecksum + i] = static_cast<char>(sum >> (8 * i));
  return hive;
}

}  // namespace scourwell::test
