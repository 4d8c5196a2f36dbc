// SPDX-License-Identifier: MIT
#include "backup/backup_order.h"
#include "tests/archive_support.h"
#include "tests/backup_support.h"

namespace scourwell::test {
TEST_SUITE("backups") {
  TEST_CASE("what was stored comes back, and the scripts are imported in their order") {
    Manager b;
    b.m.File("C:\\x.exe", "one").ReadOnly();
    b.m.File("C:\\Evil\\deep\\y.dll", "two");
    b.m.registry.Make(RootKey::LocalMachine, "Software\\Evil").Value("n", "x", kRegBinary);
    b.m.File("C:\\My backups\\left.reg", "[-HKEY_LOCAL_MACHINE\\Software]");
    b.Add(FoundFile{"C:\\x.exe"});
    b.Add(FoundFolder{"C:\\Evil"});
    b.Add(FoundFile{"C:\\Evil\\deep\\y.dll"});  // stored with its folder
    b.Add(FoundCookie{"C:\\gone.txt"});
    b.Add(FoundProcess{"C:\\x.exe", 7});
    b.Add(KeyAt("HKEY_LOCAL_MACHINE\\Software\\Evil"));
    const BackupReport report = b.Create("name");
    CHECK(report.archive.ok());
    CHECK(report.failed_rows.empty());
    CHECK(b.Names() == "left.reg name.qzp ");
    b.m.files.Remove("C:\\x.exe");
    b.m.files.Remove("C:\\Evil");

    b.m.File("C:\\My backups\\other.reg", "[-HKEY_LOCAL_MACHINE\\Software]");
    std::string imported;
    b.m.shell.on_run = [&](const std::string& command) {
      const std::string path(command.substr(14));
      imported += command + "\n" + b.m.Content(path);
    };
    CHECK(b.Restore("name.qzp").ok());
    CHECK(b.restored.failed.empty());
    CHECK(b.m.Content("C:\\x.exe") == "one");
    CHECK((b.m.files.Find("C:\\x.exe")->attributes & kReadOnly) != 0);
    CHECK(b.m.Content("C:\\Evil\\deep\\y.dll") == "two");
    // A script without a line needs no editor.
    const std::string mark =
        "REGEDIT4\r\n; Scourwell wrote this for the registry editor and erases it\r\n\r\n";
    const std::string line = mark + "[HKEY_LOCAL_MACHINE\\Software\\Evil]\r\n";
    CHECK(imported == "regedit /I /S C:\\MYBACK~1\\namekey.reg\n" + line +
                          "regedit /I /S C:\\MYBACK~1\\NAMEEX~1.REG\n" + line + "\"n\"=hex:78\r\n");
    CHECK(b.Names() == "left.reg name.qzp other.reg ");
    CHECK(b.m.Errors() == "");
    // Without a short form, a path with blanks is quoted.
    b.m.files.short_names = false;
    b.m.files.Find("C:\\My backups")->short_name.clear();
    b.m.shell.journal.clear();
    CHECK(b.Restore("name.qzp").ok());
    REQUIRE_FALSE(b.m.shell.journal.empty());
    CHECK(b.m.shell.journal[0] == "Run regedit /I /S \"C:\\My backups\\namekey.reg\"");
  }

  TEST_CASE("what would go again at the next start is not put back") {
    Manager b;
    b.m.File("C:\\evil.exe", "x");
    b.m.File("C:\\other.exe", "x");
    b.Add(FoundFile{"C:\\evil.exe"});
    b.Add(FoundFile{"C:\\other.exe"});
    REQUIRE(b.Create("name").archive.ok());
    REQUIRE(b.m.system.DeleteAtReboot("C:\\evil.exe").ok());
    for (const char* path : {"C:\\evil.exe", "C:\\other.exe"}) b.m.files.Remove(path);
    b.m.registry.Find(RootKey::LocalMachine, "SYSTEM\\CurrentControlSet\\Control\\Session Manager")
        ->Denied();
    CHECK(b.Restore("..\\My backups\\name.qzp").code() == kBadFileName);
    CHECK(b.Restore("name.qzp").ok());
    REQUIRE(b.restored.failed.size() == 1);
    CHECK(b.restored.failed[0].path == "C:\\evil.exe");
    CHECK_FALSE(b.m.Has("C:\\evil.exe"));
    CHECK(b.m.Has("C:\\other.exe"));
  }

  TEST_CASE("what could not be stored is named with its row") {
    Manager b;
    b.m.File("C:\\locked.exe", "x").Locked();
    b.m.File("C:\\good.exe", "x");
    b.m.registry.Make(RootKey::CurrentUser, "a\r\nb");
    b.Add(FoundFile{"C:\\good.exe"});
    b.Add(FoundFile{"C:\\locked.exe"});
    b.Add(KeyAt("HKEY_CURRENT_USER\\a\r\nb"));
    const BackupReport report = b.Create("name");
    CHECK(report.archive.ok());
    CHECK(report.failed_rows == std::vector<std::size_t>{1, 2});
    CHECK(report.failures.size() == 2);
    CHECK(b.m.Errors().find("C:\\locked.exe") != std::string::npos);
  }

  TEST_CASE("what is stored in part is named, and hinders nothing") {
    Manager b;
    b.m.File("C:\\streams.exe", "x").streams = true;
    b.m.Folder("C:\\Evil");
    b.m.Link("C:\\Evil\\way", "C:\\streams.exe");
    b.m.registry.Make(RootKey::CurrentUser, "Evil").traits.kind = std::string(70'000, 'k');
    b.Add(FoundFile{"C:\\streams.exe"});
    b.Add(FoundFolder{"C:\\Evil"});
    b.Add(KeyAt("HKEY_CURRENT_USER\\Evil"));
    const BackupReport report = b.Create("name");
    CHECK(report.archive.ok());
    CHECK(report.failed_rows.empty());
    std::string told;
    for (const ItemReport& failure : report.failures) {
      told += failure.path + " " + std::to_string(NumberOf(failure.why.reason().value())) + "\n";
    }
    const auto line = [](const char* path, Caption caption) {
      return path + (" " + std::to_string(NumberOf(caption))) + "\n";
    };
    CHECK(told == line("C:\\streams.exe", Caption::ReasonStreamsNotKept) +
                      line("C:\\Evil\\way", Caption::ReasonLink) +
                      line("HKEY_CURRENT_USER\\Evil", Caption::ReasonRightsNotKept));
  }

  TEST_CASE("names are those of plain files, and no archive is overwritten") {
    Manager b;
    for (const char* name : {"", "a\\b", "C:x", "*", "..", "nul", " a", "a ", "a|b", "100%"}) {
      CAPTURE(std::string(name));
      CHECK_FALSE(b.backups.IsUsableName(name));
    }
    CHECK(b.backups.IsUsableName("My first backup.1"));
    CHECK_FALSE(b.backups.IsUsableName(std::string(250, 'x')));
    CHECK(b.backups.NameForNow() == "2004-03-05 120000");
    REQUIRE(b.Create(b.backups.NameForNow()).archive.ok());
    CHECK(b.backups.NameForNow() == "2004-03-05 120000 2");
    const std::string content = b.m.Content("C:\\My backups\\2004-03-05 120000.qzp");
    CHECK(b.Create("2004-03-05 120000").archive.code() == kFileExists);
    CHECK(b.m.Content("C:\\My backups\\2004-03-05 120000.qzp") == content);
  }

  TEST_CASE("the list shows archives alone, and deleting takes the volumes along") {
    Manager b;
    CHECK(b.backups.List().empty());
    for (const char* name : {"b.qzp", "b.q01", "b.q02", "c.qzp", "c.txt"}) {
      b.m.File(std::string("C:\\My backups\\") + name, "xyz");
    }
    b.m.Folder("C:\\My backups\\folder.qzp");
    REQUIRE(b.backups.List().size() == 2);
    CHECK((b.backups.List()[0].key == "b.qzp" && b.backups.List()[0].size == 3));
    CHECK(b.backups.Delete("b.qzp").ok());
    CHECK(b.Names() == "c.qzp c.txt folder.qzp ");
    CHECK_FALSE(b.backups.Delete("..\\App\\errorlog.txt").ok());
    CHECK_FALSE(b.backups.Delete("none.qzp").ok());
    CHECK_FALSE(b.Restore("c.qzp").ok());
    CHECK(b.m.shell.journal.empty());
  }

  TEST_CASE("nothing of Scourwell or Windows is replaced by a restore") {
    Manager b;
    b.m.File("C:\\App\\Scourwell.exe", "hostile");
    b.m.File("C:\\WINDOWS\\explorer.exe", "hostile");
    b.m.File("C:\\fine.txt", "fine");
    b.Add(FoundFile{"C:\\App\\Scourwell.exe"});
    b.Add(FoundFile{"C:\\WINDOWS\\explorer.exe"});
    b.Add(FoundFile{"C:\\fine.txt"});
    REQUIRE(b.Create("n").archive.ok());
    b.m.File("C:\\App\\Scourwell.exe", "good");
    b.m.files.Remove("C:\\WINDOWS\\explorer.exe");
    b.m.files.Remove("C:\\fine.txt");
    CHECK(b.Restore("n.qzp").ok());
    CHECK(b.restored.failed.size() == 2);
    CHECK(b.m.Content("C:\\App\\Scourwell.exe") == "good");
    CHECK_FALSE(b.m.Has("C:\\WINDOWS\\explorer.exe"));
    CHECK(b.m.Content("C:\\fine.txt") == "fine");
  }

  TEST_CASE("whichever change fails while storing, nothing that was there is lost") {
    for (std::size_t n = 1; n < 30; ++n) {
      CAPTURE(n);
      Manager b;
      b.m.File("C:\\x.exe", "one");
      b.m.File("C:\\My backups\\old.qzp", "old");
      b.m.File("C:\\My backups\\left.reg", "x");
      b.Add(FoundFile{"C:\\x.exe"});
      b.m.files.failing_change = n;
      const bool stored = b.Create("n").archive.ok();
      b.m.files.failing_change = 0;
      CHECK(b.m.Content("C:\\x.exe") == "one");
      CHECK(b.m.Content("C:\\My backups\\old.qzp") == "old");
      CHECK(stored == b.m.Has("C:\\My backups\\n.qzp"));
      CHECK(stored == b.Restore("n.qzp").ok());
    }
  }

  TEST_CASE("only scripts of ours are cleared, and only in a full path") {
    Manager b;
    FakeCodePages pages;
    RegScript ours(pages, ScriptReader::Unicode);
    REQUIRE(ours.AddKey("HKEY_CURRENT_USER\\\u0141"));
    for (const auto& [name, content] : Rows<std::string, std::string>{
             {"notes.registry", ours.Bytes(true)},
             {"user.reg", ours.Bytes(true)},
             {"userkey.reg", "REGEDIT4\r\n\r\n[HKEY_CURRENT_USER\\mine]\r\n"},
             {"userexport.reg", ours.Bytes(false)},
             {"oldkey.reg", ours.Bytes(true)},
             {"OLDEXPORT64.REG", ours.Bytes(true)},
         }) {
      b.m.File("C:\\My backups\\" + name, content);
    }
    CHECK(b.backups.List().empty());
    CHECK(b.Create("n").archive.ok());
    CHECK(b.Names() == "notes.registry user.reg userkey.reg userexport.reg n.qzp ");
    for (const char* folder : {"", "backups", "\\backups", "C:backups"}) {
      CAPTURE(std::string(folder));
      b.settings.BackupFolder = folder;
      b.m.files.journal.clear();
      CHECK(b.Restore("n.qzp").code() == kBadFileName);
      CHECK(b.Create("m").archive.code() == kBadFileName);
      CHECK(b.backups.Delete("n.qzp").code() == kBadFileName);
      CHECK(b.backups.List().empty());
      CHECK(b.m.files.Count("List") + b.m.files.Count("Erase") == 0);
    }
  }

  TEST_CASE("what was to go at the next start stays, once it has been restored") {
    Manager b;
    for (const char* path : {"C:\\gone.exe", "C:\\there.exe", "C:\\other.exe"}) b.m.File(path, "x");
    b.Add(FoundFile{"C:\\gone.exe"});
    b.Add(FoundFile{"C:\\there.exe"});
    REQUIRE(b.Create("n").archive.ok());
    for (const char* path : {"C:\\gone.exe", "C:\\there.exe", "C:\\other.exe"}) {
      REQUIRE(b.m.system.DeleteAtReboot(path).ok());
    }
    b.m.files.Remove("C:\\gone.exe");
    REQUIRE(b.Restore("n.qzp").ok());
    b.m.Restart();
    CHECK((b.m.Has("C:\\gone.exe") && b.m.Has("C:\\there.exe")));
    CHECK_FALSE(b.m.Has("C:\\other.exe"));
  }

  TEST_CASE("what lies in the 64-bit view comes back through the 64-bit importer alone") {
    Manager b;
    FakeRegistry view64;
    view64.Make(RootKey::LocalMachine, "Software\\Evil").Value("v", "x", kRegBinary);
    Backups backups({b.m.files, b.m.registry, &view64, b.m.clock, b.m.pump, b.m.shell, b.m.system,
                     b.kept, b.log, b.m.code_pages, b.os, b.folders, b.settings});
    const Finding row{"", ValueAt("HKEY_LOCAL_MACHINE\\Software\\Evil", "v", "x", true)};
    REQUIRE(backups.Create("n", {&row}).archive.ok());
    std::string imported;
    b.m.shell.on_run = [&](const std::string& command) { imported += command + "\n"; };
    for (const bool native : {false, true}) {
      if (native) b.m.File("C:\\WINDOWS\\system32\\reg.exe");
      view64.DeleteValue(RootKey::LocalMachine, "Software\\Evil", "v");
      RestoreResult result;
      CHECK(RestoreAll(backups, "n.qzp", &result).ok());
      CHECK(result.failed.empty());
      CHECK(view64.Text(RootKey::LocalMachine, "Software\\Evil", "v") == "x");
    }
    CHECK(imported ==
          "C:\\WINDOWS\\regedit.exe /S \"C:\\My backups\\nexport64.reg\"\n"
          "C:\\WINDOWS\\Sysnative\\reg.exe import \"C:\\My backups\\nexport64.reg\"\n");
    CHECK_FALSE(b.m.registry.Find(RootKey::LocalMachine, "Software"));
    // A value of the same name in the other view is one of its own.
    b.m.registry.Make(RootKey::LocalMachine, "Software\\Evil").Value("v", "y", kRegBinary);
    const Finding other{"", ValueAt("HKEY_LOCAL_MACHINE\\Software\\Evil", "v", "y")};
    REQUIRE(backups.Create("both", {&row, &other}).archive.ok());
    for (FakeRegistry* registry : {&b.m.registry, &view64}) {
      REQUIRE(registry->DeleteKeyCall(RootKey::LocalMachine, "Software\\Evil") == kRegOk);
    }
    RestoreResult both;
    CHECK(RestoreAll(backups, "both.qzp", &both).ok());
    CHECK(b.m.registry.Text(RootKey::LocalMachine, "Software\\Evil", "v") == "y");
    CHECK(view64.Text(RootKey::LocalMachine, "Software\\Evil", "v") == "x");
    REQUIRE(b.m.registry.DeleteKeyCall(RootKey::LocalMachine, "Software\\Evil") == kRegOk);
    REQUIRE(b.m.registry.DeleteKeyCall(RootKey::LocalMachine, "Software") == kRegOk);
    // Where there is one view only, what belongs to the other is named.
    RestoreResult result;
    CHECK(RestoreAll(b.backups, "n.qzp", &result).ok());
    CHECK(result.failed.size() == 1);
    CHECK_FALSE(b.m.registry.Find(RootKey::LocalMachine, "Software"));
  }

  TEST_CASE("an archive that ends on another disk is seen, found and asked for") {
    Manager b;
    b.m.AddDrive('A');
    b.m.AddDrive('B');
    b.m.File("C:\\x.exe", std::string(3000, 'x'));
    b.m.File("C:\\noise", Noise(2000));
    b.Add(FoundFile{"C:\\noise"});
    REQUIRE(b.Create("n", {1000, [](const VolumeRequest&) { return std::string("A:\\"); }})
                .archive.ok());
    CHECK(b.Names() == "n.q01 ");
    const std::vector<BackupRow> rows = b.backups.List();
    REQUIRE(rows.size() == 1);
    CHECK(rows[0].key == "n.qzp");
    CHECK(rows[0].elsewhere == "A:\\");
    CHECK(rows[0].size == b.m.Content("A:\\n.qzp").size());
    b.m.files.Remove("C:\\noise");
    CHECK(b.Restore("n.qzp").ok());
    CHECK(b.m.Content("C:\\noise") == Noise(2000));
    // Now the disk is in another drive, and what was remembered is lost.
    for (const char* name : {"n.q02", "n.qzp"}) {
      b.m.File(std::string("B:\\") + name, b.m.Content(std::string("A:\\") + name));
      b.m.files.Remove(std::string("A:\\") + name);
    }
    b.m.files.Remove("C:\\noise");
    CHECK_FALSE(b.Restore("n.qzp").ok());
    for (const bool known : {true, false}) {
      if (!known) b.kept.texts["Backup/Elsewhere"] = "..\\n.qzp|x|1|2?|||?";
      REQUIRE(b.backups.List().size() == 1);
      CHECK(b.backups.List()[0].elsewhere == (known ? "A:\\" : ""));
      b.m.files.Remove("C:\\noise");
      std::string asked;
      CHECK(RestoreAll(b.backups, "n.qzp", &b.restored,
                       [&](std::uint32_t, const std::string& name, const Outcome&) {
                         asked += name + " ";
                         return std::string("B:\\");
                       })
                .ok());
      CHECK(asked == "n.qzp ");
      CHECK(b.m.Content("C:\\noise") == Noise(2000));
    }
    // The piece on a disk that is not there stays.
    CHECK(b.backups.Delete("n.qzp").ok());
    CHECK(b.backups.List().empty());
    CHECK(b.m.Has("B:\\n.qzp"));
  }

  TEST_CASE("the manager sorts dates and sizes as such, names without case") {
    std::vector<BackupRow> rows = {{"b", 900, 3}, {"A", 1000, 1}, {"c", 900, 2}};
    const auto names = [&](BackupOrder& order) {
      order.Sort(&rows);
      std::string text;
      for (const BackupRow& row : rows) text += row.key;
      return text;
    };
    BackupOrder order;
    CHECK(names(order) == "bAc");
    const Rows<BackupOrder::Column, std::string, std::string> kRows{
        {BackupOrder::kDate, "Acb", "bcA"},
        {BackupOrder::kName, "Abc", "cbA"},
        {BackupOrder::kSize, "cbA", "Acb"},  // equal ones stay as they stood
    };
    for (const auto& [column, up, down] : kRows) {
      order.SortBy(column);
      CHECK(names(order) == up);
      order.SortBy(column);
      CHECK(names(order) == down);
    }
  }
}

}  // namespace scourwell::test
