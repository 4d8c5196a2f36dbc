// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "text/captions.h"
#include "text/text.h"

namespace scourwell {

struct ReportHead {
  std::string program;      // with its version
  std::string definitions;  // the number of their release
  std::string time;
};

using ReportSums = std::map<std::string, std::uint64_t, NoCaseLess>;

// A page of HTML that needs no other file, in UTF-8, written piece by piece: one of a million rows
// takes no room for them. Every text is escaped: what a spy is called cannot become a part of the
// page. The drawings are bars in tables, so that a browser that cannot draw shows the numbers.
class ReportPage {
 public:
  using Put = std::function<void(std::string_view html)>;

  ReportPage(const Captions& captions, Put put) : captions_(captions), put_(std::move(put)) {}

  void Begin(const ReportHead& head);
  void Paragraph(std::string_view text);
  // Numbers under names, the largest with the longest bar.
  void Sums(std::string_view heading, std::string_view column, const ReportSums& sums);
  // A table: its columns, then its rows.
  void BeginTable(const std::vector<std::string>& columns);
  struct Cell {
    std::string text;
    std::string_view kind = {};  // one of those below
  };
  void Row(const std::vector<Cell>& cells);
  void EndTable();
  void End();

  static constexpr std::string_view kPlace = "place";  // broken anywhere
  static constexpr std::string_view kName = "name";    // broken where it is too long
  static constexpr std::string_view kWord = "word";    // never broken
  static constexpr std::string_view kBad = "bad";      // what went wrong

 private:
  std::string Text(Caption caption) const { return captions_.Text(caption); }

  const Captions& captions_;
  Put put_;
};

}  // namespace scourwell
