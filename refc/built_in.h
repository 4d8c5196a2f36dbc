// SPDX-License-Identifier: MIT
#pragma once

#include <set>
#include <string>
#include <string_view>

#include "refc/catalogue.h"
#include "text/text.h"

namespace scourwell::refc {

// The definitions that are compiled into the program, as rows of a source would say them.
class BuiltInRows {
 public:
  static const BuiltInRows& Get();

  // `second`: the name of a registry value.
  bool Has(Kind kind, std::string_view value, std::string_view second) const;
  // True for a search value that section "REMO" can withdraw.
  bool CanWithdraw(std::string_view value) const;
  // True when a row is about the spy.
  bool Names(std::string_view spy) const;

 private:
  BuiltInRows();

  std::set<std::string, NoCaseLess> rows_;
  std::set<std::string, NoCaseLess> searched_;
  std::set<std::string_view, NoCaseLess> spies_;
};

}  // namespace scourwell::refc
