// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <variant>

#include "console/options.h"

namespace scourwell {

// An option: `--name`, with a value where there is a word for it. One of an optional<bool> has its
// counterpart `--no-name` as well.
struct OptionRow {
  using Field = std::variant<bool Options::*, std::optional<bool> Options::*,
                             std::string Options::*, std::vector<std::string> Options::*>;
  const char* name;
  const char* value;  // null: it takes none
  unsigned commands;  // that know it
  Field field;
  const char* help;
};

std::span<const Command> Commands();
std::span<const OptionRow> OptionRows();

}  // namespace scourwell
