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

namespace scourwell::nt {

// The names of the wide calls, in the order of those in w9x/ansi_form.h.
struct WideForm {
  using String = std::wstring;
  static String Native(std::string_view text) { return Wide(text); }
  static std::optional<String> ExactNative(std::string_view text) { return Wide(text); }
  static std::string FromNative(const String& text) { return FromWide(text); }
  static LPCWSTR Number(int number) { return MAKEINTRESOURCEW(number); }

  static PlainCalls Plain() {
    return {SendMessageW,          PostMessageW,          GetMessageW,
            PeekMessageW,          DispatchMessageW,      IsDialogMessageW,
            TranslateAcceleratorW, DefWindowProcW,        DefFrameProcW,
            DefMDIChildProcW,      CallWindowProcW,       GetWindowLongW,
            SetWindowLongW,        SystemParametersInfoW, GetObjectW,
            SendMessageTimeoutW};
  }
  static constexpr LRESULT kNotifyFormat = NFR_UNICODE;
  static constexpr std::size_t kLongestPath = 32766;

  using WindowClass = WNDCLASSW;
  using BoxParameters = MSGBOXPARAMSW;
  using TextMetrics = TEXTMETRICW;
  using FrameMetrics = NONCLIENTMETRICSW;
  using FontFacts = LOGFONTW;
  static constexpr auto kSend = SendMessageW;
  static constexpr auto kRegisterClass = RegisterClassW;
  static constexpr auto kCreateWindow = CreateWindowExW;
  static constexpr auto kSetWindowText = SetWindowTextW;
  static constexpr auto kGetWindowTextLength = GetWindowTextLengthW;
  static constexpr auto kGetWindowText = GetWindowTextW;
  static constexpr auto kGetClassName = GetClassNameW;
  static constexpr auto kMessageBox = MessageBoxIndirectW;
  static constexpr auto kAppendMenu = AppendMenuW;
  static constexpr auto kLoadImage = LoadImageW;
  static constexpr auto kLoadAccelerators = LoadAcceleratorsW;
  static constexpr auto kDrawText = DrawTextW;
  static constexpr auto kTextExtent = GetTextExtentPoint32W;
  static constexpr auto kTextMetrics = GetTextMetricsW;
  static LOGFONTW Described(LOGFONTW font);
  static HFONT MakeFont(const LOGFONTW& font) { return CreateFontIndirectW(&font); }

  static ControlMessages Messages() {
    return {HDM_GETITEMW, HDM_SETITEMW, LVM_GETSTRINGWIDTHW, SB_SETTEXTW,
            TVM_GETITEMW, TVM_SETITEMW, TVM_SETITEMA};
  }
  using Column = LVCOLUMNW;
  using ItemQuestion = NMLVDISPINFOW;
  using TipQuestion = NMLVGETINFOTIPW;
  using NewTreeItem = TVINSERTSTRUCTW;
  using Tab = TCITEMW;
  using Tool = TOOLINFOW;
  static constexpr UINT kInsertColumn = LVM_INSERTCOLUMNW;
  static constexpr UINT kGetItem = LVN_GETDISPINFOW;
  static constexpr UINT kGetTip = LVN_GETINFOTIPW;
  static constexpr UINT kFindItem = LVN_ODFINDITEMW;
  static constexpr UINT kInsertTreeItem = TVM_INSERTITEMW;
  static constexpr UINT kInsertTab = TCM_INSERTITEMW;
  // What the oldest common controls know.
  static UINT ToolSize() { return TTTOOLINFOW_V1_SIZE; }
  static constexpr UINT kAddTool = TTM_ADDTOOLW;
  static constexpr UINT kDeleteTool = TTM_DELTOOLW;
  static constexpr RichBox kRich = {"riched20.dll", "RichEdit20W", true};

  using FileDialog = OPENFILENAMEW;
  using FolderDialog = BROWSEINFOW;
  static DWORD FileDialogSize() { return OPENFILENAME_SIZE_VERSION_400W; }
  static constexpr UINT kSelectFolder = BFFM_SETSELECTIONW;
  static constexpr UINT kClipboardFormat = CF_UNICODETEXT;
  // These four bind what the other family does not even export.
  static bool AskForFile(OPENFILENAMEW* dialog, bool save);
  static LPITEMIDLIST AskForFolder(BROWSEINFOW* dialog);
  static bool PathOf(LPCITEMIDLIST folder, String* path);
  static UINT DroppedFile(HDROP drop, UINT index, wchar_t* path, UINT size);
};

}  // namespace scourwell::nt
