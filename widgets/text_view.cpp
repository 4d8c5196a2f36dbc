// SPDX-License-Identifier: MIT
#include "widgets/text_view.h"

#include <optional>

#include "platform/win/control_calls.h"
#include "platform/win/late_bind.h"
#include "text/text.h"
#include "text/unicode.h"

namespace scourwell {

void TextView::Create(const WindowEnv& env, HWND parent, int id) {
  constexpr DWORD kStyle = WS_TABSTOP | WS_VSCROLL | WS_HSCROLL | ES_MULTILINE | ES_READONLY |
                           ES_NOHIDESEL | ES_AUTOVSCROLL | ES_AUTOHSCROLL;
  const RichBox box = Controls().Rich();
  const bool rich = LoadSystemLibrary(box.library) != nullptr;
  short_line_ends_ = rich && box.short_line_ends;
  CreateHandle(env, parent, rich ? box.window_class : "EDIT", kStyle, WS_EX_CLIENTEDGE, id);
  Subclass(env, "TextView");
  // What looks like marks of rich text is text, too.
  if (rich) Send(EM_SETTEXTMODE, TM_PLAINTEXT);
  Send(rich ? UINT{EM_EXLIMITTEXT} : UINT{EM_LIMITTEXT}, 0, rich ? 0x7FFFFFFE : 0);
}

void TextView::SetText(const std::string& text) {
  text_ = text;
  Control::SetText(text);
}

// The box's places are counted from one find to the next: the program and the box count
// differently.
bool TextView::SelectNext(const std::string& wanted) const {
  const LONG from = SelectionEnd();
  const std::string_view text = text_;
  std::optional<CHARRANGE> first;
  LONG start = 0;
  std::size_t behind = 0;  // where `start` was counted up to
  for (std::size_t at = 0; (at = FindNoCase(text, wanted, at)) != text.npos; NextCode(text, &at)) {
    start += Count(text.substr(behind, at - behind));
    behind = at;
    const std::size_t size = PrefixNoCase(text.substr(at), wanted);
    const CHARRANGE place = {start, start + Count(text.substr(at, size))};
    if (start >= from) return Select(place), true;
    if (!first) first = place;
  }
  if (first) Select(*first);
  return first.has_value();
}

LONG TextView::Count(std::string_view part) const {
  const std::size_t count = Calls().CountOf(std::string(part));
  std::size_t line_ends = 0;
  for (std::size_t at = 0; short_line_ends_ && (at = part.find("\r\n", at)) != part.npos; ++at) {
    ++line_ends;
  }
  return static_cast<LONG>(count - line_ends);
}

LONG TextView::SelectionEnd() const {
  DWORD end = 0;
  Send(EM_GETSEL, 0, reinterpret_cast<LPARAM>(&end));
  return static_cast<LONG>(end);
}

void TextView::Select(CHARRANGE place) const {
  if (!Send(EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&place))) {
    Send(EM_SETSEL, static_cast<WPARAM>(place.cpMin), place.cpMax);
  }
  Send(EM_SCROLLCARET);
}

}  // namespace scourwell
