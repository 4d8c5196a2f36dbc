// SPDX-License-Identifier: MIT
#include "offline/creg_file.h"

#include <libcreg.h>
#include <unistd.h>

#include <cstdint>
#include <memory>
#include <unordered_set>

#include "offline/little_endian.h"
#include "offline/private_copy.h"
#include "text/text.h"

namespace scourwell {
namespace {

constexpr std::size_t kDeepest = 512;
constexpr std::size_t kLongestData = 1 << 20;
constexpr std::size_t kHeader = 32;
constexpr std::size_t kFirstBlockAt = 8;
constexpr std::size_t kBlockCountAt = 16;

constexpr off_t kKeyTree = 32;  // places of keys count from here
constexpr std::size_t kKeyEntry = 28;
constexpr std::size_t kFirstChild = 16;
constexpr std::size_t kNextSibling = 20;
constexpr std::uint32_t kNoKey = 0xFFFFFFFF;

struct FreeFile {
  void operator()(libcreg_file_t* file) const {
    libcreg_file_close(file, nullptr);
    libcreg_file_free(&file, nullptr);
  }
};
struct FreeKey {
  void operator()(libcreg_key_t* key) const { libcreg_key_free(&key, nullptr); }
};
struct FreeValue {
  void operator()(libcreg_value_t* value) const { libcreg_value_free(&value, nullptr); }
};
using OwnedFile = std::unique_ptr<libcreg_file_t, FreeFile>;
using OwnedKey = std::unique_ptr<libcreg_key_t, FreeKey>;
using OwnedValue = std::unique_ptr<libcreg_value_t, FreeValue>;

// The two calls by which the library hands out a text.
template <class Item, class Size, class Get>
std::string TextOf(Item* item, Size size_of, Get get) {
  std::size_t size = 0;
  if (size_of(item, &size, nullptr) != 1 || size == 0 || size > kLongestData) return {};
  std::string text(size, '\0');
  if (get(item, reinterpret_cast<std::uint8_t*>(text.data()), size, nullptr) != 1) return {};
  text.pop_back();  // the closing NUL
  return text;
}

// The library follows the lists of keys to their end, and a damaged one may have none: what leads
// to a key that was met before, or to nothing, is cut off. False when anything was.
bool MendKeys(const UniqueFd& copy) {
  const off_t end = lseek(copy.get(), 0, SEEK_END);
  std::unordered_set<std::uint32_t> met;
  std::vector<std::uint32_t> open;
  bool sound = true;
  const auto follow = [&](off_t at_pointer, std::uint32_t entry) {
    if (entry == kNoKey) return;
    if (off_t{entry} + kKeyTree + off_t{kKeyEntry} <= end && met.insert(entry).second) {
      open.push_back(entry);
      return;
    }
    sound = false;
    static_cast<void>(pwrite(copy.get(), &kNoKey, sizeof kNoKey, at_pointer));
  };
  std::string head(16, '\0');
  if (pread(copy.get(), head.data(), head.size(), kKeyTree) != 16) return false;
  follow(kKeyTree + 8, DwordAt(head, 8));
  while (!open.empty()) {
    const off_t at = kKeyTree + off_t{open.back()};
    open.pop_back();
    std::string entry(kKeyEntry, '\0');
    if (pread(copy.get(), entry.data(), kKeyEntry, at) != static_cast<ssize_t>(kKeyEntry)) {
      return false;
    }
    for (const std::size_t pointer : {kFirstChild, kNextSibling}) {
      follow(at + static_cast<off_t>(pointer), DwordAt(entry, pointer));
    }
  }
  return sound;
}

// The library refuses a file whose count of blocks is wrong, or that goes on behind the last one.
bool MendBlocks(const UniqueFd& copy) {
  const off_t end = lseek(copy.get(), 0, SEEK_END);
  std::string head(kHeader, '\0');
  if (pread(copy.get(), head.data(), kHeader, 0) != static_cast<ssize_t>(kHeader)) return false;
  off_t at = static_cast<off_t>(DwordAt(head, kFirstBlockAt));
  std::uint16_t count = 0;
  for (; at + static_cast<off_t>(kHeader) <= end && count < UINT16_MAX; ++count) {
    std::string block(8, '\0');
    if (pread(copy.get(), block.data(), block.size(), at) != 8) break;
    const std::uint32_t size = DwordAt(block, 4);
    if (!block.starts_with("RGDB") || size < kHeader || at + off_t{size} > end) break;
    at += off_t{size};
  }
  if (count == 0 || ftruncate(copy.get(), at) != 0) return false;
  const char bytes[] = {static_cast<char>(count & 0xFF), static_cast<char>(count >> 8)};
  return pwrite(copy.get(), bytes, sizeof bytes, kBlockCountAt) == 2;
}

}  // namespace

// Reads the keys into memory; a key that was met before is left out, as are those too deep.
class CregFile::Reader {
 public:
  explicit Reader(CregFile& file) : file_(file) {}

