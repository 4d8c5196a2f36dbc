// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "platform/pump.h"
#include "platform/terminal.h"

namespace scourwell {

// Ends long work once the user has asked for it, and gives a sign of life now and then.
class ConsolePump : public Pump {
 public:
  explicit ConsolePump(const Terminal& terminal) : terminal_(terminal) {}

  std::function<void()> on_beat;

 protected:
  void YieldNow() override {
    if (terminal_.Interrupted()) set_closing(true);
    if (++yields_ % kBeat == 0 && on_beat) on_beat();
  }

 private:
  static constexpr unsigned kBeat = 64;

  const Terminal& terminal_;
  unsigned yields_ = 0;
};

}  // namespace scourwell
