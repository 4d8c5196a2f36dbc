// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "backup/restore_guard.h"
#include "guard/path_guard.h"

namespace scourwell {

// The rules of removal hold for restoring too: an archive is only a file that somebody made. One
// from another machine may, besides, put nothing where Windows or a logon would start it.
class RestoreRules : public RestoreGuard {
 public:
  RestoreRules(Files& files, const SystemFolders& folders, bool foreign)
      : guard_(files, folders), folders_(folders), foreign_(foreign) {}

  Outcome Allow(const std::string& path, std::vector<std::unique_ptr<FolderHold>>* holds) override;

 private:
  PathGuard guard_;
  const SystemFolders& folders_;
  bool foreign_;
};

// True for a registry key whose values name programs that Windows starts on its own.
bool StartsPrograms(std::string_view full_key_path);

}  // namespace scourwell
