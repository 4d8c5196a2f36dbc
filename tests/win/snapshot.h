// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/registry.h"

namespace scourwell::ui {

// Everything below a folder: one line an item with attributes, times, size and content. Links are
// named and not entered.
std::string FolderSnapshot(const std::string& folder);
// A key with its subkeys: every value with its type and bytes. Empty when there is none.
std::string KeySnapshot(RootKey root, const std::string& path);

}  // namespace scourwell::ui
