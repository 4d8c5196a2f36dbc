// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "settings/setting_rows.h"

namespace scourwell {

// The one settings record of the process, a field for each row. It lies at the bottom because every
// room reads it; loading and saving belong to the shell.
struct AppSettings {
#define SCOURWELL_FIELD(kind, name, ...) SettingTypes<SettingKind::kind>::Value name{};
  SCOURWELL_SETTINGS(SCOURWELL_FIELD, SCOURWELL_FIELD)
#undef SCOURWELL_FIELD

  std::string CookiesFolder;  // Windows knows it; ends in "\"
};

}  // namespace scourwell
