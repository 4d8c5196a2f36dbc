// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "machine/op_sys_info.h"
#include "machine/restart_lists.h"
#include "machine/system_folders.h"
#include "platform/code_pages.h"
#include "platform/files.h"
#include "platform/registry.h"
#include "platform/system.h"

namespace scourwell {

// What Windows is to delete at its next start, by the list of its family: on the NT family a value
// of the registry, on Windows 95, 98 and Me "WinInit.ini".
//
// An entry is a name, which is looked up again at the start. On the NT family a user could
// meanwhile make a link to the system folder of a folder on the way. So what may be moved goes into
// a folder of its own first, in which only administrators and the system may do anything; a file
// that lets nobody move it stays where it is and is noted there only when nobody else can change
// the way to it.
class NextStart {
 public:
  struct Parts {
    Files& files;
    System& system;
    Registry& registry;
    CodePages& code_pages;
    const COpSysInfo& os;
    const SystemFolders& folders;
  };

  explicit NextStart(const Parts& parts) : parts_(parts) {}

  // Leaves a file, link or empty folder that could not be deleted. Fails, with the reason, where
  // the next start would not delete it either, or could be led to delete something else.
  Outcome Leave(const std::string& path, OpenedItem* item);
  // The same on the NT family for a folder in which something was left in its place: it goes when
  // it is empty by then.
  Outcome LeaveFull(const std::string& path, OpenedItem* folder);
  // Takes back what is noted for the path and for the folders above it: for whoever puts something
  // there.
  Outcome Withdraw(const std::string& path);
  // Takes back what is noted for the path and for what lay below it: for whoever deleted it after
  // all. The folders above go on waiting.
  Outcome Forget(const std::string& path);

  // The way of Windows 95, 98 and Me: an entry in the "[Rename]" section of "WinInit.ini", right
  // under its header. The file is replaced as a whole, never lost; a missing section is added.
  Outcome DestroyOnReboot(const std::string& path);

 private:
  Outcome NoteOnNt(const std::string& path, OpenedItem* item);
  Outcome MoveAside(const std::string& path, OpenedItem* item, std::string* folder);
  bool IsWayGuarded(const std::string& path);
  bool IsNoted(const std::string& path);
  std::string Base(const std::string& true_path) const;
  Outcome TakeOutOfRegistry(const TakeOut& take_out);
  Outcome TakeOutOfFile(const TakeOut& take_out);
  std::string WinInitPath();
  Outcome ReadWinInit(std::string* content);

  Parts parts_;
};

}  // namespace scourwell
