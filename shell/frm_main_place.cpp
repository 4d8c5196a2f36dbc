// SPDX-License-Identifier: MIT

// Where the main window stands.
#include <algorithm>

#include "shell/frm_main.h"
#include "widgets/window_place.h"

namespace scourwell {
namespace {

constexpr int kSmallestWidth = 10840;  // 1/1440 inch
constexpr int kSmallestHeight = 6100;

}  // namespace

// It opens where the user left it, else in the middle of the screen, large enough for the list of
// results.
Area frmMain::FirstPlace() const {
  if (const auto kept = WindowPlace(shared_, kName).Find(SmallestSize())) return *kept;
  RECT desktop = {};
  Calls().Parameter(SPI_GETWORKAREA, 0, &desktop, 0);
  const Area work(desktop);
  const int width = std::min(metrics().Scale(840), work.width());
  const int height = std::min(metrics().Scale(580), work.height());
  const int left = work.left + (work.width() - width) / 2;
  const int top = work.top + (work.height() - height) / 2;
  return {left, top, left + width, top + height};
}

// Never larger than the screen: on 640 x 480 the whole window must stay within reach.
SIZE frmMain::SmallestSize() const {
  return {std::min(metrics().FromTwips(kSmallestWidth), GetSystemMetrics(SM_CXSCREEN)),
          std::min(metrics().FromTwips(kSmallestHeight), GetSystemMetrics(SM_CYSCREEN))};
}

// All of it at once, not piece by piece.
void frmMain::ShowComplete(int show) {
  const bool plain = show == SW_SHOWNORMAL || show == SW_SHOW || show == SW_SHOWDEFAULT;
  const bool maximized = plain && WindowPlace(shared_, kName).maximized();
  ShowWindow(hwnd(), maximized ? SW_SHOWMAXIMIZED : show);
  RedrawWindow(hwnd(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

}  // namespace scourwell
