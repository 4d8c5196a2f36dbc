// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include <shlobj.h>

namespace scourwell {

// The oldest way to ask for a folder of the shell: calls `read` with its item list, which is freed
// afterwards. False where there is none.
template <class Read>
bool WithFolderLocation(int folder_id, Read&& read) {
  LPITEMIDLIST list = nullptr;
  if (SHGetSpecialFolderLocation(nullptr, folder_id, &list) != NOERROR || !list) return false;
  const bool found = read(list) != FALSE;
  LPMALLOC allocator = nullptr;
  if (SHGetMalloc(&allocator) == NOERROR && allocator) {
    allocator->Free(list);
    allocator->Release();
  }
  return found;
}

}  // namespace scourwell
