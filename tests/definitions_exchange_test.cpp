// SPDX-License-Identifier: MIT
#include "definitions/definitions_exchange.h"

#include "refc/reference_reader.h"
#include "refc/writer.h"
#include "tests/support.h"

namespace scourwell::test {
namespace {

constexpr char kFile[] = "C:\\App\\Ini\\update.ref";
constexpr char kFormer[] = "C:\\App\\Ini\\update.old";
constexpr char kBrought[] = "D:\\new.ref";

// A whole file with so many trojans.
Definitions Release(const std::string& number, int trojans = 2) {
  Definitions file;
  if (!number.empty()) file.Value("SETTINGS", "UPDATE-FILE-NUMBER", number);
  file.Value("SPYWARE DEFINITIONS ADDED", "SDA0", "Evil (2)");
  for (int i = 0; i < trojans; ++i) {
    file.Entry("TAFI", {"TAFIT", "TAFIS"}, {"Evil", "evil" + std::to_string(i) + ".exe"});
  }
  return file.Value("NTOT", "TAFITNUM", std::to_string(trojans));
}

struct Exchanging : Bench {
  Exchanging() {
    m.AddDrive('D');
    settings.DefinitionsFolder = "C:\\App\\Ini";
    m.File(kFile, Release("1-9-0-0").Text());
  }
  ReferenceFile reference{m.files, m.clock, log, settings, kAppFolder};
  DefinitionsExchange exchange{m.files, reference, settings, captions, log};
  DefinitionsOffer offer;

