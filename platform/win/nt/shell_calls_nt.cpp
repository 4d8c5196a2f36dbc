// SPDX-License-Identifier: MIT
#include "platform/win/shell_calls.h"

#include <objbase.h>
#include <shellapi.h>
#include <shlobj.h>

#include "platform/win/com_pointer.h"
#include "platform/win/late_bind.h"
#include "platform/win/native_text.h"
#include "platform/win/nt/restricted_start.h"

namespace scourwell {
namespace {

constexpr UINT kDisplayTopic = 0x0000;
constexpr UINT kCloseAll = 0x0012;
constexpr int kLongestArguments = 2048;  // what a shortcut's arguments can be at most
constexpr int kLongestTarget = 1024;

using HelpCall = HWND(WINAPI*)(HWND, LPCWSTR, UINT, DWORD_PTR);
HelpCall HelpViewer() { return LateBind<HelpCall>("hhctrl.ocx", "HtmlHelpW"); }

struct Shortcut {
  ComPointer<IShellLinkW> link;
  ComPointer<IPersistFile> file;

  HRESULT Make() {
    const HRESULT result = CoCreateInstance(__uuidof(ShellLink), nullptr, CLSCTX_INPROC_SERVER,
                                            __uuidof(IShellLinkW), link.out());
    return FAILED(result) ? result : link->QueryInterface(__uuidof(IPersistFile), file.out());
  }
};

class NtCalls : public ShellCalls {
 public:
  bool StartProcess(const std::string& program, const std::string& command_line, WORD show,
                    PROCESS_INFORMATION* process) const override {
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = show;
    std::wstring writable = Wide(command_line);
    const std::wstring path = Wide(program);
    return CreateProcessW(program.empty() ? nullptr : path.c_str(), writable.data(), nullptr,
                          nullptr, FALSE, NORMAL_PRIORITY_CLASS, nullptr, nullptr, &startup,
                          process) != FALSE;
  }

  bool StartRestricted(const std::string& program, const std::string& arguments,
                       PROCESS_INFORMATION* process) const override {
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = SW_HIDE;
    std::wstring writable = Wide("\"" + program + "\" " + arguments);
    return scourwell::StartRestricted(Wide(program).c_str(), writable.data(), &startup, process);
  }

  INT_PTR Execute(const char* verb, const std::string& file,
                  const std::string& arguments) const override {
    using Call = HINSTANCE(WINAPI*)(HWND, LPCWSTR, LPCWSTR, LPCWSTR, LPCWSTR, INT);
    const auto execute = LateBind<Call>("shell32.dll", "ShellExecuteW");
    if (!execute) return SE_ERR_DLLNOTFOUND;
    return reinterpret_cast<INT_PTR>(
        execute(GetActiveWindow(), Wide(verb).c_str(), Wide(file).c_str(),
                arguments.empty() ? nullptr : Wide(arguments).c_str(), nullptr, SW_SHOWNORMAL));
  }

  bool ShowProperties(const std::string& path) const override {
    using Call = BOOL(WINAPI*)(SHELLEXECUTEINFOW*);
    const auto execute = LateBind<Call>("shell32.dll", "ShellExecuteExW");
    const std::wstring wide = Wide(path);
    SHELLEXECUTEINFOW info = {};
    info.cbSize = sizeof info;
    info.fMask = SEE_MASK_INVOKEIDLIST | SEE_MASK_FLAG_NO_UI;
    info.hwnd = GetActiveWindow();
    info.lpVerb = L"properties";
    info.lpFile = wide.c_str();
    info.nShow = SW_SHOWNORMAL;
    return execute && execute(&info);
  }

  bool HasHelpViewer() const override { return HelpViewer() != nullptr; }

  HWND ShowHelp(const std::string& page) const override {
    const HelpCall viewer = HelpViewer();
    return viewer ? viewer(GetDesktopWindow(), Wide(page).c_str(), kDisplayTopic, 0) : nullptr;
  }

  void CloseHelp() const override {
    if (const HelpCall viewer = HelpViewer()) viewer(nullptr, nullptr, kCloseAll, 0);
  }

  // Not Resolve: it searches the disk, writes to the shortcut and may install programs.
  HRESULT ReadShortcut(const std::string& link, std::string* target,
                       std::string* arguments) const override {
    Shortcut shortcut;
    HRESULT result = shortcut.Make();
    if (SUCCEEDED(result)) result = shortcut.file->Load(Wide(link).c_str(), STGM_READ);
    if (FAILED(result)) return result;
    wchar_t path[kLongestTarget] = L"";
    WIN32_FIND_DATAW unused = {};
    result = shortcut.link->GetPath(path, kLongestTarget, &unused, 0);
    if (FAILED(result)) return result;
    *target = result == S_OK ? FromWide(path) : "";
    wchar_t text[kLongestArguments] = L"";
    result = shortcut.link->GetArguments(text, kLongestArguments);
    if (SUCCEEDED(result)) *arguments = FromWide(text);
    return result;
  }

  HRESULT WriteShortcut(const std::string& link, const std::string& target,
                        const std::string& arguments) const override {
    Shortcut shortcut;
    HRESULT result = shortcut.Make();
    if (SUCCEEDED(result)) result = shortcut.link->SetPath(Wide(target).c_str());
    if (SUCCEEDED(result)) result = shortcut.link->SetArguments(Wide(arguments).c_str());
    if (SUCCEEDED(result)) result = shortcut.file->Save(Wide(link).c_str(), TRUE);
    return result;
  }
};

}  // namespace

const ShellCalls& NtShellCalls() {
  static const NtCalls calls;
  return calls;
}

}  // namespace scourwell
