// SPDX-License-Identifier: MIT
#include "machine/registry_place.h"

#include "machine/cregister.h"
#include "text/paths.h"
#include "text/text.h"

namespace scourwell {
namespace {

struct RootName {
  RootKey root;
  const char* name;
  bool reverse;  // the reverse mapping knows it
};

constexpr RootName kRoots[] = {
    {RootKey::ClassesRoot, "HKEY_CLASSES_ROOT", true},
    {RootKey::CurrentUser, "HKEY_CURRENT_USER", true},
    {RootKey::LocalMachine, "HKEY_LOCAL_MACHINE", true},
    {RootKey::Users, "HKEY_USERS", true},
    {RootKey::PerformanceData, "HKEY_PERFORMANCE_DATA", false},
    {RootKey::CurrentConfig, "HKEY_CURRENT_CONFIG", false},
    {RootKey::DynData, "HKEY_DYN_DATA", false},
};

constexpr std::uint32_t kLastKnownType = kRegMultiText;

std::string BytesAsText(std::string_view data) {
  std::string text;
  for (const char c : data) {
    if (!text.empty()) text += ' ';
    text += Hex(static_cast<unsigned char>(c), 2);
  }
  return text;
}

std::string DwordAsText(std::string_view data) {
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < 4 && i < data.size(); ++i) {
    number |= static_cast<std::uint32_t>(static_cast<unsigned char>(data[i])) << (8 * i);
  }
  return "0x" + Hex(number, 8);
}

}  // namespace

std::optional<RootKey> RootFromName(std::string_view name) {
  for (const RootName& root : kRoots) {
    if (EqualsNoCase(name, root.name)) return root.root;
  }
  return std::nullopt;
}

std::string_view NameFromRoot(RootKey key) {
  for (const RootName& root : kRoots) {
    if (root.root == key && root.reverse) return root.name;
  }
  return {};
}

std::string ValueToText(const RegValue& value) {
  if (value.type < kRegText || value.type > kLastKnownType) return "Temporary unsupported";
  switch (value.type) {
    case kRegText:
    case kRegExpandText:
    case kRegMultiText:
      return std::string(TrimNull(value.data));
    case kRegDword:
      return DwordAsText(value.data);
    default:
      return BytesAsText(value.data);
  }
}

std::string FullKeyPath(const RegistryPlace& place) {
  return std::string(NameFromRoot(place.root)) + "\\" + place.path;
}

bool SplitRegistryPlace(std::string_view full_path, RegistryPlace* place) {
  const auto root = RootFromName(FirstPart(full_path));
  if (!root || NameFromRoot(*root).empty()) return false;
  place->root = *root;
  place->path = CRegister::SplitKeyPath(BehindFirstPart(full_path));
  return true;
}

}  // namespace scourwell
