// SPDX-License-Identifier: MIT
#include "console/exit_codes.h"
#include "console/options.h"
#include "console/records.h"
#include "console/selection.h"
#include "tests/console_support.h"

namespace scourwell::test {
namespace {

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
    CHECK(b.Run({"--version"}) == kNothingFound);
    CHECK(b.console.out == "scourwell 1.2.3\n");
    b.console.closes_at = 0;
    CHECK(b.Run({"--version"}) == kIncomplete);
    b.console.closes_at = std::string::npos;
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
    Finding found{"Evil", FoundValue{run, "x", "data", true}};
    found.user = "Ann";
    const FindingRecord value = RecordOf(found, {});
    CHECK(ReplaceAll(CsvLine(value), "\"", "") ==
          "value,Evil,,HKEY_LOCAL_MACHINE\\Software\\Run,x,64,medium,file,Ann,\r\n");
    CHECK(PlaceOf(RecordOf({"Evil", FoundFolder{"C:\\f"}}, {})) == "C:\\f");
    CHECK(PlaceOf(RecordOf({"Evil", FoundCookie{"C:\\c"}}, {})) == "C:\\c");
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
    for (const char* formula : {"+1", "-1", "@SUM(1)", "\t=1"}) {
      CHECK(CsvLine(RecordOf({formula, FoundFile{"C:\\a"}}, {})).find("\"'") != std::string::npos);
    }
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

}  // namespace scourwell::test
