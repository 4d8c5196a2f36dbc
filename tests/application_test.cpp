// SPDX-License-Identifier: MIT
#include "shell/application.h"

#include <set>

#include "shell/about.h"
#include "tests/app_support.h"

namespace scourwell::test {
namespace {

constexpr char kLog[] = "C:\\App\\ScanLog05-03-04-50000.txt";

struct Program {
  Program() {
    m.File("C:\\App\\Ini\\update.ref",
           Definitions()
               .Entry("SAFO", {"SAFOT", "SAFOS"}, {"Bad Bar", "badbar"})
               .Entry("SAFO", {"SAFOTD", "SAFOSD"}, {"Direct", "%WIN%\\direct"})
               .Entry("SAFI", {"SAFIT", "SAFIS"}, {"Pop", "pop*.exe"})
               .Value("NTOT", "SAFOTNUM", "1")
               .Value("NTOT", "SAFOTDNUM", "1")
               .Value("NTOT", "SAFITNUM", "1")
               .Text());
    m.File("C:\\Programs\\BadBar\\bar.dll");
    m.File("C:\\Programs\\popup.exe");
    m.File("C:\\Programs\\letter.txt");
    m.Folder("C:\\WINDOWS\\direct");
  }
  FakeMachine m;
  Application app{PortsOf(m), kAppFolder, {1, 0, 7}};

