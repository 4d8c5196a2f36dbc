// SPDX-License-Identifier: MIT
#include "platform/win/shell_calls.h"

#include <objbase.h>
#include <shellapi.h>
#include <shlobj.h>

#include "platform/win/com_pointer.h"
#include "platform/win/late_bind.h"
#include "platform/win/native_text.h"

namespace scourwell {
namespace {

constexpr UINT kDisplayTopic = 0x0000;
constexpr UINT kCloseAll = 0x0012;
constexpr int kLongestArguments = 2048;  // what a shortcut's arguments can be at most

using HelpCall = HWND(WINAPI*)(HWND, LPCSTR, UINT, DWORD_PTR);
HelpCall HelpViewer() { return LateBind<HelpCall>("hhctrl.ocx", "HtmlHelpA"); }

// Shells of these systems refuse the wide form of shortcuts; the path of the file itself is wide on
// all of them.
struct Shortcut {
  ComPointer<IShellLinkA> link;
  ComPointer<IPersistFile> file;

  HRESULT Make() {
    const HRESULT result = CoCreateInstance(__uuidof(ShellLink), nullptr, CLSCTX_INPROC_SERVER,
                                            __uuidof(IShellLinkA), link.out());
    return FAILED(result) ? result : link->QueryInterface(__uuidof(IPersistFile), file.out());
  }
};

class W9xCalls : public ShellCalls {
 public:
  bool StartProcess(const std::string& program, const std::string& command_line, WORD show,
                    PROCESS_INFORMATION* process) const override {
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = show;
    std::optional<std::string> writable = ExactNarrow(command_line);
    const std::optional<std::string> path = ExactNarrow(program);
    if (!writable || !path) {
      SetLastError(ERROR_INVALID_NAME);
      return false;
    }
    return CreateProcessA(path->empty() ? nullptr : path->c_str(), writable->data(), nullptr,
                          nullptr, FALSE, NORMAL_PRIORITY_CLASS, nullptr, nullptr, &startup,
                          process) != FALSE;
  }

  // These systems know no rights.
  bool StartRestricted(const std::string& program, const std::string& arguments,
                       PROCESS_INFORMATION* process) const override {
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = SW_HIDE;
    const std::optional<std::string> path = ExactNarrow(program);
    if (!path) {
      SetLastError(ERROR_INVALID_NAME);
      return false;
    }
    std::string writable = "\"" + *path + "\" " + arguments;
    return CreateProcessA(path->c_str(), writable.data(), nullptr, nullptr, TRUE,
                          NORMAL_PRIORITY_CLASS, nullptr, nullptr, &startup, process) != FALSE;
  }

  INT_PTR Execute(const char* verb, const std::string& file,
                  const std::string& arguments) const override {
    const std::optional<std::string> path = ExactNarrow(file);
    const std::optional<std::string> text = ExactNarrow(arguments);
    if (!path || !text) return SE_ERR_FNF;
    return reinterpret_cast<INT_PTR>(ShellExecuteA(GetActiveWindow(), verb, path->c_str(),
                                                   text->empty() ? nullptr : text->c_str(), nullptr,
                                                   SW_SHOWNORMAL));
  }

  bool ShowProperties(const std::string& path) const override {
    const std::optional<std::string> narrow = ExactNarrow(path);
    if (!narrow) {
      SetLastError(ERROR_INVALID_NAME);
      return false;
    }
    SHELLEXECUTEINFOA info = {};
    info.cbSize = sizeof info;
    info.fMask = SEE_MASK_INVOKEIDLIST | SEE_MASK_FLAG_NO_UI;
    info.hwnd = GetActiveWindow();
    info.lpVerb = "properties";
    info.lpFile = narrow->c_str();
    info.nShow = SW_SHOWNORMAL;
    return ShellExecuteExA(&info) != FALSE;
  }

  bool HasHelpViewer() const override { return HelpViewer() != nullptr; }

  HWND ShowHelp(const std::string& page) const override {
    const HelpCall viewer = HelpViewer();
    const std::optional<std::string> narrow = ExactNarrow(page);
    if (!viewer || !narrow) return nullptr;
    return viewer(GetDesktopWindow(), narrow->c_str(), kDisplayTopic, 0);
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
    char path[MAX_PATH] = "";
    WIN32_FIND_DATAA unused = {};
    result = shortcut.link->GetPath(path, MAX_PATH, &unused, 0);
    if (FAILED(result)) return result;
    *target = result == S_OK ? FromNarrow(path) : "";
    char text[kLongestArguments] = "";
    result = shortcut.link->GetArguments(text, kLongestArguments);
    if (SUCCEEDED(result)) *arguments = FromNarrow(text);
    return result;
  }

  HRESULT WriteShortcut(const std::string& link, const std::string& target,
                        const std::string& arguments) const override {
    const std::optional<std::string> path = ExactNarrow(target);
    const std::optional<std::string> text = ExactNarrow(arguments);
    if (!path || !text) return HRESULT_FROM_WIN32(ERROR_INVALID_NAME);
    Shortcut shortcut;
    HRESULT result = shortcut.Make();
    if (SUCCEEDED(result)) result = shortcut.link->SetPath(path->c_str());
    if (SUCCEEDED(result)) result = shortcut.link->SetArguments(text->c_str());
    if (SUCCEEDED(result)) result = shortcut.file->Save(Wide(link).c_str(), TRUE);
    return result;
  }
};

}  // namespace

const ShellCalls& W9xShellCalls() {
  static const W9xCalls calls;
  return calls;
}

}  // namespace scourwell
