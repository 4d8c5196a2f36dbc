// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <unordered_set>

#include "scan/finding.h"
#include "text/text.h"

namespace scourwell {

// Passes findings on. What lies in the registry or among the cookies of one user is that user's:
// the same key of another is another finding.
class UserSink : public FindingSink {
 public:
  // `user`: whose part is scanned; empty: that of the machine.
  UserSink(FindingSink& sink, std::string user) : sink_(sink), user_(std::move(user)) {}

  bool Contains(const FoundObject& object) const override {
    return IsPersonal(object) ? seen_.contains(IdentityOf(object)) : sink_.Contains(object);
  }
  bool Shows(const FoundObject& object) const override {
    return IsPersonal(object) ? Contains(object) : sink_.Shows(object);
  }
  void AddSpyToListView(const Finding& finding) override {
    Finding owned = finding;
    if (IsPersonal(finding.object)) {
      owned.user = user_;
      seen_.insert(IdentityOf(finding.object));
    }
    sink_.AddSpyToListView(owned);
  }

 private:
  bool IsPersonal(const FoundObject& object) const {
    if (user_.empty()) return false;
    const auto is_users = [](const RegistryPlace& place) {
      return place.root == RootKey::CurrentUser || place.root == RootKey::ClassesRoot;
    };
    if (const auto* key = std::get_if<FoundKey>(&object)) return is_users(key->place);
    if (const auto* value = std::get_if<FoundValue>(&object)) return is_users(value->key);
    return KindOf(object) == FindingKind::Cookie;
  }

  FindingSink& sink_;
  std::string user_;
  std::unordered_set<std::string, NoCaseHash, NoCaseEqual> seen_;
};

}  // namespace scourwell
