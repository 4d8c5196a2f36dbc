// SPDX-License-Identifier: MIT
#include "definitions/list_loader.h"

#include "tests/definition_rows.h"
#include "tests/support.h"

namespace scourwell::test {
namespace {

constexpr char kFile[] = "C:\\App\\Ini\\update.ref";

struct Loading : Bench, private LoadProgress {
  Loading() { folders.windows = "C:\\WINDOWS"; }

  SystemFolders folders;
  DefinitionLists lists;
  Definitions definitions;
  ReferenceFile reference{m.files, m.clock, log, settings, kAppFolder};
  ListLoader loader{reference, lists, *this, m.pump, log, folders};
  int maximum = -1;
  int advanced = 0;
  int ended = 0;

  void Load(const Loader& which) {
    m.File(kFile, definitions.Text());
    advanced = 0;
    loader.Load(which);
    CHECK(advanced <= maximum);
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
    }
    for (const Loader* loader :
         {&kUpdateTrojanList, &kUpdateDialersFileList, &kUpdateDialersFolderList,
          &kUpdateHijackersFileList, &kUpdateHijackersFolderList, &kUpdateKeyLoggersFileList,
          &kUpdateKeyLoggersFolderList, &kUpdateSpyFileList, &kUpdateSpyFolderList}) {
      l.Load(*loader);
      CHECK(l.maximum > 0);
    }
    REQUIRE(l.lists.fixed.size() == 10);
    for (const FixedPlace& place : l.lists.fixed) {
      CHECK((place.item == DiskItem::Folder) == place.path.ends_with("FO"));
      CHECK(place.path.starts_with("C:\\WINDOWS\\"));
    }
    CHECK(l.m.Errors() == "");
  }

  TEST_CASE("the other loaders fill lists of their own") {
    Loading l;
    l.definitions.Entry("REGS", {"REGST", "REGSK"}, {"1", "key"})
        .Entry("REGV", {"REGVT", "REGVK", "REGVV"}, {"2", "key", "value"})
        .Entry("REGK", {"REGKT", "REGKK"}, {"3", "key"})
        .Entry("REGKO", {"REGKTO", "REGKKO"}, {"4", "key"})
        .Entry("COOK", {"COOKT", "COOKC"}, {"5", "cookie"})
        .Entry("SBFCS", {"SBFCST", "SBFCSN", "SBFCSS"}, {"spy", "4294967296", " 255"})
        .Entry("SBFCS", {"SBFCST", "SBFCSN", "SBFCSS"}, {"spy", "1", "256"})
        .Entry("MEMA", {"MEMAT", "MEMAF"}, {"7", "process"});
    for (const Loader* loader :
         {&kUpdateRegistrySVList, &kUpdateRegistryKList, &kUpdateRegistryKOList, &kUpdateCookieList,
          &kUpdateSearchByFileChecSum, &kUpdateMemoryList}) {
      l.Load(*loader);
    }
    CHECK(RowTexts(l.lists.key_parts) == "1|key\n");
    CHECK(RowTexts(l.lists.values) == "2|key|value\n");
    CHECK(RowTexts(l.lists.keys) == "3|key\n4|key\n");
    CHECK(RowTexts(l.lists.cookies) == "5|cookie\n");
    CHECK(RowTexts(l.lists.processes) == "7|process\n");
    REQUIRE(l.lists.checksums.size() == 1);  // the other can be nobody's
    CHECK(l.lists.checksums[0].spy == "SPY");
    CHECK(l.lists.checksums[0].size == 4'294'967'296);
    CHECK(l.lists.checksums[0].checksum == 255);
    CHECK(l.ended == 6);
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
      CHECK(RowTexts(l.lists.searched) == "0SAFIT|0SAFIS\n1SAFIT|1SAFIS\n");
    }
  }

