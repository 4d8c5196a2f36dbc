// Writes down that it was started, and how: one line of C:\witness.txt per start.
#include <windows.h>

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
  const HANDLE file =
      CreateFileA("C:\\witness.txt", GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                  OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return 1;
  SetFilePointer(file, 0, nullptr, FILE_END);
  const char* line = GetCommandLineA();
  DWORD written = 0;
  WriteFile(file, line, static_cast<DWORD>(lstrlenA(line)), &written, nullptr);
  WriteFile(file, "\r\n", 2, &written, nullptr);
  CloseHandle(file);
  return 0;
}
