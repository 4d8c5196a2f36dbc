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

void BenchPasses(const char* tree);
void BenchPhases(const char* cookies, const char* scratch_folder);
void BenchLoading(const char* scratch_folder);
void PrintMemory(const char* after);

}  // namespace scourwell::bench
