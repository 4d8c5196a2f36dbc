#pragma once

#include "platform/files.h"
#include "widgets/button.h"
#include "widgets/dialog.h"
#include "widgets/label.h"
#include "widgets/text_field.h"
#include "widgets/text_view.h"

namespace scourwell {

// The log viewer: the whole scan log, with a search and a way to save it elsewhere.
class frmLog : public Dialog {
 public:
  static constexpr std::uint64_t kLargest = 64u << 20;  // bytes of a log that is shown

  frmLog(const WindowEnv& env, Files& files, std::string path);

 private:
  Shape WantedShape() const override;
  std::string Title() const override { return Text(1600); }
  HWND EnterButton() const override;
  HWND EscapeButton() const override { return cmdCancel_.hwnd(); }
  HWND FirstFocus() const override { return txtFile_.hwnd(); }
  bool OnKey(const MSG& message) override;
  void OnCreate() override;
  void OnSize(Area area) override;
  bool OnCommand(int id) override;

  void Load();
  void FindNext();
  void Save();

  Files& files_;
  std::string path_;
  std::string text_;
  TextView txtFile_;
  Label lblFind_;
  TextField txtFind_;
  Button cmdFind_;
  Button cmdSave_;
  Button cmdCancel_;
};

}  // namespace scourwell
