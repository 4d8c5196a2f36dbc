// SPDX-License-Identifier: MIT

// refc match and diff.

#include "refc/diff.h"

#include "refc/match.h"
#include "tests/refc_support.h"

namespace scourwell::test {
namespace {

constexpr char kSource[] =
    "[spyware]\n"
    "A\tfile\tevil*.exe\ts\n"
    "B\tfile\tEvil\\bar.dll\ts\n"
    "C\tfolder\tBadBar\ts\n"
    "D\tfile\t%SYS%\\bad.dll\ts\n"
    "E\tfolder\t%PF%\\Bad Folder\ts\n"
    "F\tprocess\tbadproc.exe\ts\n"
    "G\tkey\tHKEY_LOCAL_MACHINE\\Software\\Bad\ts\n"
    "H\tkey part\t{00000001-0000-0000-0000-00000000000A}\ts\n"
    "I\tvalue\tHKEY_CURRENT_USER\\Run\\\\Bad Name\ts\n"
    "J\tcookie\t@badsite[\ts\n"
    "K\tcompany\tBad, Inc.\ts\n"
    "L\tcompany part\tBadness\ts\n"
    "M\tchecksum\t1234 56\ts\n"
    "N\tprogram part\tBad Bar\ts\n"
    "O\toriginal name\tbad.exe\ts\n";

struct Question {
  const char* spy;
  std::vector<const char*> hits;
  std::vector<const char*> others;  // that no row hits
};

const Question kQuestions[] = {
    {"A", {"EVILtwin.EXE", "C:\\x\\evil.exe"}, {"C:\\evil.exe\\readme.txt", "devil.exe"}},
    {"B", {"C:\\evil\\BAR.DLL", "Evil\\bar.dll"}, {"C:\\devil\\bar.dll", "bar.dll"}},
    {"C", {"C:\\x\\badbar", "C:\\badbar\\lib\\x.dll"}, {"C:\\badbar2\\x.dll"}},
    {"D",
     {"C:\\WINNT\\System32\\BAD.DLL", "C:\\Windows\\System\\bad.dll"},
     {"C:\\Windows\\bad.dll"}},
    {"E", {"D:\\Program Files\\Bad Folder\\a\\b.txt"}, {"D:\\Program Files\\x\\Bad Folder"}},
    {"F", {"badproc.exe", "C:\\x\\BADPROC.exe"}, {"file:badproc.exe"}},
    {"G", {"HKEY_LOCAL_MACHINE\\SOFTWARE\\bad"}, {"HKEY_LOCAL_MACHINE\\Software\\Bad\\Sub"}},
    {"H", {"HKEY_CLASSES_ROOT\\CLSID\\{00000001-0000-0000-0000-00000000000a}\\InProcServer32"}, {}},
    {"I",
     {"HKEY_CURRENT_USER\\run\\\\bad name", "HKEY_CURRENT_USER\\Run\\Bad Name"},
     {"HKEY_CURRENT_USER\\Run\\\\Bad"}},
    {"J",
     {"me@badsite[1].txt", "C:\\Cookies\\me@BADSITE[2].txt", "cookie:@badsite["},
     {"me@badsite[1].dat"}},
    {"K", {"company: bad, inc."}, {"company:Bad, Inc. and others"}},
    {"L", {"company part:The Badness Group"}, {}},
    {"M", {"checksum:1234 56"}, {}},
    {"N", {"The BAD BAR 2.0"}, {"", "\\"}},
    {"O", {"original name:BAD.exe"}, {"BAD.exe"}},
};

}  // namespace

TEST_SUITE("refc_compare") {
  TEST_CASE("match says which rows would hit") {
    Tool tool;
    tool.disk.files["a.tsv"] = kSource;
    // The spies of all rows that hit.
    const auto found = [&](const char* item) {
      CAPTURE(item);
      const int code = tool.Run({"match", "a.tsv", "--", item});
      CHECK(code == (tool.out.empty() ? 0 : 1));
      std::string spies;
      for (std::size_t at = 0; at < tool.out.size(); at = tool.out.find('\n', at) + 1) {
        const std::size_t kind = tool.out.find('\t', at) + 1;
        spies += tool.out[tool.out.find('\t', kind) + 1];
      }
      return spies;
    };
    for (const Question& question : kQuestions) {
      for (const char* item : question.hits) CHECK(found(item) == question.spy);
      for (const char* item : question.others) CHECK(found(item) == "");
    }
    // A row that no scan can look for hits nothing.
    tool.disk.files["u.tsv"] = "[spyware]\nU\tfile\tevil*\\run.exe\tknown\n";
    CHECK(tool.Run({"match", "u.tsv", "C:\\evil*\\run.exe", "C:\\evilbar\\run.exe"}) == 0);
    tool.Run({"match", "a.tsv", "x", "HKEY_CURRENT_USER\\Run\\\\Bad Name"});
    CHECK(tool.out ==
          "HKEY_CURRENT_USER\\Run\\\\Bad Name\tvalue\tI\tHKEY_CURRENT_USER\\Run\\\\Bad Name\t"
          "a.tsv:10\n");
  }

  TEST_CASE("diff says what was added, removed and changed") {
    Tool tool;
    tool.disk.files["old.tsv"] =
        "[spyware]\nGone\tfile\tgone.exe\ts\nKept\tfile\tkept.exe\ts\nKept\tfile\tlost.exe\ts\n"
        "Kept\tfile\tpassed.exe\ts\nHeir\tfile\tother.exe\ts\n"
        "Old\tfolder\tmoved\ts\nKept\tprogram\tListed\ts\n[release]\nnumber\t7\n";
    tool.disk.files["new.tsv"] =
        "[spyware]\nKept\tfile\tKEPT.exe\ts\nNew\tfile\tnew.exe\ts\nNew\tprocess\tnew.exe\ts\n"
        "Heir\tfile\tpassed.exe\ts\nHeir\tfile\tother.exe\ts\n"
        "Kept\tfolder\tMoved\ts\nOther\tprogram\tListed\ts\n[release]\nnumber\t8\n";
    CHECK(tool.Run({"diff", "old.tsv", "new.tsv", "--changes", "release.tsv"}) == 1);
    CHECK(tool.out ==
          "-\tfile\tGone\tgone.exe\n-\tfile\tKept\tlost.exe\n+\tfile\tNew\tnew.exe\n"
          "~\tfile\tHeir\tpassed.exe\twas Kept\n"
          "~\tfolder\tKept\tMoved\twas Old\n+\tprocess\tNew\tnew.exe\n");
    CHECK(tool.disk.files["release.tsv"] ==
          "# The release: its number, and what the user is told of it.\nnumber\t8\n"
          "updated\tHeir (1), Kept (2)\nadded\tNew (2)\nremoved\tGone (1), Old (1)\n");
    CHECK(tool.Run({"build", "release.tsv", "-o", "r.ref"}) == 0);
    // The same rows, built: nothing to say, and no texts but the number.
    tool.Build("new.tsv", tool.disk.files["new.tsv"]);
    CHECK(tool.Run({"diff", "new.tsv", "made.ref", "--changes", "release.tsv", "--number", "9"}) ==
          0);
    CHECK(tool.out == "");
    CHECK(tool.disk.files["release.tsv"].ends_with("it.\nnumber\t9\n"));
  }

  TEST_CASE("a text of changes ends where the program stops reading") {
    Tool tool;
    tool.disk.files["old.tsv"] = "[spyware]\nKept\tfile\tkept.exe\ts\n";
    tool.disk.files["new.tsv"] = tool.disk.files["old.tsv"];
    for (int i = 0; i < 500; ++i) {
      const std::string number = std::to_string(1000 + i);
      tool.disk.files["new.tsv"] += "Spy" + number + "\tfile\tf" + number + ".exe\ts\n";
    }
    CHECK(tool.Run({"diff", "old.tsv", "new.tsv", "--changes", "release.tsv"}) == 1);
    const std::string text = tool.disk.files["release.tsv"];
    const std::size_t begin = text.find("added\t") + 6;
    const std::string added = text.substr(begin, text.find('\n', begin) - begin);
    CHECK(added.size() <= 1999);
    CHECK(added.size() > 1900);
    CHECK(added.ends_with(") and 348 more"));
    CHECK(tool.Run({"build", "release.tsv", "-o", "r.ref"}) == 0);
  }
}

}  // namespace scourwell::test
