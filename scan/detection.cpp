#include "scan/detection.h"

namespace scourwell {

bool ReportOnce(DetectionSink& sink, std::string_view kind, std::uint8_t code, std::string details,
                std::string_view spy) {
  if (sink.Contains(details)) return false;
  Detection detection;
  detection.kind = kind;
  detection.system = spy;
  detection.icon = code;
  detection.tool_tip = details;
  detection.details = std::move(details);
  sink.AddSpyToListView(detection);
  return true;
}

}  // namespace scourwell
