#include "platform/win/desktop_win.h"

#include <windows.h>

#include <shellapi.h>

#include "platform/text.h"
#include "platform/win/unique_handle.h"
#include "platform/win/win_error.h"

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

Outcome Execute(const char* verb, const std::string& file, const std::string& arguments) {
  const auto result = reinterpret_cast<INT_PTR>(
      ShellExecuteA(GetActiveWindow(), verb, file.c_str(),
                    arguments.empty() ? nullptr : arguments.c_str(), nullptr, SW_SHOWNORMAL));
  return result > 32 ? Outcome() : FailedWith(ShellError(result));
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
  const SYSTEMTIME parts = ToSystemTime(time);
  char text[100] = "";
  GetDateFormatA(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &parts, nullptr, text, sizeof text);
  return text;
}

std::string ClockWin::TimeOfDay(const LocalTime& time) {
  const SYSTEMTIME parts = ToSystemTime(time);
  char text[100] = "";
  GetTimeFormatA(LOCALE_USER_DEFAULT, 0, &parts, nullptr, text, sizeof text);
  return text;
}

std::string ProfilesWin::ReadProfile(const std::string& section, const std::string& key,
                                     const std::string& file) {
  char value[2000];
  const DWORD size =
      GetPrivateProfileStringA(section.c_str(), key.c_str(), "", value, sizeof value, file.c_str());
  return std::string(value, size);
}

Outcome ProfilesWin::WriteProfile(const std::string& section, const std::string& key,
                                  const std::optional<std::string>& value,
                                  const std::string& file) {
  const BOOL written = WritePrivateProfileStringA(section.c_str(), key.c_str(),
                                                  value ? value->c_str() : nullptr, file.c_str());
  return written ? Outcome() : FailedWith(GetLastError());
}

Outcome ShellWin::Open(const std::string& path) { return Execute("open", path, {}); }

Outcome ShellWin::ShowProperties(const std::string& path) {
  SHELLEXECUTEINFOA info = {};
  info.cbSize = sizeof info;
  info.fMask = SEE_MASK_INVOKEIDLIST | SEE_MASK_FLAG_NO_UI;
  info.hwnd = GetActiveWindow();
  info.lpVerb = "properties";
  info.lpFile = path.c_str();
  info.nShow = SW_SHOWNORMAL;
  return ShellExecuteExA(&info) ? Outcome() : FailedWith(GetLastError());
}

Outcome ShellWin::Start(const std::string& program, const std::string& arguments) {
  return Execute("open", program, arguments);
}

void ShellWin::Message(const std::string& text, const std::string& title) {
  MessageBoxA(GetActiveWindow(), text.c_str(), title.c_str(), MB_OK | MB_ICONINFORMATION);
}

void UseSystemFolding() {
  FoldTable table;
  for (unsigned i = 0; i < 256; ++i) {
    char c = static_cast<char>(i);
    // The first byte of a two-byte character must stay as it is.
    if (i != 0 && !IsDBCSLeadByte(static_cast<BYTE>(i))) CharUpperBuffA(&c, 1);
    table[i] = static_cast<unsigned char>(c);
  }
  SetFoldTable(table);
}

}  // namespace scourwell
