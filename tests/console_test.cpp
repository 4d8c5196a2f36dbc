// SPDX-License-Identifier: MIT
#include "console/exit_codes.h"
#include "console/options.h"
#include "console/records.h"
#include "console/selection.h"
#include "tests/console_support.h"

namespace scourwell::test {
namespace {

// The lines of an output, as JSON. Nothing for one that is none.
std::vector<JsonValue> JsonLines(const std::string& text) {
  std::vector<JsonValue> lines;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = text.find('\n', begin);
    REQUIRE(end != text.npos);
    const auto value = ParseJson(text.substr(begin, end - begin));
    REQUIRE(value);
    lines.push_back(*value);
    begin = end + 1;
  }
  return lines;
}

Finding FileOf(const std::string& path, const std::string& spy = "Evil") {
  return {spy, FoundFile{path}};
}

}  // namespace

TEST_SUITE("console_options") {
  TEST_CASE("words that make sense, and words that do not") {
    for (const auto& [words, wrong] : Rows<std::vector<std::string>, std::string>{
             {{"scan"}, ""},
             {{"scan", "--format", "json", "C:\\x"}, ""},
             {{"scan", "--format=csv"}, ""},
             {{"scan", "--no-memory", "--only=file", "--only", "key"}, ""},
             {{"--help"}, ""},
             {{"backups", "-h"}, ""},
             {{"--version"}, ""},
             {{"scan", "--", "--format"}, ""},
             {{"scan", "-"}, ""},
             {std::vector<std::string>(), "no command"},
             {{"sacn"}, "unknown command sacn"},
             {{"scan", "--frmat=json"}, "unknown option --frmat=json"},
             {{"scan", "--form", "json"}, "unknown option --form"},
             {{"scan", "-x"}, "unknown option -x"},
             {{"scan", "--no-format"}, "unknown option --no-format"},
             {{"scan", "--no-yes"}, "unknown option --no-yes"},
             {{"backups", "--format=json"}, "unknown option --format=json"},
             {{"--format=json", "scan"}, "unknown option --format=json"},
             {{"scan", "--yes=1"}, "--yes takes no value"},
             {{"scan", "--no-memory=x"}, "--no-memory takes no value"},
             {{"scan", "--format"}, "--format needs a value"},
             {{"scan", "--format="}, "--format needs a value"},
             {{"scan", "--format", ""}, "--format needs a value"},
             {{"scan", "--format=xml"}, "unknown format xml"},
             {{"scan", "--drive=C"}, "--drive wants LETTER=FOLDER, not C"},
             {{"scan", "--drive=1=/x"}, "--drive wants LETTER=FOLDER, not 1=/x"},
             {{"scan", "--drive", "C=/x", "--windows=/x"}, "--windows and --drive say the same"}}) {
      CAPTURE(words);
      Options options;
      CHECK(ParseOptions(words, &options) == wrong);
    }
    Options options;
    REQUIRE(ParseOptions({"scan", "a=b", "--no-memory", "--cookies", "--only", "x", "--only=y=z",
                          "--", "--yes"},
                         &options) == "");
    CHECK(options.words == std::vector<std::string>{"a=b", "--yes"});
    CHECK(options.only == std::vector<std::string>{"x", "y=z"});
    CHECK((options.memory == false && options.cookies == true && !options.registry));
    CHECK_FALSE(options.yes);
  }

  TEST_CASE("a command line of Windows falls into words as its C programs cut it") {
    for (const auto& [line, words] : Rows<std::string, std::vector<std::string>>{
             {"", {}},
             {"  scan\t C:\\x ", {"scan", "C:\\x"}},
             {"\"C:\\a b\\\" c", {"C:\\a b\" c"}},
             {"\"C:\\a b\\\\\" c", {"C:\\a b\\", "c"}},
             {"a\\\\b \\\"q\\\"", {"a\\\\b", "\"q\""}},
             {"--x=\"a b\" \"\" c\\", {"--x=a b", "", "c\\"}},
             {"\"open", {"open"}}}) {
      CAPTURE(line);
      CHECK(SplitCommandLine(line) == words);
    }
  }

  TEST_CASE("every command says what it knows, and the exit codes of a wrong use") {
    ConsoleBench b;
    CHECK(b.Run({"--help"}) == kNothingFound);
    for (const std::string command :
         {"scan", "remove", "restore", "backups", "ignore", "startup", "report", "definitions"}) {
      CHECK(b.console.out.find("\n  " + command + " ") != std::string::npos);
      ConsoleBench other;
      CHECK(other.Run({command, "--help"}) == kNothingFound);
      CHECK(other.console.out.find("Usage: scourwell " + command) == 0);
    }
    CHECK(b.Run({"scan", "--nonsense"}) == kUsage);
    CHECK(b.console.out.empty());
    CHECK(b.console.err ==
          "scourwell scan: unknown option --nonsense; see scourwell scan --help\n");
    CHECK(b.Run({"report", "x.jsonl"}) == kUsage);
    CHECK(b.Run({"restore"}) == kUsage);
    CHECK(b.Run({"ignore", "--add", "spy", "x"}) == kUsage);
  }
}

