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
    const std::string release = reference_.updateListfromINI("SETTINGS", "UPDATE-FILE-NUMBER");
    const std::string_view number = TrimBlanks(release);
    if (number.empty() || EqualsNoCase(number, TrimBlanks(kept_.Get(kSection, kKey)))) return {};
    // First, so that a summary is never seen twice.
    if (Outcome stored = kept_.Set(kSection, kKey, release); !stored.ok()) return stored;
    summary = Line(Caption::UpdateFile, release) +
              Line(Caption::ComponentsUpdated, TextOrNone("SPYWARE DEFINITIONS UPDATED", "SDU0")) +
              Line(Caption::ComponentsAdded, TextOrNone("SPYWARE DEFINITIONS ADDED", "SDA0")) +
              Line(Caption::ComponentsRemoved, TextOrNone("SPYWARE DEFINITIONS REMOVED", "SDR0"));
    return {};
  });
  return summary;
}

std::string ChangeReport::Line(Caption label, const std::string& value) const {
  return captions_.Text(label) + " " + value + "\r\n";
}

std::string ChangeReport::TextOrNone(const char* section, const char* key) {
  std::string text = reference_.updateListfromINI(section, key);
  return text.empty() ? captions_.Text(Caption::NoComponents) : text;
}

}  // namespace scourwell
