// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "machine/error_log.h"
#include "platform/files.h"

namespace scourwell {

inline constexpr char kPackExtension[] = ".ini";

// A language pack of the "Lang" folder.
struct LanguageEntry {
  std::string name;     // of the file, without ".ini"
  std::string picture;  // path of the ".bmp" of the same name; empty when there is none of use
};

// The packs in `folder`, sorted by name. A damaged picture is recorded.
std::vector<LanguageEntry> ListLanguages(Files& files, ErrorLog& log, const std::string& folder);

}  // namespace scourwell