  std::string Hits() {
    std::string text;
    for (std::size_t i = 0; i < app.hits().size(); ++i) {
      text += app.hits().Text(i, HitList::kSystem) + ": " + app.hits().Text(i, HitList::kDetails) +
              "\n";
    }
    return text;
  }
  std::size_t Finished() {
    const std::string log = m.Content(kLog);
    std::size_t count = 0;
    for (std::size_t at = 0; (at = log.find("Version: 1.0.7", at)) != log.npos; ++at) ++count;
    return count;
  }
};

}  // namespace

TEST_SUITE("application") {
  TEST_CASE("a session that ends under the splash window leaves the settings alone") {
    Program p;
    CHECK(p.m.registry.SetValue(RootKey::CurrentUser, "Software\\Scourwell\\AutoSave", "AutoSave",
                                {kRegText, std::string("True\0", 5)}) == kRegOk);
    p.app.ReadLanguage();
    p.app.Shutdown();
    CHECK(p.m.registry.Text(RootKey::CurrentUser, "Software\\Scourwell\\AutoSave", "AutoSave") ==
          std::string("True\0", 5));
  }

  TEST_CASE("a whole scan, from start to shutdown") {
    Program p;
    p.m.File(kErrorLog, std::string(1'000'001, 'x'));
    p.m.File("C:\\App\\ignorespylist.txt", "\"Spy File\",\"C:\\Programs\\popup.exe\",\"Pop\"\r\n");
    p.app.Start();
    CHECK_FALSE(p.m.Has(kErrorLog));
    CHECK(p.app.Title() == "Scourwell 1.0 Rev.7");
    p.app.FillTree();
    p.app.PrepareScan();
    p.app.RunScan();
    CHECK(p.Hits() ==
          "Direct: C:\\WINDOWS\\direct\nBad Bar: C:\\Programs\\BadBar\n"
          "Bad Bar: C:\\Programs\\BadBar\\bar.dll\n");
    CHECK(p.app.hits().checked_count() == 3);
    CHECK(p.app.hits().counters().ignored == 1);  // counted, not listed
    CHECK(p.app.session().finished());
    CHECK_FALSE(p.app.scanning());
    CHECK_FALSE(p.app.progress().loading);
    CHECK(p.app.statistics().getNumberOfScans() == "1");
    CHECK(p.app.statistics().getLastSystemScanDate() == "05-03-04 @ 12:00:00 PM");
    const std::string log = p.m.Content(kLog);
    for (const char* line : {"Suspicious folders  found:2\r\n", "Suspicious files found:2\r\n",
                             "Components found: 4\r\n"}) {
      CHECK(log.find(line) != std::string::npos);
    }
    CHECK(log.find("popup.exe") == std::string::npos);
    p.app.PrepareScan();
    p.app.RunScan({{"C:\\Programs"}});
    CHECK(p.app.hits().size() == 3);  // direct entries are checked again
    CHECK(p.Finished() == 2);
    CHECK(p.app.statistics().getNumberOfScans() == "2");
    CHECK(p.m.Errors() == "");
    const std::string elsewhere = "C:\\Programs\\ScanLog.txt";
    p.app.settings().LogFilePath = elsewhere;
    p.app.PrepareScan();
    p.app.RunScan({{"C:\\Programs"}});
    p.app.Shutdown();
    CHECK(p.m.Has(kLog));
    CHECK(p.m.Has(elsewhere));
    p.app.settings().AutoSave = false;
    p.app.Shutdown();
    CHECK_FALSE(p.m.Has(kLog));
    CHECK_FALSE(p.m.Has(elsewhere));
    CHECK(p.m.registry.Text(RootKey::CurrentUser, "Software\\Scourwell\\AutoSave", "AutoSave") ==
          "False");
    p.app.Shutdown();  // without a log
    CHECK(p.m.Errors() == "");
  }

  TEST_CASE("a stopped scan leaves no log and no count, the next one starts afresh") {
    Program p;
    p.app.Start();
    p.app.FillTree();
    // Neither a scan nor a backup starts inside a scan.
    p.m.pump.on_yield = [&] {
      p.app.RunScan();
      p.app.RunScan({{"C:\\Programs"}});
      CHECK(p.app.BackUpChecked("x").archive.code() == kPermissionDenied);
    };
    p.m.pump.close_at = 2;
    p.app.PrepareScan();
    p.app.RunScan();
    CHECK_FALSE(p.app.session().finished());
    CHECK_FALSE(p.m.Has(kLog));
    CHECK(p.app.statistics().getNumberOfScans() == "0");
    p.app.PrepareScan();
    p.m.pump.on_yield = [&] { p.app.PrepareScan(); };  // nor is its list cleared
    p.app.RunScan();
    CHECK(p.app.session().finished());
    CHECK(p.app.hits().size() == 4);
    CHECK(p.Finished() == 1);
  }

  TEST_CASE("an empty list is called clean only when everything was read and nothing is excluded") {
    struct Case {
      const char* text;
      std::function<void(Program&)> before;
    };
    const Case cases[] = {
        {"NO known spyware", [](Program&) {}},
        {"The scan was stopped",
         [](Program& p) {
           p.m.pump.on_yield = [&p] {
             if (p.app.scanning()) p.m.pump.set_closing(true);
           };
         }},
        {"only the built-in definitions",
         [](Program& p) { p.m.files.Find("C:\\App\\Ini\\update.ref")->locked = true; }},
        {"excluded components: 1",
         [](Program& p) {
           p.m.File("C:\\Clean\\popup.exe");
           p.m.File("C:\\App\\ignorespylist.txt",
                    "\"Spy File\",\"C:\\Clean\\popup.exe\",\"Pop\"\r\n");
         }},
        {"not everything could be read",
         [](Program& p) { p.m.Folder("C:\\Clean\\Closed").Denied(); }},
    };
    for (const Case& c : cases) {
      CAPTURE(std::string(c.text));
      Program p;
      p.m.File("C:\\Clean\\letter.txt");
      p.m.files.Remove("C:\\WINDOWS\\direct");
      c.before(p);
      p.app.Start();
      p.app.PrepareScan();
      p.app.RunScan({{"C:\\Clean"}});
      CHECK(p.Hits() == "");
      CHECK(p.app.NothingListed().find(c.text) != std::string::npos);
    }
  }

  TEST_CASE("a new release is told of once, and replaced definitions count in the next scan") {
    Program p;
    const auto release = [&](const std::string& number, const std::string& folder) {
      p.m.File("C:\\App\\Ini\\update.ref", Definitions()
                                               .Value("SETTINGS", "UPDATE-FILE-NUMBER", number)
                                               .Entry("SAFO", {"SAFOT", "SAFOS"}, {"Bar", folder})
                                               .Value("NTOT", "SAFOTNUM", "1")
                                               .Text());
    };
    release("6", "badbar");
    p.app.Start();
    CHECK(p.app.TakeChangeReport() == "");  // came with the program
    release("7", "badbar");
    p.app.SaveSettings();
    CHECK(p.app.TakeChangeReport().starts_with("Update File: 7\r\n"));
    CHECK(p.app.TakeChangeReport() == "");
    p.app.FillTree();
    p.app.PrepareScan();
    p.app.RunScan();
    CHECK(p.app.TakeChangeReport() == "");
    CHECK(p.app.hits().size() == 2);
    release("8", "direct");
    p.app.PrepareScan();
    p.app.RunScan();
    CHECK(p.Hits() == "Bar: C:\\WINDOWS\\direct\n");
    release("9", "direct");
    p.app.SaveSettings();
    CHECK(p.app.TakeChangeReport().starts_with("Update File: 9\r\n"));  // the last one tells
    // It fits a message box, whatever the definitions say.
    p.m.File("C:\\App\\Ini\\update.ref",
             Definitions()
                 .Value("SETTINGS", "UPDATE-FILE-NUMBER", "10")
                 .Value("SPYWARE DEFINITIONS ADDED", "SDA0", std::string(1500, 'x'))
                 .Text());
    p.app.SaveSettings();
    const std::string long_report = p.app.TakeChangeReport();
    CHECK(long_report.find("xxx...\r\nComponents Removed: None\r\n") != std::string::npos);
    CHECK(long_report.size() < 600);
    release("11", "direct");
    p.app.Shutdown();
    CHECK(p.app.TakeChangeReport() == "");
    Application again(PortsOf(p.m), kAppFolder, {1, 0, 7});
    again.Start();
    CHECK(again.TakeChangeReport().starts_with("Update File: 11\r\n"));
    CHECK(p.m.Errors() == "");
  }

  TEST_CASE("who is asked for help gets the definitions, the system and the folder in one text") {
    Program p;
    p.m.system.record.csd_version = "Service Pack 9";
    Application app(PortsOf(p.m), kAppFolder, {1, 0, 7});
    app.Start();
    const std::string report = AboutReport(app);
    CHECK(report.starts_with(app.Title()));
    for (const std::string& part :
         {app.DefinitionsNumber(), std::string(" 3\r\n"),
          app.os().Version() + " Service Pack 9\r\n", std::string(kAppFolder) + "\r\n"}) {
      CAPTURE(part);
      CHECK(report.find(part) != std::string::npos);
    }
    p.m.files.Remove("C:\\App\\Ini\\update.ref");
    p.m.clock.ticks += 10'000;
    CHECK(AboutReport(app).find(app.language().Text(Caption::BuiltInDefinitionsOnly)) !=
          std::string::npos);
  }

  TEST_CASE("a 64-bit Windows is scanned in both views") {
    Program p;
    p.m.File("C:\\App\\Ini\\update.ref",
             Definitions().Entry("REGS", {"REGST", "REGSK"}, {"Key", "EvilWideKey"}).Text());
    FakeRegistry registry64;
    for (FakeRegistry* registry : {&p.m.registry, &registry64}) {
      registry->Make(RootKey::ClassesRoot, "CLSID\\EvilWideKey");
    }
    Ports ports = PortsOf(p.m);
    ports.registry64 = &registry64;
    Application app(ports, kAppFolder, {1, 0, 7});
    app.Start();
    app.FillTree();
    app.PrepareScan();
    app.RunScan();
    std::set<bool> views;
    for (std::size_t i = 0; i < app.hits().size(); ++i) {
      if (const auto* key = std::get_if<FoundKey>(&app.hits().row(i).finding.object)) {
        views.insert(key->view64);
      }
    }
    CHECK(views.size() == 2);
  }

  TEST_CASE("the log of this run is shown, or else the newest one beside its place") {
    Program p;
    p.app.Start();
    CHECK(p.app.LastLog() == "");
    p.m.File("C:\\App\\ScanLog01-01-04-1.txt").modified = 200;
    p.m.File("C:\\App\\ScanLog02-01-04-1.txt").modified = 300;
    p.m.File("C:\\App\\ScanLog03-01-04-1.txt").modified = 100;
    p.m.File("C:\\App\\notes.txt").modified = 900;
    CHECK(p.app.LastLog() == "C:\\App\\ScanLog02-01-04-1.txt");
    p.app.PrepareScan();
    p.app.RunScan({{"C:\\Programs"}});
    CHECK(p.app.LastLog() == kLog);
    CHECK(p.app.WriteReport("C:\\report.html").ok());
    CHECK(p.m.Content("C:\\report.html").find("Scourwell 1.0 Rev.7") != std::string::npos);
    p.m.File("C:\\closed.html").Locked();
    CHECK_FALSE(p.app.WriteReport("C:\\closed.html").ok());
    CHECK(p.m.Errors().find("C:\\closed.html") != std::string::npos);
  }

  TEST_CASE("each row counts once as removed, and nothing is no reason for a backup") {
    Program p;
    p.app.Start();
    p.app.FillTree();
    p.app.PrepareScan();
    p.app.RunScan();
    REQUIRE(p.app.hits().size() == 4);
    p.m.files.Find("C:\\Programs\\popup.exe")->locked = true;
    const auto remove = [&] {
      p.app.RemoveSelectedSpy({});
      p.app.CountRemoved();
      return p.app.statistics().getNumberOfObjectsRemoved();
    };
    p.app.hits().CheckAll(false);
    CHECK_FALSE(p.app.AnyToBackUp());
    p.app.hits().CheckAll(true);
    CHECK(p.app.AnyToBackUp());
    const std::string first = remove();
    CHECK(first != "0");
    CHECK_FALSE(p.m.Has("C:\\WINDOWS\\direct"));
    const std::string log = p.m.Content(kLog);
    for (const char* line : {": C:\\WINDOWS\\direct - ", ": C:\\Programs\\popup.exe - "}) {
      CHECK(log.find(line) != std::string::npos);
    }
    p.app.hits().CheckAll(true);  // what is locked is all that can be tried again
    REQUIRE(p.app.hits().checked_count() == 1);
    CHECK(remove() == first);
    p.app.hits().CheckAll(true);
    CHECK(p.app.AnyToBackUp());
    p.m.files.Remove("C:\\Programs\\popup.exe");
    CHECK_FALSE(p.app.AnyToBackUp());
    p.app.PrepareScan();
    CHECK_FALSE(p.app.hits().settled());
  }

  TEST_CASE("definitions that the user took are not told of once more") {
    Program p;
    p.app.Start();
    p.m.File("C:\\new.ref", Definitions()
                                .Value("SETTINGS", "UPDATE-FILE-NUMBER", "7-1")
                                .Entry("SAFO", {"SAFOT", "SAFOS"}, {"Bar", "badbar"})
                                .Value("NTOT", "SAFOTNUM", "1")
                                .Text());
    DefinitionsOffer offer;
    REQUIRE(!p.app.exchange().Examine("C:\\new.ref", &offer));
    p.m.files.Find("C:\\App\\Ini\\update.ref")->locked = true;
    CHECK_FALSE(p.app.TakeDefinitions(offer).ok());
    p.m.files.Find("C:\\App\\Ini\\update.ref")->locked = false;
    CHECK(p.app.TakeDefinitions(offer).ok());
    CHECK(p.app.DefinitionsNumber() == "7-1");
    p.app.SaveSettings();
    CHECK(p.app.TakeChangeReport() == "");
  }

  TEST_CASE("what a tool removes is backed up before, if the settings say so") {
    for (const bool wanted : {true, false}) {
      Program p;
      p.app.Start();
      p.app.settings().BackupBeforeRemoval = wanted;
      p.m.pump.set_closing(true);  // as a scan that was stopped leaves it
      CHECK(p.app.tools().back_up({{"Tool", FoundFile{"C:\\Programs\\letter.txt"}}}).empty());
      CHECK(p.app.backups().List().size() == (wanted ? 1u : 0u));
      p.m.files.Find("C:\\Programs\\letter.txt")->locked = true;
      const auto refused = p.app.tools().back_up({{"", FoundFile{"C:\\Programs\\letter.txt"}}});
      CHECK(refused.empty() == !wanted);
    }
  }

  TEST_CASE("a log that cannot go at the end is recorded, the others go") {
    Program p;
    p.app.Start();
    p.app.PrepareScan();
    p.app.RunScan({{"C:\\Programs"}});
    p.app.settings().LogFilePath = "C:\\Programs\\ScanLog.txt";
    p.app.PrepareScan();
    p.app.RunScan({{"C:\\Programs"}});
    p.app.settings().AutoSave = false;
    p.m.files.Find(kLog)->locked = true;
    p.app.Shutdown();
    CHECK(p.m.Has(kLog));
    CHECK_FALSE(p.m.Has("C:\\Programs\\ScanLog.txt"));
    CHECK(p.m.Errors().find(std::string("LogFile: ") + kLog) != std::string::npos);
  }

  TEST_CASE("an excluded process runs on; its file is told of") {
    for (const bool excluded : {false, true}) {
      Program p;
      p.m.File("C:\\App\\Ini\\update.ref",
               Definitions()
                   .Entry("MEMA", {"MEMAT", "MEMAF"}, {"Spy", "spy.exe"})
                   .Entry("SAFI", {"SAFIT", "SAFIS"}, {"Spy", "spy.exe"})
                   .Text());
      p.m.File("C:\\Programs\\spy.exe");
      p.m.processes.running = {{"C:\\Programs\\spy.exe", 7, 32}};
      if (excluded) {
        p.m.File("C:\\App\\ignorespylist.txt",
                 "\"Memory Process\",\"C:\\Programs\\spy.exe\",\"Spy\"\r\n");
      }
      bool announced = false;
      p.m.pump.on_yield = [&] {
        announced = announced ||
                    p.app.progress().lblScanStatus == p.app.language().Text(Caption::WritingLog);
      };
      p.app.Start();
      p.app.FillTree();
      p.app.PrepareScan();
      p.app.RunScan();
      CHECK(p.m.system.journal.empty() == excluded);
      CHECK(p.app.hits().size() == (excluded ? 1 : 2));
      CHECK(p.app.hits().counters().processes == 1);
      CHECK(p.app.hits().counters().files == 1);
      CHECK(announced);
    }
  }
}

}  // namespace scourwell::test
