// SPDX-License-Identifier: MIT

// Definitions that the user brings, and what the program says of itself.
#include "platform/win/single_instance.h"
#include "shell/frm_about.h"
#include "shell/frm_definitions.h"
#include "shell/frm_main.h"
#include "shell/frm_tour.h"
#include "widgets/file_dialog.h"
#include "widgets/message_box.h"

namespace scourwell {
namespace {

constexpr char kTour[] = "Tour";
constexpr char kShown[] = "Shown";

}  // namespace

void frmMain::RefreshAfter(bool loaded) {
  if (loaded && home_) home_->Refresh();
}

Outcome frmMain::LoadDefinitions() {
  RefreshAfter(ChooseDefinitions(shared_, app_));
  return {};
}

Outcome frmMain::FormerDefinitions() {
  RefreshAfter(LoadFormerDefinitions(shared_, app_));
  return {};
}

// Dropped files wait for nothing: while the program is busy they are not taken.
LRESULT frmMain::TakeFiles(WPARAM drop) {
  const std::vector<std::string> paths = TakeDropped(drop);
  if (!ready_ || app_.busy() || close_wanted_ || !IsWindowEnabled(hwnd())) return 0;
  ComeToFront(hwnd());
  app_.log().Trap("WM_DROPFILES", [&] { RefreshAfter(LoadDropped(shared_, app_, paths)); });
  return 0;
}

Outcome frmMain::ShowAbout() {
  frmAbout(shared_, app_).ShowModal(hwnd());
  return {};
}

Outcome frmMain::ShowTour() {
  frmTour(shared_).ShowModal(hwnd());
  return {};
}

// Once for each user, and where that cannot be kept not at all. Whoever starts a scan with the
// program wants to see that.
void frmMain::WelcomeNewUser() {
  if (!started_plainly_ || app_.busy() || close_wanted_ || !IsWindowEnabled(hwnd())) return;
  if (!app_.NotKept().empty() || !app_.kept().Get(kTour, kShown).empty()) return;
  // First, so that it is never seen twice.
  if (app_.kept().Set(kTour, kShown, "True").ok()) static_cast<void>(ShowTour());
}

}  // namespace scourwell