  std::optional<Caption> Examine(const std::string& content) {
    m.File(kBrought, content);
    return exchange.Examine(kBrought, &offer);
  }
  std::string InUse() { return reference.updateListfromINI("SETTINGS", "UPDATE-FILE-NUMBER"); }
};

}  // namespace

TEST_SUITE("definitions_exchange") {
  TEST_CASE("a file that is none is refused with its reason") {
    const std::string good = Release("2-0-0-0").Text();
    const std::string picture = "\x89PNG\r\n\x1A\n" + std::string(3, '\0') + "\rIHDR[x]\r\n0TAFIT=";
    for (const auto& [content, reason] : Rows<std::string, Caption>{
             {"", Caption::DefinitionsEmpty},
             {picture, Caption::DefinitionsNoForm},
             {std::string(5000, '\0'), Caption::DefinitionsNoForm},
             {"Dear reader,\r\nthis is a letter.\r\n", Caption::DefinitionsNoForm},
             {"[Adware Language Pack]\r\n413=Enabled\r\n", Caption::DefinitionsNoForm},
             {Release("2", 0).Text(), Caption::DefinitionsNoForm},
             {"[TAFI]\r\n0TAFIT=a\r\n0TAFIS=\x05\r\n", Caption::DefinitionsNoForm},
             {Release("").Text(), Caption::DefinitionsNoNumber},
             {Release("  ").Text(), Caption::DefinitionsNoNumber},
             {good.substr(0, good.find("[NTOT]")) + good.substr(good.find("[SETTINGS]")),
              Caption::DefinitionsDamaged},
             {Release("2").Entry("TAFI", {"TAFIT", "TAFIS"}, {"Evil", "more.exe"}).Text(),
              Caption::DefinitionsDamaged},
             {Release("2").Value("NTOT", "SAFITNUM", "5").Text(), Caption::DefinitionsDamaged},
             {Release("2").Value("TAFI", "7TAFIT", "a gap").Text() + "x", Caption()},
         }) {
      Exchanging e;
      CAPTURE(static_cast<int>(reason));
      CHECK(e.Examine(content).value_or(Caption()) == reason);
      CHECK(e.m.Content(kFile) == Release("1-9-0-0").Text());
    }
    Exchanging e;
    e.m.files.faults["Read D:\\huge.ref"] = kOutOfMemory;
    CHECK(e.exchange.Examine("D:\\huge.ref", &e.offer) == Caption::DefinitionsTooLarge);
    CHECK(e.exchange.Examine("D:\\none.ref", &e.offer) == Caption::DefinitionsUnreadable);
    e.m.Folder("D:\\folder.ref");
    CHECK(e.exchange.Examine("D:\\folder.ref", &e.offer) == Caption::DefinitionsUnreadable);
  }

  TEST_CASE("what the compiler writes counts as it counts") {
    refc::DefinitionSet set;
    refc::Findings findings;
    std::string content = Release("3-1-0-0", 7).Text();
    refc::ReadReference("a", content, &set, &findings);
    std::string written;
    refc::WriteReference(set, [&](std::string_view piece) { written += piece; });
    Exchanging e;
    CHECK_FALSE(e.Examine(written));
    CHECK(e.offer.entries == 7);
  }

  TEST_CASE("an older release is known by its numbers") {
    for (const auto& [number, than, older] : Rows<const char*, const char*, bool>{
             {"1-9-0-0", "1-10-0-0", true},
             {"1-10-0-0", "1-9-0-0", false},
             {"1-1-0-0", "1-1-0-0", false},
             {" 1.1 ", "1-1-0-0", true},
             {"2", "10", true},
             {"1", "", false},
             {"", "1", false},
             {"a", "b", false},
             {"1-", "2", false},
             {"99999999999", "2", false},
         }) {
      CAPTURE(std::string(number));
      CHECK(IsOlderRelease(number, than) == older);
    }
  }

  TEST_CASE("the user reads what changes before it does") {
    Exchanging e;
    CHECK_FALSE(e.Examine(Release("1-8-0-0").Text()));
    CHECK(e.offer.older);
    CHECK(e.exchange.Describe(e.offer) ==
          "<5000> 1-8-0-0\r\n<5001> <5005>\r\n<5002> Evil (2)\r\n<5003> <5005>\r\n"
          "<17581> 2\r\n<17570> 1-9-0-0");
    CHECK_FALSE(e.Examine(Release("1-10-0-0").Text()));
    CHECK_FALSE(e.offer.older);
    CHECK(e.exchange.EntriesInUse() == 2u);
  }

  TEST_CASE("the former file lies beside, and changes places with the present one") {
    Exchanging e;
    const std::string first = e.m.Content(kFile);
    const std::string second = Release("2-0-0-0", 3).Text();
    CHECK(e.exchange.FormerFound() == "");
    REQUIRE_FALSE(e.Examine(second));
    CHECK(e.exchange.Take(e.offer).ok());
    CHECK(e.InUse() == "2-0-0-0");
    CHECK(e.m.Content(kFormer) == first);
    for (const auto& [number, former] :
         Rows<std::string, std::string>{{"1-9-0-0", second}, {"2-0-0-0", first}}) {
      REQUIRE_FALSE(e.exchange.Examine(e.exchange.FormerFound(), &e.offer));
      CHECK(e.exchange.Take(e.offer).ok());
      CHECK(e.InUse() == number);
      CHECK(e.m.Content(kFormer) == former);
    }
    // The file in use, dropped on the window.
    REQUIRE_FALSE(e.exchange.Examine(kFile, &e.offer));
    CHECK(e.exchange.Take(e.offer).ok());
    CHECK(e.m.Content(kFormer) == first);
  }

  TEST_CASE("without a file in use there is none to keep") {
    Exchanging e;
    e.m.files.Remove(kFile);
    REQUIRE_FALSE(e.Examine(Release("2-0-0-0").Text()));
    CHECK_FALSE(e.offer.older);
    CHECK(e.exchange.Take(e.offer).ok());
    CHECK(e.InUse() == "2-0-0-0");
    CHECK(e.exchange.FormerFound() == "");
  }

  TEST_CASE("whatever fails, the file that was in use stays") {
    for (std::size_t at = 1; at < 20; ++at) {
      Exchanging e;
      const std::string before = e.m.Content(kFile);
      REQUIRE_FALSE(e.Examine(Release("2-0-0-0").Text()));
      static_cast<void>(e.InUse());
      Faults faults;
      faults.Plan(Faults::Kind::OneCall, at, kDiskFull);
      e.m.files.port_faults = &faults;
      const bool taken = e.exchange.Take(e.offer).ok();
      e.m.files.port_faults = nullptr;
      CAPTURE(at);
      CHECK(e.m.Content(kFile) == (taken ? e.offer.content : before));
      if (taken) CHECK(e.m.Content(kFormer) == before);
    }
  }
}

}  // namespace scourwell::test