TEST_SUITE("console_records") {
  TEST_CASE("a line of JSON gives back whatever a name holds") {
    for (const std::string& name :
         {std::string("plain"), std::string("q\" b\\ s/"), std::string("\x01\x1F\x7F\t\r\n\0z", 9),
          std::string("\xC4\x84\xF0\x9F\x98\x80"),
          std::string("\xED\xA0\x80x\xED\xB0\x80"),  // halves of a pair that stand alone
          std::string("<script>&'")}) {
      const std::string line = JsonLine(RecordOf(FileOf("C:\\" + name, name), {}));
      CAPTURE(line);
      CHECK(std::ranges::none_of(line.substr(0, line.size() - 1),
                                 [](char c) { return (c >= 0 && c < ' ') || c == '\x7F'; }));
      CHECK(line.find("\xED\xA0") == std::string::npos);
      const auto read = ParseJson(line);
      REQUIRE(read);
      CHECK(read->Text("path") == "C:\\" + name);
      CHECK(read->Text("spy") == name);
    }
    // A byte of no character is what a name on a disk with such a byte reads as.
    CHECK(JsonText("a\xFF"
                   "b") == "\"a\\udcffb\"");
    CHECK(ParseJson("\"\\ud83d\\ude00\\u0041\"")->text ==
          "\xF0\x9F\x98\x80"
          "A");
    CHECK(ParseJson("\"\\ud83d\\u0041\"")->text ==
          "\xED\xA0\xBD"
          "A");
  }

  TEST_CASE("a part of a second has three digits") {
    ScanSummary summary;
    summary.milliseconds = 2007;
    CHECK(JsonLine(summary).find("\"seconds\": 2.007,") != std::string::npos);
  }

  TEST_CASE("what is no JSON is none") {
    for (const char* line :
         {"", "{", "{\"a\"}", "{\"a\": }", "[1,", "\"open", "\"\\", "\"\\u12\"", "\"\\x\"", "{} {}",
          "nul", "{\"a\": 1,}", "[[[[[[[[[[[[1]]]]]]]]]]]]", "{1: 2}"}) {
      CAPTURE(std::string(line));
      CHECK_FALSE(ParseJson(line));
    }
    CHECK(ParseJson(" { \"a\" : [ 1 , -2.5e3, null, true ] } "));
  }

  TEST_CASE("each kind says where it is in its own fields") {
    const RegistryPlace run = {RootKey::LocalMachine, "Software\\Run"};
    FindingRecord value = RecordOf({"Evil", FoundValue{run, "x", "data", true}}, {});
    value.user = "Ann";
    CHECK(JsonLine(value) ==
          "{\"kind\": \"value\", \"spy\": \"Evil\", \"key\": "
          "\"HKEY_LOCAL_MACHINE\\\\Software\\\\Run\", "
          "\"value\": \"x\", \"view\": \"64\", \"certainty\": \"medium\", \"source\": \"file\", "
          "\"user\": \"Ann\"}\n");
    CHECK(JsonLine(RecordOf({"Evil", FoundKey{run}}, {})).find("\"value\"") == std::string::npos);
    CHECK(JsonLine(RecordOf({"Evil", FoundProcess{"C:\\e.exe", 7}}, {}))
              .find("\"kind\": \"process\", \"spy\": \"Evil\", \"path\": \"C:\\\\e.exe\"") == 1);
    CHECK(PlaceOf(value) == "HKEY_LOCAL_MACHINE\\Software\\Run\\x (64-bit)");
  }

  TEST_CASE("a cell of a table is one cell, and no formula") {
    const std::string line = CsvLine(RecordOf({"=cmd|'x'!A1", FoundFile{"C:\\a\",\"b\nc"}}, {}));
    CHECK(line.find("\"'=cmd|'x'!A1\"") != std::string::npos);
    CHECK(line.find("\"C:\\a\"\",\"\"b<U+000A>c\"") != std::string::npos);
    CHECK(std::ranges::count(CsvHead(), ',') == 9);
  }

  TEST_CASE("what --only leaves") {
    const auto held = [](const std::vector<std::string>& only) {
      std::string text;
      for (const Finding& finding :
           {FileOf("C:\\a\\1"), FileOf("C:\\ab"), FileOf("C:\\x,y\\2", "Other"),
            Finding{"Evil", FoundKey{{RootKey::Users, "K"}}}}) {
        text += Selection(only).Holds(RecordOf(finding, {})) ? '1' : '0';
      }
      return text;
    };
    for (const auto& [only, left] :
         Rows<std::vector<std::string>, std::string>{{std::vector<std::string>(), "1111"},
                                                     {{"file"}, "1110"},
                                                     {{"file,key"}, "1111"},
                                                     {{"evil"}, "1101"},
                                                     {{"file,EVIL"}, "1100"},
                                                     {{"C:\\A"}, "1000"},
                                                     {{"C:\\a\\"}, "1000"},
                                                     {{"C:\\x,y"}, "0010"},
                                                     {{"file", "Other", "C:\\x,y\\2"}, "0010"},
                                                     {{"file,Evil,C:\\ab"}, "0100"},
                                                     {{"HKEY_USERS\\K", "C:\\ab"}, "0101"},
                                                     {{"cookie"}, "0000"}}) {
      CAPTURE(only);
      CHECK(held(only) == left);
    }
  }
}

