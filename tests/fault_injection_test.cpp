// SPDX-License-Identifier: MIT

// Each job of the program is done again and again on a machine on which one call to the system
// fails, each in turn and with each error, or on which the program ends there. Nothing may be lost
// or claimed that is not so, and doing the job once more finishes it.
#include <cstdio>

#include "tests/backup_support.h"
#include "tests/removal_support.h"
#include "tests/startup_support.h"

namespace scourwell::test {
namespace {

constexpr ErrorCode kErrors[] = {kPermissionDenied, kDiskFull, kDeviceError};

template <class Job>
void RunWith(Faults::Kind kind, std::size_t at, ErrorCode error) {
  CAPTURE(static_cast<int>(kind));
  CAPTURE(at);
  CAPTURE(error.number());
  Job job;
  job.m.faults.Plan(kind, at, error);
  job.Do();
  job.m.faults.Plan(Faults::Kind::None, 0);
  job.CheckNothingLost();
  if (kind == Faults::Kind::OneCall) job.CheckClaims();
  job.DoAgain();
  job.CheckDone();
}

template <class Job>
void FailEverywhere(const char* name) {
  Job whole;
  whole.m.faults.Plan(Faults::Kind::None, 0);
  whole.Do();
  const std::size_t calls = whole.m.faults.calls();
  whole.CheckDone();
  for (std::size_t at = 1; at <= calls; ++at) {
    for (const ErrorCode error : kErrors) RunWith<Job>(Faults::Kind::OneCall, at, error);
    RunWith<Job>(Faults::Kind::ProgramEnds, at, kDeviceError);
  }
  std::printf("%-8s %5zu calls: %5zu with one that fails, %5zu that end there\n", name, calls,
              calls * std::size(kErrors), calls);
}

constexpr char kGoodRun[] = "Software\\Microsoft\\Windows\\CurrentVersion\\Run";

struct RemovalJob : Remover {
  RemovalJob() {
    m.File("C:\\Evil\\a.exe", "x");
    m.File("C:\\Evil\\sub\\b.txt", "x").Hidden();
    m.File("C:\\WINDOWS\\spy.exe", "x").ReadOnly();
    m.File("C:\\keep\\a", "precious");
    m.registry.Make(kMachine, "Software\\Evil\\sub").Value("v", Z("x"));
    m.registry.Make(kMachine, kGoodRun).Value("Evil", Z("x")).Value("Good", Z("y"));
    m.processes.running = {{"C:\\WINDOWS\\spy.exe", 7, 32}};
    Add(FoundProcess{"C:\\WINDOWS\\spy.exe", 7});
    Add(FoundFile{"C:\\WINDOWS\\spy.exe"});
    Add(FoundFolder{"C:\\Evil"});
    Add(KeyAt("HKEY_LOCAL_MACHINE\\Software\\Evil"));
    Add(ValueAt("HKEY_LOCAL_MACHINE\\" + std::string(kGoodRun), "Evil"));
  }
  void Do() { Run(); }
  // What waits for the next start is checked no more.
  void DoAgain() {
    hits.CheckAll(true);
    Run();
  }
  bool IsThere(std::size_t object) {
    switch (object) {
      case 1:
        return m.Has("C:\\WINDOWS\\spy.exe");
      case 2:
        return m.Has("C:\\Evil");
      case 3:
        return m.registry.Find(kMachine, "Software\\Evil") != nullptr;
      case 4:
        return m.registry.Text(kMachine, kGoodRun, "Evil") != "(none)";
      default:
        return false;
    }
  }
  void CheckNothingLost() {
    CHECK(m.Content("C:\\keep\\a") == "precious");
    CHECK(m.registry.Text(kMachine, kGoodRun, "Good") == Z("y"));
    CHECK(m.Has("C:\\WINDOWS\\system32"));
  }
  void CheckClaims() {
    for (std::size_t i = 1; i < hits.size(); ++i) {
      if (hits.row(i).gone()) CHECK_FALSE(IsThere(i));
    }
  }
  void CheckDone() {
    for (std::size_t i = 1; i < 5; ++i) CHECK_FALSE(IsThere(i));
    CHECK_FALSE(removal->report().failed);
  }
};

struct BackupBench : Bench {
  SystemFolders folders{kAppFolder, "C:\\WINDOWS", "C:\\WINDOWS\\system32", "", "", "", "", {}};
  COpSysInfo os{m.system};
  const std::vector<Finding> rows = {{"spy", FoundFile{"C:\\x.exe"}},
                                     {"spy", FoundFolder{"C:\\Evil"}},
                                     {"spy", KeyAt("HKEY_LOCAL_MACHINE\\Software\\Evil")}};
  RestoreResult restored;

  BackupBench() {
    settings.BackupFolder = "C:\\Backup";
    m.File("C:\\Backup\\other.qzp", "other");
    m.Folder("C:\\WINDOWS\\system32");
    m.File("C:\\x.exe", "one").ReadOnly();
    m.File("C:\\Evil\\deep\\y.dll", "two");
    m.registry.Make(kMachine, "Software\\Evil").Value("n", Z("x")).traits = {"kind", "rights"};
  }
  Backups Manager() {
    return Backups({m.files, m.registry, nullptr, m.clock, m.pump, m.shell, m.system, kept, log,
                    m.code_pages, os, folders, settings});
  }
  BackupReport Create(const std::string& name) {
    std::vector<const Finding*> pointers;
    for (const Finding& row : rows) pointers.push_back(&row);
    return Manager().Create(name, pointers);
  }
  Outcome Restore(const std::string& key) {
    Backups manager = Manager();
    return RestoreAll(manager, key, &restored);
  }
  void RemoveAll() {
    m.files.Remove("C:\\x.exe");
    m.files.Remove("C:\\Evil");
    m.registry.DeleteKeyCall(kMachine, "Software\\Evil");
  }
  bool IsValueThere() { return m.registry.Text(kMachine, "Software\\Evil", "n") == Z("x"); }
  bool HasRights() { return m.registry.Find(kMachine, "Software\\Evil")->traits.security != ""; }
  std::size_t FilesThere() {
    return (m.Content("C:\\x.exe") == "one") + (m.Content("C:\\Evil\\deep\\y.dll") == "two");
  }
};

struct BackupJob : BackupBench {
  BackupReport report;

