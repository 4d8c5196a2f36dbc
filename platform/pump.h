// SPDX-License-Identifier: MIT
#pragma once

namespace scourwell {

// The yield of every long loop, together with the process-wide closing flag that doubles as the
// stop flag of a scan. Loops call `if (!pump.Next()) return;` once per item.
class Pump {
 public:
  virtual ~Pump() = default;

  // Lets the message loop run (as often as it needs to stay live) and says whether to go on.
  bool Next() {
    if (!closing_) YieldNow();
    return !closing_;
  }

  bool closing() const { return closing_; }
  void set_closing(bool closing) { closing_ = closing; }

 protected:
  virtual void YieldNow() = 0;  // "Yield" itself is a macro of the Windows headers

 private:
  bool closing_ = false;
};

}  // namespace scourwell
