#include "results/hit_list.h"
#include "backup/ignore_list.h"
#include "tests/support.h"

namespace scourwell::test {
namespace {

constexpr char kIgnored[] = "C:\\App\\ignorespylist.txt";

struct Results : Bench {
  IgnoreList ignore{m.files, m.clock, log, kIgnored};
  HitList hits{ignore, settings, log};

  void Add(std::string_view kind, const std::string& details, const std::string& spy = "spy") {
    hits.AddSpyToListView({std::string(kind), details, spy, 0, {}, {}});
  }
  std::string Details() const {
    std::string text;
    for (std::size_t i = 0; i < hits.size(); ++i) text += hits.Text(i, HitList::kDetails) + " ";
    return text;
  }
};

}  // namespace

TEST_SUITE("ignore_list") {
  TEST_CASE("records are three fields a line") {
    const auto parsed = [](std::string_view text) {
      std::string result;
      for (const IgnoreRecord& record : ParseIgnoreRecords(text)) {
        result += record.kind + "/" + record.details + "/" + record.system + ";";
      }
      return result;
    };
    CHECK(parsed("\"a\",\"b, c\",\"d\"\r\n\"e\",\"f\",\"g\"\r\n") == "a/b, c/d;e/f/g;");
    CHECK(parsed("a, b ,c\nd") == "a/b/c;d//;");
    CHECK(parsed("\"a\" , \"b\",\"c\",\"more\",x\r\n\"d\"") == "a/b/c;d//;");
    CHECK(parsed("\"a\"b\",\"c\",\"d\"") == "a/c/d;");
    CHECK(parsed("\"\",,\"c\"") == "//c;");
    CHECK(parsed("\"open, to the end") == "open, to the end//;");
    CHECK(parsed("\r\n\n\r") == "");
    CHECK(parsed("") == "");
  }

  TEST_CASE("kind and details are compared with case, the file is read when it changed") {
    Results r;
    CHECK_FALSE(r.ignore.Matches("Spy File", "C:\\x"));
    CHECK(r.m.Errors() == "");
    r.m.File(kIgnored, "\"Spy File\",\"C:\\x\",\"spy\"\r\n");
    CHECK(r.ignore.Matches("Spy File", "C:\\x"));
    CHECK_FALSE(r.ignore.Matches("Spy File", "c:\\x"));
    CHECK_FALSE(r.ignore.Matches("Spy file", "C:\\x"));
    CHECK_FALSE(r.ignore.Matches("Spy Folder", "C:\\x"));
    CHECK_FALSE(r.ignore.Matches("Spy FileC:", "\\x"));
    CHECK(r.m.files.Count("Read ") == 1);
    r.m.File(kIgnored, "\"Spy Folder\",\"C:\\x\",\"spy\"\r\n");
    CHECK_FALSE(r.ignore.Matches("Spy File", "C:\\x"));
    CHECK(r.ignore.Matches("Spy Folder", "C:\\x"));
    r.m.files.Remove(kIgnored);
    CHECK_FALSE(r.ignore.Matches("Spy Folder", "C:\\x"));
  }
}

TEST_SUITE("hit_list") {
  TEST_CASE("rows are counted by kind, ignored ones in both counters") {
    Results r;
    r.m.File(kIgnored, "\"Spy File\",\"C:\\ignored\",\"any\"\r\n");
    for (const std::string_view kind :
         {kSpyFile, kSpyCookie, kSpyFolder, kSpyRegistryKey, kSpyRegistryValue, kMemoryProcess}) {
      r.Add(kind, "item of " + std::string(kind));
    }
    r.Add("Unknown kind", "x");
    r.Add("Spy File", "C:\\ignored");
    const HitCounters& counters = r.hits.counters();
    CHECK(counters.files == 3);
    CHECK(counters.folders == 1);
    CHECK(counters.registry == 2);
    CHECK(counters.processes == 1);
    CHECK(counters.ignored == 1);
    CHECK(counters.Total() == 7);
    CHECK(r.hits.size() == 7);
    CHECK(r.hits.Contains("C:\\IGNORED"));
    r.hits.Clear();
    CHECK(r.hits.empty());
    CHECK(r.hits.counters().Total() == 0);
    CHECK_FALSE(r.hits.Contains("C:\\ignored"));
  }

  TEST_CASE("an item is reported once whatever its case") {
    Results r;
    CHECK(ReportOnce(r.hits, kSpyFile, kCodeFile, "C:\\Evil.exe", "spy"));
    CHECK_FALSE(ReportOnce(r.hits, kSpyFile, kCodeFile, "c:\\EVIL.EXE", "other"));
    CHECK(r.hits.size() == 1);
    CHECK(r.hits.row(0).detection.icon == 3);
    CHECK(r.hits.row(0).detection.tool_tip == "C:\\Evil.exe");
  }

  TEST_CASE("rows arrive ticked when the settings say so") {
    struct Row {
      const char* mark;
      bool auto_remove;
      bool checked;
    };
    for (const Row& row : {Row{"y", false, true},
                           {"n", false, false},
                           {"n", true, true},
                           {"Y", false, false},
                           {"", false, false}}) {
      Results r;
      r.settings.MarkChecked = row.mark;
      r.settings.AutoRemove = row.auto_remove;
      r.Add(kSpyFile, "x");
      CHECK(r.hits.row(0).checked == row.checked);
    }
    Results r;
    r.Add(kSpyFile, "1");
    r.Add(kSpyFile, "2");
    r.hits.SetChecked(1, true);
    CHECK(r.hits.checked_count() == 1);
    r.hits.CheckAll(true);
    CHECK(r.hits.checked_count() == 2);
    r.hits.CheckAll(false);
    CHECK(r.hits.checked_count() == 0);
  }

  TEST_CASE("counting past 32767 is recorded, the rows stay") {
    Results r;
    r.m.clock.frozen = true;
    for (int i = 0; i < 32'768; ++i) r.Add(kSpyFile, std::to_string(i));
    CHECK(r.hits.counters().files == 32'767);
    CHECK(r.hits.size() == 32'768);
    CHECK(r.m.Errors() ==
          "Error Description: Overflow, Error Number: 6, Method: AddSpyToListView\n");
    r.Add(kSpyFolder, "still counted");
    CHECK(r.hits.counters().Total() == 32'768);
  }

  TEST_CASE("each click on a header turns the order, equal rows keep theirs") {
    Results r;
    r.Add(kSpyFile, "b", "1");
    r.Add(kSpyFolder, "C", "1");
    r.Add(kSpyFile, "a", "2");
    r.hits.SortBy(HitList::kDetails);
    CHECK(r.Details() == "a b C ");
    CHECK(r.hits.ascending());
    r.hits.SortBy(HitList::kDetails);
    CHECK(r.Details() == "C b a ");
    r.hits.SortBy(HitList::kType);
    CHECK(r.Details() == "b a C ");
    r.hits.SortBy(HitList::kSystem);
    CHECK(r.Details() == "a b C ");
    CHECK_FALSE(r.hits.ascending());
    std::string many;
    r.hits.Clear();
    for (char c = '0'; c <= 'z'; ++c) {
      r.Add(c % 2 ? kSpyFile : kSpyFolder, std::string(1, c), "same");
      many += std::string(1, c) + " ";
    }
    r.hits.SortBy(HitList::kSystem);
    CHECK(r.Details() == many);
  }
}

}  // namespace scourwell::test
