// SPDX-License-Identifier: MIT

// refc build and dump, its sources, and the words of its command line.

#include "refc/commands.h"

#include <sstream>

#include "refc/catalogue.h"
#include "refc/help.h"
#include "tests/refc_support.h"

namespace scourwell::test {
namespace {

struct Mistake {
  const char* source;
  const char* said;  // file, line, rule and the beginning of the reason
};

// A row of the file that the tests build.
std::string Row(const char* kind, const std::string& what) {
  return std::string("Spy\t") + kind + "\t" + what + "\tsource\n";
}

// '' is an empty one.
std::vector<std::string> Words(const std::string& line) {
  std::istringstream stream(line);
  std::vector<std::string> words;
  for (std::string word; stream >> word;) words.push_back(word == "''" ? "" : word);
  return words;
}

}  // namespace

TEST_SUITE("refc") {
  TEST_CASE("a source becomes sections, numbers, suffixes and counts") {
    Tool tool;
    const std::string source =
        "\xEF\xBB\xBF# A comment\r\n\r\n"
        "Trojan.A\tfile\tevil.exe\tseen\tand a comment\r\n"
        "Trojan.A\tfile\t%SYS%\\evil.exe\tseen\n"
        "Trojan.B \t\t file\t\tevil*.dll\tseen\n"
        "Trojan.B\tfolder\tEvil Folder\n" +
        Row("key", "HKEY_LOCAL_MACHINE\\Software\\Evil") +
        Row("key", "HKEY_CLASSES_ROOT\\Evil.Obj") +
        Row("key part", "{01234567-89AB-CDEF-0123-456789ABCDEF}") +
        Row("value", "HKEY_CURRENT_USER\\Run\\\\C:\\a b") + Row("checksum", "1234 56") +
        "[hijackers]\nHijacker.C\tfile\t%WIN%\\c\u00f3.exe\tseen\n"
        "[withdrawn]\nSpy\twithdrawn\tradiate*.url\tseen\n"
        "[release]\nnumber\t12-a\nremoved\tOne, two\n";
    CHECK(tool.Build("trojans.tsv", source) == "");  // one row lacks its source
    CHECK(tool.err == "trojans.tsv:6: source: the row does not say where it is known from\n");
    std::string whole = source;
    whole.replace(whole.find("Evil Folder"), 11, "Evil Folder\tseen");
    CHECK(tool.Dump(tool.Build("trojans.tsv", whole)) ==
          "[SETTINGS]\nUPDATE-FILE-NUMBER=12-a\n"
          "[SPYWARE DEFINITIONS REMOVED]\nSDR0=One, two\n"
          "[TAFI]\n0TAFIT=Trojan.A\n0TAFIS=evil.exe\n1TAFIT=Trojan.B\n1TAFIS=evil*.dll\n"
          "0TAFITD=Trojan.A\n0TAFISD=%SYS%\\evil.exe\n"
          "[TAFO]\n0TAFOT=Trojan.B\n0TAFOS=Evil Folder\n"
          "[HAFI]\n0HAFITD=Hijacker.C\n0HAFISD=%WIN%\\c\u00f3.exe\n"
          "[REGS]\n0REGST=Spy\n0REGSK={01234567-89AB-CDEF-0123-456789ABCDEF}\n"
          "[REGV]\n0REGVT=Spy\n0REGVK=HKEY_CURRENT_USER\\Run\\\n0REGVV=C:\\a b\n"
          "[REGK]\n0REGKT=Spy\n0REGKK=HKEY_LOCAL_MACHINE\\Software\\Evil\n"
          "[REGKO]\n0REGKTO=Spy\n0REGKKO=HKEY_CLASSES_ROOT\\Evil.Obj\n"
          "[SBFCS]\n0SBFCST=Spy\n0SBFCSN=1234\n0SBFCSS=56\n"
          "[REMO]\n0REMENT=radiate*.url\n"
          "[NTOT]\nTAFITNUM=2\nTAFITDNUM=1\nTAFOTNUM=1\nHAFITDDNUM=1\nREGSKNUM=1\nREGVKNUM=1\n"
          "REGKKNUM=1\nREGKKONUM=1\nSBFCSTNUM=1\n");
    // Scrambled, code page 1252, CR LF.
    CHECK(tool.disk.files["made.ref"].find("0HAFISD=1cUZ1ho\xFF:q\x84q\r\n") != std::string::npos);
  }

  TEST_CASE("mistakes are said with file, line and reason, and nothing is written") {
    const Mistake mistakes[] = {
        {"Spy\tfile\n", "spyware.tsv:1: form: spy, kind and what"},
        {"Spy\tfiel\tx.exe\ts\n", "spyware.tsv:1: form: no kind is called \"fiel\""},
        {" \tfile\tx.exe\ts\n", "spyware.tsv:1: form: an empty column"},
        {"\n[nowhere]\nSpy\tfile\tx.exe\ts\n", "spyware.tsv:2: unread: the program reads no sec"},
        {"Spy\tvalue\tHKEY_USERS\\a\\b\ts\n", "spyware.tsv:1: form: key\\\\name is expected"},
        {"Spy\tvalue\tHKEY_USERS\\a\\\\\ts\n", "spyware.tsv:1: form: a value without a name"},
        {"Spy\tchecksum\t12\ts\n", "spyware.tsv:1: form: a size and a checksum"},
        {"Spy\twithdrawn\tx\ts\n", "spyware.tsv:1: form: rows of this kind do not belong"},
        {"[cookies]\nSpy\tfile\tx.exe\ts\n", "spyware.tsv:2: form: rows of this kind do not"},
        {"Spy\tfile\t\xD0\x96.exe\ts\n", "spyware.tsv:1: characters: the line holds \"\xD0\x96\""},
        {"Spy\tfile\t\xFF.exe\ts\n", "spyware.tsv:1: characters: the line holds the byte 0xFF"},
        {"Spy\tfile\t\xC3\xB4.exe\ts\n", "spyware.tsv:1: characters: a character that no"},
        {"Spy\tfile\ta\x01.exe\ts\n", "spyware.tsv:1: characters: a character that no"},
        {"[release]\nnumber\n", "spyware.tsv:2: form: an empty column"},
        {"[release]\nadded\tx\nadded\ty\n", "spyware.tsv:3: duplicate: it was said before"},
        {"[release]\nwhat\tx\n", "spyware.tsv:2: form: a release has no \"what\""},
        {"[SAFI]\n0SAFIT=A\n0SAFIS=a\n2SAFIT=C\n2SAFIS=c\n", "spyware.tsv:4: gap: entry 1 is"},
        {"[SAFI]\n0SAFIT=A\n", "spyware.tsv:2: gap: the entry lacks 0SAFIS"},
        {"[SAFI]\n0SAFIT=A\n0SAFIS=\n", "spyware.tsv:2: gap: nothing can be read from 0SAFIS"},
        {"[SAFI]\n0SAFIT=A\n0SAFIS=a\n0safit=B\n", "spyware.tsv:4: duplicate: the key stands"},
        {"[SAFI]\n0TAFIT=A\n", "spyware.tsv:2: unread: the program reads no key \"0TAFIT\""},
        {"[SAFI]\n00SAFIT=A\n", "spyware.tsv:2: unread: the program reads no key \"00SAFIT\""},
        {"[SAFI]\n10001SAFIT=A\n", "spyware.tsv:2: unread: the program reads 10001 entries"},
        {"[SAFI]\n0SAFIT=A\n0SAFIS={raw05}\n", "spyware.tsv:3: characters: a byte below 12"},
        {"[SAFI]\n[safi]\n", "spyware.tsv:2: duplicate: the section stands a second time"},
        {"[NTOT]\nSAFITNUM=1\n", "spyware.tsv:2: count: it announces \"1\" entries, 0 are"},
        {"[NTOT]\nSAFOOTNUM=1\n", "spyware.tsv:2: unread: the program reads no key"},
        {"[SETTINGS]\nwords\n", "spyware.tsv:2: form: neither a section nor key=value"},
    };
    for (const Mistake& mistake : mistakes) {
      CAPTURE(mistake.source);
      Tool tool;
      CHECK(tool.Build("spyware.tsv", mistake.source) == "");
      CHECK(tool.err.substr(0, std::string_view(mistake.said).size()) == mistake.said);
    }
    Tool tool;
    CHECK(tool.Build("families.tsv", Row("file", "x.exe")) == "");
    CHECK(tool.err == "families.tsv:1: form: the row stands in no family\n");
    CHECK(tool.Build("spyware.tsv", "# no row\n") == "");
    CHECK(tool.err == "spyware.tsv: form: there is nothing to build\n");
    const std::string long_name(1999, 'x');
    CHECK(tool.Build("spyware.tsv", Row("file", long_name)) != "");
    CHECK(tool.Build("spyware.tsv", Row("file", long_name + "x")) == "");
    CHECK(tool.err.find("spyware.tsv:1: length: ") == 0);
    std::string many;
    for (int i = 0; i < 1001; ++i) many += Row("program", "name" + std::to_string(i));
    CHECK(tool.Build("spyware.tsv", many) != "");
    CHECK(tool.Build("spyware.tsv", many + Row("program", "one more")) == "");
    CHECK(tool.err.find("spyware.tsv:1002: unread: the program reads 1001") == 0);
  }

  TEST_CASE("a dump is faithful to gaps, wrong counts and odd bytes") {
    const std::string file =
        "; made by hand\r\n0SAFIT=early\n[SAFI]\n"
        "0SAFIT=" +
        Scramble("A {x41} ") + "\n0SAFIS=" + Scramble("a\x80\x81") +
        "\n"
        "2SAFIT=" +
        Scramble("C") + "\n2SAFIS=" + Scramble("c") +
        "\n"
        "1SAFITD=\x05m\nfoo=m\nnonsense\n"
        "[NTOT]\nSAFITNUM=" +
        Scramble("9") + "\nsafitnum=" + Scramble("1") + "\n[Private]\nkey = \"" + Scramble("v") +
        "\"\n[safi]\n1SAFIT=m\n";
    Tool tool;
    tool.Dump(file);
    const auto has = [&](const std::string& line) {
      CAPTURE(line);
      CAPTURE(tool.out);
      CHECK(("\n" + tool.out).find("\n" + line + "\n") != std::string::npos);
    };
    has("; the line: ; made by hand");
    has("; unread: neither a section nor a key of one\n0SAFIT=YUf`m");
    has("[SAFI]\n0SAFIT=A {x7B}x41}{x20}\n0SAFIS=a\u20AC{x81}");
    has("; gap: entry 1 is missing: neither this entry nor any later one is read\n2SAFIT=C\n"
        "2SAFIS=c");
    has("; characters: a byte below 12 makes the value unreadable");
    has("1SAFITD={raw05}a");
    has("; unread: the program reads no key \"foo\" of this section\nfoo=a");
    has("; unread: neither a section nor a key of one\n; the line: nonsense");
    has("; count: it announces \"9\" entries, 1 are read\nSAFITNUM=9");
    has("; duplicate: the key stands a second time and is not read\nsafitnum=1");
    has("; unread: the program reads no section \"Private\"\n[Private]\nkey=v");
    has("; duplicate: the section stands a second time and is not read\n[safi]\n1SAFIT=a");
  }

  TEST_CASE("build, dump and build give the same file") {
    Tool tool;
    tool.disk.files = ShippedSources();
    if (tool.disk.files.empty()) return;
    CHECK(tool.Run({"build", "ref", "-o", "first.ref"}) == 0);
    const std::string first = tool.disk.files["first.ref"];
    CHECK(tool.Build("dump.txt", tool.Dump(first)) == first);
    const std::string odd = "[spyware]\n" + Row("file", "{x41}") +
                            Row("file", "a\u20AC{raw05\u0153") + Row("file", "{x{x41}");
    const std::string made = tool.Build("odd.tsv", odd);
    REQUIRE(made != "");
    CHECK(tool.Build("dump.txt", tool.Dump(made)) == made);
    CHECK(made.find(Scramble("{x41}")) != std::string::npos);
  }

  TEST_CASE("wrong usage and what cannot be read or written end with 2") {
    Tool tool;
    tool.disk.files["a.tsv"] = "[spyware]\n" + Row("file", "x.exe");
    tool.disk.files["folder/readme.txt"] = "";
    for (const char* line :
         {"", "compile", "build a.tsv", "build -o b.ref", "build a.tsv -o", "build a.tsv -o ''",
          "build a.tsv -x b.ref", "build absent.tsv -o b.ref", "build folder -o b.ref", "dump",
          "dump a.tsv a.tsv", "dump absent.ref", "lint a.tsv absent.ref", "match a.tsv",
          "match a.tsv \xD0\x96", "diff a.tsv", "diff a.tsv a.tsv --number 1",
          "diff a.tsv absent.tsv"}) {
      CAPTURE(line);
      CHECK(tool.Run(Words(line)) == 2);
      CHECK(tool.err.starts_with("refc: "));
      CHECK(tool.out == "");
    }
    CHECK(tool.disk.files.size() == 2);
    tool.disk.full = true;
    CHECK(tool.Run({"build", "a.tsv", "-o", "b.ref"}) == 2);
    CHECK(tool.err == "refc: b.ref: cannot be written\n");
    CHECK(tool.Run({"diff", "--help"}) == 0);
    CHECK(tool.out == refc::kHelp);
    for (const std::string word : {"build", "dump", "lint", "match", "diff", "--changes", "-o"}) {
      CHECK(tool.out.find(word) != std::string::npos);
    }
    for (std::size_t kind = 0; kind < 20; ++kind) {
      CHECK(tool.out.find(refc::KindWord(static_cast<refc::Kind>(kind))) != std::string::npos);
    }
  }
}

}  // namespace scourwell::test
