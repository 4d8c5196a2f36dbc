// SPDX-License-Identifier: MIT
#include "tests/win/camera.h"

#include "platform/win/native_text.h"
#include "tests/win/driver.h"

namespace scourwell::ui {
namespace {

constexpr DWORD kPaintTime = 1000;  // milliseconds until a window surely stands on the screen
constexpr wchar_t kImport[] = L"\\\\?\\unix\\usr\\bin\\import";

}  // namespace

bool Camera::Take(HWND window, const std::string& name) const {
  Sleep(kPaintTime);
  RECT place = {};
  RECT screen = {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
  GetWindowRect(window, &place);
  IntersectRect(&place, &place, &screen);
  const std::string path = folder_ + "/" + name + ".png";
  const std::string area = std::to_string(place.right - place.left) + "x" +
                           std::to_string(place.bottom - place.top) + "+" +
                           std::to_string(place.left) + "+" + std::to_string(place.top);
  std::wstring line = Wide("import -window root -crop " + area + " +repage \"" + path + "\"");
  const std::string there = "\\\\?\\unix" + path;
  STARTUPINFOW startup = {};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION info = {};
  if (!CreateProcessW(kImport, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                      &info)) {
    return false;
  }
  CloseHandle(info.hThread);
  CloseHandle(info.hProcess);
  return WaitFor(
      [&] { return GetFileAttributesW(Wide(there).c_str()) != INVALID_FILE_ATTRIBUTES; });
}

}  // namespace scourwell::ui
