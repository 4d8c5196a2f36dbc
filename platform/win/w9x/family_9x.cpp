// SPDX-License-Identifier: MIT

// What Windows 95, 98 and Me have of their own.
#include <cstddef>
#include <cstring>

#include "platform/win/family_calls.h"
#include "platform/win/form_control_calls.h"
#include "platform/win/form_dialog_calls.h"
#include "platform/win/form_window_calls.h"
#include "platform/win/w9x/ansi_form.h"

namespace scourwell::w9x {
namespace {

// Up to the name of the face the two structures are the same.
constexpr std::size_t kBeforeFace = offsetof(LOGFONTA, lfFaceName);
static_assert(kBeforeFace == offsetof(LOGFONTW, lfFaceName));

}  // namespace

// What a program draws itself is read in the code page of the font, what controls draw in that of
// the system. The font of messages need not be of the system's.
LOGFONTW AnsiForm::Described(LOGFONTA font) {
  CHARSETINFO letters = {};
  const auto page = static_cast<DWORD_PTR>(GetACP());
  if (TranslateCharsetInfo(reinterpret_cast<DWORD*>(page), &letters, TCI_SRCCODEPAGE)) {
    font.lfCharSet = static_cast<BYTE>(letters.ciCharset);
  }
  LOGFONTW described = {};
  std::memcpy(&described, &font, kBeforeFace);
  Wide(FromNarrow(font.lfFaceName)).copy(described.lfFaceName, LF_FACESIZE - 1);
  return described;
}

HFONT AnsiForm::MakeFont(const LOGFONTW& font) {
  LOGFONTA narrow = {};
  std::memcpy(&narrow, &font, kBeforeFace);
  Narrow(FromWide(font.lfFaceName)).copy(narrow.lfFaceName, LF_FACESIZE - 1);
  return CreateFontIndirectA(&narrow);
}

const WindowCalls& Windows() {
  static const FormWindowCalls<AnsiForm> calls;
  return calls;
}

const ControlCalls& Controls() {
  static const FormControlCalls<AnsiForm> calls;
  return calls;
}

const DialogCalls& Dialogs() {
  static const FormDialogCalls<AnsiForm> calls;
  return calls;
}

}  // namespace scourwell::w9x
