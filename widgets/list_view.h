#pragma once

#include <span>

#include "widgets/gdi_handles.h"
#include "widgets/subclassed_control.h"

namespace scourwell {

// Calls on a list view in report style.
class ListView : public SubclassedControl {
 public:
  // At least as wide as its caption asks for.
  void AddColumn(int index, const std::string& text, int width) const;
  void SetColumnWidth(int column, int width) const {
    Send(LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(column), MAKELPARAM(width, 0));
  }
  int ColumnWidth(int column) const {
    return static_cast<int>(Send(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column)));
  }
  int TextWidth(const std::string& text) const {
    return static_cast<int>(Send(LVM_GETSTRINGWIDTHA, 0, reinterpret_cast<LPARAM>(text.c_str())));
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

 private:
  int Next(int row, UINT flags) const {
    return static_cast<int>(Send(LVM_GETNEXTITEM, static_cast<WPARAM>(row), MAKELPARAM(flags, 0)));
  }

  ImageListHandle blank_;  // no picture, but its height is the rows'
};

}  // namespace scourwell
