// SPDX-License-Identifier: MIT

// Answers the windows of a Scourwell that runs already, for walks that start it from outside:
//   attendant close     waits for the outcome of a removal, closes it and ends the program
//   attendant restore   brings back the newest backup, tells what came of it and ends the program
//   attendant hold FILE UNTIL   keeps a file open, as a spy that runs does, until another one is
//   there
// Windows are known by their classes, which are the same in every language. Exit status 1 when one
// did not come up.
#include <cstdio>
#include <cstring>

#include "tests/win/driver.h"
#include "widgets/resource.h"

namespace {

using namespace scourwell::ui;

constexpr DWORD kPatience = 30000;  // milliseconds
constexpr char kMessageBox[] = "#32770";

HWND WaitForWindow(const char* class_name) {
  HWND found = nullptr;
  WaitFor(
      [&] {
        do {
          found = FindWindowExA(nullptr, found, class_name, nullptr);
        } while (found && !IsWindowVisible(found));
        return found != nullptr;
      },
      kPatience);
  if (!found) std::printf("no window of class %s\n", class_name);
  return found;
}

// Presses a button of a window that ends with it.
bool Answer(HWND window, int button) {
  if (!window) return false;
  PostMessageA(window, WM_COMMAND, static_cast<WPARAM>(button), 0);
  return WaitFor([&] { return !IsWindow(window); }, kPatience);
}

bool End() {
  const HWND top = WaitForWindow("frmMain");
  if (!top) return false;
  PostMessageA(top, WM_CLOSE, 0, 0);
  return WaitFor([&] { return !IsWindow(top); }, kPatience);
}

bool CloseOutcome() { return Answer(WaitForWindow("frmResults"), IDOK) && End(); }

bool Restore() {
  const HWND top = WaitForWindow("frmMain");
  if (!top || !ReadyControl(top, IDC_imgSearch, kPatience)) return false;
  Command(top, IDM_mnuBackups);
  const HWND manager = WaitForWindow("frmBackup");
  if (!manager) return false;
  const HWND restore = ReadyControl(manager, IDC_cmdRestore, kPatience);
  std::printf("backups: %u\n",
              static_cast<unsigned>(ListRows(Control(manager, IDC_BackupList)).size()));
  if (!restore) return false;
  Click(restore);
  const HWND contents = WaitForWindow("frmBackupContents");
  if (!contents || !ReadyControl(contents, IDC_cmdRestore, kPatience)) return false;
  Click(ReadyControl(contents, IDC_cmdRestore));
  const HWND done = WaitForWindow(kMessageBox);
  if (!done) return false;
  std::printf("%s\n", Text(GetDlgItem(done, 0xFFFF)).c_str());
  return Answer(done, IDOK) && Answer(manager, IDCANCEL) && End();
}

int Hold(const char* file, const char* until) {
  const scourwell::FileHandle held(
      CreateFileA(file, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
  std::printf("%s\n", held ? "held" : "not held");
  std::fflush(stdout);
  while (held && GetFileAttributesA(until) == INVALID_FILE_ATTRIBUTES) Sleep(20);
  return held ? 0 : 1;
}

}  // namespace

int main(int count, char** words) {
  if (count == 2 && std::strcmp(words[1], "close") == 0) return CloseOutcome() ? 0 : 1;
  if (count == 2 && std::strcmp(words[1], "restore") == 0) return Restore() ? 0 : 1;
  if (count == 4 && std::strcmp(words[1], "hold") == 0) return Hold(words[2], words[3]);
  std::printf("usage: attendant close | restore | hold FILE UNTIL\n");
  return 2;
}
