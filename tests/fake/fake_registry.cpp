// SPDX-License-Identifier: MIT
#include <algorithm>

#include "tests/fake/fake_machine.h"

namespace scourwell::test {
namespace {

// The last part goes to *name, the path before it is returned.
std::string SplitLast(std::string path, std::string* name) {
  while (!path.empty() && path.back() == '\\') path.pop_back();
  const std::size_t slash = path.rfind('\\');
  *name = path.substr(slash == path.npos ? 0 : slash + 1);
  return slash == path.npos ? std::string() : path.substr(0, slash);
}

bool HasNul(std::string_view text) { return text.find('\0') != text.npos; }

template <class Visit>
bool ForParts(std::string_view path, Visit&& visit) {
  while (!path.empty()) {
    const std::string_view part = path.substr(0, path.find('\\'));
    path.remove_prefix(std::min(part.size() + 1, path.size()));
    if (!part.empty() && !visit(part)) return false;
  }
  return true;
}

}  // namespace

Key* Key::Child(std::string_view part) const {
  for (const auto& child : children) {
    if (EqualsNoCase(child->name, part)) return child.get();
  }
  return nullptr;
}

Key& Key::Value(const std::string& value_name, const std::string& text, std::uint32_t type) {
  return Set(value_name, {type, text});
}

Key& Key::Set(const std::string& value_name, const RegValue& value) {
  for (auto& [existing, there] : values) {
    if (!EqualsNoCase(existing, value_name)) continue;
    there = value;
    return *this;
  }
  values.push_back({value_name, value});
  return *this;
}

Key& FakeRegistry::Make(RootKey root, const std::string& path) {
  Key* key = &roots_[root];
  ForParts(path, [&](std::string_view part) {
    Key* child = key->Child(part);
    if (!child) {
      key->children.push_back(std::make_unique<Key>());
      child = key->children.back().get();
      child->name = part;
    }
    key = child;
    return true;
  });
  return *key;
}

Key* FakeRegistry::Walk(RootKey root, const std::string& path, bool follow_last, int links_left) {
  Key* key = &roots_[root];
  const auto follow = [&] {
    if (key && !key->link.empty()) {
      key = links_left > 0 ? Walk(root, key->link, true, links_left - 1) : nullptr;
    }
    return key != nullptr;
  };
  const bool found = ForParts(path, [&](std::string_view part) {
    if (follow()) key = key->Child(part);
    return key != nullptr;
  });
  return found && (!follow_last || follow()) ? key : nullptr;
}

Key* FakeRegistry::Find(RootKey root, const std::string& path) { return Walk(root, path, true); }

Key& FakeRegistry::Link(RootKey root, const std::string& path, const std::string& target) {
  Key& key = Make(root, path);
  key.link = target;
  return key;
}

std::string FakeRegistry::Text(RootKey root, const std::string& path, const std::string& name) {
  RegValue value;
  return QueryValue(root, path, name, &value) == kRegOk ? value.data : "(none)";
}

RegStatus FakeRegistry::TryOpen(RootKey root, const std::string& path, std::uint32_t rights) {
  if (Fails()) return kRegAccessDenied;
  if (path.starts_with("\\")) return kRegBadPath;
  if (HasNul(path)) return kRegInvalidParameter;
  const Key* key = Find(root, path);
  if (!key) return kRegNotFound;
  if (key->unreadable) return kRegAccessDenied;
  return key->denied && rights != kKeyRead ? kRegAccessDenied : kRegOk;
}

RegStatus FakeRegistry::QueryValue(RootKey root, const std::string& path, const std::string& name,
                                   RegValue* value) {
  if (HasNul(name)) return kRegInvalidParameter;
  if (const RegStatus opened = TryOpen(root, path, kKeyRead)) return opened;
  for (const auto& [existing, stored] : Find(root, path)->values) {
    if (!EqualsNoCase(existing, name)) continue;
    *value = stored;
    return kRegOk;
  }
  return kRegNotFound;
}

RegStatus FakeRegistry::CreateKey(RootKey root, const std::string& path) {
  if (before_change) before_change();
  if (Fails()) return kRegAccessDenied;
  if (path.starts_with("\\")) return kRegBadPath;
  if (HasNul(path)) return kRegInvalidParameter;
  // What denies changes denies keys below it too.
  for (std::size_t slash = path.size(); slash != path.npos; slash = path.rfind('\\', slash - 1)) {
    const Key* key = Find(root, path.substr(0, slash));
    if (key && key->denied && slash != path.size()) return kRegAccessDenied;
    if (key || slash == 0) break;
  }
  Make(root, path);
  return kRegOk;
}

RegStatus FakeRegistry::ReadTraits(RootKey root, const std::string& path, RegTraits* traits) {
  const RegStatus opened = TryOpen(root, path, kKeyRead);
  if (opened == kRegOk) *traits = Find(root, path)->traits;
  return opened;
}

RegStatus FakeRegistry::CreateKeyOfKind(RootKey root, const std::string& path,
                                        const std::string& kind) {
  const bool there = Find(root, path) != nullptr;
  const RegStatus created = CreateKey(root, path);
  if (created == kRegOk && !there) Find(root, path)->traits.kind = kind;
  return created;
}

RegStatus FakeRegistry::SetKeySecurity(RootKey root, const std::string& path,
                                       const std::string& descriptor) {
  if (before_change) before_change();
  const RegStatus opened =
      keeps_rights ? RegStatus{kRegAccessDenied} : TryOpen(root, path, kKeyAllRights);
  if (opened == kRegOk) Find(root, path)->traits.security = descriptor;
  return opened;
}

RegStatus FakeRegistry::SetValue(RootKey root, const std::string& path, const std::string& name,
                                 const RegValue& value) {
  if (HasNul(name)) return kRegInvalidParameter;
  if (before_change) before_change();
  const RegStatus opened = TryOpen(root, path, kKeyAllRights);
  if (opened != kRegOk && opened != kRegNotFound) return opened;
  Make(root, path).Set(name, value);
  return kRegOk;
}

RegStatus FakeRegistry::DeleteValue(RootKey root, const std::string& path,
                                    const std::string& name) {
  if (HasNul(name)) return kRegInvalidParameter;
  if (before_change) before_change();
  if (const RegStatus opened = TryOpen(root, path, kKeyAllRights)) return opened;
  const std::size_t gone = std::erase_if(
      Find(root, path)->values, [&](const auto& value) { return EqualsNoCase(value.first, name); });
  return gone ? kRegOk : kRegNotFound;
}

RegStatus FakeRegistry::IsLink(RootKey root, const std::string& path, bool* is_link) {
  if (Fails()) return kRegAccessDenied;
  if (HasNul(path)) return kRegInvalidParameter;
  const Key* key = Walk(root, path, false);
  *is_link = key && !key->link.empty();
  return key ? kRegOk : kRegNotFound;
}

RegStatus FakeRegistry::DeleteKeyCall(RootKey root, const std::string& path) {
  if (before_change) before_change();
  if (Fails()) return kRegAccessDenied;
  journal.push_back("DeleteKey " + path);
  std::string name;
  const std::string parent = SplitLast(path, &name);
  if (name.empty() || HasNul(path)) return kRegInvalidParameter;
  if (path.starts_with("\\")) return kRegBadPath;
  const Key* key = Walk(root, path, false);
  if (!key) return kRegNotFound;
  if (key->denied) return kRegAccessDenied;
  if (!deletes_trees && !key->children.empty()) return kRegAccessDenied;
  std::erase_if(Find(root, parent)->children,
                [&](const auto& child) { return child.get() == key; });
  return kRegOk;
}

RegStatus FakeRegistry::Count(RootKey root, const std::string& path, RegCounts* counts) {
  if (const RegStatus opened = TryOpen(root, path, kKeyRead)) return opened;
  const Key* key = Find(root, path);
  *counts = {static_cast<std::uint32_t>(key->children.size()),
             static_cast<std::uint32_t>(key->values.size() + key->unspellable.size())};
  return kRegOk;
}

RegStatus FakeRegistry::EnumKeys(RootKey root, const std::string& path, const VisitKey& visit) {
  if (const RegStatus opened = TryOpen(root, path, kKeyRead)) return opened;
  for (const auto& child : Find(root, path)->children) {
    if (!visit(child->name)) break;
  }
  return kRegOk;
}

RegStatus FakeRegistry::EnumValues(RootKey root, const std::string& path, const VisitValue& visit) {
  if (const RegStatus opened = TryOpen(root, path, kKeyRead)) return opened;
  for (const auto* values : {&Find(root, path)->values, &Find(root, path)->unspellable}) {
    for (const auto& [name, value] : *values) {
      if (!visit(name, value)) return kRegOk;
    }
  }
  return kRegOk;
}

}  // namespace scourwell::test
