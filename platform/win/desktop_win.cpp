// SPDX-License-Identifier: MIT
#include "platform/win/desktop_win.h"

#include <windows.h>

#include <objbase.h>
#include <shellapi.h>

#include "platform/win/family.h"
#include "platform/win/file_calls.h"
#include "platform/win/win_error.h"
#include "platform/win/window_calls.h"
#include "text/escaped.h"

namespace scourwell {
namespace {

SYSTEMTIME ToSystemTime(const LocalTime& time) {
  SYSTEMTIME result = {};
  result.wYear = static_cast<WORD>(time.year);
  result.wMonth = static_cast<WORD>(time.month);
  result.wDay = static_cast<WORD>(time.day);
  result.wHour = static_cast<WORD>(time.hour);
  result.wMinute = static_cast<WORD>(time.minute);
  result.wSecond = static_cast<WORD>(time.second);
  result.wMilliseconds = static_cast<WORD>(time.millisecond);
  return result;
}

LocalTime FromSystemTime(const SYSTEMTIME& time) {
  return {time.wYear,   time.wMonth,  time.wDay,         time.wHour,
          time.wMinute, time.wSecond, time.wMilliseconds};
}

// What ShellExecute answers up to 32: codes of the system's oldest kind, some of them its own.
DWORD ShellError(INT_PTR result) {
  switch (result) {
    case 0:
      return ERROR_OUTOFMEMORY;
    case SE_ERR_SHARE:
      return ERROR_SHARING_VIOLATION;
    case SE_ERR_ASSOCINCOMPLETE:
    case SE_ERR_NOASSOC:
      return ERROR_NO_ASSOCIATION;
    case SE_ERR_DDETIMEOUT:
    case SE_ERR_DDEFAIL:
    case SE_ERR_DDEBUSY:
      return ERROR_DDE_FAIL;
    case SE_ERR_DLLNOTFOUND:
      return ERROR_DLL_NOT_FOUND;
    default:
      return static_cast<DWORD>(result);
  }
}

Outcome FromResult(HRESULT result, const char* otherwise) {
  if (SUCCEEDED(result)) return {};
  return HRESULT_FACILITY(result) == FACILITY_WIN32
             ? FailedWith(static_cast<DWORD>(HRESULT_CODE(result)))
             : Outcome::Failed(kPathFileAccess, otherwise);
}

}  // namespace

LocalTime ClockWin::Now() {
  SYSTEMTIME now;
  GetLocalTime(&now);
  return FromSystemTime(now);
}

std::uint32_t ClockWin::Ticks() { return GetTickCount(); }

LocalTime ClockWin::ToLocal(FileTime time) {
  const FILETIME utc = {static_cast<DWORD>(time), static_cast<DWORD>(time >> 32)};
  FILETIME local;
  SYSTEMTIME parts;
  if (!FileTimeToLocalFileTime(&utc, &local) || !FileTimeToSystemTime(&local, &parts)) return {};
  return FromSystemTime(parts);
}

std::string ClockWin::ShortDate(const LocalTime& time) {
  return calls_.ShortDate(ToSystemTime(time));
}

std::string ClockWin::TimeOfDay(const LocalTime& time) {
  return calls_.TimeOfDay(ToSystemTime(time));
}

std::string ProfilesWin::ReadProfile(const std::string& section, const std::string& key,
                                     const std::string& file) {
  return calls_.ReadProfile(section, key, file);
}

Outcome ProfilesWin::WriteProfile(const std::string& section, const std::string& key,
                                  const std::optional<std::string>& value,
                                  const std::string& file) {
  if (!calls_.WriteProfile(section, key, value, file)) return FailedWith(GetLastError());
  return {};
}

const SystemCalls& RunningSystemCalls() {
  return HasWideCalls() ? NtSystemCalls() : W9xSystemCalls();
}

const ShellCalls& RunningShellCalls() { return HasWideCalls() ? NtShellCalls() : W9xShellCalls(); }

Outcome ShellWin::Execute(const std::string& file, const std::string& arguments) {
  const INT_PTR result = calls_.Execute("open", file, arguments);
  return result > 32 ? Outcome() : FailedWith(ShellError(result));
}

Outcome ShellWin::Open(const std::string& path) { return Execute(path, {}); }

Outcome ShellWin::ShowProperties(const std::string& path) {
  return calls_.ShowProperties(path) ? Outcome() : FailedWith(GetLastError());
}

Outcome ShellWin::Start(const std::string& program, const std::string& arguments) {
  return Execute(program, arguments);
}

void ShellWin::Message(const std::string& text, const std::string& title) {
  NewBox box;
  box.owner = GetActiveWindow();
  box.text = MessageForShowing(text);
  box.title = title;
  box.flags = MB_OK | MB_ICONINFORMATION;
  Calls().Ask(box);
}

ShellWin::~ShellWin() {
  // While its library is still loaded: the viewer's windows live in a thread of our process.
  if (help_shown_) calls_.CloseHelp();
  if (com_ready_) CoUninitialize();
}

// With the desktop as its owner the window lies above none of ours and waits for none of them: a
// dialog stays usable beside it.
Outcome ShellWin::ShowHelp(const std::string& file, const std::string& page) {
  const DWORD attributes = SystemFileCalls().Attributes(file);
  if (attributes == kNoAttributes || (attributes & FILE_ATTRIBUTE_DIRECTORY)) {
    return Outcome::Failed(kFileNotFound);
  }
  if (!calls_.HasHelpViewer()) {
    return Outcome::Failed(kDeviceError, "The system has no help viewer");
  }
  help_shown_ = true;
  const HWND window = calls_.ShowHelp(file + "::/" + page);
  if (!window) return Outcome::Failed(kPathFileAccess, "The help viewer cannot show the page");
  // One that was there already may lie behind ours.
  if (IsIconic(window)) ShowWindow(window, SW_RESTORE);
  SetForegroundWindow(window);
  return {};
}

void ShellWin::StartCom() {
  if (com_tried_) return;
  com_tried_ = true;
  com_ready_ = SUCCEEDED(CoInitialize(nullptr));
}

Outcome ShellWin::ReadShortcut(const std::string& link, std::string* target,
                               std::string* arguments) {
  StartCom();
  return FromResult(calls_.ReadShortcut(link, target, arguments), "The shortcut cannot be read");
}

Outcome ShellWin::ShortcutTarget(const std::string& link, std::string* target) {
  std::string unused;
  return ReadShortcut(link, target, &unused);
}

Outcome ShellWin::ShortcutArguments(const std::string& link, std::string* arguments) {
  std::string unused;
  return ReadShortcut(link, &unused, arguments);
}

Outcome ShellWin::CreateShortcut(const std::string& link, const std::string& target,
                                 const std::string& arguments) {
  if (SystemFileCalls().Attributes(link) != kNoAttributes) return Outcome::Failed(kFileExists);
  StartCom();
  return FromResult(calls_.WriteShortcut(link, target, arguments),
                    "The shortcut cannot be written");
}

}  // namespace scourwell
