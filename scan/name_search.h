// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "definitions/definition_list.h"
#include "machine/error_log.h"
#include "platform/files.h"
#include "platform/pump.h"
#include "scan/finding.h"
#include "scan/signature_index.h"

namespace scourwell {

// A row that an entry of a folder answers, or may answer.
struct NameMatch {
  std::uint32_t row = 0;
  bool certain = false;  // false: the system's listing must confirm the row, the rest is empty
  bool folder = false;
  bool link = false;
  std::string name;
};

// The searched rows of one pass. `list` must stay unchanged as long as the search lives.
class NameSearch {
 public:
  NameSearch(Files& files, Pump& pump, ErrorLog& log, FindingSink& sink,
             const DefinitionList<SearchedName>& list);

  // Puts on record that there are rows which can never be looked for.
  void RecordUnusable() const;

  // Appends the rows that an entry may answer.
  void Nominate(const FoldedEntry& folded, std::vector<NameMatch>* matches);

  // Reports what the matches of one folder find, in the order of the rows, then of the listing, as
  // if each row had been listed on its own. With a name in `only` nothing else of the folder
  // counts.
  void Report(const std::string& folder, std::vector<NameMatch>* matches,
              std::string_view only = {}) const;

  // Drops the matches whose entry is no longer what it was listed as.
  void DropVanished(const std::string& folder, std::vector<NameMatch>* matches) const;

 private:
  void Confirm(const std::string& folder, std::uint32_t row, std::string_view only) const;
  void Add(const std::string& folder, std::uint32_t row, const std::string& name, bool link) const;
  Evidence EvidenceOf(std::uint32_t row) const;
  void FindFiles(const std::string& folder, const Evidence& evidence) const;
  bool PassesThroughLink(const std::string& folder, std::string_view signature) const;

  Files& files_;
  Pump& pump_;
  ErrorLog& log_;
  FindingSink& sink_;
  SignatureIndex index_;
  std::vector<SignatureIndex::Nomination> nominations_;  // kept for its memory
};

}  // namespace scourwell
