// Shortcut files, through the shell's own reader and writer.
#include <windows.h>

#include <objbase.h>
#include <shlobj.h>

#include "platform/win/desktop_win.h"
#include "platform/win/win_error.h"

namespace scourwell {
namespace {

// Owns one reference to a COM object.
template <class Interface>
class ComPointer {
 public:
  ComPointer() = default;
  ComPointer(const ComPointer&) = delete;
  ComPointer& operator=(const ComPointer&) = delete;
  ~ComPointer() {
    if (object_) object_->Release();
  }
  Interface* operator->() const { return object_; }
  void** out() { return reinterpret_cast<void**>(&object_); }

 private:
  Interface* object_ = nullptr;
};

Outcome FromResult(HRESULT result, const char* otherwise) {
  if (SUCCEEDED(result)) return {};
  return HRESULT_FACILITY(result) == FACILITY_WIN32
             ? FailedWith(static_cast<DWORD>(HRESULT_CODE(result)))
             : Outcome::Failed(kPathFileAccess, otherwise);
}

// A shell link and its file side.
struct Shortcut {
  ComPointer<IShellLinkA> link;
  ComPointer<IPersistFile> file;
  WCHAR path[MAX_PATH] = {};

  HRESULT Make() {
    const HRESULT result = CoCreateInstance(__uuidof(ShellLink), nullptr, CLSCTX_INPROC_SERVER,
                                            __uuidof(IShellLinkA), link.out());
    return FAILED(result) ? result : link->QueryInterface(__uuidof(IPersistFile), file.out());
  }
  bool SetPath(const std::string& text) {
    return MultiByteToWideChar(CP_ACP, 0, text.c_str(), -1, path, MAX_PATH) != 0;
  }
  Outcome Load(const std::string& text) {
    HRESULT result = Make();
    if (SUCCEEDED(result) && !SetPath(text)) return FailedWith(GetLastError());
    if (SUCCEEDED(result)) result = file->Load(path, STGM_READ);
    return FromResult(result, "The shortcut cannot be read");
  }
};

}  // namespace

ShellWin::~ShellWin() {
  CloseHelp();
  if (com_ready_) CoUninitialize();
}

void ShellWin::StartCom() {
  if (com_tried_) return;
  com_tried_ = true;
  com_ready_ = SUCCEEDED(CoInitialize(nullptr));
}

Outcome ShellWin::ShortcutTarget(const std::string& link, std::string* target) {
  StartCom();
  Shortcut shortcut;
  if (Outcome loaded = shortcut.Load(link); !loaded.ok()) return loaded;
  // Not Resolve: it searches the disk, writes to the shortcut and may install programs.
  char path[MAX_PATH] = "";
  WIN32_FIND_DATAA unused = {};
  const HRESULT result = shortcut.link->GetPath(path, MAX_PATH, &unused, 0);
  if (SUCCEEDED(result)) *target = result == S_OK ? path : "";
  return FromResult(result, "The shortcut cannot be read");
}

Outcome ShellWin::ShortcutArguments(const std::string& link, std::string* arguments) {
  StartCom();
  Shortcut shortcut;
  if (Outcome loaded = shortcut.Load(link); !loaded.ok()) return loaded;
  char text[2048] = "";  // what a shortcut's arguments can be at most
  const HRESULT result = shortcut.link->GetArguments(text, sizeof text);
  if (SUCCEEDED(result)) *arguments = text;
  return FromResult(result, "The shortcut cannot be read");
}

Outcome ShellWin::CreateShortcut(const std::string& link, const std::string& target,
                                 const std::string& arguments) {
  if (GetFileAttributesA(link.c_str()) != 0xFFFFFFFF) return Outcome::Failed(kFileExists);
  StartCom();
  Shortcut shortcut;
  HRESULT result = shortcut.Make();
  if (SUCCEEDED(result) && !shortcut.SetPath(link)) return FailedWith(GetLastError());
  if (SUCCEEDED(result)) result = shortcut.link->SetPath(target.c_str());
  if (SUCCEEDED(result)) result = shortcut.link->SetArguments(arguments.c_str());
  if (SUCCEEDED(result)) result = shortcut.file->Save(shortcut.path, TRUE);
  return FromResult(result, "The shortcut cannot be written");
}

}  // namespace scourwell
