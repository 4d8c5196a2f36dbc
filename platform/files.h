// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_streams.h"
#include "platform/outcome.h"

namespace scourwell {

// File attributes, with the system's own bits.
enum FileAttribute : std::uint32_t {
  kReadOnly = 0x01,
  kHidden = 0x02,
  kSystem = 0x04,
  kFolder = 0x10,
  kArchive = 0x20,
  kLink = 0x400,  // junction, mount point or symbolic link; never set by Windows 95, 98 and Me
};

// File times: 100-nanosecond steps since 1601, UTC; 0 = unknown.
using FileTime = std::uint64_t;

struct FileTimes {
  FileTime created = 0;
  FileTime accessed = 0;
  FileTime modified = 0;
};

struct DirEntry {
  std::string name;        // leads to the entry; on Windows 95, 98 and Me the 8.3 name where the
                           // code page cannot spell the one on the disk
  std::string short_name;  // 8.3 name; empty when the name itself is one or the volume has none
  std::uint32_t attributes = 0;
  std::uint64_t size = 0;  // bytes; 0 for folders
  FileTime modified = 0;
  FileTime accessed = 0;
  FileTime created = 0;

  FileTimes times() const { return {created, accessed, modified}; }
  bool IsFolder() const { return (attributes & kFolder) != 0; }
  bool IsLink() const { return (attributes & kLink) != 0; }
};

enum class DriveKind { Unknown, NoRoot, Removable, Fixed, Network, Optical, RamDisk };

struct Drive {
  char letter = 'C';
  DriveKind kind = DriveKind::Unknown;
};

// The machine's file system. Paths are absolute, with "\" between the parts, and taken as they
// stand: no dot or blank is cut off, ".", ".." and names of devices mean nothing special. They may
// be as long as the system's names allow; what it cannot reach fails with kPathNotFound. No
// operation shows a message box.
class Files {
 public:
  // Return false to end the listing.
  using Visit = std::function<bool(const DirEntry&)>;
  // Gets the next bytes of a file, at least one. Returns false to end the reading.
  using VisitBlock = std::function<bool(std::string_view block)>;
  static constexpr std::size_t kBlockSize = 64 * 1024;

  virtual ~Files() = default;

  // Lists what the system's directory listing yields for a folder and a pattern ("*" and "?" in
  // the last part; long and 8.3 names are compared, without case), in the system's order and
  // without "." and "..". No match is success with no visit. kPathNotFound: no such folder;
  // kPermissionDenied: may not be listed; kDiskNotReady: no medium.
  virtual Outcome List(const std::string& pattern, const Visit& visit) = 0;
  // The same for a walk, which needs the names and of the attributes kFolder and kLink alone: the
  // rest of an entry may be missing where it would have to be asked for.
  virtual Outcome ListNames(const std::string& pattern, const Visit& visit) {
    return List(pattern, visit);
  }

  // One file or folder by its exact path (no wildcards). kFileNotFound: nothing of that name;
  // kDiskNotReady: no medium or server that could tell.
  // A link is described itself, not what it points at.
  virtual Outcome Stat(const std::string& path, DirEntry* entry) = 0;

  // The whole content. A file larger than `limit` bytes fails with kOutOfMemory.
  virtual Outcome Read(const std::string& path, std::uint64_t limit, std::string* content) = 0;

  // The content in blocks of kBlockSize, the last one shorter; a file may have any size.
  virtual Outcome ReadBlocks(const std::string& path, const VisitBlock& visit) = 0;

  // Appends, creating the file when there is none. The folder must exist. A link, or a file that
  // has another name as well, is refused.
  virtual Outcome Append(const std::string& path, std::string_view text) = 0;

  // Replaces the whole content: written beside and renamed, so that the old content survives
  // any failure.
  virtual Outcome Replace(const std::string& path, std::string_view text) = 0;

  virtual Outcome EraseFile(const std::string& path) = 0;

  virtual Outcome OpenReader(const std::string& path, std::unique_ptr<FileReader>* reader) = 0;
  // Missing folders are not made.
  virtual Outcome OpenWriter(const std::string& path, std::unique_ptr<FileWriter>* writer) = 0;

  // kFileExists when anything of that name is there.
  virtual Outcome CreateFolder(const std::string& path) = 0;
  // An empty folder; a link to a folder is removed itself, its target stays.
  virtual Outcome RemoveFolder(const std::string& path) = 0;
  // Both lie on one volume; kFileExists when anything of the new name is there.
  virtual Outcome Move(const std::string& from, const std::string& to) = 0;
  // kReadOnly, kHidden, kSystem and kArchive; other bits are passed over.
  virtual Outcome SetAttributes(const std::string& path, std::uint32_t attributes) = 0;
  // Sets the times of a file or folder; one of 0 stays as it is. Volumes may round them. Windows
  // 95, 98 and Me cannot set those of a folder, and leave them without a failure.
  virtual Outcome SetTimes(const std::string& path, const FileTimes& times) = 0;
  // Opens a folder and keeps it in its place. kPathFileAccess: it is a link. A root cannot be
  // swapped and is held without more.
  virtual Outcome HoldFolder(const std::string& path, std::unique_ptr<FolderHold>* hold) = 0;

  // Opens an item without following it, should it be a link. What others keep open can be opened
  // all the same, to be looked at. Fails when the system cannot say where the item really lies.
  virtual Outcome OpenItem(const std::string& path, std::unique_ptr<OpenedItem>* item) = 0;
  // A link is described itself. kFileNotFound: nothing of that name.
  virtual Outcome Identify(const std::string& path, FileId* id) = 0;
  // A new folder in which nobody but administrators and the system may do anything; on volumes that
  // know no rights any folder. kFileExists when anything of that name is there.
  virtual Outcome CreateGuardedFolder(const std::string& path) = 0;
  // True when nobody but administrators and the system can put something else in the place of the
  // folder or of what lies in it, and on volumes that know no links.
  virtual bool IsGuarded(const std::string& folder) = 0;
  // Who may do what with a file or folder, as the system says it: bytes for SetSecurity. Empty
  // where the system or the volume knows nothing of it.
  virtual std::string Security(const std::string& path) = 0;
  virtual Outcome SetSecurity(const std::string& path, const std::string& descriptor) = 0;

  // True when the file or folder has data that do not show in its content: streams of their own.
  // The mark that a browser leaves on what it has loaded does not count.
  virtual bool HasStreams(const std::string&) { return false; }

  // The path with every part in its 8.3 form; empty when the path does not exist.
  virtual std::string ShortPath(const std::string& path) = 0;

  // Drives in letter order.
  virtual std::vector<Drive> Drives() = 0;
  // True when a medium is in the drive; `root` is "X:\".
  virtual bool IsReady(const std::string& root) = 0;
};

}  // namespace scourwell
