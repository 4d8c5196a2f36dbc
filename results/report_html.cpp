// SPDX-License-Identifier: MIT
#include "results/report_html.h"

#include <initializer_list>
#include <map>
#include <string_view>
#include <utility>

#include "scan/finding_texts.h"
#include "text/escaped.h"

namespace scourwell {
namespace {

// Old browsers read it as well as new ones; on paper a row is not torn apart.
constexpr char kHead[] =
    "<!DOCTYPE html>\r\n<html>\r\n<head>\r\n"
    "<meta http-equiv=\"Content-Type\" content=\"text/html; charset=utf-8\">\r\n";
constexpr char kStyle[] =
    "<style type=\"text/css\">\r\n"
    "body { font-family: Tahoma, Verdana, Arial, sans-serif; font-size: 10pt; margin: 2em }\r\n"
    "table { border-collapse: collapse; margin: 0.5em 0 1.5em 0 }\r\n"
    "th, td { border: 1px solid #A9B4BC; padding: 3px 8px; text-align: left;"
    " vertical-align: top }\r\n"
    "th { background: #DCE8EE }\r\n"
    ".place { word-wrap: break-word; word-break: break-all }\r\n"
    ".bad { color: #C41E1E; font-weight: bold }\r\n"
    "@media print { body { margin: 0; font-size: 8pt } tr { page-break-inside: avoid } }\r\n"
    "</style>\r\n";

std::string Html(std::string_view text) {
  std::string html;
  for (const char c : ForShowing(text)) {
    switch (c) {
      case '&':
        html += "&amp;";
        break;
      case '<':
        html += "&lt;";
        break;
      case '>':
        html += "&gt;";
        break;
      case '"':
        html += "&quot;";
        break;
      case '\'':
        html += "&#39;";
        break;
      default:
        html += c;
    }
  }
  return html;
}

std::string Element(std::string_view name, std::string_view text, std::string_view kind = {}) {
  std::string html = "<" + std::string(name);
  if (!kind.empty()) html.append(" class=\"").append(kind).append("\"");
  return html + ">" + Html(text) + "</" + std::string(name) + ">";
}

std::string HeadRow(const Captions& captions, std::initializer_list<Caption> columns) {
  std::string row = "<tr>";
  for (const Caption column : columns) row += Element("th", captions.Text(column));
  return row + "</tr>\r\n";
}

using Sums = std::map<std::string, std::size_t, NoCaseLess>;

std::string SumsTable(const Captions& captions, Caption heading, Caption column, const Sums& sums) {
  std::string html = Element("h2", captions.Text(heading)) + "\r\n<table>\r\n" +
                     HeadRow(captions, {column, Caption::ColumnCount});
  for (const auto& [name, count] : sums) {
    html += "<tr>" + Element("td", name) + Element("td", std::to_string(count)) + "</tr>\r\n";
  }
  return html + "</table>\r\n";
}

std::string RowsTable(const Captions& captions, const std::vector<ReportRow>& rows) {
  std::vector<const ReportRow*> ordered;
  for (int rank = 0; rank < kRanks; ++rank) {
    for (const ReportRow& row : rows) {
      if (RankOf(row.result) == rank) ordered.push_back(&row);
    }
  }
  std::string html =
      "<table>\r\n" + HeadRow(captions, {Caption::ColumnHitType, Caption::ColumnHitSystem,
                                         Caption::ColumnHitDetails, Caption::ColumnState});
  for (const ReportRow* row : ordered) {
    const bool bad = row->result && !row->result->done();
    html += "<tr>" + Element("td", KindText(captions, KindOf(row->finding.object))) +
            Element("td", row->finding.spy) +
            Element("td", PlaceText(row->finding.object), "place") +
            Element("td",
                    row->result ? RemovalStateText(captions, *row->result)
                                : captions.Text(Caption::StateNotTried),
                    bad ? "bad" : "") +
            "</tr>\r\n";
  }
  return html + "</table>\r\n";
}

}  // namespace

std::vector<ReportRow> ReportRowsOf(const HitList& hits) {
  std::vector<ReportRow> rows;
  for (std::size_t i = 0; i < hits.size(); ++i) {
    rows.push_back({hits.row(i).finding, hits.row(i).result});
  }
  return rows;
}

std::string ReportHtml(const Captions& captions, const Report& report) {
  const std::string heading = captions.Text(Caption::ReportHeading);
  std::string html = kHead + Element("title", heading) + "\r\n" + kStyle + "</head>\r\n<body>\r\n" +
                     Element("h1", heading) + "\r\n" + Element("p", report.program) + "\r\n";
  html += Element("p", captions.Text(Caption::DefinitionsNumber) + " " + report.definitions);
  html += "\r\n" + Element("p", captions.Text(Caption::ReportTime) + " " + report.time) + "\r\n";
  if (report.rows.empty()) {
    html += Element("p", report.without_rows) + "\r\n";
  } else {
    Sums kinds;
    Sums spies;
    for (const ReportRow& row : report.rows) {
      ++kinds[KindText(captions, KindOf(row.finding.object))];
      ++spies[row.finding.spy];
    }
    html += RowsTable(captions, report.rows);
    html += SumsTable(captions, Caption::ReportByKind, Caption::ColumnHitType, kinds);
    html += SumsTable(captions, Caption::ReportBySpy, Caption::ColumnHitSystem, spies);
  }
  return html + "</body>\r\n</html>\r\n";
}

Outcome WriteReport(Files& files, const std::string& path, const Captions& captions,
                    const Report& report) {
  Outcome written = files.Replace(path, ReportHtml(captions, report));
  return written.ok() ? Outcome() : std::move(written).With("File: ", path);
}

}  // namespace scourwell
