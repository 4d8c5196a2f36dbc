// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/list_view.h"

namespace scourwell {

// A virtual list view in report style. One row is selected at a time, or several.
class ReportListView : public ListView {
 public:
  void Create(const WindowEnv& env, HWND parent, int id, bool several = false) {
    CreateHandle(env, parent, "SysListView32",
                 WS_TABSTOP | WS_CLIPSIBLINGS | LVS_REPORT | LVS_OWNERDATA | LVS_SHOWSELALWAYS |
                     LVS_SHAREIMAGELISTS | (several ? 0 : LVS_SINGLESEL),
                 WS_EX_CLIENTEDGE, id);
    SetExtendedStyle(LVS_EX_FULLROWSELECT | (row_tip ? LVS_EX_INFOTIP : 0));
    SetRowHeight(env.metrics.RowHeight());
    Subclass(env, "ReportListView");
  }
  // The first of them; -1: none.
  int Selected() const { return NextSelected(-1); }
};

}  // namespace scourwell
