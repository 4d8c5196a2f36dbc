// SPDX-License-Identifier: MIT
#include "offline/hive_file.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <utility>

#include "offline/little_endian.h"
#include "offline/private_copy.h"
#include "text/unicode.h"

namespace scourwell {
namespace {

struct FreeMemory {
  void operator()(void* memory) const { std::free(memory); }
};
template <class T>
using Owned = std::unique_ptr<T, FreeMemory>;

constexpr std::size_t kHeader = 512;
constexpr std::size_t kFirstSequence = 4;
constexpr std::size_t kSecondSequence = 8;
constexpr std::size_t kMinorVersion = 24;
constexpr std::uint32_t kLastPlainVersion = 3;  // later ones keep long values in pieces
constexpr std::size_t kLongValue = 16'344;
constexpr std::size_t kLongestName = 0xFFFF;

RegValue ToValue(std::uint32_t type, std::string bytes) {
  if (!IsTextType(type)) return {type, std::move(bytes)};
  RegValue value{type, {}};
  if (bytes.size() % 2 != 0) {
    value.half_character = bytes.back();
    bytes.pop_back();
  }
  value.data = FromUtf16(UnitsOf(bytes));
  return value;
}

std::string ToBytes(const RegValue& value) {
  if (!IsTextType(value.type)) return value.data;
  std::string bytes = BytesOf(ToUtf16(value.data));
  if (value.half_character) bytes += *value.half_character;
  return bytes;
}

// The library takes names as texts that end with a NUL and turns them into UTF-16.
bool CanBeWritten(std::string_view name) {
  if (name.find('\0') != name.npos) return false;
  for (std::size_t at = 0; at < name.size();) {
    const char32_t code = NextCode(name, &at);
    if (code >= kStrayByte || IsSurrogate(code)) return false;
  }
  return true;
}

}  // namespace

Outcome HiveFile::Load() {
  if (!loaded_) {
    loaded_ = ReadCopy();
    if (!loaded_->ok()) hive_.reset();
    TellTrouble();
  }
  return *loaded_;
}

void HiveFile::TellTrouble() {
  const Health health = loaded_->ok() ? health_ : Health::Unreadable;
  if (health <= told_ || !on_trouble_) return;
  told_ = health;
  if (health == Health::Unreadable) {
    on_trouble_(path_, loaded_->description());
  } else if (health == Health::Damaged) {
    on_trouble_(path_, "The registry file is damaged; what is left of it was read");
  } else {
    on_trouble_(path_, "Windows did not save all of it; the newest changes are missing");
  }
}

void HiveFile::Release() {
  if (changed_) return;
  ForgetNames();
  hive_.reset();
  copy_ = UniqueFd();
  in_memory_ = false;
  loaded_.reset();
}

Outcome HiveFile::ReadCopy() {
  if (Outcome copied = CopyPrivately(files_, path_, &copy_); !copied.ok()) return copied;
  std::string header(kHeader, '\0');
  const ssize_t size = pread(copy_.get(), header.data(), header.size(), 0);
  if (size != static_cast<ssize_t>(kHeader) || !header.starts_with("regf")) {
    return Outcome::Failed(kTypeMismatch, "It is no registry file");
  }
  if (DwordAt(header, kFirstSequence) != DwordAt(header, kSecondSequence)) {
    health_ = Health::Unsaved;
  }
  long_values_ = DwordAt(header, kMinorVersion) <= kLastPlainVersion;
  hive_.reset(hivex_open(PathOf(copy_).c_str(), 0));
  if (!hive_) {
    health_ = Health::Damaged;
    hive_.reset(hivex_open(PathOf(copy_).c_str(), HIVEX_OPEN_UNSAFE));
  }
  if (hive_ && hivex_root(hive_.get()) != 0) return {};
  return Outcome::Failed(kTypeMismatch, "The registry file is damaged and cannot be read");
}

RegistryFile::Node HiveFile::Root() { return Load().ok() ? hivex_root(hive_.get()) : 0; }

// Names may hold NULs, and halves of surrogate pairs, which the library cannot turn into text.
std::optional<std::string> HiveFile::NameOfKey(Node key) {
  const Owned<char> name(hivex_node_name(hive_.get(), key));
  if (name) return std::string(name.get(), hivex_node_name_len(hive_.get(), key));
  return RawName(key, 76, 6, 0x20, 80);
}

std::optional<std::string> HiveFile::NameOfValue(hive_value_h value) {
  const Owned<char> name(hivex_value_key(hive_.get(), value));
  if (name) return std::string(name.get(), hivex_value_key_len(hive_.get(), value));
  return RawName(value, 6, 20, 1, 24);
}

std::optional<std::string> HiveFile::RawName(std::size_t cell, std::size_t at_length,
                                             std::size_t at_flags, unsigned narrow_flag,
                                             std::size_t at_name) {
  std::array<char, 80> head = {};
  if (pread(copy_.get(), head.data(), head.size(), static_cast<off_t>(cell)) <
      static_cast<ssize_t>(at_name)) {
    return std::nullopt;
  }
  const std::string_view view(head.data(), head.size());
  const std::size_t length = std::min<std::size_t>(WordAt(view, at_length), kLongestName);
  if (WordAt(view, at_flags) & narrow_flag) return std::nullopt;  // those the library can turn
  std::string bytes(length & ~std::size_t{1}, '\0');
  const ssize_t read =
      pread(copy_.get(), bytes.data(), bytes.size(), static_cast<off_t>(cell + at_name));
  if (read != static_cast<ssize_t>(bytes.size())) return std::nullopt;
  return FromUtf16(UnitsOf(bytes));
}

RegStatus HiveFile::ReadChildren(Node key, std::vector<KeyNames::Child>* children) {
  const Owned<hive_node_h> nodes(hivex_node_children(hive_.get(), key));
  if (!nodes) return kRegCorrupt;
  for (const hive_node_h* node = nodes.get(); *node; ++node) {
    auto name = NameOfKey(*node);
    // A list that leads to a key of another place would make the tree endless.
    if (!name || *node == Root() || hivex_node_parent(hive_.get(), *node) != key) {
      LeaveOut();
      continue;
    }
    children->push_back({std::move(*name), *node});
  }
  return kRegOk;
}

RegStatus HiveFile::CountValues(Node key, std::uint32_t* count) {
  const Owned<hive_value_h> values(hivex_node_values(hive_.get(), key));
  if (!values) return kRegCorrupt;
  *count = 0;
  for (const hive_value_h* value = values.get(); *value; ++value) ++*count;
  return kRegOk;
}

bool HiveFile::ReadStored(hive_value_h value, Stored* stored) {
  auto name = NameOfValue(value);
  hive_type type = hive_t_REG_NONE;
  std::size_t size = 0;
  errno = 0;
  const Owned<char> data(hivex_value_value(hive_.get(), value, &type, &size));
  if (!name || (!data && errno != 0)) return false;
  stored->name = std::move(*name);
  stored->type = static_cast<std::uint32_t>(type);
  stored->bytes.assign(data ? data.get() : "", data ? size : 0);
  return true;
}

RegStatus HiveFile::EnumValues(Node key, const VisitValue& visit) {
  const Owned<hive_value_h> values(hivex_node_values(hive_.get(), key));
  if (!values) return kRegCorrupt;
  RegStatus status = kRegOk;
  for (const hive_value_h* value = values.get(); *value; ++value) {
    Stored stored;
    if (!ReadStored(*value, &stored)) {
      status = kRegCorrupt;
      continue;
    }
    if (!visit(stored.name, ToValue(stored.type, std::move(stored.bytes)))) return kRegOk;
  }
  return status;
}

Outcome HiveFile::Writable() {
  if (Outcome loaded = Load(); !loaded.ok()) return loaded;
  switch (health_) {
    case Health::Unsaved:
      return Outcome::Failed(kPermissionDenied,
                             "Windows did not save all of its registry: start it once, shut it "
                             "down, and try again");
    case Health::Damaged:
      return Outcome::Failed(kPermissionDenied, "The registry file is damaged");
    default:
      return {};
  }
}

// The library changes only what it holds in memory. Keys keep their numbers.
bool HiveFile::BeginChange() {
  if (!Writable().ok()) return false;
  if (!in_memory_) {
    decltype(hive_) hive(hivex_open(PathOf(copy_).c_str(), HIVEX_OPEN_WRITE));
    if (!hive) return false;
    hive_ = std::move(hive);
    in_memory_ = true;
  }
  ForgetNames();
  return true;
}

RegStatus HiveFile::AddKey(Node parent, const std::string& name) {
  if (!CanBeWritten(name) || name.empty()) return kRegInvalidParameter;
  if (!BeginChange()) return kRegAccessDenied;
  if (hivex_node_add_child(hive_.get(), parent, name.c_str()) == 0) return kRegCorrupt;
  changed_ = true;
  return kRegOk;
}

RegStatus HiveFile::DeleteKey(Node key) {
  if (key == Root() || !BeginChange()) return kRegAccessDenied;
  if (hivex_node_delete_child(hive_.get(), key) != 0) return kRegCorrupt;
  changed_ = true;
  return kRegOk;
}

// The library writes all values of a key at once: one that it cannot write keeps all as they are.
RegStatus HiveFile::ReadAll(Node key, std::vector<Stored>* values) {
  const Owned<hive_value_h> handles(hivex_node_values(hive_.get(), key));
  if (!handles) return kRegCorrupt;
  for (const hive_value_h* handle = handles.get(); *handle; ++handle) {
    Stored stored;
    if (!ReadStored(*handle, &stored)) return kRegCorrupt;
    values->push_back(std::move(stored));
  }
  return kRegOk;
}

RegStatus HiveFile::WriteAll(Node key, const std::vector<Stored>& values) {
  std::vector<hive_set_value> sets;
  for (const Stored& stored : values) {
    const bool too_long = stored.bytes.size() > kLongValue && !long_values_;
    if (!CanBeWritten(stored.name) || too_long) return kRegAccessDenied;
    sets.push_back({const_cast<char*>(stored.name.c_str()), static_cast<hive_type>(stored.type),
                    stored.bytes.size(), const_cast<char*>(stored.bytes.data())});
  }
  if (hivex_node_set_values(hive_.get(), key, sets.size(), sets.data(), 0) != 0) {
    return kRegCorrupt;
  }
  changed_ = true;
  return kRegOk;
}

RegStatus HiveFile::SetValue(Node key, const std::string& name, const RegValue& value) {
  if (!CanBeWritten(name)) return kRegInvalidParameter;
  if (!BeginChange()) return kRegAccessDenied;
  std::vector<Stored> values;
  if (const RegStatus read = ReadAll(key, &values); read != kRegOk) return read;
  auto place = std::ranges::find_if(
      values, [&](const Stored& stored) { return EqualsNoCase(stored.name, name); });
  if (place == values.end()) place = values.insert(place, Stored{name, 0, {}});
  place->type = value.type;
  place->bytes = ToBytes(value);
  return WriteAll(key, values);
}

RegStatus HiveFile::DeleteValue(Node key, const std::string& name) {
  if (name.find('\0') != name.npos) return kRegInvalidParameter;
  std::vector<Stored> values;
  if (const RegStatus read = ReadAll(key, &values); read != kRegOk) return read;
  const auto named = [&](const Stored& stored) { return EqualsNoCase(stored.name, name); };
  if (std::erase_if(values, named) == 0) return kRegNotFound;
  if (!BeginChange()) return kRegAccessDenied;
  return WriteAll(key, values);
}

}  // namespace scourwell
