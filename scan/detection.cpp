#include "scan/detection.h"

#include <algorithm>

#include "text/paths.h"

namespace scourwell {

std::string_view BareDetails(const Detection& found) {
  std::string_view details = found.details;
  if (found.view64 && details.ends_with(kView64)) details.remove_suffix(kView64.size());
  return details;
}

std::string_view ValueName(const Detection& value) {
  std::string_view name = BareDetails(value);
  name.remove_prefix(std::min(value.tool_tip.size(), name.size()));
  if (BeginsWithSeparator(name)) name.remove_prefix(1);
  return name;
}

std::string IdentityOf(const Detection& found) {
  const bool process = found.kind == kMemoryProcess;
  const std::string_view kind = found.kind == kSpyCookie ? kSpyFile : std::string_view(found.kind);
  std::string identity(kind);
  identity.append("|").append(process ? found.tag + "|" : "").append(found.details);
  return identity;
}

bool ReportOnce(DetectionSink& sink, std::string_view kind, std::uint8_t code, std::string details,
                std::string_view spy) {
  Detection detection;
  detection.kind = kind;
  detection.system = spy;
  detection.icon = code;
  detection.tool_tip = details;
  detection.details = std::move(details);
  if (sink.Contains(detection)) return false;
  sink.AddSpyToListView(detection);
  return true;
}

}  // namespace scourwell
