// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <initializer_list>
#include <optional>
#include <span>
#include <vector>

#include "platform/win/control_calls.h"
#include "text/escaped.h"
#include "widgets/gdi_handles.h"
#include "widgets/subclassed_control.h"

namespace scourwell {

// A virtual list view in report style: its owner has the rows and answers for them.
class ListView : public SubclassedControl, private ListRows {
 public:
  // The owner's answers; without `row_image` or `row_tip` the rows have none.
  std::function<std::size_t()> row_count;
  std::function<std::string(std::size_t row, int column)> cell_text;
  std::function<int(std::size_t row)> row_image;
  std::function<std::string(std::size_t row)> row_tip;

  // What a notification of this list about its rows is to be answered; none when it is about
  // something else.
  std::optional<LRESULT> Answer(NMHDR* header) const {
    if (header->hwndFrom != hwnd()) return {};
    return Controls().Answer(header, *this);
  }

  // Widths that the user gives the columns stay from run to run, by the list's name among all.
  // Before the first column is added.
  void RememberWidths(const WindowEnv& env, const char* list);
  bool has_kept_widths() const { return !kept_.empty(); }
  // In this run or an earlier one.
  bool sized_by_user() const { return sized_ || has_kept_widths(); }
  // At least as wide as its caption asks for, unless the user has set its width.
  void AddColumn(int index, const std::string& text, int width);
  void SetColumnWidth(int column, int width) const {
    Send(LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(column), MAKELPARAM(width, 0));
  }
  int ColumnWidth(int column) const {
    return static_cast<int>(Send(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column)));
  }
  // What a column takes to show its head and its texts of all rows.
  int NeededWidth(int column) const;
  // Gives columns what they need, in this order, and `rest` what the list has left, but no less
  // than `least`. The others stay as they are.
  void FitColumns(std::initializer_list<int> columns, int rest, int least) const;
  // Numbers are compared from their ends. Not for the first column.
  void AlignRight(int column) const;
  int TextWidth(const std::string& text) const {
    return static_cast<int>(SendText(Controls().list_text_width, 0, text));
  }
  // The numbers of all columns, as they are shown from left to right.
  void SetColumnOrder(std::span<const int> columns) const {
    Send(LVM_SETCOLUMNORDERARRAY, columns.size(), reinterpret_cast<LPARAM>(columns.data()));
  }
  // The arrow in a column's header. Systems whose headers have none ignore it.
  void ShowSortArrow(int column, bool ascending) const;

  void SetItemCount(std::size_t count) const { Send(LVM_SETITEMCOUNT, count); }
  void SetSmallImages(HIMAGELIST images) const {
    Send(LVM_SETIMAGELIST, LVSIL_SMALL, reinterpret_cast<LPARAM>(images));
  }
  // For a list without pictures: its own rows leave no room around the text. A list made with
  // LVS_SHAREIMAGELISTS.
  void SetRowHeight(int height);
  void SetExtendedStyle(DWORD style) const {
    Send(LVM_SETEXTENDEDLISTVIEWSTYLE, style, static_cast<LPARAM>(style));
  }
  // Where a cell lies; column 0 has no area of its own here.
  RECT CellArea(int row, int column) const;
  // What the list leaves free at both sides of a text.
  static constexpr int CellPadding() { return 6; }
  // The first selected row after `row`, -1 when there is none. Start with -1.
  int NextSelected(int row) const { return Next(row, LVNI_SELECTED); }
  int Focused() const { return Next(-1, LVNI_FOCUSED); }
  bool IsSelected(int row) const {
    return Send(LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_SELECTED) != 0;
  }
  // Row -1: all rows.
  void Select(int row, bool selected) const;
  void FocusRow(int row) const;

 protected:
  LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;
  UINT State(std::size_t) const override { return 0; }

 private:
  std::size_t Count() const override { return row_count(); }
  std::string CellText(std::size_t row, int column) const override {
    return ForShowing(cell_text(row, column));
  }
  int Image(std::size_t row) const override { return row_image ? row_image(row) : 0; }
  std::string Tip(std::size_t row) const override {
    return row_tip ? ForShowing(row_tip(row)) : std::string();
  }
  int Next(int row, UINT flags) const {
    return static_cast<int>(Send(LVM_GETNEXTITEM, static_cast<WPARAM>(row), MAKELPARAM(flags, 0)));
  }

  void KeepColumns() const;

  const WindowEnv* env_ = nullptr;
  const char* list_ = nullptr;
  std::vector<int> kept_;  // by the columns' numbers
  std::vector<int> heads_;
  bool sized_ = false;     // by the user
  ImageListHandle blank_;  // no picture, but its height is the rows'
};

}  // namespace scourwell
