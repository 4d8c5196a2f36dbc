// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include <string>

namespace scourwell::ui {

// Takes pictures of windows with a command of the system that Wine runs on.
class Camera {
 public:
  // `folder`: a path of that system; empty: no pictures are taken.
  explicit Camera(std::string folder) : folder_(std::move(folder)) {}

  bool ready() const { return !folder_.empty(); }
  // False when there is no picture after some seconds.
  bool Take(HWND window, const std::string& name) const;

 private:
  std::string folder_;
};

}  // namespace scourwell::ui
