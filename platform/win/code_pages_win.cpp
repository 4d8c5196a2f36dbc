#include "platform/win/code_pages_win.h"

#include <windows.h>

#include "platform/win/native_text.h"
#include "platform/win/win_error.h"

namespace scourwell {

unsigned CodePagesWin::System() { return GetACP(); }

Outcome CodePagesWin::ToSystem(unsigned code_page, std::string* text) {
  if (text->empty()) return {};
  const int size = static_cast<int>(text->size());
  const int needed = MultiByteToWideChar(code_page, 0, text->data(), size, nullptr, 0);
  if (needed <= 0) return FailedWith(GetLastError());
  std::wstring wide(static_cast<std::size_t>(needed), L'\0');
  const int written = MultiByteToWideChar(code_page, 0, text->data(), size, wide.data(), needed);
  if (written <= 0) return FailedWith(GetLastError());
  *text = FromWide(wide);
  return {};
}

}  // namespace scourwell
