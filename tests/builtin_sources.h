// SPDX-License-Identifier: MIT
#pragma once

// The files that the compiled-in definitions come from.

#include <doctest/doctest.h>

#include <cstdio>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "definitions/builtin_lists.h"

namespace scourwell::test {

struct Source {
  const char* file;
  const BuiltInList* list;
};

inline const Source kSources[] = {
    {"trojan_direct_folders", &kBuiltInTrojanDirectFolders},
    {"trojan_files", &kBuiltInTrojanFiles},
    {"dialer_folders", &kBuiltInDialerFolders},
    {"dialer_direct_folders", &kBuiltInDialerDirectFolders},
    {"dialer_direct_files", &kBuiltInDialerDirectFiles},
    {"dialer_files", &kBuiltInDialerFiles},
    {"hijacker_folders", &kBuiltInHijackerFolders},
    {"hijacker_direct_entries", &kBuiltInHijackerDirectEntries},
    {"hijacker_files", &kBuiltInHijackerFiles},
    {"hijacker_direct_files", &kBuiltInHijackerDirectFiles},
    {"keylogger_folders", &kBuiltInKeyLoggerFolders},
    {"keylogger_direct_folders", &kBuiltInKeyLoggerDirectFolders},
    {"keylogger_files", &kBuiltInKeyLoggerFiles},
    {"keylogger_direct_files", &kBuiltInKeyLoggerDirectFiles},
    {"spyware_folders", &kBuiltInSpyFolders},
    {"spyware_direct_folders", &kBuiltInSpyDirectFolders},
    {"spyware_files", &kBuiltInSpyFiles},
    {"spyware_direct_files", &kBuiltInSpyDirectFiles},
    {"spyware_files_2", &kBuiltInSpyFiles2},
    {"spyware_direct_files_2", &kBuiltInSpyDirectFiles2},
    {"cookies", &kBuiltInCookies},
    {"processes", &kBuiltInProcesses},
    {"registry", &kBuiltInRegistry},
    {"registry_startup_values", &kBuiltInRegistryStartupValues},
    {"registry_app_path_values", &kBuiltInRegistryAppPathValues},
};

inline std::vector<std::string> Split(std::string_view text, char separator) {
  std::vector<std::string> parts;
  for (;;) {
    const std::size_t end = text.find(separator);
    parts.emplace_back(text.substr(0, end));
    if (end == std::string_view::npos) return parts;
    text.remove_prefix(end + 1);
  }
}

// The lines without comments and blank ones. No value where the tests run for Windows: the source
// folder is out of reach there.
inline std::optional<std::vector<std::string>> SourceLines(const std::string& file) {
  std::FILE* stream = std::fopen((SCOURWELL_SOURCE_DIR "/" + file).c_str(), "rb");
#ifndef _WIN32
  REQUIRE(stream);
#endif
  if (!stream) return std::nullopt;
  std::string content(1 << 20, '\0');
  content.resize(std::fread(content.data(), 1, content.size(), stream));
  std::fclose(stream);
  std::vector<std::string> lines;
  for (std::string& line : Split(content, '\n')) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (!line.empty() && line.front() != '#') lines.push_back(std::move(line));
  }
  return lines;
}

}  // namespace scourwell::test
