// SPDX-License-Identifier: MIT
#include <algorithm>

#include "text/paths.h"

#include "tests/fake/fake_machine.h"

namespace scourwell::test {
namespace {

constexpr std::size_t kLongestPath = 32'000;

bool HasWildcard(std::string_view text) { return text.find_first_of("*?") != text.npos; }

// The parts below the drive as they stand; doubled "\" count once. None for a path with "." or
// "..".
std::optional<std::vector<std::string>> SplitPath(std::string_view path) {
  std::vector<std::string> parts;
  path.remove_prefix(std::min<std::size_t>(path.size(), 2));
  while (!path.empty()) {
    const std::string_view part = TakePart(&path);
    if (part == "." || part == "..") return std::nullopt;
    if (!part.empty()) parts.emplace_back(part);
  }
  return parts;
}

// Drives go by their letter in either case.
char Letter(const std::string& path) { return path.empty() ? '\0' : Upper(path.substr(0, 1))[0]; }

}  // namespace

Node* Node::Child(std::string_view part) const {
  for (const auto& child : children) {
    if (child->showings == 0) continue;
    if (EqualsNoCase(child->name, part) || EqualsNoCase(child->short_name, part)) {
      return child.get();
    }
  }
  return nullptr;
}

DirEntry Node::Entry() const {
  return {name,     short_name, attributes, IsFolder() ? 0 : content.size(),
          modified, accessed,   created};
}

void FakeFiles::AddDrive(char letter, DriveKind kind, bool ready) {
  Volume& volume = volumes_[letter];
  volume.drive = {letter, kind};
  volume.ready = ready;
  volume.root.attributes = kFolder;
  volume.root.id = ++ids_;
}

Node& FakeFiles::Put(const std::string& path, std::uint32_t attributes) {
  Node* node = &volumes_.at(path.front()).root;
  const std::vector<std::string> parts = SplitPath(path).value();
  for (std::size_t i = 0; i < parts.size(); ++i) {
    Node* child = node->Child(parts[i]);
    if (!child) {
      auto made = std::make_unique<Node>();
      made->name = parts[i];
      made->short_name = NewShortName(*node, parts[i]);
      made->attributes = i + 1 == parts.size() ? attributes : std::uint32_t{kFolder};
      made->id = ++ids_;
      made->modified = made->accessed = made->created = NextTime();
      child = made.get();
      node->children.push_back(std::move(made));
    }
    node = child;
  }
  return *node;
}

void FakeFiles::Erase(Node* folder, const Node* node) {
  std::erase_if(folder->children, [&](const auto& child) { return child.get() == node; });
}

void FakeFiles::Remove(const std::string& path) {
  const Place place = Walk(path, false);
  if (place.node) Erase(place.folder, place.node);
}

Node* FakeFiles::Find(const std::string& path) { return Walk(path, false).node; }

std::size_t FakeFiles::Count(std::string_view beginning) const {
  return static_cast<std::size_t>(
      std::count_if(journal.begin(), journal.end(),
                    [&](const std::string& call) { return call.starts_with(beginning); }));
}

ErrorCode FakeFiles::Begin(const std::string& call) {
  journal.push_back(call);
  if (const ErrorCode fault = port_faults ? port_faults->Next() : ErrorCode()) return fault;
  const auto fault = faults.find(call);
  return fault == faults.end() ? ErrorCode() : fault->second;
}

ErrorCode FakeFiles::BeginChange(const std::string& call) {
  if (before_change) before_change();
  if (++changes == failing_change) {
    journal.push_back("Failing " + call);
    return change_error;
  }
  return Begin(call);
}

FakeFiles::Place FakeFiles::Walk(const std::string& path, bool follow_last, int links_left) {
  Place place;
  const auto volume = volumes_.find(Letter(path));
  const std::optional<std::vector<std::string>> split = SplitPath(path);
  if (path.size() > kLongestPath || volume == volumes_.end() || path.substr(1, 1) != ":" ||
      links_left == 0 || !split) {
    place.error = kPathNotFound;
    return place;
  }
  if (!volume->second.ready) {
    place.error = kDiskNotReady;
    return place;
  }
  place.node = &volume->second.root;
  place.short_path = place.true_path = path.substr(0, 2);
  place.volume = static_cast<std::uint32_t>(Letter(path));
  if (const Volume& second = volume->second; !second.leads_to.empty()) {
    const Place behind = Walk(second.leads_to, true, links_left - 1);
    place.node = behind.node;
    place.true_path = second.true_root;
    place.volume = behind.volume;
  }
  const std::vector<std::string>& parts = *split;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const bool last = i + 1 == parts.size();
    place.folder = place.node;
    place.name = parts[i];
    place.node = place.folder->IsFolder() && !HasWildcard(parts[i]) ? place.folder->Child(parts[i])
                                                                    : nullptr;
    if (!place.node) {
      place.error = last && place.folder->IsFolder() ? kFileNotFound : kPathNotFound;
      return place;
    }
    const std::string& name = place.node->short_name;
    place.short_path += "\\" + (name.empty() ? place.node->name : name);
    place.true_path += "\\" + place.node->name;
    if (place.node->IsLink() && (!last || follow_last)) {
      Place target = Walk(place.node->target, true, links_left - 1);
      place.node = target.node;
      place.true_path = target.true_path;
      place.volume = target.volume;
      if (!place.node) {
        place.error = kPathNotFound;
        return place;
      }
    }
  }
  if (parts.empty()) place.short_path += "\\";
  if (place.true_path.size() == 2) place.true_path += "\\";
  return place;
}

