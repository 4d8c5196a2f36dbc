// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "definitions/builtin_lists.h"
#include "definitions/list_loader.h"
#include "scan/containment_index.h"

namespace scourwell {

// Answers of all definitions, whatever the settings switch off: does one of them name this file,
// this registry value, this key? Every answer is the spy's name, or empty.
class KnownSpies {
 public:
  KnownSpies(ReferenceFile& reference, ErrorLog& log, const SystemFolders& folders);
  ~KnownSpies();

  // Reads the definitions if they are others than before; until then nothing is known.
  void Refresh();

  // The spy that a path belongs to: by its name, by a folder on its way, or as a whole.
  std::string OfFile(std::string_view path) const;
  // Root name and key path without a "\" at the end.
  std::string OfValue(std::string_view key, std::string_view name) const;
  std::string OfKey(std::string_view key) const;

 private:
  struct Unattended;
  struct Pattern {
    std::vector<std::string> parts;  // folded
    bool folder = false;
    std::string spy;
  };
  using Names = std::unordered_map<std::string, std::string>;  // folded name to spy

  void Load();
  void AddSearched(const SearchedName& definition);
  void AddFixed(const FixedPlace& definition);
  static bool Matches(const Pattern& pattern, const std::vector<std::string>& path);

  ReferenceFile& reference_;
  const SystemFolders& folders_;
  DefinitionLists lists_;
  std::unique_ptr<Unattended> unattended_;
  ListLoader loader_;
  BuiltInLists built_in_;
  unsigned generation_ = 0;
  bool loaded_ = false;
  Names file_names_;
  Names folder_names_;
  Names values_;
  Names named_keys_;
  std::vector<Pattern> patterns_;
  ContainmentIndex key_parts_;  // rows of lists_
};

}  // namespace scourwell
