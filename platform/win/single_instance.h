// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "platform/win/unique_handle.h"

namespace scourwell {

// What the running program makes of the request of a second start. None: no window of it answers.
enum class StartAnswer { None, Taken, Busy, Refused };

// Holds the mark of the running program. It is global to the session, so that a copy started
// from another folder is recognised too.
class SingleInstance {
 public:
  SingleInstance() { Try(); }
  bool is_first() const { return first_; }

  // Hands a request to the window of the program that runs, by the name of its class, and lets it
  // come to the front. Waits for one that is starting; takes the place of one that is ending.
  StartAnswer HandOver(HINSTANCE instance, const char* window_class, const std::string& request);

 private:
  void Try();

  KernelHandle mutex_;
  bool first_ = false;
};

// The other side. A window of a program that runs with more rights must ask for the requests of
// ordinary ones: Explorer sends the user's.
void ReceiveRequests(HWND window);
// The same for files that the user drags there.
void ReceiveFiles(HWND window);
// The bytes that WM_COPYDATA brings, when a second start of this program sends them.
std::optional<std::string> ReceivedRequest(WPARAM wparam, LPARAM lparam);
// Where there is nothing else to see, the window comes to the front.
void ComeToFront(HWND window);

}  // namespace scourwell
