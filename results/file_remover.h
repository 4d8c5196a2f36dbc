// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "guard/path_guard.h"
#include "machine/component_registrations.h"
#include "machine/error_log.h"
#include "machine/op_sys_info.h"
#include "platform/pump.h"
#include "platform/shell.h"
#include "platform/system.h"
#include "settings/app_settings.h"

namespace scourwell {

enum class RemovalState {
  Removed,
  Gone,            // was not there any more
  PendingRestart,  // in use; Windows takes it away at its next start
  Refused,         // protected
  Failed,
};

struct RemovalResult {
  RemovalState state = RemovalState::Removed;
  Outcome why;  // of a refusal or failure

  bool done() const { return state == RemovalState::Removed || state == RemovalState::Gone; }
};

// Deletes files and folders, each on a way that is held against swapping. Links are deleted as the
// links they are. Every failure leaves an error record.
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

  explicit FileRemover(const Parts& parts)
      : parts_(parts),
        guard_(parts.files, parts.folders),
        components_(parts.registry, parts.files, parts.system, parts.folders) {}

  // A file or cookie. A component (dll, ocx) that a class names is unregistered first.
  RemovalResult deleteSpyCFType(const std::string& path);
  // A folder with everything in it. What is in use is left for the next start of Windows.
  RemovalResult deleteSpyFolder(const std::string& path);

 private:
  struct Tree;

  Outcome DeleteFileAt(const std::string& path, RemovalResult* result);
  Outcome DeleteFolderAt(const std::string& path, RemovalResult* result);
  Outcome Erase(const std::string& path, std::uint32_t attributes);
  void Unregister(const std::string& path);
  bool MovesAtReboot() const;
  bool Schedule(std::vector<std::string> paths);

  bool Enter(const std::string& path, std::uint32_t attributes, Tree* tree);
  void RemoveEntry(const DirEntry& entry, Tree* tree);
  void Leave(Tree* tree);
  void RemoveOne(const std::string& path, std::uint32_t attributes, Tree* tree);

  Parts parts_;
  PathGuard guard_;
  ComponentRegistrations components_;
};

}  // namespace scourwell
