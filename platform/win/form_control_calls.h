// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>
#include <commctrl.h>

#include <algorithm>
#include <array>

#include "platform/win/control_calls.h"
#include "text/unicode.h"

namespace scourwell {

// The common controls' calls of a family, written once for both; see FormWindowCalls.
template <class Form>
class FormControlCalls : public ControlCalls {
  using String = typename Form::String;

 public:
  FormControlCalls() : ControlCalls(Form::Messages()) {}

  void AddColumn(HWND list, int index, const std::string& text, int width) const override {
    String native = Form::Native(text);
    typename Form::Column column = {};
    column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
    column.pszText = native.data();
    column.cx = width;
    column.iSubItem = index;
    Tell(list, Form::kInsertColumn, static_cast<WPARAM>(index), &column);
  }

  std::optional<LRESULT> Answer(NMHDR* header, const ListRows& rows) const override {
    switch (header->code) {
      case Form::kGetItem:
        FillItem(&reinterpret_cast<typename Form::ItemQuestion*>(header)->item, rows);
        return 0;
      case Form::kGetTip:
        FillTip(reinterpret_cast<typename Form::TipQuestion*>(header), rows);
        return 0;
      case Form::kFindItem:
        return -1;
      default:
        return {};
    }
  }

  HTREEITEM AddItem(HWND tree, HTREEITEM parent, const std::string& text, int image,
                    LPARAM number) const override {
    String native = Form::Native(text);
    typename Form::NewTreeItem item = {};
    item.hParent = parent ? parent : TVI_ROOT;
    item.hInsertAfter = TVI_LAST;
    item.item.mask = TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE | TVIF_PARAM;
    item.item.pszText = native.data();
    item.item.iImage = item.item.iSelectedImage = image;
    item.item.lParam = number;
    return reinterpret_cast<HTREEITEM>(Tell(tree, Form::kInsertTreeItem, 0, &item));
  }

  void AddTab(HWND tabs, int index, const std::string& text) const override {
    String native = Form::Native(text);
    typename Form::Tab tab = {};
    tab.mask = TCIF_TEXT;
    tab.pszText = native.data();
    Tell(tabs, Form::kInsertTab, static_cast<WPARAM>(index), &tab);
  }

  void SetTip(HWND tips, HWND control, const std::string& text) const override {
    String native = Form::Native(text);
    typename Form::Tool tool = {};
    tool.cbSize = Form::ToolSize();
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = GetParent(control);
    tool.uId = reinterpret_cast<UINT_PTR>(control);
    Tell(tips, Form::kDeleteTool, 0, &tool);
    if (text.empty()) return;
    tool.lpszText = native.data();
    Tell(tips, Form::kAddTool, 0, &tool);
  }

  RichBox Rich() const override { return Form::kRich; }

 private:
  template <class Structure>
  static LRESULT Tell(HWND control, UINT message, WPARAM wparam, Structure* structure) {
    return Form::kSend(control, message, wparam, reinterpret_cast<LPARAM>(structure));
  }

  template <class Item>
  void FillItem(Item* item, const ListRows& rows) const {
    const auto row = static_cast<std::size_t>(item->iItem);
    if (row >= rows.Count()) return;
    if (item->mask & LVIF_TEXT) {
      // The list may go on looking at a text until it has asked twice more.
      String& kept = kept_[next_++ % kept_.size()];
      kept = Form::Native(rows.CellText(row, item->iSubItem));
      item->pszText = kept.data();
    }
    if (item->mask & LVIF_IMAGE) item->iImage = rows.Image(row);
    if (item->mask & LVIF_STATE) item->state = rows.State(row);
  }

  // A text in neither form takes more places than it has bytes.
  template <class Tip>
  static void FillTip(Tip* tip, const ListRows& rows) {
    const auto row = static_cast<std::size_t>(tip->iItem);
    if (row >= rows.Count() || tip->cchTextMax < 1) return;
    const std::string text = rows.Tip(row);
    const auto room = static_cast<std::size_t>(tip->cchTextMax - 1);
    const String native = Form::Native(WholeCharacters(text, room));
    std::copy_n(native.c_str(), native.size() + 1, tip->pszText);
  }

  mutable std::array<String, 4> kept_;
  mutable std::size_t next_ = 0;
};

}  // namespace scourwell
