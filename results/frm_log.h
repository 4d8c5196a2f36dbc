// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "platform/code_pages.h"
#include "platform/files.h"
#include "widgets/button.h"
#include "widgets/edit.h"
#include "widgets/label.h"
#include "widgets/modal_window.h"
#include "widgets/text_view.h"

namespace scourwell {

// The log viewer: a whole scan log, with a search and a way to save it elsewhere. Logs of earlier
// runs can be opened in it.
class frmLog : public ModalWindow {
 public:
  static constexpr std::uint64_t kLargest = 64u << 20;  // bytes of a log that is shown

  // `save_report` saves the report of the scan that the log at `path` is about; null where the
  // program knows of no such scan.
  frmLog(const WindowEnv& env, Files& files, CodePages& code_pages, std::string path,
         std::function<void()> save_report);

 private:
  SIZE FirstSize() const override;
  bool MayResize() const override { return true; }
  std::string Title() const override { return Text(Caption::LogTitle); }
  HWND DefaultButton() const override;
  HWND FirstFocus() const override { return txtFile_.hwnd(); }
  bool OnKey(WPARAM key) override;
  void OnCreate() override;
  void OnSize(Area area) override;
  bool OnCommand(int id) override;

  void Load();
  void Show();
  void Open();
  void FindNext();
  void Save();

  Files& files_;
  CodePages& code_pages_;
  std::string path_;
  std::string bytes_;  // as the file has them
  std::string path_of_report_;
  std::function<void()> save_report_;
  TextView txtFile_;
  Label lblFind_;
  Edit txtFind_;
  Button cmdFind_;
  Button cmdOpen_;
  Button cmdReport_;
  Button cmdSave_;
  Button cmdCancel_;
};

}  // namespace scourwell
