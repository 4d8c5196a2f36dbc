// SPDX-License-Identifier: MIT
#include "offline/windows_finder.h"

#include <algorithm>

#include "machine/file_utils.h"
#include "text/text.h"

namespace scourwell {
namespace {

constexpr char kPutAside[] = "Windows.old";

bool BeginsWith(Files& files, const std::string& path, std::string_view sign) {
  std::string start;
  const auto keep = [&](std::string_view block) {
    start = block.substr(0, sign.size());
    return false;
  };
  return files.ReadBlocks(path, keep).ok() && start == sign;
}

void Judge(Files& files, const std::string& folder, std::vector<WindowsPlace>* found) {
  const std::string hives = AddPathToFileName(folder, "System32\\config\\");
  DirEntry entry;
  // A damaged registry is told of later; another file that is called so does not make a Windows.
  if (files.Stat(hives + "SOFTWARE", &entry).ok() && files.Stat(hives + "SYSTEM", &entry).ok()) {
    const bool any = BeginsWith(files, hives + "SOFTWARE", "regf") ||
                     BeginsWith(files, hives + "SYSTEM", "regf");
    if (any) found->push_back({folder, true});
  } else if (BeginsWith(files, AddPathToFileName(folder, "SYSTEM.DAT"), "CREG") &&
             files.Stat(AddPathToFileName(folder, "WIN.COM"), &entry).ok()) {
    found->push_back({folder, false});
  }
}

// In alphabetical order: volumes list them in any.
std::vector<std::string> FoldersIn(Files& files, const std::string& folder) {
  std::vector<std::string> folders;
  static_cast<void>(files.ListNames(AddPathToFileName(folder, "*.*"), [&](const DirEntry& entry) {
    if (entry.IsFolder() && !entry.IsLink()) {
      folders.push_back(AddPathToFileName(folder, entry.name));
    }
    return true;
  }));
  std::ranges::sort(folders, NoCaseLess());
  return folders;
}

}  // namespace

std::vector<WindowsPlace> FindWindows(Files& files) {
  std::vector<WindowsPlace> found;
  for (const Drive& drive : files.Drives()) {
    for (const std::string& folder : FoldersIn(files, {drive.letter, ':', kSeparator})) {
      if (!EqualsNoCase(FileNamePart(folder), kPutAside)) {
        Judge(files, folder, &found);
        continue;
      }
      for (const std::string& below : FoldersIn(files, folder)) Judge(files, below, &found);
    }
  }
  return found;
}

}  // namespace scourwell
