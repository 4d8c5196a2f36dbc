// SPDX-License-Identifier: MIT
#include "results/removal_summary.h"

#include <map>

#include "scan/finding_texts.h"
#include "text/text.h"

namespace scourwell {
namespace {

constexpr RemovalState kCounted[] = {RemovalState::Gone, RemovalState::PendingRestart,
                                     RemovalState::Refused, RemovalState::Failed};

}  // namespace

RemovalSummary::RemovalSummary(const Captions& captions, const RemovalReport& report)
    : captions_(captions), report_(report) {
  for (const RemovedObject& object : report.objects) rows_.push_back(&object);
  Sort();
}

std::string RemovalSummary::Text(std::size_t row, Column column) const {
  const RemovedObject& object = *rows_[row];
  switch (column) {
    case kSystem:
      return object.spy;
    case kDetails:
      return PlaceText(object.object);
    case kState:
      return RemovalStateText(captions_, object.result);
    default:
      return KindText(captions_, KindOf(object.object));
  }
}

std::string RemovalSummary::Counts() const {
  const auto part = [&](RemovalState state) {
    return RemovalStateCount(captions_, state, report_.Count(state));
  };
  std::string text = part(RemovalState::Removed);
  for (const RemovalState state : kCounted) {
    if (report_.Count(state) > 0) text += ", " + part(state);
  }
  return text;
}

void RemovalSummary::SortBy(Column column) {
  ascending_ = column != sort_column_ || !ascending_;
  sort_column_ = column;
  Sort();
}

// By how much a result asks for the user's attention, or by the texts; equal rows keep their order.
void RemovalSummary::Sort() {
  std::multimap<std::string, const RemovedObject*, NoCaseLess> sorted;
  const auto add = [&](std::size_t row) {
    sorted.emplace(sort_column_ == kState ? std::to_string(RankOf(rows_[row]->result))
                                          : Text(row, sort_column_),
                   rows_[row]);
  };
  // Equal keys stand in the order of their coming, so the way down begins with the last row.
  for (std::size_t i = 0; i < rows_.size(); ++i) add(ascending_ ? i : rows_.size() - 1 - i);
  std::size_t at = ascending_ ? 0 : rows_.size();
  for (const auto& [key, object] : sorted) rows_[ascending_ ? at++ : --at] = object;
}

}  // namespace scourwell
