// SPDX-License-Identifier: MIT
#include "tests/win/driver.h"

#include "platform/win/native_text.h"
#include "tests/win/remote.h"

namespace scourwell::ui {
namespace {

constexpr wchar_t kProgram[] = L"C:\\Scourwell\\Scourwell.exe";
constexpr DWORD kAnswerTime = 5000;  // milliseconds that a window may take to answer

struct Search {
  DWORD process = 0;
  int id = -1;
  const char* title = nullptr;
  const char* name = nullptr;  // of the class
  HWND found = nullptr;
};

BOOL CALLBACK MatchTop(HWND window, LPARAM parameter) {
  Search& search = *reinterpret_cast<Search*>(parameter);
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  if (process != search.process || !IsWindowVisible(window)) return TRUE;
  if (search.title && Text(window).find(search.title) == std::string::npos) return TRUE;
  if (search.name && ClassName(window) != search.name) return TRUE;
  search.found = window;
  return FALSE;
}

HWND WaitForTop(Search search, DWORD milliseconds) {
  WaitFor(
      [&] {
        EnumWindows(MatchTop, reinterpret_cast<LPARAM>(&search));
        return search.found != nullptr;
      },
      milliseconds);
  return search.found;
}

BOOL CALLBACK MatchChild(HWND window, LPARAM parameter) {
  Search& search = *reinterpret_cast<Search*>(parameter);
  if (!IsWindowVisible(window) || GetDlgCtrlID(window) != search.id) return TRUE;
  search.found = window;
  return FALSE;
}

}  // namespace

LRESULT Send(HWND window, UINT message, WPARAM w, LPARAM l) {
  DWORD_PTR result = 0;
  SendMessageTimeoutW(window, message, w, l, SMTO_NORMAL, kAnswerTime, &result);
  return static_cast<LRESULT>(result);
}

std::string ItemText(HWND list, UINT message, int row) {
  wchar_t wide[200] = L"";
  DWORD_PTR result = 0;
  SendMessageTimeoutW(list, message, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(wide),
                      SMTO_NORMAL, kAnswerTime, &result);
  return FromWide(wide);
}

Program::Program(const std::string& arguments) {
  std::wstring line = std::wstring(kProgram) + L" " + Wide(arguments);
  STARTUPINFOW startup = {};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION info = {};
  if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, L"C:\\", &startup,
                      &info)) {
    return;
  }
  CloseHandle(info.hThread);
  process_.Reset(info.hProcess);
  id_ = info.dwProcessId;
}

Program::~Program() {
  if (!process_ || Ended(0)) return;
  TerminateProcess(process_.get(), 1);
  // The next one would find it still running and leave at once.
  Ended(10000);
}

bool Program::Ended(DWORD milliseconds) {
  return WaitForSingleObject(process_.get(), milliseconds) == WAIT_OBJECT_0;
}

DWORD Program::ExitCode() const {
  DWORD code = 0xFFFFFFFF;
  GetExitCodeProcess(process_.get(), &code);
  return code;
}

HWND Program::Window(const std::string& title, DWORD milliseconds) {
  Search search;
  search.process = id_;
  search.title = title.c_str();
  return WaitForTop(search, milliseconds);
}

HWND Program::WindowOfClass(const std::string& name, DWORD milliseconds) {
  Search search;
  search.process = id_;
  search.name = name.c_str();
  return WaitForTop(search, milliseconds);
}

HWND Program::MainWindow() { return WindowOfClass("frmMain", 10000); }

bool Program::Close() {
  PostMessageW(MainWindow(), WM_CLOSE, 0, 0);
  return Ended(10000);
}

HWND Control(HWND top, int id) {
  Search search;
  search.id = id;
  EnumChildWindows(top, MatchChild, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

HWND FocusOf(HWND window) {
  GUITHREADINFO info = {};
  info.cbSize = sizeof info;
  GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info);
  return info.hwndFocus ? info.hwndFocus : window;
}

HWND ReadyControl(HWND top, int id, DWORD milliseconds) {
  HWND found = nullptr;
  WaitFor(
      [&] {
        found = Control(top, id);
        return found && IsWindowEnabled(found);
      },
      milliseconds);
  return found && IsWindowEnabled(found) ? found : nullptr;
}

std::string ClassName(HWND window) {
  wchar_t name[100] = L"";
  GetClassNameW(window, name, 100);
  return FromWide(name);
}

std::string Text(HWND window) {
  wchar_t text[kLongestText] = L"";
  Send(window, WM_GETTEXT, kLongestText, reinterpret_cast<LPARAM>(text));
  return FromWide(text);
}

void SetText(HWND window, const std::string& text) {
  const std::wstring wide = Wide(text);
  Send(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(wide.c_str()));
}

// Posted, not sent: what it opens may wait for the user.
void Click(HWND button) { PostMessageW(button, BM_CLICK, 0, 0); }
void Command(HWND top, int id) { PostMessageW(top, WM_COMMAND, static_cast<WPARAM>(id), 0); }

}  // namespace scourwell::ui
