// SPDX-License-Identifier: MIT
#include "scan/name_pattern.h"

#include "scan/literal_index.h"
#include "scan/signature_index.h"
#include "tests/support.h"

namespace scourwell::test {
namespace {

std::string RandomText(Dice& dice, std::string_view letters, std::size_t longest) {
  std::string text;
  for (std::size_t left = dice.Below(longest + 1); left > 0; --left) text += dice.Pick(letters);
  return text;
}

}  // namespace

TEST_SUITE("name_pattern") {
  TEST_CASE("signatures are classified") {
    const auto all_are = [](PatternKind kind, const std::vector<std::string>& signatures) {
      for (const std::string& signature : signatures) {
        CAPTURE(signature);
        CHECK(ClassifyPattern(NormalizeSignature(signature)) == kind);
      }
    };
    all_are(PatternKind::Name, {"EVIL.EXE", "EVIL~1.EXE", "NO EXTENSION", ".HIDDEN", "CONFIG.SYS",
                                "COM10", "[X]@{1}.DLL", "\\EVIL.EXE", "NAME.", "NAME "});
    all_are(PatternKind::Wildcard, {"*.EXE", "A?B", "*.?X"});
    all_are(PatternKind::Relative, {"SUB\\EVIL.EXE", "SUB\\*.EXE", "SUB\\*", "A\\\\B"});
    all_are(PatternKind::Unusable,
            {"",    "..",  ".. \\X", "A\\..\\B", "SUB*\\X", "SUB\\",   "C:\\X",
             "A/B", "A|B", "A<B",    "\"A\"",    "A\x1F",   "*",       "*.",
             "*.*", "??",  "NUL",    "AUX.TXT",  "LPT1 .X", "SUB\\CON"});
  }

  TEST_CASE("what a listing yields is always admitted, and holds the required literal") {
    Dice dice(1);
    std::size_t matches = 0;
    std::size_t admitted = 0;
    for (int round = 0; round < 30000; ++round) {
      const std::string pattern = RandomText(dice, "AB.*?", 7);
      const std::string name = RandomText(dice, "AB.", 5) + "B";
      if (pattern.find_first_not_of(". ") == std::string::npos) continue;
      const bool may = MayMatch(pattern, name);
      if (may) ++admitted;
      if (!ListingMatches(pattern, name)) continue;
      ++matches;
      CAPTURE(pattern);
      CAPTURE(name);
      REQUIRE(may);
      REQUIRE(name.find(RequiredLiteral(pattern)) != std::string::npos);
    }
    CHECK(matches > 3000);
    CHECK(admitted < matches * 3);  // it does narrow
  }

  TEST_CASE("the systems' own readings of ? and of dots are admitted too") {
    for (const auto& [pattern, name] : {std::pair{"ABC??", "ABC"},
                                        {"ABC?.EXE", "ABC.EXE"},
                                        {"ABC.*", "ABC"},
                                        {"*.", "A.B"},
                                        {"*.*", "ABC"},
                                        {"A*.?", "AB"},
                                        {"ABC.", "ABC"}}) {
      CAPTURE(std::string(pattern));
      CHECK(MayMatch(pattern, name));
    }
    CHECK_FALSE(MayMatch("ABC*", "AB"));
    CHECK_FALSE(MayMatch("*.EXE", "AB.DLL"));
    CHECK_FALSE(MayMatch("A?C", "ABD"));
    CHECK(RequiredLiteral("*AB?LONGEST.EXE*X") == "LONGEST.EXE");
    CHECK(RequiredLiteral("*.*") == "");
    CHECK(NormalizeSignature("\\\\SUB. \\\\DEEP\\X.") == "SUB\\DEEP\\X");
    CHECK(NormalizeSignature("SUB.\\X*.") == "SUB\\X*.");
  }
}

TEST_SUITE("literal_index") {
  TEST_CASE("every literal that occurs in a text is proposed") {
    Dice dice(2);
    for (int round = 0; round < 300; ++round) {
      LiteralIndex index;
      std::vector<std::string> literals;
      for (std::uint32_t id = 0; id < 40; ++id) {
        literals.push_back(RandomText(dice, "ABC", 6) + "A");
        index.Add(id, literals.back());
      }
      index.Freeze();
      const std::string text = RandomText(dice, "ABC", 12);
      std::vector<bool> proposed(literals.size());
      index.Propose(text, [&](std::uint32_t id) { proposed[id] = true; });
      for (std::size_t id = 0; id < literals.size(); ++id) {
        if (text.find(literals[id]) != std::string::npos) REQUIRE(proposed[id]);
      }
    }
  }

  TEST_CASE("foreign texts propose nothing") {
    LiteralIndex index;
    for (std::uint32_t id = 0; id < 1000; ++id) index.Add(id, "LITERAL" + std::to_string(id));
    index.Freeze();
    index.Propose("NOTEPAD.EXE", [](std::uint32_t) { FAIL("nothing occurs here"); });
    std::size_t proposals = 0;
    index.Propose("XLITERAL77X", [&](std::uint32_t) { ++proposals; });
    CHECK(proposals > 0);
    CHECK(proposals < 300);
  }
}

TEST_SUITE("signature_index") {
  TEST_CASE("an entry nominates rows of its own kind by both of its names") {
    DefinitionList<SearchedName> list;
    for (const DiskItem item : {DiskItem::File, DiskItem::Folder}) {
      for (const char* name : {"Long Name.exe", "LONGNA~1.EXE", "l*e", "long name.exe\\x"}) {
        list.Add({"spy", name, item});
      }
    }
    const SignatureIndex index(list);
    const auto rows = [&](std::uint32_t attributes) {
      std::vector<SignatureIndex::Nomination> nominations;
      const DirEntry entry = {"LONG name.EXE", "LongNa~1.exe", attributes, 0, 0, 0};
      FoldedEntry folded;
      folded.Take(entry);
      index.Nominate(folded, &nominations);
      std::vector<std::string> found;
      for (const auto& nomination : nominations) {
        found.push_back(std::to_string(nomination.row) + (nomination.certain ? "!" : "?"));
      }
      std::sort(found.begin(), found.end());
      found.erase(std::unique(found.begin(), found.end()), found.end());
      return Lines(found);
    };
    CHECK(rows(0) == "0!\n1!\n2?\n");
    CHECK(rows(kFolder) == "3?\n4!\n5!\n6?\n7?\n");
    CHECK(rows(kFolder | kLink) == "4!\n5!\n6?\n");
    CHECK(index.unusable() == 0);
  }
}

}  // namespace scourwell::test
