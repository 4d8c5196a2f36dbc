// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <vector>

#include "widgets/list_view.h"

namespace scourwell {

// A virtual list view with check boxes whose marks live in a model. A virtual list keeps no marks
// of its own, so a click on a box, the space bar and marks set from outside all end in `on_check`,
// and the owner answers with the marks when the list asks for them.
class CheckListView : public ListView {
 public:
  std::function<void(const std::vector<std::size_t>& rows, bool checked)> on_check;
  std::function<bool(int row)> is_checked;

  void Create(const WindowEnv& env, HWND parent, int id);

 protected:
  LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;
  UINT State(std::size_t row) const override {
    return INDEXTOSTATEIMAGEMASK(is_checked(static_cast<int>(row)) ? 2u : 1u);
  }

 private:
  bool ClickBox(POINT at);
  void PressSpace();
  bool SetState(int row, const LVITEMW& item);
};

}  // namespace scourwell
