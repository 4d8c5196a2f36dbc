// SPDX-License-Identifier: MIT

// Stands for the registry editor of Wine, which refuses the switch "/I": starts its other copy in
// the system folder without, and waits for it. Every call is noted in "regedit-calls.txt" beside
// this program.
#include <windows.h>

#include <string>

namespace {

std::string Arguments() {
  const std::string line = GetCommandLineA();
  std::size_t at = line.starts_with('"') ? line.find('"', 1) + 1 : line.find(' ');
  if (at == std::string::npos) return {};
  std::string rest = line.substr(at);
  for (const std::size_t found : {rest.find("/I "), rest.find("/i ")}) {
    if (found != std::string::npos) rest.erase(found, 3);
  }
  return rest;
}

void Note(const std::string& text) {
  char path[MAX_PATH] = "";
  GetModuleFileNameA(nullptr, path, sizeof path);
  std::string file = path;
  file = file.substr(0, file.rfind('\\') + 1) + "regedit-calls.txt";
  const HANDLE log = CreateFileA(file.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_ALWAYS,
                                 FILE_ATTRIBUTE_NORMAL, nullptr);
  SetFilePointer(log, 0, nullptr, FILE_END);
  DWORD written = 0;
  WriteFile(log, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
  CloseHandle(log);
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
  Note(std::string(GetCommandLineA()) + "\r\n");
  char system[MAX_PATH] = "";
  GetSystemDirectoryA(system, sizeof system);
  std::string command = "\"" + std::string(system) + "\\regedt32.exe\"" + Arguments();
  STARTUPINFOA startup = {};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION info = {};
  if (!CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                      &startup, &info)) {
    return 1;
  }
  WaitForSingleObject(info.hProcess, INFINITE);
  DWORD code = 1;
  GetExitCodeProcess(info.hProcess, &code);
  return static_cast<int>(code);
}
