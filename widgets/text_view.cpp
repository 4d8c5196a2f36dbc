#include "widgets/text_view.h"

#include <richedit.h>

#include "platform/win/late_bind.h"

namespace scourwell {
namespace {

constexpr int kLetterHeight = 13;  // pixels at 96 dots per inch

// The system's own one is a picture of letters for 96 dots per inch.
HFONT FixedFont(const Metrics& metrics) {
  LOGFONTA font = {};
  GetObjectA(GetStockObject(ANSI_FIXED_FONT), sizeof font, &font);
  font.lfHeight = -metrics.Scale(kLetterHeight);
  font.lfWidth = 0;
  font.lfPitchAndFamily = FIXED_PITCH | FF_MODERN;
  font.lfOutPrecision = OUT_TT_PRECIS;
  lstrcpynA(font.lfFaceName, "Courier New", sizeof font.lfFaceName);
  return CreateFontIndirectA(&font);
}

}  // namespace

void TextView::Create(const WindowEnv& env, HWND parent, int id) {
  constexpr DWORD kStyle = WS_TABSTOP | WS_VSCROLL | WS_HSCROLL | ES_MULTILINE | ES_READONLY |
                           ES_NOHIDESEL | ES_AUTOVSCROLL | ES_AUTOHSCROLL;
  const bool rich = LoadSystemLibrary("riched32.dll") != nullptr;
  CreateHandle(env, parent, rich ? RICHEDIT_CLASS10A : "EDIT", kStyle, WS_EX_CLIENTEDGE, id);
  Send(rich ? UINT{EM_EXLIMITTEXT} : UINT{EM_LIMITTEXT}, 0, rich ? 0x7FFFFFFE : 0);
  const bool large = env.metrics.Scale(100) > 100;
  if (large) font_.Reset(FixedFont(env.metrics));
  SetFont(large ? font_.get() : static_cast<HFONT>(GetStockObject(ANSI_FIXED_FONT)));
}

void TextView::Select(std::size_t start, std::size_t end) const {
  CHARRANGE range = {static_cast<LONG>(start), static_cast<LONG>(end)};
  if (!Send(EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range))) {
    Send(EM_SETSEL, start, static_cast<LPARAM>(end));
  }
  Send(EM_SCROLLCARET);
}

std::size_t TextView::SelectionEnd() const {
  DWORD start = 0;
  DWORD end = 0;
  Send(EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
  return end;
}

}  // namespace scourwell
