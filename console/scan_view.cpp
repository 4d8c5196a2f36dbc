// SPDX-License-Identifier: MIT
#include "console/scan_view.h"

#include <algorithm>

#include "text/escaped.h"
#include "text/text.h"
#include "text/unicode.h"

namespace scourwell {
namespace {

constexpr std::uint32_t kRedraw = 200;  // milliseconds
constexpr std::size_t kMostUnreadShown = 10;

std::size_t CharactersOf(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t at = 0; at < text.size(); ++count) NextCode(text, &at);
  return count;
}

std::string Cut(std::string_view text, std::size_t most) {
  std::size_t at = 0;
  for (std::size_t i = 0; i < most && at < text.size(); ++i) NextCode(text, &at);
  return std::string(text.substr(0, at));
}

// At least one blank parts the columns.
std::string Column(std::string text, std::size_t width) {
  const std::size_t size = CharactersOf(text);
  return text.append(size < width ? width - size : 1, ' ');
}

const char* ColourOf(std::string_view certainty) {
  if (certainty == "high") return "\x1b[31m";
  return certainty == "medium" ? "\x1b[33m" : "\x1b[36m";
}

}  // namespace

std::string ScanView::TextLine(const FindingRecord& record) const {
  std::string certainty = Column(record.certainty, 8);
  if (colours_) certainty = ColourOf(record.certainty) + certainty + "\x1b[0m";
  std::string line = Column(std::string(KindName(record.kind)), 9) + certainty +
                     Column(ForShowing(record.spy), 24) + ForShowing(PlaceOf(record));
  if (!record.user.empty()) line += " [" + ForShowing(record.user) + "]";
  if (!record.state.empty()) line += " (" + record.state + ")";
  return line + "\n";
}

void ScanView::Show(const FindingRecord& record) {
  HideProgress();
  if (!begun_ && format_ == Format::Csv) Put(CsvHead());
  if (!begun_ && format_ == Format::Text) Put("KIND     SURE    SPYWARE                 PLACE\n");
  begun_ = true;
  Put(format_ == Format::Csv    ? CsvLine(record)
      : format_ == Format::Json ? JsonLine(record)
                                : TextLine(record));
}

void ScanView::End(const ScanSummary& summary) {
  HideProgress();
  if (format_ == Format::Json) Put(JsonLine(summary));
  if (format_ == Format::Csv && !begun_) Put(CsvHead());
  if (format_ == Format::Text) EndText(summary);
  if (format_ == Format::Json) return;
  SayPlaces("not read: ", summary.unread);
  SayPlaces("failed: ", summary.failed);
}

void ScanView::SayPlaces(const std::string& what, const std::vector<UnreadPlace>& places) {
  for (std::size_t i = 0; i < std::min(places.size(), kMostUnreadShown); ++i) {
    Say(what + ForShowing(places[i].place) + ": " + ForShowing(places[i].reason));
  }
  if (places.size() > kMostUnreadShown) {
    Say(what + std::to_string(places.size() - kMostUnreadShown) + " more");
  }
}

void ScanView::EndText(const ScanSummary& summary) {
  std::string text = begun_ ? "\n" : "";
  std::uint64_t total = 0;
  std::string kinds;
  for (std::size_t i = 0; i < kKindCount; ++i) {
    const std::uint64_t count = summary.counts[i];
    total += count;
    if (count == 0) continue;
    kinds += (kinds.empty() ? " (" : ", ") + std::string(KindName(static_cast<FindingKind>(i))) +
             " " + std::to_string(count);
  }
  text += total == 0 ? "Nothing found" : std::to_string(total) + " found" + kinds + ")";
  text += " in " + std::to_string(summary.milliseconds / 1000) + "." +
          Padded(summary.milliseconds % 1000 / 100, 1) + " s with definitions " +
          ForShowing(summary.definitions) +
          (summary.finished ? "." : "; the scan was not finished.");
  Put(text + "\n");
}

void ScanView::ShowProgress(const ScanProgress& progress, Clock& clock) {
  if (!progress_) return;
  const std::uint32_t now = clock.Ticks();
  if (shown_ != 0 && now - last_ < kRedraw) return;
  last_ = now;
  time_left_.Update(now, progress.phase);
  const int percent = progress.Percentage();
  std::string line = percent < 0 ? "     " : Column(std::to_string(percent) + "%", 5);
  if (const auto seconds = time_left_.Seconds()) line += ClockText(*seconds) + "  ";
  line += ForShowing(progress.lblScan.empty() ? progress.lblScanOption : progress.lblScan);
  // A full line would begin the next one.
  line = Cut(line, static_cast<std::size_t>(std::max(terminal_.Width() - 1, 1)));
  const std::size_t size = CharactersOf(line);
  const std::size_t blanks = shown_ > size ? shown_ - size : 0;
  terminal_.WriteError("\r" + line + std::string(blanks, ' '));
  shown_ = std::max<std::size_t>(size, 1);
}

void ScanView::HideProgress() {
  if (shown_ != 0) terminal_.WriteError("\r" + std::string(shown_, ' ') + "\r");
  shown_ = 0;
}

void ScanView::Say(std::string_view text) {
  HideProgress();
  terminal_.WriteError("scourwell: " + std::string(text) + "\n");
}

}  // namespace scourwell
