// SPDX-License-Identifier: MIT

// What the fake file system does with opened items, and with folders that are closed to users.
#include "text/paths.h"

#include "tests/fake/fake_machine.h"

namespace scourwell::test {

// Found again by its number: its path may lead elsewhere by now.
class FakeItem : public OpenedItem {
 public:
  FakeItem(FakeFiles& files, std::string path, const Node& node)
      : files_(files), path_(std::move(path)), attributes_(node.attributes), id_(node.id) {}

  const std::string& true_path() const override { return path_; }
  std::uint32_t attributes() const override { return attributes_; }
  bool IsHeld() const override {
    const Found found = Find();
    return found.node && (found.node->locked || found.node->holds > 0);
  }
  Outcome Erase() override {
    if (const ErrorCode fault = files_.BeginChange("Erase " + path_)) {
      return Outcome::Failed(fault);
    }
    const Found found = Find();
    if (!found.node) return Outcome::Failed(kFileNotFound);
    if (found.node->error && !found.node->IsFolder()) return Outcome::Failed(found.node->error);
    return files_.EraseNode(found.folder, *found.node);
  }
  Outcome MoveTo(const std::string& path) override {
    if (const ErrorCode fault = files_.BeginChange("Move " + path_ + " > " + path)) {
      return Outcome::Failed(fault);
    }
    const Found found = Find();
    if (!found.node) return Outcome::Failed(kFileNotFound);
    return files_.MoveNode(found.folder, found.node, path);
  }

 private:
  struct Found {
    Node* folder = nullptr;
    Node* node = nullptr;
  };

  Found Find() const {
    for (auto& [letter, volume] : files_.volumes_) {
      if (const Found found = FindIn(&volume.root); found.node) return found;
    }
    return {};
  }
  Found FindIn(Node* folder) const {
    for (const auto& child : folder->children) {
      if (child->id == id_) return {folder, child.get()};
      if (const Found found = FindIn(child.get()); found.node) return found;
    }
    return {};
  }

  FakeFiles& files_;
  std::string path_;
  std::uint32_t attributes_;
  std::uint64_t id_;
};

void FakeFiles::AddSecondLetter(char letter, DriveKind kind, const std::string& folder,
                                const std::string& true_root) {
  AddDrive(letter, kind, true);
  volumes_[letter].leads_to = folder;
  volumes_[letter].true_root = true_root;
}

Outcome FakeFiles::EraseNode(Node* folder, const Node& node) {
  if (!folder || node.holds > 0 || node.locked || node.running) {
    return Outcome::Failed(kPermissionDenied);
  }
  if (node.IsFolder() && !node.IsLink() && !node.children.empty()) {
    return Outcome::Failed(kPathFileAccess);
  }
  Erase(folder, &node);
  return {};
}

Outcome FakeFiles::OpenItem(const std::string& path, std::unique_ptr<OpenedItem>* item) {
  if (before_open) before_open(path);
  if (const ErrorCode fault = Begin("OpenItem " + path)) return Outcome::Failed(fault);
  const Place place = Walk(path, false);
  if (!place.node) return Outcome::Failed(place.error);
  *item = std::make_unique<FakeItem>(*this, knows_links ? place.true_path : path, *place.node);
  return {};
}

Outcome FakeFiles::Identify(const std::string& path, FileId* id) {
  if (const ErrorCode fault = port_faults ? port_faults->Next() : ErrorCode()) {
    return Outcome::Failed(fault);
  }
  const Place place = Walk(path, false);
  if (!place.node) {
    return Outcome::Failed(place.error == kPathNotFound ? ErrorCode(kFileNotFound) : place.error);
  }
  const bool on_server = place.true_path.starts_with("\\\\");
  *id = {place.volume, knows_links && !on_server ? place.node->id : 0};
  return {};
}

Outcome FakeFiles::CreateGuardedFolder(const std::string& path) {
  return knows_links ? CreateFolder(path) : Outcome::Failed(kInvalidCall);
}

bool FakeFiles::IsGuarded(const std::string& folder) {
  const Place place = Walk(folder, false);
  return place.node && !place.node->open_to_users;
}

}  // namespace scourwell::test
