// SPDX-License-Identifier: MIT

// What the fake file system does with streams, folders, names, attributes and times.
#include <algorithm>

#include "tests/fake/fake_machine.h"

namespace scourwell::test {
namespace {

constexpr std::uint32_t kSettable = kReadOnly | kHidden | kSystem | kArchive;

bool IsShortForm(const std::string& name) {
  const std::size_t dot = name.find('.');
  const std::size_t extension = dot == name.npos ? 0 : name.size() - dot - 1;
  return dot != 0 && std::min(dot, name.size()) <= 8 && extension <= 3 && dot == name.rfind('.') &&
         name.find_first_of(" ?+,;=[]") == name.npos;
}

class FakeReader : public FileReader {
 public:
  explicit FakeReader(std::string content) : content_(std::move(content)) {}

  std::uint64_t size() const override { return content_.size(); }
  Outcome ReadAt(std::uint64_t offset, char* bytes, std::size_t count,
                 std::size_t* filled) override {
    const auto begin = static_cast<std::size_t>(std::min<std::uint64_t>(offset, content_.size()));
    *filled = content_.copy(bytes, count, begin);
    return {};
  }

 private:
  std::string content_;
};

class FakeHold : public FolderHold {
 public:
  explicit FakeHold(int* holds) : holds_(holds) { ++*holds_; }
  ~FakeHold() override { --*holds_; }

 private:
  int* holds_;
};

}  // namespace

std::string FakeFiles::NewShortName(const Node& folder, const std::string& name) const {
  if (!short_names || IsShortForm(name)) return {};
  const std::size_t dot = name.rfind('.');
  const auto squeeze = [](std::string_view text, std::size_t most) {
    std::string result;
    for (const char c : Upper(text)) {
      const bool kept = std::string_view(" .?").find(c) == std::string_view::npos;
      if (kept) result += static_cast<unsigned char>(c) < 0x80 ? c : '_';
    }
    return result.substr(0, most);
  };
  const std::string stem = squeeze(dot == 0 ? name : name.substr(0, dot), 6);
  std::string extension = dot == name.npos || dot == 0 ? "" : squeeze(name.substr(dot + 1), 3);
  if (!extension.empty()) extension.insert(0, ".");
  for (int number = 1;; ++number) {
    const std::string tail = "~" + std::to_string(number);
    std::string candidate = stem.substr(0, 8 - tail.size()) + tail + extension;
    if (!folder.Child(candidate)) return candidate;
  }
}

class FakeWriter : public FileWriter {
 public:
  FakeWriter(FakeFiles& files, std::string path) : files_(files), path_(std::move(path)) {}

  Outcome Write(std::string_view bytes) override {
    if (const ErrorCode fault = files_.BeginChange("Write " + path_)) return Outcome::Failed(fault);
    if (bytes.size() > files_.free_space) return Outcome::Failed(kDiskFull);
    files_.free_space -= bytes.size();
    content_ += bytes;
    return {};
  }
  Outcome Commit() override {
    if (const ErrorCode fault = files_.BeginChange("Commit " + path_)) {
      return Outcome::Failed(fault);
    }
    return files_.Write(path_, [&](Node& node) { node.content = content_; });
  }

