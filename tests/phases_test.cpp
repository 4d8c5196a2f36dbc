// SPDX-License-Identifier: MIT

// The memory, registry and cookie phases on the fake machine.
#include "machine/registry_place.h"
#include "scan/cookie_scan.h"
#include "scan/registry_scan.h"
#include "tests/session_support.h"
#include "text/paths.h"

namespace scourwell::test {
namespace {

constexpr auto kCurrentUser = RootKey::CurrentUser;
constexpr auto kLocalMachine = RootKey::LocalMachine;
constexpr char kRun[] = "Software\\Microsoft\\Windows\\CurrentVersion\\run";

struct Phases : ScanBench {
  RegistryScan Registry() {
    return RegistryScan(m.registry, m.pump, log, sink, progress, lists, loader);
  }
  void KeyPart(std::string_view part, std::string_view spy) { lists.key_parts.Add({spy, part}); }
  void Match(std::string_view spy, std::string_view process) {
    lists.processes.Clear();
    lists.processes.Add({spy, process});
    memory.MatchAll(lists.processes);
  }
  std::string Cookies(bool all) {
    sink.found.clear();
    CookieScan(m.files, m.pump, log, sink, progress, lists.cookies)
        .ScanCookie("C:\\Cookies\\", all);
    return sink.lines();
  }
};

}  // namespace

TEST_SUITE("containment_index") {
  TEST_CASE("decides as a plain search of every row does") {
    constexpr const char* kPieces[] = {"{A1", "-B2", "}", "RUN\\", "x", "Bar", "bar", ".", "tool"};
    for (std::uint32_t seed = 1; seed <= 200; ++seed) {
      Dice dice(seed);
      DefinitionList<KeyPart> list;
      const auto text = [&](std::size_t most) {
        std::string result;
        for (std::size_t i = 1 + dice.Below(most); i > 0; --i) result += dice.Pick(kPieces);
        return result;
      };
      for (int i = 0; i < 30; ++i) list.Add({"spy", text(3)});
      const ContainmentIndex index(list, &KeyPart::part);
      for (int i = 0; i < 30; ++i) {
        const std::string examined = text(8);
        std::optional<std::uint32_t> expected;
        for (std::uint32_t row = 0; row < list.size() && !expected; ++row) {
          if (FindNoCase(examined, list[row].part) != std::string_view::npos) expected = row;
        }
        CAPTURE(seed);
        CAPTURE(examined);
        CHECK(index.FirstRowIn(examined) == expected);
      }
    }
  }
}

TEST_SUITE("memory_scan") {
  TEST_CASE("the NT family compares file names, ends on XP what it finds, and lists it once") {
    Phases p;
    p.folders.system = "C:\\WINDOWS\\system32";
    p.folders.windows = "C:\\WINDOWS";
    p.m.processes.running = {
        {"C:\\a\\Spy.EXE", 7, 32},         {"C:\\b\\notspy.exe", 8, 32},
        {"C:\\c\\spy.exe", 9, 32},         {"c:\\windows\\SYSTEM32\\svchost.exe", 10, 32},
        {"C:\\temp\\svchost.exe", 11, 32}, {"C:\\d\\scourwell.exe", 4711, 32}};
    p.definitions.Entry("MEMA", {"MEMAT", "MEMAF"}, {"Bad", "SPY.exe"})
        .Entry("MEMA", {"MEMAT", "MEMAF"}, {"Host", "svchost.exe"})
        .Entry("MEMA", {"MEMAT", "MEMAF"}, {"Us", "scourwell.exe"});
    p.WriteDefinitions();
    p.memory.ListProcesses();
    CHECK(p.m.processes.asked == "status");
    p.loader.Load(kUpdateMemoryList);
    p.memory.MatchAll(p.lists.processes);
    CHECK(p.sink.lines() ==
          "Memory Process|Bad|C:\\a\\Spy.EXE\nMemory Process|Bad|C:\\c\\spy.exe\n"
          "Memory Process|Host|c:\\windows\\SYSTEM32\\svchost.exe\n"
          "Memory Process|Host|C:\\temp\\svchost.exe\nMemory Process|Us|C:\\d\\scourwell.exe\n");
    // The genuine one and Scourwell itself are refused, each with one record.
    CHECK(Lines(p.m.system.journal) == "Terminate 7\nTerminate 9\nTerminate 11\n");
    CHECK(p.m.Errors() ==
          "Error Description: A process of Windows itself is not ended, Error Number: 70, "
          "Method: KillProcessById, Process: c:\\windows\\SYSTEM32\\svchost.exe\n"
          "Error Description: Scourwell does not end its own process, Error Number: 70, "
          "Method: KillProcessById, Process: C:\\d\\scourwell.exe\n");
  }

  TEST_CASE("a process is known by its long name, on Windows 98 by its file name too") {
    for (const bool nt : {true, false}) {
      CAPTURE(nt);
      Phases p;
      if (!nt) p.m.system.record = {4, 10, 0x040A08AE, 1, "", 0, 0, 0, 0};
      p.os = COpSysInfo(p.m.system);
      p.m.File("C:\\Spy Home\\Long spy.exe").short_name = "LONGSP~1.EXE";
      p.m.files.Find("C:\\Spy Home")->short_name = "SPYHOM~1";
      p.m.processes.running = {{"C:\\SPYHOM~1\\LONGSP~1.EXE", 7, 0},
                               {"C:\\SPYHOM~1\\GONE~1.EXE", 8, 0},
                               {"C:\\My long spy.exe", 9, 0}};
      p.memory.ListProcesses();
      p.Match("Bad", "long SPY.exe");
      CHECK(p.sink.lines() == "Memory Process|Bad|C:\\SPYHOM~1\\LONGSP~1.EXE\n");
      p.sink.found.clear();
      p.Match("Bad", "C:\\Spy Home\\long spy.exe");
      CHECK(p.sink.found.size() == (nt ? 0 : 1));
    }
  }

  TEST_CASE("Windows 98 compares whole texts and only lists") {
    Phases p;
    p.m.system.record = {4, 10, 0x040A08AE, 1, "", 0, 0, 0, 0};
    p.os = COpSysInfo(p.m.system);
    p.m.processes.running = {{"C:\\A\\SPY.EXE", 7, 0}, {"SPY.EXE", 8, 0}};
    p.memory.ListProcesses();
    CHECK(p.m.processes.asked == "snapshot");
    p.Match("Bad", "c:\\a\\spy.exe");
    CHECK(p.sink.lines() == "Memory Process|Bad|C:\\A\\SPY.EXE\n");
    CHECK(p.m.system.journal.empty());
  }

  TEST_CASE("a listing that breaks off is matched as far as it came; a stop ends it") {
    Phases p;
    p.m.processes.running = {{"C:\\a.exe", 7, 0}, {"C:\\b.exe", 8, 0}};
    p.m.processes.error = kPermissionDenied;
    p.memory.ListProcesses();
    CHECK(p.memory.Tasklist().size() == 1);
    CHECK(p.m.Failures() == "70 ShowRunningProcesses\n");
    p.m.processes.error = kNoError;
    p.m.pump.close_at = p.m.pump.yields + 2;
    p.memory.ListProcesses();
    CHECK(p.memory.Tasklist().size() == 1);
    p.Match("Bad", "a.exe");
    CHECK(p.sink.lines() == "");
  }

  TEST_CASE("a process is ended once, and only as long as it is the one that was listed") {
    Phases p;
    p.m.processes.running = {{"C:\\spy.exe", 7, 32}, {"C:\\other\\spy.exe", 8, 32}};
    p.memory.ListProcesses();
    p.m.processes.running[1].path = "C:\\innocent.exe";
    p.Match("Bad", "spy.exe");
    p.Match("Worse", "SPY.EXE");
    CHECK(Lines(p.m.system.journal) == "Terminate 7\n");
    CHECK(p.sink.found.size() == 2);
    CHECK(p.m.Errors() == "");
  }

  TEST_CASE("a process that cannot be looked up again is not ended, and that is recorded") {
    Phases p;
    p.m.processes.running = {{"C:\\spy.exe", 7, 32}};
    p.memory.ListProcesses();
    p.m.processes.error = kPermissionDenied;
    p.Match("Bad", "spy.exe");
    CHECK(p.m.system.journal.empty());
    CHECK(p.m.Failures().starts_with("70 "));
  }

  TEST_CASE("the identifiers of Windows 98 come back from the row whole") {
    Phases p;
    p.m.system.record = {4, 10, 0x040A08AE, 1, "", 0, 0, 0, 0};
    p.os = COpSysInfo(p.m.system);
    p.m.processes.running = {{"C:\\spy.exe", 0xFFF0A123, 0}};
    p.memory.ListProcesses();
    p.Match("Bad", "c:\\spy.exe");
    REQUIRE(p.sink.found.size() == 1);
    CHECK(std::get<FoundProcess>(p.sink.found[0].object).id == 0xFFF0A123);
  }
}

TEST_SUITE("registry_scan") {
  TEST_CASE("data is compared in the form of a registry export") {
    CHECK(ComparableData({kRegText, std::string("C:\\x\0y", 6)}) == "C:\\\\x");
    CHECK(ComparableData({kRegBinary, "\x01\xFE"}) == "hex:01 FE");
    CHECK(ComparableData({kRegDword, std::string("\xFF\0\0\0", 4)}) == "dword:000000FF");
    CHECK(ComparableData({kRegDword, "\x01"}) == "dword:00000001");
  }

  TEST_CASE("values are found by path, name and data, with all that the log needs") {
    Phases p;
    p.m.registry.Make(kCurrentUser, kRun)
        .Value("Harmless", "notepad.exe")
        .Value("SpyLoader", "C:\\x.exe")
        .Value("Innocent", "C:\\Program Files\\BadBar\\b.exe");
    p.KeyPart("\\run\\spyloader", "Loader");
    p.KeyPart("\\\\badbar\\\\", "Bar");
    p.KeyPart("\\BadBar\\b", "Never: data has doubled \\");
    p.Registry().QuickPass();
    const std::string key = std::string("HKEY_CURRENT_USER\\") + kRun;
    CHECK(p.sink.lines() == "Spy Registry Value|Loader|" + key +
                                "\\SpyLoader\nSpy Registry Value|Bar|" + key + "\\Innocent\n");
    REQUIRE(p.sink.found.size() == 2);
    const auto& bar = std::get<FoundValue>(p.sink.found[1].object);
    CHECK(FullKeyPath(bar.key) == key);
    CHECK(bar.name == "Innocent");
    CHECK(bar.data == "C:\\Program Files\\BadBar\\b.exe");
  }

  TEST_CASE("keys match with everything below them; the deep pass reads classes and providers") {
    Phases p;
    p.m.registry.Make(RootKey::ClassesRoot, "CLSID\\{BAD}\\InProcServer32");
    p.m.registry.Make(RootKey::ClassesRoot, "CLSID\\{GOOD}");
    const std::string module =
        "Software\\Microsoft\\Windows\\CurrentVersion\\moduleusage\\C:/Bad.dll";
    p.m.registry.Make(kLocalMachine, module);
    p.KeyPart("{bad}", "Class");
    p.KeyPart("HKEY_LOCAL_MACHINE\\" + Upper(module), "Module");
    std::string shown;
    p.m.pump.on_yield = [&] { shown += p.progress.lblScan + "\n"; };
    p.Registry().DeepPass();
    CHECK(p.sink.lines() ==
          "Spy Registry Key|Module|HKEY_LOCAL_MACHINE\\" + module +
              "\n"
              "Spy Registry Key|Class|HKEY_CLASSES_ROOT\\CLSID\\{BAD}\n"
              "Spy Registry Key|Class|HKEY_CLASSES_ROOT\\CLSID\\{BAD}\\InProcServer32\n");
    CHECK(p.progress.scanned_keys == 4);
    CHECK(shown.find("{BAD}\\InProcServer32\n") != std::string::npos);  // without "CLSID\"
    CHECK(shown.find("\nCLSID\\{BAD}") == std::string::npos);
    p.Registry().DeepPass();  // nothing is listed twice
    CHECK(p.sink.found.size() == 3);
  }

  TEST_CASE("values below the walked subkeys are found; data below CLSID names its key, too") {
    Phases p;
    const std::string extension = "Software\\Microsoft\\Internet Explorer\\Extensions\\{E}";
    p.m.registry.Make(kLocalMachine, extension).Value("CLSID", "{BAD}");
    p.m.registry.Make(RootKey::ClassesRoot, "CLSID\\{GOOD}\\TreatAs").Value("", "{bad} 1");
    // A key that is found takes its values along.
    p.m.registry.Make(RootKey::ClassesRoot, "CLSID\\{BAD}").Value("", "x");
    const std::string catalog =
        "SYSTEM\\CurrentControlSet\\Services\\WinSock2\\Parameters\\Protocol_Catalog9\\"
        "Catalog_Entries\\000000000099";
    p.m.registry.Make(kLocalMachine, catalog).Value("PackedCatalogItem", "C:\\{Bad}.dll");
    p.KeyPart("{bad}", "Class");
    p.Registry().QuickPass();
    p.Registry().DeepPass();
    CHECK(p.sink.lines() ==
          "Spy Registry Value|Class|HKEY_LOCAL_MACHINE\\" + extension +
              "\\CLSID\n"
              "Spy Registry Value|Class|HKEY_CLASSES_ROOT\\CLSID\\{GOOD}\\TreatAs\\\n"
              "Spy Registry Key|Class|HKEY_CLASSES_ROOT\\CLSID\\{GOOD}\\TreatAs\n"
              "Spy Registry Key|Class|HKEY_CLASSES_ROOT\\CLSID\\{BAD}\n"
              "Spy Registry Value|Class|HKEY_LOCAL_MACHINE\\" +
              catalog + "\\PackedCatalogItem\n");
  }

  TEST_CASE("named keys and values of the definitions") {
    Phases p;
    p.m.registry.Make(kLocalMachine, "Software\\Spy").Value("Path", "x");
    p.m.registry.Make(kCurrentUser, "Software\\Other").Value("Yes", "1", kRegText);
    for (const char* path :
         {"HKEY_LOCAL_MACHINE\\Software\\SPY", "HKEY_LOCAL_MACHINE\\Software\\No",
          "HKEY_LOCAL_MACHINE", "HKEY_LOCAL_MACHINE\\", "Software\\Spy",
          "HKEY_DYN_DATA\\Software\\Spy"}) {
      p.definitions.Entry("REGK", {"REGKT", "REGKK"}, {"Key", path});
    }
    p.definitions.Entry("REGKO", {"REGKTO", "REGKKO"},
                        {"Other", "HKEY_CURRENT_USER\\Software\\Other"});
    for (const char* name : {"PATH", "Absent"}) {
      p.definitions.Entry("REGV", {"REGVT", "REGVK", "REGVV"},
                          {"Val", "HKEY_LOCAL_MACHINE\\Software\\Spy\\", name});
    }
    p.WriteDefinitions();
    p.loader.Load(kUpdateRegistrySVList);
    p.Registry().QuickPass();
    CHECK(p.sink.lines() ==
          "Spy Registry Key|Key|HKEY_LOCAL_MACHINE\\Software\\SPY\n"
          "Spy Registry Key|Other|HKEY_CURRENT_USER\\Software\\Other\n"
          "Spy Registry Value|Val|HKEY_LOCAL_MACHINE\\SOFTWARE\\SPY\\PATH\n");
    CHECK(std::get<FoundValue>(p.sink.found[2].object).data == "x");
    CHECK(p.lists.keys.empty());
  }

  TEST_CASE("a key that may only be read is found; one that may not even be read is recorded") {
    Phases p;
    p.m.registry.Make(kLocalMachine, "Software\\Spy").denied = true;
    p.m.registry.Make(kLocalMachine, "Software\\Secret").unreadable = true;
    p.m.registry.Make(kCurrentUser, kRun).unreadable = true;
    for (const char* name : {"Spy", "Secret", "Absent"}) {
      p.definitions.Entry("REGK", {"REGKT", "REGKK"},
                          {"Key", std::string("HKEY_LOCAL_MACHINE\\Software\\") + name});
    }
    p.WriteDefinitions();
    p.Registry().QuickPass();
    CHECK(p.sink.lines() == "Spy Registry Key|Key|HKEY_LOCAL_MACHINE\\Software\\Spy\n");
    CHECK(p.m.Failures() ==
          "70 CheckRegistryKType, Key: HKEY_LOCAL_MACHINE\\Software\\Secret\n"
          "70 WalkRegistryValues, Key: HKEY_CURRENT_USER\\" +
              std::string(kRun) + "\n");
  }

  TEST_CASE("the 64-bit view adds what differs there, and says so") {
    Phases p;
    FakeRegistry view64;
    for (FakeRegistry* registry : {&p.m.registry, &view64}) {
      registry->Make(RootKey::ClassesRoot, "CLSID\\{BAD}");
      registry->Make(kCurrentUser, kRun).Value("Bad", "{bad}");
    }
    view64.Make(kLocalMachine, "Software\\Only64").Value("Name", "x");
    p.definitions.Entry("REGK", {"REGKT", "REGKK"}, {"Key", "HKEY_LOCAL_MACHINE\\Software\\Only64"})
        .Entry("REGV", {"REGVT", "REGVK", "REGVV"},
               {"Val", "HKEY_LOCAL_MACHINE\\Software\\Only64\\", "Name"});
    p.WriteDefinitions();
    p.KeyPart("{bad}", "Class");
    p.loader.Load(kUpdateRegistrySVList);
    p.Registry().QuickPass();
    p.Registry().DeepPass();
    RegistryScan second(view64, p.m.pump, p.log, p.sink, p.progress, p.lists, p.loader,
                        {true, false});
    second.QuickPass();
    second.DeepPass();
    CHECK(p.sink.lines() ==
          "Spy Registry Value|Class|HKEY_CURRENT_USER\\" + std::string(kRun) +
              "\\Bad\n"
              "Spy Registry Key|Class|HKEY_CLASSES_ROOT\\CLSID\\{BAD}\n"
              "Spy Registry Key|Key|HKEY_LOCAL_MACHINE\\Software\\Only64 (64-bit)\n"
              "Spy Registry Value|Val|HKEY_LOCAL_MACHINE\\SOFTWARE\\ONLY64\\Name (64-bit)\n"
              "Spy Registry Key|Class|HKEY_CLASSES_ROOT\\CLSID\\{BAD} (64-bit)\n");
    REQUIRE(p.sink.found.size() == 5);
    const auto& only64 = std::get<FoundKey>(p.sink.found[2].object);
    CHECK(FullKeyPath(only64.place) == "HKEY_LOCAL_MACHINE\\Software\\Only64");
    CHECK(only64.view64);
    CHECK(PlaceText(p.sink.found[0].object).find(kView64) == std::string::npos);
  }

  TEST_CASE("what both views share is listed once, from Windows 7 on") {
    for (const bool shares : {false, true}) {
      Phases p;
      FakeRegistry view64;
      std::size_t keys = 0;
      for (const char* key :
           {"HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\evil.exe",
            "HKEY_LOCAL_MACHINE\\Software\\Classes\\Evil.Class", "HKEY_CLASSES_ROOT\\EvilFile",
            "HKEY_CLASSES_ROOT\\CLSID\\{BAD}",
            "HKEY_LOCAL_MACHINE\\Software\\Classes\\CLSID\\{BAD}",
            "HKEY_LOCAL_MACHINE\\Software\\Evil"}) {
        for (FakeRegistry* registry : {&p.m.registry, &view64}) {
          registry->Make(*RootFromName(FirstPart(key)), std::string(BehindFirstPart(key)));
        }
        p.definitions.Entry("REGK", {"REGKT", "REGKK"}, {"Key", key});
        ++keys;
      }
      p.WriteDefinitions();
      p.Registry().QuickPass();
      RegistryScan(view64, p.m.pump, p.log, p.sink, p.progress, p.lists, p.loader, {true, shares})
          .QuickPass();
      CAPTURE(p.sink.lines());
      CHECK(p.sink.found.size() == 2 * keys - (shares ? 3 : 0));
    }
  }
}

TEST_SUITE("cookie_scan") {
  TEST_CASE("known fragments name the cookie, the rest counts only when all are asked for") {
    Phases p;
    for (const char* name : {"USER@SPYLOG[1].TXT", "user@news[1].txt", "user@spylog[1].dat"}) {
      p.m.File(std::string("C:\\Cookies\\") + name);
    }
    p.m.File("C:\\Cookies\\index.dat").Hidden();
    p.m.File("C:\\Cookies\\spylog hidden.txt").Hidden();
    p.m.Folder("C:\\Cookies\\spylog.txt");
    p.lists.cookies.Add({"Log", "spylog"});
    p.lists.cookies.Add({"Second", "log"});
    CHECK(p.Cookies(false) == "Spy Cookie|Log|C:\\Cookies\\USER@SPYLOG[1].TXT\n");
    CHECK(p.Cookies(true) ==
          "Spy Cookie|Log|C:\\Cookies\\USER@SPYLOG[1].TXT\n"
          "Spy Cookie|Other|C:\\Cookies\\user@news[1].txt\n");
  }

  TEST_CASE("a text that is no cookie is left alone, whatever its name") {
    const std::string cookie = "n\nv\nsite/\n0\n1\n2\n3\n4\n*\n";
    Phases p;
    p.lists.cookies.Add({"Log", "spylog"});
    p.m.File("C:\\Cookies\\letter about spylog.txt", "Dear\n\nall\n");
    p.m.File("C:\\Cookies\\to me@home.txt", cookie.substr(0, cookie.size() - 2));
    p.m.File("C:\\Cookies\\[1] spylog@x.txt", std::string(9, '\n'));
    p.m.File("C:\\Cookies\\ABCD1234.txt", cookie);
    p.m.File("C:\\Cookies\\spylog.txt", ReplaceAll(cookie, "\n", "\r\n"));
    CHECK(p.Cookies(true) ==
          "Spy Cookie|Other|C:\\Cookies\\ABCD1234.txt\n"
          "Spy Cookie|Log|C:\\Cookies\\spylog.txt\n");
  }

  TEST_CASE("no folder, no cookies; a folder that refuses is recorded") {
    Phases p;
    CHECK(p.Cookies(true) == "");
    CHECK(p.m.Errors() == "");
    p.m.Folder("C:\\Cookies").Denied();
    CHECK(p.Cookies(true) == "");
    CHECK(p.m.Failures() == "70 ScanCookie, Folder: C:\\Cookies\\\n");
  }
}

}  // namespace scourwell::test
