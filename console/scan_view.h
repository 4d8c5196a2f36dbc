// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "console/records.h"
#include "platform/clock.h"
#include "platform/terminal.h"
#include "scan/scan_progress.h"
#include "scan/time_left.h"

namespace scourwell {

// What a scan shows: its findings as they come on the output, in one of three formats, and how far
// it is on one line of the errors, where somebody sees that.
class ScanView {
 public:
  enum class Format { Text, Csv, Json };

  ScanView(Terminal& terminal, Format format, bool progress)
      : terminal_(terminal),
        format_(format),
        colours_(terminal.ShowsOutput() && terminal.KnowsEscapes()),
        progress_(progress && terminal.ShowsErrors()) {}

  void Show(const FindingRecord& record);
  void End(const ScanSummary& summary);
  // Cheap unless some time has passed.
  void ShowProgress(const ScanProgress& progress, Clock& clock);
  // Before anything else is written.
  void HideProgress();
  // One line of the errors.
  void Say(std::string_view text);

  // Whether everything could be written.
  bool written() const { return written_; }

 private:
  void Put(std::string_view text) { written_ = written_ && terminal_.Write(text); }
  std::string TextLine(const FindingRecord& record) const;
  void EndText(const ScanSummary& summary);
  void SayPlaces(const std::string& what, const std::vector<UnreadPlace>& places);

  Terminal& terminal_;
  Format format_;
  bool colours_;
  bool progress_;
  bool written_ = true;
  bool begun_ = false;
  std::size_t shown_ = 0;  // characters of the line of progress
  std::uint32_t last_ = 0;
  TimeLeft time_left_;
};

}  // namespace scourwell
