// SPDX-License-Identifier: MIT

// Valid version resources, damaged at random: nothing may be read outside of the block, and every
// text must be made of its characters.
#include "machine/version_resource.h"

#include <cstring>

#include "machine/file_version.h"
#include "tests/fake/version_block.h"
#include "tests/fuzz/mutate.h"
#include "tests/support.h"

namespace scourwell::test {
namespace {

constexpr std::uint32_t kSeed = 20040305;
constexpr int kMutations = 20000;

std::string Valid(Dice& dice) {
  VersionBlock block;
  block.wide = !dice.Chance(4);
  for (const std::string_view name : kVersionFieldNames) {
    if (!dice.Chance(4)) block.Text(std::string(name), std::string(dice.Below(20), 'v'));
  }
  return block.Make();
}

// Mostly the words at multiples of four, where lengths stand.
void PutLength(Dice& dice, std::string* block) {
  constexpr std::size_t kLengths[] = {0, 1, 3, 4, 5, 6, 7, 8, 0x7FFF, 0x8000, 0xFFFC, 0xFFFF};
  if (block->size() < 4) return;
  const std::size_t at = dice.Below(block->size() / 4) * 4 + dice.Below(2) * 2;
  const std::size_t length = dice.Chance(2) ? dice.Pick(kLengths) : dice.Below(block->size() + 8);
  block->replace(at, 2, VersionBlock::Word(length));
}

void Damage(Dice& dice, std::string* block) {
  dice.Chance(3) ? PutLength(dice, block) : Mutate(dice, block);
}

}  // namespace

TEST_SUITE("fuzz_version_resource") {
  TEST_CASE("a damaged block is read without leaving it") {
    Dice dice(kSeed);
    const FakeVersions versions;
    int with_texts = 0;
    int without = 0;
    int with_fixed = 0;
    for (int round = 0; round < kMutations; ++round) {
      std::string mutated = Valid(dice);
      for (std::size_t left = 1 + dice.Below(4); left > 0; --left) Damage(dice, &mutated);
      // A copy of exactly this size, so that the sanitizer sees the first byte too many.
      const auto exact = std::make_unique<char[]>(mutated.size());
      std::memcpy(exact.get(), mutated.data(), mutated.size());
      const VersionResource resource({exact.get(), mutated.size()}, versions);
      std::size_t texts = 0;
      for (std::size_t field = 0; field < kVersionFields; ++field) {
        const auto text = resource.Text(static_cast<VersionField>(field));
        if (!text) continue;
        ++texts;
        if (text->size() > mutated.size()) FAIL("round ", round, ": longer than its block");
      }
      ++(texts ? with_texts : without);
      with_fixed += resource.Fixed() ? 1 : 0;
    }
    // The damage must neither spare every block nor spoil every one.
    CHECK(with_texts > kMutations / 10);
    CHECK(without > kMutations / 10);
    CHECK(with_fixed > kMutations / 10);
  }

  TEST_CASE("a damaged file is searched without leaving it") {
    Bench b;
    Dice dice(kSeed);
    FileVersion version(b.m.files, b.m.versions, b.captions, b.log);
    Node& file = b.m.File("C:\\x.exe");
    int found = 0;
    for (int round = 0; round < kMutations / 10; ++round) {
      file.content = Valid(dice);
      Damage(dice, &file.content);
      const std::string text = version.GetFileDescription("C:\\x.exe");
      if (text.size() > file.content.size()) FAIL("round ", round, ": longer than its file");
      found += text.empty() ? 0 : 1;
    }
    CHECK(found > kMutations / 50);
  }
}

}  // namespace scourwell::test
