// SPDX-License-Identifier: MIT

// The door of libFuzzer: FUZZ_TARGET names the target, FUZZ_SEEDS a folder that gets its seeds.
#define DOCTEST_CONFIG_IMPLEMENT  // what the tests' helpers check with
#include <doctest/doctest.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "tests/fuzz/targets.h"

namespace {

using scourwell::test::FuzzTarget;

const FuzzTarget* target = nullptr;

void WriteSeeds(const std::string& folder) {
  int number = 0;
  for (const std::string& seed : target->seeds()) {
    const std::string path = folder + "/seed" + std::to_string(number++);
    if (std::FILE* file = std::fopen(path.c_str(), "wb")) {
      std::fwrite(seed.data(), 1, seed.size(), file);
      std::fclose(file);
    }
  }
}

}  // namespace

namespace scourwell::test {

void Demand(bool holds, const char* promise) {
  if (holds) return;
  std::fprintf(stderr, "broken promise: %s\n", promise);
  std::abort();
}

}  // namespace scourwell::test

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  const char* name = std::getenv("FUZZ_TARGET");
  for (const auto& targets : {scourwell::test::FileTargets(), scourwell::test::LineTargets(),
                              scourwell::test::ScriptTargets()}) {
    for (const FuzzTarget& each : targets) {
      if (name && std::strcmp(name, each.name) == 0) target = &each;
    }
  }
  if (!target) {
    std::fprintf(stderr, "FUZZ_TARGET must name one of the targets\n");
    std::exit(64);
  }
  if (const char* seeds = std::getenv("FUZZ_SEEDS")) WriteSeeds(seeds);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  target->run({reinterpret_cast<const char*>(data), size});
  return 0;
}
