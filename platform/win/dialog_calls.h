// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include <shellapi.h>
#include <shlobj.h>

#include <string>
#include <vector>

namespace scourwell {

struct FileQuestion {
  HWND owner = nullptr;
  bool save = false;
  std::string filter;     // names and patterns, each ended by NUL
  std::string extension;  // of a saved file that has none
  std::string title;      // empty: the system's own
  std::string name;       // proposed
};

struct ClipboardText {
  UINT format;
  std::string bytes;
};

// The system's dialogs, in the form of the family that runs.
class DialogCalls {
 public:
  DialogCalls() = default;
  DialogCalls(const DialogCalls&) = delete;
  DialogCalls& operator=(const DialogCalls&) = delete;
  virtual ~DialogCalls() = default;

  // Empty when the user cancels.
  virtual std::string AskForFile(const FileQuestion& question) const = 0;
  // Null when the user cancels; the caller frees it. `first` is selected at first.
  virtual LPITEMIDLIST AskForFolder(HWND owner, const std::string& title,
                                    const std::string& first) const = 0;
  // Empty when it is no folder of the file system.
  virtual std::string PathOf(LPCITEMIDLIST folder) const = 0;
  // What a user has dropped on a window; the caller ends the drop.
  virtual std::vector<std::string> Dropped(HDROP drop) const = 0;
  virtual ClipboardText ForClipboard(const std::string& text) const = 0;
};

const DialogCalls& Dialogs();

}  // namespace scourwell
