// SPDX-License-Identifier: MIT
#include "tools/startup_manager.h"

#include <set>

#include "tests/startup_support.h"

namespace scourwell::test {

TEST_SUITE("startup_manager") {
  TEST_CASE("all nine places are listed, with file, company and spy") {
    Planted p;
    p.m.File("C:\\App\\Ini\\update.ref",
             Definitions()
                 .Entry("SAFI", {"SAFIT", "SAFIS"}, {"Adware.O", "o.exe"})
                 .Entry("REGV", {"REGVT", "REGVK", "REGVV"},
                        {"Adware.V", "HKEY_LOCAL_MACHINE\\" + std::string(kRun), "Machine"})
                 .Text());
    p.m.versions.blocks["C:\\a.exe"] = VersionBlock().Text("CompanyName", "Acme").Make();
    StartupManager manager(p.needs);
    manager.Form_Load();
    CHECK(p.Cells(manager, {0, 1, 2, 3, 4, 6, 7, 8}) ==
          "Machine|<413>|<419>(Machine Run)|<416>|<420>|<17234>|Acme|Adware.V|\n"
          "<17236>|<413>|<419>(Machine Run)|<416>|<420>|<17235>|||\n"
          "Bad, name|<413>|<419>(Machine Run)|<416>|<420>|<17235>|||\n"
          "NoData|<413>|<419>(Machine Run)|<416>|<420>|<17235>|||\n"
          "Long|<413>|<419>(Machine Run)|<416>|<420>|<17235>|||\n"
          "Once|<413>|<419>(Machine RunOnce)|<416>|<420>|<17235>|||\n"
          "Ex|<413>|<419>(Machine RunOnceEx)|<416>|<420>|<17235>|||\n"
          "Service|<413>|<419>(Machine RunServices)|<416>|<420>|<17235>|||\n"
          "User|<413>|<426>|<415>|<418>|<17235>|||\n"
          "C:\\one.exe|<413>|<433>|<416>|<420>|<17235>|||\n"
          "two|<413>|<433>|<416>|<420>|<17235>|||\n"
          "C:\\a b.exe|<413>|<433>|<416>|<420>|<17235>|||\n"
          "Tray|<413>|<430>|<415>|<418>|<17235>|||\n"
          "Broken|<413>|<430>|<415>|<418>|<17235>|||\n"
          "Office|<413>|<431>|<416>|<420>|<17235>||Adware.O|\n");
    for (const auto& [name, command] :
         Rows<const char*, const char*>{{"Tray", "\"C:\\My Files\\t.exe\" /q"},
                                        {"User", "%WinDir%\\u.exe"},
                                        {"Ex", "01 02"}}) {
      CHECK(manager.Cell(p.RowOf(manager, name), StartupManager::kCommand) == command);
    }
    CHECK(manager.KeyOf(0) == "HKEY_LOCAL_MACHINE\\" + std::string(kRun));
    CHECK(manager.KeyOf(p.RowOf(manager, "Tray")) == "");
    CHECK_FALSE(manager.IsChanged());
    CHECK(p.m.Errors() == "");
  }

  TEST_CASE("what is disabled leaves its place, outlives the run and comes back as it was") {
    Planted p;
    const std::string before = p.State();
    {
      StartupManager manager(p.needs);
      manager.Form_Load();
      ToggleAll(manager);
      CHECK(manager.IsChanged());
      CHECK(p.State() == before);  // marks change nothing
      CHECK(manager.ApplyNow());
      CHECK(manager.disabled_count() == 15);
      CHECK_FALSE(manager.IsChanged());
    }
    CHECK(p.State().find("exe") == std::string::npos);
    CHECK(p.m.Content(kWinIni) == "[windows]\r\nload=\r\nrun=\r\n[x]\r\nrun=no\r\n");
    CHECK_FALSE(p.m.Has(std::string(kUserStartup) + "\\Tray.lnk"));
    CHECK(
        p.m.Content(kSaveProf).starts_with("Machine\r\nDisabled\r\nRegistry(Machine Run)\r\n"
                                           "All Users\r\nAny User Logs On\r\nC:\\a.exe\r\n"));
    StartupManager manager(p.needs);
    manager.Form_Load();
    CHECK(manager.disabled_count() == 15);
    CHECK(manager.Cell(0, StartupManager::kStatus) == "<423>");
    // In two steps and another order.
    for (std::size_t row = 1; row < manager.size(); row += 2) manager.cmdDisable_Click(row);
    CHECK(manager.ApplyNow());
    manager.Form_Load();
    for (std::size_t row = 0; row < manager.size(); ++row) {
      if (manager.status(row) == EntryStatus::Disabled) manager.cmdDisable_Click(row);
    }
    CHECK(manager.ApplyNow());
    CHECK(p.State() == before);
    CHECK_FALSE(p.m.Has(kSaveProf));
    CHECK_FALSE(p.m.Has(std::string(kKept) + "Tray.lnk"));
    CHECK_FALSE(p.m.Has("C:\\App\\Disabled Startup\\win.ini\\Run.txt"));
    CHECK(p.m.Errors() == "");
  }

  TEST_CASE("no crash loses an entry") { CheckThatNoCrashLosesAnEntry<StartupManager, Planted>(); }

  TEST_CASE("a disk that refuses any one change leaves every entry in one place") {
    for (std::size_t failing = 1; failing < 12; ++failing) {
      CAPTURE(failing);
      Planted p;
      StartupManager manager(p.needs);
      manager.Form_Load();
      ToggleAll(manager);
      p.m.files.failing_change = p.m.files.changes + failing;
      // A shortcut that cannot be moved is copied.
      const bool applied = manager.ApplyNow();
      CHECK(applied == (p.m.files.Count("Failing Move") == 1));
      CHECK(applied == (p.m.Errors().find("Method: FRM Startup - ApplyNow") == std::string::npos));
      CHECK(applied == manager.failures().empty());
      StartupManager next(p.needs);
      next.Form_Load();
      CHECK(next.size() == 15);
      CHECK(next.disabled_count() == manager.disabled_count());
    }
  }

  TEST_CASE("a registry that refuses keeps its entries enabled, the others go on") {
    Planted p;
    p.m.registry.Find(kMachine, kRun)->Denied();
    StartupManager manager(p.needs);
    manager.Form_Load();
    ToggleAll(manager);
    CHECK_FALSE(manager.ApplyNow());
    CHECK(manager.failures().size() == 5);
    CHECK(manager.disabled_count() == 10);
    CHECK(p.m.Content(kSaveProf).find("(Machine Run)") == std::string::npos);
    // And one that refuses to take an entry back.
    p.m.registry.Find(kMachine, kRun)->denied = false;
    p.m.registry.Find(kUser, kRun)->Denied();
    manager.cmdDisable_Click(p.RowOf(manager, "User"));
    CHECK_FALSE(manager.ApplyNow());
    CHECK(manager.status(p.RowOf(manager, "User")) == EntryStatus::Disabled);
    CHECK(p.m.Content(kSaveProf).find("User\r\n") != std::string::npos);
  }

  TEST_CASE("whatever a registry answers but success is a failure with a code of its own") {
    CHECK(FromRegistry(kRegOk).ok());
    CHECK(FromRegistry(kRegNotFound).code() == kFileNotFound);
    CHECK(FromRegistry(kRegAccessDenied).code() == kPermissionDenied);
    for (const int status : {int{kRegInvalidParameter}, int{kRegBadPath}, 1018}) {
      CHECK(FromRegistry(status).code() == kInvalidCall);
    }
    // One that cannot be listed is no place without entries.
    Planted p;
    p.m.registry.Find(kUser, kRun)->unreadable = true;
    StartupManager manager(p.needs);
    manager.Form_Load();
    CHECK(manager.failures().size() == 1);
    CHECK(manager.size() == 14);
  }

  TEST_CASE("what is marked for removal can be backed up, unless it lies in a line of win.ini") {
    Planted p;
    p.m.registry.Make(kUser, kRun).Value("Machine", Z("C:\\a.exe"));  // as in another place
    p.registry64.Make(kMachine, kRun).Value("Wide", Z("C:\\wide.exe"));
    StartupManager manager(p.needs);
    manager.Form_Load();
    CHECK(manager.RemovedObjects().empty());
    for (std::size_t row = 0; row < manager.size(); ++row) manager.cmdRemove_Click(row);
    CHECK(manager.Removals().size() == manager.size());
    std::set<std::string> identities;
    for (std::size_t row = 0; row < manager.size(); ++row) identities.insert(manager.Identity(row));
    CHECK(identities.size() == manager.size());
    std::string places;
    std::size_t lines = 0;
    for (const Finding& removed : manager.RemovedObjects()) {
      places += PlaceText(removed.object) + "\n";
    }
    for (std::size_t row = 0; row < manager.size(); ++row) {
      const std::string& place = manager.Cell(row, StartupManager::kLocation);
      if (place == "<432>" || place == "<433>") ++lines;
    }
    CHECK(lines > 0);
    CHECK(manager.RemovedObjects().size() == manager.size() - lines);
    CHECK(places.find("HKEY_CURRENT_USER\\" + std::string(kRun) + "\\User\n") != places.npos);
    CHECK(places.find(std::string(kRun) + "\\Wide (64-bit)\n") != places.npos);
    CHECK(places.find(std::string(kUserStartup) + "\\") != places.npos);
  }

  TEST_CASE("removal is final") {
    Planted p;
    StartupManager manager(p.needs);
    manager.Form_Load();
    manager.cmdDisable_Click(p.RowOf(manager, "Tray"));
    manager.cmdDisable_Click(p.RowOf(manager, "two"));
    REQUIRE(manager.ApplyNow());
    for (const char* name : {"Tray", "Machine", "C:\\one.exe"}) {
      manager.cmdRemove_Click(p.RowOf(manager, name));
    }
    CHECK(manager.Cell(0, StartupManager::kStatus) == "<424> <17401>");
    CHECK(manager.ApplyNow());
    CHECK(manager.size() == 12);
    manager.Form_Load();
    CHECK(manager.size() == 12);
    CHECK_FALSE(p.m.Has(std::string(kKept) + "Tray.lnk"));
    CHECK(p.m.registry.Text(kMachine, kRun, "Machine") == "(none)");
    // What is left of the line takes the other program back in its place.
    manager.cmdDisable_Click(p.RowOf(manager, "two"));
    CHECK(manager.ApplyNow());
    CHECK(p.m.Content(kWinIni).find("\r\nrun=two  \"C:\\a b.exe\"\r\n") != std::string::npos);
    CHECK_FALSE(p.m.Has(kSaveProf));
  }

  TEST_CASE("an entry of the same name that came up meanwhile is not written over") {
    Planted p;
    StartupManager manager(p.needs);
    manager.Form_Load();
    for (const char* name : {"Machine", "Tray"}) manager.cmdDisable_Click(p.RowOf(manager, name));
    REQUIRE(manager.ApplyNow());
    p.m.registry.Make(kMachine, kRun).Value("Machine", Z("C:\\newer.exe"));
    p.m.File(std::string(kUserStartup) + "\\Tray.lnk",
             FakeShell::MakeShortcut("C:\\newer.exe", ""));
    manager.Form_Load();
    CHECK(manager.size() == 17);  // the new ones beside the old ones
    std::set<std::string> identities;
    for (std::size_t row = 0; row < manager.size(); ++row) identities.insert(manager.Identity(row));
    CHECK(identities.size() == 17);
    manager.ResetAll();
    CHECK_FALSE(manager.ApplyNow());
    CHECK(manager.failures().size() == 2);
    CHECK(manager.disabled_count() == 2);
    CHECK(p.m.registry.Text(kMachine, kRun, "Machine") == Z("C:\\newer.exe"));
    // The newer shortcut cannot be kept under the name of the older one.
    ToggleAll(manager);
    CHECK_FALSE(manager.ApplyNow());
    CHECK(p.m.Has(std::string(kUserStartup) + "\\Tray.lnk"));
    const auto kept = [&] { return p.m.Content(std::string(kKept) + "Tray.lnk"); };
    CHECK(kept().find("t.exe") != std::string::npos);
    // It goes without taking along what is kept of the older one.
    manager.Form_Load();
    for (std::size_t row = 0; row < manager.size(); ++row) {
      const bool newer = manager.status(row) == EntryStatus::Enabled;
      if (newer && manager.entry(row).name == "Tray") manager.cmdRemove_Click(row);
    }
    CHECK(manager.ApplyNow());
    CHECK_FALSE(p.m.Has(std::string(kUserStartup) + "\\Tray.lnk"));
    CHECK(kept().find("t.exe") != std::string::npos);
  }

  TEST_CASE("a shortcut whose file has gone is made from its command") {
    Planted p;
    StartupManager manager(p.needs);
    manager.Form_Load();
    for (const char* name : {"Tray", "Broken"}) manager.cmdDisable_Click(p.RowOf(manager, name));
    REQUIRE(manager.ApplyNow());
    for (const char* name : {"Tray.lnk", "Broken.lnk"}) p.m.files.Remove(std::string(kKept) + name);
    manager.ResetAll();
    CHECK_FALSE(manager.ApplyNow());  // nothing is known of the broken one
    CHECK(p.m.Content(std::string(kUserStartup) + "\\Tray.lnk") ==
          FakeShell::MakeShortcut("C:\\My Files\\t.exe", "/q"));
    CHECK(manager.disabled_count() == 1);
  }

  TEST_CASE("a shortcut that comes back is not taken at the next start") {
    Planted p;
    const std::string tray = std::string(kUserStartup) + "\\Tray.lnk";
    StartupManager manager(p.needs);
    manager.Form_Load();
    REQUIRE(p.m.system.DeleteAtReboot(tray).ok());  // as by a removal while it was held
    manager.cmdDisable_Click(p.RowOf(manager, "Tray"));
    REQUIRE(manager.ApplyNow());
    manager.ResetAll();
    CHECK(manager.ApplyNow());
    p.m.Restart();
    CHECK(p.m.Has(tray));
  }

  TEST_CASE("marks outlive reading anew, on the entries that are still there") {
    Planted p;
    StartupManager manager(p.needs);
    manager.Form_Load();
    for (const char* name : {"Machine", "two", "Tray"}) {
      manager.cmdDisable_Click(p.RowOf(manager, name));
    }
    CHECK(manager.SaveProfile("C:\\mine.pro"));
    manager.ResetAll();
    REQUIRE(p.m.registry.DeleteValue(kMachine, kRun, "Machine") == kRegOk);
    manager.Form_Load();
    CHECK(manager.LoadProfile("C:\\mine.pro"));
    manager.cmdRemove_Click(p.RowOf(manager, "Once"));
    manager.cmdDisable_Click(p.RowOf(manager, "User"));
    p.m.registry.Make(kMachine, kRun).Value("Aaa", Z("C:\\new.exe"));
    REQUIRE(p.m.registry.DeleteValue(kUser, kRun, "User") == kRegOk);
    manager.Refresh();
    const auto status = [&](const char* name) { return manager.status(p.RowOf(manager, name)); };
    for (const char* name : {"Machine", "two", "Tray"}) {
      CHECK(status(name) == EntryStatus::Disabled);  // "Machine" only in the user's profile
    }
    CHECK(status("Once") == EntryStatus::Remove);
    CHECK(status("Aaa") == EntryStatus::Enabled);
    CHECK(p.Cells(manager, {0}).find("User|") == std::string::npos);
    CHECK(manager.disabled_count() == 3);
    manager.Refresh();
    CHECK(manager.disabled_count() == 3);
    CHECK(manager.ApplyNow());
    CHECK_FALSE(manager.HasMarks());
    CHECK(p.m.registry.Text(kMachine, kRun, "Aaa") == Z("C:\\new.exe"));
  }

  TEST_CASE("a mark shows as one until it is applied, and can be taken back") {
    Planted p;
    StartupManager manager(p.needs);
    manager.Form_Load();
    const auto status = [&] { return manager.Cell(0, StartupManager::kStatus); };
    manager.cmdDisable_Click(0);
    CHECK(status() == "<423> <17401>");
    REQUIRE(manager.ApplyNow());
    CHECK(status() == "<423>");
    manager.cmdRemove_Click(0);
    CHECK(status() == "<424> <17401>");
    CHECK(manager.Removals() == std::vector<std::string>{"Machine"});
    manager.cmdDisable_Click(0);
    CHECK(status() == "<423>");  // what it was, not a mark of another kind
    CHECK_FALSE(manager.HasMarks());
    CHECK(manager.Removals().empty());
  }

  TEST_CASE("a shortcut that is made anew beside the disabled one is an entry of its own") {
    const std::string path = std::string(kUserStartup) + "\\Tray.lnk";
    Planted p;
    StartupManager manager(p.needs);
    manager.Form_Load();
    const std::string kept = p.m.Content(path);
    manager.cmdDisable_Click(p.RowOf(manager, "Tray"));
    REQUIRE(manager.ApplyNow());
    // The same target, another file.
    p.m.File(path, FakeShell::MakeShortcut("C:\\My Files\\t.exe", "/q") + "\n");
    manager.Form_Load();
    const auto count = [&] {
      std::size_t rows = 0;
      for (std::size_t row = 0; row < manager.size(); ++row) {
        rows += manager.entry(row).name == "Tray" ? 1 : 0;
      }
      return rows;
    };
    REQUIRE(count() == 2);
    CHECK(manager.ApplyNow());
    CHECK(p.m.Content(std::string(kKept) + "Tray.lnk") == kept);
    manager.cmdRemove_Click(p.RowOf(manager, "Tray"));  // the one in its place comes first
    CHECK(manager.ApplyNow());
    CHECK_FALSE(p.m.Has(path));
    CHECK(count() == 1);
    manager.ResetAll();
    CHECK(manager.ApplyNow());
    CHECK(p.m.Content(path) == kept);
  }

  TEST_CASE("programs of the 64-bit view are listed, disabled and put back there") {
    Planted p;
    p.registry64.Make(kMachine, kRun).Value("Wide", Z("C:\\wide.exe"));
    const std::string before = p.State();
    StartupManager manager(p.needs);
    manager.Form_Load();
    const std::size_t row = p.RowOf(manager, "Wide");
    CHECK(manager.Cell(row, StartupManager::kLocation) == "<419>(Machine Run, 64-bit)");
    manager.cmdDisable_Click(row);
    REQUIRE(manager.ApplyNow());
    CHECK(p.registry64.Text(kMachine, kRun, "Wide") == "(none)");
    StartupManager next(p.needs);
    next.Form_Load();
    next.ResetAll();
    CHECK(next.ApplyNow());
    CHECK(p.State() == before);
  }
}

}  // namespace scourwell::test
