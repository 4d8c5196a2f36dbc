// SPDX-License-Identifier: MIT
#include "definitions/change_report.h"

#include "settings/settings.h"
#include "tests/support.h"

namespace scourwell::test {
namespace {

constexpr char kFile[] = "C:\\App\\Ini\\update.ref";

struct Reporting : Bench {
  SettingsStore store{m.registry};
  ReferenceFile reference{m.files, m.clock, log, settings, kAppFolder};
  ChangeReport report{reference, store, captions, log};

  std::string Recorded() { return store.Get("REFFILE", "Number"); }
  std::string Check(const std::string& recorded, const std::string& release) {
    if (!recorded.empty()) static_cast<void>(store.Set("REFFILE", "Number", recorded));
    m.File(kFile, Definitions().Value("SETTINGS", "UPDATE-FILE-NUMBER", release).Text());
    return report.checkUpdateRefFileChanges();
  }
};

}  // namespace

TEST_SUITE("change_report") {
  TEST_CASE("a release is news unless it is on record") {
    for (const auto& [recorded, release, news] : Rows<std::string, std::string, bool>{
             {"", "1", true},
             {"1", "2", true},
             {"2", "1", true},
             {"12a", "  12A ", false},
             {" 12A ", "12a", false},
             {"12a", "12 a", true},
             {"1", "1", false},
             {"1", "   ", false},
             {"", "  ", false},
             {"1", "1.0", true},
             {"\u00E4", "\xC4", false},
         }) {
      CAPTURE(recorded);
      CAPTURE(release);
      Reporting r;
      CHECK(r.Check(recorded, release).empty() == !news);
      CHECK(r.Recorded() == (news ? release : recorded));
      CHECK(r.report.checkUpdateRefFileChanges() == "");
      CHECK(r.m.Errors() == "");
    }
  }

  TEST_CASE("the summary has four lines; what the release does not say is none") {
    Reporting r;
    CHECK(r.Check("", " 7b ") ==
          "<5000>  7b \r\n<5001> <5005>\r\n<5002> <5005>\r\n<5003> <5005>\r\n");
    CHECK(r.Recorded() == " 7b ");
    r.m.File(kFile, Definitions()
                        .Value("settings", "update-file-number", "8")
                        .Value("SPYWARE DEFINITIONS UPDATED", "SDU0", "ISTbar (2)")
                        .Value("SPYWARE DEFINITIONS ADDED", "SDA0", "Gator (1), New.net (3)")
                        .Value("SPYWARE DEFINITIONS ADDED", "SDA1", "never read")
                        .Value("SPYWARE DEFINITIONS REMOVED", "SDR0", "# is no line break")
                        .Text());
    CHECK(r.report.checkUpdateRefFileChanges() ==
          "<5000> 8\r\n<5001> ISTbar (2)\r\n<5002> Gator (1), New.net (3)\r\n"
          "<5003> # is no line break\r\n");
    CHECK(r.m.Errors() == "");
  }

  TEST_CASE("a long list ends behind a whole name, a long word where it must") {
    std::string list = "Added: A (1)";
    while (list.size() < 500) list += ", New.net (3)";
    const std::string shown = WithShortLines(list + "\r\nshort, and whole\r\n");
    const std::size_t end = shown.find("...\r\nshort, and whole\r\n");
    REQUIRE(end != shown.npos);
    CHECK(list.substr(0, end + 12) == shown.substr(0, end) + "New.net (3)" + ",");
    CHECK(end > 380);
    CHECK(WithShortLines(std::string(401, 'x')) == std::string(400, 'x') + "...");
  }

  TEST_CASE("without a file, or with a number that cannot be read, nothing changes") {
    Reporting r;
    static_cast<void>(r.store.Set("REFFILE", "Number", "5"));
    CHECK(r.report.checkUpdateRefFileChanges() == "");
    r.m.File(kFile, Definitions().Raw("SETTINGS", "UPDATE-FILE-NUMBER", "\x05").Text());
    CHECK(r.report.checkUpdateRefFileChanges() == "");
    CHECK(r.Recorded() == "5");
  }

  TEST_CASE("a release that cannot be put on record is not told of, but logged") {
    Reporting r;
    r.m.registry.Make(RootKey::CurrentUser, "Software\\Scourwell\\REFFILE").Denied();
    CHECK(r.Check("", "7") == "");
    CHECK(r.m.Failures() == "70 checkUpdateRefFileChanges, Section: REFFILE, Key: Number\n");
  }
}

}  // namespace scourwell::test
