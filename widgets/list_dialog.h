// SPDX-License-Identifier: MIT
#pragma once

#include <initializer_list>

#include "widgets/button.h"
#include "widgets/header_pane.h"
#include "widgets/label.h"
#include "widgets/modal_window.h"

namespace scourwell {

// A dialog with a header, one list and a row of buttons below it. While the list is empty a text in
// its middle says so.
class ListDialog : public ModalWindow {
 protected:
  struct Ids {
    int header;
    int heading;
    int text;
    int empty;
  };

  ListDialog(const WindowEnv& env, const char* name, Ids ids)
      : ModalWindow(env, name),
        ids_(ids),
        header_(env, HeaderPane::Size::Small, {ids.heading, ids.text, 0}) {}

  // Before the list is made, so that the text lies above it.
  void CreateHeader(const std::string& heading, const std::string& empty);
  // `right` from the right end on.
  void Arrange(Area area, const Control& list, std::initializer_list<const Button*> left,
               std::initializer_list<const Button*> right);
  void SetHeaderText(const std::string& text) { header_.SetText(text); }
  bool MayResize() const override { return true; }
  void ShowEmpty(bool empty) { lblEmpty_.Show(empty); }
  void SetEmptyText(const std::string& text) { lblEmpty_.SetText(text); }

  LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;

 private:
  Ids ids_;
  HeaderPane header_;
  Label lblEmpty_;
};

}  // namespace scourwell
