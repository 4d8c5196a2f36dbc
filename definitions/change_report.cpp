// SPDX-License-Identifier: MIT
#include "definitions/change_report.h"

#include <algorithm>

#include "text/text.h"
#include "text/unicode.h"

namespace scourwell {
namespace {

constexpr char kSection[] = "REFFILE";
constexpr char kKey[] = "Number";
constexpr std::size_t kLongestLine = 400;

constexpr Caption kLabels[kReleaseValues.size()] = {Caption::UpdateFile, Caption::ComponentsUpdated,
                                                    Caption::ComponentsAdded,
                                                    Caption::ComponentsRemoved};

// Of a list, whole names.
std::string Shortened(const std::string& line) {
  if (line.size() <= kLongestLine) return line;
  const std::string_view shown = WholeCharacters(line, kLongestLine);
  const std::size_t comma = shown.rfind(", ");
  return std::string(comma == shown.npos ? shown : shown.substr(0, comma + 2)) + "...";
}

}  // namespace

std::string ReleaseLines(const Captions& captions, const ReleaseTexts& release) {
  std::string lines;
  for (std::size_t i = 0; i < release.size(); ++i) {
    lines += captions.Text(kLabels[i]) + " " +
             (release[i].empty() ? captions.Text(Caption::NoComponents) : release[i]) + "\r\n";
  }
  return lines;
}

std::string WithShortLines(const std::string& text) {
  std::string report;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find("\r\n", begin), text.size());
    report += Shortened(text.substr(begin, end - begin));
    if (end < text.size()) report += "\r\n";
    begin = end + 2;
  }
  return report;
}

std::string ChangeReport::checkUpdateRefFileChanges() {
  std::string summary;
  log_.Trap("checkUpdateRefFileChanges", [&]() -> Outcome {
    const auto read = [&](const ReleaseValue& value) {
      return reference_.updateListfromINI(value.section, value.key);
    };
    ReleaseTexts release = {read(kReleaseValues[0])};
    const std::string_view number = TrimBlanks(release[0]);
    if (number.empty() || EqualsNoCase(number, TrimBlanks(kept_.Get(kSection, kKey)))) return {};
    // First, so that a summary is never seen twice.
    if (Outcome stored = kept_.Set(kSection, kKey, release[0]); !stored.ok()) return stored;
    for (std::size_t i = 1; i < release.size(); ++i) release[i] = read(kReleaseValues[i]);
    summary = ReleaseLines(captions_, release);
    return {};
  });
  return summary;
}

}  // namespace scourwell
