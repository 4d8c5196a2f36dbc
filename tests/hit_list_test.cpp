// SPDX-License-Identifier: MIT
#include "results/hit_list.h"
#include "backup/ignore_list.h"
#include "results/explanation.h"
#include "results/row_rights.h"
#include "tests/support.h"

namespace scourwell::test {
namespace {

constexpr char kIgnored[] = "C:\\App\\ignorespylist.txt";

struct Results : Bench {
  IgnoreList ignore{m.files, m.clock, m.code_pages, kept, log, kIgnored};
  HitList hits{ignore, settings, captions, log};

  void Add(FoundObject object, const std::string& spy = "spy") {
    hits.AddSpyToListView({spy, std::move(object)});
  }
  bool Matches(const std::string& kind, const std::string& details) {
    return ignore.Matches({kind, details, {}});
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
    CHECK_FALSE(r.Matches("Spy File", "C:\\x"));
    CHECK(r.m.Errors() == "");
    r.m.File(kIgnored, "\"Spy File\",\"C:\\x\",\"spy\"\r\n");
    CHECK(r.Matches("Spy File", "C:\\x"));
    CHECK_FALSE(r.Matches("Spy File", "c:\\x"));
    CHECK_FALSE(r.Matches("Spy file", "C:\\x"));
    CHECK_FALSE(r.Matches("Spy Folder", "C:\\x"));
    CHECK_FALSE(r.Matches("Spy FileC:", "\\x"));
    CHECK(r.m.files.Count("Read ") == 1);
    r.m.File(kIgnored, "\"Spy Folder\",\"C:\\x\",\"spy\"\r\n");
    CHECK_FALSE(r.Matches("Spy File", "C:\\x"));
    CHECK(r.Matches("Spy Folder", "C:\\x"));
    r.m.files.Remove(kIgnored);
    CHECK_FALSE(r.Matches("Spy Folder", "C:\\x"));
  }

  TEST_CASE("records go to the file and out of it") {
    Results r;
    CHECK(r.ignore.Append({{"Spy File", "C:\\a", "x"}, {"Spy File", "C:\\a", "x"}}).ok());
    CHECK(r.ignore.Append({{"Spy Folder", "C:\\b, c", ""}}).ok());
    CHECK(r.m.Content(kIgnored) ==
          "\"Spy File\",\"C:\\a\",\"x\"\r\n\"Spy File\",\"C:\\a\",\"x\"\r\n"
          "\"Spy Folder\",\"C:\\b, c\",\"\"\r\n");
    std::vector<IgnoreRecord> records;
    CHECK(r.ignore.Load(&records).ok());
    REQUIRE(records.size() == 3);
    CHECK(r.Matches("Spy Folder", "C:\\b, c"));
    CHECK(r.ignore.Keep({records[2]}).ok());
    CHECK(r.m.Content(kIgnored) == "\"Spy Folder\",\"C:\\b, c\",\"\"\r\n");
    CHECK_FALSE(r.Matches("Spy File", "C:\\a"));
    CHECK_FALSE(r.m.Has("C:\\App\\ignorespytemp.txt"));
    // What an interrupted removal left comes back.
    r.m.File("C:\\App\\ignorespytemp.txt", "\"old\",\"o\",\"\"\r\n");
    CHECK(r.ignore.Keep({}).ok());
    CHECK(r.m.Content(kIgnored) == "\"old\",\"o\",\"\"\r\n");
    CHECK(r.ignore.Keep({}).ok());
    CHECK_FALSE(r.m.Has(kIgnored));
    CHECK(r.ignore.Keep({}).ok());
    CHECK(r.ignore.Load(&records).ok());
    CHECK(records.empty());
  }

  TEST_CASE("a list of another code page is read right, and written anew in the present one") {
    Results r;
    const IgnoreRecord western{"Spy File", "C:\\voil\u00E0 \u0141", "s"};
    REQUIRE(r.ignore.Append({western}).ok());
    CHECK(r.m.Content(kIgnored) == "\"Spy File\",\"C:\\voil\xE0 <U+0141>\",\"s\"\r\n");
    r.m.code_pages.system = 1251;
    IgnoreList later(r.m.files, r.m.clock, r.m.code_pages, r.kept, r.log, kIgnored);
    CHECK(later.Matches(western));
    REQUIRE(later.Append({{"Spy File", "C:\\\u0430", "s"}}).ok());
    CHECK(
        r.m.Content(kIgnored) ==
        "\"Spy File\",\"C:\\voil<U+00E0> <U+0141>\",\"s\"\r\n\"Spy File\",\"C:\\\xE0\",\"s\"\r\n");
    CHECK(later.Matches({"Spy File", "C:\\\u0430", {}}));
    std::vector<IgnoreRecord> records;
    REQUIRE(later.Load(&records).ok());
    CHECK(records.size() == 2);
  }

