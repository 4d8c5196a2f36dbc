#include "definitions/list_loader.h"

#include "scan/matching.h"
#include "tests/support.h"

namespace scourwell::test {
namespace {

constexpr char kFile[] = "C:\\App\\Ini\\update.ref";

struct Loading : Bench, private LoadProgress {
  Loading() { folders.windows = "C:\\WINDOWS"; }

  SystemFolders folders;
  SignatureLists lists;
  Definitions definitions;
  ReferenceFile reference{m.files, m.clock, log, settings, kAppFolder};
  ScanProgress scan_progress;
  COpSysInfo os{m.system};
  MemoryScan memory{{m.processes, m.system, m.pump, log, os, folders, sink, scan_progress}};
  Matching matching{m.files, log, folders, sink, memory};
  ListLoader loader{reference, lists, matching, *this, m.pump, log, folders};
  int maximum = -1;
  int advanced = 0;
  int ended = 0;

  void Load(const Loader& which) {
    m.File(kFile, definitions.Text());
    advanced = 0;
    loader.Load(which);
    CHECK(advanced <= maximum);
  }
  static std::string Rows(const SignatureList& list) {
    std::string text;
    for (std::size_t i = 0; i < list.size(); ++i) {
      text.append(list[i].text).append("|").append(list[i].sub1).append("|");
      text.append(list[i].sub2).append("\n");
    }
    return text;
  }

