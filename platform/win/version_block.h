// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include <string>

#include "platform/win/late_bind.h"

namespace scourwell {

// Reads version resources by the calls of either family. The library is bound late: newer systems
// would take one that lies beside the program.
template <class Character>
class VersionReader {
 public:
  VersionReader(const char* size_call, const char* read_call)
      : size_(LateBind<Size>("version.dll", size_call)),
        read_(LateBind<Read>("version.dll", read_call)) {}

  bool ReadBlock(const Character* path, std::string* block) const {
    // A resource holds 64 KB at most; the system asks for up to three times of it.
    constexpr DWORD kLargestBlock = 1 << 18;
    DWORD ignored = 0;
    const DWORD size = size_ && read_ ? size_(path, &ignored) : 0;
    if (size == 0 || size > kLargestBlock) return false;
    block->assign(size, '\0');
    return read_(path, 0, size, block->data()) != FALSE;
  }

 private:
  using Size = DWORD(WINAPI*)(const Character*, DWORD*);
  using Read = BOOL(WINAPI*)(const Character*, DWORD, DWORD, void*);

  Size size_;
  Read read_;
};

}  // namespace scourwell
