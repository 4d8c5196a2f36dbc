// SPDX-License-Identifier: MIT

// refc lint: every rule fires on its bad example, stays silent beside it, and on what we ship.

#include "refc/lint.h"

#include <set>
#include <sstream>

#include "tests/refc_support.h"

namespace scourwell::test {
namespace {

struct Judged {
  const char* rule;  // empty: nothing to say
  // Each of the family spyware: "kind\twhat", or with a "[section]" a text of its own.
  std::vector<const char*> rows;
};

const Judged kRows[] = {
    // Files and folders anywhere.
    {"",
     {"file\tevilbar.exe", "file\tEvilbar\\Uninstall.exe", "file\texplorer.exe.bad",
      "file\tevilbar*.exe", "folder\tevilbar*", "file\tevilbar 100%.exe"}},
    {"known-good",
     {"file\texplorer.exe", "folder\tWinZip", "file\tSystem32\\explorer.exe",
      "file\t1.bin\\explorer.exe", "file\texplor*.exe", "file\t??plorer.exe"}},
    {"form",
     {"file\t\\evilbar.exe", "file\tevil/bar.exe", "file\tevil:bar.exe", "file\tCOM1.exe",
      "file\t..\\evilbar.exe", "file\tevil*\\bar.exe"}},
    {"broad", {"file\t*.exe", "file\tsetup*.exe", "file\tab*cd*ef*.dll", "file\ttools1234*.dll"}},
    // At one place.
    {"",
     {"file\t%SYS%\\evilbar.dll", "file\t%WIN%\\IEACCESS.DLL",
      "file\t%Common_StartMenu%\\Evilbar.lnk", "file\t%PF%\\Evilbar\\readme.txt"}},
    {"known-good",
     {"file\t%SYS%\\kernel32.dll", "file\t%PF%\\WinZip\\explorer.exe",
      "folder\t%PF%\\Internet Explorer", "folder\t%PF%\\Common Files"}},
    {"token",
     {"file\t%Windows%\\evilbar.exe", "file\t%win%\\evilbar.exe", "file\t%WIN2%\\evilbar.exe",
      "file\t%common_startmenu%\\evilbar.exe", "file\t%PF%\\%SYS%\\evilbar.exe",
      "file\tC:\\%PF%\\evilbar.exe", "file\t%PF%evilbar.exe",
      "[SAFI]\n0SAFITD=Spy\n0SAFISD=C:\\evilbar.exe\n",
      "[SAFI]\n0SAFIT=Spy\n0SAFIS=%PF%\\evilbar.exe\n"}},
    {"form", {"file\t%PF%\\evilbar*.exe", "folder\t%PF%\\", "folder\t%PF%\\..\\evilbar"}},
    // Processes.
    {"", {"process\tevilbar.exe"}},
    {"known-good", {"process\tsvchost.exe", "process\tOUTLOOK.EXE"}},
    {"form", {"process\tevil*.exe", "process\tevil\\bar.exe"}},
    // Registry.
    {"",
     {"key\tHKEY_LOCAL_MACHINE\\Software\\Evilbar",
      "key\tHKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\Run2",
      "key\tHKEY_CLASSES_ROOT\\CLSID\\{D27CDB6E-AE6D-11CF-96B8-444553540001}",
      "key part\t{D27CDB6E-AE6D-11CF-96B8-444553540001}",
      "key part\tDownloaded Program Files/evilbar.dll",
      "key part\tHKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Internet Explorer\\Extensions\\Evil\\x",
      "key part\tHKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\SharedDLLs\\"
      "C:\\evilbar.dll",
      "value\tHKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\Run\\\\Evilbar"}},
    {"broad",
     {"key\tHKEY_LOCAL_MACHINE\\Software", "key part\tEvilbar", "key part\t/a.dll",
      "key part\t{D27CDB6E-AE6D-11CF-96B8-44455354000}",
      "key part\t{D27CDB6E-AE6D-11CF-96B8-4445535400012}",
      "key part\t{G27CDB6E-AE6D-11CF-96B8-444553540001}"}},
    {"reach",
     {"key part\tHKEY_LOCAL_MACHINE\\Software\\Evilbar\\a\\b",
      "key part\tHKEY_LOCAL_MACHINE\\Software\\Classes\\CLSID\\Evilbar",
      "key part\tHKEY_LOCAL_MACHINE\\Software\\Microsoft\\Internet Explorer\\Toolbar\\Evilbar",
      "key part\tHKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Runner\\x"}},
    {"helper",
     {"key\tHKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\"
      "Browser Helper Objects\\{D27CDB6E-AE6D-11CF-96B8-444553540001}"}},
    {"",
     {"key\tHKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\"
      "Browser Helper Objects\\{d27cdb6e-AE6D-11CF-96B8-444553540001}\tsource\n"
      "Spy\tkey part\t{D27CDB6E-AE6D-11CF-96B8-444553540001}"}},
    {"known-good",
     {"key\tHKEY_LOCAL_MACHINE\\Software\\Microsoft",
      "key\tHKEY_LOCAL_MACHINE\\SOFTWARE\\microsoft\\windows\\currentversion\\RUN",
      "key\tHKEY_CURRENT_USER\\Software\\Netscape",
      "key\tHKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\WinZip",
      "key\tHKEY_CLASSES_ROOT\\exefile", "key\tHKEY_LOCAL_MACHINE\\Software\\Classes\\exefile",
      "key part\tHKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion",
      "value\tHKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\Run\\\\SystemTray",
      "value\tHKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\Run\\\\ctfmon"}},
    {"class-id",
     {"key\tHKEY_CLASSES_ROOT\\CLSID\\{D27CDB6E-AE6D-11CF-96B8-444553540000}",
      "key part\t{20d04fe0-3aea-1069-a2d8-08002b30309d}"}},
    {"form",
     {"key\tHKEY_LOCAL_MACHINE\\Software\\\\Evilbar", "key\tHKLM\\Software\\Evilbar",
      "value\tSoftware\\Run\\\\Evilbar",
      "[REGV]\n0REGVT=Spy\n0REGVK=HKEY_USERS\\a\n0REGVV=Evilbar\n",
      "[REGV]\n0REGVT=Spy\n0REGVK=HKEY_USERS\\\\a\\\n0REGVV=Evilbar\n"}},
    // Cookies.
    {"", {"cookie\tevilads", "cookie\tevi["}},
    {"broad", {"cookie\tevil", "cookie\tad-x[", "cookie\t[1].txt"}},
    {"form", {"cookie\tevil*ads"}},
    {"cookie", {"cookie\tyahoo", "cookie\t@google[", "cookie\tadministrator"}},
    // What programs say of themselves.
    {"",
     {"company\tEvilbar, Inc.", "company part\tEvilbar", "original name\tevilbar.dll",
      "product\tEvilbar 2", "checksum\t12345 67", "checksum\t1 255", "program\tEvilbar",
      "program part\tEvilbar"}},
    {"known-good",
     {"company\tMicrosoft Corporation", "company part\tmicrosoft", "original name\tiexplore.exe",
      "internal name\tiexplore", "product\tQuickTime", "description\tWinZip", "program\tWinZip",
      "program part\tInternet"}},
    {"broad", {"company\tab", "company part\tInc.", "program part\tbar"}},
    {"form", {"checksum\t12345 256", "checksum\t0 0", "checksum\tabc 12"}},
    // Between rows, and with what is compiled in.
    {"duplicate", {"file\tevilbar.exe\tsource\nSpy2\tfile\tEvilBar.exe"}},
    {"",
     {"file\tevilbar.exe\tsource\nSpy2\tfolder\tEvilBar.exe", "[REMO]\n0REMENT=radiate*.url\n",
      "[REMO]\n0REMENT=SPYLOG\n", "[REMO]\n0REMENT=comet.exe\n",
      "[DAFI]\n0DAFIT=Dialer.A\n0DAFIS=evilbar.exe\n",
      "[TAFI]\n0TAFIT=Worm.A\n0TAFIS=evilbar.exe\n"}},
    {"built-in",
     {"file\tradiate*.url", "file\tKaZaA\\topsearch.dll", "folder\t%TMP%\\fsg_tmp",
      "file\t%SYS%\\IEACCESS.DLL", "process\tcomet.exe", "cookie\tspylog",
      "value\tHKEY_LOCAL_"
      "MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\Run\\\\FlyswatDesktop"}},
    {"withdrawn", {"[REMO]\n0REMENT=evilbar.exe\n", "[REMO]\n0REMENT=%SYS%\\IEACCESS.DLL\n"}},
    {"category",
     {"[DAFI]\n0DAFIT=Trojan.A\n0DAFIS=evilbar.exe\n", "[DAFI]\n0DAFIT=Spy\n0DAFIS=evilbar.exe\n",
      "[SAFO]\n0SAFOT=Hijacker.A\n0SAFOS=evilbar\n"}},
};

std::set<std::string> RulesIn(const std::string& findings) {
  std::set<std::string> rules;
  std::istringstream lines(findings);
  for (std::string line; std::getline(lines, line);) {
    const std::size_t begin = line.find(": ") + 2;
    rules.insert(line.substr(begin, line.find(':', begin) - begin));
  }
  return rules;
}

std::string Source(std::string_view row) {
  if (row.starts_with('[')) return std::string(row);
  return "[spyware]\nSpy\t" + std::string(row) + "\tsource\n";
}

}  // namespace

TEST_SUITE("refc_lint") {
  TEST_CASE("each rule fires on its bad example and is silent beside it") {
    for (const Judged& judged : kRows) {
      for (const char* row : judged.rows) {
        CAPTURE(row);
        Tool tool;
        // As a source, and compiled.
        const std::string made = tool.Build("a.tsv", Source(row));
        REQUIRE(made != "");
        tool.disk.files["a.ref"] = made;
        const std::string rule = judged.rule;
        for (const char* file : {"a.tsv", "a.ref"}) {
          CHECK(tool.Run({"lint", file}) == (rule.empty() ? 0 : 1));
          CAPTURE(tool.err);
          CHECK(RulesIn(tool.err) == (rule.empty() ? std::set<std::string>() : std::set{rule}));
        }
      }
    }
  }

  TEST_CASE("a short file name needs a folder, or a source that names the place") {
    for (const auto& [row, rule] : Rows<const char*, const char*>{
             {"file\tevi.exe", "short"},
             {"file\tevi.exe\thttp://a.b/c\tthe page breaks lines", "short"},
             {"file\tevi.exe\thttp://a.b/\xC3\xA4\xC3\xB6\tthe page names %SYS%", ""},
             {"file\tevil.exe", ""},
             {"file\tEvilbar\\e.exe", ""},
             {"file\t%SYS%\\evi.exe", ""},
             {"folder\tevibar", ""}}) {
      CAPTURE(row);
      Tool tool;
      tool.disk.files["a.tsv"] = Source(row);
      tool.Run({"lint", "a.tsv"});
      CHECK(RulesIn(tool.err) ==
            (*rule == 0 ? std::set<std::string>() : std::set<std::string>{rule}));
    }
  }

  TEST_CASE("a spy belongs to one category that exists, a line is about a spy that exists") {
    const std::string rows =
        "[trojans]\nWorm.A\tfile\tevilworm.exe\ts\nTrojan.B\tfile\teviltrojan.exe\ts\n"
        "[spyware]\nEvilbar\tfolder\tevilbar\ts\n[categories]\nworm\tspreads\nadware\tnags\n";
    for (const auto& [lines, finding] : Rows<const char*, const char*>{
             {"Worm.*\tis\tworm\nTrojan.*\tis\tadware\nEvilbar\tis\tadware\n", ""},
             {"*\tis\tworm\nany cookie\tis\tworm\nxupiter\tis\tadware\n", ""},
             {"Worm.*\tis\tworm\nTrojan.*\tis\tworm\n", "\"Evilbar\" belongs to no category"},
             {"*\tis\tworm\nEvilbar\tis\tbad\n", "no category is called \"bad\""},
             {"*\tis\tworm\nEvil*\tis\tadware\n"
              "Evilba\tis\tworm\n",
              "no row is about \"Evilba\""},
             {"*\tis\tworm\nWorm.B*\tis\tworm\n", "no row is about \"Worm.B*\""},
             {"*\tis\tworm\nEvilbar\tis\tworm\nevilbar\tis\tadware\n",
              "\"evilbar\" was said before"},
             {"*\tis\tworm\nEvilbar\tis\tworm\nEvilbar\tbelongs to\tadware\n",
              "SPY is CATEGORY"}}) {
      CAPTURE(lines);
      Tool tool;
      tool.disk.files["a.tsv"] = rows + lines;
      CHECK(tool.Run({"lint", "a.tsv"}) == (*finding == 0 ? 0 : 1));
      CHECK(tool.err.find(finding) != std::string::npos);
      CHECK(tool.out == (*finding == 0 ? "3 rows, 0 findings\n" : "3 rows, 1 findings\n"));
    }
  }

  TEST_CASE("what the readers find, lint says, too") {
    Tool tool;
    tool.disk.files["a.tsv"] =
        "[spyware]\nSpy\tfile\tevilbar.exe\nSpy\tthing\tx\ts\nSpy\tfile\t\xD0\x96\ts\n"
        "Spy\tfile\t" +
        std::string(2000, 'x') +
        "\ts\n[SAFI]\n1SAFIT=a\n[None]\n"
        "[NTOT]\nSAFITNUM=7\n";
    CHECK(tool.Run({"lint", "a.tsv"}) == 1);
    CHECK(RulesIn(tool.err) == std::set<std::string>{"source", "form", "characters", "length",
                                                     "gap", "unread", "count"});
  }

  TEST_CASE("the shipped sources are silent, and at least 500 rows") {
    Tool tool;
    tool.disk.files = ShippedSources();
    if (tool.disk.files.empty()) return;
    const int code = tool.Run({"lint", "ref"});
    CHECK(tool.err == "");
    CHECK(code == 0);
    CHECK(std::stoi(tool.out) >= 500);
  }

  TEST_CASE("a flood of findings is cut") {
    Tool tool;
    std::string rows;
    for (int i = 0; i < 1500; ++i) rows += "Spy\tprocess\tsvchost.exe\ts\n";
    tool.disk.files["spyware.tsv"] = rows;
    CHECK(tool.Run({"lint", "spyware.tsv"}) == 1);
    CHECK(tool.out == "1500 rows, 2999 findings\n");
    CHECK(tool.err.find("refc: 1999 more are not shown\n") != std::string::npos);
  }
}

}  // namespace scourwell::test