  TEST_CASE("an entry of three keys needs them all, and one count has a name of its own") {
    Loading l;
    l.definitions.Entry("REGV", {"REGVT", "REGVK", "REGVV"}, {"a", "b", "c"})
        .Entry("REGV", {"REGVT", "REGVK"}, {"a", "b"})
        .Entry("REGV", {"REGVT", "REGVK", "REGVV"}, {"a", "b", "c"})
        .Value("NTOT", "HAFITDDNUM", "4");
    l.Load(kUpdateRegistrySVList);
    CHECK(l.lists.values.size() == 1);
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
    REQUIRE(l.lists.searched.size() == 10'001);
    CHECK(l.lists.searched[10'000].name == "10000");
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
      CHECK(l.lists.searched.size() == 3);
      CHECK((l.m.Errors().find("The definitions announce") != std::string::npos) == row.recorded);
      const std::string once = l.m.Errors();
      l.loader.Load(kUpdateSpyFileList);
      CHECK(l.m.Errors() == once);
    }
  }

  TEST_CASE("withdrawn rows go, all of them and whatever their case") {
    Loading l;
    l.m.File(kFile, l.definitions.Value("REMO", "0REMENT", "EVIL.exe")
                        .Value("REMO", "1REMENT", "two")
                        .Value("REMO", "3REMENT", "three")
                        .Text());
    for (const char* name : {"evil.EXE", "one", "TWO", "evil.exe", "three"}) {
      l.lists.searched.Add({"s", name, DiskItem::File});
      l.lists.fixed.Add({"s", name, DiskItem::File});
      l.lists.cookies.Add({"s", name});
      l.lists.processes.Add({"s", name});
    }
    l.loader.removeFromList();
    CHECK(RowTexts(l.lists.searched) == "s|one\ns|three\n");
    CHECK(RowTexts(l.lists.cookies) == "s|one\ns|three\n");
    CHECK(RowTexts(l.lists.processes) == "s|one\ns|three\n");
    CHECK(l.lists.fixed.size() == 5);  // places cannot be withdrawn
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
    CHECK(l.lists.searched.size() == 2);
    CHECK(l.ended == 1);
    CHECK(l.m.Errors() == "");
  }

  TEST_CASE("the lists of the version information are refilled, the others grow") {
    Loading l;
    l.definitions.Entry("SCE", {"SCET", "SCEV"}, {"s", "v"})
        .Entry("SCW", {"SCWT", "SCWV"}, {"s", "v"})
        .Entry("SBPN", {"SBPNT", "SBPNF"}, {"s", "product"})
        .Entry("SBFCS", {"SBFCST", "SBFCSN", "SBFCSS"}, {"s", "7", "1"})
        .Entry("COOK", {"COOKT", "COOKC"}, {"s", "v"});
    for (int i = 0; i < 2; ++i) {
      l.Load(kUpdateSearchByCompanyList);
      l.Load(kUpdateSearchByProductName);
      l.Load(kUpdateSearchByFileChecSum);
      l.Load(kUpdateCookieList);
    }
    CHECK(RowTexts(l.lists.program_texts) == "s|v\ns|v\ns|product\n");
    CHECK(l.lists.checksums.size() == 1);
    CHECK(l.lists.cookies.size() == 2);
  }
}

TEST_SUITE("definition_list") {
  TEST_CASE("rows keep their order, shared texts and duplicates, wherever the list goes") {
    DefinitionList<NamedValue> list;
    for (int i = 0; i < 3000; ++i) {
      list.Add({"spy", i < 2 ? "key" : std::to_string(i / 2), std::string(i % 97, 'v')});
    }
    list.Add({"", "long", std::string(70'000, 'v')});
    CHECK(list.size() == 3001);
    CHECK(list[1].key.data() == list[0].key.data());
    list.Remove([](const NamedValue& row) { return row.key == "1"; });
    const DefinitionList<NamedValue> moved = std::move(list);
    REQUIRE(moved.size() == 2999);
    for (std::size_t row = 2; row < 2998; ++row) {
      CHECK(moved[row].spy == "spy");
      CHECK(moved[row].key == std::to_string((row + 2) / 2));
      CHECK(moved[row].name == std::string((row + 2) % 97, 'v'));
    }
    CHECK((moved[2998].spy.empty() && moved[2998].name.size() == 70'000));
  }
}

}  // namespace scourwell::test