 private:
  void Begin(int most) override { maximum = most; }
  void Advance() override { ++advanced; }
  void End() override { ++ended; }
};

}  // namespace

TEST_SUITE("list_loader") {
  // scan_session_test runs the searched files and folders of the five categories.
  TEST_CASE("every category has direct files and folders") {
    Loading l;
    for (const std::string section :
         {"TAFI", "TAFO", "DAFI", "DAFO", "HAFI", "HAFO", "KAFI", "KAFO", "SAFI", "SAFO"}) {
      l.definitions.Entry(section, {section + "TD", section + "SD"}, {"spy", "%WIN%\\" + section})
          .Value("NTOT", section + (section == "HAFI" ? "TDDNUM" : "TDNUM"), "1");
      l.m.files.Put("C:\\WINDOWS\\" + section, section.ends_with("O") ? kFolder : kArchive);
    }
    for (const Loader* loader :
         {&kUpdateTrojanList, &kUpdateDialersFileList, &kUpdateDialersFolderList,
          &kUpdateHijackersFileList, &kUpdateHijackersFolderList, &kUpdateKeyLoggersFileList,
          &kUpdateKeyLoggersFolderList, &kUpdateSpyFileList, &kUpdateSpyFolderList}) {
      l.Load(*loader);
      CHECK(l.maximum > 0);
    }
    CHECK(l.sink.found.size() == 10);
    CHECK(l.m.Errors() == "");
  }

  TEST_CASE("the other loaders fill lists of their own") {
    Loading l;
    l.definitions.Entry("REGS", {"REGST", "REGSK"}, {"1", "key"})
        .Entry("REGV", {"REGVT", "REGVK", "REGVV"}, {"2", "key", "value"})
        .Entry("REGK", {"REGKT", "REGKK"}, {"3", "key"})
        .Entry("REGKO", {"REGKTO", "REGKKO"}, {"4", "key"})
        .Entry("COOK", {"COOKT", "COOKC"}, {"5", "cookie"})
        .Entry("SBFCS", {"SBFCST", "SBFCSN", "SBFCSS"}, {"6", "size", "sum"});
    for (const Loader* loader :
         {&kUpdateRegistrySVList, &kUpdateRegistryKList, &kUpdateRegistryKOList, &kUpdateCookieList,
          &kUpdateSearchByFileChecSum}) {
      l.Load(*loader);
    }
    CHECK(Loading::Rows(l.lists.lstSearch) == "KEY|1|\nSPY COOKIE|5|cookie\n");
    CHECK(Loading::Rows(l.lists.lstRegistry) == "KEY|value|2\n");
    CHECK(Loading::Rows(l.lists.lstRegKSearch) == "REG KEY|3|key\nREG KEY|4|key\n");
    CHECK(Loading::Rows(l.lists.lstFCSSearch) == "6|size|sum\n");
    CHECK(l.ended == 5);
  }

  TEST_CASE("a sequence ends at its first gap") {
    for (const char* missing : {"2SAFIT", "2SAFIS"}) {
      Loading l;
      for (int n = 0; n < 5; ++n) {
        for (const char* suffix : {"SAFIT", "SAFIS"}) {
          const std::string key = std::to_string(n) + suffix;
          if (key != missing) l.definitions.Value("SAFI", key, key);
        }
      }
      l.Load(kUpdateSpyFileList);
      CHECK(Loading::Rows(l.lists.lstSearch) == "SPY FILE|0SAFIT|0SAFIS\nSPY FILE|1SAFIT|1SAFIS\n");
    }
  }

  TEST_CASE("an entry of three keys needs them all, and one count has a name of its own") {
    Loading l;
    l.definitions.Entry("REGV", {"REGVT", "REGVK", "REGVV"}, {"a", "b", "c"})
        .Entry("REGV", {"REGVT", "REGVK"}, {"a", "b"})
        .Entry("REGV", {"REGVT", "REGVK", "REGVV"}, {"a", "b", "c"})
        .Value("NTOT", "HAFITDDNUM", "4");
    l.Load(kUpdateRegistrySVList);
    CHECK(l.lists.lstRegistry.size() == 1);
    l.Load(kUpdateHijackersFileList);
    CHECK(l.maximum == 4);
  }

  TEST_CASE("at most 10001 entries are read") {
    Loading l;
    for (int n = 0; n < 10'003; ++n) {
      l.definitions.Entry("SAFI", {"SAFIT", "SAFIS"}, {"s", std::to_string(n)});
    }
    l.m.clock.frozen = true;
    l.Load(kUpdateSpyFileList);
    REQUIRE(l.lists.lstSearch.size() == 10'001);
    CHECK(l.lists.lstSearch[10'000].sub2 == "10000");
  }

  TEST_CASE("counts only size the bar, a wrong one is recorded once per file") {
    struct Row {
      const char* count;
      int maximum;
      int advanced;
      bool recorded;
    };
    for (const Row& row : {Row{"1", 1, 1, true},
                           {"7", 7, 3, true},
                           {"3 of them", 3, 3, false},
                           {"none", 0, 0, true},
                           {"-5", 0, 0, true},
                           {"99999999999", INT32_MAX, 3, true},
                           {"", 0, 0, false}}) {
      CAPTURE(std::string(row.count));
      Loading l;
      for (const char* value : {"a", "b", "c"}) {
        l.definitions.Entry("SAFI", {"SAFIT", "SAFIS"}, {"s", value});
      }
      l.definitions.Value("NTOT", "SAFITNUM", row.count);
      l.definitions.Value("NTOT", "SAFITDNUM", row.maximum == INT32_MAX ? "99" : "0");
      l.Load(kUpdateSpyFileList);
      CHECK(l.maximum == row.maximum);
      CHECK(l.advanced == row.advanced);
      CHECK(l.lists.lstSearch.size() == 3);
      CHECK((l.m.Errors().find("The definitions announce") != std::string::npos) == row.recorded);
      const std::string once = l.m.Errors();
      l.loader.Load(kUpdateSpyFileList);
      CHECK(l.m.Errors() == once);
    }
  }

  TEST_CASE("direct entries are expanded and checked at once") {
    Loading l;
    l.m.File("C:\\WINDOWS\\evil.exe");
    l.m.Folder("C:\\WINDOWS\\spydir");
    for (const char* path :
         {"%WIN%\\EVIL.exe", "%WIN%\\gone.exe", "%Windows%\\x.exe", "C:\\WINDOWS\\evil.exe",
          "%win%\\evil.exe", "%WIN%\\*.exe", "%WIN%\\spydir", "%PF%", "%WIN%\\EVIL.EXE"}) {
      l.definitions.Entry("SAFI", {"SAFITD", "SAFISD"}, {"spy", path});
      l.definitions.Entry("SAFO", {"SAFOTD", "SAFOSD"}, {"spy", path});
    }
    l.Load(kUpdateSpyFileList);
    CHECK(l.sink.lines() == "Spy File|spy|C:\\WINDOWS\\EVIL.exe\n");
    l.Load(kUpdateSpyFolderList);
    CHECK(l.sink.lines() ==
          "Spy File|spy|C:\\WINDOWS\\EVIL.exe\nSpy Folder|spy|C:\\WINDOWS\\spydir\n");
    const std::string refused =
        "Error Description: The definition does not name one absolute path, Error Number: 52, "
        "Method: checkIfFileExistsThenAddToSpyList, Path: ";
    CHECK(l.m.Errors().starts_with(refused + "%win%\\evil.exe\n"));  // of each list the first
    CHECK(l.m.Errors().find("*.exe") == std::string::npos);
    CHECK(l.m.files.Count("List %") == 0);
    CHECK(l.lists.lstSearch.empty());
  }

  TEST_CASE("withdrawn rows go, all of them and whatever their case") {
    Loading l;
    l.m.File(kFile, l.definitions.Value("REMO", "0REMENT", "EVIL.exe")
                        .Value("REMO", "1REMENT", "two")
                        .Value("REMO", "3REMENT", "three")
                        .Text());
    for (const char* name : {"evil.EXE", "one", "TWO", "evil.exe", "three"}) {
      FillListBox(l.lists.lstSearch, "Spy File", "s", name);
    }
    l.loader.removeFromList();
    CHECK(Loading::Rows(l.lists.lstSearch) == "SPY FILE|s|one\nSPY FILE|s|three\n");
  }

  TEST_CASE("closing ends the loading at that entry") {
    Loading l;
    for (int n = 0; n < 5; ++n) {
      l.definitions.Entry("TAFI", {"TAFIT", "TAFIS"}, {"s", "file"});
      l.definitions.Entry("TAFO", {"TAFOT", "TAFOS"}, {"s", "folder"});
    }
    l.definitions.Value("NTOT", "TAFITNUM", "5");
    l.m.pump.close_at = 3;
    l.Load(kUpdateTrojanList);
    CHECK(l.lists.lstSearch.size() == 2);
    CHECK(l.ended == 1);
    CHECK(l.m.Errors() == "");
  }

  TEST_CASE("the lists of the version information are refilled, the others grow") {
    Loading l;
    l.definitions.Entry("SCE", {"SCET", "SCEV"}, {"s", "v"})
        .Entry("COOK", {"COOKT", "COOKC"}, {"s", "v"});
    for (int i = 0; i < 2; ++i) {
      l.Load(kUpdateSearchByCompanyList);
      l.Load(kUpdateCookieList);
    }
    CHECK(l.lists.lstCESearch.size() == 1);
    CHECK(l.lists.lstSearch.size() == 2);
  }

  TEST_CASE("a definition leads to no server but where the user's own folders lie") {
    Loading l;
    l.folders.app_data = "\\\\home\\me\\AppData";
    for (const char* path : {"\\\\far\\share\\%win%.exe", "%CF%\\\\far\\share\\evil.exe",
                             "%CF%\\\\home\\me\\AppDataX\\evil.exe", "%AD%\\evil.exe"}) {
      l.definitions.Entry("SAFI", {"SAFITD", "SAFISD"}, {"spy", path});
    }
    l.Load(kUpdateSpyFileList);
    CHECK(l.m.files.Count("List \\\\") == 1);
    CHECK(l.m.files.Count("List \\\\home\\me\\AppData\\evil.exe") == 1);
    CHECK(l.m.Errors() ==
          "Error Description: The definition names a place on another computer, Error Number: 52, "
          "Method: checkIfFileExistsThenAddToSpyList, Path: \\\\far\\share\\%win%.exe\n");
  }
}

TEST_SUITE("signature_list") {
  TEST_CASE("rows keep their order, shared texts and duplicates") {
    SignatureList list;
    FillListBox(list, " Spy File ", "a", "1");
    FillListBox(list, "Spy File", "a", "1");
    FillListBoxRegistryVType(list, " key\\Path ", "spy", "value");
    FillListBox(list, "x", "", std::string(70'000, 'v'));
    CHECK(list.size() == 4);
    CHECK((list[0].text == "SPY FILE" && list[1].sub2 == "1"));
    CHECK((list[2].text == "KEY\\PATH" && list[2].sub1 == "value" && list[2].sub2 == "spy"));
    CHECK(list[3].sub2.size() == 65'535);
    list.Retain([](const SignatureRow& row) { return row.text != "SPY FILE"; });
    CHECK(list.size() == 2);
    CHECK(list[0].sub2 == "spy");
    list.Clear();
    CHECK(list.empty());
  }
}

}  // namespace scourwell::test
