// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/files.h"
#include "tests/fake/faults.h"

namespace scourwell::test {

// One file, folder or link. The setters chain: `m.File("C:\\x.exe").Hidden().Locked()`.
struct Node {
  std::string name;
  std::string short_name;
  std::string content;
  std::string target;  // of a link
  std::string security;
  std::uint32_t attributes = 0;
  FileTime modified = 0;
  FileTime accessed = 0;
  FileTime created = 0;
  int holds = 0;               // so many hold the folder in its place
  ErrorCode error;             // listing a folder, reading and changing a file end with it
  bool locked = false;         // in use: neither read, changed, moved nor deleted
  bool running = false;        // in use: may be moved, not deleted
  bool streams = false;        // more data than its content
  bool open_to_users = false;  // anybody may change what lies in the folder
  std::uint64_t id = 0;
  bool refuses = false;  // a folder in which nothing can be written
  int showings = -1;     // so many listings show it, then it is gone
  std::vector<std::unique_ptr<Node>> children;

  Node& Hidden() { return With(kHidden); }
  Node& System() { return With(kSystem); }
  Node& ReadOnly() { return With(kReadOnly); }
  Node& With(std::uint32_t bits) {
    attributes |= bits;
    return *this;
  }
  Node& Short(std::string text) {
    short_name = std::move(text);
    return *this;
  }
  Node& Denied() { return Fails(kPermissionDenied); }
  Node& Fails(ErrorCode code) {
    error = code;
    return *this;
  }
  Node& Locked() {
    locked = true;
    return *this;
  }
  Node& Running() {
    running = true;
    return *this;
  }
  Node& OpenToUsers() {
    open_to_users = true;
    return *this;
  }
  Node& Refuses() {
    refuses = true;
    return *this;
  }
  Node& VanishAfter(int listings) {
    showings = listings;
    return *this;
  }
  Node& Times(FileTime written, FileTime read) {
    modified = written;
    accessed = read;
    return *this;
  }

  bool IsFolder() const { return (attributes & kFolder) != 0; }
  bool IsLink() const { return (attributes & kLink) != 0; }
  Node* Child(std::string_view part) const;  // by long or short name
  DirEntry Entry() const;
};

// Wildcards as a directory listing understands them; `name` is one long or short name.
bool ListingMatches(std::string_view pattern, std::string_view name);

class FakeFiles : public Files {
 public:
  std::vector<std::string> journal;  // "List C:\*.*", "Read C:\x", ... in the order of the calls
  std::map<std::string, ErrorCode>
      faults;                          // a journal line and the error that such a call ends with
  bool short_names = true;             // volumes have 8.3 names
  bool keeps_times = false;            // nobody may change them
  std::size_t changes = 0;             // writes, renames, deletions and the like so far
  std::size_t failing_change = 0;      // the one that fails; 0: none
  ErrorCode change_error = kDiskFull;  // with this
  std::function<void()> before_change;
  Faults* port_faults = nullptr;
  std::function<void(const std::string&)> before_open;  // of an item
  bool knows_links = true;           // the NT family: items are told by more than their paths
  std::uint64_t free_space = ~0ull;  // bytes that writers can still write

  // Made with every folder on the way; an existing item is changed.
  Node& Put(const std::string& path, std::uint32_t attributes);
  void Remove(const std::string& path);
  Node* Find(const std::string& path);
  void AddDrive(char letter, DriveKind kind, bool ready);
  // A letter that leads to a folder. Items on it truly lie below `true_root`; one on a server has a
  // name of its own there, and no numbers.
  void AddSecondLetter(char letter, DriveKind kind, const std::string& folder,
                       const std::string& true_root);
  FileTime NextTime() { return time_ += 10'000'000; }
  // Calls of the journal that begin so.
  std::size_t Count(std::string_view beginning) const;

  Outcome List(const std::string& pattern, const Visit& visit) override;
  Outcome Stat(const std::string& path, DirEntry* entry) override;
  Outcome Read(const std::string& path, std::uint64_t limit, std::string* content) override;
  Outcome ReadBlocks(const std::string& path, const VisitBlock& visit) override;
  Outcome Append(const std::string& path, std::string_view text) override;
  Outcome Replace(const std::string& path, std::string_view text) override;
  Outcome EraseFile(const std::string& path) override;
  Outcome OpenReader(const std::string& path, std::unique_ptr<FileReader>* reader) override;
  Outcome OpenWriter(const std::string& path, std::unique_ptr<FileWriter>* writer) override;
  Outcome CreateFolder(const std::string& path) override;
  Outcome RemoveFolder(const std::string& path) override;
  Outcome Move(const std::string& from, const std::string& to) override;
  Outcome SetAttributes(const std::string& path, std::uint32_t attributes) override;
  Outcome SetTimes(const std::string& path, const FileTimes& times) override;
  Outcome HoldFolder(const std::string& path, std::unique_ptr<FolderHold>* hold) override;
  Outcome OpenItem(const std::string& path, std::unique_ptr<OpenedItem>* item) override;
  Outcome Identify(const std::string& path, FileId* id) override;
  Outcome CreateGuardedFolder(const std::string& path) override;
  bool IsGuarded(const std::string& folder) override;
  bool HasStreams(const std::string& path) override {
    const Node* node = Find(path);
    return node && node->streams;
  }
  std::string Security(const std::string& path) override {
    const Node* node = Find(path);
    return node ? node->security : std::string();
  }
  Outcome SetSecurity(const std::string& path, const std::string& descriptor) override;
  std::string ShortPath(const std::string& path) override;
  std::vector<Drive> Drives() override;
  bool IsReady(const std::string& root) override;

 private:
  struct Volume {
    Drive drive;
    bool ready = true;
    Node root;
    std::string leads_to;   // the folder behind a second letter
    std::string true_root;  // under which its items truly lie
  };
  struct Place {
    Node* folder = nullptr;  // that holds or would hold the item
    Node* node = nullptr;
    std::string name;
    std::string short_path;
    std::string true_path;
    std::uint32_t volume = 0;
    ErrorCode error;
  };

  friend class FakeWriter;
  friend class FakeItem;
  ErrorCode Begin(const std::string& call);
  ErrorCode BeginChange(const std::string& call);
  Place Walk(const std::string& path, bool follow_last, int links_left = 20);
  Outcome Open(const std::string& path, const std::string** content);
  Outcome Write(const std::string& path, const std::function<void(Node&)>& change);
  std::string NewShortName(const Node& folder, const std::string& name) const;
  void Erase(Node* folder, const Node* node);
  Outcome EraseNode(Node* folder, const Node& node);
  Outcome MoveNode(Node* folder, Node* node, const std::string& to);

  std::map<char, Volume> volumes_;
  std::uint64_t ids_ = 0;
  FileTime time_ = 126'000'000'000'000'000;  // in April 2000
};

}  // namespace scourwell::test
