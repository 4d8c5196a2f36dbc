// SPDX-License-Identifier: MIT
#include "scan/time_left.h"

#include <doctest/doctest.h>

#include <functional>

#include "tests/helpers.h"

namespace scourwell::test {
namespace {

// A phase that is looked at as the window does it, on a clock that is about to wrap.
struct Watch {
  PhaseMeter meter;
  TimeLeft left;
  std::uint32_t ticks = UINT32_MAX - 30000;

  explicit Watch(std::uint32_t total) { Begin(total); }
  void Begin(std::uint32_t total) {
    meter.Begin(total);
    meter.BeginPortion(total);
    left.Update(ticks, meter);
  }
  // Goes on for so long, with so many steps a second.
  void Run(double seconds, double speed, const std::function<void(double)>& look = {}) {
    double steps = 0;
    for (double now = 0; now < seconds; now += 0.06) {
      for (steps += speed * 0.06; steps >= 1; --steps) meter.Step();
      ticks += 60;
      left.Update(ticks, meter);
      if (look) look(now);
    }
  }
  int Shown() const { return left.Seconds() ? static_cast<int>(*left.Seconds()) : -1; }
};

}  // namespace

TEST_SUITE("time_left") {
  TEST_CASE("a steady phase is foretold and counted down") {
    for (const auto& [steps, speed, after, low, high] :
         Rows<std::uint32_t, double, double, int, int>{
             {3000, 10, 3.5, -1, -1},            // too early
             {3000, 0.5, 60, -1, -1},            // one percent
             {3000, 10, 240, 60, 70},            // upward, by ten seconds
             {3000, 10, 270, 30, 35},            // by five
             {30000, 10, 300, 45 * 60, 46 * 60}  // by minutes
         }) {
      CAPTURE(after);
      Watch w(steps);
      int last = INT32_MAX;
      w.Run(after, speed, [&](double) {
        if (w.Shown() < 0) return;
        CHECK(w.Shown() <= last);
        last = w.Shown();
      });
      CHECK(w.Shown() >= low);
      CHECK(w.Shown() <= high);
    }
  }

  TEST_CASE("it does not jump when the speed does, and learns the new one") {
    Watch w(6000);
    w.Run(60, 50);  // 3,000 steps left: a minute
    int last = w.Shown();
    CHECK(last >= 55);
    CHECK(last <= 70);
    const auto steady = [&](double) {
      CHECK(std::abs(w.Shown() - last) <= 20);
      last = w.Shown();
    };
    w.Run(1, 0, steady);  // one large folder
    w.Run(180, 10, steady);
    CHECK(last > 95);
    CHECK(last <= 125);  // 120 seconds
  }

  TEST_CASE("a standstill never shows less than nothing and a pause is no work") {
    Watch w(100);
    w.Run(20, 4.9);  // 98
    CHECK(w.Shown() == 5);
    w.Run(60, 0);
    CHECK(w.Shown() >= 5);
    Watch paused(1000);
    paused.Run(20, 10);
    const int before = paused.Shown();
    paused.ticks += 8 * 3600 * 1000;  // the machine slept
    paused.Run(1, 10);
    CHECK(std::abs(paused.Shown() - before) <= 30);
  }

  TEST_CASE("each phase begins anew, and one without a total says nothing") {
    Watch w(100);
    w.Run(10, 5);
    CHECK(w.Shown() > 0);
    w.Begin(0);
    CHECK(w.Shown() == -1);
    w.Run(20, 5);
    CHECK(w.Shown() == -1);
    w.Begin(100);
    w.Run(2, 20);
    CHECK(w.Shown() == -1);
    w.Run(5, 10);
    CHECK(w.Shown() > 0);
    w.meter.EndPortion();
    w.Run(1, 0);
    CHECK(w.Shown() == -1);  // through
  }

  TEST_CASE("as a clock") {
    CHECK(ClockText(5) == "00:05");
    CHECK(ClockText(605) == "10:05");
    CHECK(ClockText(3900) == "1:05:00");
  }
}

TEST_SUITE("phase_meter") {
  TEST_CASE("whatever really comes, a portion ends at its share and never before") {
    PhaseMeter meter;
    meter.Begin(10);
    meter.BeginPortion(4);
    for (int i = 0; i < 9; ++i) meter.Step();  // more than announced
    CHECK(meter.done() == 3);
    meter.EndPortion();
    CHECK(meter.done() == 4);
    meter.BeginPortion(0);
    meter.Step();
    meter.EndPortion();
    CHECK(meter.done() == 4);
    meter.BeginPortion(90);  // more than is left
    meter.Step();            // fewer than announced
    CHECK(Percent(meter.done(), meter.total()) == 50);
    meter.EndPortion();
    CHECK(Percent(meter.done(), meter.total()) == 100);
    CHECK(Percent(meter.done(), 0) == -1);
    CHECK(Percent(4294967295u, 4294967295u) == 100);
    CHECK(Percent(4294967294u, 4294967295u) == 99);
  }
}

}  // namespace scourwell::test
