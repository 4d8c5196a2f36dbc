// SPDX-License-Identifier: MIT
#include "shell/explorer_verb.h"

#include "machine/file_utils.h"

namespace scourwell {
namespace {

constexpr RootKey kRoot = RootKey::CurrentUser;
constexpr const char* kVerbs[] = {"Software\\Classes\\Directory\\shell\\Scourwell",
                                  "Software\\Classes\\Drive\\shell\\Scourwell"};

std::string CommandKey(const char* verb) { return std::string(verb) + "\\command"; }

}  // namespace

bool ExplorerVerb::IsOn() const {
  for (const char* verb : kVerbs) {
    if (registry_.TryOpen(kRoot, CommandKey(verb), kKeyRead) == kRegOk) return true;
  }
  return false;
}

// Explorer puts the path between the quotes as it is, "C:\" included: ParseCommandLine does not
// take a backslash before a quote for an escape.
Outcome ExplorerVerb::TurnOn(const std::string& caption) {
  const std::string command =
      "\"" + AddPathToFileName(application_folder_, "Scourwell.exe") + "\" \"%1\"";
  Outcome first;
  const auto set = [&](const std::string& key, const std::string& text) {
    // Explorer reads a text up to its end mark.
    const RegStatus status = registry_.SetValue(kRoot, key, "", {kRegText, text + '\0'});
    if (first.ok()) first = Outcome::OfRegistry(status).With("Key: ", key);
  };
  for (const char* verb : kVerbs) {
    set(verb, caption);
    set(CommandKey(verb), command);
  }
  return first;
}

Outcome ExplorerVerb::TurnOff() {
  Outcome first;
  for (const char* verb : kVerbs) {
    const RegStatus status = keys_.DeleteKey(kRoot, verb);
    if (status == kRegNotFound || !first.ok()) continue;
    first = Outcome::OfRegistry(status).With("Key: ", verb);
  }
  return first;
}

}  // namespace scourwell