  void Do() { report = Create("name"); }
  void DoAgain() { report = Create("again"); }
  void CheckNothingLost() {
    CHECK(FilesThere() == 2);
    CHECK(m.Content("C:\\Backup\\other.qzp") == "other");
  }
  // An archive that is there gives back all that is not named as missing.
  void CheckClaims() {
    CHECK((report.archive.ok() || !m.Has("C:\\Backup\\name.qzp")));
    if (!report.archive.ok() || !report.failed_rows.empty()) return;
    RemoveAll();
    CHECK(Restore("name.qzp").ok());
    CHECK(FilesThere() == 2);
  }
  void CheckDone() {
    REQUIRE(report.archive.ok());
    CHECK(report.failed_rows.empty());
    CHECK(report.failures.empty());
  }
};

struct RestoreJob : BackupBench {
  RestoreJob() {
    REQUIRE(Create("name").archive.ok());
    archive = m.Content("C:\\Backup\\name.qzp");
    RemoveAll();
    m.File("C:\\x.exe", "newer").modified = ~0ull;
  }
  std::string archive;
  Outcome done;

  void Do() { done = Restore("name.qzp"); }
  void DoAgain() { Do(); }
  void CheckNothingLost() {
    CHECK(m.Content("C:\\Backup\\name.qzp") == archive);
    bool survives = false;
    for (const auto& child : m.files.Find("C:\\")->children) {
      survives = survives || child->content == "newer";
    }
    CHECK(survives);
  }
  void CheckClaims() {
    CHECK(m.Has("C:\\x.exe"));
    if (!done.ok() || !restored.failed.empty()) return;
    CHECK((FilesThere() == 2 && IsValueThere()));
    CHECK((!restored.notes.empty() || HasRights()));
  }
  void CheckDone() {
    CHECK(done.ok());
    CHECK(restored.failed.empty());
    CHECK(IsValueThere());
    CHECK(FilesThere() == 2);
  }
};

constexpr char kIgnored[] = "C:\\App\\ignorespylist.txt";

struct IgnoreJob : Bench {
  IgnoreJob() {
    m.File(kIgnored, "\"Spy File\",\"C:\\a\",\"s\"\r\n\"Spy File\",\"C:\\b\",\"s\"\r\n");
  }
  const IgnoreRecord kept{"Spy File", "C:\\b", "s"};
  const IgnoreRecord added{"Spy File", "C:\\c", "s"};
  Outcome done;

  IgnoreList List() {
    return IgnoreList(m.files, m.clock, m.code_pages, kept_texts, log, kIgnored);
  }
  void Do() {
    IgnoreList list = List();
    done = list.Append({added});
    if (done.ok()) done = list.Keep({kept, added});
  }
  void DoAgain() { Do(); }
  void CheckNothingLost() { CHECK(List().Matches(kept)); }
  void CheckClaims() {
    if (done.ok()) CHECK(List().Matches(added));
  }
  void CheckDone() {
    CHECK(done.ok());
    CHECK(List().Matches(kept));
    CHECK(List().Matches(added));
    CHECK_FALSE(List().Matches({"Spy File", "C:\\a", "s"}));
  }
  KeptInMemory kept_texts;
};

// One entry of each kind.
struct ProfileJob : ToolBench {
  ProfileJob() {
    locations.UseUser("S-1-5-21-7-1000");
    registry64.port_faults = &m.faults;
    m.registry.Make(kMachine, kRun).Value("Machine", Z("C:\\a.exe"));
    m.File(kWinIni, "[windows]\r\nrun=C:\\one.exe, two\r\n");
    m.File(std::string(kUserStartup) + "\\Tray.lnk", FakeShell::MakeShortcut("C:\\t.exe", "/q"));
    before = State();
  }

  void Do() {
    StartupManager manager(needs);
    manager.Form_Load();
    entries = std::max(entries, manager.size());
    ToggleAll(manager);
    claimed = manager.ApplyNow();
    disabled = manager.disabled_count();
  }
  void CheckNothingLost() {
    StartupManager next(needs);
    next.Form_Load();
    CHECK(next.size() >= entries);
  }
  void CheckClaims() {
    StartupManager next(needs);
    next.Form_Load();
    if (claimed) CHECK(next.disabled_count() == disabled);
  }
  void DoAgain() {
    StartupManager next(needs);
    next.Form_Load();
    next.ResetAll();
    CHECK(next.ApplyNow());
    CHECK((State() == before));
    Do();
  }
  void CheckDone() {
    CHECK(claimed);
    CHECK(disabled == entries);
  }
  std::string before;
  std::size_t entries = 0;
  std::size_t disabled = 0;
  bool claimed = false;
};

}  // namespace

TEST_SUITE("fault_injection") {
  TEST_CASE("removal") { FailEverywhere<RemovalJob>("remove"); }
  TEST_CASE("backup") { FailEverywhere<BackupJob>("backup"); }
  TEST_CASE("restore") { FailEverywhere<RestoreJob>("restore"); }
  TEST_CASE("ignore list") { FailEverywhere<IgnoreJob>("ignore"); }
  TEST_CASE("startup profile") { FailEverywhere<ProfileJob>("profile"); }
}

}  // namespace scourwell::test
