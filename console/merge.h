// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "console/json_text.h"
#include "console/records.h"
#include "platform/files.h"
#include "results/report_page.h"

namespace scourwell {

// One page of the JSON lines of many scans. Files are read twice, a block at a time: once for the
// sums and once for the rows, so that room is needed for the names of spies alone.
class MergedReport {
 public:
  struct Input {
    std::string name;  // as the user gave it
    std::string path;  // in `files`
  };

  MergedReport(Files& files, const Captions& captions) : files_(files), captions_(captions) {}

  Outcome Write(std::vector<Input> inputs, const ReportHead& head, const std::string& path);

  // Inputs that could not be read, broke off, or were not finished, with the reason.
  const std::vector<UnreadPlace>& incomplete() const { return incomplete_; }
  std::uint64_t rows() const { return rows_; }

 private:
  using TakeLine = std::function<void(const JsonValue& line)>;

  bool IsSameFile(const std::string& a, const std::string& b);
  // Whether the input could be read to its end.
  Outcome ReadLines(const Input& input, const TakeLine& take);
  void Sum(const Input& input);
  void Show(const Input& input, ReportPage* page);
  void ShowInputs(ReportPage* page) const;

  Files& files_;
  const Captions& captions_;
  ReportSums kinds_;
  ReportSums spies_;
  std::map<std::string, std::uint64_t> machines_;
  std::vector<UnreadPlace> incomplete_;
  std::uint64_t rows_ = 0;
};

}  // namespace scourwell
