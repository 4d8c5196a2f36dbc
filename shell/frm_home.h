#pragma once

#include <array>

#include "shell/application.h"
#include "shell/frm_host.h"
#include "widgets/button.h"
#include "widgets/header_pane.h"
#include "widgets/label.h"
#include "widgets/live_label.h"
#include "widgets/page.h"

namespace scourwell {

// The start page: scan buttons, usage statistics, what the program works with.
class frmHome : public Page {
 public:
  frmHome(const WindowEnv& env, Application& app, FormHost& host);

  // Reads the values anew.
  void Refresh();

  HWND DefaultButton() const override { return cmdStartScan_.hwnd(); }
  HWND FirstFocus() const override { return cmdStartScan_.hwnd(); }

 private:
  static constexpr int kFacts = 5;
  struct Fact {
    Label caption;
    LiveLabel value;
  };

  void OnCreate() override;
  void OnSize(Area area) override;
  bool OnCommand(int id) override;
  void OnPaint(HDC dc) override;
  std::string DefinitionsNumber();
  std::string LanguageName() const;
  int CaptionWidth() const;

  Application& app_;
  FormHost& host_;
  HeaderPane header_;
  Button cmdStartScan_;
  Button cmdScanFolder_;
  std::array<Fact, kFacts> facts_;
  int line_y_ = 0;  // of the rule above the facts
};

}  // namespace scourwell
