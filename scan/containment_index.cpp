#include "scan/containment_index.h"

#include "text/text.h"

namespace scourwell {

ContainmentIndex::ContainmentIndex(const SignatureList& list,
                                   std::string_view SignatureRow::*signature,
                                   std::string_view type) {
  for (std::uint32_t row = 0; row < list.size(); ++row) {
    const SignatureRow each = list[row];
    if ((!type.empty() && each.text != type) || (each.*signature).empty()) continue;
    signatures_.push_back(Upper(each.*signature));
    literals_.Add(static_cast<std::uint32_t>(rows_.size()), signatures_.back());
    rows_.push_back(row);
  }
  literals_.Freeze();
}

std::optional<std::uint32_t> ContainmentIndex::FirstRowIn(std::string_view text) const {
  const std::string folded = Upper(text);
  std::uint32_t best = static_cast<std::uint32_t>(rows_.size());
  literals_.Propose(folded, [&](std::uint32_t number) {
    if (number < best && folded.find(signatures_[number]) != std::string::npos) best = number;
  });
  if (best == rows_.size()) return std::nullopt;
  return rows_[best];
}

}  // namespace scourwell
