// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>
#include <commctrl.h>
#include <commdlg.h>
#include <shlobj.h>

#include <optional>

#include "platform/win/control_calls.h"
#include "platform/win/native_text.h"
#include "platform/win/window_calls.h"

namespace scourwell::w9x {

// The names of the ANSI calls, in the order of those in nt/wide_form.h.
struct AnsiForm {
  using String = std::string;
  static String Native(std::string_view text) { return Narrow(text); }
  static std::optional<String> ExactNative(std::string_view text) { return ExactNarrow(text); }
  static std::string FromNative(const String& text) { return FromNarrow(text); }
  static LPCSTR Number(int number) { return MAKEINTRESOURCEA(number); }

  static PlainCalls Plain() {
    return {SendMessageA,          PostMessageA,          GetMessageA,
            PeekMessageA,          DispatchMessageA,      IsDialogMessageA,
            TranslateAcceleratorA, DefWindowProcA,        DefFrameProcA,
            DefMDIChildProcA,      CallWindowProcA,       GetWindowLongA,
            SetWindowLongA,        SystemParametersInfoA, GetObjectA,
            SendMessageTimeoutA};
  }
  static constexpr LRESULT kNotifyFormat = NFR_ANSI;
  static constexpr std::size_t kLongestPath = MAX_PATH - 1;

  using WindowClass = WNDCLASSA;
  using BoxParameters = MSGBOXPARAMSA;
  using TextMetrics = TEXTMETRICA;
  using FrameMetrics = NONCLIENTMETRICSA;
  using FontFacts = LOGFONTA;
  static constexpr auto kSend = SendMessageA;
  static constexpr auto kRegisterClass = RegisterClassA;
  static constexpr auto kCreateWindow = CreateWindowExA;
  static constexpr auto kSetWindowText = SetWindowTextA;
  static constexpr auto kGetWindowTextLength = GetWindowTextLengthA;
  static constexpr auto kGetWindowText = GetWindowTextA;
  static constexpr auto kGetClassName = GetClassNameA;
  static constexpr auto kMessageBox = MessageBoxIndirectA;
  static constexpr auto kAppendMenu = AppendMenuA;
  static constexpr auto kLoadImage = LoadImageA;
  static constexpr auto kLoadAccelerators = LoadAcceleratorsA;
  static constexpr auto kDrawText = DrawTextA;
  static constexpr auto kTextExtent = GetTextExtentPoint32A;
  static constexpr auto kTextMetrics = GetTextMetricsA;
  static LOGFONTW Described(LOGFONTA font);
  static HFONT MakeFont(const LOGFONTW& font);

  static ControlMessages Messages() {
    return {HDM_GETITEMA, HDM_SETITEMA, LVM_GETSTRINGWIDTHA, SB_SETTEXTA,
            TVM_GETITEMA, TVM_SETITEMA, TVM_SETITEMW};
  }
  using Column = LVCOLUMNA;
  using ItemQuestion = NMLVDISPINFOA;
  using TipQuestion = NMLVGETINFOTIPA;
  using NewTreeItem = TVINSERTSTRUCTA;
  using Tab = TCITEMA;
  using Tool = TOOLINFOA;
  static constexpr UINT kInsertColumn = LVM_INSERTCOLUMNA;
  static constexpr UINT kGetItem = LVN_GETDISPINFOA;
  static constexpr UINT kGetTip = LVN_GETINFOTIPA;
  static constexpr UINT kFindItem = LVN_ODFINDITEMA;
  static constexpr UINT kInsertTreeItem = TVM_INSERTITEMA;
  static constexpr UINT kInsertTab = TCM_INSERTITEMA;
  // What the oldest common controls know.
  static UINT ToolSize() { return TTTOOLINFOA_V1_SIZE; }
  static constexpr UINT kAddTool = TTM_ADDTOOLA;
  static constexpr UINT kDeleteTool = TTM_DELTOOLA;
  static constexpr RichBox kRich = {"riched32.dll", "RICHEDIT", false};

  using FileDialog = OPENFILENAMEA;
  using FolderDialog = BROWSEINFOA;
  static DWORD FileDialogSize() { return OPENFILENAME_SIZE_VERSION_400A; }
  static constexpr UINT kSelectFolder = BFFM_SETSELECTIONA;
  static constexpr UINT kClipboardFormat = CF_TEXT;
  static bool AskForFile(OPENFILENAMEA* dialog, bool save) {
    return (save ? GetSaveFileNameA(dialog) : GetOpenFileNameA(dialog)) != FALSE;
  }
  static LPITEMIDLIST AskForFolder(BROWSEINFOA* dialog) { return SHBrowseForFolderA(dialog); }
  static bool PathOf(LPCITEMIDLIST folder, String* path) {
    return SHGetPathFromIDListA(folder, path->data()) != FALSE;
  }
  static UINT DroppedFile(HDROP drop, UINT index, char* path, UINT size) {
    return DragQueryFileA(drop, index, path, size);
  }
};

}  // namespace scourwell::w9x
