#include "widgets/tool_tip.h"

namespace scourwell {
namespace {

constexpr int kWidth = 300;  // pixels at 96 dots per inch, then the text wraps

}  // namespace

void ToolTip::Create(const WindowEnv& env, HWND owner) {
  hwnd_ = CreateWindowExA(0, TOOLTIPS_CLASSA, nullptr, WS_POPUP | TTS_ALWAYSTIP, 0, 0, 0, 0, owner,
                          nullptr, env.instance, nullptr);
  Send(TTM_SETMAXTIPWIDTH, 0, env.metrics.Scale(kWidth));
}

void ToolTip::Set(HWND control, const std::string& text) const {
  TOOLINFOA tool = {};
  tool.cbSize = TTTOOLINFOA_V1_SIZE;  // what the oldest common controls know
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = GetParent(control);
  tool.uId = reinterpret_cast<UINT_PTR>(control);
  Send(TTM_DELTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
  if (text.empty()) return;
  tool.lpszText = const_cast<char*>(text.c_str());
  Send(TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
}

}  // namespace scourwell
