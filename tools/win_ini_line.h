// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace scourwell {

// The value of a "Load" or "Run" line: programs, parted by blanks and commas outside quotes. Every
// character between them is kept, so that taking a program out leaves the others as they stand.
class WinIniLine {
 public:
  explicit WinIniLine(std::string_view text);

  // The programs as they stand, with their quotes.
  const std::vector<std::string>& programs() const { return programs_; }
  std::string text() const { return Kept(std::vector<bool>(programs_.size(), true)); }
  void Replace(std::string_view program, std::string_view other);
  // At the end; before a last program whose quote is open, which would swallow what follows it.
  void Append(std::string_view program);
  // The line without the programs that `keep` says no to.
  std::string Kept(const std::vector<bool>& keep) const;
  // The programs that `line` still has, if it is this line with others taken out.
  std::optional<std::vector<bool>> FindKept(std::string_view line) const;

 private:
  std::vector<std::string> programs_;
  std::vector<std::string> gaps_;  // before each program, and behind the last
};

// The line without the first program that reads so; unchanged when there is none.
std::string WithoutProgram(std::string_view line, std::string_view program);

// The line with the first program that reads so replaced.
std::string WithOther(std::string_view line, std::string_view program, std::string_view other);

// The line with the program put back: in its old place when `line` is what is left of `original`,
// else at the end.
std::string WithProgram(std::string_view line, std::string_view program, std::string_view original);

// A path as it must stand in a line to stay one program.
std::string AsProgram(const std::string& path);

}  // namespace scourwell
