// SPDX-License-Identifier: MIT
#include "results/hit_list.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "scan/finding_texts.h"

namespace scourwell {
namespace {

// The counters by kind. Cookies count as files: the summary has no line of their own.
constexpr std::int16_t HitCounters::*kHitCounters[] = {
    &HitCounters::files,    &HitCounters::folders,  &HitCounters::files,
    &HitCounters::registry, &HitCounters::registry, &HitCounters::processes,
};
static_assert(std::size(kHitCounters) == std::variant_size_v<FoundObject>);

Outcome Raise(std::int16_t* counter) {
  if (*counter == INT16_MAX) return Outcome::Failed(kOverflow);
  ++*counter;
  return {};
}

}  // namespace

void HitList::Clear() {
  rows_.clear();
  seen_.clear();
  counters_ = {};
  uncertain_ = settled_ = has_remarks_ = false;
  excluded_ = 0;
  sorted_ = ascending_ = false;
}

bool HitList::Contains(const FoundObject& object) const {
  return seen_.find(IdentityOf(object)) != seen_.end();
}

bool HitList::Shows(const FoundObject& object) const {
  const auto item = seen_.find(IdentityOf(object));
  return item != seen_.end() && item->second;
}

void HitList::AddSpyToListView(const Finding& finding) {
  log_.Trap("AddSpyToListView", [&]() -> Outcome {
    bool& shown = seen_[IdentityOf(finding.object)];
    if (ignore_.Matches(IgnoreRecordOf(finding))) {
      if (Outcome raised = Raise(&counters_.ignored); !raised.ok()) return raised;
    } else {
      const bool known = ignore_.known();
      const bool checked = settings_.MarkChecked == "y" || settings_.AutoRemove;
      rows_.push_back({finding, known && checked});
      shown = known;
      uncertain_ = uncertain_ || !known;
    }
    return Count(KindOf(finding.object));
  });
}

Outcome HitList::Count(FindingKind kind) {
  return Raise(&(counters_.*kHitCounters[static_cast<std::size_t>(kind)]));
}

std::string HitList::Text(std::size_t index, Column column) const {
  const Finding& finding = rows_[index].finding;
  switch (column) {
    case kSystem:
      return finding.spy;
    case kDetails:
      return PlaceText(finding.object);
    case kState:
      if (rows_[index].result) return RemovalStateText(captions_, *rows_[index].result);
      return rows_[index].locked ? captions_.Text(Caption::RemarkNoRights) : "";
    default:
      return KindText(captions_, KindOf(finding.object));
  }
}

void HitList::CheckAll(bool checked) {
  for (std::size_t i = 0; i < rows_.size(); ++i) SetChecked(i, checked);
}

void HitList::CheckSpy(const std::string& spy, bool checked) {
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    if (EqualsNoCase(rows_[i].finding.spy, spy)) SetChecked(i, checked);
  }
}

std::string HitList::Line(std::size_t index) const {
  std::string line = Text(index, kType);
  for (const Column column : {kSystem, kDetails, kState}) {
    const std::string text = Text(index, column);
    if (!text.empty()) line += "\t" + text;
  }
  return line;
}

void HitList::Settle(std::size_t index, const RemovalResult& result) {
  settled_ = true;
  Row& row = rows_[index];
  row.result = result;
  if (row.gone() || result.state == RemovalState::PendingRestart) row.checked = false;
}

std::size_t HitList::checked_count() const {
  return static_cast<std::size_t>(
      std::count_if(rows_.begin(), rows_.end(), [](const Row& row) { return row.checked; }));
}

std::vector<std::size_t> HitList::CheckedRows() const {
  std::vector<std::size_t> rows;
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    if (rows_[i].checked) rows.push_back(i);
  }
  return rows;
}

std::size_t HitList::excluded() const {
  return excluded_ + static_cast<std::size_t>(counters_.ignored);
}

Outcome HitList::Exclude(const std::vector<std::size_t>& rows) {
  std::vector<IgnoreRecord> records;
  std::vector<std::size_t> excluded;
  Outcome left;
  for (auto row = rows.rbegin(); row != rows.rend(); ++row) {
    IgnoreRecord record = IgnoreRecordOf(rows_[*row].finding);
    if (!CanBeIgnored(record)) {
      left = Outcome::Failed(kBadFileName, "A name with a quotation mark cannot be excluded")
                 .With("Component: ", record.details);
      continue;
    }
    records.push_back(std::move(record));
    excluded.push_back(*row);
  }
  if (Outcome written = ignore_.Append(records); !written.ok()) return written;
  excluded_ += excluded.size();
  std::size_t kept = 0;
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    if (!excluded.empty() && excluded.back() == i) {
      excluded.pop_back();
      continue;
    }
    if (kept != i) rows_[kept] = std::move(rows_[i]);
    ++kept;
  }
  rows_.resize(kept);
  return left;
}

void HitList::SortBy(Column column) {
  sorted_ = true;
  sort_column_ = column;
  ascending_ = !ascending_;
  Arrange();
}

void HitList::Group(bool grouped) {
  grouped_ = grouped;
  Arrange();
}

// The groups themselves stand in the order of their names, backwards only when those are sorted so.
void HitList::Arrange() {
  struct Keyed {
    std::string text;
    Row row;
  };
  std::vector<Keyed> keyed;
  keyed.reserve(rows_.size());
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    std::string text = sorted_ ? Text(i, sort_column_) : std::string();
    keyed.push_back({std::move(text), std::move(rows_[i])});
  }
  const bool backwards = sorted_ && sort_column_ == kSystem && !ascending_;
  std::stable_sort(keyed.begin(), keyed.end(), [&](const Keyed& a, const Keyed& b) {
    const int group = grouped_ ? CompareNoCase(a.row.finding.spy, b.row.finding.spy) : 0;
    if (group != 0) return backwards ? group > 0 : group < 0;
    const int order = CompareNoCase(a.text, b.text);
    return ascending_ ? order < 0 : order > 0;
  });
  for (std::size_t i = 0; i < rows_.size(); ++i) rows_[i] = std::move(keyed[i].row);
}

std::size_t HitList::GroupSize(std::size_t index) const {
  const auto same = [&](std::size_t other) {
    return EqualsNoCase(rows_[index].finding.spy, rows_[other].finding.spy);
  };
  if (!grouped_ || (index > 0 && same(index - 1))) return 0;
  std::size_t end = index + 1;
  while (end < rows_.size() && same(end)) ++end;
  return end - index;
}

}  // namespace scourwell
