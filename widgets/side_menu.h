// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <vector>

#include "widgets/subclassed_control.h"
#include "widgets/tool_tip.h"

namespace scourwell {

// A column of commands in groups, each with a picture. Arrow keys go from command to command;
// Enter, Space or a click carries it out.
class SideMenu : public SubclassedControl {
 public:
  struct Item {
    int command = 0;  // 0: the heading of a group
    std::string text;
    int icon = 0;        // resource
    bool faded = false;  // looks unavailable, but is still carried out
    std::string tip;
  };

  void Create(const WindowEnv& env, HWND parent, int id);
  void Fill(std::vector<Item> items);
  // What the texts ask for, within limits.
  int Width() const;

  std::function<void(int command)> on_command;

 private:
  struct Row {
    Item item;
    IconHandle icon;
  };

  LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;
  bool OnKey(WPARAM key);
  void Move(int step);
  void LeaveHeading(int step);
  void Follow();
  void Carry(int row) const;
  void DrawItem(const DRAWITEMSTRUCT& item) const;
  void DrawHeading(HDC dc, RECT area, const Row& row) const;
  void DrawCommand(HDC dc, RECT area, const Row& row, bool selected, bool hot) const;
  int RowUnderMouse() const;
  int Selected() const { return static_cast<int>(Send(LB_GETCURSEL)); }
  bool IsCommand(int row) const;
  int RowHeight(const Item& item) const;

  const WindowEnv* env_ = nullptr;
  std::vector<Row> rows_;
  ToolTip tip_;
  MenuFonts fonts_ = {};
  int icon_size_ = 16;
  int hot_ = -1;
  int pressed_ = -1;
};

}  // namespace scourwell
