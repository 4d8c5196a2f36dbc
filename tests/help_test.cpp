// SPDX-License-Identifier: MIT
#include "shell/help.h"

#include <set>

#include "tests/support.h"

namespace scourwell::test {
namespace {

constexpr char kFile[] = "C:\\App\\Help\\help.chm";

// As much of a help file as is looked at: it says how long it is.
std::string HelpFile(std::size_t size) {
  std::string file(size, '\0');
  file.replace(0, 4, "ITSF");
  file[0x38] = 0x60;
  file[0x68] = static_cast<char>(size & 0xFF);
  file[0x69] = static_cast<char>(size >> 8 & 0xFF);
  return file;
}

struct HelpBench : Bench {
  Help help{m.files, m.shell, log, captions, kAppFolder};
  std::string Journal() { return Lines(m.shell.journal); }
};

}  // namespace

TEST_SUITE("help") {
  TEST_CASE("the page of a window is shown from the help file") {
    HelpBench b;
    b.m.File(kFile, HelpFile(0x1234));
    b.help.ShowPage("frmBackup");
    b.help.ShowPage("frmOfLater");
    b.help.OpenFile("imgHelp_Click");
    CHECK(b.Journal() ==
          "Help C:\\App\\Help\\help.chm::/backups.html\n"
          "Help C:\\App\\Help\\help.chm::/index.html\n"
          "Open C:\\App\\Help\\help.chm\n");
    CHECK(b.m.Errors().empty());
  }

  TEST_CASE("without a viewer or a whole help file the page itself is opened") {
    HelpBench b;
    std::string tried;
    std::string record = "The help file is damaged, Error Number: 75";
    Node& file = b.m.File(kFile, HelpFile(0x1234));
    SUBCASE("no viewer") {
      b.m.shell.help_error = kDeviceError;
      tried = "Help C:\\App\\Help\\help.chm::/log.html\n";
      record = "Error Number: 57";
    }
    SUBCASE("cut short") { file.content.pop_back(); }
    SUBCASE("too short to say anything") { file.content.resize(0x7F); }
    SUBCASE("empty") { file.content.clear(); }
    SUBCASE("of another kind") { file.content[0] = 'X'; }
    SUBCASE("with its first section nowhere") { file.content.replace(0x38, 4, "\xFF\xFF\xFF\xFF"); }
    SUBCASE("with its first section at the end of what is read") { file.content[0x38] = 0x75; }
    SUBCASE("locked") {
      file.Locked();
      record = "Method: ShowHelp, File: C:\\App\\Help\\help.chm";
    }
    SUBCASE("missing") {
      REQUIRE(b.m.files.EraseFile(kFile).ok());
      record = "Error Number: 53";
    }
    b.help.ShowPage("frmLog");
    CHECK(b.Journal() == tried + "Open C:\\App\\Help\\log.html\n");
    CAPTURE(b.m.Errors());
    CHECK(b.m.Errors().find(record) != std::string::npos);
    CHECK(b.m.Errors().find("log.html") == std::string::npos);
  }

  TEST_CASE("the help button falls back on the first page") {
    HelpBench b;
    b.help.OpenFile("imgHelp_Click");
    CHECK(b.Journal() == "Open C:\\App\\Help\\index.html\n");
    CHECK(b.m.Errors().find("Method: imgHelp_Click, File: " + std::string(kFile)) !=
          std::string::npos);
  }

  TEST_CASE("what nothing opens is put on record and named to the user") {
    HelpBench b;
    b.m.File(kFile, HelpFile(200));
    b.m.shell.help_error = b.m.shell.open_error = kFileNotFound;
    SUBCASE("a page") {
      b.help.ShowPage("SpyFrame");
      CHECK(b.m.shell.journal.back() == "Message <17157>\r\nC:\\App\\Help\\results.html/<17000>");
      CHECK(b.m.Errors().find("File: C:\\App\\Help\\results.html") != std::string::npos);
    }
    SUBCASE("the file") {
      b.help.OpenFile("cmdHelp_Click");
      CHECK(b.m.shell.journal.back() == "Message <17157>\r\nC:\\App\\Help\\help.chm/<17000>");
    }
  }

  TEST_CASE("no window has two pages") {
    std::set<std::string> windows;
    for (std::size_t i = 0; i < kHelpTopicCount; ++i) {
      CHECK(windows.insert(kHelpTopics[i].window).second);
    }
  }
}

}  // namespace scourwell::test
