// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "backup/ignore_list.h"
#include "machine/error_log.h"
#include "results/removal_result.h"
#include "scan/finding.h"
#include "scan/hit_counters.h"
#include "settings/app_settings.h"
#include "text/captions.h"
#include "text/text.h"

namespace scourwell {

// The model of `SpyListView`: one row per finding with its check mark, and the counters.
class HitList : public FindingSink {
 public:
  struct Row {
    Finding finding;
    bool checked = false;
    std::optional<RemovalResult> result = {};  // of the last attempt to remove it
    bool locked = false;                       // this user has no right to remove it

    // Nothing is left of it to be removed.
    bool gone() const { return result && result->done(); }
  };
  enum Column { kType, kSystem, kDetails, kState };

  HitList(IgnoreList& ignore, const AppSettings& settings, const Captions& captions, ErrorLog& log)
      : ignore_(ignore), settings_(settings), captions_(captions), log_(log) {}

  // The state at the start of a scan: no rows, counters at 0.
  void Clear();

  bool Contains(const FoundObject& object) const override;
  bool Shows(const FoundObject& object) const override;
  // Adds a row unless the ignore list holds the finding; counts it in either case. While nobody can
  // read that list, rows come unchecked: they may be what the user wants to keep.
  void AddSpyToListView(const Finding& finding) override;

  std::size_t size() const { return rows_.size(); }
  bool empty() const { return rows_.empty(); }
  const Row& row(std::size_t index) const { return rows_[index]; }
  std::string Text(std::size_t index, Column column) const;
  // All of them with tabs between, for the clipboard.
  std::string Line(std::size_t index) const;
  const HitCounters& counters() const { return counters_; }
  // Whether there are rows that the ignore list may hold.
  bool uncertain() const { return uncertain_; }

  // What is gone cannot be checked.
  void SetChecked(std::size_t index, bool checked) {
    rows_[index].checked = checked && !rows_[index].gone();
  }
  void CheckAll(bool checked);
  // All rows of one spy.
  void CheckSpy(const std::string& spy, bool checked);
  std::size_t checked_count() const;
  // A removal has tried the row. What is gone, or goes at the next start, loses its check mark.
  void Settle(std::size_t index, const RemovalResult& result);
  // The user has no right to remove the row.
  void Lock(std::size_t index) { rows_[index].locked = has_remarks_ = true; }
  // Whether there is anything to say of the rows' states.
  bool has_remarks() const { return settled_ || has_remarks_; }
  // Whether a removal has tried any row.
  bool settled() const { return settled_; }
  std::vector<std::size_t> CheckedRows() const;
  // Moves rows, given in their order, to the ignore list, from the last to the first. The counters
  // stay. Rows that the list cannot hold stay too, and the result says so.
  Outcome Exclude(const std::vector<std::size_t>& rows);
  // What the scan found and the list does not show, because it is excluded by now.
  std::size_t excluded() const;

  // A click on a column's header: sorts by it, ascending first, the other way at each next click.
  // Texts compare without case; equal rows keep their order.
  void SortBy(Column column);
  Column sort_column() const { return sort_column_; }
  bool sorted() const { return sorted_; }
  bool ascending() const { return ascending_; }
  // Keeps the rows of each spy together, whatever they are sorted by.
  void Group(bool grouped);
  bool grouped() const { return grouped_; }
  // How many rows the group has that begins with this row; 0 within a group, or without any.
  std::size_t GroupSize(std::size_t index) const;

 private:
  void Arrange();
  Outcome Count(FindingKind kind);

  IgnoreList& ignore_;
  const AppSettings& settings_;
  const Captions& captions_;
  ErrorLog& log_;
  std::vector<Row> rows_;
  // Whether a row stands for an item, by its identity.
  std::unordered_map<std::string, bool, NoCaseHash, NoCaseEqual> seen_;
  HitCounters counters_;
  std::size_t excluded_ = 0;  // since the scan
  bool uncertain_ = false;
  bool settled_ = false;
  bool has_remarks_ = false;
  bool grouped_ = false;
  Column sort_column_ = kType;
  bool sorted_ = false;
  bool ascending_ = false;
};

}  // namespace scourwell
