// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "guard/path_guard.h"
#include "machine/component_registrations.h"
#include "machine/error_log.h"
#include "machine/next_start.h"
#include "machine/op_sys_info.h"
#include "platform/pump.h"
#include "platform/shell.h"
#include "platform/system.h"
#include "results/removal_result.h"
#include "settings/app_settings.h"

namespace scourwell {

// Deletes files and folders, each on a way that is held against swapping and by what was opened
// there, so that what is deleted is what was judged. Links are deleted as the links they are. What
// is in use is left for the next start of Windows, where the settings want it. Every failure leaves
// an error record.
class FileRemover {
 public:
  struct Parts {
    Files& files;
    System& system;
    Shell& shell;
    Pump& pump;
    ErrorLog& log;
    CodePages& code_pages;
    const COpSysInfo& os;
    const SystemFolders& folders;
    const AppSettings& settings;
    Registry& registry;
  };

  explicit FileRemover(const Parts& parts);

  // A file or cookie. A component (dll, ocx) that a class names is unregistered first.
  RemovalResult deleteSpyCFType(const std::string& path);
  // A file that only its folder betrays: it stays when the folder must.
  RemovalResult DeleteBeside(const std::string& path);
  // A folder with everything in it.
  RemovalResult deleteSpyFolder(const std::string& path);

 private:
  Outcome DeleteFileAt(const std::string& path, RemovalResult* result);
  Outcome DeleteFolderAt(const std::string& path, RemovalResult* result);
  Outcome Empty(const std::string& path, std::unique_ptr<OpenedItem> folder, RemovalResult* result);
  void Unregister(const std::string& path);
  void Forget(const std::string& path, const char* method);

  Parts parts_;
  PathGuard guard_;
  ComponentRegistrations components_;
  NextStart next_start_;
};

}  // namespace scourwell
