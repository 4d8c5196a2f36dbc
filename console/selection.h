// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "console/records.h"

namespace scourwell {

// What --only leaves of the findings. Each of its words is a kind ("file"), a place (it holds a
// separator: that item, and everything below it) or the name of a spy. A finding must be of one of
// the kinds, at one of the places and of one of the spies, as far as any of these are named. A
// place goes to the end of its word list, commas and all.
class Selection {
 public:
  explicit Selection(const std::vector<std::string>& only);

  bool Holds(const FindingRecord& record) const;

 private:
  void Add(std::string_view word);

  std::vector<FindingKind> kinds_;
  std::vector<std::string> spies_;
  std::vector<std::string> places_;
};

}  // namespace scourwell
