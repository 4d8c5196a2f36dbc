// SPDX-License-Identifier: MIT
#include "widgets/status_bar.h"

#include <algorithm>

#include "platform/win/control_calls.h"

namespace scourwell {

void StatusBar::Create(const WindowEnv& env, HWND parent, int id) {
  metrics_ = &env.metrics;
  CreateHandle(env, parent, "msctls_statusbar32", SBARS_SIZEGRIP, 0, id);
}

void StatusBar::SetPart(Part part, const std::string& text) {
  if (texts_[part] == text) return;
  texts_[part] = text;
  SendText(Controls().status_text, part, text);
  if (part != kState) Fit();
}

int StatusBar::Fit() {
  Send(WM_SIZE);
  RECT bar = {};
  GetWindowRect(hwnd(), &bar);
  const int padding = metrics_->Scale(16);
  const int grip = GetSystemMetrics(SM_CXVSCROLL);
  const int language = metrics_->TextWidth(texts_[kLanguage]) + padding + grip;
  const int found = std::max(metrics_->TextWidth(texts_[kFound]) + padding, metrics_->Scale(140));
  const int width = bar.right - bar.left;
  const int edges[kParts] = {std::max(0, width - language - found), std::max(0, width - language),
                             -1};
  Send(SB_SETPARTS, kParts, reinterpret_cast<LPARAM>(edges));
  return bar.bottom - bar.top;
}

}  // namespace scourwell
