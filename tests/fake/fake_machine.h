// SPDX-License-Identifier: MIT
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
#include "platform/processes.h"
#include "platform/profiles.h"
#include "platform/pump.h"
#include "platform/registry.h"
#include "platform/shell.h"
#include "platform/system.h"
#include "tests/fake/fake_files.h"
#include "tests/fake/fake_versions.h"
#include "text/text.h"

namespace scourwell::test {

inline constexpr char kAppFolder[] = "C:\\App";
inline constexpr char kErrorLog[] = "C:\\App\\errorlog.txt";

// Keys below one root, in order of creation.
struct Key {
  std::string name;
  bool denied = false;      // may be read, not changed and not deleted
  bool unreadable = false;  // not even that
  std::string link;         // the key below the same root that this one leads to
  RegTraits traits;
  std::vector<std::pair<std::string, RegValue>> values;
  std::vector<std::pair<std::string, RegValue>> unspellable;  // listed, not found by their names
  std::vector<std::unique_ptr<Key>> children;

  Key* Child(std::string_view part) const;
  Key& Denied() {
    denied = true;
    return *this;
  }
  Key& Value(const std::string& value_name, const std::string& text, std::uint32_t type = kRegText);
  Key& Set(const std::string& value_name, const RegValue& value);
};

class FakeRegistry : public Registry {
 public:
  std::vector<std::string> journal;  // "DeleteKey path"
  bool deletes_trees = false;        // as Windows 95, 98 and Me
  bool keeps_rights = false;         // nobody may change them
  std::function<void()> before_change;
  Faults* port_faults = nullptr;

  Key& Make(RootKey root, const std::string& path);
  Key* Find(RootKey root, const std::string& path);
  Key& Link(RootKey root, const std::string& path, const std::string& target);
  std::string Text(RootKey root, const std::string& path, const std::string& name);

  RegStatus TryOpen(RootKey root, const std::string& path, std::uint32_t rights) override;
  RegStatus Count(RootKey root, const std::string& path, RegCounts* counts) override;
  RegStatus QueryValue(RootKey root, const std::string& path, const std::string& name,
                       RegValue* value) override;
  RegStatus CreateKey(RootKey root, const std::string& path) override;
  RegStatus ReadTraits(RootKey root, const std::string& path, RegTraits* traits) override;
  RegStatus CreateKeyOfKind(RootKey root, const std::string& path,
                            const std::string& kind) override;
  RegStatus SetKeySecurity(RootKey root, const std::string& path,
                           const std::string& descriptor) override;
  RegStatus SetValue(RootKey root, const std::string& path, const std::string& name,
                     const RegValue& value) override;
  RegStatus DeleteValue(RootKey root, const std::string& path, const std::string& name) override;
  RegStatus IsLink(RootKey root, const std::string& path, bool* is_link) override;
  RegStatus DeleteKeyCall(RootKey root, const std::string& path) override;
  RegStatus EnumKeys(RootKey root, const std::string& path, const VisitKey& visit) override;
  RegStatus EnumValues(RootKey root, const std::string& path, const VisitValue& visit) override;

 private:
  Key* Walk(RootKey root, const std::string& path, bool follow_last, int links_left = 20);
  bool Fails() { return port_faults && port_faults->Next(); }

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

class FakeProcesses : public Processes {
 public:
  std::vector<ProcessEntry> running;
  std::string asked;  // "status" or "snapshot"
  ErrorCode error;    // what a listing ends with, after half of the processes

  Outcome ListByStatus(const Visit& visit) override { return List("status", visit); }
  Outcome ListBySnapshot(const Visit& visit) override { return List("snapshot", visit); }
  // The image and one library.
  std::vector<std::string> Modules(std::uint32_t process_id) override;
  const ProcessEntry* Find(std::uint32_t process_id) const;

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

class FakeSystem : public System {
 public:
  VersionRecord record{5, 1, 2600, 2, "Service Pack 3", 3, 0, 256, 1};
  bool knows_extended = true;
  int waits = 0;                   // so often the end of a process is waited for
  std::function<void()> on_ended;  // its files are free
  std::string windows = "C:\\WINDOWS";
  std::string system = "C:\\WINDOWS\\system32";
  std::string temporary = "C:\\Temp\\";
  std::map<int, std::string> shell_folders;
  std::map<std::string, std::string, NoCaseLess> environment{{"WinDir", "C:\\WINDOWS"}};
  std::size_t refuses_at = 0;  // so many deletions at the next start, this one is refused; 0: none
  std::vector<std::string> journal;  // "Terminate 7", "Delete path"
  Faults* port_faults = nullptr;

