// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>
#include <commctrl.h>

#include <optional>
#include <string>

namespace scourwell {

// What a list without rows of its own shows. It asks while it draws.
class ListRows {
 public:
  virtual std::size_t Count() const = 0;
  virtual std::string CellText(std::size_t row, int column) const = 0;
  virtual int Image(std::size_t row) const = 0;
  virtual UINT State(std::size_t row) const = 0;
  virtual std::string Tip(std::size_t row) const = 0;

 protected:
  ~ListRows() = default;
};

// Messages that have one number in either family. Their texts go through WindowCalls::SendText, or
// their structures are asked for nothing but what both forms have at the same place.
struct ControlMessages {
  UINT header_get;
  UINT header_set;
  UINT list_text_width;
  UINT status_text;
  UINT tree_get;
  UINT tree_set;
  UINT tree_set_other;  // in the form of the other family, which other programs may send
};

// A box for long texts to read. Newer ones count the end of a line as one character.
struct RichBox {
  const char* library;
  const char* window_class;
  bool short_line_ends;
};

// The common controls' calls with texts, in the form of the family that runs.
class ControlCalls : public ControlMessages {
 public:
  explicit ControlCalls(const ControlMessages& messages) : ControlMessages(messages) {}
  ControlCalls(const ControlCalls&) = delete;
  ControlCalls& operator=(const ControlCalls&) = delete;
  virtual ~ControlCalls() = default;

  virtual void AddColumn(HWND list, int index, const std::string& text, int width) const = 0;
  // The answer to a list that asks for its rows; none when it tells something else.
  virtual std::optional<LRESULT> Answer(NMHDR* header, const ListRows& rows) const = 0;
  virtual HTREEITEM AddItem(HWND tree, HTREEITEM parent, const std::string& text, int image,
                            LPARAM number) const = 0;
  virtual void AddTab(HWND tabs, int index, const std::string& text) const = 0;
  // Without a text the control has no tip.
  virtual void SetTip(HWND tips, HWND control, const std::string& text) const = 0;

  virtual RichBox Rich() const = 0;
};

const ControlCalls& Controls();

}  // namespace scourwell
