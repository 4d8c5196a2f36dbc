// SPDX-License-Identifier: MIT
#include "results/report_page.h"

#include <algorithm>

#include "text/escaped.h"

namespace scourwell {
namespace {

constexpr std::uint64_t kLongestBar = 240;  // points of the drawing

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
    ".name { overflow-wrap: anywhere; min-width: 6em }\r\n"
    ".word { white-space: nowrap }\r\n"
    ".bad { color: #C41E1E; font-weight: bold }\r\n"
    "thead { display: table-header-group }\r\n"
    "h1, h2 { page-break-after: avoid }\r\n"
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

// Nothing of it is a text, and a number that is shown is never no bar at all.
std::string Bar(std::uint64_t count, std::uint64_t most) {
  const std::string length = std::to_string(std::max<std::uint64_t>(1, count * kLongestBar / most));
  return "<td><svg width=\"" + std::to_string(kLongestBar) +
         "\" height=\"12\" aria-hidden=\"true\">" + "<rect width=\"" + length +
         "\" height=\"12\" fill=\"#2F7EA8\"/></svg></td>";
}

}  // namespace

void ReportPage::Begin(const ReportHead& head) {
  const std::string heading = Text(Caption::ReportHeading);
  put_(kHead + Element("title", heading) + "\r\n" + kStyle + "</head>\r\n<body>\r\n" +
       Element("h1", heading) + "\r\n");
  Paragraph(head.program);
  Paragraph(Text(Caption::DefinitionsNumber) + " " + head.definitions);
  Paragraph(Text(Caption::ReportTime) + " " + head.time);
}

void ReportPage::Paragraph(std::string_view text) { put_(Element("p", text) + "\r\n"); }

void ReportPage::Sums(std::string_view heading, std::string_view column, const ReportSums& sums) {
  put_(Element("h2", heading) + "\r\n");
  BeginTable({std::string(column), Text(Caption::ColumnCount), ""});
  std::uint64_t most = 1;
  for (const auto& [name, count] : sums) most = std::max(most, count);
  for (const auto& [name, count] : sums) {
    put_("<tr>" + Element("td", name) + Element("td", std::to_string(count)) + Bar(count, most) +
         "</tr>\r\n");
  }
  EndTable();
}

void ReportPage::BeginTable(const std::vector<std::string>& columns) {
  std::string row = "<table>\r\n<thead><tr>";
  for (const std::string& column : columns) row += Element("th", column);
  put_(row + "</tr></thead>\r\n<tbody>\r\n");
}

void ReportPage::Row(const std::vector<Cell>& cells) {
  std::string row = "<tr>";
  for (const Cell& cell : cells) row += Element("td", cell.text, cell.kind);
  put_(row + "</tr>\r\n");
}

void ReportPage::EndTable() { put_("</tbody></table>\r\n"); }

void ReportPage::End() { put_("</body>\r\n</html>\r\n"); }

}  // namespace scourwell
