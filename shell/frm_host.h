// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace scourwell {

// What the pages ask of the main window.
class FormHost {
 public:
  virtual ~FormHost() = default;

  // Carries out a command of the main menu once the messages at hand are done: it may destroy the
  // page that asks. `method` stands in error records about it; null: the command's own name.
  virtual void PostCommand(int id, const char* method = nullptr) = 0;
  // Why a command cannot do its work now, for a tool-tip; empty: it can.
  virtual std::string Hindrance(int id) const = 0;
  // A scan began or ended, or another pane of the page came up: what may be done has changed.
  virtual void PageChanged() = 0;
  // The scan has got further.
  virtual void ShowProgress() = 0;
};

}  // namespace scourwell
