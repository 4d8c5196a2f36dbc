// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "machine/system_folders.h"
#include "platform/code_pages.h"
#include "platform/files.h"
#include "platform/profiles.h"
#include "platform/registry.h"

namespace scourwell {

// The two lines of section "Windows" of "win.ini", and how they stood before programs were taken
// out of them.
class WinIniStore {
 public:
  WinIniStore(Files& files, Registry& registry, Profiles& profiles, CodePages& code_pages,
              const SystemFolders& folders)
      : files_(files),
        registry_(registry),
        profiles_(profiles),
        code_pages_(code_pages),
        folders_(folders) {}

  // The value with its quotes, whole; `key` is "Load" or "Run".
  std::string Read(const std::string& key) const;
  // An empty line keeps its key, so that it stays where it is.
  Outcome Write(const std::string& key, const std::string& line) const;

  // The line as it was before the first program that is still out of it.
  std::string Original(const std::string& key) const;
  // An empty one is dropped.
  Outcome KeepOriginal(const std::string& key, const std::string& line) const;

 private:
  std::string IniPath() const;
  // The whole file as a text; empty when it cannot be read.
  Outcome Content(std::string* text) const;  // nothing where there is no file
  std::string OriginalPath(const std::string& key) const;

  Files& files_;
  Registry& registry_;
  Profiles& profiles_;
  CodePages& code_pages_;
  const SystemFolders& folders_;
};

// The folder for what profiles cannot hold.
std::string SideFolder(const SystemFolders& folders);
// Makes it, and a folder in it.
Outcome MakeSideFolder(Files& files, const SystemFolders& folders, const char* part);

}  // namespace scourwell
