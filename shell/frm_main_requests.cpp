// SPDX-License-Identifier: MIT

// What second starts of the program hand to the main window of the first.
#include "platform/win/single_instance.h"
#include "shell/frm_main.h"

namespace scourwell {
namespace {

constexpr UINT_PTR kWantedTimer = 2;
// From the last request on: Explorer starts the program for one folder after the other.
constexpr UINT kGatherDelay = 800;  // milliseconds

LRESULT Answer(StartAnswer answer) { return static_cast<LRESULT>(answer); }

}  // namespace

// Whoever sends it, a scan is all that comes of it, and only while nothing else is going on: nobody
// loses a scan, a removal or what a window of ours is being filled with.
LRESULT frmMain::TakeRequest(WPARAM wparam, LPARAM lparam) {
  const std::optional<std::string> bytes = ReceivedRequest(wparam, lparam);
  if (!bytes) return Answer(StartAnswer::None);
  const std::optional<CommandLine> command = UnpackRequest(*bytes);
  if (!command) return Answer(StartAnswer::Refused);
  if (ready_) {
    ComeToFront(hwnd());
    if (command->kind == CommandLine::Kind::Normal) return Answer(StartAnswer::Taken);
    if (app_.busy() || close_wanted_ || !IsWindowEnabled(hwnd())) return Answer(StartAnswer::Busy);
    SetTimer(hwnd(), kWantedTimer, kGatherDelay, nullptr);
  }
  wanted_.Add(*command);
  return Answer(StartAnswer::Taken);
}

// What the user has begun meanwhile goes first.
void frmMain::StartWantedScan() {
  if (app_.busy() || !IsWindowEnabled(hwnd())) return;
  KillTimer(hwnd(), kWantedTimer);
  if (wanted_.HasPaths()) {
    OpenFolders(frmScanSpy::First::HandedScan);
  } else if (wanted_.TakeEverything()) {
    app_.log().Trap("WM_COPYDATA", [&] { return ScanTicked(frmScanSpy::First::HandedScan); });
  }
}

void frmMain::OpenFolders(frmScanSpy::First first) {
  OpenScanPage(first, wanted_.TakePaths());
  ShowTree(false);
}

}  // namespace scourwell
