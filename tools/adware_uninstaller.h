// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

#include "definitions/catalogue.h"
#include "definitions/reference_file.h"
#include "platform/registry.h"
#include "platform/shell.h"
#include "text/captions.h"
#include "tools/file_facts.h"
#include "tools/table_view.h"

namespace scourwell {

// The programs that are registered for uninstallation, all or only known adware. It removes
// nothing itself: it starts the command that a program has registered.
class AdwareUninstaller : public TableModel {
 public:
  enum Column { kProgram, kPublisher, kVersion, kCommand, kColumns };
  struct Needs {
    Registry& registry;
    Files& files;
    Shell& shell;
    System& system;
    const SystemFolders& folders;
    ReferenceFile& reference;
    ErrorLog& log;
    const Captions& captions;
  };
  // The progress bar: how many of how many names.
  using Progress = std::function<void(std::size_t done, std::size_t of)>;

  explicit AdwareUninstaller(const Needs& needs) : needs_(needs) {}

  // True when a wildcard entry occurs within the name, or an exact entry equals it, in any case.
  bool UpdateWildcardList(const std::string& display_name) const;
  bool UpdateExactSearchList(const std::string& display_name) const;

  // Known adware only, or all programs with a name. The last registered name is left out by both.
  // False when the registry could not be read to its end.
  bool LoadSpyList(const Progress& progress);
  bool LoadList(const Progress& progress);
  bool shows_all() const { return shows_all_; }

  // The number of rows behind its caption.
  std::string StatusText() const;
  // Starts the command of a row, without waiting for it. False when there was nothing to start.
  bool Uninstall(std::size_t row);
  // What a user should hear of the last listing or start: not that a program has no command, nor
  // that he has refused it the rights it asked for.
  const std::vector<std::string>& failures() const { return failures_; }
  // Publisher and version of a row.
  std::string Info(std::size_t row) const;

  // The program that its command starts; empty when there is none.
  std::string FileOf(std::size_t row) const;
  bool IsAdware(std::size_t row) const { return rows_[row].adware; }
  const std::string& key(std::size_t row) const { return rows_[row].key; }
  std::string KeyOf(std::size_t row) const;

  static std::span<const Caption> ColumnCaptions();
  // TableModel
  std::size_t size() const override { return rows_.size(); }
  int columns() const override { return kColumns; }
  const std::string& Cell(std::size_t row, int column) const override {
    return rows_[row].cells[static_cast<std::size_t>(column)];
  }
  std::string Identity(std::size_t row) const override { return rows_[row].key; }

 private:
  struct Row {
    std::string key;
    std::vector<std::string> cells;
    bool adware = false;
  };

  bool Load(const char* procedure, bool all, const Progress& progress);
  std::string Read(const std::string& key, const char* value) const;
  Outcome Start(const std::string& command);
  std::vector<std::string> ReadNames(const Loader& loader) const;

  Needs needs_;
  std::vector<std::string> part_names_;
  std::vector<std::string> exact_names_;
  std::vector<Row> rows_;
  std::vector<std::string> failures_;
  bool shows_all_ = false;
};

}  // namespace scourwell
