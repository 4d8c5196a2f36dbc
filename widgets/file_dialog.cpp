// SPDX-License-Identifier: MIT
#include "widgets/file_dialog.h"

#include <algorithm>

#include "platform/win/dialog_calls.h"

namespace scourwell {

std::string AskForFile(HWND owner, FileDialog kind, const std::string& filter,
                       const char* extension, const std::string& title, const std::string& name) {
  FileQuestion question;
  question.owner = owner;
  question.save = kind == FileDialog::Save;
  question.filter = filter + "||";
  std::replace(question.filter.begin(), question.filter.end(), '|', '\0');
  question.extension = extension;
  question.title = title;
  question.name = name;
  return Dialogs().AskForFile(question);
}

std::vector<std::string> TakeDropped(WPARAM parameter) {
  const auto drop = reinterpret_cast<HDROP>(parameter);
  std::vector<std::string> paths = Dialogs().Dropped(drop);
  DragFinish(drop);
  return paths;
}

bool CopyText(HWND owner, const std::string& text) {
  if (!OpenClipboard(owner)) return false;
  EmptyClipboard();
  const ClipboardText copied = Dialogs().ForClipboard(text);
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, copied.bytes.size());
  if (auto* place = static_cast<char*>(memory ? GlobalLock(memory) : nullptr)) {
    std::copy(copied.bytes.begin(), copied.bytes.end(), place);
    GlobalUnlock(memory);
  }
  // The clipboard owns the memory only if it took it.
  const bool taken = memory && SetClipboardData(copied.format, memory);
  if (memory && !taken) GlobalFree(memory);
  CloseClipboard();
  return taken;
}

}  // namespace scourwell
