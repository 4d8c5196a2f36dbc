// SPDX-License-Identifier: MIT
#include "offline/registry_file.h"

#include <algorithm>

#include "text/paths.h"

namespace scourwell {
namespace {

constexpr std::size_t kFew = 8;
constexpr std::size_t kMostKept = 50'000;  // names, some 5 MB
constexpr unsigned kDeepest = 512;         // levels that the system allows

}  // namespace

std::size_t KeyNames::Find(std::string_view name) const {
  for (std::size_t i = next_; i < std::min(next_ + 2, children_.size()); ++i) {
    if (children_[i].name != name) continue;
    next_ = i;
    return children_[i].node;
  }
  if (children_.size() > kFew && nodes_.empty()) {
    nodes_.reserve(children_.size());
    for (const Child& child : children_) nodes_.try_emplace(child.name, child.node);
  }
  if (children_.size() > kFew) {
    const auto found = nodes_.find(name);
    return found == nodes_.end() ? 0 : found->second;
  }
  const auto found =
      std::ranges::find_if(children_, [&](const Child& c) { return EqualsNoCase(c.name, name); });
  return found == children_.end() ? 0 : found->node;
}

RegStatus RegistryFile::ReadNames(Node key, std::shared_ptr<const KeyNames>* names) {
  const auto known = names_.find(key);
  if (known != names_.end()) {
    *names = known->second;
    return kRegOk;
  }
  std::vector<KeyNames::Child> children;
  const RegStatus status = ReadChildren(key, &children);
  auto read = std::make_shared<const KeyNames>(std::move(children));
  if (status == kRegOk) {
    if (kept_ + read->children().size() + 1 > kMostKept) ForgetNames();
    kept_ += read->children().size() + 1;
    names_[key] = read;
  }
  *names = std::move(read);
  return status;
}

void RegistryFile::ForgetNames() {
  names_.clear();
  kept_ = 0;
  last_path_.clear();
  last_node_ = 0;
}

RegistryFile::Node RegistryFile::Find(std::string_view path) {
  const std::string_view above = FolderPart(path);
  Node node = Root();
  unsigned depth = 0;
  std::string_view rest = path;
  if (last_node_ != 0 && above == last_path_) {
    node = last_node_;
    rest = FileNamePart(path);
  }
  while (node != 0 && !rest.empty()) {
    if (++depth > kDeepest) return 0;
    const bool last = !HoldsSeparator(rest);
    const std::string_view part = TakePart(&rest);
    std::shared_ptr<const KeyNames> names;
    // What a damaged key still names can be reached.
    static_cast<void>(ReadNames(node, &names));
    if (last) {
      last_path_ = above;
      last_node_ = node;
    }
    node = names->Find(part);
  }
  return node;
}

RegStatus RegistryFile::QueryValue(Node key, const std::string& name, RegValue* value) {
  bool found = false;
  const RegStatus status = EnumValues(key, [&](const std::string& each, const RegValue& stored) {
    found = EqualsNoCase(each, name);
    if (found) *value = stored;
    return !found;
  });
  if (found) return kRegOk;
  return status == kRegOk ? kRegNotFound : status;
}

}  // namespace scourwell
