// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "definitions/definition_list.h"
#include "machine/error_log.h"
#include "machine/system_folders.h"
#include "machine/version_resource.h"
#include "platform/files.h"
#include "platform/pump.h"
#include "platform/shell.h"
#include "scan/containment_index.h"
#include "scan/finding.h"
#include "scan/scan_progress.h"
#include "text/captions.h"
#include "text/text.h"

namespace scourwell {

// The definitions by which a program file is known, frozen for one pass. Of several that a text
// answers the first one counts. The lists must outlive the index and stay unchanged.
class PropertyIndex {
 public:
  explicit PropertyIndex(const DefinitionLists& lists);

  // The texts that definitions exist for, in the order in which they are compared.
  static constexpr std::array<VersionField, 5> kFields = {
      kCompanyName, kOriginalFileName, kInternalName, kProductName, kFileDescription};

  bool empty() const;
  // What the definition says that a text of a file answers. `text` is trimmed and
  // upper-cased.
  std::optional<Evidence> FindText(VersionField field, std::string_view text) const;
  // True when some definition is about a file of this size.
  bool KnowsSize(std::uint64_t size) const;
  std::optional<Evidence> FindChecksum(std::uint64_t size, std::uint8_t checksum) const;

 private:
  using EqualTable = std::unordered_map<std::string_view, std::uint32_t, NoCaseHash, NoCaseEqual>;
  // The texts of one field, as rows of texts_.
  struct Field {
    ContainmentIndex contained;
    EqualTable equal;
  };

  std::vector<ContentSum>::const_iterator FirstOfSize(std::uint64_t size) const;

  const DefinitionList<ProgramText>& texts_;
  std::array<Field, kFields.size()> fields_;  // by kFields
  std::vector<ContentSum> checksums_;         // by size, then in list order
};

// One pass over folders that knows program files by what they say of themselves and by their
// content, whatever their names are.
class AdvancedScan {
 public:
  struct Parts {
    Files& files;
    Versions& versions;
    Shell& shell;
    Pump& pump;
    ErrorLog& log;
    const Captions& captions;
    FindingSink& sink;
    ScanProgress& progress;
    const DefinitionLists& lists;  // unchanged as long as the pass lives
    const SystemFolders& folders;
  };

  explicit AdvancedScan(const Parts& parts) : parts_(parts), index_(parts.lists) {}

  // A file that has to be looked into: a program or a shortcut.
  struct Candidate {
    std::string name;
    std::uint64_t size = 0;
  };
  // True for an entry that is one, unless no definition could be answered anyway.
  bool Wants(const DirEntry& entry) const;
  // Examines a program right inside a folder, or the one that a shortcut there leads to.
  void searchFilesAdvanced(const std::string& folder, const Candidate& candidate);

 private:
  struct Item {
    std::string path;
    std::uint64_t size = 0;
  };

  void FollowShortcut(const std::string& link);
  void AdvancedFilePropertiesSearch(const Item& item);
  std::optional<Evidence> Identify(const Item& item, Outcome* outcome);
  std::uint64_t SizeOf(const Item& item) const;
  bool IsSystemsOwn(std::string_view path, std::string_view company) const;

  Parts parts_;
  PropertyIndex index_;
  std::unordered_set<std::string, NoCaseHash, NoCaseEqual> examined_;
  bool server_met_ = false;  // behind a shortcut
  std::string block_;        // kept, so that not every file asks for memory anew
};

}  // namespace scourwell
