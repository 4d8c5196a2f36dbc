// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/pane.h"

namespace scourwell {

// Shows that work goes on: as a growing row of blocks where its end is known, else as a group of
// blocks that wanders along. The system's own bar learnt the latter only with Windows XP.
class ActivityBar : public Pane {
 public:
  enum class State { Idle, Moving, Done };

  explicit ActivityBar(const WindowEnv& env) : Pane(env, "ScourwellActivityBar") {}

  // What a screen reader calls it.
  void SetName(const std::string& name);
  void SetState(State state);
  // While moving: how much is done, or -1 for one step further on an unknown way.
  void Step(int percent);

 protected:
  LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;
  void OnPaint(HDC dc) override;

 private:
  bool Filled(int block, int blocks) const;

  State state_ = State::Idle;
  int step_ = 0;
  int percent_ = -1;
};

}  // namespace scourwell
