// The section that a removal adds to the log: what really came of each object.
#include "results/log_lines.h"
#include "results/removal.h"
#include "results/scan_log.h"

namespace scourwell {
namespace {

struct StateText {
  RemovalState state;
  int caption;
};
constexpr StateText kStates[] = {
    {RemovalState::Removed, 17101},        {RemovalState::Gone, 17102},
    {RemovalState::PendingRestart, 17103}, {RemovalState::Refused, 17104},
    {RemovalState::Failed, 17105},
};

}  // namespace

std::string RemovalStateText(const Captions& captions, const RemovalResult& result) {
  std::string text;
  for (const StateText& each : kStates) {
    if (each.state == result.state) text = captions.Text(each.caption);
  }
  if (!result.why.ok() && result.state != RemovalState::PendingRestart) {
    text += " (" + result.why.description() + ")";
  }
  return text;
}

void ScanLog::AddRemoval(const RemovalReport& report) {
  static_cast<void>(parts_.log.Trap("RemoveSelectedSpy", [&]() -> Outcome {
    Lines lines;
    lines.Add("\r\n").Add(kLongRule);
    lines.Add(Text(17100) + " " + parts_.clock.GeneralDate(parts_.clock.Now()));
    lines.Add(kLongRule);
    for (const RemovedObject& object : report.objects) {
      lines.Add(object.kind + ": " + object.details + " - " +
                RemovalStateText(parts_.captions, object.result));
    }
    if (report.objects.empty()) lines.Add(Text(17106));
    lines.Add(kLongRule);
    return Append(lines.text());
  }));
}

}  // namespace scourwell
