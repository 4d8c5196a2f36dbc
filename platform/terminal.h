// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace scourwell {

// The three ways of a program without windows. Texts are UTF-8, whatever the console's own code
// page is.
class Terminal {
 public:
  virtual ~Terminal() = default;

  // False when it could not be written, as to a pipe that nobody reads any more.
  virtual bool Write(std::string_view text) = 0;
  virtual void WriteError(std::string_view text) = 0;
  // A line without its end; none when there is no more.
  virtual std::optional<std::string> ReadLine() = 0;

  // Whether somebody sees it, else it goes into a file or to a program.
  virtual bool ShowsOutput() const = 0;
  virtual bool ShowsErrors() const = 0;
  virtual bool AsksUser() const = 0;
  // Whether the escape sequences of colours and lines mean something there.
  virtual bool KnowsEscapes() const = 0;
  // Characters of a line of the errors, where they are shown.
  virtual int Width() const = 0;

  // True once the user has asked for an end (Ctrl+C).
  virtual bool Interrupted() const = 0;
};

}  // namespace scourwell
