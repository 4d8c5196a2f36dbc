// SPDX-License-Identifier: MIT

// Archives that lie at random, with checksums that are right or not: what is read must be bounded,
// what comes out must be right, and nothing else may be touched.
#include "tests/fuzz/mutate.h"
#include "tests/hand_archive.h"
#include "tests/restore_support.h"

namespace scourwell::test {
namespace {

constexpr std::uint32_t kSeed = 20040306;
constexpr int kRounds = 6000;

std::string AnyPath(Dice& dice) {
  static const std::string kPaths[] = {
      "C:\\spy\\a",   "C:\\spy\\sub\\b",   "C:\\spy", "C:\\keep\\a", "C:\\link\\x",
      "C:\\spy\\nul", "C:\\spy\\a\\below", "D:\\x",   "x",           "C:\\spy\\..\\keep\\a"};
  return dice.Pick(kPaths);
}

std::uint64_t AnyNumber(Dice& dice) {
  constexpr std::uint64_t kNumbers[] = {0,          1,          3,          4,          5,
                                        255,        65535,      0x7FFFFFFF, 0x80000000, 0xFFFFFFFF,
                                        1ull << 32, 1ull << 62, 1ull << 63, ~0ull};
  return dice.Chance(2) ? dice.Pick(kNumbers) : dice.Below(400);
}

// Every checksum is right; some fields are not.
HandArchive Lying(Dice& dice) {
  HandArchive archive;
  for (std::size_t left = dice.Below(6); left > 0; --left) {
    HandArchive::Item item;
    item.kind =
        dice.Chance(20) ? static_cast<int>(dice.Below(5)) : static_cast<int>(1 + dice.Below(3));
    item.path = item.kind == 3 ? "one.reg" : AnyPath(dice);
    if (item.kind != 2) item.content = std::string(dice.Below(30), 'c');
    item.attributes = static_cast<std::uint32_t>(AnyNumber(dice));
    item.modified = AnyNumber(dice);
    for (auto* field : {&item.size, &item.offset, &item.stored, &item.block_header}) {
      if (dice.Chance(60)) *field = AnyNumber(dice);
    }
    if (dice.Chance(20)) item.path_size = AnyNumber(dice);
    archive.items.push_back(std::move(item));
  }
  for (auto* field : {&archive.count, &archive.index_size, &archive.data_size}) {
    if (dice.Chance(20)) *field = AnyNumber(dice);
  }
  if (dice.Chance(20)) archive.volumes = {AnyNumber(dice)}, archive.number = 2;
  return archive;
}

}  // namespace

TEST_SUITE("fuzz_archive") {
  TEST_CASE("a lying archive restores what is right and touches nothing else") {
    Dice dice(kSeed);
    std::size_t restored = 0;
    int refused = 0;
    for (int round = 0; round < kRounds; ++round) {
      RestoreBench b;
      b.m.File("C:\\keep\\a", "precious").modified = ~0ull;
      b.m.Link("C:\\link", "C:\\keep");
      b.guard.refused = {"C:\\keep"};
      const std::string kept = b.Tree("C:\\keep");
      std::string bytes = Lying(dice).Make();
      if (dice.Chance(4)) Mutate(dice, &bytes);
      b.m.File(kArchivePath).content = bytes;
      refused += b.Restore().ok() ? 0 : 1;
      restored += b.result.restored;
      if (b.Tree("C:\\keep") != kept) FAIL("round ", round, ": a protected file was touched");
      for (const auto& child : b.m.files.Find("C:\\")->children) {
        constexpr std::string_view kExpected = "App Backup keep link spy spy.kept";
        if (kExpected.find(child->name) == kExpected.npos) FAIL("round ", round, child->name);
      }
      for (const char* path : {"C:\\spy\\a", "C:\\spy\\sub\\b"}) {
        const std::string content = b.m.Content(path);
        if (content.find_first_not_of('c') != content.npos) FAIL("round ", round, ": ", content);
      }
    }
    CHECK(restored > kRounds / 5);
    CHECK(refused > kRounds / 10);
  }
}

}  // namespace scourwell::test
