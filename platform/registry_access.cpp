#include "platform/registry_access.h"

#include <algorithm>
#include <vector>

#include "platform/file_utils.h"
#include "platform/protected_keys.h"
#include "platform/text.h"

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
// The system allows 512 levels; more means a damaged registry.
constexpr unsigned kDeepest = 512;

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

RegStatus RegistryAccess::DeleteKey(RootKey root, std::string_view path) {
  RegStatus status = kRegOk;
  static_cast<void>(log_.Trap("DeleteKey", [&]() -> Outcome {
    const std::string key = CRegister::SplitKeyPath(path);
    if (key.empty()) {
      status = kRegInvalidParameter;
      return Outcome::Failed(kInvalidCall, "A registry root cannot be deleted");
    }
    std::string link;
    if (LeadsAside(root, FolderPart(key))) {
      status = kRegAccessDenied;
      link = key;
    } else {
      status = DeleteTree(root, key, 0, &link);
    }
    if (link.empty()) return {};
    return Outcome::Failed(kPermissionDenied, "A link in the registry is not followed")
        .With("Key: ", link);
  }));
  return status;
}

// One that does not tell counts as a link.
bool RegistryAccess::IsLink(RootKey root, const std::string& path) {
  bool is_link = false;
  return registry_.IsLink(root, path, &is_link) == kRegAccessDenied || is_link;
}

// Windows' own links, as CurrentControlSet, lead to keys that are judged under the same name.
bool RegistryAccess::LeadsAside(RootKey root, std::string_view path) {
  const std::string key = CRegister::SplitKeyPath(path);
  for (std::size_t end = 0; end < key.size(); ++end) {
    end = PartEnd(key, end);
    const std::string prefix = key.substr(0, end);
    if (IsLink(root, prefix) && !IsProtectedKey(std::string(NameFromRoot(root)) + "\\" + prefix)) {
      return true;
    }
  }
  return false;
}

bool RegistryAccess::HasLinks(RootKey root, std::string_view path) {
  return LeadsAside(root, path) || HoldsLink(root, CRegister::SplitKeyPath(path), 0);
}

bool RegistryAccess::HoldsLink(RootKey root, const std::string& path, unsigned depth) {
  if (depth >= kDeepest) return true;
  std::vector<std::string> names;
  registry_.EnumKeys(root, path, [&](const std::string& name) {
    names.push_back(name);
    return true;
  });
  return std::ranges::any_of(names, [&](const std::string& name) {
    const std::string below = path + "\\" + name;
    return IsLink(root, below) || HoldsLink(root, below, depth + 1);
  });
}

RegStatus RegistryAccess::DeleteTree(RootKey root, const std::string& path, unsigned depth,
                                     std::string* link) {
  const RegStatus direct = registry_.DeleteKeyCall(root, path);
  if (direct != kRegAccessDenied) return direct;
  const bool is_link = IsLink(root, path);
  if (is_link) *link = path;
  if (is_link || depth >= kDeepest ||
      registry_.TryOpen(root, path, kKeyAllRights) == kRegAccessDenied) {
    shell_.Message(captions_.Text(2005), captions_.Text(2006));
    return kRegAccessDenied;
  }
  std::vector<std::string> names;
  registry_.EnumKeys(root, path, [&](const std::string& name) {
    names.push_back(name);
    return true;
  });
  // A key that denies its deletion and has no subkeys will not yield to a second try.
  if (names.empty()) return direct;
  for (std::size_t i = names.size(); i-- > 0;) {
    const RegStatus below = DeleteTree(root, path + "\\" + names[i], depth + 1, link);
    if (below == kRegAccessDenied) return below;
  }
  return registry_.DeleteKeyCall(root, path);
}

RegStatus RegistryAccess::DeleteValue(RootKey root, std::string_view path,
                                      const std::string& name) {
  if (LeadsAside(root, path)) return kRegAccessDenied;
  return registry_.DeleteValue(root, CRegister::SplitKeyPath(path), name);
}

std::uint32_t RegistryAccess::SubkeyCount(RootKey root, std::string_view path) {
  std::uint32_t count = 0;
  registry_.EnumKeys(root, CRegister::SplitKeyPath(path), [&](const std::string&) {
    ++count;
    return true;
  });
  return count;
}

std::string RegistryAccess::SubkeyName(RootKey root, std::string_view path, std::uint32_t index) {
  std::string found;
  registry_.EnumKeys(root, CRegister::SplitKeyPath(path), [&](const std::string& name) {
    if (index-- != 0) return true;
    found = name;
    return false;
  });
  return found;
}

std::string RegistryAccess::ReadString(RootKey root, std::string_view path,
                                       const std::string& name) {
  return CRegister(registry_).QueryString(root, path, name);
}

Outcome RegistryAccess::SelfRegister(const std::string& library, bool register_it) {
  return shell_.CallExport(library, register_it ? "DllRegisterServer" : "DllUnregisterServer");
}

void CRegister::DeleteEntry(RootKey root, std::string_view path, const std::string& name,
                            RegStatus* status) {
  const std::string key = SplitKeyPath(path);
  if (name.empty()) {
    *status = key.empty() ? kRegInvalidParameter : registry_.DeleteKeyCall(root, key);
  } else {
    *status = registry_.DeleteValue(root, key, name == "*" ? "" : name);
  }
}

std::string CRegister::QueryString(RootKey root, std::string_view path, const std::string& name) {
  RegValue value;
  if (registry_.QueryValue(root, SplitKeyPath(path), name, &value) != kRegOk) return {};
  if (value.type != kRegText && value.type != kRegExpandText && value.type != kRegMultiText) {
    return {};
  }
  return std::string(TrimNull(value.data));
}

RegStatus CRegister::SetString(RootKey root, std::string_view path, const std::string& name,
                               const std::string& text) {
  return registry_.SetValue(root, SplitKeyPath(path), name, {kRegText, text});
}

std::string CRegister::SplitKeyPath(std::string_view path) {
  if (BeginsWithSeparator(path)) path.remove_prefix(1);
  if (EndsInSeparator(path)) path.remove_suffix(1);
  return std::string(path);
}

}  // namespace scourwell
