// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>

#include "tools/entry_manager.h"

namespace scourwell {

// The browser helper objects of Internet Explorer. Disabled ones are kept in "BHOProf.pro" of the
// program folder, with all their values.
class BhoManager : public EntryManager {
 public:
  enum Column {
    kName,
    kStatus = kStatusColumn,
    kClass,
    kFile,
    kFound,
    kCompany,
    kSpy,
    kLocation,
    kColumns
  };

  explicit BhoManager(const Needs& needs);

  static std::span<const Caption> ColumnCaptions();
  int columns() const override { return kColumns; }

  std::string Details(std::size_t row) const override;

 private:
  struct Class {
    std::string name;
    std::string file;
    bool missing = false;  // nothing is registered under that class
  };
  Class ClassOf(const Entry& entry) const;
  std::string NameOf(const Entry& entry, const FileFacts& facts) const;
  std::span<const Caption> Captions() const override { return ColumnCaptions(); }
  FileFacts FactsOf(const Entry& entry) const override;
  std::vector<std::string> CellsOf(const Entry& entry, const FileFacts& facts) const override;
};

}  // namespace scourwell