TEST_SUITE("console_scan") {
  TEST_CASE("a scan says what it finds, ends with its sums, and changes nothing") {
    ConsoleBench b;
    b.m.Folder("C:\\data");
    CHECK(b.Run({"scan", "--format=json", "C:\\data"}) == kNothingFound);
    b.Plant("C:\\data\\evil.exe");
    b.m.files.journal.clear();
    CHECK(b.Run({"scan", "--format=json", "C:\\data"}) == kFound);
    const std::vector<JsonValue> lines = JsonLines(b.console.out);
    REQUIRE(lines.size() == 2);
    CHECK(lines[0].Text("path") == "C:\\data\\evil.exe");
    CHECK(lines[1].Find("summary")->flag);
    CHECK(lines[1].Find("counts")->Text("file") == "1");
    CHECK(lines[1].Text("version") == "1.2.3");
    CHECK(lines[1].Find("finished")->flag);
    CHECK(lines[1].Find("unread")->items.empty());
    CHECK(b.console.err.empty());
    for (const char* change : {"Erase", "Replace", "Append", "Move", "Create", "Write"}) {
      CHECK(b.m.files.Count(change) == 0);
    }
    CHECK(b.Run({"scan", "C:\\data"}) == kFound);
    CHECK(b.console.out.find("\x1b") == std::string::npos);  // colours are for a terminal
    b.console.shown = true;
    CHECK(b.Run({"scan", "C:\\data"}) == kFound);
    CHECK(b.console.out.find("\x1b[33m") != std::string::npos);
  }

  TEST_CASE("what could not be looked at is told, and makes the scan incomplete") {
    ConsoleBench b;
    b.Plant("C:\\data\\evil.exe");
    b.m.Folder("C:\\data\\closed").Denied();
    CHECK(b.Run({"scan", "--format=json", "C:\\data", "D:\\gone"}) == kIncomplete);
    const JsonValue summary = JsonLines(b.console.out).back();
    const auto& unread = summary.Find("unread")->items;
    REQUIRE(unread.size() == 2);
    CHECK(unread[0].Text("place") == "C:\\data\\closed");
    CHECK(unread[1].Text("place") == "D:\\gone");
    CHECK(unread[0].Text("reason") == DescribeError(kPermissionDenied));
  }

  TEST_CASE("the sections and settings of the command line count, not the stored ones") {
    ConsoleBench b;
    b.Plant("C:\\data\\evil.exe");
    b.m.processes.running = {{"C:\\run.exe", 7, 32}};
    b.definitions.Entry("MEMA", {"MEMAT", "MEMAF"}, {"Mem", "run.exe"});
    b.Plant("C:\\other.exe");
    for (const auto& [words, found] :
         Rows<std::vector<std::string>, std::string>{{{"--memory"}, "process "},
                                                     {{"--files"}, "file file "},
                                                     {{"--no-memory"}, "file file "},
                                                     {{"--no-files"}, "process "},
                                                     {{"--files", "--no-spyware"}, ""}}) {
      CAPTURE(words);
      std::vector<std::string> all = {"scan", "--format=json"};
      all.insert(all.end(), words.begin(), words.end());
      b.Run(all);
      std::string kinds;
      for (const JsonValue& line : JsonLines(b.console.out)) {
        if (!line.Text("kind").empty()) kinds += std::string(line.Text("kind")) + " ";
      }
      CHECK(kinds == found);
      CHECK(b.m.system.journal.empty());  // what runs goes on running
    }
    CHECK(b.Run({"remove", "--memory", "--yes"}) == kAllRemoved);
    CHECK(b.m.system.journal == std::vector<std::string>{"Terminate 7"});
  }

  TEST_CASE("wherever it is stopped, a scan says so; a reader that leaves makes it incomplete") {
    std::set<int> codes;
    for (std::size_t at = 1; at < 400; at += 7) {
      ConsoleBench b;
      b.Plant("C:\\data\\evil.exe");
      b.console.interrupted_at = at;
      const int code = b.Run({"scan", "--format=json", "C:\\data"});
      codes.insert(code);
      const JsonValue summary = JsonLines(b.console.out).back();
      CHECK(summary.Find("summary")->flag);
      if (code != kStopped) CHECK(summary.Find("finished")->flag);
    }
    CHECK(codes.contains(kStopped));
    for (const std::size_t bytes : {0, 10, 150}) {
      ConsoleBench b;
      b.Plant("C:\\data\\evil.exe");
      b.console.closes_at = bytes;
      CHECK(b.Run({"scan", "--format=json", "C:\\data"}) == kIncomplete);
    }
  }

  TEST_CASE("nothing is removed unless somebody says so") {
    for (const auto& [shown, answer, words, code, left] :
         Rows<bool, std::string, std::vector<std::string>, int, bool>{
             {false, "", {"remove", "C:\\data"}, kUsage, true},
             {false, "", {"scan", "--remove", "C:\\data"}, kUsage, true},
             {true, "n", {"remove", "C:\\data"}, kFound, true},
             {true, "", {"remove", "C:\\data"}, kFound, true},
             {true, "y", {"remove", "C:\\data"}, kAllRemoved, false},
             {false, "", {"remove", "--yes", "C:\\data"}, kAllRemoved, false},
             {false, "", {"remove", "--yes", "--only=key", "C:\\data"}, kFound, true}}) {
      CAPTURE(words);
      CAPTURE(answer);
      ConsoleBench b;
      b.Plant("C:\\data\\evil.exe");
      b.console.shown = shown;
      if (!answer.empty()) b.console.answers = {answer};
      CHECK(b.Run(words) == code);
      CHECK(b.m.Has("C:\\data\\evil.exe") == left);
    }
  }

  TEST_CASE("what a removal could not do is no place that was not read") {
    for (const bool json : {false, true}) {
      ConsoleBench b;
      b.Plant("C:\\data\\evil.exe");
      b.m.files.Find("C:\\data\\evil.exe")->error = kPermissionDenied;
      std::vector<std::string> words = {"remove", "--yes", "C:\\data"};
      if (json) words.push_back("--format=json");
      CHECK(b.Run(words) == kIncomplete);
      CHECK(b.console.err.find("not read") == std::string::npos);
      if (!json) {
        CHECK(b.console.err.find("failed: C:\\data\\evil.exe: ") != std::string::npos);
        continue;
      }
      const JsonValue summary = JsonLines(b.console.out).back();
      CHECK(summary.Find("unread")->items.empty());
      REQUIRE(!summary.Find("failed")->items.empty());
      CHECK(summary.Find("failed")->items.back().Text("place") == "C:\\data\\evil.exe");
    }
  }

  TEST_CASE("what is removed lies in a backup, and comes back from it") {
    ConsoleBench b;
    b.Plant("C:\\data\\evil.exe");
    b.m.File("C:\\data\\evil.exe", "content");
    b.Plant("C:\\data\\stays.exe");
    CHECK(b.Run({"remove", "--yes", "--backup=Mine", "--format=json", "--only=C:\\data\\evil.exe",
                 "C:\\data"}) == kFound);
    CHECK(b.console.err == "scourwell: backup: Mine\n");
    CHECK(b.console.out.find("\"state\": \"removed\"") != std::string::npos);
    CHECK_FALSE(b.m.Has("C:\\data\\evil.exe"));
    CHECK(b.m.Has("C:\\data\\stays.exe"));
    CHECK(b.Run({"backups"}) == kNothingFound);
    CHECK(b.console.out.starts_with("Mine.qzp\t"));
    CHECK(b.Run({"backups", "Mine"}) == kNothingFound);
    CHECK(b.console.out == "file\tEvil\tC:\\data\\evil.exe\tmissing\n");
    CHECK(b.Run({"restore", "Mine"}) == kIncomplete);  // nobody to be asked
    CHECK_FALSE(b.m.Has("C:\\data\\evil.exe"));
    CHECK(b.Run({"restore", "--yes", "Mine"}) == kNothingFound);
    CHECK(b.m.Content("C:\\data\\evil.exe") == "content");
    CHECK(b.Run({"restore", "--yes", "Other"}) == kIncomplete);
    CHECK(b.Run({"backups", "--delete", "--yes", "Mine"}) == kNothingFound);
    CHECK(b.Run({"backups"}) == kNothingFound);
    CHECK(b.console.out.empty());
  }

  TEST_CASE("what could not be stored stays, whatever stands above it unticked") {
    ConsoleBench b;
    for (const char* name : {"a", "b", "c", "d"})
      b.Plant(std::string("C:\\data\\") + name + ".exe");
    b.m.files.faults["OpenReader C:\\data\\c.exe"] = kPermissionDenied;
    CHECK(b.Run({"remove", "--yes", "--only=C:\\data\\c.exe", "--only=C:\\data\\d.exe",
                 "C:\\data"}) == kIncomplete);
    for (const char* left : {"a", "b", "c"}) {
      CHECK(b.m.Has(std::string("C:\\data\\") + left + ".exe"));
    }
    CHECK_FALSE(b.m.Has("C:\\data\\d.exe"));
  }

  TEST_CASE("a backup's items say whether they are back, and the definitions whose they are") {
    ConsoleBench b;
    for (const char* name : {"a", "b", "c"}) {
      b.Plant(std::string("C:\\data\\") + name + ".exe");
      b.m.File(std::string("C:\\data\\") + name + ".exe", "content");
    }
    CHECK(b.Run({"remove", "--yes", "--backup=Mine", "C:\\data"}) == kAllRemoved);
    b.m.File("C:\\data\\a.exe", "content");
    b.m.File("C:\\data\\b.exe", "another");
    CHECK(b.Run({"backups", "Mine"}) == kNothingFound);
    CHECK(b.console.out ==
          "file\tEvil\tC:\\data\\a.exe\tsame\nfile\tEvil\tC:\\data\\b.exe\tdifferent\n"
          "file\tEvil\tC:\\data\\c.exe\tmissing\n");
    CHECK(b.Run({"definitions"}) == kNothingFound);
    CHECK(b.console.out.find("file\tC:\\App\\Ini\\update.ref\n") != std::string::npos);
    b.m.files.Remove("C:\\App\\Ini\\update.ref");
    CHECK(b.Run({"definitions"}) == kNothingFound);
    CHECK(b.console.out.find("file\tnone: compiled in only\n") != std::string::npos);
  }

  TEST_CASE("a page of a scan is written, and one that cannot be is told") {
    ConsoleBench b;
    b.Plant("C:\\data\\evil.exe");
    CHECK(b.Run({"scan", "--report=C:\\page.html", "C:\\data"}) == kFound);
    CHECK(b.m.Content("C:\\page.html").find("evil.exe") != std::string::npos);
    b.m.File("C:\\closed.html", "x").Locked();
    CHECK(b.Run({"scan", "--report=C:\\closed.html", "C:\\data"}) == kIncomplete);
    CHECK(b.console.err.find("C:\\closed.html: ") != std::string::npos);
  }

  TEST_CASE("the ignore list is shown and changed in the words of a scan") {
    ConsoleBench b;
    b.Plant("C:\\data\\evil.exe");
    const std::vector<std::string> what = {"file", "Evil", "C:\\data\\evil.exe"};
    const auto change = [&](const char* how) {
      std::vector<std::string> words = {"ignore", how};
      words.insert(words.end(), what.begin(), what.end());
      return b.Run(words);
    };
    CHECK(change("--remove") == kIncomplete);
    CHECK(change("--add") == kNothingFound);
    CHECK(change("--add") == kNothingFound);
    CHECK(b.Run({"ignore"}) == kNothingFound);
    CHECK(b.console.out == "file\tEvil\tC:\\data\\evil.exe\n");
    CHECK(b.Run({"scan", "C:\\data"}) == kNothingFound);
    CHECK(change("--remove") == kNothingFound);
    CHECK(b.Run({"scan", "C:\\data"}) == kFound);
  }

  TEST_CASE("startup entries are listed, disabled and enabled again") {
    ConsoleBench b;
    const std::string run = "Software\\Microsoft\\Windows\\CurrentVersion\\Run";
    b.m.registry.Make(RootKey::CurrentUser, run).Value("Evil", "C:\\evil.exe");
    CHECK(b.Run({"startup"}) == kNothingFound);
    CHECK(b.console.out.find("enabled\tEvil\t") == 0);
    CHECK(b.Run({"startup", "--disable", "Nobody"}) == kIncomplete);
    CHECK(b.Run({"startup", "--disable", "evil"}) == kNothingFound);
    CHECK(b.m.registry.Text(RootKey::CurrentUser, run, "Evil") == "(none)");
    CHECK(b.Run({"startup"}) == kNothingFound);
    CHECK(b.console.out.find("disabled\tEvil\t") == 0);
    CHECK(b.Run({"startup", "--enable", "Evil"}) == kNothingFound);
    CHECK(b.m.registry.Text(RootKey::CurrentUser, run, "Evil") == "C:\\evil.exe");
    b.m.registry.Find(RootKey::CurrentUser, run)->Denied();
    CHECK(b.Run({"startup", "--disable", "Evil"}) == kIncomplete);
    CHECK(b.console.err.find("Evil") != std::string::npos);
  }
}

