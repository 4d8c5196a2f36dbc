// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "widgets/subclassed_control.h"

namespace scourwell {

// A tree view with check boxes whose ticks live in a model. The control never toggles a box
// itself: a click on one, the space bar and ticks set from outside all end in `on_check`, and the
// owner mirrors the model back.
class CheckTreeView : public SubclassedControl {
 public:
  // `number`: what the node was added with.
  std::function<void(std::size_t number, bool checked)> on_check;

  void Create(const WindowEnv& env, HWND parent, int id);
  void SetImages(HIMAGELIST images) const {
    Send(TVM_SETIMAGELIST, TVSIL_NORMAL, reinterpret_cast<LPARAM>(images));
  }
  void Clear() const { Send(TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(TVI_ROOT)); }
  HTREEITEM Add(HTREEITEM parent, const std::string& text, int image, std::size_t number) const;
  void Expand(HTREEITEM item) const {
    Send(TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(item));
  }
  void EnsureVisible(HTREEITEM item) const {
    Send(TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(item));
  }
  int Indent() const { return static_cast<int>(Send(TVM_GETINDENT)); }
  void SelectItem(HTREEITEM item) const {
    Send(TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(item));
  }
  HTREEITEM SelectedItem() const {
    return reinterpret_cast<HTREEITEM>(Send(TVM_GETNEXTITEM, TVGN_CARET));
  }
  void SetChecked(HTREEITEM item, bool checked) const;
  bool IsChecked(HTREEITEM item) const;

 protected:
  LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;

 private:
  void Check(HTREEITEM item, bool checked) const;
  bool ClickBox(POINT at) const;
  void PressSpace() const;
  bool SetState(const TVITEMW& item) const;
};

}  // namespace scourwell
