// SPDX-License-Identifier: MIT
#include "scan/containment_index.h"

#include "text/text.h"

namespace scourwell {

void ContainmentIndex::Add(std::uint32_t row, std::string_view text) {
  if (text.empty()) return;
  texts_.push_back(Upper(text));
  literals_.Add(static_cast<std::uint32_t>(rows_.size()), texts_.back());
  rows_.push_back(row);
}

void ContainmentIndex::Freeze() {
  if (!rows_.empty()) literals_.Freeze();
}

std::optional<std::uint32_t> ContainmentIndex::FirstRowIn(std::string_view text) const {
  if (rows_.empty()) return std::nullopt;
  const std::string folded = Upper(text);
  std::uint32_t best = static_cast<std::uint32_t>(rows_.size());
  literals_.ProposeAt(folded, [&](std::uint32_t number, std::size_t at) {
    if (number < best && std::string_view(folded).substr(at).starts_with(texts_[number])) {
      best = number;
    }
  });
  if (best == rows_.size()) return std::nullopt;
  return rows_[best];
}

}  // namespace scourwell
