// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>
#include <commdlg.h>

#include "platform/win/dialog_calls.h"
#include "platform/win/window_calls.h"

namespace scourwell {

// The dialogs of a family, written once for both; see FormWindowCalls.
template <class Form>
class FormDialogCalls : public DialogCalls {
  using String = typename Form::String;
  using Char = typename String::value_type;

 public:
  std::string AskForFile(const FileQuestion& question) const override {
    const String filter = Form::Native(question.filter);
    const String extension = Form::Native(question.extension);
    const String title = Form::Native(question.title);
    String path = Form::Native(question.name);
    path.resize(Calls().LongestPath() + 1);
    path.back() = 0;
    typename Form::FileDialog dialog = {};
    dialog.lStructSize = Form::FileDialogSize();
    dialog.hwndOwner = question.owner;
    dialog.lpstrFilter = filter.c_str();
    dialog.lpstrFile = path.data();
    dialog.nMaxFile = static_cast<DWORD>(path.size());
    dialog.lpstrTitle = title.empty() ? nullptr : title.c_str();
    dialog.lpstrDefExt = extension.c_str();
    // A portable copy leaves no trace in the list of recent documents.
    dialog.Flags = OFN_EXPLORER | OFN_HIDEREADONLY | OFN_NOCHANGEDIR | OFN_PATHMUSTEXIST |
                   OFN_DONTADDTORECENT | (question.save ? OFN_OVERWRITEPROMPT : OFN_FILEMUSTEXIST);
    return Form::AskForFile(&dialog, question.save) ? Form::FromNative(path.c_str()) : "";
  }

  LPITEMIDLIST AskForFolder(HWND owner, const std::string& title,
                            const std::string& first) const override {
    const String heading = Form::Native(title);
    const String selected = Form::Native(first);
    Char name[MAX_PATH] = {};
    typename Form::FolderDialog dialog = {};
    dialog.hwndOwner = owner;
    dialog.pszDisplayName = name;
    dialog.lpszTitle = heading.c_str();
    dialog.ulFlags = BIF_RETURNONLYFSDIRS;
    dialog.lpfn = SelectFirst;
    dialog.lParam = reinterpret_cast<LPARAM>(selected.c_str());
    return Form::AskForFolder(&dialog);
  }

  std::string PathOf(LPCITEMIDLIST folder) const override {
    String path(Calls().LongestPath() + 1, 0);
    return Form::PathOf(folder, &path) ? Form::FromNative(path.c_str()) : "";
  }

  std::vector<std::string> Dropped(HDROP drop) const override {
    std::vector<std::string> paths;
    const UINT count = Form::DroppedFile(drop, kCountDropped, nullptr, 0);
    for (UINT i = 0; i < count; ++i) {
      String path(Form::DroppedFile(drop, i, nullptr, 0) + 1, 0);
      Form::DroppedFile(drop, i, path.data(), static_cast<UINT>(path.size()));
      paths.push_back(Form::FromNative(path.c_str()));
    }
    return paths;
  }

  ClipboardText ForClipboard(const std::string& text) const override {
    const String native = Form::Native(text);
    const auto* bytes = reinterpret_cast<const char*>(native.c_str());
    return {Form::kClipboardFormat, {bytes, (native.size() + 1) * sizeof(Char)}};
  }

 private:
  static constexpr UINT kCountDropped = 0xFFFFFFFF;

  static int CALLBACK SelectFirst(HWND dialog, UINT message, LPARAM, LPARAM first) {
    if (message == BFFM_INITIALIZED && *reinterpret_cast<const Char*>(first)) {
      Form::kSend(dialog, Form::kSelectFolder, TRUE, first);
    }
    return 0;
  }
};

}  // namespace scourwell
