#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/clock.h"
#include "platform/code_pages.h"
#include "platform/files.h"
#include "platform/processes.h"
#include "platform/profiles.h"
#include "platform/pump.h"
#include "platform/registry.h"
#include "platform/shell.h"
#include "platform/system.h"
#include "platform/text.h"
#include "tests/fake/fake_versions.h"

namespace scourwell::test {

inline constexpr char kAppFolder[] = "C:\\App";
inline constexpr char kErrorLog[] = "C:\\App\\errorlog.txt";

// One file, folder or link. The setters chain: `m.File("C:\\x.exe").Hidden().Locked()`.
struct Node {
  std::string name;
  std::string short_name;
  std::string content;
  std::string target;  // of a link
  std::uint32_t attributes = 0;
  FileTime modified = 0;
  FileTime accessed = 0;
  FileTime created = 0;
  int holds = 0;         // so many hold the folder in its place
  int error = 0;         // listing a folder, reading and changing a file end with it
  bool locked = false;   // in use: neither read, changed nor deleted
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
  Node& Fails(int number) {
    error = number;
    return *this;
  }
  Node& Locked() {
    locked = true;
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
  std::vector<std::string> journal;   // "List C:\*.*", "Read C:\x", ... in the order of the calls
  std::map<std::string, int> faults;  // a journal line and the error that such a call ends with
  bool short_names = true;            // volumes have 8.3 names
  std::size_t changes = 0;            // writes, renames, deletions and the like so far
  std::size_t failing_change = 0;     // the one that fails; 0: none
  int change_error = kDiskFull;       // with this
  std::function<void()> before_change;
  std::uint64_t free_space = ~0ull;  // bytes that writers can still write

  // Made with every folder on the way; an existing item is changed.
  Node& Put(const std::string& path, std::uint32_t attributes);
  void Remove(const std::string& path);
  Node* Find(const std::string& path);
  void AddDrive(char letter, DriveKind kind, bool ready);
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
  std::string ShortPath(const std::string& path) override;
  std::vector<Drive> Drives() override;
  bool IsReady(const std::string& root) override;

 private:
  struct Volume {
    Drive drive;
    bool ready = true;
    Node root;
  };
  struct Place {
    Node* folder = nullptr;  // that holds or would hold the item
    Node* node = nullptr;
    std::string name;
    std::string short_path;
    int error = 0;
  };

  friend class FakeWriter;
  int Begin(const std::string& call);
  int BeginChange(const std::string& call);
  Place Walk(const std::string& path, bool follow_last, int links_left = 20);
  Outcome Open(const std::string& path, const std::string** content);
  Outcome Write(const std::string& path, const std::function<void(Node&)>& change);
  std::string NewShortName(const Node& folder, const std::string& name) const;
  void Erase(Node* folder, const Node* node);

  std::map<char, Volume> volumes_;
  FileTime time_ = 126'000'000'000'000'000;  // in April 2000
};

// Keys below one root, in order of creation.
struct Key {
  std::string name;
  bool denied = false;  // may be read, not changed and not deleted
  std::vector<std::pair<std::string, RegValue>> values;
  std::vector<std::unique_ptr<Key>> children;

  Key* Child(std::string_view part) const;
  Key& Denied() {
    denied = true;
    return *this;
  }
  Key& Value(const std::string& value_name, const std::string& text, std::uint32_t type = kRegText);
};

class FakeRegistry : public Registry {
 public:
  std::vector<std::string> journal;  // "DeleteKey path"
  bool deletes_trees = false;        // as Windows 95, 98 and Me
  std::function<void()> before_change;

  Key& Make(RootKey root, const std::string& path);
  Key* Find(RootKey root, const std::string& path);
  std::string Text(RootKey root, const std::string& path, const std::string& name);

