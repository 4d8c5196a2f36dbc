// SPDX-License-Identifier: MIT
#include "tests/win/snapshot.h"

#include <algorithm>
#include <vector>

#include "platform/win/files_win.h"
#include "platform/win/registry_win.h"
#include "text/text.h"

namespace scourwell::ui {

std::string FolderSnapshot(const std::string& folder) {
  FilesWin files;
  std::vector<DirEntry> entries;
  static_cast<void>(files.List(folder + "\\*.*", [&](const DirEntry& entry) {
    entries.push_back(entry);
    return true;
  }));
  std::sort(entries.begin(), entries.end(),
            [](const DirEntry& a, const DirEntry& b) { return a.name < b.name; });
  std::string text;
  for (const DirEntry& entry : entries) {
    const std::string path = folder + "\\" + entry.name;
    // Wine keeps no time of creation, and reading a file may move its time of access.
    text += path + " " + Hex(entry.attributes, 8) + " " + std::to_string(entry.modified);
    std::string content;
    if (!entry.IsFolder()) static_cast<void>(files.Read(path, 1 << 24, &content));
    text += " " + content + "\n";
    if (entry.IsFolder() && !entry.IsLink()) text += FolderSnapshot(path);
  }
  return text;
}

std::string KeySnapshot(RootKey root, const std::string& path) {
  RegistryWin registry;
  if (registry.TryOpen(root, path, kKeyRead) != kRegOk) return {};
  std::vector<std::string> lines;
  registry.EnumValues(root, path, [&](const std::string& name, const RegValue& value) {
    lines.push_back(path + " \"" + name + "\" " + std::to_string(value.type) + " " + value.data);
    return true;
  });
  std::vector<std::string> names;
  registry.EnumKeys(root, path, [&](const std::string& name) {
    names.push_back(name);
    return true;
  });
  std::sort(lines.begin(), lines.end());
  std::sort(names.begin(), names.end());
  std::string text = "[" + path + "]\n";
  for (const std::string& line : lines) text += line + "\n";
  for (const std::string& name : names) text += KeySnapshot(root, path + "\\" + name);
  return text;
}

}  // namespace scourwell::ui