  bool Read(libcreg_file_t* source) {
    libcreg_key_t* root = nullptr;
    if (libcreg_file_get_root_key(source, &root, nullptr) != 1) return false;
    const OwnedKey owned(root);
    file_.keys_.resize(kRoot);
    Add(root, {}, 0);
    return true;
  }
  bool whole() const { return whole_; }

 private:
  Node Add(libcreg_key_t* key, std::string name, std::size_t depth) {
    off64_t at = 0;
    const bool known = libcreg_key_get_offset(key, &at, nullptr) == 1;
    if (depth > kDeepest || (known && !met_.insert(at).second)) {
      whole_ = false;
      file_.LeaveOut();
      return 0;
    }
    const Node node = file_.keys_.size();
    file_.keys_.push_back({std::move(name), {}, {}});
    AddValues(key, node);
    int count = 0;
    if (libcreg_key_get_number_of_sub_keys(key, &count, nullptr) != 1) whole_ = false;
    for (int i = 0; i < count; ++i) {
      libcreg_key_t* child = nullptr;
      if (libcreg_key_get_sub_key_by_index(key, i, &child, nullptr) != 1) {
        whole_ = false;
        continue;
      }
      const OwnedKey owned(child);
      const Node below =
          Add(child, TextOf(child, libcreg_key_get_utf8_name_size, libcreg_key_get_utf8_name),
              depth + 1);
      if (below != 0) file_.keys_[node].children.push_back(below);
    }
    return node;
  }

  void AddValues(libcreg_key_t* key, Node node) {
    int count = 0;
    // The nameless root has none, and says so by failing.
    if (libcreg_key_get_number_of_values(key, &count, nullptr) != 1) count = 0;
    for (int i = 0; i < count; ++i) {
      libcreg_value_t* value = nullptr;
      if (libcreg_key_get_value_by_index(key, i, &value, nullptr) != 1) {
        whole_ = false;
        continue;
      }
      const OwnedValue owned(value);
      Value read;
      if (ReadValue(value, &read)) {
        file_.keys_[node].values.push_back(std::move(read));
      } else {
        whole_ = false;
      }
    }
  }

  bool ReadValue(libcreg_value_t* value, Value* read) const {
    read->name = TextOf(value, libcreg_value_get_utf8_name_size, libcreg_value_get_utf8_name);
    std::size_t size = 0;
    if (libcreg_value_get_value_type(value, &read->value.type, nullptr) != 1 ||
        libcreg_value_get_value_data_size(value, &size, nullptr) != 1 || size > kLongestData) {
      return false;
    }
    std::string bytes(size, '\0');
    if (size != 0 &&
        libcreg_value_get_value_data(value, reinterpret_cast<std::uint8_t*>(bytes.data()), size,
                                     nullptr) != 1) {
      return false;
    }
    const bool text = IsTextType(read->value.type);
    read->value.data = text ? file_.code_pages_.FromFile(bytes) : std::move(bytes);
    return true;
  }

  CregFile& file_;
  std::unordered_set<off64_t> met_;
  bool whole_ = true;
};

bool CregFile::ReadCopy(const UniqueFd& copy) {
  libcreg_file_t* raw = nullptr;
  if (libcreg_file_initialize(&raw, nullptr) != 1) return false;
  const OwnedFile file(raw);
  // Of a code page that the library does not know, letters beyond ASCII are lost.
  static_cast<void>(
      libcreg_file_set_ascii_codepage(raw, static_cast<int>(code_pages_.System()), nullptr));
  if (libcreg_file_open(raw, PathOf(copy).c_str(), LIBCREG_OPEN_READ, nullptr) != 1) return false;
  Reader reader(*this);
  if (!reader.Read(raw)) return false;
  damaged_ = damaged_ || !reader.whole();
  return true;
}

Outcome CregFile::Load() {
  UniqueFd copy;
  if (Outcome copied = CopyPrivately(files_, path_, &copy); !copied.ok()) return copied;
  char sign[4] = {};
  if (pread(copy.get(), sign, sizeof sign, 0) != 4 || std::string_view(sign, 4) != "CREG") {
    return Outcome::Failed(kTypeMismatch, "It is no registry file");
  }
  damaged_ = !MendKeys(copy);
  if (ReadCopy(copy)) return {};
  damaged_ = true;
  if (MendBlocks(copy) && ReadCopy(copy)) return {};
  return Outcome::Failed(kTypeMismatch, "The registry file is damaged and cannot be read");
}

RegStatus CregFile::ReadChildren(Node key, std::vector<KeyNames::Child>* children) {
  for (const Node child : keys_[key].children) children->push_back({keys_[child].name, child});
  return kRegOk;
}

RegStatus CregFile::CountValues(Node key, std::uint32_t* count) {
  *count = static_cast<std::uint32_t>(keys_[key].values.size());
  return kRegOk;
}

RegStatus CregFile::EnumValues(Node key, const VisitValue& visit) {
  for (const Value& value : keys_[key].values) {
    if (!visit(value.name, value.value)) break;
  }
  return kRegOk;
}

}  // namespace scourwell
