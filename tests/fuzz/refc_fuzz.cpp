// SPDX-License-Identifier: MIT

// Reference files and sources, damaged at random: nothing crashes, and the tool never sees another
// row than the program does.
#include "definitions/reference_file.h"
#include "refc/dump.h"
#include "refc/lint.h"
#include "refc/reference_reader.h"
#include "refc/source_reader.h"
#include "tests/fuzz/mutate.h"
#include "tests/refc_support.h"
#include "text/windows_1252.h"

namespace scourwell::test {
namespace {

constexpr std::uint32_t kSeed = 20040306;
constexpr int kMutations = 3000;

std::string ValidSource(Dice& dice) {
  constexpr const char* kRows[] = {
      "A\tfile\tevil*.exe\ts\n",
      "A\tfile\t%SYS%\\a.dll\ts\n",
      "B\tfolder\tbad\\folder\ts\n",
      "B\tprocess\tbad.exe\ts\n",
      "B\tcookie\tbadsite\ts\n",
      "C\tkey part\t{00000001-0000-0000-0000-00000000000A}\ts\n",
      "C\tvalue\tHKEY_USERS\\a\\\\b\ts\n",
      "C\tchecksum\t12 34\ts\n",
      "D\tprogram part\tEvilbar\ts\n",
      "D\tkey\tHKEY_CLASSES_ROOT\\Evil\ts\n",
      "[trojans]\n",
      "[spyware]\n",
      "[release]\nnumber\t1\n[spyware]\n",
  };
  std::string source = "[spyware]\n";
  for (std::size_t left = 5 + dice.Below(20); left > 0; --left) source += dice.Pick(kRows);
  return source;
}

// Half of it in the words of the language.
void Damage(Dice& dice, std::string* text) {
  constexpr std::string_view kPieces[] = {"\r\n", "\n", "[SAFI]\r\n", "0", "=",     "\"",
                                          "\t",   "{x", "}",          ";", "%SYS%", "[NTOT]\n"};
  if (dice.Chance(2)) return Mutate(dice, text);
  const std::size_t at = dice.Below(text->size() + 1);
  if (dice.Chance(2)) {
    text->insert(at, dice.Pick(kPieces));
  } else {
    text->insert(at, std::string(dice.Chance(20) ? 3000 : 3, static_cast<char>(dice.Below(256))));
  }
}

// The rows as the program reads them, one key at a time.
std::vector<std::string> ProgramRows(Bench& b, const std::string& file) {
  b.m.File("C:\\App\\Ini\\update.ref", file);
  ReferenceFile reference(b.m.files, b.m.clock, b.log, b.settings, kAppFolder);
  std::vector<std::string> rows;
  for (const refc::Listed& listed : refc::Catalogue()) {
    for (int n = 0; n < listed.most; ++n) {
      std::string row = listed.section;
      bool whole = true;
      for (const char* key : listed.keys) {
        const std::string value =
            key ? reference.updateListfromINI(listed.section, std::to_string(n) + key) : "-";
        whole &= !value.empty();
        row += "|" + value;
      }
      if (!whole) break;
      rows.push_back(row);
    }
  }
  for (const refc::ReleaseValue& value : refc::kReleaseValues) {
    rows.push_back(reference.updateListfromINI(value.section, value.key));
  }
  return rows;
}

std::vector<std::string> ToolRows(const refc::DefinitionSet& set) {
  std::vector<std::string> rows;
  for (std::size_t sequence = 0; sequence < set.rows.size(); ++sequence) {
    const refc::Listed& listed = refc::Catalogue()[sequence];
    for (const refc::Row& each : set.rows[sequence]) {
      std::string row = listed.section;
      for (std::size_t cell = 0; cell < listed.keys.size(); ++cell) {
        row += "|" + (listed.keys[cell] ? From1252(set.View(each, cell)) : "-");
      }
      rows.push_back(row);
    }
  }
  for (std::size_t i = 0; i < set.release.size(); ++i) rows.push_back(From1252(set.Release(i)));
  return rows;
}

std::string Damaged(Dice& dice) {
  Tool tool;
  std::string file = tool.Build("a.tsv", ValidSource(dice));
  for (std::size_t left = dice.Below(5); left > 0; --left) Damage(dice, &file);
  return file;
}

}  // namespace

TEST_SUITE("fuzz_refc") {
  TEST_CASE("the tool sees what the program sees, and all that we ship") {
    Tool tool;
    tool.disk.files = ShippedSources();
    if (tool.disk.files.empty()) return;
    REQUIRE(tool.Run({"build", "ref", "-o", "made.ref"}) == 0);
    const std::string& file = tool.disk.files["made.ref"];
    refc::DefinitionSet set;
    refc::Findings findings;
    refc::ReadReference("made.ref", file, &set, &findings);
    CHECK(findings.count() == 0);  // the counts in it are right, too
    const std::vector<std::string> rows = ToolRows(set);
    CHECK(rows.size() >= 500);
    Bench b;
    CHECK((Lines(rows) == Lines(ProgramRows(b, file))));
    CHECK(b.m.Errors() == "");
  }

  TEST_CASE("a damaged file is read as the program does, and survives another build when whole") {
    Dice dice(kSeed);
    Bench b;
    int survived = 0;
    for (int round = 0; round < kMutations; ++round) {
      CAPTURE(round);
      const std::string file = Damaged(dice);
      refc::DefinitionSet set;
      refc::Findings findings;
      refc::ReadReference("a.ref", file, &set, &findings);
      if (round % 3 == 0) REQUIRE(Lines(ToolRows(set)) == Lines(ProgramRows(b, file)));
      const bool whole = findings.count() == 0;
      refc::Lint(set, &findings);
      std::string dump;
      refc::DumpReference(file, [&](std::string_view text) { dump += text; });
      refc::DefinitionSet again;
      refc::Findings mistakes;
      refc::ReadSource("dump", "dump", dump, &again, &mistakes);
      if (!whole || mistakes.count() != 0) continue;
      ++survived;
      REQUIRE(Lines(ToolRows(again)) == Lines(ToolRows(set)));
    }
    CHECK(survived > kMutations / 10);
    CHECK(survived < kMutations * 9 / 10);
  }
}

}  // namespace scourwell::test
