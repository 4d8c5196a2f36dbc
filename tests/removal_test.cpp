// SPDX-License-Identifier: MIT
#include "tests/removal_support.h"

namespace scourwell::test {

TEST_SUITE("removal") {
  TEST_CASE("files go whatever their attributes, and one that stays keeps them") {
    Remover r;
    r.settings.DeleteAfterReboot = false;
    r.m.File("C:\\a.exe", "x").Hidden().System().ReadOnly();
    CHECK(r.RemoveOne(FoundFile{" C:\\a.exe"}) == "r");
    CHECK_FALSE(r.m.Has("C:\\a.exe"));
    r.m.File("C:\\locked.exe", "x").ReadOnly().Locked();
    CHECK(r.RemoveOne(FoundFile{"C:\\locked.exe"}) == "F");
    CHECK((r.m.files.Find("C:\\locked.exe")->attributes & kReadOnly) != 0);
    CHECK(r.Recorded("C:\\locked.exe"));
    CHECK(r.m.system.journal.empty());
  }

  TEST_CASE("what is not ticked stays, what is left alone is reported, what was there counts") {
    Remover r;
    for (const char* path : {"C:\\b.txt", "C:\\left.txt", "C:\\kept.txt"}) r.m.File(path, "x");
    r.m.Folder("C:\\Evil");
    r.Add(FoundCookie{"C:\\b.txt"});
    r.Add(FoundFolder{"C:\\Evil"});
    for (const char* path : {"C:\\none.exe", "C:\\left.txt", "C:\\kept.txt"})
      r.Add(FoundFile{path});
    r.hits.SetChecked(4, false);
    r.Run({3});
    CHECK(r.States() == "rrgF");
    CHECK((r.m.Has("C:\\left.txt") && r.m.Has("C:\\kept.txt")));
    const RemovalCounters& counters = r.removal->counters();
    CHECK((counters.files == 0 && counters.cookies == 1 && counters.folders == 1));
    CHECK(counters.total_found == 5);
    // Once more, on the same list: what is gone is not ticked any more.
    r.Run({3});
    CHECK(r.States() == "F");
    CHECK((r.removal->counters().cookies == 0 && r.removal->counters().folders == 0));
  }

  TEST_CASE("the list says what came of each row, and what is gone is not asked for again") {
    Remover r;
    r.m.File("C:\\here.txt", "x");
    r.m.File("C:\\used.txt", "x").Locked();
    r.m.File("C:\\stays.txt", "x");
    for (const char* path : {"C:\\here.txt", "C:\\none.txt", "C:\\used.txt", "C:\\stays.txt"}) {
      r.Add(FoundFile{path});
    }
    CHECK_FALSE(r.hits.settled());
    CHECK(r.hits.Text(0, HitList::kState) == "");
    r.Run({3});
    CHECK(r.States() == "rgpF");
    CHECK(r.hits.settled());
    const auto state = [&](std::size_t row) { return r.hits.Text(row, HitList::kState); };
    CHECK(state(0) == r.captions.Text(Caption::StateRemoved));
    CHECK(state(1) == r.captions.Text(Caption::StateGone));
    CHECK(state(2) == r.captions.Text(Caption::StatePendingRestart));
    CHECK(state(3) == "");  // not tried
    CHECK(r.hits.checked_count() == 1);
    // What waits may be tried once more, what is gone may not, and the states go with their rows.
    r.hits.CheckAll(true);
    CHECK(r.hits.checked_count() == 2);
    r.hits.SortBy(HitList::kDetails);
    r.hits.SortBy(HitList::kDetails);
    CHECK(state(0) == r.captions.Text(Caption::StatePendingRestart));
    r.settings.DeleteAfterReboot = false;
    r.Run();
    CHECK(r.States() == "Fr");
    CHECK(r.removal->report().repeated == 1);  // the one that waited
    CHECK(r.hits.checked_count() == 1);
  }

  TEST_CASE("what is in use waits for the next start, each family in its way") {
    Remover nt;
    nt.m.File("C:\\used.dll", "x").Locked();
    nt.m.File("C:\\free.dll", "x");
    CHECK(nt.RemoveOne(FoundFile{"C:\\free.dll"}) == "r");
    CHECK(nt.RemoveOne(FoundFile{"C:\\used.dll"}) == "p");
    CHECK(Lines(nt.m.system.journal) == "Delete C:\\used.dll\n");
    CHECK(nt.removal->report().failed);

    Remover old(false);
    old.m.File("C:\\WINDOWS\\WinInit.ini", "[rename]\r\nNUL=C:\\OTHER\r\n");
    old.m.File("C:\\used.dll", "x").Locked();
    old.Register("C:\\USED.DLL");
    CHECK(old.RemoveOne(FoundFile{"C:\\used.dll"}) == "p");
    CHECK(old.m.Content("C:\\WINDOWS\\WinInit.ini") ==
          "[rename]\r\nNUL=C:\\used.dll\r\nNUL=C:\\OTHER\r\n");
    CHECK(old.m.system.journal.empty());
    CHECK(Lines(old.m.shell.journal) ==
          "Start C:\\WINDOWS\\system32\\regsvr32.exe /U /s \"C:\\used.dll\"\n");
    old.settings.DeleteAfterReboot = false;
    CHECK(old.RemoveOne(FoundFile{"C:\\used.dll"}) == "F");
  }

  TEST_CASE("a component is unregistered by its entry point, and deleted whatever it says") {
    for (const ErrorCode error : {kNoError, ErrorCode(kDeviceError), ErrorCode(kInvalidCall)}) {
      CAPTURE(error.number());
      Remover r;
      r.m.File("C:\\x.OcX", "x");
      r.Register("C:\\x.ocx");
      r.m.shell.call_error = error;
      CHECK(r.RemoveOne(FoundFile{"C:\\x.OcX"}) == "r");
      CHECK(r.m.shell.journal[0] == "Call C:\\x.OcX DllUnregisterServer");
      CHECK((r.m.Errors() != "") == (error == kDeviceError));
    }
  }

  TEST_CASE("only the library that a class names is loaded to unregister it") {
    struct Case {
      const char* registered;
      bool called;
    };
    const Case cases[] = {{"", false},
                          {"C:\\Planted\\Long name.dll", true},
                          {" \"c:\\planted\\LONG NAME.DLL\" ", true},
                          {"%EVIL%\\Long name.dll", true},
                          {"C:\\Planted\\LONGNA~1.DLL", true},
                          {"C:\\Program Files\\Long name.dll", false},
                          {"Long name.dll", false},  // the one of the system folder
                          {"C:\\Planted\\other.dll", false}};
    for (const Case& c : cases) {
      CAPTURE(c.registered);
      Remover r;
      r.m.system.environment["EVIL"] = "C:\\Planted";
      r.m.File("C:\\Planted\\Long name.dll", "x").short_name = "LONGNA~1.DLL";
      r.Register("C:\\elsewhere.dll", "{0}");
      if (*c.registered) r.Register(c.registered);
      CHECK(r.RemoveOne(FoundFile{"C:\\Planted\\Long name.dll"}) == "r");
      CHECK(Lines(r.m.shell.journal) ==
            (c.called ? "Call C:\\Planted\\Long name.dll DllUnregisterServer\n" : ""));
    }
  }

  TEST_CASE("a link is removed as the link it is") {
    Remover r;
    r.m.File("C:\\Precious\\deep\\letter.txt", "dear");
    r.m.File("C:\\Evil\\sub\\x.exe", "x").ReadOnly();
    r.m.Folder("C:\\Evil\\fixed").ReadOnly();
    r.m.Link("C:\\Evil\\sub\\way", "C:\\Precious");
    r.m.Link("C:\\Evil\\way", "C:\\Precious\\deep");
    const std::string precious = TreeOf(r.m, "C:\\Precious");
    // Once with the links in it, once swapped for one itself.
    for (int i = 0; i < 2; ++i) {
      CHECK(r.RemoveOne(FoundFolder{"C:\\Evil"}) == "r");
      CHECK_FALSE(r.m.Has("C:\\Evil"));
      CHECK(TreeOf(r.m, "C:\\Precious") == precious);
      r.m.Link("C:\\Evil", "C:\\Precious");
    }
    // A folder above the object was swapped.
    CHECK(r.RemoveOne(FoundFolder{"C:\\Evil\\deep"}) == "R");
    CHECK(r.RemoveOne(FoundFile{"C:\\Evil\\deep\\letter.txt"}) == "R");
    CHECK(TreeOf(r.m, "C:\\Precious") == precious);
    CHECK(r.Recorded("The folder is a link: C:\\Evil"));
    // Nor is it loaded: the library behind it would be.
    r.m.File("C:\\Precious\\real.dll", "x");
    r.m.Link("C:\\way.dll", "C:\\Precious\\real.dll").attributes = kLink;
    r.Register("C:\\way.dll");
    CHECK(r.RemoveOne(FoundFile{"C:\\way.dll"}) == "r");
    CHECK(r.m.Has("C:\\Precious\\real.dll"));
    CHECK(Lines(r.m.shell.journal).find("Call") == std::string::npos);
  }

  TEST_CASE("what is deleted after all, or comes back, stays as it is at the next start") {
    for (const bool nt : {true, false}) {
      Remover r(nt);
      r.m.File("C:\\Evil\\held.exe", "x").Locked();
      CHECK(r.RemoveOne(FoundFile{"C:\\Evil\\held.exe"}) == "p");
      r.m.files.Find("C:\\Evil\\held.exe")->locked = false;
      CHECK(r.RemoveOne(FoundFile{"C:\\Evil\\held.exe"}) == "r");
      r.m.File("C:\\Evil\\held.exe", "another's");
      r.m.Restart();
      CHECK(r.m.Has("C:\\Evil\\held.exe"));
    }
  }

  TEST_CASE("the warning names what stays, twelve of it at most") {
    Remover r;
    r.settings.DeleteAfterReboot = false;
    r.m.File("C:\\goes.txt", "x");
    r.Add(FoundFile{"C:\\goes.txt"});
    r.Run();
    CHECK(r.removal->Warning() == "");
    const auto warning_of = [&](int files) {
      r.hits.Clear();
      for (int i = 0; i < files; ++i) {
        const std::string path = "C:\\stays" + std::to_string(i) + ".txt";
        r.m.File(path, "x").Locked();
        r.Add(FoundFile{path});
      }
      r.m.File("C:\\goes.txt", "x");
      r.Add(FoundFile{"C:\\goes.txt"});
      r.Run();
      return r.removal->Warning();
    };
    const std::string more = r.captions.Text(Caption::AndMore);
    const std::string all = warning_of(12);
    CHECK(all.starts_with(r.captions.Text(Caption::SomeNotRemoved) + "\r\n" +
                          r.captions.Text(Caption::RestartAndScanAgain) +
                          "\r\n\r\nC:\\stays0.txt - "));
    CHECK(all.find("C:\\stays11.txt - ") != all.npos);
    CHECK((all.find(more) == all.npos && all.find("goes") == all.npos));
    const std::string cut = warning_of(13);
    CHECK(cut.find("stays12") == cut.npos);
    CHECK(cut.ends_with("\r\n... " + more));
  }

  TEST_CASE("what a full-width or rewritten name seems to lead to stays") {
    Remover r;
    const std::vector<std::string> precious = {"C:\\precious\\letter.txt", "C:\\Evil2\\x.exe",
                                               "C:\\Lodka\\evil.exe"};
    for (const std::string& path : precious) r.m.File(path, "dear");
    std::string deep = "C:\\Evil";
    while (deep.size() < 5000) deep += "\\a rather long name";
    for (const std::string& path :
         {deep + "\\x.exe", std::string("C:\\Evil\\\uFF0E\uFF0E\uFF3C\uFF50recious\\letter.txt"),
          std::string("C:\\Evil\\con\\nul. .txt"), std::string("C:\\Evil\\x.exe."),
          std::string("C:\\\u0141odka\\evil.exe")}) {
      r.m.File(path, "x");
    }
    CHECK(r.RemoveOne(FoundFolder{"C:\\Evil"}) == "r");
    CHECK(r.RemoveOne(FoundFolder{"C:\\\u0141odka"}) == "r");
    CHECK_FALSE(r.m.Has("C:\\Evil"));
    for (const std::string& path : precious) CHECK(r.m.Content(path) == "dear");
    CHECK(r.RemoveOne(FoundFile{"C:\\precious\\letter.txt."}) == "g");
    CHECK(r.m.Content(precious[0]) == "dear");
  }

  TEST_CASE("whichever change fails, nothing innocent is lost") {
    for (std::size_t n = 1; n < 40; ++n) {
      CAPTURE(n);
      Remover r(n % 2 != 0);
      r.m.File("C:\\Precious\\letter.txt", "dear");
      r.m.File("C:\\WINDOWS\\WinInit.ini", "[Rename]\r\n");
      r.m.File("C:\\Evil\\a\\x.exe", "x").ReadOnly();
      r.m.Link("C:\\Evil\\way", "C:\\Precious");
      r.m.File("C:\\Evil\\used.exe", "x").Locked();
      r.m.File("C:\\one.dll", "x").Hidden();
      r.Add(FoundFolder{"C:\\Evil"});
      r.Add(FoundFile{"C:\\one.dll"});
      r.m.files.failing_change = n;
      r.m.files.change_error = kPermissionDenied;
      r.Run();
      CHECK(r.m.Content("C:\\Precious\\letter.txt") == "dear");
      CHECK(r.m.Content("C:\\WINDOWS\\WinInit.ini").starts_with("[Rename]\r\n"));
      CHECK(r.removal->report().objects.size() == 2);
      for (const RemovedObject& object : r.removal->report().objects) {
        CHECK(object.result.done() == !r.m.Has(PlaceText(object.object)));
      }
    }
  }

  TEST_CASE("a file that cannot be asked for is not gone") {
    Remover r;
    r.m.AddDrive('D', DriveKind::Removable, false);
    CHECK(r.RemoveOne(FoundFile{"D:\\evil.exe"}) == "F");
    CHECK(r.m.Errors().find("D:\\evil.exe") != std::string::npos);
    CHECK(r.RemoveOne(FoundFile{"C:\\none\\evil.exe"}) == "g");
  }

  TEST_CASE("what a failed backup means for the removal behind it") {
    struct Row {
      bool archive;
      std::vector<std::size_t> failed;
      bool unattended;
      bool ask;
      std::vector<std::size_t> kept;
    };
    for (const Row& row : {Row{true, {}, false, false, {}},
                           {true, {}, true, false, {}},
                           {true, {1}, false, true, {}},
                           {true, {1}, true, false, {1}},
                           {false, {}, false, true, {}},
                           {false, {}, true, false, {0, 1, 2}}}) {
      BackupReport report;
      if (!row.archive) report.archive = Outcome::Failed(kDiskFull);
      report.failed_rows = row.failed;
      if (!row.failed.empty()) report.failures = {{"C:\\x", Outcome::Failed(kPathFileAccess)}};
      const BackupVerdict verdict = JudgeBackup(report, 3, row.unattended);
      CHECK(verdict.ask == row.ask);
      CHECK(verdict.kept == std::unordered_set<std::size_t>(row.kept.begin(), row.kept.end()));
    }
  }

  TEST_CASE("processes end before their files are tried; the report keeps the list's order") {
    Remover r;
    r.m.File("C:\\evil.exe", "x").Locked();
    r.m.processes.running = {{"C:\\evil.exe", 7}};
    r.m.system.waits = 3;
    r.m.system.on_ended = [&] { r.m.files.Find("C:\\evil.exe")->locked = false; };
    r.settings.DeleteAfterReboot = false;
    r.Add(FoundFile{"C:\\evil.exe"});
    r.Add(FoundProcess{"C:\\evil.exe", 7});
    r.Run();
    CHECK(r.States() == "rr");
    CHECK(KindOf(r.removal->report().objects[0].object) == FindingKind::File);
  }

  TEST_CASE("a process that could not be looked for is not said to be gone") {
    Remover r;
    r.m.processes.error = kPermissionDenied;
    CHECK(r.RemoveOne(FoundProcess{"C:\\evil.exe", 7}) == "F");
    r.m.processes.error = kNoError;
    CHECK(r.RemoveOne(FoundProcess{"C:\\evil.exe", 7}) == "g");
  }

  TEST_CASE("what a registry editor would reach through a link does not go into the script") {
    Remover r;
    r.m.registry.Make(RootKey::LocalMachine, "SOFTWARE\\Precious").Value("v", "x");
    r.m.registry.Link(RootKey::LocalMachine, "SOFTWARE\\Evil\\way", "SOFTWARE\\Precious");
    const std::string evil = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Evil";
    r.Add(ValueAt(evil + "\\way", "v"));
    r.Add(KeyAt(evil));
    r.Run();
    CHECK(r.States() == "Fr");
    CHECK(r.m.Content("C:\\App\\Remove.reg") == "REGEDIT4\r\n");
    CHECK(r.m.registry.Text(RootKey::LocalMachine, "SOFTWARE\\Precious", "v") == "x");
    CHECK_FALSE(r.m.registry.Find(RootKey::LocalMachine, "SOFTWARE\\Evil"));
  }
}

}  // namespace scourwell::test
