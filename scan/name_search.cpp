// SPDX-License-Identifier: MIT
#include "scan/name_search.h"

#include <algorithm>

#include "machine/file_utils.h"
#include "scan/name_pattern.h"
#include "text/text.h"

namespace scourwell {

NameSearch::NameSearch(Files& files, Pump& pump, ErrorLog& log, FindingSink& sink,
                       const DefinitionList<SearchedName>& list)
    : files_(files), pump_(pump), log_(log), sink_(sink), index_(list, &pump) {}

void NameSearch::RecordUnusable() const {
  if (index_.unusable() == 0) return;
  log_.LogFailure(Outcome::Failed(kBadFileName, std::to_string(index_.unusable()) +
                                                    " signatures cannot be searched for")
                      .With("First: ", index_.first_unusable()),
                  "subFileSearch");
}

void NameSearch::Nominate(const FoldedEntry& folded, std::vector<NameMatch>* matches) {
  nominations_.clear();
  index_.Nominate(folded, &nominations_);
  const DirEntry& entry = folded.entry();
  for (const auto& [row, certain] : nominations_) {
    matches->push_back(
        {row, certain, entry.IsFolder(), entry.IsLink(), certain ? entry.name : std::string()});
  }
}

void NameSearch::Report(const std::string& folder, std::vector<NameMatch>* matches,
                        std::string_view only) const {
  std::ranges::stable_sort(*matches, {}, &NameMatch::row);
  log_.Trap("subFileSearch", [&] {
    constexpr std::uint32_t kNone = 0xFFFFFFFF;
    std::uint32_t confirmed = kNone;
    for (const NameMatch& match : *matches) {
      if (!pump_.Next()) return;
      if (match.certain) {
        Add(folder, match.row, match.name, match.link);
      } else if (match.row != confirmed) {
        confirmed = match.row;
        Confirm(folder, match.row, only);
      }
    }
  });
}

void NameSearch::DropVanished(const std::string& folder, std::vector<NameMatch>* matches) const {
  std::erase_if(*matches, [&](const NameMatch& match) {
    if (!match.certain) return false;
    DirEntry entry;
    return !files_.Stat(AddPathToFileName(folder, match.name), &entry).ok() ||
           entry.IsFolder() != match.folder || entry.IsLink() != match.link;
  });
}

void NameSearch::Confirm(const std::string& folder, std::uint32_t row,
                         std::string_view only) const {
  const std::string signature = NormalizeSignature(index_.Row(row).name);
  if (PassesThroughLink(folder, signature)) return;
  const std::string pattern = AddPathToFileName(folder, signature);
  // The names lie in the folder that the signature's own path leads to.
  const std::string_view below = FolderPart(signature);
  const std::string place = below.empty() ? folder : AddPathToFileName(folder, below);
  const Outcome listed = files_.List(pattern, [&](const DirEntry& entry) {
    if (!pump_.Next()) return false;
    const bool meant = only.empty() || EqualsNoCase(entry.name, only);
    if (meant && entry.IsFolder() == index_.IsFolderRow(row)) {
      Add(place, row, entry.name, entry.IsLink());
    }
    return true;
  });
  if (listed.ok() || listed.code() == kPathNotFound) return;  // the path may just not be there
  log_.LogFailure(Outcome(listed).With("retFolderName: ", signature).With("sPath: ", folder),
                  "subFileSearch");
}

// True when a folder on the way of a relative signature is a link: its content lies elsewhere.
bool NameSearch::PassesThroughLink(const std::string& folder, std::string_view signature) const {
  for (std::size_t slash = FindSeparator(signature); slash != std::string_view::npos;
       slash = FindSeparator(signature, slash + 1)) {
    DirEntry entry;
    const std::string part = AddPathToFileName(folder, signature.substr(0, slash));
    if (files_.Stat(part, &entry).ok() && entry.IsLink()) return true;
  }
  return false;
}

Evidence NameSearch::EvidenceOf(std::uint32_t row) const {
  const SearchedName& definition = index_.Row(row);
  const bool pattern = definition.name.find_first_of("*?") != std::string_view::npos;
  return {definition.spy, pattern ? Certainty::Pattern : Certainty::Name, definition.source};
}

void NameSearch::Add(const std::string& folder, std::uint32_t row, const std::string& name,
                     bool link) const {
  const Evidence evidence = EvidenceOf(row);
  const std::string path = AddPathToFileName(folder, name);
  if (!index_.IsFolderRow(row)) {
    ReportOnce(sink_, FoundFile{path}, evidence);
    return;
  }
  ReportOnce(sink_, FoundFolder{path}, evidence);
  if (!link) FindFiles(path, {evidence.spy, Certainty::Beside, evidence.source});
}

// Every file right inside a spy folder is reported with it.
void NameSearch::FindFiles(const std::string& folder, const Evidence& evidence) const {
  log_.Trap("FindFiles", [&]() -> Outcome {
    Outcome listed = files_.ListNames(AddPathToFileName(folder, "*.*"), [&](const DirEntry& entry) {
      if (!pump_.Next()) return false;
      if (entry.IsFolder()) return true;
      ReportOnce(sink_, FoundFile{AddPathToFileName(folder, entry.name)}, evidence);
      return true;
    });
    return listed.ok() ? Outcome() : std::move(listed).With("sPath: ", folder);
  });
}

}  // namespace scourwell
