// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "machine/error_log.h"
#include "machine/reasons.h"
#include "scan/finding.h"
#include "text/captions.h"
#include "tools/entry_table.h"
#include "tools/file_facts.h"
#include "tools/table_view.h"

namespace scourwell {

// What the startup manager and the browser-helper manager have in common: entries that can be
// disabled, told in columns. Every procedure traps its errors under the tool's prefix; what a
// user should hear of them waits in failures().
class EntryManager : public TableModel {
 public:
  // Of every table of entries.
  static constexpr int kStatusColumn = 1;

  struct Needs {
    const StartupLocations& locations;
    KnownSpies& spies;
    const FactFinder& facts;
    ErrorLog& log;
    const Captions& captions;
  };

  // Reads everything anew; marks are lost.
  void Form_Load();
  // Reads everything anew; marks stay on the entries that are still there.
  void Refresh();
  void cmdDisable_Click(std::size_t row);
  void cmdRemove_Click(std::size_t row);
  // Afterwards the rows say how things stand. False when something failed.
  bool ApplyNow();
  // "keyResetAll": every row to "Enabled".
  void ResetAll();
  bool SaveProfile(const std::string& path);
  bool LoadProfile(const std::string& path);

  bool IsChanged() const { return table_.IsChanged(); }
  bool HasMarks() const { return table_.HasMarks(); }
  std::size_t disabled_count() const;
  EntryStatus status(std::size_t row) const { return table_[row].status; }
  const Entry& entry(std::size_t row) const { return table_[row]; }
  const FileFacts& facts(std::size_t row) const { return rows_[row].facts; }
  // The names of the entries that Apply would remove for good.
  std::vector<std::string> Removals() const;
  // Those of them that a backup can hold: registry entries and files.
  std::vector<Finding> RemovedObjects() const;
  // Everything there is to tell of a row, one line each.
  virtual std::string Details(std::size_t row) const;
  // The registry key that holds the entry, with its root; empty when none does.
  std::string KeyOf(std::size_t row) const;

  // What kStatusColumn says of marks that were not applied yet.
  std::vector<std::string> MarkTexts() const;

  // One line each, of the last procedure.
  const std::vector<std::string>& failures() const { return failures_; }

  // TableModel
  std::size_t size() const override { return rows_.size(); }
  const std::string& Cell(std::size_t row, int column) const override {
    return rows_[row].cells[static_cast<std::size_t>(column)];
  }
  std::string Identity(std::size_t row) const override;

 protected:
  struct Row {
    std::vector<std::string> cells;
    FileFacts facts;
  };

  EntryManager(const Needs& needs, std::span<const StartupLocation> places,
               std::string profile_path, EntryTable::Describe describe, const char* prefix)
      : needs_(needs),
        table_(needs.locations, places, std::move(profile_path), describe),
        prefix_(prefix) {}

  virtual std::span<const Caption> Captions() const = 0;
  virtual FileFacts FactsOf(const Entry& entry) const = 0;
  virtual std::vector<std::string> CellsOf(const Entry& entry, const FileFacts& facts) const = 0;

  void Read(void (EntryTable::*fill)(std::vector<Outcome>* failures));
  // Runs `body`, which fills the list of failures, and puts each on record.
  template <class Body>
  bool Trap(const char* procedure, Body&& body);
  // "name: ", of the entry or file that a failure notes.
  static std::string NotedName(const Outcome& failure);
  // Tells the rows anew; with `facts` their files are looked at again.
  void Tell(bool facts);
  std::string Text(Caption caption) const { return needs_.captions.Text(caption); }
  // A mark that was not applied yet says so.
  std::string StatusText(const Entry& entry) const;
  // Whether the file is there.
  std::string FoundText(const FileFacts& facts) const {
    return Text(facts.remote   ? Caption::FileOnNetwork
                : facts.exists ? Caption::FileFound
                               : Caption::FileMissing);
  }

  const Needs needs_;
  EntryTable table_;

 private:
  const char* prefix_;
  std::vector<Row> rows_;
  std::vector<std::string> failures_;
};

template <class Body>
bool EntryManager::Trap(const char* procedure, Body&& body) {
  failures_.clear();
  const std::string name = std::string(prefix_) + procedure;
  std::vector<Outcome> failures;
  const Outcome done = needs_.log.TrapOutcome(name.c_str(), [&] { body(&failures); });
  if (!done.ok()) failures_.push_back(ReasonText(needs_.captions, done));
  for (const Outcome& failure : failures) {
    needs_.log.LogFailure(failure, name);
    failures_.push_back(NotedName(failure) + ReasonText(needs_.captions, failure));
  }
  return failures_.empty();
}

}  // namespace scourwell
