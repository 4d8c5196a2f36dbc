// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>

#include "tools/entry_manager.h"

namespace scourwell {

// The programs that are started at log-on. Disabled ones are kept in "SaveProf.pro" of the
// program folder.
class StartupManager : public EntryManager {
 public:
  enum Column {
    kName,
    kStatus = kStatusColumn,
    kLocation,
    kScope,
    kWhen,
    kCommand,
    kFile,
    kCompany,
    kSpy,
    kColumns,
  };

  explicit StartupManager(const Needs& needs);

  static std::span<const Caption> ColumnCaptions();
  int columns() const override { return kColumns; }

  // The places, as they are called in this language.
  std::string PlaceName(const StartupLocation& place) const;

  // Those that this Windows has.
  std::vector<const StartupLocation*> TaskPlaces() const;
  // A new entry of the place, written at once. The program may come with arguments.
  bool AddTask(const StartupLocation& place, const std::string& name, const std::string& program);
  // Whether "keyEdit" can edit the row here; a shortcut has the system's own editor.
  bool MayEdit(std::size_t row) const;
  // The shortcut file of a row that is in its place; empty for any other row.
  std::string ShortcutOf(std::size_t row) const;
  // What there is to edit: the command as the user reads it.
  std::string EditedCommand(std::size_t row) const;
  bool Edit(std::size_t row, const std::string& name, const std::string& command);

 private:
  std::span<const Caption> Captions() const override { return ColumnCaptions(); }
  FileFacts FactsOf(const Entry& entry) const override;
  std::vector<std::string> CellsOf(const Entry& entry, const FileFacts& facts) const override;
  bool HasArguments(const std::string& program) const;
  PlaceEntry EntryOf(const StartupLocation& place, const std::string& name,
                     const std::string& program) const;
};

}  // namespace scourwell
