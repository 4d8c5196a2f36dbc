// SPDX-License-Identifier: MIT
#include "tests/win/driver.h"

#include <commctrl.h>

#include "platform/win/native_text.h"

namespace scourwell::ui {
namespace {

constexpr wchar_t kProgram[] = L"C:\\Scourwell\\Scourwell.exe";
constexpr DWORD kAnswerTime = 5000;  // milliseconds that a window may take to answer
constexpr std::size_t kRemoteSize = 4096;
constexpr int kLongestText = 1000;

// Memory of the process that owns a window: messages with pointers need it.
class Remote {
 public:
  explicit Remote(HWND window) {
    DWORD id = 0;
    GetWindowThreadProcessId(window, &id);
    process_.Reset(
        OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, id));
    memory_ = static_cast<char*>(
        VirtualAllocEx(process_.get(), nullptr, kRemoteSize, MEM_COMMIT, PAGE_READWRITE));
  }
  ~Remote() { VirtualFreeEx(process_.get(), memory_, 0, MEM_RELEASE); }

  char* at(std::size_t offset = 0) { return memory_ + offset; }
  wchar_t* TextAt(std::size_t offset) { return reinterpret_cast<wchar_t*>(at(offset)); }
  void Put(const void* data, std::size_t size) {
    WriteProcessMemory(process_.get(), memory_, data, size, nullptr);
  }
  void Get(void* data, std::size_t size, std::size_t offset = 0) {
    ReadProcessMemory(process_.get(), memory_ + offset, data, size, nullptr);
  }
  std::string GetText(std::size_t offset) {
    wchar_t text[kLongestText + 1] = L"";
    Get(text, kLongestText * sizeof(wchar_t), offset);
    return FromWide(text);
  }

 private:
  KernelHandle process_;
  char* memory_ = nullptr;
};

// Fills an item with what a control says of it; returns its text.
template <class Item>
std::string AskItem(Remote* remote, HWND control, UINT message, LRESULT number, Item* item) {
  item->pszText = remote->TextAt(sizeof *item);
  item->cchTextMax = kLongestText;
  remote->Put(item, sizeof *item);
  Send(control, message, static_cast<WPARAM>(number), reinterpret_cast<LPARAM>(remote->at()));
  remote->Get(item, sizeof *item);
  return remote->GetText(sizeof *item);
}

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

void AddTreeRows(HWND tree, LRESULT node, int depth, std::vector<TreeRow>* rows) {
  Remote remote(tree);
  for (; node != 0; node = Send(tree, TVM_GETNEXTITEM, TVGN_NEXT, node)) {
    TVITEMW item = {};
    item.mask = TVIF_TEXT | TVIF_STATE | TVIF_HANDLE;
    item.stateMask = TVIS_STATEIMAGEMASK;
    item.hItem = reinterpret_cast<HTREEITEM>(node);
    const std::string text = AskItem(&remote, tree, TVM_GETITEMW, 0, &item);
    rows->push_back({depth, item.state >> 12 == 2, text});
    AddTreeRows(tree, Send(tree, TVM_GETNEXTITEM, TVGN_CHILD, node), depth + 1, rows);
  }
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

std::vector<ListRow> ListRows(HWND list) {
  Remote remote(list);
  std::vector<ListRow> rows;
  const auto header = reinterpret_cast<HWND>(Send(list, LVM_GETHEADER, 0, 0));
  const LRESULT columns = Send(header, HDM_GETITEMCOUNT, 0, 0);
  const LRESULT count = Send(list, LVM_GETITEMCOUNT, 0, 0);
  for (LRESULT i = 0; i < count; ++i) {
    ListRow row;
    row.checked =
        Send(list, LVM_GETITEMSTATE, static_cast<WPARAM>(i), LVIS_STATEIMAGEMASK) >> 12 == 2;
    for (LRESULT column = 0; column < columns; ++column) {
      LVITEMW item = {};
      item.iSubItem = static_cast<int>(column);
      row.texts.push_back(AskItem(&remote, list, LVM_GETITEMTEXTW, i, &item));
    }
    rows.push_back(row);
  }
  return rows;
}

void SelectRow(HWND list, int row) {
  Remote remote(list);
  LVITEMW item = {};
  item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
  for (const bool selected : {false, true}) {
    item.state = selected ? item.stateMask : 0;
    remote.Put(&item, sizeof item);
    Send(list, LVM_SETITEMSTATE, static_cast<WPARAM>(selected ? row : -1),
         reinterpret_cast<LPARAM>(remote.at()));
  }
}

std::vector<TreeRow> TreeRows(HWND tree) {
  std::vector<TreeRow> rows;
  AddTreeRows(tree, Send(tree, TVM_GETNEXTITEM, TVGN_ROOT, 0), 0, &rows);
  return rows;
}

std::string StatusText(HWND status, int part) {
  Remote remote(status);
  Send(status, SB_GETTEXTW, static_cast<WPARAM>(part), reinterpret_cast<LPARAM>(remote.at()));
  return remote.GetText(0);
}

std::vector<TextPart> ColumnHeads(HWND list) {
  Remote remote(list);
  std::vector<TextPart> heads;
  const auto header = reinterpret_cast<HWND>(Send(list, LVM_GETHEADER, 0, 0));
  const LRESULT count = Send(header, HDM_GETITEMCOUNT, 0, 0);
  for (LRESULT i = 0; i < count; ++i) {
    HDITEMW item = {};
    item.mask = HDI_TEXT | HDI_WIDTH;
    const std::string text = AskItem(&remote, header, HDM_GETITEMW, i, &item);
    heads.push_back({item.cxy, text});
  }
  return heads;
}

std::vector<TextPart> Tabs(HWND tab_control) {
  Remote remote(tab_control);
  std::vector<TextPart> tabs;
  const LRESULT count = Send(tab_control, TCM_GETITEMCOUNT, 0, 0);
  for (LRESULT i = 0; i < count; ++i) {
    RECT place = {};
    Send(tab_control, TCM_GETITEMRECT, static_cast<WPARAM>(i),
         reinterpret_cast<LPARAM>(remote.at()));
    remote.Get(&place, sizeof place);
    TCITEMW item = {};
    item.mask = TCIF_TEXT;
    const std::string text = AskItem(&remote, tab_control, TCM_GETITEMW, i, &item);
    tabs.push_back({static_cast<int>(place.right - place.left), text});
  }
  return tabs;
}

std::vector<TextPart> StatusParts(HWND status) {
  std::vector<TextPart> parts;
  const LRESULT count = Send(status, SB_GETPARTS, 0, 0);
  for (int i = 0; i < count; ++i) {
    Remote remote(status);
    RECT place = {};
    Send(status, SB_GETRECT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(remote.at()));
    remote.Get(&place, sizeof place);
    parts.push_back({static_cast<int>(place.right - place.left), StatusText(status, i)});
  }
  return parts;
}

}  // namespace scourwell::ui
