// SPDX-License-Identifier: MIT
#pragma once

#include <array>

#include "widgets/control.h"

namespace scourwell {

// A status bar of three parts: the first takes what the others leave.
class StatusBar : public Control {
 public:
  enum Part { kState, kFound, kLanguage, kParts };

  void Create(const WindowEnv& env, HWND parent, int id);

  // Redraws only when the text is another one.
  void SetPart(Part part, const std::string& text);
  // Fits itself to the bottom of its parent and returns its height.
  int Fit();

 private:
  const Metrics* metrics_ = nullptr;
  std::array<std::string, kParts> texts_;
};

}  // namespace scourwell