  RegStatus TryOpen(RootKey root, const std::string& path, std::uint32_t rights) override;
  RegStatus Count(RootKey root, const std::string& path, RegCounts* counts) override;
  RegStatus QueryValue(RootKey root, const std::string& path, const std::string& name,
                       RegValue* value) override;
  RegStatus CreateKey(RootKey root, const std::string& path) override;
  RegStatus SetValue(RootKey root, const std::string& path, const std::string& name,
                     const RegValue& value) override;
  RegStatus DeleteValue(RootKey root, const std::string& path, const std::string& name) override;
  RegStatus DeleteKeyCall(RootKey root, const std::string& path) override;
  RegStatus EnumKeys(RootKey root, const std::string& path, const VisitKey& visit) override;
  RegStatus EnumValues(RootKey root, const std::string& path, const VisitValue& visit) override;

 private:
  std::map<RootKey, Key> roots_;
};

class FakeProfiles : public Profiles {
 public:
  explicit FakeProfiles(FakeFiles& files) : files_(files) {}
  std::string ReadProfile(const std::string& section, const std::string& key,
                          const std::string& file) override;
  Outcome WriteProfile(const std::string& section, const std::string& key,
                       const std::optional<std::string>& value, const std::string& file) override;

 private:
  struct Found {
    std::vector<std::string> lines;
    std::optional<std::size_t> section;  // line of the header
    std::optional<std::size_t> key;
  };
  Found Search(const std::string& section, const std::string& key, const std::string& file);
  FakeFiles& files_;
};

class FakeClock : public Clock {
 public:
  LocalTime now{2004, 3, 5, 12, 0, 0, 0};
  std::uint32_t ticks = 0;
  bool frozen = false;

  LocalTime Now() override { return now; }
  std::uint32_t Ticks() override { return frozen ? ticks : ++ticks; }
  LocalTime ToLocal(FileTime time) override;              // local time is UTC
  std::string ShortDate(const LocalTime& time) override;  // 3/5/2004
  std::string TimeOfDay(const LocalTime& time) override;  // 12:00:00 PM
};

class FakeSystem : public System {
 public:
  VersionRecord record{5, 1, 2600, 2, "Service Pack 3", 3, 0, 256, 1};
  bool knows_extended = true;
  std::string windows = "C:\\WINDOWS";
  std::string system = "C:\\WINDOWS\\system32";
  std::string temporary = "C:\\Temp\\";
  std::map<int, std::string> shell_folders;
  std::map<std::string, std::string> environment{{"WinDir", "C:\\WINDOWS"}};
  std::vector<std::string> journal;  // "Terminate 7", "Move path > target"

  bool QueryVersion(unsigned record_size, VersionRecord* out) override;
  std::string WindowsFolder() override { return windows; }
  std::string SystemFolder() override { return system; }
  std::string TemporaryFolder() override { return temporary; }
  std::string ShellFolder(int folder_id) override { return shell_folders[folder_id]; }
  std::string Environment(const std::string& name) override { return environment[name]; }
  std::string ErrorText(std::uint32_t code) override { return "error " + std::to_string(code); }
  std::uint32_t LastError() override { return 5; }
  std::uint32_t OwnProcessId() override { return 4711; }
  Outcome TerminateProcess(std::uint32_t process_id) override;
  Outcome MoveAtReboot(const std::string& path, const std::string& target) override;
};

class FakeShell : public Shell {
 public:
  explicit FakeShell(FakeFiles& files) : files_(files) {}

  std::vector<std::string> journal;  // "Message text/title", "Open path", ...
  std::map<std::string, std::string, NoCaseLess> shortcuts;  // targets; others are damaged
  std::function<void(const std::string& command)> on_run;
  int call_error = 0;  // what calling an export ends with
  int open_error = 0;  // what opening a document ends with
  int help_error = 0;  // what showing a page of a help file ends with

