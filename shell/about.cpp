// SPDX-License-Identifier: MIT
#include "shell/about.h"

namespace scourwell {

std::array<AboutLine, kAboutLines> AboutLines(Application& app) {
  const Language& language = app.language();
  const std::optional<std::size_t> entries = app.exchange().EntriesInUse();
  const COpSysInfo& os = app.os();
  std::string system = os.Version();
  if (!os.CSDVersion().empty()) system += " " + os.CSDVersion();
  std::string folder = app.folders().application;
  if (app.portable()) folder += " (" + language.Text(Caption::PortableCopy) + ")";
  return {{{Caption::DefinitionsNumber, app.DefinitionsNumber()},
           {Caption::AboutEntries,
            entries ? std::to_string(*entries) : language.Text(Caption::BuiltInDefinitionsOnly)},
           {Caption::AboutSystem, system},
           {Caption::AboutFolder, folder}}};
}

std::string AboutReport(Application& app) {
  std::string text = app.Title() + "\r\n";
  for (const AboutLine& line : AboutLines(app)) {
    text += app.language().Text(line.caption) + " " + line.value + "\r\n";
  }
  return text;
}

}  // namespace scourwell
