// SPDX-License-Identifier: MIT

// The section that a removal adds to the log: what really came of each object.
#include "results/log_lines.h"
#include "results/removal.h"
#include "results/scan_log.h"
#include "scan/finding_texts.h"

namespace scourwell {
void ScanLog::AddRemoval(const RemovalReport& report) {
  parts_.log.Trap("RemoveSelectedSpy", [&]() -> Outcome {
    Lines lines;
    lines.Add("\r\n").Add(kLongRule);
    lines.Add(Text(Caption::LogRemoval) + " " + parts_.clock.GeneralDate(parts_.clock.Now()));
    lines.Add(kLongRule);
    for (const RemovedObject& object : report.objects) {
      lines.Add(KindText(parts_.captions, KindOf(object.object)) + ": " + PlaceText(object.object) +
                " - " + RemovalStateText(parts_.captions, object.result));
    }
    if (report.objects.empty()) lines.Add(Text(Caption::NoComponentChecked));
    lines.Add(kLongRule);
    return Append(lines.text());
  });
}

}  // namespace scourwell