 private:
  FakeFiles& files_;
  std::string path_;
  std::string content_;
};

Outcome FakeFiles::OpenReader(const std::string& path, std::unique_ptr<FileReader>* reader) {
  if (const ErrorCode fault = Begin("OpenReader " + path)) return Outcome::Failed(fault);
  const std::string* found = nullptr;
  if (Outcome opened = Open(path, &found); !opened.ok()) return opened;
  *reader = std::make_unique<FakeReader>(*found);
  return {};
}

Outcome FakeFiles::OpenWriter(const std::string& path, std::unique_ptr<FileWriter>* writer) {
  if (const ErrorCode fault = BeginChange("OpenWriter " + path)) return Outcome::Failed(fault);
  const Place place = Walk(path.substr(0, path.rfind('\\')) + "\\", true);
  if (!place.node || !place.node->IsFolder()) return Outcome::Failed(kPathNotFound);
  if (place.node->refuses) return Outcome::Failed(kPermissionDenied);
  *writer = std::make_unique<FakeWriter>(*this, path);
  return {};
}

Outcome FakeFiles::CreateFolder(const std::string& path) {
  if (const ErrorCode fault = BeginChange("CreateFolder " + path)) return Outcome::Failed(fault);
  const Place place = Walk(path, false);
  if (place.node) return Outcome::Failed(kFileExists);
  if (place.error != kFileNotFound) return Outcome::Failed(place.error);
  if (place.folder->refuses) return Outcome::Failed(kPermissionDenied);
  Put(path, kFolder);
  return {};
}

Outcome FakeFiles::RemoveFolder(const std::string& path) {
  if (const ErrorCode fault = BeginChange("RemoveFolder " + path)) return Outcome::Failed(fault);
  const Place place = Walk(path, false);
  if (!place.node) return Outcome::Failed(place.error);
  if (!place.node->IsFolder()) return Outcome::Failed(kPathNotFound);
  if (place.node->attributes & kReadOnly) return Outcome::Failed(kPermissionDenied);
  return EraseNode(place.folder, *place.node);
}

Outcome FakeFiles::Move(const std::string& from, const std::string& to) {
  if (const ErrorCode fault = BeginChange("Move " + from + " > " + to)) {
    return Outcome::Failed(fault);
  }
  const Place source = Walk(from, false);
  if (!source.node) return Outcome::Failed(source.error);
  return MoveNode(source.folder, source.node, to);
}

Outcome FakeFiles::MoveNode(Node* folder, Node* moved, const std::string& to) {
  const Place target = Walk(to, false);
  if (target.node && target.node != moved) return Outcome::Failed(kFileExists);
  if (!target.node && target.error != kFileNotFound) return Outcome::Failed(target.error);
  const bool in_use = moved->holds > 0 || moved->locked || moved->error;
  if (in_use || target.folder->refuses) return Outcome::Failed(kPermissionDenied);
  auto& children = folder->children;
  const auto at = std::find_if(children.begin(), children.end(),
                               [&](const auto& child) { return child.get() == moved; });
  std::unique_ptr<Node> node = std::move(*at);
  children.erase(at);
  node->name = target.name;
  node->short_name = NewShortName(*target.folder, target.name);
  target.folder->children.push_back(std::move(node));
  return {};
}

Outcome FakeFiles::SetAttributes(const std::string& path, std::uint32_t attributes) {
  if (const ErrorCode fault = BeginChange("Attributes " + path)) return Outcome::Failed(fault);
  const Place place = Walk(path, false);
  if (!place.node) return Outcome::Failed(place.error);
  if (place.node->error) return Outcome::Failed(place.node->error);
  place.node->attributes = (place.node->attributes & ~kSettable) | (attributes & kSettable);
  return {};
}

Outcome FakeFiles::SetSecurity(const std::string& path, const std::string& descriptor) {
  if (const ErrorCode error = BeginChange("Security " + path)) return Outcome::Failed(error);
  Node* node = Find(path);
  if (!node) return Outcome::Failed(kFileNotFound);
  node->security = descriptor;
  return {};
}

Outcome FakeFiles::SetTimes(const std::string& path, const FileTimes& times) {
  if (const ErrorCode fault = BeginChange("Times " + path)) return Outcome::Failed(fault);
  const Place place = Walk(path, true);
  if (!place.node) return Outcome::Failed(place.error);
  if (keeps_times) return Outcome::Failed(kPermissionDenied);
  if (times.created) place.node->created = times.created;
  if (times.accessed) place.node->accessed = times.accessed;
  if (times.modified) place.node->modified = times.modified;
  return {};
}

Outcome FakeFiles::HoldFolder(const std::string& path, std::unique_ptr<FolderHold>* hold) {
  if (const ErrorCode fault = Begin("Hold " + path)) return Outcome::Failed(fault);
  const Place place = Walk(path, false);
  if (!place.node) return Outcome::Failed(place.error);
  if (!place.node->IsFolder()) return Outcome::Failed(kPathNotFound);
  if (place.node->IsLink()) return Outcome::Failed(kPathFileAccess, "The folder is a link");
  *hold = std::make_unique<FakeHold>(&place.node->holds);
  return {};
}

}  // namespace scourwell::test
