// SPDX-License-Identifier: MIT

// bench TREE walk: the time of one bare walk. bench FOLDER versions: that of reading the version
// texts of its files once. bench TREE SCRATCH COOKIES [archive | ignoring | definitions FOLDER
// FOLDER]: prints the figures of bench/README.md, or only some. Run it with bench/run.
#include "bench/bench.h"

#include <psapi.h>

#include <string_view>

#include "platform/win/late_bind.h"

namespace scourwell::bench {

void PrintMemory(const char* after) {
  using GetInfo = BOOL(WINAPI*)(HANDLE, PPROCESS_MEMORY_COUNTERS, DWORD);
  const auto get = LateBind<GetInfo>("psapi.dll", "GetProcessMemoryInfo");
  PROCESS_MEMORY_COUNTERS counters = {};
  counters.cb = sizeof counters;
  if (!get || !get(GetCurrentProcess(), &counters, sizeof counters)) return;
  std::printf("peak working set after %s: %.1f MB\n", after,
              static_cast<double>(counters.PeakWorkingSetSize) / 1048576.0);
}

}  // namespace scourwell::bench

int main(int count, char** words) {
  using namespace scourwell::bench;
  if (count == 3 && std::string_view(words[2]) == "walk") {
    BenchWalk(words[1]);
    return 0;
  }
  if (count == 3 && std::string_view(words[2]) == "versions") {
    ReadVersionsOnce(words[1]);
    return 0;
  }
  if (count < 4) return 2;
  if (count > 4 && std::string_view(words[4]) == "archive") {
    BenchArchive(words[2]);
    return 0;
  }
  if (count > 4 && std::string_view(words[4]) == "ignoring") {
    BenchIgnoring(words[2]);
    return 0;
  }
  if (count > 6 && std::string_view(words[4]) == "definitions") {
    BenchDefinitions(words[1], words[5], words[6]);
    return 0;
  }
  BenchPasses(words[1]);
  PrintMemory("the passes");
  BenchLoading(words[2]);
  PrintMemory("loading");
  BenchPhases(words[3], words[2]);
  BenchReading(words[2]);
  BenchArchive(words[2]);
  BenchIgnoring(words[2]);
  return 0;
}
