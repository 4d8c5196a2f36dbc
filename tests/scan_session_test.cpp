#include "tests/session_support.h"

#include "tests/fake/version_block.h"

namespace scourwell::test {
TEST_SUITE("scan_scope") {
  TEST_CASE("the tree has seven fixed nodes and the drives that are scanned") {
    ScanScope scope;
    const NumberCaptions captions;
    scope.FillTree(captions, {{'A', DriveKind::Removable},
                              {'C', DriveKind::Fixed},
                              {'D', DriveKind::Optical},
                              {'E', DriveKind::RamDisk},
                              {'F', DriveKind::Network},
                              {'G', DriveKind::Unknown},
                              {'H', DriveKind::NoRoot}});
    std::vector<std::string> nodes;
    for (std::size_t i = 1; i <= scope.count(); ++i) {
      const ScanScope::Node& node = scope.node(i);
      nodes.push_back(node.text + " " + node.key + " " + std::to_string(node.parent));
      CHECK(node.ticked);
    }
    CHECK(Lines(nodes) ==
          "<1901> MyComputer 0\n<1902> ScanMemory 1\n<1903> ScanRegistry 1\n"
          "<1907> ScanCookie 1\n<1904> ScanDrives 1\n<1905> QuickScan 3\n<1906> DeepScan 3\n"
          "A: <1908> A:\\ 5\nC: <1909> C:\\ 5\nF: <1910> F:\\ 5\n");
  }

  TEST_CASE("ticks spread to children and parents") {
    struct Row {
      std::vector<int> clicks;  // negative: clears
      const char* ticked;
    };
    for (const Row& row : {Row{{}, "123456789"},
                           {{-6}, "12345789"},
                           {{-6, -7}, "124589"},
                           {{-3}, "124589"},
                           {{-1}, ""},
                           {{-1, 8}, "158"},
                           {{-1, 7}, "137"},
                           {{-1, 3}, "1367"},
                           {{-5, 9}, "12345679"},
                           {{-8, -9}, "123467"},
                           {{-2, -4, -5, -7, -6}, ""}}) {
      ScanScope scope;
      scope.FillTree(NumberCaptions(), {{'C', DriveKind::Fixed}, {'D', DriveKind::Fixed}});
      for (const int click : row.clicks) {
        scope.SetTicked(static_cast<std::size_t>(std::abs(click)), click > 0);
      }
      std::string ticked;
      for (std::size_t i = 1; i <= scope.count(); ++i) {
        if (scope.ticked(i)) ticked += std::to_string(i);
      }
      CHECK(ticked == row.ticked);
      CHECK(scope.AnythingTicked() == (ticked.size() > 1));
    }
  }

  TEST_CASE("another language renames the nodes and keeps the ticks") {
    struct : Captions {
      std::string Text(int number) const override { return std::to_string(number); }
    } plain;
    ScanScope scope;
    scope.FillTree(NumberCaptions(), {{'C', DriveKind::Fixed}});
    scope.SetTicked(8, false);
    scope.Rename(plain);
    CHECK(scope.node(7).text == "1906");
    CHECK(scope.node(8).text == "C: 1909");
    CHECK_FALSE(scope.ticked(8));
    CHECK(scope.ticked(7));
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
    CHECK(s.lists.lstSearch.empty());
    CHECK(s.folder_rows == 1);  // the trojan list's: no pass keeps the rows of the one before
    CHECK(s.m.shell.journal.empty());
    CHECK(s.m.Errors() == "");
  }

  TEST_CASE("each category setting switches its own lists") {
    struct Row {
      bool AppSettings::*setting;
      const char* spies;
    };
    for (const Row& row : {Row{&AppSettings::Trojans, "T T/"},
                           {&AppSettings::Dialers, "D/D "},
                           {&AppSettings::BHO, "H/H "},
                           {&AppSettings::KeyLoggers, "K/K "},
                           {&AppSettings::SpywareAdware, "S/S "}}) {
      Session s;
      s.settings = {};
      s.settings.*row.setting = true;
      s.session.StartScan(s.scope);
      CHECK(s.Spies() == row.spies);
    }
    Session s;
    s.settings = {};
    s.session.StartScan(s.scope);
    CHECK(s.sink.found.empty());
    CHECK(s.session.finished());
  }

  TEST_CASE("a stop at any item ends the scan without its finish") {
    Session whole;
    whole.session.StartScan(whole.scope);
    std::size_t in_folder_pass = 0;
    for (std::size_t n = 1; n <= whole.m.pump.yields; ++n) {
      CAPTURE(n);
      Session s;
      s.m.pump.close_at = n;
      s.session.StartScan(s.scope);
      CHECK_FALSE(s.session.finished());
      CHECK_FALSE(s.Noted("finish"));
      CHECK(whole.Spies().starts_with(s.Spies()));
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
    s.m.File("C:\\App\\Ini\\update.ref", s.m.Content("C:\\App\\Ini\\update.ref") +
                                             "[REMO]\r\n0REMENT=" + Scramble("TFILE.exe") +
                                             "\r\n1REMENT=" + Scramble("Sfolder") + "\r\n");
    s.session.StartScan(s.scope);
    CHECK(s.Spies() == "T/D/H/K/S/D H K S ");
  }

  TEST_CASE("a withdrawn compiled-in row is not searched, the file's own row of the name is") {
    for (const bool own : {false, true}) {
      for (const bool withdrawn : {false, true}) {
        CAPTURE(own);
        CAPTURE(withdrawn);
        Session s;
        s.m.Folder("D:\\sub");
        s.m.File("D:\\sub\\anadsc.ocx");
        s.m.Folder("D:\\sub\\Gator.com");
        if (own) {
          s.definitions.Entry("SAFI", {"SAFIT", "SAFIS"}, {"Own", "ANADSC.OCX"})
              .Entry("SAFO", {"SAFOT", "SAFOS"}, {"Own", "gator.com"});
        }
        if (withdrawn) {
          s.definitions.Value("REMO", "0REMENT", "AnAdsc.ocx")
              .Value("REMO", "1REMENT", "GATOR.COM");
        }
        s.WriteDefinitions();
        s.session.ScanFolder("D:\\sub");
        CHECK(s.Spies() == (!withdrawn ? "Gator/Aureate " : own ? "Own/Own " : ""));
        CHECK(s.m.Errors() == "");
      }
    }
  }

  TEST_CASE("a category that is off is not looked for, neither compiled in nor from the file") {
    struct Row {
      bool AppSettings::*setting;
      std::vector<std::string> spies;  // those of the category
    };
    const Row kRows[] = {
        {&AppSettings::Trojans, {"T", "Trojan.SubSeven"}},
        {&AppSettings::Dialers, {"D", "Dialer.Other", "Dialer.Carpediem"}},
        {&AppSettings::BHO, {"H", "Hijacker.CnsMin", "Hijacker.HuntBar"}},
        {&AppSettings::KeyLoggers,
         {"K", "Keylogger.Perfect Keylogger", "Keylogger.Family Keylogger"}},
        {&AppSettings::SpywareAdware, {"S", "Aureate", "Gator"}},
    };
    for (const Row& off : kRows) {
      Session s;
      for (const char* file :
           {"MSREXE.EXE", "RINGRING1.EXE", "cnsmin.dll", "bpkhk.dll", "anadsc.ocx"}) {
        s.m.File(std::string("D:\\") + file);
      }
      for (const char* folder : {"HOT Dialer", "HuntBar", "Family Keylogger", "Gator.com"}) {
        s.m.Folder(std::string("D:\\") + folder);
      }
      s.settings.*off.setting = false;
      s.session.StartScan(s.scope);
      CAPTURE(s.Spies());
      for (const Row& row : kRows) {
        for (const std::string& spy : row.spies) {
          const bool found =
              std::any_of(s.sink.found.begin(), s.sink.found.end(),
                          [&](const Detection& detection) { return detection.system == spy; });
          CHECK_MESSAGE(found == (row.setting != off.setting), spy);
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
      s.session.ScanFolder("D:\\sub");
      CHECK(s.sink.lines() == (advanced ? "Spy File|Company|D:\\sub\\harmless.exe\n" : ""));
      CHECK(s.m.versions.journal.size() == (advanced ? 1 : 0));
      CHECK(s.lists.lstCESearch.empty());
      CHECK(s.m.Errors() == "");
    }
  }

  TEST_CASE("one folder") {
    Session s;
    s.m.File("D:\\sub\\Sfile.exe");
    SUBCASE("and what lies below it") {
      s.session.ScanFolder("D:\\sub");
      CHECK(s.sink.lines() == "Spy File|S|D:\\sub\\Sfile.exe\n");
      CHECK(s.Noted("log"));
      CHECK(s.Noted("finish"));
    }
    SUBCASE("a whole drive") {
      s.session.ScanFolder("D:\\");
      CHECK(s.sink.found.size() == 11);
      CHECK(s.session.finished());
    }
    SUBCASE("stopped") {
      s.m.pump.close_at = 12;
      s.session.ScanFolder("D:\\sub");
      CHECK(s.lists.lstSearch.empty());
      CHECK_FALSE(s.Noted("log"));
      CHECK_FALSE(s.session.finished());
    }
    SUBCASE("that is not there") {
      s.session.ScanFolder("D:\\none");
      CHECK(Lines(s.m.shell.journal) == "Message <17031>\r\nD:\\none/<17000>\n");
      CHECK_FALSE(s.session.finished());
    }
  }
}

}  // namespace scourwell::test
