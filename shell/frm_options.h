// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <vector>

#include "shell/application.h"
#include "widgets/button.h"
#include "widgets/check_box.h"
#include "widgets/edit.h"
#include "widgets/modal_window.h"
#include "widgets/picture_combo.h"
#include "widgets/section_line.h"
#include "widgets/tab_control.h"

namespace scourwell {

// The options dialog: four tabs, OK and Cancel.
class frmOptions : public ModalWindow {
 public:
  frmOptions(const WindowEnv& env, Application& app)
      : ModalWindow(env, "frmOptions"), app_(app), form_(app.Options()) {}

  // After it was closed: another language was chosen, so all captions have to be read again.
  bool language_changed() const { return language_changed_; }

 private:
  static constexpr int kTabs = 4;
  static constexpr std::size_t kBoxes = 17;
  static constexpr std::size_t kPaths = 3;

  // A box for a folder, its caption above, a hint below.
  struct PathControls {
    Label caption;
    Edit text;
    Button browse;
    Label hint;
    bool changed = true;  // since the folder was looked for
  };

  SIZE FirstSize() const override;
  std::string Title() const override { return Text(Caption::OptionsTitle); }
  HWND DefaultButton() const override { return cmdProceed_.hwnd(); }
  HWND FirstFocus() const override;
  LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;
  void OnCreate() override;
  void OnSize(Area area) override;
  bool OnCommand(int id) override;
  bool OnKey(WPARAM key) override;
  LRESULT OnNotify(NMHDR* header) override;

  void CreateTab(int tab);
  void CreateLanguage(HWND page, class AccessKeys* keys);
  void CreatePath(std::size_t index, HWND page, class AccessKeys* keys);
  void Fill();
  // Each goes down from the top of the area and returns the height that it needs; without a layout
  // it only measures, and there need not be a window yet.
  int ArrangeTab(int tab, Area area, Layout* layout) const;
  int ArrangeLanguage(Area area, Layout* layout) const;
  int ArrangePath(std::size_t index, Area area, Layout* layout) const;

  void ShowTab(int tab);
  void SwitchTab(int step);
  void ScanStartup();
  void LanguageChosen();
  void EditLanguage();
  bool Browse(int id);
  void PathNotified(std::size_t index, UINT code);
  void CheckFolder(std::size_t index);
  void ReadControls();
  void Proceed();

  Application& app_;
  OptionsForm form_;
  bool language_changed_ = false;
  std::array<TabPage, kTabs> pages_{TabPage(env_), TabPage(env_), TabPage(env_), TabPage(env_)};
  std::array<CheckBox, kBoxes> boxes_;
  std::array<std::vector<std::unique_ptr<SectionLine>>, kTabs> sections_;
  Label lblLang_;
  PictureCombo CmbLang_;
  Button cmdEditLanguagePackFile_;
  Label lblExplorerNote_;
  std::array<PathControls, kPaths> paths_;
  Button cmdProceed_;
  Button cmdCancelOptions_;
  TabControl tabs_;
};

}  // namespace scourwell
