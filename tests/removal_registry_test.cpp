// SPDX-License-Identifier: MIT

// What a removal does to the registry and to processes.
#include "tests/removal_support.h"

namespace scourwell::test {

TEST_SUITE("removal") {
  TEST_CASE("registry rows go in their own view, and Windows' own keys stay") {
    const std::string run_path = "Software\\Microsoft\\Windows\\CurrentVersion\\Run";
    const std::string run = "HKEY_CURRENT_USER\\" + run_path;
    Remover r;
    FakeRegistry other;
    r.registry64 = &other;
    for (FakeRegistry* registry : {&r.m.registry, &other}) {
      registry->Make(RootKey::LocalMachine, "SOFTWARE\\Evil\\a\\b").Value("v", "x");
      registry->Make(RootKey::CurrentUser, run_path)
          .Value("Evil", "C:\\x.exe")
          .Value("back\\slash \"q\"", "x")
          .Value("", "default");
    }
    r.Add(KeyAt("HKEY_LOCAL_MACHINE\\SOFTWARE\\EVIL"));
    r.Add(ValueAt(run, "EVIL"));
    r.Add(ValueAt(run, "back\\slash \"q\""));
    r.Add(KeyAt("HKEY_LOCAL_MACHINE\\SOFTWARE\\None"));
    for (const char* key : {"HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Run",
                            "HKEY_LOCAL_MACHINE\\SOFTWARE", "HKEY_CLASSES_ROOT\\CLSID",
                            "HKEY_USERS\\S-1-5\\Software\\Microsoft", "HKEY_LOCAL_MACHINE"}) {
      r.Add(KeyAt(key));
    }
    r.Add(FoundKey{{RootKey::DynData, "x"}});
    r.Add(ValueAt(run, "a\r\n[-HKEY_LOCAL_MACHINE\\SOFTWARE]"));
    r.Add(ValueAt(run, "Evil", "C:\\x.exe", true));
    r.Run();
    CHECK(r.States() == "rrrgRRRRRRgr");
    CHECK(r.m.registry.Find(RootKey::LocalMachine, "SOFTWARE\\Evil") == nullptr);
    CHECK(other.Find(RootKey::LocalMachine, "SOFTWARE\\Evil\\a\\b") != nullptr);
    CHECK(r.m.registry.Find(RootKey::CurrentUser, run_path)->values.size() == 1);
    CHECK(other.Find(RootKey::CurrentUser, run_path)->values.size() == 2);
    CHECK(r.removal->counters().registry == 10);
    CHECK(r.m.Content("C:\\App\\Remove.reg") ==
          "REGEDIT4\r\n\r\n[-HKEY_LOCAL_MACHINE\\SOFTWARE\\EVIL]\r\n\r\n[" + run +
              "]\r\n\"EVIL\"=-\r\n[" + run +
              "]\r\n\"back\\\\slash \\\"q\\\"\"=-\r\n"
              "\r\n[-HKEY_LOCAL_MACHINE\\SOFTWARE\\None]\r\n\r\n");
  }

  TEST_CASE("a process is ended when it is still the one that was found") {
    Remover r;
    r.m.processes.running = {
        {"C:\\evil.exe", 7}, {"C:\\other.exe", 8}, {"C:\\WINDOWS\\system32\\lsass.exe", 9}};
    r.Add(FoundProcess{"C:\\EVIL.exe", 7});
    r.Add(FoundProcess{"C:\\evil.exe", 8});
    r.Add(FoundProcess{"C:\\evil.exe", 10});
    r.Add(FoundProcess{"C:\\WINDOWS\\system32\\lsass.exe", 9});
    r.Run();
    CHECK(r.States() == "rggR");
    CHECK(Lines(r.m.system.journal) == "Terminate 7\n");
    CHECK(r.removal->counters().processes == 2);
  }

  TEST_CASE("the script goes to the editor that reads it, and only when it says anything") {
    const std::string other = "Launch C:\\WINDOWS\\Regedit.exe /S \"C:\\App\\Remove.reg\"\n";
    for (const auto& [system, command] : Rows<VersionRecord, std::string>{
             {{5, 1, 2600, 2, "", 0, 0, 0, 0},
              "Launch C:\\WINDOWS\\system32\\RegEdt32.exe /S \"C:\\App\\Remove.reg\"\n"},
             {{5, 0, 2195, 2, "", 0, 0, 0, 0}, other},
             {{4, 0, 1381, 2, "", 0, 0, 0, 0}, other},
             {{4, 10, 2222, 1, " A ", 0, 0, 0, 0}, other},
         }) {
      Remover r;
      r.m.system.record = system;
      r.os = COpSysInfo(r.m.system);
      r.Run();
      r.removal->launchRegEditDelete();
      CHECK(r.m.Content("C:\\App\\Remove.reg") == "REGEDIT4\r\n");
      CHECK(r.m.shell.journal.empty());
      r.Add(KeyAt("HKEY_CURRENT_USER\\Software\\Evil"));
      r.Run();
      r.settings.UseRegEdit = false;
      r.removal->launchRegEditDelete();
      CHECK(r.m.shell.journal.empty());
      r.settings.UseRegEdit = true;
      r.removal->launchRegEditDelete();
      CHECK(Lines(r.m.shell.journal) == command);
    }
  }

  TEST_CASE("only a script of this removal is run, and what stays does not stand in it") {
    const std::string kBelow = "HKEY_CURRENT_USER\\Software\\Evil\\";
    struct Row {
      const char* failing;  // a call
      std::size_t close_at;
      const char* keys;  // in the script that is run; null: none is
    };
    for (const Row& row : {Row{"", 0, "AC"},
                           {"", 3, "A"},
                           {"Replace C:\\App\\Remove.reg", 0, nullptr},
                           {"Erase C:\\App\\Remove.reg", 0, nullptr}}) {
      CAPTURE(std::string(row.failing));
      Remover r;
      r.m.File("C:\\App\\Remove.reg", "old");
      for (const std::string key : {"A", "B", "C"}) r.Add(KeyAt(kBelow + key));
      if (*row.failing) r.m.files.faults[row.failing] = kDiskFull;
      r.m.pump.close_at = row.close_at;
      r.Run({1});
      r.removal->launchRegEditDelete();
      CHECK(r.m.shell.journal.size() == (row.keys ? 1 : 0));
      std::string script = "REGEDIT4\r\n";
      for (const char* key = row.keys; key && *key; ++key) {
        script += "\r\n[-" + kBelow + std::string(1, *key) + "]\r\n\r\n";
      }
      if (row.keys) CHECK(r.m.Content("C:\\App\\Remove.reg") == script);
    }
  }
}

}  // namespace scourwell::test
