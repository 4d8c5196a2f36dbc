// SPDX-License-Identifier: MIT
#include "guard/key_remover.h"

#include <algorithm>
#include <vector>

#include "guard/protected_keys.h"
#include "machine/cregister.h"
#include "machine/registry_place.h"
#include "text/caption_ids.h"
#include "text/paths.h"

namespace scourwell {
namespace {

// The system allows 512 levels; more means a damaged registry.
constexpr unsigned kDeepest = 512;

}  // namespace

RegStatus KeyRemover::DeleteKey(RootKey root, std::string_view path) {
  RegStatus status = kRegOk;
  log_.Trap("DeleteKey", [&]() -> Outcome {
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
        .Because(Caption::ReasonLink)
        .With("Key: ", link);
  });
  return status;
}

// One that does not tell counts as a link.
bool KeyRemover::IsLink(RootKey root, const std::string& path) {
  bool is_link = false;
  return registry_.IsLink(root, path, &is_link) == kRegAccessDenied || is_link;
}

// Windows' own links, as CurrentControlSet, lead to keys that are judged under the same name.
bool KeyRemover::LeadsAside(RootKey root, std::string_view path) {
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

bool KeyRemover::HasLinks(RootKey root, std::string_view path) {
  return LeadsAside(root, path) || HoldsLink(root, CRegister::SplitKeyPath(path), 0);
}

bool KeyRemover::HoldsLink(RootKey root, const std::string& path, unsigned depth) {
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

RegStatus KeyRemover::DeleteTree(RootKey root, const std::string& path, unsigned depth,
                                 std::string* link) {
  const RegStatus direct = registry_.DeleteKeyCall(root, path);
  if (direct != kRegAccessDenied) return direct;
  const bool is_link = IsLink(root, path);
  if (is_link) *link = path;
  if (is_link || depth >= kDeepest ||
      registry_.TryOpen(root, path, kKeyAllRights) == kRegAccessDenied) {
    on_denied_();
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

RegStatus KeyRemover::DeleteValue(RootKey root, std::string_view path, const std::string& name) {
  if (LeadsAside(root, path)) return kRegAccessDenied;
  return registry_.DeleteValue(root, CRegister::SplitKeyPath(path), name);
}

}  // namespace scourwell
