// SPDX-License-Identifier: MIT
#pragma once

#include <variant>

#include "settings/app_settings.h"

namespace scourwell {

// The rows as the store sees them.
struct SettingRow {
  SettingKind kind;
  std::variant<bool AppSettings::*, std::string AppSettings::*> field;
  const char* section;
  const char* key;
  const char* initial;
};

#define SCOURWELL_ROW(kind, name, section, key, initial, ...) \
  {SettingKind::kind, &AppSettings::name, section, key, initial},
inline constexpr SettingRow kSettingRows[] = {SCOURWELL_SETTINGS(SCOURWELL_ROW, SCOURWELL_ROW)};
#undef SCOURWELL_ROW

}  // namespace scourwell
