// SPDX-License-Identifier: MIT

// Each target gets its seeds and the same mutations of them at every run; scripts/fuzz looks
// further with a fuzzer that sees which lines an input reaches.
#include <cstdio>
#include <stdexcept>

#include "tests/fuzz/mutate.h"
#include "tests/fuzz/targets.h"
#include "tests/support.h"
#include "tools/stored_value.h"

namespace scourwell::test {
namespace {

constexpr std::uint32_t kSeed = 20040307;
constexpr int kRounds = 1500;

void Replay(const FuzzTarget& target) {
  Dice dice(kSeed);
  const std::vector<std::string> seeds = target.seeds();
  REQUIRE_FALSE(seeds.empty());
  int executions = 0;
  const auto run = [&](const std::string& bytes) {
    ++executions;
    INFO(target.name, ": ", HexOfBytes(bytes));
    CHECK_NOTHROW(target.run(bytes));
  };
  for (const std::string& seed : seeds) run(seed);
  for (int round = 0; round < kRounds; ++round) {
    std::string bytes = dice.Pick(seeds);
    for (std::size_t left = 1 + dice.Below(4); left > 0; --left) Mutate(dice, &bytes);
    run(bytes);
  }
  std::printf("%s: %d executions\n", target.name, executions);
}

}  // namespace

void Demand(bool holds, const char* promise) {
  if (!holds) throw std::logic_error(promise);
}

TEST_SUITE("fuzz_replay") {
  TEST_CASE("whatever files hold, nothing breaks and no promise does") {
    for (const FuzzTarget& target : FileTargets()) Replay(target);
  }
  TEST_CASE("whatever lines hold, nothing breaks and no promise does") {
    for (const FuzzTarget& target : LineTargets()) Replay(target);
  }
  TEST_CASE("whatever registry scripts hold, nothing breaks and no promise does") {
    for (const FuzzTarget& target : ScriptTargets()) Replay(target);
  }
}

}  // namespace scourwell::test
