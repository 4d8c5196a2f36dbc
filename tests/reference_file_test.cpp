// SPDX-License-Identifier: MIT
#include "definitions/reference_file.h"

#include "tests/support.h"

namespace scourwell::test {
namespace {

constexpr char kOwn[] = "C:\\App\\Ini\\update.ref";
constexpr char kOther[] = "D:\\defs\\update.ref";

struct Reference : Bench {
  Reference() {
    m.AddDrive('D');
    m.Folder("D:\\defs");
    settings.DefinitionsFolder = "D:\\defs";
  }
  ReferenceFile file{m.files, m.clock, log, settings, kAppFolder};

  std::string Read(std::string_view key = "k") { return file.updateListfromINI("s", key); }
};

std::string Holding(std::string_view plain) { return "[s]\r\nk=" + Scramble(plain) + "\r\n"; }

}  // namespace

TEST_SUITE("reference_file") {
  TEST_CASE("values are shifted by twelve") {
    CHECK(Decrypt("m") == "a");
    CHECK(Decrypt("\x0C") == std::string(1, '\0'));
    CHECK(Decrypt("\xFF") == "\xF3");
    CHECK(Decrypt("") == "");
    CHECK_FALSE(Decrypt("mm\x0B"));
    CHECK(CleanParam(std::string_view("ab\0c", 4)) == "ab");
    CHECK_FALSE(CleanParam("ab"));
  }

  TEST_CASE("the definitions folder comes first, at every look-up") {
    Reference r;
    r.m.File(kOwn, Holding("own"));
    CHECK(r.Read() == "own");
    CHECK(r.file.path() == kOwn);
    r.m.File(kOther, Holding("other"));
    CHECK(r.Read() == "other");
    r.m.files.Remove(kOther);
    CHECK(r.Read() == "own");
    r.settings.DefinitionsFolder = "C:\\App\\Ini\\";
    r.m.File(kOther, Holding("other"));  // in a folder that does not count any more
    CHECK(r.Read() == "own");
    CHECK(r.m.Errors() == "");
  }

  TEST_CASE("a file is parsed once, whatever is looked up") {
    Reference r;
    r.m.File(kOwn, "[S]\r\nK=" + Scramble("MixedCase") + "\r\nj=\r\n");
    for (int i = 0; i < 10; ++i) CHECK(r.Read("k") == "MixedCase");
    CHECK(r.Read("j") == "");
    CHECK(r.Read("absent") == "");
    CHECK(r.file.updateListfromINI("absent", "k") == "");
    CHECK(r.m.files.Count("Read ") == 1);
    CHECK(r.file.generation() == 1);
    r.m.File(kOwn, Holding("x"));
    CHECK(r.Read() == "x");
    CHECK(r.m.files.Count("Read ") == 2);
    r.m.File(kOwn, "[s]\r\nk");  // cut off
    CHECK(r.Read() == "");
    CHECK(r.m.Errors() == "");
  }

  TEST_CASE("values longer than 1999 bytes are cut before they are descrambled") {
    for (const std::size_t beyond : {0u, 1u, 3000u}) {
      CAPTURE(beyond);
      Reference r;
      // A byte that cannot be descrambled lies beyond the cut.
      r.m.File(kOwn, "[s]\nk=" + std::string(1999, 'm') + std::string(beyond, '\x02') + "\n");
      CHECK(r.Read() == std::string(1999, 'a'));
      CHECK(r.m.Errors().empty() == (beyond == 0));
    }
  }

  TEST_CASE("a value that cannot be descrambled is empty and recorded") {
    Reference r;
    r.m.File(kOwn, "[s]\nk=mm\x0Bm\nn=mm" + std::string(1, '\0') + "\x01\n");
    CHECK(r.Read("n") == "aa");
    CHECK(r.Read() == "");
    CHECK(r.m.Errors() ==
          "Error Description: Invalid procedure call or argument, "
          "Error Number: 5, Method: Decrypt, Section: s, Key: k\n");
  }

  TEST_CASE("a useless file is recorded once and reads as empty") {
    Reference r;
    std::string error = "The definitions file holds no section, Error Number: 62";
    SUBCASE("missing") { error = "File not found, Error Number: 53"; }
    SUBCASE("empty") { r.m.File(kOwn, ""); }
    SUBCASE("binary") {
      std::string random(5000, '\0');
      Dice dice(4);
      for (char& c : random) c = static_cast<char>(dice.Below(256));
      std::erase(random, '[');
      r.m.File(kOwn, random);
    }
    SUBCASE("locked") {
      r.m.File(kOwn, Holding("x")).Locked();
      error = "Permission denied, Error Number: 70";
    }
    for (int i = 0; i < 3; ++i) CHECK(r.Read() == "");
    CHECK(r.m.Errors() ==
          "Error Description: " + error + ", Method: checkUpdateIni, File: " + kOwn + "\n");
    r.m.File(kOwn, Holding("back")).locked = false;
    CHECK(r.Read() == "back");
  }
}

}  // namespace scourwell::test
