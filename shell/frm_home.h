// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <iterator>
#include <span>
#include <vector>

#include "shell/application.h"
#include "shell/command_table.h"
#include "shell/frm_host.h"
#include "widgets/header_pane.h"
#include "widgets/label.h"
#include "widgets/layout.h"
#include "widgets/link_label.h"
#include "widgets/live_label.h"
#include "widgets/page.h"
#include "widgets/picture_button.h"
#include "widgets/tool_tip.h"
#include "widgets/vertical_scroll.h"

namespace scourwell {

// The start page: pictures and links that open what the program offers, usage statistics, what the
// program works with.
class frmHome : public Page {
 public:
  frmHome(const WindowEnv& env, Application& app, FormHost& host);

  // Reads the captions, the values and which companion programs are there anew.
  void Refresh();

  HWND DefaultButton() const override { return tasks_[0].hwnd(); }
  HWND FirstFocus() const override { return tasks_[0].hwnd(); }

 private:
  static constexpr int kFacts = 5;
  static constexpr int kTasks = static_cast<int>(std::size(kTaskPictures));
  static constexpr int kCompanions = static_cast<int>(std::size(kCompanionPictures));
  static constexpr int kLinkCount = static_cast<int>(std::size(kLinks));
  struct Fact {
    Label caption;
    LiveLabel value;
  };

  void OnCreate() override;
  void OnSize(Area area) override;
  LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;
  bool OnCommand(int id) override;
  void OnPaint(HDC dc) override;

  void RefreshButtons();
  void RefreshFacts();
  // Lays everything out below `area`'s top and returns where it ends.
  int LayOut(Layout& layout, Area area, bool header);
  void LayOutPictures(Layout& layout, Area* area, std::span<PictureButton* const> pictures);
  void LayOutText(Layout& layout, Area* area, const Label& text);
  void LayOutHeading(Layout& layout, Area* area, const Label& heading);
  void LayOutFacts(Layout& layout, Area* area, int first, int end);
  void LayOutLinks(Layout& layout, Area* area);
  void Arrange();
  std::string DefinitionsNumber();
  int CaptionWidth() const;

  Application& app_;
  FormHost& host_;
  HeaderPane header_;
  std::array<PictureButton, kTasks> tasks_;
  Label lblResults_;
  Label lblComputer_;
  std::array<Fact, kFacts> facts_;
  std::array<LinkLabel, kLinkCount> links_;
  Label lblRights_;
  Label lblFolderOpen_;
  Label lblCompanions_;
  std::array<PictureButton, kCompanions> companions_;
  Label lblCompanionsFolder_;
  std::vector<PictureButton*> present_;  // the companions that are there
  ToolTip tip_;
  VerticalScroll scroll_;
  std::array<Area, 3> rules_;  // beside the headings
  int rule_ = 0;
};

}  // namespace scourwell
