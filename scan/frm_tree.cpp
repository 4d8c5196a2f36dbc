// SPDX-License-Identifier: MIT
#include "scan/frm_tree.h"

#include <algorithm>

#include "widgets/image_list.h"
#include "widgets/layout.h"
#include "widgets/resource.h"

namespace scourwell {
namespace {

// The pictures of the fixed nodes come in the order of their numbers, those of drives follow.
int ScopePicture(const ScanScope& scope, std::size_t number) {
  if (!scope.IsDrive(number)) return static_cast<int>(number) - 1;
  switch (scope.node(number).drive) {
    case DriveKind::Removable:
      return 7;
    case DriveKind::Network:
      return 9;
    default:
      return 8;
  }
}

}  // namespace

// So wide that its texts are whole, within limits.
int frmTree::Width() const {
  return std::clamp(texts_width_, metrics().Scale(196), metrics().Scale(230));
}

void frmTree::OnCreate() {
  lblSection_.Create(env_, hwnd(), IDC_lblSection);
  lblSection_.SetFont(metrics().bold());
  TreeView1_.Create(env_, hwnd(), IDC_TreeView1);
  images_ = LoadScaledImageList(env_, IDB_Scope16, 16);
  TreeView1_.SetImages(images_.get());
  TreeView1_.on_check = [this](std::size_t number, bool ticked) {
    scope_.SetTicked(number, ticked);
    Mirror();
  };
}

void frmTree::OnSize(Area area) {
  Layout layout;
  const int margin = metrics().Gap();
  Area inner = area.Shrunk(margin, margin);
  inner.right = area.right - metrics().Scale(2);
  layout.Place(lblSection_, inner.CutTop(metrics().LineHeight(metrics().bold())));
  inner.CutTop(metrics().Scale(5));
  layout.Place(TreeView1_, inner);
}

void frmTree::FillTree() {
  lblSection_.SetText(Text(Caption::ScanSections));
  TreeView1_.SetName(Text(Caption::ScanSections));
  // What the keyboard was at stays, when drives come and go as well.
  const auto selected = std::ranges::find(items_, TreeView1_.SelectedItem());
  const std::string key =
      selected == items_.end() ? "" : keys_[static_cast<std::size_t>(selected - items_.begin())];
  TreeView1_.Clear();
  items_.clear();
  keys_.clear();
  texts_width_ = 0;
  for (std::size_t i = 1; i <= scope_.count(); ++i) {
    items_.push_back(AddNode(i));
    keys_.push_back(scope_.node(i).key);
    texts_width_ = std::max(texts_width_, WidthOf(i));
  }
  for (HTREEITEM item : items_) TreeView1_.Expand(item);
  Mirror();
  const auto same = std::ranges::find(keys_, key);
  const std::size_t at = same == keys_.end() ? 0 : static_cast<std::size_t>(same - keys_.begin());
  TreeView1_.EnsureVisible(items_.front());
  TreeView1_.SelectItem(items_[at]);
  TreeView1_.EnsureVisible(items_[at]);
}

HTREEITEM frmTree::AddNode(std::size_t number) {
  const ScanScope::Node& node = scope_.node(number);
  HTREEITEM parent = node.parent == 0 ? nullptr : items_[node.parent - 1];
  return TreeView1_.Add(parent, node.text, ScopePicture(scope_, number), number);
}

// Of the tree, for the text of one node: steps, box, picture and frame come to it.
int frmTree::WidthOf(std::size_t number) const {
  int steps = 2;  // the root's, and as much for the box
  for (std::size_t up = number; (up = scope_.node(up).parent) != 0;) ++steps;
  return metrics().TextWidth(scope_.node(number).text) + steps * TreeView1_.Indent() +
         16 * metrics().PictureFactor() + metrics().Gap() + metrics().Scale(10);
}

void frmTree::Mirror() {
  for (std::size_t i = 0; i < items_.size(); ++i) {
    TreeView1_.SetChecked(items_[i], scope_.ticked(i + 1));
  }
}

}  // namespace scourwell
