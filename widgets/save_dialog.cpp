#include "widgets/save_dialog.h"

#include <commdlg.h>

namespace scourwell {

std::string AskForFileToSave(HWND owner, const std::string& title, const std::string& kind,
                             const std::string& pattern, const std::string& ending,
                             const std::string& name) {
  std::string filter = kind + '\0' + pattern + '\0';
  char path[MAX_PATH] = "";
  lstrcpynA(path, name.c_str(), sizeof path);
  OPENFILENAMEA dialog = {};
  dialog.lStructSize = OPENFILENAME_SIZE_VERSION_400A;  // what Windows 95 and NT 4 know
  dialog.hwndOwner = owner;
  dialog.lpstrFilter = filter.c_str();
  dialog.lpstrFile = path;
  dialog.nMaxFile = sizeof path;
  dialog.lpstrTitle = title.c_str();
  dialog.lpstrDefExt = ending.c_str();
  dialog.Flags = OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
  return GetSaveFileNameA(&dialog) ? path : "";
}

}  // namespace scourwell
