#include "results/hit_list.h"

#include <algorithm>

namespace scourwell {
namespace {

struct KindCounter {
  std::string_view kind;
  std::int16_t HitCounters::*counter;
};

// Cookies count as files: the summary has no line of their own.
constexpr KindCounter kCounters[] = {
    {kSpyRegistryKey, &HitCounters::registry}, {kSpyRegistryValue, &HitCounters::registry},
    {kSpyFile, &HitCounters::files},           {kSpyCookie, &HitCounters::files},
    {kMemoryProcess, &HitCounters::processes}, {kSpyFolder, &HitCounters::folders},
};

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
  sorted_ = ascending_ = false;
}

bool HitList::Contains(const Detection& detection) const {
  return seen_.find(IdentityOf(detection)) != seen_.end();
}

bool HitList::Shows(const Detection& detection) const {
  const auto item = seen_.find(IdentityOf(detection));
  return item != seen_.end() && item->second;
}

void HitList::AddSpyToListView(const Detection& detection) {
  static_cast<void>(log_.Trap("AddSpyToListView", [&]() -> Outcome {
    bool& shown = seen_[IdentityOf(detection)];
    // Where nobody knows what is excluded, nothing is offered for removal.
    if (ignore_.Matches(detection.kind, detection.details) || !ignore_.known()) {
      if (Outcome raised = Raise(&counters_.ignored); !raised.ok()) return raised;
    } else {
      const bool checked = settings_.MarkChecked == "y" || settings_.AutoRemove;
      rows_.push_back({detection, checked});
      shown = true;
    }
    return Count(detection.kind);
  }));
}

Outcome HitList::Count(std::string_view kind) {
  for (const KindCounter& counter : kCounters) {
    if (counter.kind == kind) return Raise(&(counters_.*counter.counter));
  }
  return {};
}

const std::string& HitList::Text(std::size_t index, Column column) const {
  const Detection& detection = rows_[index].detection;
  switch (column) {
    case kSystem:
      return detection.system;
    case kDetails:
      return detection.details;
    default:
      return detection.kind;
  }
}

void HitList::CheckAll(bool checked) {
  for (Row& row : rows_) row.checked = checked;
}

std::size_t HitList::checked_count() const {
  return static_cast<std::size_t>(
      std::count_if(rows_.begin(), rows_.end(), [](const Row& row) { return row.checked; }));
}

Outcome HitList::ExcludeChecked() {
  std::vector<IgnoreRecord> records;
  std::vector<std::size_t> excluded;
  Outcome left;
  for (std::size_t i = rows_.size(); i-- > 0;) {
    if (!rows_[i].checked) continue;
    const Detection& found = rows_[i].detection;
    IgnoreRecord record = {found.kind, found.details, found.system};
    if (!CanBeIgnored(record)) {
      left = Outcome::Failed(kBadFileName, "A name with a quotation mark cannot be excluded")
                 .With("Component: ", found.details);
      continue;
    }
    records.push_back(std::move(record));
    excluded.push_back(i);
  }
  if (Outcome written = ignore_.Append(records); !written.ok()) return written;
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
  const auto text = [column](const Row& row) -> const std::string& {
    return column == kSystem    ? row.detection.system
           : column == kDetails ? row.detection.details
                                : row.detection.kind;
  };
  std::stable_sort(rows_.begin(), rows_.end(), [&](const Row& a, const Row& b) {
    const int order = CompareNoCase(text(a), text(b));
    return ascending_ ? order < 0 : order > 0;
  });
}

}  // namespace scourwell
