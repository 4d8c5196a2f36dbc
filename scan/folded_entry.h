// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/files.h"
#include "text/text.h"

namespace scourwell {

// A name in the form in which names are compared.
struct FoldedName {
  FoldedName() = default;
  explicit FoldedName(std::string_view folded) : text(folded), hash(FoldedHash()(folded)) {}
  void Fold(std::string_view name) {
    text.clear();
    AppendUpper(name, &text);
    hash = FoldedHash()(text);
  }

  std::string text;
  std::size_t hash = 0;
};

// An entry of a listing, folded once for all that compare it.
class FoldedEntry {
 public:
  // The entry must outlive the look at it. Memory is kept from entry to entry.
  void Take(const DirEntry& entry) {
    entry_ = &entry;
    name_.Fold(entry.name);
    has_other_name_ = !entry.short_name.empty();
    if (!has_other_name_) return;
    other_name_.Fold(entry.short_name);
    has_other_name_ = other_name_.text != name_.text;
  }

  const DirEntry& entry() const { return *entry_; }
  const FoldedName& name() const { return name_; }
  // An 8.3 name that says more than the name.
  bool has_other_name() const { return has_other_name_; }
  const FoldedName& other_name() const { return other_name_; }

 private:
  const DirEntry* entry_ = nullptr;
  FoldedName name_;
  FoldedName other_name_;
  bool has_other_name_ = false;
};

}  // namespace scourwell
