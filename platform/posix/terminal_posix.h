// SPDX-License-Identifier: MIT
#pragma once

#include "platform/terminal.h"

namespace scourwell {

class TerminalPosix : public Terminal {
 public:
  // From here on Ctrl+C and a closed pipe are told, and end nothing by themselves.
  TerminalPosix();

  bool Write(std::string_view text) override;
  void WriteError(std::string_view text) override;
  std::optional<std::string> ReadLine() override;
  bool ShowsOutput() const override;
  bool ShowsErrors() const override;
  bool AsksUser() const override;
  bool KnowsEscapes() const override;
  int Width() const override;
  bool Interrupted() const override;
};

}  // namespace scourwell
