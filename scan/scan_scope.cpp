// SPDX-License-Identifier: MIT
#include "scan/scan_scope.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace scourwell {
namespace {

struct FixedNode {
  Caption caption;
  const char* key;
  std::size_t parent;
};

constexpr FixedNode kFixedNodes[] = {
    {Caption::MyComputer, "MyComputer", 0},
    {Caption::ScanMemory, "ScanMemory", ScanScope::kMyComputer},
    {Caption::ScanRegistry, "ScanRegistry", ScanScope::kMyComputer},
    {Caption::ScanCookies, "ScanCookie", ScanScope::kMyComputer},
    {Caption::ScanDrives, "ScanDrives", ScanScope::kMyComputer},
    {Caption::QuickScan, "QuickScan", ScanScope::kScanRegistry},
    {Caption::DeepScan, "DeepScan", ScanScope::kScanRegistry},
};

// The caption of a drive's type; none for drives that are not scanned.
std::optional<Caption> DriveCaption(DriveKind kind) {
  switch (kind) {
    case DriveKind::Removable:
      return Caption::DriveRemovable;
    case DriveKind::Fixed:
      return Caption::DriveFixed;
    case DriveKind::Network:
      return Caption::DriveNetwork;
    default:
      return std::nullopt;
  }
}

std::string DriveText(char letter, DriveKind kind, const Captions& captions) {
  return std::string(1, letter) + ": " + captions.Text(DriveCaption(kind).value());
}

}  // namespace

void ScanScope::FillTree(const Captions& captions, const std::vector<Drive>& drives) {
  Build(captions, drives);
  SetTicked(kMyComputer, true);
}

void ScanScope::Build(const Captions& captions, const std::vector<Drive>& drives) {
  nodes_.clear();
  for (const FixedNode& fixed : kFixedNodes) {
    nodes_.push_back({captions.Text(fixed.caption), fixed.key, fixed.parent});
  }
  for (const Drive& drive : drives) {
    if (!DriveCaption(drive.kind)) continue;
    nodes_.push_back({DriveText(drive.letter, drive.kind, captions),
                      std::string(1, drive.letter) + ":\\", kScanDrives, drive.kind});
  }
}

bool ScanScope::Refill(const Captions& captions, const std::vector<Drive>& drives) {
  const std::vector<Node> old = std::move(nodes_);
  Build(captions, drives);
  std::size_t kept = 0;
  for (Node& node : nodes_) {
    const auto same = std::find_if(old.begin(), old.end(), [&](const Node& other) {
      return other.key == node.key && other.drive == node.drive;
    });
    kept += same != old.end();
    node.ticked = same == old.end() ? old[kScanDrives - 1].ticked : same->ticked;
  }
  // The last drive that was ticked may have gone.
  if (kept < old.size() && !AnyChildTicked(kScanDrives)) SetTicked(kScanDrives, false);
  return kept != old.size() || kept != nodes_.size();
}

void ScanScope::SetTicked(std::size_t number, bool ticked) {
  nodes_[number - 1].ticked = ticked;
  TickBelow(number, ticked);
  for (std::size_t parent = node(number).parent; parent != 0; parent = node(parent).parent) {
    if (!ticked && AnyChildTicked(parent)) break;
    nodes_[parent - 1].ticked = ticked;
  }
}

void ScanScope::TickBelow(std::size_t number, bool ticked) {
  for (std::size_t i = 1; i <= nodes_.size(); ++i) {
    if (node(i).parent != number) continue;
    nodes_[i - 1].ticked = ticked;
    TickBelow(i, ticked);
  }
}

bool ScanScope::AnyChildTicked(std::size_t number) const {
  for (const Node& node : nodes_) {
    if (node.parent == number && node.ticked) return true;
  }
  return false;
}

bool ScanScope::AnythingTicked() const {
  for (std::size_t i = kMyComputer + 1; i <= nodes_.size(); ++i) {
    if (ticked(i)) return true;
  }
  return false;
}

}  // namespace scourwell
