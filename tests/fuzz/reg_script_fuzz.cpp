// SPDX-License-Identifier: MIT

// Registry scripts that are damaged at random: each is read to its end, nothing grows beyond its
// size, and what is understood can be written and read again.
#include "machine/reg_script.h"
#include "machine/reg_script_reader.h"
#include "tests/fuzz/mutate.h"
#include "tests/support.h"

namespace scourwell::test {
namespace {

constexpr std::uint32_t kSeed = 20040309;
constexpr int kRounds = 20'000;

std::string Script(Dice& dice, ScriptReader form) {
  FakeCodePages pages;
  RegScript script(pages, form);
  static const std::string kTexts[] = {"", "a", "C:\\x \"y\"", "]\t", "=;@-[", "hex(2):", "\u00FC"};
  for (std::size_t keys = dice.Below(4); keys > 0; --keys) {
    static_cast<void>(script.AddKey("HKEY_CURRENT_USER\\" + dice.Pick(kTexts)));
    for (std::size_t values = dice.Below(4); values > 0; --values) {
      const RegValue value{static_cast<std::uint32_t>(dice.Below(12)),
                           dice.Pick(kTexts) + std::string(dice.Below(40), '\0')};
      static_cast<void>(script.AddValue(dice.Pick(kTexts), value));
    }
  }
  if (dice.Chance(5)) static_cast<void>(script.DeleteKey("HKEY_USERS\\x"));
  return script.Bytes(dice.Chance(2));
}

}  // namespace

TEST_SUITE("fuzz_reg_script") {
  TEST_CASE("a damaged script is read without harm") {
    Dice dice(kSeed);
    FakeCodePages pages;
    int read = 0;
    std::size_t refused = 0;
    for (int round = 0; round < kRounds; ++round) {
      const auto form = dice.Chance(2) ? ScriptReader::Ansi : ScriptReader::Unicode;
      std::string bytes = Script(dice, form);
      for (std::size_t damages = dice.Below(4); damages > 0; --damages) Mutate(dice, &bytes);
      ScriptContent content;
      if (!ReadRegScript(bytes, pages, &content).ok()) continue;
      ++read;
      refused += content.refused.size();
      std::size_t size = 0;
      RegScript again(pages, ScriptReader::Unicode);
      for (const ScriptKey& key : content.keys) {
        size += key.path.size();
        // A name with half of a quotation or a line break never comes out.
        if (!CanStandInScript(key.path)) FAIL("round ", round, ": ", key.path);
        if (!again.AddKey(key.path)) FAIL("round ", round, ": ", key.path);
        for (const ScriptValue& value : key.values) {
          size += value.name.size() + value.value.data.size();
          if (!value.erased && !again.AddValue(value.name, value.value)) FAIL("round ", round);
        }
      }
      // A byte of a code page becomes three at most.
      if (size > 3 * bytes.size()) FAIL("round ", round, ": it grew to ", size);
      ScriptContent second;
      if (!ReadRegScript(again.Bytes(), pages, &second).ok()) FAIL("round ", round);
      if (second.keys.size() != content.keys.size() || !second.refused.empty()) {
        FAIL("round ", round, ": it reads differently");
      }
    }
    CHECK(read > kRounds / 4);
    CHECK(refused > kRounds / 10);
  }
}

}  // namespace scourwell::test
