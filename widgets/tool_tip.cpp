// SPDX-License-Identifier: MIT
#include "widgets/tool_tip.h"

#include "platform/win/control_calls.h"

namespace scourwell {
namespace {

constexpr int kTipWidth = 300;  // pixels at 96 dots per inch, then the text wraps

}  // namespace

void ToolTip::Create(const WindowEnv& env, HWND owner) {
  NewWindow made;
  made.window_class = "tooltips_class32";
  made.style = WS_POPUP | TTS_ALWAYSTIP;
  made.parent = owner;
  made.instance = env.instance;
  hwnd_ = Calls().Create(made);
  Send(TTM_SETMAXTIPWIDTH, 0, env.metrics.Scale(kTipWidth));
}

void ToolTip::Set(HWND control, const std::string& text) const {
  Controls().SetTip(hwnd(), control, text);
}

}  // namespace scourwell
