// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/code_pages.h"

namespace scourwell {

// What a shortcut file says by itself; what it does not say is empty.
struct ShortcutFile {
  std::string target;
  std::string arguments;
};

// Empty when the file is no shortcut.
std::optional<ShortcutFile> ReadShortcut(std::string_view bytes, CodePages& code_pages);

}  // namespace scourwell
