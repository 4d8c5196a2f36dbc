#pragma once

#include "widgets/list_view.h"

namespace scourwell {

// A virtual list view of whole rows, of which one can be selected.
class RowListView : public ListView {
 public:
  void Create(const WindowEnv& env, HWND parent, int id) {
    CreateHandle(env, parent, WC_LISTVIEWA,
                 WS_TABSTOP | WS_CLIPSIBLINGS | LVS_REPORT | LVS_OWNERDATA | LVS_SHOWSELALWAYS |
                     LVS_SINGLESEL,
                 WS_EX_CLIENTEDGE, id);
    SetExtendedStyle(LVS_EX_FULLROWSELECT);
    Subclass(env, "RowListView");
  }
};

}  // namespace scourwell
