// SPDX-License-Identifier: MIT
#include "definitions/change_report.h"

#include "text/text.h"

namespace scourwell {
namespace {

constexpr char kSection[] = "REFFILE";
constexpr char kKey[] = "Number";

}  // namespace

std::string ChangeReport::checkUpdateRefFileChanges() {
  std::string summary;
  log_.Trap("checkUpdateRefFileChanges", [&]() -> Outcome {
    const std::string release =
        reference_.updateListfromINI(kReleaseValues[0].section, kReleaseValues[0].key);
    const std::string_view number = TrimBlanks(release);
    if (number.empty() || EqualsNoCase(number, TrimBlanks(kept_.Get(kSection, kKey)))) return {};
    // First, so that a summary is never seen twice.
    if (Outcome stored = kept_.Set(kSection, kKey, release); !stored.ok()) return stored;
    summary = Line(Caption::UpdateFile, release) +
              Line(Caption::ComponentsUpdated, TextOrNone(kReleaseValues[1])) +
              Line(Caption::ComponentsAdded, TextOrNone(kReleaseValues[2])) +
              Line(Caption::ComponentsRemoved, TextOrNone(kReleaseValues[3]));
    return {};
  });
  return summary;
}

std::string ChangeReport::Line(Caption label, const std::string& value) const {
  return captions_.Text(label) + " " + value + "\r\n";
}

std::string ChangeReport::TextOrNone(const ReleaseValue& value) {
  std::string text = reference_.updateListfromINI(value.section, value.key);
  return text.empty() ? captions_.Text(Caption::NoComponents) : text;
}

}  // namespace scourwell