  TEST_CASE("a list that was emptied or taken away begins anew in the present code page") {
    for (const bool emptied : {true, false}) {
      CAPTURE(emptied);
      Results r;
      REQUIRE(r.ignore.Append({{"Spy File", "C:\\z\u00FCrich", "s"}}).ok());
      if (emptied) REQUIRE(r.ignore.Keep({}).ok());
      if (!emptied) r.m.files.Remove(kIgnored);
      r.m.code_pages.system = 1251;
      IgnoreList later(r.m.files, r.m.clock, r.m.code_pages, r.kept, r.log, kIgnored);
      for (const char* path : {"C:\\\u0430", "C:\\\u0431"}) {
        REQUIRE(later.Append({{"Spy File", path, "s"}}).ok());
        CHECK(later.Matches({"Spy File", path, {}}));
      }
      std::vector<IgnoreRecord> records;
      REQUIRE(later.Load(&records).ok());
      REQUIRE(records.size() == 2);
      CHECK(records[0].details == "C:\\\u0430");
    }
  }

  TEST_CASE("whichever write fails, no record that is kept is lost") {
    for (std::size_t n = 1; n <= 4; ++n) {
      CAPTURE(n);
      Results r;
      r.m.File(kIgnored, "\"a\",\"1\",\"\"\r\n\"b\",\"2\",\"\"\r\n");
      r.m.files.failing_change = n;
      CHECK(r.ignore.Keep({{"b", "2", ""}}).ok() == (n > 3));
      CHECK(r.m.Content(kIgnored).find("\"b\"") != std::string::npos);
    }
  }
}

TEST_SUITE("hit_list") {
  TEST_CASE("rows are counted by kind, ignored ones in both counters") {
    Results r;
    r.m.File(kIgnored, "\"Spy File\",\"C:\\ignored\",\"any\"\r\n");
    const FoundObject ignored = FoundFile{"C:\\ignored"};
    for (const FoundObject& object : std::initializer_list<FoundObject>{
             FoundFile{"f"}, FoundCookie{"c"}, FoundFolder{"d"}, KeyAt("HKEY_USERS\\k"),
             ValueAt("HKEY_USERS\\k", "v"), FoundProcess{"p", 1}, ignored}) {
      r.Add(object);
    }
    const HitCounters& counters = r.hits.counters();
    CHECK(counters.files == 3);
    CHECK(counters.folders == 1);
    CHECK(counters.registry == 2);
    CHECK(counters.processes == 1);
    CHECK(counters.ignored == 1);
    CHECK(counters.Total() == 7);
    CHECK(r.hits.size() == 6);
    CHECK(r.hits.Contains(ignored));
    CHECK_FALSE(r.hits.Shows(ignored));
    r.hits.Clear();
    CHECK(r.hits.empty());
    CHECK(r.hits.counters().Total() == 0);
    CHECK_FALSE(r.hits.Contains(ignored));
  }

  TEST_CASE("an item is reported once whatever its case") {
    Results r;
    CHECK(ReportOnce(r.hits, FoundFile{"C:\\Evil.exe"}, {"spy"}));
    CHECK_FALSE(ReportOnce(r.hits, FoundFile{"c:\\EVIL.EXE"}, {"other"}));
    CHECK(r.hits.size() == 1);
    CHECK(r.Details() == "C:\\Evil.exe ");
  }

  TEST_CASE("a tip says where an item lies, and what kind of program its spy is") {
    SpyCategories categories;
    categories.AddCategory("tracker", "recognises a visitor");
    categories.AddSubject("any cookie", "tracker");
    categories.AddSubject("Worm.*", "worm");
    for (const auto& [finding, tip] : Rows<Finding, const char*>{
             {{"Ads", FoundCookie{"C:\\c.txt"}}, "C:\\c.txt - tracker: recognises a visitor"},
             {{"Ads", FoundFile{"C:\\x"}}, "C:\\x"},
             {{"Worm.A", ValueAt("HKEY_USERS\\k", "v", {}, true)}, "HKEY_USERS\\k - worm"},
             {{"Ads", FoundProcess{"C:\\x", 7}}, "C:\\x"}}) {
      CHECK(TipText(finding, categories) == tip);
    }
  }

  TEST_CASE("rows arrive ticked when the settings say so") {
    for (const auto& [mark, auto_remove, checked] :
         Rows<const char*, bool, bool>{{"y", false, true},
                                       {"n", false, false},
                                       {"n", true, true},
                                       {"Y", false, false},
                                       {"", false, false}}) {
      Results r;
      r.settings.MarkChecked = mark;
      r.settings.AutoRemove = auto_remove;
      r.Add(FoundFile{"x"});
      CHECK(r.hits.row(0).checked == checked);
    }
    Results r;
    r.Add(FoundFile{"1"});
    r.Add(FoundFile{"2"});
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
    for (int i = 0; i < 32'768; ++i) r.Add(FoundFile{std::to_string(i)});
    CHECK(r.hits.counters().files == 32'767);
    CHECK(r.hits.size() == 32'768);
    CHECK(r.m.Failures() == "6 AddSpyToListView\n");
    r.Add(FoundFolder{"still counted"});
    CHECK(r.hits.counters().Total() == 32'768);
  }

  TEST_CASE("each click on a header turns the order, equal rows keep theirs") {
    Results r;
    r.Add(FoundFile{"b"}, "1");
    r.Add(FoundFolder{"C"}, "1");
    r.Add(FoundFile{"a"}, "2");
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
      r.Add(FoundFile{std::string(1, c)}, "same");
      many += std::string(1, c) + " ";
    }
    r.hits.SortBy(HitList::kSystem);
    CHECK(r.Details() == many);
  }

  TEST_CASE("the rows of a spy stay together when they are grouped, in any order") {
    Results r;
    r.Add(FoundFile{"c"}, "Two");
    r.Add(FoundFile{"a"}, "One");
    r.Add(FoundFile{"b"}, "TWO");
    r.Add(FoundFile{"d"}, "one");
    CHECK(r.hits.GroupSize(0) == 0);
    r.hits.Group(true);
    CHECK(r.Details() == "a d c b ");
    r.hits.SortBy(HitList::kDetails);
    CHECK(r.Details() == "a d b c ");
    r.hits.SortBy(HitList::kDetails);
    CHECK(r.Details() == "d a c b ");
    CHECK(r.hits.GroupSize(0) == 2);
    CHECK(r.hits.GroupSize(1) == 0);
    CHECK(r.hits.GroupSize(2) == 2);
    r.hits.SortBy(HitList::kSystem);  // ascending again
    r.hits.SortBy(HitList::kSystem);
    CHECK(r.Details() == "c b d a ");
    r.hits.Group(false);
    r.hits.SortBy(HitList::kDetails);
    CHECK(r.Details() == "a b c d ");
  }

  TEST_CASE("a row that the user has no right to remove says so") {
    Results r;
    r.m.registry.Make(RootKey::LocalMachine, "Software\\Spy").Denied();
    r.m.registry.Make(RootKey::LocalMachine, "Software\\Free");
    for (const char* key : {"Spy", "Free"}) {
      r.Add(KeyAt(std::string("HKEY_LOCAL_MACHINE\\Software\\") + key));
    }
    r.Add(ValueAt("HKEY_LOCAL_MACHINE\\Software\\Spy", "v"));
    r.Add(KeyAt("HKEY_LOCAL_MACHINE\\Software\\Spy", true));  // in a view that is not there
    r.Add(FoundFile{"C:\\spy.exe"});
    const auto remarks = [&] {
      std::string text;
      for (std::size_t i = 0; i < r.hits.size(); ++i) text += r.hits.Text(i, HitList::kState) + "|";
      return text;
    };
    LockRefusedRows(&r.hits, r.m.registry, nullptr);
    CHECK(remarks() == "|||||");  // an administrator finds out by trying
    CHECK_FALSE(r.hits.has_remarks());
    r.m.registry.Make(RootKey::LocalMachine, "Software").Denied();
    LockRefusedRows(&r.hits, r.m.registry, nullptr);
    CHECK(remarks() == "<17478>||<17478>|||");
    CHECK(r.hits.has_remarks());
    r.hits.Settle(0, {RemovalState::Removed, {}});
    CHECK(remarks() == "<17101>||<17478>|||");
  }

  TEST_CASE("who asks is told what a finding is, how it is known and by whom") {
    SpyCategories categories;
    categories.AddCategory("dialer", "It dials.");
    categories.AddSubject("Bell", "dialer");
    const Finding known{"Bell", FoundFile{"C:\\bell.exe"}, Certainty::Part,
                        DefinitionSource::BuiltIn};
    CHECK(Explanation(NumberCaptions(), known, categories) ==
          "Bell\r\nC:\\bell.exe\r\n\r\n<17484> dialer: It dials.\r\n<17485> <17490>\r\n"
          "<17486> <17492>");
    const Finding other{"Who", FoundFile{"C:\\who"}, Certainty::Beside, DefinitionSource::Setting};
    CHECK(Explanation(NumberCaptions(), other, categories) ==
          "Who\r\nC:\\who\r\n\r\n<17485> <17491>\r\n<17486> <17494>");
  }

  TEST_CASE("all rows of one spy are checked together, whatever the case of its name") {
    Results r;
    r.Add(FoundFile{"C:\\a"}, "Bar");
    r.Add(FoundFile{"C:\\b"}, "Barn");
    r.Add(FoundFolder{"C:\\c"}, "BAR");
    r.hits.CheckSpy("bar", true);
    CHECK(r.hits.CheckedRows() == std::vector<std::size_t>{0, 2});
    r.hits.Settle(0, {});
    r.hits.CheckSpy("bar", true);
    CHECK(r.hits.CheckedRows() == std::vector<std::size_t>{2});
    r.hits.CheckSpy("Bar", false);
    CHECK(r.hits.CheckedRows().empty());
    const std::string kind = r.hits.Text(0, HitList::kType);
    CHECK(r.hits.Line(1) == kind + "\tBarn\tC:\\b");
    CHECK(r.hits.Line(0) == kind + "\tBar\tC:\\a\t" + r.captions.Text(Caption::StateRemoved));
  }

  TEST_CASE("excluded rows leave the list and come back when their records go") {
    Results r;
    r.settings.MarkChecked = "y";
    for (const char* path : {"C:\\a", "C:\\b", "C:\\c", "C:\\d"}) r.Add(FoundFile{path});
    r.Add(ValueAt("HKEY_CURRENT_USER\\Run", "say \"x\""));
    r.hits.SetChecked(1, false);
    CHECK(r.hits.Exclude(r.hits.CheckedRows()).code() == kBadFileName);
    CHECK(r.Details() == "C:\\b HKEY_CURRENT_USER\\Run\\say \"x\" ");
    CHECK(r.m.Content(kIgnored).starts_with(
        "\"Spy File\",\"C:\\d\",\"spy\"\r\n\"Spy File\",\"C:\\c"));
    CHECK(r.hits.counters().files == 4);
    CHECK(r.hits.counters().ignored == 0);
    CHECK(r.hits.excluded() == 3);
    r.hits.Clear();
    CHECK(r.hits.excluded() == 0);
    for (const char* path : {"C:\\a", "C:\\b", "C:\\C"}) r.Add(FoundFile{path});
    CHECK(r.Details() == "C:\\b C:\\C ");
    CHECK(r.hits.counters().files == 3);
    CHECK(r.hits.counters().ignored == 1);
    CHECK(r.hits.excluded() == 1);
    // A row that is not checked, while others are.
    CHECK(r.hits.Exclude({0}).ok());
    CHECK(r.Details() == "C:\\C ");
    CHECK(r.hits.excluded() == 2);
    CHECK(r.ignore.Keep({}).ok());
    r.hits.Clear();
    r.Add(FoundFile{"C:\\a"});
    CHECK(r.Details() == "C:\\a ");
    // A list that cannot be written keeps its rows.
    r.m.files.failing_change = r.m.files.changes + 1;
    CHECK_FALSE(r.hits.Exclude(r.hits.CheckedRows()).ok());
    CHECK(r.hits.size() == 1);
  }

  TEST_CASE("while the ignore list cannot be read, nothing is checked that it may hold") {
    Results r;
    r.settings.MarkChecked = "y";
    r.m.File(kIgnored, "\"Spy File\",\"C:\\x\",\"\"\r\n").Locked();
    r.Add(FoundFile{"C:\\x"});
    r.Add(FoundFile{"C:\\y"});
    CHECK(r.Details() == "C:\\x C:\\y ");
    CHECK(r.hits.checked_count() == 0);
    CHECK(r.hits.uncertain());
    CHECK_FALSE(r.hits.Shows(FoundFile{"C:\\x"}));  // a process would be ended
    r.hits.Clear();
    CHECK_FALSE(r.hits.uncertain());
    const std::string errors = r.m.Errors();
    CHECK(std::count(errors.begin(), errors.end(), '\n') == 1);
    r.m.files.Find(kIgnored)->locked = false;
    r.Add(FoundFile{"C:\\y"});
    CHECK(r.Details() == "C:\\y ");
    // Read once, it counts on, with what was excluded since.
    CHECK(r.ignore.Append({{"Spy File", "C:\\z", ""}}).ok());
    r.m.files.faults["Stat " + std::string(kIgnored)] = kDiskNotReady;
    for (const char* path : {"C:\\x", "C:\\y", "C:\\z"}) r.Add(FoundFile{path});
    CHECK(r.Details() == "C:\\y C:\\y ");
  }

  TEST_CASE("a program, its file and a second one that runs are three items, a cookie is a file") {
    Results r;
    r.Add(FoundProcess{"C:\\spy.exe", 7});
    CHECK(r.hits.Contains(FoundProcess{"C:\\SPY.exe", 7}));
    CHECK_FALSE(r.hits.Contains(FoundProcess{"C:\\spy.exe", 8}));
    CHECK(ReportOnce(r.hits, FoundFile{"C:\\Spy.exe"}, {"spy"}));
    CHECK_FALSE(ReportOnce(r.hits, FoundCookie{"C:\\spy.exe"}, {"spy"}));
  }
}

}  // namespace scourwell::test
