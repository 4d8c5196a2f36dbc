// SPDX-License-Identifier: MIT
#include <sys/stat.h>

#include "offline/offline_removal.h"
#include "tests/offline/make_hive.h"
#include "tests/offline/offline_support.h"
#include "tests/offline/small_files.h"

namespace scourwell::test {
namespace {

// Everything on a disk but what the registry's own files hold: name and content, one item a line.
std::string TreeOf(const std::string& folder) {
  std::vector<std::string> lines;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    std::string line = entry.path().string().substr(folder.size());
    if (entry.is_regular_file()) {
      std::ifstream file(entry.path(), std::ios::binary);
      std::string content{std::istreambuf_iterator<char>(file), {}};
      if (!content.starts_with("regf")) line += "|" + content;
    }
    lines.push_back(line);
  }
  std::sort(lines.begin(), lines.end());
  return Lines(lines);
}

// Every key and value below a root, one a line.
void AddKeys(Registry& registry, RootKey root, const std::string& path,
             std::vector<std::string>* lines) {
  lines->push_back(path);
  registry.EnumValues(root, path, [&](const std::string& name, const RegValue& value) {
    lines->push_back(path + "|" + name + "|" + std::to_string(value.type) + value.data);
    return true;
  });
  std::vector<std::string> names;
  registry.EnumKeys(root, path, [&](const std::string& name) {
    names.push_back(name);
    return true;
  });
  for (const std::string& name : names) {
    AddKeys(registry, root, path.empty() ? name : path + "\\" + name, lines);
  }
}

std::string KeysOf(OfflineMachine& machine) {
  std::vector<std::string> lines;
  for (const RootKey root : {RootKey::LocalMachine, RootKey::Users}) {
    AddKeys(machine.registry(), root, "", &lines);
  }
  std::sort(lines.begin(), lines.end());
  return Lines(lines);
}

constexpr char kRun[] = "HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\Run";

// A removal from a disk of its own, into an archive beside it.
struct RemovalBench : OfflineBench {
  explicit RemovalBench(const std::string& options = {}) : disk(options) {
    disk.MakeFolder("archives");
    // What a user may have chosen for a machine that runs.
    settings.DeleteAfterReboot = settings.UseRegEdit = true;
    settings.MarkChecked = "n";
    Reopen();
  }

  // As another run of the program would see it.
  void Reopen() {
    removal.reset();
    machine = disk.Open();
    folder = machine->files().Adopt(disk.path() + "/archives");
    removal = std::make_unique<OfflineRemoval>(
        OfflineRemoval::Parts{*machine, m.clock, m.pump, log, captions, settings, kept, folder});
  }
  OfflineRemoval::Result RemoveAll() {
    Scan(*machine);
    return removal->Remove("archive", sink.found);
  }
  std::string Restore() {
    std::unique_ptr<RestoreRun> run;
    REQUIRE(removal->backups().Open("archive.qzp", {}, &run).ok());
    RestoreResult result;
    CHECK(removal->Restore(*run, std::vector<bool>(run->items().size(), true), &result).ok());
    std::string failures;
    for (const ItemReport& item : result.failed) {
      failures += item.path + ": " + item.why.description() + "\n";
    }
    return failures;
  }
  static std::string Left(const OfflineRemoval::Result& result) {
    std::string left;
    for (const RemovedObject& object : result.removal.objects) {
      if (object.result.done()) continue;
      left += PlaceText(object.object) + ": " + object.result.why.description() + "\n";
    }
    return left;
  }

  PlantedDisk disk;
  std::unique_ptr<OfflineMachine> machine;
  std::string folder;
  std::unique_ptr<OfflineRemoval> removal;
};

}  // namespace

