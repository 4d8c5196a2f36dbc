// SPDX-License-Identifier: MIT
#include "platform/win/terminal_win.h"

#include <algorithm>

#include "platform/win/family.h"
#include "platform/win/native_text.h"
#include "text/unicode.h"

namespace scourwell {
namespace {

constexpr DWORD kAtOnce =
    8 * 1024;  // characters: a console refuses more than its heap has room for
constexpr std::size_t kLongestLine = 64 * 1024;

volatile LONG interrupted = 0;

// The system calls this on a thread of its own.
BOOL WINAPI NoteControl(DWORD) {
  interrupted = 1;
  return TRUE;
}

bool WriteWide(HANDLE console, std::string_view text) {
  const std::wstring wide = Wide(text);
  for (std::size_t at = 0; at < wide.size();) {
    DWORD written = 0;
    const auto count = static_cast<DWORD>(std::min<std::size_t>(wide.size() - at, kAtOnce));
    if (!WriteConsoleW(console, wide.data() + at, count, &written, nullptr)) return false;
    at += count;
  }
  return true;
}

bool WriteBytes(HANDLE stream, std::string_view bytes) {
  while (!bytes.empty()) {
    DWORD written = 0;
    const auto count = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), kAtOnce));
    if (!WriteFile(stream, bytes.data(), count, &written, nullptr) || written == 0) return false;
    bytes.remove_prefix(written);
  }
  return true;
}

// The consoles of Windows 95, 98 and Me have a code page of their own.
bool WriteNarrow(HANDLE console, std::string_view text) {
  std::string bytes = Narrow(text);
  if (!bytes.empty()) {
    CharToOemBuffA(bytes.data(), bytes.data(), static_cast<DWORD>(bytes.size()));
  }
  return WriteBytes(console, bytes);
}

}  // namespace

TerminalWin::Stream::Stream(DWORD which) : handle(GetStdHandle(which)) {
  DWORD mode = 0;
  console = GetConsoleMode(handle, &mode) != 0;
}

TerminalWin::TerminalWin() { SetConsoleCtrlHandler(NoteControl, TRUE); }

bool TerminalWin::WriteTo(const Stream& stream, std::string_view text) {
  if (!stream.console) return WriteBytes(stream.handle, text);
  return HasWideCalls() ? WriteWide(stream.handle, text) : WriteNarrow(stream.handle, text);
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
