// SPDX-License-Identifier: MIT
#include "results/report_html.h"

#include <utility>

#include "scan/finding_texts.h"

namespace scourwell {
namespace {

void PutSums(const Captions& captions, const std::vector<ReportRow>& rows, ReportPage* page) {
  ReportSums kinds;
  ReportSums spies;
  for (const ReportRow& row : rows) {
    ++kinds[KindText(captions, KindOf(row.finding.object))];
    ++spies[row.finding.spy];
  }
  const auto text = [&](Caption caption) { return captions.Text(caption); };
  page->Sums(text(Caption::ReportByKind), text(Caption::ColumnHitType), kinds);
  page->Sums(text(Caption::ReportBySpy), text(Caption::ColumnHitSystem), spies);
}

void PutRow(const Captions& captions, const ReportRow& row, ReportPage* page) {
  const bool bad = row.result && !row.result->done();
  std::string place = PlaceText(row.finding.object);
  if (!row.finding.user.empty()) place += " [" + row.finding.user + "]";
  page->Row({{KindText(captions, KindOf(row.finding.object)), ReportPage::kWord},
             {row.finding.spy},
             {std::move(place), ReportPage::kPlace},
             {CertaintyText(captions, row.finding.certainty), ReportPage::kWord},
             {row.result ? RemovalStateText(captions, *row.result)
                         : captions.Text(Caption::StateNotTried),
              bad          ? ReportPage::kBad
              : row.result ? std::string_view()
                           : ReportPage::kWord}});
}

}  // namespace

std::vector<ReportRow> ReportRowsOf(const HitList& hits) {
  std::vector<ReportRow> rows;
  for (std::size_t i = 0; i < hits.size(); ++i) {
    rows.push_back({hits.row(i).finding, hits.row(i).result});
  }
  return rows;
}

std::vector<std::string> ReportColumns(const Captions& captions) {
  std::vector<std::string> columns;
  for (const Caption column :
       {Caption::ColumnHitType, Caption::ColumnHitSystem, Caption::ColumnHitDetails,
        Caption::ColumnCertainty, Caption::ColumnState}) {
    columns.push_back(captions.Text(column));
  }
  return columns;
}

std::string ReportHtml(const Captions& captions, const Report& report) {
  std::string html;
  ReportPage page(captions, [&](std::string_view piece) { html += piece; });
  page.Begin({report.program, report.definitions, report.time});
  if (report.rows.empty()) {
    page.Paragraph(report.without_rows);
  } else {
    PutSums(captions, report.rows, &page);
    page.BeginTable(ReportColumns(captions));
    for (int rank = 0; rank < kRanks; ++rank) {
      for (const ReportRow& row : report.rows) {
        if (RankOf(row.result) == rank) PutRow(captions, row, &page);
      }
    }
    page.EndTable();
  }
  page.End();
  return html;
}

Outcome WriteReport(Files& files, const std::string& path, const Captions& captions,
                    const Report& report) {
  Outcome written = files.Replace(path, ReportHtml(captions, report));
  return written.ok() ? Outcome() : std::move(written).With("File: ", path);
}

}  // namespace scourwell