TEST_SUITE("offline_removal") {
  TEST_CASE("what was planted goes, the rest stays, and a restore brings all of it back") {
    RemovalBench bench;
    const std::string before = TreeOf(bench.disk.path() + "/c");
    const std::string keys = KeysOf(*bench.machine);
    const auto result = bench.RemoveAll();
    CHECK(result.backup.archive.ok());
    CHECK(result.backup.failures.empty());
    CHECK(RemovalBench::Left(result) == "");
    CHECK(result.registry.ok());
    CHECK(result.script == "");
    CHECK_FALSE(bench.disk.Has("archives/Remove.reg"));
    CHECK_FALSE(bench.disk.Has("c/WINDOWS/EGDACCESS_1052.dll"));
    // What is refused is no business of the script.
    const auto refused = bench.removal->Remove("second", {{"x", KeyAt(kRun)}});
    CHECK(refused.removal.Count(RemovalState::Refused) == 1);
    CHECK(refused.script.empty());
    CHECK(bench.disk.Has("c/WINDOWS/EGDACCESS_1052.dl_"));
    CHECK_FALSE(bench.disk.Has("c/WINDOWS/system32/Ads/AdCache"));
    CHECK_FALSE(bench.disk.Has("c/WINDOWS/system32/config/SOFTWARE.scourwell"));

    bench.Reopen();
    CHECK(bench.Scan(*bench.machine) == "");
    CHECK(KeysOf(*bench.machine) != keys);
    CHECK(KeysOf(*bench.machine).find("FlyswatDesktop2") != std::string::npos);

    CHECK(bench.Restore() == "");
    bench.Reopen();
    CHECK(bench.Scan(*bench.machine) == bench.disk.planted());
    CHECK((KeysOf(*bench.machine) == keys));
    CHECK((TreeOf(bench.disk.path() + "/c") == before));
  }

  TEST_CASE("an archive bears the mark of the machine where the program was used there") {
    for (const bool used : {false, true}) {
      CAPTURE(used);
      RemovalBench bench;
      if (used) {
        const OfflineUser& user = bench.machine->users().back();
        const RegValue mark{kRegText, std::string(64, 'A')};
        CHECK(bench.machine->registry().SetValue(
                  RootKey::Users, user.sid + "\\Software\\Scourwell\\" + kMarkSection, kMarkKey,
                  mark) == kRegOk);
        CHECK(bench.machine->SaveRegistry().ok());
        bench.Reopen();
      }
      bench.RemoveAll();
      bench.kept.texts.clear();  // another machine does the restoring
      bench.Reopen();
      const std::string left = bench.Restore();
      CAPTURE(left);
      CHECK(left.empty() == used);
    }
  }

  TEST_CASE("a folder of any user is as safe as that of the one who is acted as") {
    RemovalBench bench;
    const std::string desktop = "C:\\Documents and Settings\\Bj\u00F6rn\\Cookies";
    const auto result = bench.removal->Remove(
        "archive", {{"X", FoundFolder{desktop}}, {"X", FoundFolder{"C:\\WINDOWS"}}});
    CHECK(result.removal.Count(RemovalState::Refused) == 2);
    CHECK(bench.disk.Has("c/Documents and Settings/Bj\u00F6rn/Cookies"));
  }

  TEST_CASE("a hive that was not saved, or is damaged, stays as it is") {
    for (const bool damaged : {false, true}) {
      CAPTURE(damaged);
      RemovalBench bench;
      const std::string name = "c/WINDOWS/system32/config/SOFTWARE";
      const std::string sound = bench.disk.Content(name);
      bench.disk.Put(name, damaged ? Damaged(sound) : Unsaved(sound));
      const std::string before = bench.disk.Content(name);
      bench.Reopen();
      bench.Scan(*bench.machine);
      CHECK(bench.machine->unread().size() == 1);
      const auto result =
          bench.removal->Remove("archive", {{"Flyswat", ValueAt(kRun, "FlyswatDesktop")}});
      CHECK(result.removal.failed);
      CHECK(bench.machine->unread()[0].place == "C:\\WINDOWS\\system32\\config\\SOFTWARE");
      CHECK((bench.disk.Content(name) == before));
    }
  }

  TEST_CASE("what Windows 98 alone can remove goes into a script for it") {
    RemovalBench bench("--98");
    // What was refused, or has gone since, waits for no other system.
    const auto refused = bench.removal->Remove(
        "first", {{"x", KeyAt(kRun)}, {"x", KeyAt(std::string(kRun) + "\\Gone")}});
    CHECK(refused.backup.failures.empty());
    CHECK(refused.removal.Count(RemovalState::Refused) == 1);
    CHECK(refused.removal.Count(RemovalState::Gone) == 1);
    CHECK(refused.script.empty());
    const auto result = bench.RemoveAll();
    CHECK(result.script == bench.folder + "Remove.reg");
    CHECK(result.removal.Count(RemovalState::Failed) == 5);  // keys and values
    const std::string script = bench.disk.Content("archives/Remove.reg");
    CHECK(script.starts_with("REGEDIT4"));
    for (const char* line :
         {"\"FlyswatDesktop\"=-",
          "[HKEY_USERS\\.Default\\SOFTWARE\\MICROSOFT\\WINDOWS\\CURRENTVERSION\\RUN]",
          "[-HKEY_CLASSES_ROOT\\CLSID\\{82B98006-7A56-11D2-A26F-00C04F962769}]"}) {
      CAPTURE(std::string(line));
      CHECK(script.find(line) != std::string::npos);
    }
    CHECK_FALSE(bench.disk.Has("c/WINDOWS/EGDACCESS_1052.dll"));
    bench.Reopen();
    std::string left;
    for (const char c : bench.Scan(*bench.machine)) left += c == '\n' ? "\n" : "";
    CHECK(left.size() == 5);  // keys and values
  }

  TEST_CASE("a disk that is full in mid-backup keeps everything") {
    for (const char* options : {"", "--98"}) {
      CAPTURE(std::string(options));
      RemovalBench bench(options);
      const std::string before = TreeOf(bench.disk.path() + "/c");
      const std::string keys = KeysOf(*bench.machine);
      bench.Scan(*bench.machine);
      OfflineRemoval::Result result;
      {
        const SmallFiles full(1000);
        result = bench.removal->Remove("archive", bench.sink.found);
      }
      CHECK(result.backup.archive.code() == kDiskFull);
      CHECK(result.removal.Count(RemovalState::Failed) == bench.sink.found.size());
      CHECK(result.script == "");
      CHECK((TreeOf(bench.disk.path() + "/c") == before));
      bench.Reopen();
      CHECK((KeysOf(*bench.machine) == keys));
    }
  }

  TEST_CASE("what a registry holds that can be read or saved no more is neither gone nor removed") {
    RemovalBench bench;
    bench.Scan(*bench.machine);
    std::vector<Finding> findings = bench.sink.found;
    findings.push_back({"x", KeyAt(kRun)});
    OfflineRemoval::Result result;
    {
      const SmallFiles full(8000);  // the smallest hive is larger, and has no room here either
      result = bench.removal->Remove("archive", findings);
    }
    CHECK(bench.machine->unread().size() == 4);  // those of the users, and what was to be saved
    CHECK(result.backup.archive.ok());
    CHECK(result.registry.code() == kDiskFull);
    CHECK(result.removal.Count(RemovalState::Refused) == 1);
    CHECK(result.removal.Count(RemovalState::Failed) == 6);
    CHECK(result.removal.failed);
    CHECK(result.script == "");
    CHECK(RemovalBench::Left(result).find("The registry could not be saved") != std::string::npos);
    bench.Reopen();
    bench.Scan(*bench.machine);
    CHECK(bench.sink.found.size() == 6);

    bench.removal->Remove("second", bench.sink.found);
    bench.Reopen();
    std::unique_ptr<RestoreRun> run;
    REQUIRE(bench.removal->backups().Open("second.qzp", {}, &run).ok());
    RestoreResult restored;
    const SmallFiles full(8000);
    CHECK_FALSE(bench.removal->Restore(*run, std::vector<bool>(6, true), &restored).ok());
  }

  TEST_CASE("a removal that is stopped at any moment leaves nothing that does not come back") {
    int in_between = 0;
    for (const int moment : {1, 2, 10, 40, 50, 55, 60, 70}) {
      CAPTURE(moment);
      RemovalBench bench;
      const std::string before = TreeOf(bench.disk.path() + "/c");
      const std::string keys = KeysOf(*bench.machine);
      bench.Scan(*bench.machine);
      int yields = 0;
      bench.m.pump.on_yield = [&] {
        if (++yields == moment) bench.m.pump.set_closing(true);
      };
      const auto result = bench.removal->Remove("archive", bench.sink.found);
      bench.m.pump.on_yield = nullptr;
      in_between += result.stopped && result.removal.Count(RemovalState::Removed) > 0;
      bench.m.pump.set_closing(false);
      bench.Reopen();
      if (result.backup.archive.ok()) {
        CHECK(bench.Restore() == "");
        bench.Reopen();
      }
      CHECK((TreeOf(bench.disk.path() + "/c") == before));
      CHECK((KeysOf(*bench.machine) == keys));
    }
    CHECK(in_between > 0);
  }

  TEST_CASE("a disk on which nothing can be written says so before anything begins") {
    if (geteuid() == 0) return;  // nothing is closed to the superuser
    RemovalBench bench;
    bench.RemoveAll();
    std::unique_ptr<RestoreRun> run;
    REQUIRE(bench.removal->backups().Open("archive.qzp", {}, &run).ok());
    RestoreResult result;
    chmod((bench.disk.path() + "/c").c_str(), 0555);
    CHECK(bench.removal->MayBegin().code() == kPermissionDenied);
    CHECK(bench.removal->Restore(*run, std::vector<bool>(run->items().size(), true), &result)
              .code() == kPermissionDenied);
    CHECK_FALSE(bench.disk.Has("c/WINDOWS/EGDACCESS_1052.dll"));
    chmod((bench.disk.path() + "/c").c_str(), 0755);
    CHECK(bench.removal->MayBegin().ok());
  }
}

}  // namespace scourwell::test
