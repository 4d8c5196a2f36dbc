#pragma once

#include "widgets/pane.h"

namespace scourwell {

// Shows that work goes on whose end cannot be foretold: a group of blocks that wanders along. The
// system's own bar learnt this only with Windows XP.
class ActivityBar : public Pane {
 public:
  enum class State { Idle, Moving, Done };

  explicit ActivityBar(const WindowEnv& env) : Pane(env, "ScourwellActivityBar") {}

  void SetState(State state);
  // One step further while moving.
  void Step();

 protected:
  LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;
  void OnPaint(HDC dc) override;

 private:
  bool Filled(int block, int blocks) const;

  State state_ = State::Idle;
  int step_ = 0;
};

}  // namespace scourwell
