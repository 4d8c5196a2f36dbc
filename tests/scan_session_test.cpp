// SPDX-License-Identifier: MIT
#include "tests/session_support.h"

#include <map>
#include <set>

#include "scan/finding_texts.h"
#include "tests/fake/version_block.h"
#include "text/captions.h"
#include "text/paths.h"

namespace scourwell::test {
namespace {

// Something to pass over in every phase.
struct Planted : Session {
  Planted() {
    for (const char* key : {"CLSID\\a\\b\\c", "CLSID\\d", "CLSID\\e\\f"}) {
      m.registry.Make(RootKey::ClassesRoot, key);
    }
    settings.CookiesFolder = "C:\\Cookies";
    m.processes.running = {{"C:\\a.exe", 7, 0}, {"C:\\b.exe", 8, 0}};
    for (const char* path :
         {"C:\\Cookies\\me@1[1].txt", "C:\\Cookies\\me@2[1].txt", "D:\\Sfolder\\1.txt",
          "D:\\Sfolder\\2.txt", "D:\\sub\\deep\\evil.exe"}) {
      m.File(path);
    }
    for (const char* name : {"ev*.exe", "sub\\deep\\evil.exe"}) {
      definitions.Entry("SAFI", {"SAFIT", "SAFIS"}, {"S", name});
    }
    WriteDefinitions();
  }
  std::string DriveCalls() const {
    std::string calls;
    for (const std::string& call : m.files.journal) {
      if (call.starts_with("List D:")) calls += call + "\n";
    }
    return calls;
  }
};

}  // namespace

TEST_SUITE("scan_scope") {
  TEST_CASE("the tree has seven fixed nodes and the drives that are scanned") {
    ScanScope scope;
    scope.FillTree(NumberCaptions(), {{'A', DriveKind::Removable},
                                      {'C', DriveKind::Fixed},
                                      {'D', DriveKind::Optical},
                                      {'E', DriveKind::RamDisk},
                                      {'F', DriveKind::Network},
                                      {'G', DriveKind::Unknown},
                                      {'H', DriveKind::NoRoot}});
    std::string nodes;
    for (std::size_t i = 1; i <= scope.count(); ++i) {
      const ScanScope::Node& node = scope.node(i);
      nodes += node.text + " " + node.key + " " + std::to_string(node.parent) + "\n";
      CHECK(node.ticked);
    }
    CHECK(nodes ==
          "<1901> MyComputer 0\n<1902> ScanMemory 1\n<1903> ScanRegistry 1\n"
          "<1907> ScanCookie 1\n<1904> ScanDrives 1\n<1905> QuickScan 3\n<1906> DeepScan 3\n"
          "A: <1908> A:\\ 5\nC: <1909> C:\\ 5\nF: <1910> F:\\ 5\n");
  }

  TEST_CASE("ticks spread to children and parents") {
    using Clicks = std::vector<int>;  // negative: clears
    for (const auto& [clicks, expected] : Rows<Clicks, const char*>{{Clicks{}, "123456789"},
                                                                    {Clicks{-6}, "12345789"},
                                                                    {Clicks{-6, -7}, "124589"},
                                                                    {Clicks{-3}, "124589"},
                                                                    {Clicks{-1}, ""},
                                                                    {Clicks{-1, 8}, "158"},
                                                                    {Clicks{-1, 7}, "137"},
                                                                    {Clicks{-1, 3}, "1367"},
                                                                    {Clicks{-5, 9}, "12345679"},
                                                                    {Clicks{-8, -9}, "123467"}}) {
      ScanScope scope;
      scope.FillTree(NumberCaptions(), {{'C', DriveKind::Fixed}, {'D', DriveKind::Fixed}});
      for (const int click : clicks) {
        scope.SetTicked(static_cast<std::size_t>(std::abs(click)), click > 0);
      }
      std::string ticked;
      for (std::size_t i = 1; i <= scope.count(); ++i) {
        if (scope.ticked(i)) ticked += std::to_string(i);
      }
      CHECK(ticked == expected);
      CHECK(scope.AnythingTicked() == (ticked.size() > 1));
    }
  }

  TEST_CASE("another language or other drives keep the ticks") {
    struct : Captions {
      std::string Text(Caption caption) const override { return std::to_string(NumberOf(caption)); }
    } plain;
    constexpr Drive kC{'C', DriveKind::Fixed}, kD{'D', DriveKind::Fixed},
        kE{'E', DriveKind::Removable};
    using Drives = std::vector<Drive>;
    struct Row {
      std::vector<std::size_t> cleared;
      Drives before;
      Drives after;
      bool changed;
      std::string drives;  // "+" behind one that is ticked
      bool all_drives;
    };
    for (const Row& row :
         {Row{{8}, {kC, kD}, {kC, kD}, false, "C: 1909 D: 1909+ ", true},
          Row{{8}, {kC, kD}, {kC, kD, kE}, true, "C: 1909 D: 1909+ E: 1908+ ", true},
          Row{{8}, {kC, kE}, {kC}, true, "C: 1909 ", false},
          Row{{9}, {kC, kE}, {kE, kC}, false, "E: 1908 C: 1909+ ", true},
          Row{{5}, {kC}, {kC, kE}, true, "C: 1909 E: 1908 ", false},
          Row{{}, {kC, kD}, {kC, {'D', DriveKind::Network}}, true, "C: 1909+ D: 1910+ ", true}}) {
      ScanScope scope;
      scope.FillTree(NumberCaptions(), row.before);
      for (const std::size_t number : row.cleared) scope.SetTicked(number, false);
      scope.SetTicked(ScanScope::kScanMemory, false);
      CHECK(scope.Refill(plain, row.after) == row.changed);
      std::string drives;
      for (std::size_t i = ScanScope::kFirstDrive; i <= scope.count(); ++i) {
        drives += scope.node(i).text + (scope.ticked(i) ? "+ " : " ");
      }
      CHECK(drives == row.drives);
      CHECK(scope.ticked(ScanScope::kScanDrives) == row.all_drives);
      CHECK_FALSE(scope.ticked(ScanScope::kScanMemory));
      CHECK(scope.ticked(ScanScope::kDeepScan));
      CHECK(scope.node(ScanScope::kDeepScan).text == "1906");
    }
  }
}

TEST_SUITE("scan_session") {
  TEST_CASE("the phases follow each other, each with its section of the log, then the end") {
    Session s;
    s.session.StartScan(s.scope);
    CHECK(Lines(s.events) ==
          "<1805> \n<1805> <1902>\nmemory log\n<1805> <1902>\n<1805> <1806>\n<1805> <1807>\n"
          "registry log\n<1805> <1807>\n<1805> <1907>\ncookie log\n<1805> <1907>\n"
          "<1805> <1882>\n<1805> <1841> - D: (<1909>) ...\n<1805> <1883>\n"
          "<1805> <1841> - D: (<1909>) ...\nlog\n<1805> <1841> - D: (<1909>) ...\nfinish\n");
    CHECK(s.Spies() == "T T/D/H/K/S/D H K S ");  // the trojan lists serve both passes
    CHECK(s.session.finished());
    CHECK(s.progress.lblScanStatus == "<1808>");
    CHECK(s.progress.lblScanOption == "<1808>");
    CHECK(s.progress.lblScan == "<1808>");
    CHECK(s.progress.scanned_files == 5);  // of the last pass
    CHECK(s.lists.searched.empty());
    CHECK(s.folder_rows == 1);  // the trojan list's: no pass keeps the rows of the one before
    CHECK(s.m.shell.journal.empty());
    CHECK(s.m.Errors() == "");
  }

  TEST_CASE("a stop at any item ends the scan without its finish, and leaves the rest undone") {
    Planted whole;
    whole.session.StartScan(whole.scope);
    std::size_t in_folder_pass = 0;
    for (std::size_t n = 1; n <= whole.m.pump.yields; ++n) {
      CAPTURE(n);
      Planted s;
      s.m.pump.close_at = n;
      s.session.StartScan(s.scope);
      CHECK_FALSE(s.session.finished());
      CHECK_FALSE(s.Noted("finish"));
      CHECK_FALSE(s.events.back().ends_with("log"));  // no section for a phase that was cut off
      CHECK(whole.sink.lines().starts_with(s.sink.lines()));
      CHECK(whole.DriveCalls().starts_with(s.DriveCalls()));
      CHECK(s.m.pump.yields == n);
      if (s.Noted("<1805> <1883>") || s.Noted("log")) continue;
      ++in_folder_pass;
      CHECK(s.progress.lblScanOption != "<1883>");
      CHECK(s.Spies().find("D ") == std::string::npos);
    }
    CHECK(in_folder_pass > 20);
  }

  TEST_CASE("only ticked sections are scanned") {
    Session s;
    s.scope.SetTicked(ScanScope::kScanDrives, false);
    s.session.StartScan(s.scope);
    CHECK(s.sink.found.empty());
    CHECK_FALSE(s.Noted("log"));
    CHECK(s.Noted("finish"));
  }

  TEST_CASE("a withdrawn row is not searched by later categories") {
    Session s;
    s.definitions.Value("REMO", "0REMENT", "TFILE.exe").Value("REMO", "1REMENT", "Sfolder");
    s.WriteDefinitions();
    s.session.StartScan(s.scope);
    CHECK(s.Spies() == "T/D/H/K/S/D H K S ");
  }

  TEST_CASE("a withdrawn compiled-in row is not searched, the file's own row of the name is") {
    for (const auto& [own, withdrawn, spies] :
         Rows<bool, bool, const char*>{{false, false, "BonziBuddy/Aureate "},
                                       {true, false, "BonziBuddy/Aureate "},
                                       {false, true, ""},
                                       {true, true, "Own/Own "}}) {
      CAPTURE(own);
      CAPTURE(withdrawn);
      Session s;
      s.m.File("D:\\sub\\anadsc.ocx");
      s.m.Folder("D:\\sub\\BonziBUDDY");
      if (own) {
        s.definitions.Entry("SAFI", {"SAFIT", "SAFIS"}, {"Own", "ANADSC.OCX"})
            .Entry("SAFO", {"SAFOT", "SAFOS"}, {"Own", "bonzibuddy"});
      }
      if (withdrawn) {
        s.definitions.Value("REMO", "0REMENT", "AnAdsc.ocx").Value("REMO", "1REMENT", "BONZIBUDDY");
      }
      s.WriteDefinitions();
      s.session.ScanFolders({"D:\\sub"});
      CHECK(s.Spies() == spies);
      CHECK(s.m.Errors() == "");
    }
  }

  TEST_CASE("a category that is off is not looked for, neither compiled in nor from the file") {
    const Rows<bool AppSettings::*, std::vector<std::string>> kCategories{
        {&AppSettings::Trojans, {"T", "Trojan.SubSeven"}},
        {&AppSettings::Dialers, {"D", "Dialer.Other", "Dialer.Carpediem"}},
        {&AppSettings::BHO, {"H", "Hijacker.CnsMin", "Hijacker.HuntBar"}},
        {&AppSettings::KeyLoggers,
         {"K", "Keylogger.Perfect Keylogger", "Keylogger.Family Keylogger"}},
        {&AppSettings::SpywareAdware, {"S", "Aureate", "BonziBuddy"}}};
    for (const auto& [off, unused] : kCategories) {
      Session s;
      for (const char* file :
           {"MSREXE.EXE", "RINGRING1.EXE", "cnsmin.dll", "bpkhk.dll", "anadsc.ocx"}) {
        s.m.File(std::string("D:\\") + file);
      }
      for (const char* folder : {"HOT Dialer", "HuntBar", "Family Keylogger", "BonziBUDDY"}) {
        s.m.Folder(std::string("D:\\") + folder);
      }
      s.settings.*off = false;
      s.session.StartScan(s.scope);
      std::set<std::string> found;
      for (const Finding& finding : s.sink.found) found.insert(finding.spy);
      for (const auto& [setting, spies] : kCategories) {
        for (const std::string& spy : spies) {
          CHECK_MESSAGE(found.contains(spy) == (setting != off), spy);
        }
      }
    }
  }

  TEST_CASE("with AdvancedScanning a program is known by its company") {
    for (const bool advanced : {false, true}) {
      CAPTURE(advanced);
      Session s;
      s.settings.AdvancedScanning = advanced;
      s.m.File("D:\\sub\\harmless.exe");
      s.m.versions.blocks["D:\\sub\\harmless.exe"] =
          VersionBlock().Text("CompanyName", "Evil Inc.").Make();
      s.definitions.Entry("SCE", {"SCET", "SCEV"}, {"Company", "evil inc."});
      s.WriteDefinitions();
      s.session.ScanFolders({"D:\\sub"});
      CHECK(s.sink.lines() == (advanced ? "Spy File|Company|D:\\sub\\harmless.exe\n" : ""));
      CHECK(s.m.versions.journal.size() == (advanced ? 1 : 0));
      CHECK(s.lists.program_texts.empty());
      CHECK(s.m.Errors() == "");
    }
  }

  TEST_CASE("a finding says how it is known, and whose word that is") {
    Session s;
    s.folders.windows = "D:\\WINDOWS";
    s.settings.AdvancedScanning = s.settings.AllCookies = true;
    s.settings.CookiesFolder = "D:\\Cookies\\";
    for (const char* file : {"D:\\WINDOWS\\placed.exe", "D:\\sub\\anadsc.ocx", "D:\\sub\\wild7.dll",
                             "D:\\sub\\program.exe", "D:\\part.exe", "D:\\Sfolder\\inside.txt",
                             "D:\\Cookies\\me@nastylog[1].txt", "D:\\Cookies\\me@news[1].txt"}) {
      s.m.File(file);
    }
    s.m.File("D:\\sum.exe", "abc");
    s.m.versions.blocks["D:\\sum.exe"] = VersionBlock().Text("CompanyName", "Any").Make();
    s.m.versions.blocks["D:\\sub\\program.exe"] =
        VersionBlock().Text("CompanyName", "Evil Inc.").Make();
    s.m.versions.blocks["D:\\part.exe"] = VersionBlock().Text("CompanyName", "My Nasty Ltd").Make();
    s.m.registry.Make(RootKey::LocalMachine, "Software\\Spy");
    s.m.registry.Make(RootKey::CurrentUser, "Software\\Microsoft\\Internet Explorer\\Main")
        .Value("Start Page", "http://nasty.example");
    s.m.processes.running = {{"D:\\run.exe", 7, 32}};
    s.definitions.Entry("SAFI", {"SAFITD", "SAFISD"}, {"P", "%WIN%\\placed.exe"})
        .Entry("SAFI", {"SAFIT", "SAFIS"}, {"W", "wild?.dll"})
        .Entry("SCE", {"SCET", "SCEV"}, {"C", "evil inc."})
        .Entry("SCW", {"SCWT", "SCWV"}, {"I", "nasty"})
        .Entry("SBFCS", {"SBFCST", "SBFCSN", "SBFCSS"}, {"Z", "3", "96"})
        .Entry("REGK", {"REGKT", "REGKK"}, {"R", "HKEY_LOCAL_MACHINE\\Software\\Spy"})
        .Entry("REGS", {"REGST", "REGSK"}, {"K", "nasty.example"})
        .Entry("MEMA", {"MEMAT", "MEMAF"}, {"M", "run.exe"})
        .Entry("COOK", {"COOKT", "COOKC"}, {"L", "nastylog"});
    s.WriteDefinitions();
    s.session.StartScan(s.scope);
    std::map<std::string, std::string> said;
    for (const Finding& finding : s.sink.found) {
      const std::string place = PlaceText(finding.object);
      said[finding.spy + " " + std::string(FileNamePart(place))] =
          std::string(CertaintyWord(finding.certainty)) + " " +
          std::string(SourceWord(finding.source));
    }
    for (const auto& [finding, words] :
         Rows<std::string, const char*>{{"P placed.exe", "high file"},
                                        {"R Spy", "high file"},
                                        {"Aureate anadsc.ocx", "medium built-in"},
                                        {"M run.exe", "medium file"},
                                        {"C program.exe", "medium file"},
                                        {"S Sfolder", "medium file"},
                                        {"S inside.txt", "low file"},
                                        {"W wild7.dll", "low file"},
                                        {"I part.exe", "low file"},
                                        {"Z sum.exe", "low file"},
                                        {"K Start Page", "low file"},
                                        {"L me@nastylog[1].txt", "low file"},
                                        {"Other me@news[1].txt", "low setting"}}) {
      CAPTURE(finding);
      CHECK(said[finding] == words);
    }
  }

  TEST_CASE("one folder") {
    Session s;
    s.m.File("D:\\sub\\Sfile.exe");
    SUBCASE("and what lies below it") {
      s.session.ScanFolders({"D:\\sub"});
      CHECK(s.sink.lines() == "Spy File|S|D:\\sub\\Sfile.exe\n");
      CHECK(s.Noted("log"));
      CHECK(s.Noted("finish"));
    }
    SUBCASE("a whole drive") {
      s.session.ScanFolders({"D:\\"});
      CHECK(s.sink.found.size() == 11);
    }
    SUBCASE("stopped") {
      s.m.pump.close_at = 12;
      s.session.ScanFolders({"D:\\sub"});
      CHECK(s.lists.searched.empty());
      CHECK_FALSE(s.Noted("log"));
    }
    SUBCASE("and another, and one that is not there") {
      s.m.File("D:\\other\\Sfile.exe");
      s.session.ScanFolders({"D:\\none", "D:\\other", "D:\\sub"});
      CHECK(s.sink.lines() == "Spy File|S|D:\\other\\Sfile.exe\nSpy File|S|D:\\sub\\Sfile.exe\n");
      CHECK(s.Noted("finish"));
      CHECK(s.m.Errors().find("D:\\none") != std::string::npos);
    }
    SUBCASE("that is not there") {
      s.session.ScanFolders({"D:\\none"});
      CHECK(Lines(s.m.shell.journal) == "Message <17031>\r\nD:\\none/<17000>\n");
    }
    CHECK(s.session.finished() == s.Noted("finish"));
  }

  TEST_CASE("a single file is known by its company too") {
    Session s;
    s.settings.AdvancedScanning = true;
    s.m.File("D:\\renamed.exe");
    s.m.versions.blocks["D:\\renamed.exe"] = VersionBlock().Text("CompanyName", "Evil Inc.").Make();
    s.definitions.Entry("SCE", {"SCET", "SCEV"}, {"Company", "evil inc."});
    s.WriteDefinitions();
    s.session.ScanFolders({"D:\\renamed.exe"});
    CHECK(s.sink.lines() == "Spy File|Company|D:\\renamed.exe\n");
  }

  TEST_CASE("a withdrawn compiled-in process is neither shown nor ended, the file's own one is") {
    for (const auto& [own, withdrawn, found] :
         Rows<bool, bool, const char*>{{false, false, "Memory Process|CometCursor|C:\\Comet.exe\n"},
                                       {false, true, ""},
                                       {true, true, "Memory Process|Own|C:\\Comet.exe\n"}}) {
      Session s;
      s.m.processes.running = {{"C:\\Comet.exe", 7, 0}};
      if (own) s.definitions.Entry("MEMA", {"MEMAT", "MEMAF"}, {"Own", "comet.exe"});
      if (withdrawn) s.definitions.Value("REMO", "0REMENT", "COMET.exe");
      s.WriteDefinitions();
      s.scope.SetTicked(ScanScope::kScanDrives, false);
      s.session.StartScan(s.scope);
      CHECK(s.sink.lines() == found);
    }
  }

  TEST_CASE("a withdrawn cookie is not looked for") {
    Session s;
    s.settings.CookiesFolder = "D:\\Cookies";
    s.m.File("D:\\Cookies\\me@spylog[1].txt");
    s.m.File("D:\\Cookies\\me@mediatrack[1].txt");
    s.definitions.Value("REMO", "0REMENT", "SPYLOG");
    s.WriteDefinitions();
    s.scope.SetTicked(ScanScope::kScanDrives, false);
    s.session.StartScan(s.scope);
    CHECK(s.sink.lines() == "Spy Cookie|Other|D:\\Cookies\\me@mediatrack[1].txt\n");
  }
}

}  // namespace scourwell::test
