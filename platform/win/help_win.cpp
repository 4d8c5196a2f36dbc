// The system's help viewer, which came with Internet Explorer 4.
#include <windows.h>

#include "platform/win/desktop_win.h"
#include "platform/win/late_bind.h"

namespace scourwell {
namespace {

using HtmlHelpFunction = HWND(WINAPI*)(HWND, LPCSTR, UINT, DWORD_PTR);

constexpr UINT kDisplayTopic = 0x0000;
constexpr UINT kCloseAll = 0x0012;

// From the system's folder alone: the folder that the program was started in may be anybody's.
HtmlHelpFunction Viewer() {
  char path[MAX_PATH + 16] = "";
  const UINT size = GetSystemDirectoryA(path, MAX_PATH);
  if (size == 0 || size >= MAX_PATH) return nullptr;
  lstrcatA(path, "\\hhctrl.ocx");
  return LateBind<HtmlHelpFunction>(path, "HtmlHelpA");
}

}  // namespace

// With the desktop as its owner the window lies above none of ours and waits for none of them: a
// dialog stays usable beside it.
Outcome ShellWin::ShowHelp(const std::string& file, const std::string& page) {
  const DWORD attributes = GetFileAttributesA(file.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_DIRECTORY)) {
    return Outcome::Failed(kFileNotFound);
  }
  const HtmlHelpFunction viewer = Viewer();
  if (!viewer) return Outcome::Failed(kDeviceError, "The system has no help viewer");
  help_shown_ = true;
  const HWND window = viewer(GetDesktopWindow(), (file + "::/" + page).c_str(), kDisplayTopic, 0);
  if (!window) return Outcome::Failed(kPathFileAccess, "The help viewer cannot show the page");
  // One that was there already may lie behind ours.
  if (IsIconic(window)) ShowWindow(window, SW_RESTORE);
  SetForegroundWindow(window);
  return {};
}

// While its library is still loaded: its windows live in a thread of our process.
void ShellWin::CloseHelp() {
  if (!help_shown_) return;
  if (const HtmlHelpFunction viewer = Viewer()) viewer(nullptr, nullptr, kCloseAll, 0);
}

}  // namespace scourwell
