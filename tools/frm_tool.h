// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "tools/table_view.h"
#include "tools/tool_box.h"
#include "widgets/button.h"
#include "widgets/edit.h"
#include "widgets/header_pane.h"
#include "widgets/label.h"
#include "widgets/live_label.h"
#include "widgets/modal_window.h"
#include "widgets/report_list_view.h"

namespace scourwell {

// What the windows of the tools have in common: heading, filter, a sorted list that mirrors a
// table, its popup menu, a line of figures and a row of buttons.
class frmTool : public ModalWindow {
 protected:
  struct Column {
    int width;  // pixels at 96 dots per inch
    bool path;
  };
  struct Command {
    int id;
    Caption caption;
  };
  struct Texts {
    Caption title;
    Caption explanation;
    Caption empty;
  };

  frmTool(const WindowEnv& env, const char* name, const char* prefix, ToolBox& tools,
          const Texts& texts);

  // What a window says of itself, constant as long as it lives.
  virtual const TableModel& Table() const = 0;
  virtual std::span<const Caption> ColumnCaptions() const = 0;
  virtual std::span<const Column> Columns() const = 0;
  // As they are shown from left to right; empty: as they are numbered.
  virtual std::span<const int> ColumnOrder() const { return {}; }
  // What its cells may come to say while the window is used.
  virtual std::vector<std::string> WordsOf(int /*column*/) const { return {}; }
  virtual std::span<const Command> Commands() const = 0;

  // Those that act on one row: in its popup menu.
  virtual std::span<const Command> MenuCommands() const = 0;

  // What it says of its rows.
  virtual std::string FileOf(std::size_t row) const = 0;
  virtual std::string KeyOf(std::size_t row) const = 0;
  virtual bool IsMarked(std::size_t row) const = 0;
  virtual std::string Figures() const = 0;
  // Where there is no row at all.
  virtual std::string EmptyText() const { return Text(texts_.empty); }
  virtual void Reload() = 0;
  // Whether a command may act on more than one row.
  virtual bool MaySelectSeveral() const { return false; }
  virtual void EnableCommands() = 0;
  // A command of its own.
  virtual bool OnToolCommand(int id) = 0;

  // The table has changed; the row stays selected if it is still shown, and no other takes its
  // place: the next key must not act on what the user did not choose.
  void ShowRows();
  // False when no row of the table is selected.
  bool Selected(std::size_t* row) const;
  // All that are selected, in the order in which they are shown.
  std::vector<std::size_t> SelectedRows() const;
  // After a change that left the rows where they were in the table.
  void SelectRows(const std::vector<std::size_t>& rows);
  // A row that is shown, after a change that made it another one.
  void ChooseRow(std::size_t row) { view_->Choose(view_->Find(row)); }
  Button& ButtonOf(int id);
  // Messages of failures under that heading, cut to what fits the screen.
  void ShowFailures(const std::vector<std::string>& failures,
                    Caption heading = Caption::SomeChangesFailed) const;

  std::string Title() const override { return Text(texts_.title); }
  HWND DefaultButton() const override { return nullptr; }
  HWND FirstFocus() const override { return list_.hwnd(); }
  void OnShown() override { Reload(); }
  bool OnCommand(int id) override;
  void OnCreate() override;
  void OnSize(Area area) override;

  ToolBox& tools_;

 private:
  static constexpr std::size_t kMostButtons = 5;

  SIZE FirstSize() const override;
  SIZE SmallestSize() const override;
  int ButtonsWidth() const;
  bool MayResize() const override { return true; }
  bool OnKey(WPARAM key) override;
  LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;
  LRESULT OnNotify(NMHDR* header) override;
  bool IsRow(std::size_t index) const;
  LRESULT Draw(NMLVCUSTOMDRAW* draw) const;
  void Filter();
  void Sort(int column);
  void ShowMenu(POINT at);
  void AppendCommands(HMENU menu, bool any);
  void ShowFigures();
  std::string TipOf(std::size_t row) const;
  void ShowSelection(int before);
  void FitColumns() const;
  int NeededWidth(int column) const;
  bool OnRowCommand(int id);
  Outcome OpenLocation(std::size_t row);

  const char* prefix_;
  std::optional<TableView> view_;  // of Table, which is made after us
  Texts texts_;
  HeaderPane header_;
  Label lblFilter_;
  Edit txtFilter_;
  Label lblEmpty_;
  ReportListView list_;
  std::size_t shown_ = 0;
  bool filling_ = false;  // the list's own changes are no choice of the user
  LiveLabel lblStatus_;
  std::array<Button, kMostButtons> buttons_;
  Button cmdClose_;
};

}  // namespace scourwell
