// SPDX-License-Identifier: MIT
#include "refc/lint_text.h"

#include <algorithm>

#include "machine/system_folders.h"
#include "text/paths.h"
#include "text/text.h"

namespace scourwell::refc {
namespace {

constexpr std::string_view kGeneric[] = {
    "application", "backup",  "browser",  "client",    "control",  "data",      "desktop",
    "download",    "driver",  "explorer", "file",      "folder",   "install",   "internet",
    "launcher",    "library", "loader",   "manager",   "media",    "microsoft", "monitor",
    "network",     "office",  "plugin",   "program",   "project",  "search",    "security",
    "server",      "service", "setup",    "shared",    "software", "startup",   "system",
    "temp",        "tool",    "toolbar",  "uninstall", "update",   "user",      "utility",
    "video",       "web",     "window"};

constexpr std::string_view kShared[] = {
    "Program Files", "Common Files", "Programs",  "Start Menu",
    "System",        "System32",     "Windows",   "WINNT",
    "Temp",          "bin",          "1.bin",     "Microsoft",
    "Quick Launch",  "Desktop",      "Favorites", "Internet Explorer"};

bool IsRunCharacter(char c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_'; }

bool IsTokenCharacter(char c) { return (c >= 'a' && c <= 'z') || IsRunCharacter(c); }

// The "%name%" texts in a path.
std::vector<std::string_view> TokensIn(std::string_view path) {
  std::vector<std::string_view> tokens;
  for (std::size_t at = path.find('%'); at != path.npos; at = path.find('%', at)) {
    const std::size_t end = path.find('%', at + 1);
    if (end == path.npos) break;
    const std::string_view name = path.substr(at + 1, end - at - 1);
    if (!name.empty() && std::all_of(name.begin(), name.end(), IsTokenCharacter)) {
      tokens.push_back(path.substr(at, end - at + 1));
      at = end + 1;
    } else {
      at = end;
    }
  }
  return tokens;
}

}  // namespace

std::size_t LongestRun(std::string_view text) {
  std::size_t longest = 0;
  std::size_t run = 0;
  for (const char c : Upper(text)) {
    run = IsRunCharacter(c) ? run + 1 : 0;
    longest = std::max(longest, run);
  }
  return longest;
}

std::size_t Distinctive(std::string_view name) {
  const std::size_t dot = name.rfind('.');
  std::string stem(name.substr(0, dot == 0 ? name.npos : dot));
  for (const std::string_view word : kGeneric) {
    for (std::size_t at = FindNoCase(stem, word); at != std::string::npos;
         at = FindNoCase(stem, word, at)) {
      const bool plural = StartsWithNoCase(std::string_view(stem).substr(at + word.size()), "S");
      stem.replace(at, word.size() + (plural ? 1 : 0), "*");
    }
  }
  return LongestRun(stem);
}

std::vector<std::string_view> Parts(std::string_view path) {
  std::vector<std::string_view> parts;
  for (;;) {
    const bool last = !HoldsSeparator(path);
    parts.push_back(TakePart(&path));
    if (last) return parts;
  }
}

bool IsSharedFolder(std::string_view part) {
  return std::any_of(std::begin(kShared), std::end(kShared),
                     [&](std::string_view shared) { return EqualsNoCase(part, shared); });
}

bool IsClassId(std::string_view text) {
  constexpr std::string_view kForm = "{xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx}";
  if (text.size() != kForm.size()) return false;
  const std::string folded = Upper(text);
  for (std::size_t i = 0; i < folded.size(); ++i) {
    const char c = folded[i];
    const bool hexadecimal = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F');
    if (kForm[i] == 'x' ? !hexadecimal : c != kForm[i]) return false;
  }
  return true;
}

std::string TokenMistake(std::string_view path, std::string_view* rest) {
  const std::vector<std::string_view> tokens = TokensIn(path);
  if (tokens.empty()) return "no folder token: the program passes the row over";
  if (tokens.size() > 1) return "several folder tokens; only one is replaced";
  const std::string_view token = tokens[0];
  for (const std::string_view known : FolderTokens()) {
    if (!EqualsNoCase(known, token)) continue;
    if (known != token) return "the folder token must be spelt " + std::string(known);
    *rest = path.substr(token.size());
    if (!path.starts_with(token) || !BeginsWithSeparator(*rest)) {
      return "the folder token must stand in front, with \"\\\" behind it";
    }
    return "";
  }
  return "no folder token is called " + std::string(token.substr(0, 40));
}

std::string_view BelowRoot(std::string_view key) {
  for (const std::string_view root :
       {"HKEY_CLASSES_ROOT\\", "HKEY_CURRENT_USER\\", "HKEY_LOCAL_MACHINE\\", "HKEY_USERS\\"}) {
    if (StartsWithNoCase(key, root)) return key.substr(root.size());
  }
  return {};
}

}  // namespace scourwell::refc
