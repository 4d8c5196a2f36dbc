// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

#include "platform/files.h"
#include "platform/win/unique_handle.h"

namespace scourwell {

// The file calls in which the families of Windows differ. Each fails as the system's call does,
// with the reason in the last error. A path that names no single place fails like a missing one:
// not absolute, with "." or ".." in it, or of a form that the family would read as another path.
class FileCalls {
 public:
  // Return false to end the listing.
  using Visit = std::function<bool(const DirEntry&)>;

  virtual ~FileCalls() = default;

  // Visits what a pattern finds, "." and ".." left out. NO_ERROR: the visitor had enough;
  // ERROR_NO_MORE_FILES: that was all.
  virtual DWORD Find(const std::string& pattern, const Visit& visit) const = 0;
  virtual FileHandle Open(const std::string& path, DWORD access, DWORD share, DWORD disposition,
                          DWORD flags) const = 0;
  virtual DWORD Attributes(const std::string& path) const = 0;
  virtual bool SetAttributes(const std::string& path, DWORD attributes) const = 0;
  virtual bool Delete(const std::string& path) const = 0;
  virtual bool CreateFolder(const std::string& path) const = 0;
  virtual bool RemoveFolder(const std::string& path) const = 0;
  virtual bool Move(const std::string& from, const std::string& to) const = 0;
  // Puts `fresh` in the place of a file, or where there is none. Both lie in one folder.
  virtual bool SwapIn(const std::string& fresh, const std::string& path) const = 0;
  // A swap may leave something beside the path when the machine stops in the middle. BringBack puts
  // it into its place again, unless there is a file: true when it did. DropAside erases it.
  virtual bool BringBack(const std::string& path) const = 0;
  virtual void DropAside(const std::string& path) const = 0;
  // The security descriptor; empty where there is none.
  virtual bool HasStreams(const std::string&) const { return false; }
  virtual std::string Security(const std::string&) const { return {}; }
  virtual bool SetSecurity(const std::string&, const std::string&) const { return true; }
  virtual std::string ShortPath(const std::string& path) const = 0;
  // Whether an item may stand for another place.
  virtual bool KnowsLinks() const = 0;
  // As the port has them.
  virtual Outcome OpenItem(const std::string& path, std::unique_ptr<OpenedItem>* item) const = 0;
  virtual Outcome Identify(const std::string& path, FileId* id) const = 0;
  virtual bool CreateGuardedFolder(const std::string& path) const = 0;
  virtual bool IsGuarded(const std::string& folder) const = 0;
  // The whole version resource of a file; false without one.
  virtual bool VersionBlock(const std::string& path, std::string* block) const = 0;
  // `root` is "X:\".
  virtual UINT DriveType(const std::string& root) const = 0;
  virtual bool IsReady(const std::string& root) const = 0;
};

// The calls of Windows NT, 2000, XP and later.
const FileCalls& NtFileCalls();
// The calls of Windows 95, 98 and Me.
const FileCalls& W9xFileCalls();
// Those of the Windows that runs.
const FileCalls& SystemFileCalls();

// The headers' own name is newer than the oldest target.
inline constexpr DWORD kNoAttributes = 0xFFFFFFFF;

}  // namespace scourwell
