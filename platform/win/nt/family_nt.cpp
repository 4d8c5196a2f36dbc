// SPDX-License-Identifier: MIT

// What Windows NT and its successors have of their own.
#include "platform/win/family_calls.h"
#include "platform/win/form_control_calls.h"
#include "platform/win/form_dialog_calls.h"
#include "platform/win/form_window_calls.h"
#include "platform/win/late_bind.h"
#include "platform/win/nt/wide_form.h"

namespace scourwell::nt {

// One charset would leave out the letters of all others.
LOGFONTW WideForm::Described(LOGFONTW font) {
  font.lfCharSet = DEFAULT_CHARSET;
  return font;
}

bool WideForm::AskForFile(OPENFILENAMEW* dialog, bool save) {
  using Function = BOOL(WINAPI*)(OPENFILENAMEW*);
  const auto ask =
      LateBind<Function>("comdlg32.dll", save ? "GetSaveFileNameW" : "GetOpenFileNameW");
  return ask && ask(dialog);
}

LPITEMIDLIST WideForm::AskForFolder(BROWSEINFOW* dialog) {
  using Function = LPITEMIDLIST(WINAPI*)(BROWSEINFOW*);
  const auto ask = LateBind<Function>("shell32.dll", "SHBrowseForFolderW");
  return ask ? ask(dialog) : nullptr;
}

// The older call takes it for granted that MAX_PATH characters are enough.
bool WideForm::PathOf(LPCITEMIDLIST folder, String* path) {
  using Function = BOOL(WINAPI*)(LPCITEMIDLIST, LPWSTR);
  using SizedFunction = BOOL(WINAPI*)(LPCITEMIDLIST, LPWSTR, DWORD, int);
  if (const auto get = LateBind<SizedFunction>("shell32.dll", "SHGetPathFromIDListEx")) {
    return get(folder, path->data(), static_cast<DWORD>(path->size()), 0) != FALSE;
  }
  const auto get = LateBind<Function>("shell32.dll", "SHGetPathFromIDListW");
  return get && get(folder, path->data());
}

UINT WideForm::DroppedFile(HDROP drop, UINT index, wchar_t* path, UINT size) {
  using Function = UINT(WINAPI*)(HDROP, UINT, LPWSTR, UINT);
  static const auto get = LateBind<Function>("shell32.dll", "DragQueryFileW");
  return get ? get(drop, index, path, size) : 0;
}

const WindowCalls& Windows() {
  static const FormWindowCalls<WideForm> calls;
  return calls;
}

const ControlCalls& Controls() {
  static const FormControlCalls<WideForm> calls;
  return calls;
}

const DialogCalls& Dialogs() {
  static const FormDialogCalls<WideForm> calls;
  return calls;
}

}  // namespace scourwell::nt
