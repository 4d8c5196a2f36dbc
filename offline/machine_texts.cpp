// SPDX-License-Identifier: MIT
#include "offline/machine_texts.h"

#include "backup/archive_places.h"
#include "offline/machine_facts.h"

namespace scourwell {
namespace {

constexpr char kStoreKey[] = "Software\\Scourwell\\";

}  // namespace

std::string MachineTexts::Get(const std::string& section, const std::string& key) {
  std::string text;
  if (section != kMarkSection || key != kMarkKey) return here_.Get(section, key);
  for (const OfflineUser& user : machine_.users()) {
    machine_.ActAs(&user);
    text = TextValue(machine_.registry(), RootKey::CurrentUser, kStoreKey + section, key);
    if (!text.empty()) break;
  }
  machine_.ActAs(nullptr);
  return text.empty() ? here_.Get(section, key) : text;
}

}  // namespace scourwell
