// SPDX-License-Identifier: MIT

// bench TREE walk: the time of one bare walk. bench FOLDER versions: that of reading the version
// texts of its files once. bench PROGRAM ARGUMENT watch: starts it and tells what can be seen of
// it. bench TREE SCRATCH COOKIES [PART | definitions FOLDER FOLDER]: prints the figures of
// bench/README.md, or one part of them. Run it with bench/run.
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
  using std::string_view;
  if (count == 3 && words[2] == string_view("walk")) {
    BenchWalk(words[1]);
    return 0;
  }
  if (count == 3 && words[2] == string_view("versions")) {
    ReadVersionsOnce(words[1]);
    return 0;
  }
  if (count == 4 && words[3] == string_view("watch")) {
    WatchProgram(words[1], words[2]);
    return 0;
  }
  if (count < 4) return 2;
  const string_view part = count > 4 ? words[4] : "";
  if (part == "definitions" && count > 6) {
    BenchDefinitions(words[1], words[5], words[6]);
    return 0;
  }
  const auto chosen = [&](string_view name) { return part.empty() || part == name; };
  if (chosen("passes")) BenchPasses(words[1]);
  if (chosen("loading")) BenchLoading(words[2]);
  if (chosen("phases")) BenchPhases(words[3], words[2]);
  if (chosen("reading")) BenchReading(words[2]);
  if (chosen("archive")) BenchArchive(words[2]);
  if (chosen("ignoring")) BenchIgnoring(words[2]);
  PrintMemory("that");
  return 0;
}
