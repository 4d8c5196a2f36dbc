// refc lint: every rule fires on its bad example, stays silent beside it, and on what we ship.

#include "refc/lint.h"

#include <set>

#include "refc/built_in.h"
#include "tests/refc_support.h"

namespace scourwell::test {
namespace {

struct Judged {
  const char* row;   // of the family spyware: "kind\twhat", or with a "[section]" a text of its own
  const char* rule;  // empty: nothing to say
};

constexpr Judged kRows[] = {
    // Files and folders anywhere.
    {"file\tevilbar.exe", ""},
    {"file\tEvilbar\\Uninstall.exe", ""},
    {"file\texplorer.exe", "known-good"},
    {"file\tEXPLORER.EXE", "known-good"},
    {"file\texplorer.exe.bad", ""},
    {"folder\tWinZip", "known-good"},
    {"file\tSystem32\\explorer.exe", "known-good"},
    {"file\t\\evilbar.exe", "form"},
    {"file\tevil/bar.exe", "form"},
    {"file\tevil:bar.exe", "form"},
    {"file\tCOM1.exe", "form"},
    {"file\t..\\evilbar.exe", "form"},
    {"file\tevil*\\bar.exe", "form"},
    {"file\t*", "broad"},
    {"file\t*.exe", "broad"},
    {"file\tsetup*.exe", "broad"},
    {"file\tab*cd*ef*.dll", "broad"},
    {"file\tevilbar*.exe", ""},
    {"file\texplor*.exe", "known-good"},
    {"file\t??plorer.exe", "known-good"},
    {"folder\tevilbar*", ""},
    {"file\tevilbar 100%.exe", ""},
    // At one place.
    {"file\t%SYS%\\evilbar.dll", ""},
    {"file\t%Common_StartMenu%\\Evilbar.lnk", ""},
    {"file\t%SYS%\\kernel32.dll", "known-good"},
    {"file\t%PF%\\Evilbar\\readme.txt", ""},
    {"folder\t%PF%\\Internet Explorer", "known-good"},
    {"folder\t%PF%\\Common Files", "known-good"},
    {"file\t%Windows%\\evilbar.exe", "token"},
    {"file\t%win%\\evilbar.exe", "token"},
    {"file\t%common_startmenu%\\evilbar.exe", "token"},
    {"file\t%PF%\\%SYS%\\evilbar.exe", "token"},
    {"file\tC:\\%PF%\\evilbar.exe", "token"},
    {"file\t%PF%evilbar.exe", "token"},
    {"file\t%PF%\\evilbar*.exe", "form"},
    {"folder\t%PF%\\", "form"},
    {"folder\t%PF%\\..\\evilbar", "form"},
    {"[SAFI]\n0SAFITD=Spy\n0SAFISD=C:\\evilbar.exe\n", "token"},
    {"[SAFI]\n0SAFIT=Spy\n0SAFIS=%PF%\\evilbar.exe\n", "token"},
    // Processes.
    {"process\tevilbar.exe", ""},
    {"process\tsvchost.exe", "known-good"},
    {"process\tOUTLOOK.EXE", "known-good"},
    {"process\tevil*.exe", "form"},
    {"process\tevil\\bar.exe", "form"},
    // Registry.
    {"key\tHKEY_LOCAL_MACHINE\\Software\\Evilbar", ""},
    {"key\tHKEY_LOCAL_MACHINE\\Software", "broad"},
    {"key\tHKEY_LOCAL_MACHINE\\Software\\Microsoft", "known-good"},
    {"key\tHKEY_LOCAL_MACHINE\\SOFTWARE\\microsoft\\windows\\currentversion\\RUN", "known-good"},
    {"key\tHKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\Run2", ""},
    {"key\tHKEY_CURRENT_USER\\Software\\Netscape", "known-good"},
    {"key\tHKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\WinZip",
     "known-good"},
    {"key\tHKEY_CLASSES_ROOT\\exefile", "known-good"},
    {"key\tHKEY_LOCAL_MACHINE\\Software\\Classes\\exefile", "known-good"},
    {"key\tHKEY_CLASSES_ROOT\\CLSID\\{D27CDB6E-AE6D-11CF-96B8-444553540000}", "class-id"},
    {"key\tHKEY_CLASSES_ROOT\\CLSID\\{D27CDB6E-AE6D-11CF-96B8-444553540001}", ""},
    {"key\tHKEY_LOCAL_MACHINE\\Software\\\\Evilbar", "form"},
    {"key\tHKLM\\Software\\Evilbar", "form"},
    {"key part\t{D27CDB6E-AE6D-11CF-96B8-444553540001}", ""},
    {"key part\t{20d04fe0-3aea-1069-a2d8-08002b30309d}", "class-id"},
    {"key part\tEvilbar", "broad"},
    {"key part\tHKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion", "known-good"},
    {"key part\tDownloaded Program Files/evilbar.dll", ""},
    {"key part\t/a.dll", "broad"},
    {"value\tHKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\Run\\\\Evilbar", ""},
    {"value\tHKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\Run\\\\SystemTray",
     "known-good"},
    {"value\tHKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\Run\\\\ctfmon",
     "known-good"},
    {"value\tSoftware\\Run\\\\Evilbar", "form"},
    {"[REGV]\n0REGVT=Spy\n0REGVK=HKEY_USERS\\a\n0REGVV=Evilbar\n", "form"},
    // Cookies.
    {"cookie\tevilads", ""},
    {"cookie\tevi[", ""},
    {"cookie\tevil", "broad"},
    {"cookie\tad-x[", "broad"},
    {"cookie\tevil*ads", "form"},
    {"cookie\tyahoo", "cookie"},
    {"cookie\t@google[", "cookie"},
    {"cookie\tadministrator", "cookie"},
    {"cookie\t[1].txt", "broad"},
    // What programs say of themselves.
    {"company\tEvilbar, Inc.", ""},
    {"company\tMicrosoft Corporation", "known-good"},
    {"company\tab", "broad"},
    {"company part\tEvilbar", ""},
    {"company part\tmicrosoft", "known-good"},
    {"company part\tInc.", "broad"},
    {"original name\tevilbar.dll", ""},
    {"original name\tiexplore.exe", "known-good"},
    {"internal name\tiexplore", "known-good"},
    {"product\tEvilbar 2", ""},
    {"product\tQuickTime", "known-good"},
    {"description\tWinZip", "known-good"},
    {"checksum\t12345 67", ""},
    {"checksum\t12345 256", "form"},
    {"checksum\t0 0", "form"},
    {"checksum\tabc 12", "form"},
    {"program\tEvilbar", ""},
    {"program\tWinZip", "known-good"},
    {"program part\tEvilbar", ""},
    {"program part\tbar", "broad"},
    {"program part\tInternet", "known-good"},
    // Between rows, and with what is compiled in.
    {"file\tevilbar.exe\tsource\nSpy2\tfile\tEvilBar.exe", "duplicate"},
    {"file\tevilbar.exe\tsource\nSpy2\tfolder\tEvilBar.exe", ""},
    {"file\tradiate*.url", "built-in"},
    {"file\tKaZaA\\topsearch.dll", "built-in"},
    {"folder\t%TMP%\\fsg_tmp", "built-in"},
    {"process\tcomet.exe", "built-in"},
    {"cookie\tspylog", "built-in"},
    {"value\tHKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\Run\\\\"
     "FlyswatDesktop",
     "built-in"},
    {"[REMO]\n0REMENT=radiate*.url\n", ""},
    {"[REMO]\n0REMENT=SPYLOG\n", ""},
    {"[REMO]\n0REMENT=evilbar.exe\n", "withdrawn"},
    {"[REMO]\n0REMENT=comet.exe\n", "withdrawn"},  // processes cannot be withdrawn
    {"[DAFI]\n0DAFIT=Dialer.A\n0DAFIS=evilbar.exe\n", ""},
    {"[DAFI]\n0DAFIT=Trojan.A\n0DAFIS=evilbar.exe\n", "category"},
    {"[DAFI]\n0DAFIT=Spy\n0DAFIS=evilbar.exe\n", "category"},
    {"[SAFO]\n0SAFOT=Hijacker.A\n0SAFOS=evilbar\n", "category"},
    {"[TAFI]\n0TAFIT=Worm.A\n0TAFIS=evilbar.exe\n", ""},
};

std::set<std::string> RulesIn(const std::string& findings) {
  std::set<std::string> rules;
  for (std::size_t at = 0; at < findings.size();) {
    const std::size_t end = findings.find('\n', at);
    const std::string line = findings.substr(at, end - at);
    const std::size_t begin = line.find(": ") + 2;
    rules.insert(line.substr(begin, line.find(':', begin) - begin));
    at = end + 1;
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
      CAPTURE(judged.row);
      Tool tool;
      tool.disk.files["a.tsv"] = Source(judged.row);
      const int code = tool.Run({"lint", "a.tsv"});
      CAPTURE(tool.err);
      const std::string rule = judged.rule;
      CHECK(code == (rule.empty() ? 0 : 1));
      CHECK(RulesIn(tool.err) == (rule.empty() ? std::set<std::string>() : std::set{rule}));
      // The same, compiled.
      const std::string made = tool.Build("a.tsv", Source(judged.row));
      REQUIRE(made != "");
      tool.disk.files["a.ref"] = made;
      CHECK(tool.Run({"lint", "a.ref"}) == code);
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

  TEST_CASE("every row that is compiled in counts as built in") {
    for (const auto& [kind, value, second] :
         {std::tuple{refc::Kind::Folder, "Ads\\AdCache", ""},
          std::tuple{refc::Kind::DirectFile, "%PF%\\WebDialler\\cpclient.exe", ""},
          std::tuple{refc::Kind::DirectFolder, "%win%\\EGROUP", ""},
          std::tuple{refc::Kind::DirectFile, "%SYS%\\IEACCESS.DLL", ""}}) {
      CAPTURE(value);
      CHECK(refc::BuiltInRows::Get().Has(kind, value, second));
    }
    CHECK_FALSE(refc::BuiltInRows::Get().Has(refc::Kind::DirectFile, "%WIN%\\IEACCESS.DLL", ""));
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