  Outcome Open(const std::string& path) override {
    static_cast<void>(Note("Open " + path));
    return open_error ? Outcome::Failed(open_error) : Outcome();
  }
  Outcome ShowProperties(const std::string& path) override { return Note("Properties " + path); }
  Outcome Start(const std::string& program, const std::string& arguments) override {
    return Note("Start " + program + " " + arguments);
  }
  Outcome Launch(const std::string& command) override { return Note("Launch " + command); }
  Outcome Run(const std::string& command, std::uint32_t) override {
    if (on_run) on_run(command);
    return Note("Run " + command);
  }
  Outcome CallExport(const std::string& library, const std::string& name) override {
    static_cast<void>(Note("Call " + library + " " + name));
    return call_error ? Outcome::Failed(call_error) : Outcome();
  }
  Outcome ShortcutTarget(const std::string& link, std::string* target) override;
  Outcome ShortcutArguments(const std::string& link, std::string* arguments) override;
  // The file says what the shortcut leads to: MakeShortcut is its form.
  Outcome CreateShortcut(const std::string& link, const std::string& target,
                         const std::string& arguments) override;
  static std::string MakeShortcut(const std::string& target, const std::string& arguments) {
    return "LNK " + target + "|" + arguments;
  }
  Outcome StartCommand(const std::string& command_line) override;
  Outcome ShowHelp(const std::string& file, const std::string& page) override;
  void Message(const std::string& text, const std::string& title) override {
    static_cast<void>(Note("Message " + text + "/" + title));
  }

 private:
  Outcome ReadShortcut(const std::string& link, std::string* target, std::string* arguments);

  FakeFiles& files_;
  Outcome Note(std::string line) {
    journal.push_back(std::move(line));
    return {};
  }
};

class FakeProcesses : public Processes {
 public:
  std::vector<ProcessEntry> running;
  std::string asked;  // "status" or "snapshot"
  int error = 0;      // what a listing ends with, after half of the processes

  Outcome ListByStatus(const Visit& visit) override { return List("status", visit); }
  Outcome ListBySnapshot(const Visit& visit) override { return List("snapshot", visit); }
  std::vector<std::string> Modules(std::uint32_t) override { return {"C:\\a.exe", "C:\\b.dll"}; }

 private:
  Outcome List(const char* way, const Visit& visit) {
    asked = way;
    const std::size_t count = error ? running.size() / 2 : running.size();
    for (std::size_t i = 0; i < count; ++i) {
      if (!visit(running[i])) return {};
    }
    return error ? Outcome::Failed(error) : Outcome();
  }
};

// Knows the Polish letters of 1250, and 1252.
class FakeCodePages : public CodePages {
 public:
  unsigned system = 1252;
  int asked = 0;

  unsigned System() override { return system; }
  Outcome ToSystem(unsigned code_page, std::string* text) override;
};

class FakePump : public Pump {
 public:
  std::size_t yields = 0;
  std::size_t close_at = 0;  // the yield that sets closing; 0: none
  std::function<void()> on_yield;

 protected:
  void YieldNow() override;
};

// The whole machine. A drive C with the application folder is there from the start.
class FakeMachine {
 public:
  FakeMachine() {
    AddDrive('C');
    Folder(kAppFolder);
  }

  FakeFiles files;
  FakeRegistry registry;
  FakeProfiles profiles{files};
  FakeClock clock;
  FakeSystem system;
  FakeShell shell{files};
  FakeVersions versions;
  FakeProcesses processes;
  FakePump pump;
  FakeCodePages code_pages;

  void AddDrive(char letter, DriveKind kind = DriveKind::Fixed, bool ready = true) {
    files.AddDrive(letter, kind, ready);
  }
  Node& File(const std::string& path, std::string content = {});
  Node& Folder(const std::string& path) { return files.Put(path, kFolder); }
  Node& Link(const std::string& path, const std::string& target);
  // The content of a file; empty when it is missing.
  std::string Content(const std::string& path);
  bool Has(const std::string& path) { return files.Find(path) != nullptr; }
  // The third fields of the error log's records, one a line.
  std::string Errors();
  // The same, as "53 ScanFolder, sPath: D:\\absent": number, method, what was at hand.
  std::string Failures();
};

}  // namespace scourwell::test
