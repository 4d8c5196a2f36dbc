// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "machine/error_log.h"
#include "machine/op_sys_info.h"
#include "machine/system_folders.h"
#include "offline/posix_files.h"
#include "offline/registry_set.h"
#include "platform/code_pages.h"
#include "platform/processes.h"
#include "platform/registry.h"
#include "platform/shell.h"
#include "platform/system.h"
#include "platform/versions.h"
#include "scan/finding.h"

namespace scourwell {

struct WindowsFound {
  std::string folder;   // "C:\WINDOWS"
  std::string version;  // "Microsoft Windows XP, Service Pack 3, Build 2600"
};

// A Windows machine that lies on mounted disks and does not run. It answers through the ports of a
// machine, so that scan, backup, removal and restore work on it as they do on a running one: its
// folders, versions and variables are its own, never those of the machine that looks at it.
class OfflineMachine {
 public:
  virtual ~OfflineMachine() = default;

  // Finds the Windows folders of the drives. kFileNotFound: there is none.
  static Outcome Find(const std::vector<MountedDrive>& drives, std::vector<WindowsFound>* found);
  // Opens the one in `windows_folder`, or the only one when that is empty; kTypeMismatch: there are
  // several. What cannot be read is told in unread(), and the rest goes on.
  static Outcome Open(const std::vector<MountedDrive>& drives, const std::string& windows_folder,
                      std::unique_ptr<OfflineMachine>* machine);

  virtual PosixFiles& files() = 0;
  // On a 64-bit Windows what 32-bit programs see, else everything there is.
  virtual Registry& registry() = 0;
  // What 64-bit programs see; null where there are none.
  virtual Registry* registry64() = 0;
  virtual System& system() = 0;
  virtual Versions& versions() = 0;
  virtual CodePages& code_pages() = 0;
  virtual Processes& processes() = 0;  // nothing runs
  // Reads shortcuts. Whatever would start something fails.
  virtual Shell& shell() = 0;
  virtual const COpSysInfo& os() = 0;
  virtual const WindowsFound& windows() const = 0;
  // Those of the user whom the machine acts as. `application`: a folder that removal never touches,
  // as a path of files().
  virtual SystemFolders Folders(ErrorLog& log, const std::string& application) = 0;

  virtual const std::vector<OfflineUser>& users() const = 0;
  // Whose HKEY_CURRENT_USER, folders and variables are meant from now on; one of users(), or null
  // for nobody.
  virtual void ActAs(const OfflineUser* user) = 0;
  // The registry shows what belongs to that user and to nobody else.
  virtual void ShowUserOnly(bool only) = 0;
  // The same finding under a name that means the same whoever is acted as: HKEY_CURRENT_USER
  // becomes the key below HKEY_USERS of the finding's user.
  virtual Finding ForEveryone(const Finding& finding) const = 0;

  // True when nothing can be written to the disk with Windows.
  virtual bool read_only() const = 0;
  // False on Windows 95, 98 and Me, whose registry can only be read here.
  virtual bool registry_writable() const = 0;
  virtual const std::vector<Unread>& unread() const = 0;
  // Writes the changed hives: each as a copy, which is read back and then takes the hive's place.
  // A hive that cannot be written stays as it was; the first failure is told.
  virtual Outcome SaveRegistry() = 0;
};

}  // namespace scourwell