  explicit FakeSystem(const FakeProcesses* processes = nullptr, FakeRegistry* registry = nullptr)
      : processes_(processes), registry_(registry) {}
  bool QueryVersion(unsigned record_size, VersionRecord* out) override;
  std::string WindowsFolder() override { return windows; }
  std::string SystemFolder() override { return system; }
  std::string TemporaryFolder() override { return temporary; }
  std::string ShellFolder(int folder_id) override { return shell_folders[folder_id]; }
  std::string Environment(const std::string& name) override { return environment[name]; }
  std::string ErrorText(std::uint32_t code) override {
    return code < 20'000 ? "error " + std::to_string(code) : "";
  }
  std::uint32_t LastError() override { return 5; }
  std::uint32_t OwnProcessId() override { return 4711; }
  // Different each time.
  std::string RandomBytes(std::size_t count) override { return std::string(count, ++random_); }
  Outcome TerminateProcess(std::uint32_t process_id, const std::function<bool()>& go_on) override;
  Outcome DeleteAtReboot(const std::string& path) override;

 private:
  char random_ = 0;
  const FakeProcesses* processes_;
  FakeRegistry* registry_;  // keeps the list, where there is one
};

class FakeShell : public Shell {
 public:
  explicit FakeShell(FakeFiles& files) : files_(files) {}

  std::vector<std::string> journal;  // "Message text/title", "Open path", ...
  std::function<void(const std::string& command)> on_run;
  ErrorCode run_error;    // what a command ends with that is waited for
  ErrorCode call_error;   // what calling an export ends with
  ErrorCode open_error;   // what opening a document ends with
  ErrorCode start_error;  // what starting a command line ends with
  ErrorCode help_error;   // what showing a page of a help file ends with
  Faults* port_faults = nullptr;

  Outcome Open(const std::string& path) override {
    static_cast<void>(Note("Open " + path));
    return open_error ? Outcome::Failed(open_error) : Outcome();
  }
  Outcome ShowProperties(const std::string& path) override { return Note("Properties " + path); }
  Outcome Start(const std::string& program, const std::string& arguments) override {
    static_cast<void>(Note("Start " + program + " " + arguments));
    return open_error ? Outcome::Failed(open_error) : Outcome();
  }
  Outcome Launch(const std::string& command) override { return Note("Launch " + command); }
  Outcome Run(const std::string& command, std::uint32_t) override {
    if (on_run) on_run(command);
    static_cast<void>(Note("Run " + command));
    return run_error ? Outcome::Failed(run_error) : Outcome();
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
    const ErrorCode fault = port_faults ? port_faults->Next() : ErrorCode();
    return fault ? Outcome::Failed(fault) : Outcome();
  }
};

// Knows 1252, the Polish letters of 1250 and the Russian ones of 1251.
class FakeCodePages : public CodePages {
 public:
  unsigned system = 1252;
  int asked = 0;

  unsigned System() override { return system; }
  Outcome Decode(unsigned code_page, std::string_view bytes, std::string* text) override;
  std::optional<std::string> Encode(std::string_view text) override;
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
    files.port_faults = registry.port_faults = &faults;
    system.port_faults = shell.port_faults = &faults;
  }

  Faults faults;

  FakeFiles files;
  FakeRegistry registry;
  FakeProfiles profiles{files};
  FakeClock clock;
  FakeProcesses processes;
  FakeSystem system{&processes, &registry};
  FakeShell shell{files};
  FakeVersions versions;
  FakePump pump;
  FakeCodePages code_pages;

  void AddDrive(char letter, DriveKind kind = DriveKind::Fixed, bool ready = true) {
    files.AddDrive(letter, kind, ready);
  }
  Node& File(const std::string& path, std::string content = {});
  Node& Folder(const std::string& path) { return files.Put(path, kFolder); }
  Node& Link(const std::string& path, const std::string& target);
  // What either family keeps for its next start is carried out, by names as they lead then. Nothing
  // is in use any more.
  void Restart();
  // The content of a file; empty when it is missing.
  std::string Content(const std::string& path);
  bool Has(const std::string& path) { return files.Find(path) != nullptr; }
  // The third fields of the error log's records, one a line.
  std::string Errors();
  // The same, as "53 ScanFolder, sPath: D:\\absent": number, method, what was at hand.
  std::string Failures();
};

}  // namespace scourwell::test
