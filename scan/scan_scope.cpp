#include "scan/scan_scope.h"

namespace scourwell {
namespace {

struct FixedNode {
  int caption;
  const char* key;
  std::size_t parent;
};

constexpr FixedNode kFixedNodes[] = {
    {1901, "MyComputer", 0},
    {1902, "ScanMemory", ScanScope::kMyComputer},
    {1903, "ScanRegistry", ScanScope::kMyComputer},
    {1907, "ScanCookie", ScanScope::kMyComputer},
    {1904, "ScanDrives", ScanScope::kMyComputer},
    {1905, "QuickScan", ScanScope::kScanRegistry},
    {1906, "DeepScan", ScanScope::kScanRegistry},
};

// The caption of a drive's type; 0 for drives that are not scanned.
int DriveCaption(DriveKind kind) {
  switch (kind) {
    case DriveKind::Removable:
      return 1908;
    case DriveKind::Fixed:
      return 1909;
    case DriveKind::Network:
      return 1910;
    default:
      return 0;
  }
}

std::string DriveText(char letter, DriveKind kind, const Captions& captions) {
  return std::string(1, letter) + ": " + captions.Text(DriveCaption(kind));
}

}  // namespace

void ScanScope::FillTree(const Captions& captions, const std::vector<Drive>& drives) {
  nodes_.clear();
  for (const FixedNode& fixed : kFixedNodes) {
    nodes_.push_back({captions.Text(fixed.caption), fixed.key, fixed.parent});
  }
  for (const Drive& drive : drives) {
    if (DriveCaption(drive.kind) == 0) continue;
    nodes_.push_back({DriveText(drive.letter, drive.kind, captions),
                      std::string(1, drive.letter) + ":\\", kScanDrives, drive.kind});
  }
  SetTicked(kMyComputer, true);
}

void ScanScope::Rename(const Captions& captions) {
  for (std::size_t i = 0; i < nodes_.size(); ++i) {
    Node& node = nodes_[i];
    node.text = i < kDeepScan ? captions.Text(kFixedNodes[i].caption)
                              : DriveText(node.key.front(), node.drive, captions);
  }
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
