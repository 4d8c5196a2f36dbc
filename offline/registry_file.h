// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/outcome.h"
#include "platform/registry.h"
#include "text/text.h"

namespace scourwell {

inline constexpr RegStatus kRegCorrupt = 1015;  // the system's own number for a damaged registry

// The names right below one key.
class KeyNames {
 public:
  struct Child {
    std::string name;
    std::size_t node;
  };

  explicit KeyNames(std::vector<Child> children) : children_(std::move(children)) {}

  const std::vector<Child>& children() const { return children_; }
  // 0 when there is none of that name; the first of several.
  std::size_t Find(std::string_view name) const;

 private:
  std::vector<Child> children_;
  // A walk asks for one after the other: the next one is tried first.
  mutable std::size_t next_ = 0;
  // Made for many, when somebody asks for another: comparing a few is faster than hashing them.
  mutable std::unordered_map<std::string_view, std::size_t, NoCaseHash, NoCaseEqual> nodes_;
};

// One file of a registry: a tree of keys. A key is known by a number, never 0, that stays the same
// until the file is changed. Whatever the file says, its keys form a tree: one that is met below
// another key than its own is left out.
class RegistryFile {
 public:
  using Node = std::size_t;
  using VisitValue = Registry::VisitValue;

  virtual ~RegistryFile() = default;

  virtual Node Root() = 0;
  virtual RegStatus EnumValues(Node key, const VisitValue& visit) = 0;
  virtual RegStatus CountValues(Node key, std::uint32_t* count) = 0;

  // Why nothing can be written to it; success when it can.
  virtual Outcome Writable() { return Outcome::Failed(kPermissionDenied); }
  virtual RegStatus AddKey(Node, const std::string&) { return kRegAccessDenied; }
  virtual RegStatus DeleteKey(Node) { return kRegAccessDenied; }
  virtual RegStatus SetValue(Node, const std::string&, const RegValue&) { return kRegAccessDenied; }
  virtual RegStatus DeleteValue(Node, const std::string&) { return kRegAccessDenied; }
  virtual bool changed() const { return false; }

  RegStatus ReadNames(Node key, std::shared_ptr<const KeyNames>* names);
  // 0: there is no such key. `path` has no empty parts.
  Node Find(std::string_view path);
  RegStatus QueryValue(Node key, const std::string& name, RegValue* value);
  // Keys that the file names wrongly, so that they could not be shown.
  std::size_t left_out() const { return left_out_; }

 protected:
  virtual RegStatus ReadChildren(Node key, std::vector<KeyNames::Child>* children) = 0;
  void ForgetNames();
  void LeaveOut() { ++left_out_; }

 private:
  std::unordered_map<Node, std::shared_ptr<const KeyNames>> names_;
  std::size_t kept_ = 0;  // names in names_
  // The key whose children were asked for last, as it was spelt.
  std::string last_path_;
  Node last_node_ = 0;
  std::size_t left_out_ = 0;
};

}  // namespace scourwell
