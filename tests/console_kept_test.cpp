// SPDX-License-Identifier: MIT
#include "console/exit_codes.h"
#include "engine/caption_table.h"
#include "tests/console_support.h"

namespace scourwell::test {

TEST_SUITE("console_kept") {
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
    CHECK(b.Run({"backups", "None", "Mine"}) == kIncomplete);
    CHECK(b.Run({"definitions"}) == kNothingFound);
    CHECK(b.console.out.starts_with("number\t"));
    CHECK(b.console.out.find("file\tC:\\App\\Ini\\update.ref\n") != std::string::npos);
    b.m.files.Remove("C:\\App\\Ini\\update.ref");
    CHECK(b.Run({"definitions"}) == kNothingFound);
    CHECK(b.console.out.find("file\tnone: compiled in only\n") != std::string::npos);
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
    CHECK(b.Run({"ignore", "--add", "folder", what[1], what[2]}) == kNothingFound);
    CHECK(change("--remove") == kIncomplete);  // another kind is another record
    CHECK(b.Run({"ignore", "--remove", "folder", what[1], what[2]}) == kNothingFound);
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

  TEST_CASE("a user who is asked decides") {
    for (const auto& [answer, code] : Rows<std::string, int>{
             {"y", kNothingFound}, {"yes", kNothingFound}, {"n", kIncomplete}, {"", kIncomplete}}) {
      CAPTURE(answer);
      ConsoleBench b;
      b.Plant("C:\\data\\evil.exe");
      REQUIRE(b.Run({"remove", "--yes", "--backup=Mine", "C:\\data"}) == kAllRemoved);
      b.console.shown = true;
      b.console.answers = {answer, answer};
      CHECK(b.Run({"restore", "Mine"}) == code);
      CHECK(b.m.Has("C:\\data\\evil.exe") == (code == kNothingFound));
      CHECK(b.Run({"backups", "--delete", "Mine"}) == code);
      CHECK(b.m.Has("C:\\App\\Mine.qzp") == (code != kNothingFound));
    }
  }

  TEST_CASE("what cannot be opened, changed or read is told, and stays as it is") {
    ConsoleBench b;
    b.Plant("C:\\data\\evil.exe");
    REQUIRE(b.Run({"remove", "--yes", "--backup=Mine", "C:\\data"}) == kAllRemoved);
    b.m.Folder("C:\\data").Refuses();
    CHECK(b.Run({"restore", "--yes", "Mine"}) == kIncomplete);
    CHECK(b.console.err.find("C:\\data\\evil.exe") != std::string::npos);
    b.m.Folder("C:\\data").refuses = false;
    b.why_no_removal = "read only";
    CHECK(b.Run({"restore", "--yes", "Mine"}) == kIncomplete);
    CHECK_FALSE(b.m.Has("C:\\data\\evil.exe"));
    b.Plant("C:\\data\\evil.exe");
    CHECK(b.Run({"remove", "--yes", "C:\\data"}) == kIncomplete);
    CHECK(b.console.err.find("read only") != std::string::npos);
    CHECK(b.m.Has("C:\\data\\evil.exe"));
    const std::string list = "\"Spy File\",\"C:\\x\",\"\"\r\n";
    b.m.File("C:\\App\\ignorespylist.txt", list).Locked();
    CHECK(b.Run({"ignore"}) == kIncomplete);
    CHECK(b.Run({"ignore", "--add", "file", "Evil", "C:\\y"}) == kIncomplete);
    CHECK(b.m.Content("C:\\App\\ignorespylist.txt") == list);
    b.why_no_target = "no disk";
    for (const char* command : {"scan", "backups"}) {
      CHECK(b.Run({command}) == kIncomplete);
      CHECK(b.console.err.find("no disk") != std::string::npos);
    }
    CHECK(b.Run({"report", "--merge", "C:\\1", "--html", "C:\\2"}) == kIncomplete);
  }
}

TEST_SUITE("console_merge") {
  TEST_CASE("a row of a page says where, how sure and whose; places that were not read count") {
    ConsoleBench b;
    b.m.File(
        "C:\\in\\1.jsonl",
        "{\"kind\": \"value\", \"spy\": \"Evil\", \"key\": \"HKEY_USERS\\\\K\", \"value\": \"x\", "
        "\"view\": \"64\", \"certainty\": \"high\", \"user\": \"Ann\"}\n"
        "{\"kind\": \"file\", \"spy\": \"Evil\", \"path\": \"C:\\\\evil.exe\"}\n"
        "{\"summary\": true, \"unread\": [{\"place\": \"C:\\\\closed\"}]}\n");
    const std::vector<std::string> words = {"report", "--merge", "C:\\in\\1.jsonl", "--html",
                                            "C:\\in\\all.html"};
    CHECK(b.Run(words) == kIncomplete);
    CHECK(b.console.err.find("C:\\in\\1.jsonl") != std::string::npos);
    const std::string page = b.m.Content("C:\\in\\all.html");
    CHECK(page.find(">HKEY_USERS\\K\\x (64-bit) [Ann]</td><td class=\"word\">" +
                    std::string(DefaultCaption(Caption::CertaintyHigh)) + "</td>") !=
          std::string::npos);
    CHECK(page.find(">C:\\evil.exe</td>") != std::string::npos);
    b.m.File("C:\\in\\1.jsonl", "{\"summary\": true}\n");
    CHECK(b.Run(words) == kNothingFound);
    b.m.files.Find("C:\\in\\all.html")->Locked();
    CHECK(b.Run(words) == kIncomplete);
  }

  TEST_CASE("many scans become one page; what is broken or cut off is told") {
    ConsoleBench b;
    b.Plant("C:\\data\\evil.exe");
    b.m.File("C:\\data\\<script>evil.exe");
    b.Run({"scan", "--format=json", "C:\\data"});
    const std::string whole = b.console.out;
    b.m.File("C:\\in\\1.jsonl", whole.substr(0, whole.size() - 1));  // no end of its last line
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
    CHECK(b.m.Content("C:\\in\\1.jsonl") + "\n" == whole);
    CHECK(b.Run({"report", "--merge", "C:\\in\\none.jsonl", "--html", "C:\\in\\all.html"}) ==
          kIncomplete);
  }
}

}  // namespace scourwell::test
