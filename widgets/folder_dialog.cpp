#include "widgets/folder_dialog.h"

#include <shlobj.h>

namespace scourwell {
namespace {

// The shell's memory is given back through its own allocator.
void FreeItemList(LPITEMIDLIST items) {
  IMalloc* allocator = nullptr;
  if (FAILED(SHGetMalloc(&allocator))) return;
  allocator->Free(items);
  allocator->Release();
}

int CALLBACK SelectFirst(HWND dialog, UINT message, LPARAM, LPARAM first) {
  if (message == BFFM_INITIALIZED && *reinterpret_cast<const char*>(first)) {
    SendMessageA(dialog, BFFM_SETSELECTIONA, TRUE, first);
  }
  return 0;
}

}  // namespace

std::string AskForFolder(HWND owner, const std::string& title, const std::string& first) {
  char path[MAX_PATH] = "";
  BROWSEINFOA info = {};
  info.hwndOwner = owner;
  info.pszDisplayName = path;
  info.lpszTitle = title.c_str();
  info.ulFlags = BIF_RETURNONLYFSDIRS;
  info.lpfn = SelectFirst;
  info.lParam = reinterpret_cast<LPARAM>(first.c_str());
  const LPITEMIDLIST items = SHBrowseForFolderA(&info);
  if (!items) return {};
  if (!SHGetPathFromIDListA(items, path)) path[0] = '\0';
  FreeItemList(items);
  return path;
}

}  // namespace scourwell
