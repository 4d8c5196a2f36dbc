// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/outcome.h"

namespace scourwell {

// A file opened for reading at any place. Others may read it meanwhile, and write to it.
class FileReader {
 public:
  virtual ~FileReader() = default;

  // Bytes, as of the opening.
  virtual std::uint64_t size() const = 0;
  // Fills `bytes` from `offset` on; *filled is less than `count` only at the end of the file.
  virtual Outcome ReadAt(std::uint64_t offset, char* bytes, std::size_t count,
                         std::size_t* filled) = 0;
};

// A file written from its beginning. It grows beside its place and takes it only when it is
// committed: until then, and when the writer is destroyed without it, what lay there stays.
class FileWriter {
 public:
  virtual ~FileWriter() = default;

  virtual Outcome Write(std::string_view bytes) = 0;
  // Once, as the last call. A file of that name is replaced; a read-only one refuses.
  virtual Outcome Commit() = 0;
};

// The volume of an item and its number there: the same whatever path leads to it.
struct FileId {
  std::uint32_t volume = 0;  // the serial number of the volume; 0 where it has none
  std::uint64_t index = 0;   // 0 where the system does not tell

  friend bool operator==(const FileId&, const FileId&) = default;
};

// A file, folder or link that is open itself: whatever its path leads to by now, this is what is
// looked at, deleted and moved. On Windows 95, 98 and Me, which know no links, it goes by its path.
class OpenedItem {
 public:
  virtual ~OpenedItem() = default;

  // Where it lay when it was opened, by the system's own word: no link and no second letter of a
  // drive is on that way. On Windows 95, 98 and Me the path by which it was opened.
  virtual const std::string& true_path() const = 0;
  // The system's own bits.
  virtual std::uint32_t attributes() const = 0;
  // True when others keep it open in a way that lets nobody delete or move it.
  virtual bool IsHeld() const = 0;
  // Whatever its attributes are; what stays keeps them. kPathFileAccess: a folder with something in
  // it. Of a link the link itself goes. Nothing else is asked of the item afterwards.
  virtual Outcome Erase() = 0;
  // To another place of its volume; kFileExists when anything is there.
  virtual Outcome MoveTo(const std::string& path) = 0;
};

// A folder kept in its place: while it is held it can be neither renamed nor swapped for a link,
// where the system knows links at all.
class FolderHold {
 public:
  virtual ~FolderHold() = default;
};

}  // namespace scourwell
