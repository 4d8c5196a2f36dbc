#include "widgets/file_dialog.h"

#include <commdlg.h>

#include <algorithm>

namespace scourwell {

std::string AskForFile(HWND owner, FileDialog kind, const std::string& filter,
                       const char* extension, const std::string& title, const std::string& name) {
  std::string patterns = filter + "||";
  std::replace(patterns.begin(), patterns.end(), '|', '\0');
  char path[MAX_PATH] = "";
  lstrcpynA(path, name.c_str(), sizeof path);
  OPENFILENAMEA dialog = {};
  dialog.lStructSize = OPENFILENAME_SIZE_VERSION_400A;
  dialog.hwndOwner = owner;
  dialog.lpstrFilter = patterns.c_str();
  dialog.lpstrFile = path;
  dialog.nMaxFile = MAX_PATH;
  dialog.lpstrTitle = title.empty() ? nullptr : title.c_str();
  dialog.lpstrDefExt = extension;
  dialog.Flags = OFN_EXPLORER | OFN_HIDEREADONLY | OFN_NOCHANGEDIR | OFN_PATHMUSTEXIST;
  if (kind == FileDialog::Open) {
    dialog.Flags |= OFN_FILEMUSTEXIST;
    return GetOpenFileNameA(&dialog) ? path : "";
  }
  dialog.Flags |= OFN_OVERWRITEPROMPT;
  return GetSaveFileNameA(&dialog) ? path : "";
}

bool CopyText(HWND owner, const std::string& text) {
  if (!OpenClipboard(owner)) return false;
  EmptyClipboard();
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, text.size() + 1);
  if (auto* place = static_cast<char*>(memory ? GlobalLock(memory) : nullptr)) {
    std::copy_n(text.c_str(), text.size() + 1, place);
    GlobalUnlock(memory);
  }
  // The clipboard owns the memory only if it took it.
  const bool taken = memory && SetClipboardData(CF_TEXT, memory);
  if (memory && !taken) GlobalFree(memory);
  CloseClipboard();
  return taken;
}

}  // namespace scourwell
