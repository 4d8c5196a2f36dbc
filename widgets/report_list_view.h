// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/list_view.h"

namespace scourwell {

// A virtual list view in report style, one row selected at a time.
class ReportListView : public ListView {
 public:
  void Create(const WindowEnv& env, HWND parent, int id) {
    CreateHandle(env, parent, "SysListView32",
                 WS_TABSTOP | WS_CLIPSIBLINGS | LVS_REPORT | LVS_OWNERDATA | LVS_SHOWSELALWAYS |
                     LVS_SINGLESEL | LVS_SHAREIMAGELISTS,
                 WS_EX_CLIENTEDGE, id);
    SetExtendedStyle(LVS_EX_FULLROWSELECT | (row_tip ? LVS_EX_INFOTIP : 0));
    SetRowHeight(env.metrics.RowHeight());
    Subclass(env, "ReportListView");
  }
  // -1: none.
  int Selected() const { return NextSelected(-1); }
};

}  // namespace scourwell
