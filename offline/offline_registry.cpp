// SPDX-License-Identifier: MIT
#include "offline/offline_registry.h"

#include <algorithm>
#include <set>

#include "machine/registry_place.h"
#include "machine/registry_views.h"
#include "text/paths.h"
#include "text/text.h"

namespace scourwell {
namespace {

constexpr char kClasses[] = "Software\\Classes";
constexpr char kWow64[] = "Wow6432Node";
constexpr char kLinkValue[] = "SymbolicLinkValue";

bool HasNul(std::string_view text) { return text.find('\0') != text.npos; }

// The registry takes several separators as one.
std::string Plain(std::string_view path) {
  std::string plain;
  plain.reserve(path.size());
  while (!path.empty()) {
    const std::string_view part = TakePart(&path);
    if (part.empty()) continue;
    if (!plain.empty()) plain += kSeparator;
    plain += part;
  }
  return plain;
}

std::string Join(std::string_view above, std::string_view below) {
  if (above.empty() || below.empty()) return std::string(above) + std::string(below);
  return AddPathToFileName(above, below);
}

// What stands behind `outer`, which holds the path.
std::string_view Behind(std::string_view path, std::string_view outer) {
  path.remove_prefix(outer.empty() ? 0 : PrefixNoCase(path, outer));
  if (BeginsWithSeparator(path)) path.remove_prefix(1);
  return path;
}

}  // namespace

OfflineRegistry::OfflineRegistry(const std::vector<RegistryMount>& mounts, View view)
    : view_(view) {
  for (const RegistryMount& mount : mounts) {
    mounts_.push_back(&mount);
    by_first_part_[std::string(FirstPart(mount.path))].push_back(&mount);
  }
}

bool OfflineRegistry::Meaning::Exists() const {
  return !mounts.empty() ||
         std::ranges::any_of(places, [](const Place& place) { return place.node != 0; });
}

// Where a 32-bit program lands on a 64-bit Windows.
std::string OfflineRegistry::InView(RootKey root, const std::string& path) const {
  if (view_ == View::Only || IsSharedByViews(FullKeyPath({root, path}))) return path;
  std::string_view below = path;
  std::string above;
  const auto take = [&] { above = Join(above, TakePart(&below)); };
  if (root == RootKey::Users) take();
  take();  // Software
  if (EqualsNoCase(FirstPart(below), "Classes")) take();
  if (EqualsNoCase(FirstPart(below), kWow64)) return path;
  return Join(Join(above, kWow64), below);
}

void OfflineRegistry::AddMounts(const Mounts& mounts, RootKey root, const std::string& path,
                                const RegistryMount** innermost, Meaning* meaning) const {
  for (const RegistryMount* mount : mounts) {
    if (mount->root != root) continue;
    if (mount->path.empty() || IsAtOrBelow(path, mount->path)) {
      if (!*innermost || (*innermost)->path.size() <= mount->path.size()) *innermost = mount;
    } else if (path.empty() || IsAtOrBelow(mount->path, path)) {
      if (!mount->hidden) meaning->mounts.emplace_back(FirstPart(Behind(mount->path, path)));
    }
  }
}

void OfflineRegistry::AddPlaces(RootKey root, const std::string& given, Meaning* meaning) {
  if (root == RootKey::CurrentUser) {
    if (user_.empty()) return;
    // What both views of a user have in common is judged by its usual name.
    const std::string seen = InView(root, given);
    return AddPlaces(RootKey::Users, Join(user_, seen), meaning);
  }
  const std::string path = root == RootKey::Users ? given : InView(root, given);
  const RegistryMount* innermost = nullptr;
  if (path.empty()) {
    AddMounts(mounts_, root, path, &innermost, meaning);
  } else {
    for (const std::string_view first : {std::string_view(), FirstPart(path)}) {
      const auto mounts = by_first_part_.find(first);
      if (mounts == by_first_part_.end()) continue;
      AddMounts(mounts->second, root, path, &innermost, meaning);
    }
  }
  if (!innermost) return;
  Place place;
  place.file = innermost->file;
  place.path = Join(innermost->inner, Behind(path, innermost->path));
  place.node = place.file->Find(place.path);
  place.is_mount = Behind(path, innermost->path).empty();
  meaning->places.push_back(std::move(place));
}

RegStatus OfflineRegistry::Resolve(RootKey root, const std::string& path, Meaning* meaning) {
  if (HasNul(path)) return kRegInvalidParameter;
  if (BeginsWithSeparator(path)) return kRegBadPath;
  const std::string plain = Plain(path);
  if (root == RootKey::ClassesRoot) {
    const std::string below = Join(kClasses, plain);
    AddPlaces(RootKey::CurrentUser, below, meaning);
    if (!user_only_) AddPlaces(RootKey::LocalMachine, below, meaning);
  } else if (!user_only_ || root == RootKey::CurrentUser) {
    AddPlaces(root, plain, meaning);
  }
  return plain.empty() || meaning->Exists() ? kRegOk : kRegNotFound;
}

// The strongest place where the key is there.
RegStatus OfflineRegistry::Find(RootKey root, const std::string& path, Place* place) {
  Meaning meaning;
  if (const RegStatus status = Resolve(root, path, &meaning); status != kRegOk) return status;
  for (const Place& each : meaning.places) {
    if (each.node == 0) continue;
    *place = each;
    return kRegOk;
  }
  return kRegNotFound;
}

RegStatus OfflineRegistry::TryOpen(RootKey root, const std::string& path, std::uint32_t rights) {
  Meaning meaning;
  if (const RegStatus status = Resolve(root, path, &meaning); status != kRegOk) return status;
  if (rights == kKeyRead || meaning.places.empty()) return kRegOk;
  const auto there = std::ranges::find_if(meaning.places, [](const Place& p) { return p.node; });
  const bool denied = there != meaning.places.end() && !there->file->Writable().ok();
  return denied ? kRegAccessDenied : kRegOk;
}

RegStatus OfflineRegistry::Count(RootKey root, const std::string& path, RegCounts* counts) {
  Meaning meaning;
  if (const RegStatus status = Resolve(root, path, &meaning); status != kRegOk) return status;
  RegCounts sum;
  sum.keys = static_cast<std::uint32_t>(meaning.mounts.size());
  for (const Place& place : meaning.places) {
    if (place.node == 0) continue;
    std::shared_ptr<const KeyNames> names;
    std::uint32_t values = 0;
    RegStatus status = place.file->ReadNames(place.node, &names);
    if (status == kRegOk) status = place.file->CountValues(place.node, &values);
    if (status != kRegOk) return status;
    sum.keys += static_cast<std::uint32_t>(names->children().size());
    sum.values += values;
  }
  *counts = sum;
  return kRegOk;
}

RegStatus OfflineRegistry::EnumKeys(RootKey root, const std::string& path, const VisitKey& visit) {
  Meaning meaning;
  if (const RegStatus status = Resolve(root, path, &meaning); status != kRegOk) return status;
  const bool one = meaning.places.size() + meaning.mounts.size() <= 1;
  std::set<std::string, NoCaseLess> seen;
  RegStatus result = kRegOk;
  const auto show = [&](const std::string& name) {
    return (!one && !seen.insert(name).second) || visit(name);
  };
  for (const Place& place : meaning.places) {
    if (place.node == 0) continue;
    std::shared_ptr<const KeyNames> names;
    const RegStatus status = place.file->ReadNames(place.node, &names);
    if (status != kRegOk) result = status;
    for (const KeyNames::Child& child : names->children()) {
      if (!show(child.name)) return kRegOk;
    }
  }
  for (const std::string& mount : meaning.mounts) {
    if (!show(mount)) return kRegOk;
  }
  return result;
}

RegStatus OfflineRegistry::EnumValues(RootKey root, const std::string& path,
                                      const VisitValue& visit) {
  Meaning meaning;
  if (const RegStatus status = Resolve(root, path, &meaning); status != kRegOk) return status;
  std::set<std::string, NoCaseLess> seen;
  const bool one = meaning.places.size() <= 1;
  bool go_on = true;
  RegStatus result = kRegOk;
  for (const Place& place : meaning.places) {
    if (place.node == 0 || !go_on) continue;
    const RegStatus status =
        place.file->EnumValues(place.node, [&](const std::string& name, const RegValue& value) {
          if (one || seen.insert(name).second) go_on = visit(name, value);
          return go_on;
        });
    if (status != kRegOk) result = status;
  }
  return result;
}

RegStatus OfflineRegistry::QueryValue(RootKey root, const std::string& path,
                                      const std::string& name, RegValue* value) {
  if (HasNul(name)) return kRegInvalidParameter;
  Meaning meaning;
  if (const RegStatus status = Resolve(root, path, &meaning); status != kRegOk) return status;
  RegStatus result = kRegNotFound;
  for (const Place& place : meaning.places) {
    if (place.node == 0) continue;
    result = place.file->QueryValue(place.node, name, value);
    if (result != kRegNotFound) return result;
  }
  return result;
}

RegStatus OfflineRegistry::MakeKey(RootKey root, const std::string& path, Place* place) {
  const RegStatus found = Find(root, path, place);
  if (found != kRegNotFound) return found;
  Meaning meaning;
  static_cast<void>(Resolve(root, path, &meaning));
  // What is new belongs to the machine.
  if (meaning.places.empty()) return kRegAccessDenied;
  Place target = meaning.places.back();
  std::string made;
  std::string_view rest = target.path;
  while (!rest.empty()) {
    const std::string name(TakePart(&rest));
    const RegistryFile::Node above = target.file->Find(made);
    made = Join(made, name);
    if (target.file->Find(made) != 0) continue;
    if (const RegStatus status = target.file->AddKey(above, name); status != kRegOk) return status;
  }
  target.node = target.file->Find(target.path);
  *place = target;
  return target.node ? kRegOk : kRegCorrupt;
}

RegStatus OfflineRegistry::CreateKey(RootKey root, const std::string& path) {
  Place place;
  return MakeKey(root, path, &place);
}

RegStatus OfflineRegistry::SetValue(RootKey root, const std::string& path, const std::string& name,
                                    const RegValue& value) {
  if (HasNul(name)) return kRegInvalidParameter;
  Place place;
  if (const RegStatus made = MakeKey(root, path, &place); made != kRegOk) return made;
  return place.file->SetValue(place.node, name, value);
}

RegStatus OfflineRegistry::DeleteValue(RootKey root, const std::string& path,
                                       const std::string& name) {
  if (HasNul(name)) return kRegInvalidParameter;
  Meaning meaning;
  if (const RegStatus status = Resolve(root, path, &meaning); status != kRegOk) return status;
  for (const Place& place : meaning.places) {
    if (place.node == 0) continue;
    const RegStatus status = place.file->DeleteValue(place.node, name);
    if (status != kRegNotFound) return status;
  }
  return kRegNotFound;
}

RegStatus OfflineRegistry::IsLink(RootKey root, const std::string& path, bool* is_link) {
  Place place;
  if (const RegStatus status = Find(root, path, &place); status != kRegOk) return status;
  RegValue value;
  *is_link =
      place.file->QueryValue(place.node, kLinkValue, &value) == kRegOk && value.type == kRegLink;
  return kRegOk;
}

RegStatus OfflineRegistry::DeleteKeyCall(RootKey root, const std::string& path) {
  Place place;
  if (const RegStatus status = Find(root, path, &place); status != kRegOk) return status;
  if (place.is_mount) return kRegAccessDenied;
  std::shared_ptr<const KeyNames> names;
  if (const RegStatus read = place.file->ReadNames(place.node, &names); read != kRegOk) return read;
  if (!names->children().empty()) return kRegAccessDenied;
  return place.file->DeleteKey(place.node);
}

}  // namespace scourwell
