// SPDX-License-Identifier: MIT

// Writes down that it was started, and how: one line of C:\witness.txt per start.
#include <windows.h>

#include <string>

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
  // One writes at a time: several may have been started at once.
  HANDLE file = INVALID_HANDLE_VALUE;
  for (int tries = 0; tries < 1000 && file == INVALID_HANDLE_VALUE; ++tries) {
    file = CreateFileA("C:\\witness.txt", GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_ALWAYS,
                       FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) Sleep(20);
  }
  if (file == INVALID_HANDLE_VALUE) return 1;
  SetFilePointer(file, 0, nullptr, FILE_END);
  const std::string line = std::string(GetCommandLineA()) + "\r\n";
  DWORD written = 0;
  WriteFile(file, line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
  CloseHandle(file);
  return 0;
}
