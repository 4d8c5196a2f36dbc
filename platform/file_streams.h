// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
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

// A folder kept in its place: while it is held it can be neither renamed nor swapped for a link,
// where the system knows links at all.
class FolderHold {
 public:
  virtual ~FolderHold() = default;
};

}  // namespace scourwell
