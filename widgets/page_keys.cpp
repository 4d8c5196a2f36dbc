// SPDX-License-Identifier: MIT
#include "widgets/page_keys.h"

namespace scourwell {

// The system frees tables that come from the resources.
void PageKeys::Load(HINSTANCE instance, int accelerators) {
  accelerators_ = Calls().Accelerators(instance, accelerators);
}

bool PageKeys::Translate(HWND frame, Page* page, MSG* message) {
  if (message->hwnd != frame && !IsChild(frame, message->hwnd)) return false;
  if (page) default_button_.Follow(page->DefaultButton());
  if (Calls().TakeAccelerator(frame, accelerators_, message)) return true;
  if (page && message->message == WM_KEYDOWN && Press(*page, *message)) return true;
  return Calls().TakeDialogKey(frame, message) != FALSE;
}

// A key that is held down counts once, or Enter on Start Scan would go on to press Stop.
bool PageKeys::Press(const Page& page, const MSG& message) {
  const bool enter = message.wParam == VK_RETURN;
  if (!enter && message.wParam != VK_ESCAPE) return false;
  // Some controls take Enter themselves.
  const LRESULT wants =
      Calls().Send(message.hwnd, WM_GETDLGCODE, message.wParam, reinterpret_cast<LPARAM>(&message));
  if (wants & DLGC_WANTMESSAGE) return false;
  HWND button = enter ? default_button_.hwnd() : page.EscapeButton();
  const bool repeated = (message.lParam & (1 << 30)) != 0;
  if (button && IsWindowEnabled(button) && !repeated) Calls().Post(button, BM_CLICK, 0, 0);
  return true;
}

}  // namespace scourwell
