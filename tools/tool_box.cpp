// SPDX-License-Identifier: MIT
#include "tools/tool_box.h"

#include "machine/file_utils.h"

namespace scourwell {
namespace {

constexpr char kEditorKey[] = "Software\\Microsoft\\Windows\\CurrentVersion\\Applets\\Regedit";

}  // namespace

// The editor begins where it was last, and nothing else tells it where to go.
Outcome ToolBox::OpenRegistry(const std::string& key) {
  if (!key.empty()) {
    Outcome told = FromRegistry(machine_.registry.SetValue(
        RootKey::CurrentUser, kEditorKey, "LastKey", {kRegText, "My Computer\\" + key + '\0'}));
    if (!told.ok()) return told;
  }
  return machine_.shell.Start(AddPathToFileName(machine_.folders.windows, "regedit.exe"), {});
}

Outcome ToolBox::OpenText(const std::string& path) {
  return machine_.shell.Start(AddPathToFileName(machine_.folders.windows, "notepad.exe"), path);
}

}  // namespace scourwell