Outcome FakeFiles::List(const std::string& pattern, const Visit& visit) {
  if (const ErrorCode fault = Begin("List " + pattern)) return Outcome::Failed(fault);
  const std::size_t slash = pattern.rfind('\\');
  if (pattern.size() > kLongestPath || slash == pattern.npos) {
    return Outcome::Failed(kPathNotFound);
  }
  Place place = Walk(pattern.substr(0, slash), true);
  if (place.error == kDiskNotReady) return Outcome::Failed(kDiskNotReady);
  if (!place.node || !place.node->IsFolder()) return Outcome::Failed(kPathNotFound);
  if (place.node->error) return Outcome::Failed(place.node->error);
  const std::string last = pattern.substr(slash + 1);
  std::vector<DirEntry> found;
  for (const auto& child : place.node->children) {
    if (child->showings == 0) continue;
    if (!ListingMatches(last, child->name) &&
        (child->short_name.empty() || !ListingMatches(last, child->short_name))) {
      continue;
    }
    if (child->showings > 0) --child->showings;
    found.push_back(child->Entry());
  }
  for (const DirEntry& entry : found) {
    if (!visit(entry)) break;
  }
  return {};
}

Outcome FakeFiles::Stat(const std::string& path, DirEntry* entry) {
  if (const ErrorCode fault = Begin("Stat " + path)) return Outcome::Failed(fault);
  const Place place = Walk(path, false);
  if (!place.node) {
    const bool absent = place.error == kPathNotFound && path.size() <= kLongestPath;
    return Outcome::Failed(absent ? kFileNotFound : place.error);
  }
  *entry = place.node->Entry();
  if (!place.folder) entry->name = path;  // a root has no entry of its own
  return {};
}

Outcome FakeFiles::Open(const std::string& path, const std::string** content) {
  const Place place = Walk(path, true);
  if (!place.node) return Outcome::Failed(place.error);
  if (place.node->error) return Outcome::Failed(place.node->error);
  if (place.node->IsFolder() || place.node->locked) return Outcome::Failed(kPermissionDenied);
  *content = &place.node->content;
  return {};
}

Outcome FakeFiles::Read(const std::string& path, std::uint64_t limit, std::string* content) {
  if (const ErrorCode fault = Begin("Read " + path)) return Outcome::Failed(fault);
  const std::string* found = nullptr;
  if (Outcome opened = Open(path, &found); !opened.ok()) return opened;
  if (found->size() > limit) return Outcome::Failed(kOutOfMemory);
  *content = *found;
  return {};
}

Outcome FakeFiles::ReadBlocks(const std::string& path, const VisitBlock& visit) {
  if (const ErrorCode fault = Begin("ReadBlocks " + path)) return Outcome::Failed(fault);
  const std::string* found = nullptr;
  if (Outcome opened = Open(path, &found); !opened.ok()) return opened;
  const std::string content = *found;  // the visit may change the file
  for (std::size_t at = 0; at < content.size(); at += kBlockSize) {
    if (!visit(std::string_view(content).substr(at, kBlockSize))) break;
  }
  return {};
}

Outcome FakeFiles::Write(const std::string& path, const std::function<void(Node&)>& change) {
  Place place = Walk(path, true);
  if (!place.node && place.error != kFileNotFound) return Outcome::Failed(place.error);
  if (HasWildcard(place.name)) return Outcome::Failed(kBadFileName);
  if (!place.folder || place.folder->refuses) return Outcome::Failed(kPermissionDenied);
  if (place.node) {
    if (place.node->error) return Outcome::Failed(place.node->error);
    if (place.node->IsFolder() || place.node->locked || place.node->attributes & kReadOnly) {
      return Outcome::Failed(kPermissionDenied);
    }
  } else {
    place.node = &Put(path, kArchive);
  }
  change(*place.node);
  place.node->modified = place.node->accessed = NextTime();
  return {};
}

Outcome FakeFiles::Append(const std::string& path, std::string_view text) {
  if (const ErrorCode fault = BeginChange("Append " + path)) return Outcome::Failed(fault);
  return Write(path, [&](Node& node) { node.content.append(text); });
}

Outcome FakeFiles::Replace(const std::string& path, std::string_view text) {
  if (const ErrorCode fault = BeginChange("Replace " + path)) return Outcome::Failed(fault);
  return Write(path, [&](Node& node) { node.content = text; });
}

Outcome FakeFiles::EraseFile(const std::string& path) {
  if (const ErrorCode fault = BeginChange("Erase " + path)) return Outcome::Failed(fault);
  const Place place = Walk(path, false);
  if (!place.node) return Outcome::Failed(place.error);
  if (place.node->error) return Outcome::Failed(place.node->error);
  if (place.node->IsFolder() || place.node->attributes & kReadOnly) {
    return Outcome::Failed(kPermissionDenied);
  }
  return EraseNode(place.folder, *place.node);
}

std::string FakeFiles::ShortPath(const std::string& path) {
  journal.push_back("ShortPath " + path);
  const Place place = Walk(path, false);
  return place.node ? place.short_path : std::string();
}

std::vector<Drive> FakeFiles::Drives() {
  std::vector<Drive> drives;
  for (const auto& [letter, volume] : volumes_) drives.push_back(volume.drive);
  return drives;
}

bool FakeFiles::IsReady(const std::string& root) {
  const auto volume = volumes_.find(Letter(root));
  return volume != volumes_.end() && volume->second.ready;
}

}  // namespace scourwell::test
