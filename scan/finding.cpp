// SPDX-License-Identifier: MIT
#include "scan/finding.h"

#include <utility>

#include "scan/finding_texts.h"

namespace scourwell {

const std::string* PathOnDisk(const FoundObject& object) {
  using Path = const std::string*;
  return std::visit(Overloaded{
                        [](const FoundFile& file) -> Path { return &file.path; },
                        [](const FoundFolder& folder) -> Path { return &folder.path; },
                        [](const FoundCookie& cookie) -> Path { return &cookie.path; },
                        [](const FoundKey&) -> Path { return nullptr; },
                        [](const FoundValue&) -> Path { return nullptr; },
                        [](const FoundProcess&) -> Path { return nullptr; },
                    },
                    object);
}

std::string IdentityOf(const FoundObject& object) {
  const FindingKind kind = KindOf(object);
  std::string identity(KindWord(kind == FindingKind::Cookie ? FindingKind::File : kind));
  identity += '|';
  if (const auto* process = std::get_if<FoundProcess>(&object)) {
    identity += std::to_string(process->id) + "|";
  }
  return identity + PlaceText(object);
}

bool ReportOnce(FindingSink& sink, FoundObject object, const Evidence& evidence) {
  if (sink.Contains(object)) return false;
  sink.AddSpyToListView(
      {std::string(evidence.spy), std::move(object), evidence.certainty, evidence.source});
  return true;
}

}  // namespace scourwell
