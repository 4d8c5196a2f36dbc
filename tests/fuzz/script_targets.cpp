// SPDX-License-Identifier: MIT

// Registry scripts: each is read to its end, nothing grows beyond its size, and what is understood
// can be written and read again.
#include "machine/reg_script.h"
#include "machine/reg_script_reader.h"
#include "tests/fuzz/mutate.h"
#include "tests/fuzz/targets.h"
#include "tests/support.h"

namespace scourwell::test {
namespace {

constexpr std::uint32_t kSeed = 20040309;
constexpr int kSeeds = 60;

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

std::vector<std::string> ScriptSeeds() {
  Dice dice(kSeed);
  std::vector<std::string> seeds;
  for (int i = 0; i < kSeeds; ++i) {
    seeds.push_back(Script(dice, i % 2 ? ScriptReader::Ansi : ScriptReader::Unicode));
  }
  return seeds;
}

void RunScript(std::string_view bytes) {
  FakeCodePages pages;
  ScriptContent content;
  if (!ReadRegScript(bytes, pages, &content).ok()) return;
  std::size_t size = 0;
  RegScript again(pages, ScriptReader::Unicode);
  for (const ScriptKey& key : content.keys) {
    size += key.path.size();
    Demand(CanStandInScript(key.path), "half of a quotation or a line break never comes out");
    Demand(again.AddKey(key.path), "a key that was read can be written");
    for (const ScriptValue& value : key.values) {
      size += value.name.size() + value.value.data.size();
      Demand(value.erased || again.AddValue(value.name, value.value),
             "a value that was read can be written");
    }
  }
  // A byte of a code page becomes three at most.
  Demand(size <= 3 * bytes.size(), "nothing grows");
  ScriptContent second;
  Demand(ReadRegScript(again.Bytes(), pages, &second).ok(), "what was written can be read");
  Demand(second.keys.size() == content.keys.size() && second.refused.empty(),
         "what was written reads the same");
}

constexpr FuzzTarget kTargets[] = {
    {"reg_script", ScriptSeeds, RunScript},
};

}  // namespace

std::span<const FuzzTarget> ScriptTargets() { return kTargets; }

}  // namespace scourwell::test
