// SPDX-License-Identifier: MIT

// The program as somebody in front of it sees it: when its windows come up, which part of a scan it
// shows, and how long it leaves a message unanswered.
#include <string>

#include "bench/bench.h"
#include "widgets/resource.h"

namespace scourwell::bench {
namespace {

constexpr DWORD kPause = 2;        // between two questions, in milliseconds
constexpr UINT kPatience = 20000;  // until a question counts as never answered

struct Sight {
  DWORD process = 0;
  std::string classes;  // of the visible windows
  HWND asked = nullptr;
};

BOOL CALLBACK Look(HWND window, LPARAM data) {
  Sight& sight = *reinterpret_cast<Sight*>(data);
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  if (process != sight.process || !IsWindowVisible(window)) return TRUE;
  char name[100] = "";
  GetClassNameA(window, name, sizeof name);
  sight.classes.append(" ").append(name);
  sight.asked = window;
  return TRUE;
}

BOOL CALLBACK FindLabel(HWND window, LPARAM found) {
  if (GetDlgCtrlID(window) != IDC_lblScanOption) return TRUE;
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;
}

// What the scan says it does; empty without an answer.
std::string Doing(HWND window) {
  HWND label = nullptr;
  EnumChildWindows(window, FindLabel, reinterpret_cast<LPARAM>(&label));
  char text[200] = "";
  DWORD_PTR size = 0;
  if (!label) return "";
  SendMessageTimeoutA(label, WM_GETTEXT, sizeof text, reinterpret_cast<LPARAM>(text), SMTO_NORMAL,
                      kPatience, &size);
  return text;
}

}  // namespace

void WatchProgram(const char* program, const char* argument) {
  std::string line = std::string("\"") + program + "\" " + argument;
  STARTUPINFOA how = {};
  how.cb = sizeof how;
  PROCESS_INFORMATION started = {};
  const double begin = Milliseconds();
  if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &how,
                      &started)) {
    return;
  }
  std::string classes;
  std::string doing;
  double longest = 0;
  while (WaitForSingleObject(started.hProcess, kPause) == WAIT_TIMEOUT) {
    Sight sight;
    sight.process = started.dwProcessId;
    EnumWindows(Look, reinterpret_cast<LPARAM>(&sight));
    const double now = Milliseconds();
    if (sight.classes != classes) {
      std::printf("%.0f ms: windows%s\n", now - begin, sight.classes.c_str());
      classes = sight.classes;
    }
    if (!sight.asked) continue;
    DWORD_PTR answer = 0;
    const double wait = Measure(
        [&] { SendMessageTimeoutA(sight.asked, WM_NULL, 0, 0, SMTO_NORMAL, kPatience, &answer); });
    const std::string does = Doing(sight.asked);
    longest = std::max(longest, wait);
    if (does != doing) {
      std::printf("%.0f ms: until here at most %.1f ms without an answer; now \"%s\"\n",
                  Milliseconds() - begin, longest, does.c_str());
      longest = 0;
    }
    doing = does;
    std::fflush(stdout);
  }
  std::printf("then at most %.1f ms without an answer\n", longest);
}

}  // namespace scourwell::bench
