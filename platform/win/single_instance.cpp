// SPDX-License-Identifier: MIT
#include "platform/win/single_instance.h"

#include <shellapi.h>

#include "platform/win/late_bind.h"
#include "platform/win/system_calls.h"
#include "platform/win/window_calls.h"

namespace scourwell {
namespace {

constexpr char kSenderClass[] = "Scourwell.Start";
constexpr ULONG_PTR kRequest = 0x53435731;  // "SCW1": the form of the request
constexpr DWORD kLongestRequest = 100000;   // bytes
constexpr DWORD kAnswerTime = 5000;         // milliseconds
constexpr DWORD kPatience = 8000;           // while there is no window yet
constexpr DWORD kPause = 100;

// The window that a request comes from: hidden, and there as long as it takes.
class Sender {
 public:
  explicit Sender(HINSTANCE instance) {
    NewClass made;
    made.name = kSenderClass;
    made.procedure = Calls().WindowDefault;
    made.instance = instance;
    Calls().Register(made);
    NewWindow window;
    window.window_class = kSenderClass;
    window.style = WS_POPUP;
    window.instance = instance;
    window_ = Calls().Create(window);
  }
  Sender(const Sender&) = delete;
  Sender& operator=(const Sender&) = delete;
  ~Sender() { DestroyWindow(window_); }

  HWND window() const { return window_; }

 private:
  HWND window_;
};

struct Attempt {
  const char* window_class;
  HWND sender;
  COPYDATASTRUCT data;
  StartAnswer answer = StartAnswer::None;
};

// Only who is in front may pass that on, and only where the system minds.
void LetComeToFront(HWND window) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  static const auto allow =
      LateBind<decltype(&AllowSetForegroundWindow)>("user32.dll", "AllowSetForegroundWindow");
  if (allow) allow(process);
}

// Other programs may have windows of that class; they answer nothing that we know.
BOOL CALLBACK AskWindow(HWND window, LPARAM parameter) {
  Attempt& attempt = *reinterpret_cast<Attempt*>(parameter);
  if (Calls().ClassName(window) != attempt.window_class) return TRUE;
  LetComeToFront(window);
  DWORD_PTR answer = 0;
  if (!Calls().SendFor(window, WM_COPYDATA, reinterpret_cast<WPARAM>(attempt.sender),
                       reinterpret_cast<LPARAM>(&attempt.data), SMTO_ABORTIFHUNG, kAnswerTime,
                       &answer)) {
    return TRUE;
  }
  constexpr auto kLast = static_cast<DWORD_PTR>(StartAnswer::Refused);
  if (answer <= kLast) attempt.answer = static_cast<StartAnswer>(answer);
  return attempt.answer == StartAnswer::None;
}

// The system keeps messages of programs with fewer rights away.
void LetThrough(HWND window, UINT message) {
  using FilterWindow = BOOL(WINAPI*)(HWND, UINT, DWORD, void*);
  using FilterProcess = BOOL(WINAPI*)(UINT, DWORD);
  constexpr DWORD kAllow = 1;
  if (const auto one = LateBind<FilterWindow>("user32.dll", "ChangeWindowMessageFilterEx")) {
    one(window, message, kAllow, nullptr);
  } else if (const auto all = LateBind<FilterProcess>("user32.dll", "ChangeWindowMessageFilter")) {
    all(message, kAllow);
  }
}

}  // namespace

void SingleInstance::Try() {
  mutex_.Reset(RunningSystemCalls().Mutex("Scourwell.SingleInstance"));
  const DWORD code = GetLastError();
  first_ = mutex_ ? code != ERROR_ALREADY_EXISTS : code != ERROR_ACCESS_DENIED;
}

StartAnswer SingleInstance::HandOver(HINSTANCE instance, const char* window_class,
                                     const std::string& request) {
  std::string bytes = request;
  const Sender sender(instance);
  Attempt attempt = {
      window_class, sender.window(), {kRequest, static_cast<DWORD>(bytes.size()), bytes.data()}};
  const DWORD start = GetTickCount();
  do {
    EnumWindows(AskWindow, reinterpret_cast<LPARAM>(&attempt));
    if (attempt.answer != StartAnswer::None) break;
    // Several that wait must not hold the mark for each other.
    mutex_.Reset(nullptr);
    Sleep(kPause);
    Try();
  } while (!first_ && GetTickCount() - start < kPatience);
  return attempt.answer;
}

void ReceiveRequests(HWND window) { LetThrough(window, WM_COPYDATA); }

void ReceiveFiles(HWND window) {
  constexpr UINT kCopyGlobalData = 0x49;  // brings the names along
  LetThrough(window, WM_DROPFILES);
  LetThrough(window, kCopyGlobalData);
  DragAcceptFiles(window, TRUE);
}

std::optional<std::string> ReceivedRequest(WPARAM wparam, LPARAM lparam) {
  const auto* data = reinterpret_cast<const COPYDATASTRUCT*>(lparam);
  if (!data || data->dwData != kRequest || !data->lpData || data->cbData > kLongestRequest) {
    return std::nullopt;
  }
  if (Calls().ClassName(reinterpret_cast<HWND>(wparam)) != kSenderClass) return std::nullopt;
  return std::string(static_cast<const char*>(data->lpData), data->cbData);
}

void ComeToFront(HWND window) {
  if (IsIconic(window)) ShowWindow(window, SW_RESTORE);
  HWND popup = GetLastActivePopup(window);
  SetForegroundWindow(IsWindowVisible(popup) ? popup : window);
}

}  // namespace scourwell
