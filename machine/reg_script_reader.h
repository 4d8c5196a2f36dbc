// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/code_pages.h"
#include "platform/registry.h"

namespace scourwell {

struct ScriptValue {
  std::string name;  // empty: the key's unnamed value
  bool erased = false;
  RegValue value = {};
};

// A key line with the value lines below it.
struct ScriptKey {
  std::string path;  // begins with the name of its root, which nobody has judged
  bool erased = false;
  std::vector<ScriptValue> values = {};
};

struct ScriptContent {
  std::vector<ScriptKey> keys;
  std::vector<std::string> refused;  // lines that mean nothing, cut short
};

// Reads a registry script of either form. A line that cannot be understood is listed and changes
// nothing else; below a key line of that kind, values are refused, too. Memory is bounded by a few
// times the size of the script. kTypeMismatch: it is no script.
Outcome ReadRegScript(std::string_view bytes, CodePages& code_pages, ScriptContent* content);

}  // namespace scourwell
