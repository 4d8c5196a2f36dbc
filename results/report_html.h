// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/files.h"
#include "results/hit_list.h"
#include "results/removal_result.h"
#include "results/report_page.h"
#include "scan/finding.h"
#include "text/captions.h"

namespace scourwell {

struct ReportRow {
  Finding finding;
  std::optional<RemovalResult> result;  // none: nothing tried to remove it
};

// What a report tells: a page that needs no other file, to be printed or sent to somebody.
struct Report {
  std::string program;      // with its version
  std::string definitions;  // the number of their release
  std::string time;
  std::vector<ReportRow> rows;  // what is still there comes first in the page
  std::string without_rows;     // what is true of a scan that lists nothing
};

// The rows of the results list.
std::vector<ReportRow> ReportRowsOf(const HitList& hits);

// What a row of findings says, column by column.
std::vector<std::string> ReportColumns(const Captions& captions);

// The page, with its sums above its rows.
std::string ReportHtml(const Captions& captions, const Report& report);

// A failure leaves the file that was there.
Outcome WriteReport(Files& files, const std::string& path, const Captions& captions,
                    const Report& report);

}  // namespace scourwell