TEST_SUITE("console_merge") {
  TEST_CASE("many scans become one page; what is broken or cut off is told") {
    ConsoleBench b;
    b.Plant("C:\\data\\evil.exe");
    b.m.File("C:\\data\\<script>evil.exe");
    b.Run({"scan", "--format=json", "C:\\data"});
    const std::string whole = b.console.out;
    b.m.File("C:\\in\\1.jsonl", whole);
    b.m.File("C:\\in\\2.jsonl", whole + "\r\n");
    CHECK(b.Run({"report", "--merge", "C:\\in\\1.jsonl", "C:\\in\\2.jsonl", "--html",
                 "C:\\in\\all.html"}) == kFound);
    CHECK(b.console.err.empty());
    const std::string page = b.m.Content("C:\\in\\all.html");
    CHECK(page.find("<td>Evil</td><td>2</td><td><svg") != std::string::npos);
    CHECK(page.find("<td>C:\\in\\1.jsonl</td><td>1</td>") != std::string::npos);
    CHECK(page.ends_with("</html>\r\n"));
    // A name that is given twice is one scan, and what came of it stands there in the window's
    // words.
    b.m.File("C:\\in\\3.jsonl",
             "{\"kind\": \"file\", \"spy\": \"Evil\", \"path\": \"C:\\\\x\", \"state\": "
             "\"at-restart\"}\n"
             "{\"summary\": true}\n");
    CHECK(b.Run({"report", "--merge", "C:\\in\\3.jsonl", "C:\\in\\3.jsonl", "--html",
                 "C:\\in\\all.html"}) == kFound);
    const std::string one = b.m.Content("C:\\in\\all.html");
    CHECK(one.find("<td>Evil</td><td>1</td><td><svg") != std::string::npos);
    CHECK(one.find("at-restart") == std::string::npos);
    CHECK(one.find(">pending restart</td>") != std::string::npos);
    for (const std::string& broken :
         {std::string(), whole.substr(0, whole.size() / 3), std::string("no json\n"),
          whole.substr(0, whole.find('\n') + 1),
          ReplaceAll(whole, "\"finished\": true", "\"finished\": false"),
          std::string("{\"kind\": \"file\", \"spy\": \"<script>\"}\n"),
          std::string(5u << 20, 'x')}) {
      CAPTURE(broken.substr(0, 80));
      b.m.File("C:\\in\\2.jsonl", broken);
      CHECK(b.Run({"report", "--merge", "C:\\in\\1.jsonl", "C:\\in\\2.jsonl", "--html",
                   "C:\\in\\all.html"}) == kIncomplete);
      CHECK(b.console.err.find("scourwell: C:\\in\\2.jsonl: ") == 0);
      CHECK(b.m.Content("C:\\in\\all.html").find("<script") == std::string::npos);
      CHECK(b.m.Content("C:\\in\\all.html").find("<td>C:\\in\\1.jsonl</td><td>1</td>") !=
            std::string::npos);
    }
    CHECK(b.Run({"report", "--merge", "C:\\in\\1.jsonl", "--html", "C:\\In\\1.JSONL"}) ==
          kIncomplete);
    CHECK(b.m.Content("C:\\in\\1.jsonl") == whole);
    CHECK(b.Run({"report", "--merge", "C:\\in\\none.jsonl", "--html", "C:\\in\\all.html"}) ==
          kIncomplete);
  }
}

}  // namespace scourwell::test
