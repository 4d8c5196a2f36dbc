// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include "platform/terminal.h"

namespace scourwell {

// A console shows texts in its own way; what goes into a file or to a program stays UTF-8.
class TerminalWin : public Terminal {
 public:
  // From here on Ctrl+C is told, and ends nothing by itself.
  TerminalWin();

  bool Write(std::string_view text) override;
  void WriteError(std::string_view text) override;
  std::optional<std::string> ReadLine() override;
  bool ShowsOutput() const override { return output_.console; }
  bool ShowsErrors() const override { return errors_.console; }
  bool AsksUser() const override { return input_.console; }
  bool KnowsEscapes() const override { return false; }  // only Windows 10 and later know them
  int Width() const override;
  bool Interrupted() const override;

 private:
  struct Stream {
    explicit Stream(DWORD which);
    HANDLE handle;
    bool console;
  };

  static bool WriteTo(const Stream& stream, std::string_view text);

  Stream output_{STD_OUTPUT_HANDLE};
  Stream errors_{STD_ERROR_HANDLE};
  Stream input_{STD_INPUT_HANDLE};
};

}  // namespace scourwell
