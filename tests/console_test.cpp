// SPDX-License-Identifier: MIT
#include "console/exit_codes.h"
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

}  // namespace

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

  TEST_CASE("a table has one head, and a text tells the sums") {
    ConsoleBench b;
    b.m.Folder("C:\\data");
    CHECK(b.Run({"scan", "--format=csv", "C:\\data"}) == kNothingFound);
    const std::string head = b.console.out;
    CHECK(std::ranges::count(head, '\n') == 1);
    for (const char* name : {"a", "b"}) b.Plant(std::string("C:\\data\\") + name + ".exe");
    CHECK(b.Run({"scan", "--format=csv", "C:\\data"}) == kFound);
    CHECK(b.console.out.starts_with(head + "\"file\","));
    CHECK(std::ranges::count(b.console.out, '\n') == 3);
    CHECK(b.Run({"scan", "C:\\data"}) == kFound);
    CHECK(b.console.out.find("2 found (file 2)") != std::string::npos);
    // Who is asked sees what would go, and nothing else.
    b.console.shown = true;
    b.console.answers = {"n"};
    CHECK(b.Run({"remove", "--quiet", "--only=C:\\data\\b.exe", "C:\\data"}) == kFound);
    CHECK(b.console.err.find("C:\\data\\b.exe") != std::string::npos);
    CHECK(b.console.err.find("a.exe") == std::string::npos);
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
    b.m.Folder("C:\\data\\closed").error = kNoError;
    b.m.File("C:\\App\\Ini\\update.ref", "x").Denied();
    CHECK(b.Run({"scan", "C:\\data"}) == kIncomplete);
    CHECK(b.console.err.find("update.ref") != std::string::npos);
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

  TEST_CASE("a page of a scan is written, and one that cannot be is told") {
    ConsoleBench b;
    b.Plant("C:\\data\\evil.exe");
    CHECK(b.Run({"scan", "--report=C:\\page.html", "C:\\data"}) == kFound);
    CHECK(b.m.Content("C:\\page.html").find("evil.exe") != std::string::npos);
    b.m.File("C:\\closed.html", "x").Locked();
    CHECK(b.Run({"scan", "--report=C:\\closed.html", "C:\\data"}) == kIncomplete);
    CHECK(b.console.err.find("C:\\closed.html: ") != std::string::npos);
  }
}

}  // namespace scourwell::test
