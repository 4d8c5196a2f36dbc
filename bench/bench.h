// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <vector>

#include "platform/pump.h"

namespace scourwell::bench {

// Milliseconds since some start, with microsecond resolution.
inline double Milliseconds() {
  LARGE_INTEGER count;
  LARGE_INTEGER frequency;
  QueryPerformanceCounter(&count);
  QueryPerformanceFrequency(&frequency);
  return 1000.0 * static_cast<double>(count.QuadPart) / static_cast<double>(frequency.QuadPart);
}

template <class Work>
double Measure(Work&& work) {
  const double start = Milliseconds();
  work();
  return Milliseconds() - start;
}

struct Figures {
  std::vector<double> values;

  double Median() {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
  }
  double Min() { return *std::min_element(values.begin(), values.end()); }
  double Max() { return *std::max_element(values.begin(), values.end()); }
};

// Remembers the longest time between two yields: that long the Stop button may stay unanswered.
class GapPump : public Pump {
 public:
  void Restart() {
    longest_ = 0;
    last_ = Milliseconds();
  }
  double longest() const { return longest_; }

 protected:
  void YieldNow() override {
    const double now = Milliseconds();
    longest_ = std::max(longest_, now - last_);
    last_ = now;
  }

 private:
  double last_ = 0;
  double longest_ = 0;
};

// Seven rounds of both, in turn; prints them as one line. Our work yields to the pump.
template <class Bare, class Ours>
void Compare(const char* what, GapPump& pump, Bare&& bare_work, Ours&& our_work) {
  Figures bare, ours, ratio;
  double gap = 0;
  bare_work();
  for (int i = 0; i < 7; ++i) {
    bare.values.push_back(Measure(bare_work));
    pump.Restart();
    ours.values.push_back(Measure(our_work));
    gap = std::max(gap, pump.longest());
    ratio.values.push_back(ours.values.back() / bare.values.back());
  }
  std::printf(
      "%-34s bare %6.1f ms, ours %6.1f ms, ratio %.2f (%.2f to %.2f), longest time "
      "between yields %.1f ms\n",
      what, bare.Median(), ours.Median(), ratio.Median(), ratio.Min(), ratio.Max(), gap);
}

void BenchArchive(const char* scratch_folder);
void BenchDefinitions(const char* tree, const char* old_folder, const char* new_folder);
void BenchPasses(const char* tree);
void BenchWalk(const char* tree);
void BenchPhases(const char* cookies, const char* scratch_folder);
// Of the files right inside the folder, by the system's own reader.
void ReadVersionsOnce(const char* folder);
void BenchReading(const char* scratch_folder);
void BenchIgnoring(const char* scratch_folder);
void BenchLoading(const char* scratch_folder);
// Until it ends.
void WatchProgram(const char* program, const char* argument);
void PrintMemory(const char* after);

}  // namespace scourwell::bench
