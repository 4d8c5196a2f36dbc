// SPDX-License-Identifier: MIT
#include "platform/win/terminal_win.h"

#include <algorithm>

#include "platform/win/family.h"
#include "platform/win/terminal_calls.h"

namespace scourwell {
namespace {

constexpr std::size_t kLongestLine = 64 * 1024;

volatile LONG interrupted = 0;

// The system calls this on a thread of its own.
BOOL WINAPI NoteControl(DWORD) {
  interrupted = 1;
  return TRUE;
}

}  // namespace

bool WriteBytes(HANDLE stream, std::string_view bytes) {
  constexpr std::size_t kAtOnce = 8 * 1024;
  while (!bytes.empty()) {
    DWORD written = 0;
    const auto count = static_cast<DWORD>(std::min(bytes.size(), kAtOnce));
    if (!WriteFile(stream, bytes.data(), count, &written, nullptr) || written == 0) return false;
    bytes.remove_prefix(written);
  }
  return true;
}

TerminalWin::Stream::Stream(DWORD which) : handle(GetStdHandle(which)) {
  DWORD mode = 0;
  console = GetConsoleMode(handle, &mode) != 0;
}

TerminalWin::TerminalWin() { SetConsoleCtrlHandler(NoteControl, TRUE); }

bool TerminalWin::WriteTo(const Stream& stream, std::string_view text) {
  if (!stream.console) return WriteBytes(stream.handle, text);
  return HasWideCalls() ? NtWriteConsole(stream.handle, text)
                        : W9xWriteConsole(stream.handle, text);
}

bool TerminalWin::Write(std::string_view text) { return WriteTo(output_, text); }

void TerminalWin::WriteError(std::string_view text) { WriteTo(errors_, text); }

std::optional<std::string> TerminalWin::ReadLine() {
  std::string line;
  for (char c = 0; line.size() < kLongestLine;) {
    DWORD read = 0;
    if (!ReadFile(input_.handle, &c, 1, &read, nullptr) || read == 0) {
      if (line.empty()) return std::nullopt;
      break;
    }
    if (c == '\n') break;
    if (c != '\r') line += c;
  }
  return line;
}

int TerminalWin::Width() const {
  CONSOLE_SCREEN_BUFFER_INFO info = {};
  return GetConsoleScreenBufferInfo(errors_.handle, &info) ? info.dwSize.X : 80;
}

bool TerminalWin::Interrupted() const { return interrupted != 0; }

}  // namespace scourwell
