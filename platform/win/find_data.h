// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include <string>

#include "platform/files.h"

namespace scourwell {

inline FileTime ToFileTime(const FILETIME& time) {
  return static_cast<FileTime>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
}

template <class Character>
bool IsDots(const Character* name) {
  return name[0] == '.' && (name[1] == 0 || (name[1] == '.' && name[2] == 0));
}

// All of a listing's record but its names. `FindData` is the system's record of either family.
template <class FindData>
DirEntry WithoutNames(const FindData& data) {
  // Clouds, archives and compressors also mark their files as reparse points: only what stands for
  // another name is a link. One system gives links no tag at all.
  constexpr DWORD kStandsForAnother = 0x20000000;
  DirEntry entry;
  entry.attributes = data.dwFileAttributes;
  if (data.dwReserved0 != 0 && (data.dwReserved0 & kStandsForAnother) == 0) {
    entry.attributes &= ~std::uint32_t{kLink};
  }
  if (!entry.IsFolder()) {
    entry.size = static_cast<std::uint64_t>(data.nFileSizeHigh) << 32 | data.nFileSizeLow;
  }
  entry.modified = ToFileTime(data.ftLastWriteTime);
  entry.accessed = ToFileTime(data.ftLastAccessTime);
  entry.created = ToFileTime(data.ftCreationTime);
  return entry;
}

}  // namespace scourwell
