// SPDX-License-Identifier: MIT
#include "widgets/folder_dialog.h"

#include "platform/win/dialog_calls.h"

namespace scourwell {
namespace {

// The shell's memory is given back through its own allocator.
void FreeItemList(LPITEMIDLIST items) {
  IMalloc* allocator = nullptr;
  if (FAILED(SHGetMalloc(&allocator))) return;
  allocator->Free(items);
  allocator->Release();
}

}  // namespace

std::string AskForFolder(HWND owner, const std::string& title, const std::string& first) {
  const LPITEMIDLIST folder = Dialogs().AskForFolder(owner, title, first);
  if (!folder) return {};
  const std::string path = Dialogs().PathOf(folder);
  FreeItemList(folder);
  return path;
}

}  // namespace scourwell
