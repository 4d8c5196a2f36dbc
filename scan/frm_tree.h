// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "scan/scan_scope.h"
#include "widgets/check_tree_view.h"
#include "widgets/label.h"
#include "widgets/pane.h"

namespace scourwell {

// The scan scope tree. The ticks live in the scope; the control mirrors them.
class frmTree : public Pane {
 public:
  frmTree(const WindowEnv& env, ScanScope& scope) : Pane(env, "frmTree"), scope_(scope) {}

  // Shows the nodes of the scope anew.
  void FillTree();
  void Enable(bool enabled) { TreeView1_.Enable(enabled); }
  int Width() const;
  void Destroy() { DestroyWindow(hwnd()); }

 private:
  void OnCreate() override;
  void OnSize(Area area) override;

  HTREEITEM AddNode(std::size_t number);
  int WidthOf(std::size_t number) const;
  void Mirror();

  ScanScope& scope_;
  Label lblSection_;
  CheckTreeView TreeView1_;
  ImageListHandle images_;
  std::vector<HTREEITEM> items_;   // by node number less one
  std::vector<std::string> keys_;  // of their nodes
  int texts_width_ = 0;
};

}  // namespace scourwell
