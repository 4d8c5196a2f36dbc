// SPDX-License-Identifier: MIT
#include "scan/advanced_scan.h"

#include <algorithm>
#include <utility>

#include "machine/file_utils.h"
#include "machine/real_path.h"
#include "scan/checksum.h"

namespace scourwell {
namespace {

std::string_view LastFour(std::string_view name) {
  return name.substr(name.size() - std::min<std::size_t>(name.size(), 4));
}

bool IsShortcut(std::string_view name) { return LastFour(name) == ".lnk"; }

bool IsProgram(std::string_view name) {
  const std::string extension = Upper(LastFour(name));
  return extension == ".EXE" || extension == ".DLL" || extension == ".OCX";
}

std::size_t FieldNumber(VersionField field) {
  const auto& fields = PropertyIndex::kFields;
  return static_cast<std::size_t>(std::ranges::find(fields, field) - fields.begin());
}

}  // namespace

PropertyIndex::PropertyIndex(const DefinitionLists& lists)
    : texts_(lists.program_texts), checksums_(lists.checksums.begin(), lists.checksums.end()) {
  for (std::uint32_t row = 0; row < texts_.size(); ++row) {
    const ProgramText& definition = texts_[row];
    Field& field = fields_[FieldNumber(definition.field)];
    const std::string_view text = TrimBlanks(definition.text);
    if (text.empty()) continue;
    if (definition.comparison == Comparison::Contained) {
      field.contained.Add(row, text);
    } else {
      field.equal.try_emplace(text, row);
    }
  }
  for (Field& field : fields_) field.contained.Freeze();
  std::ranges::stable_sort(checksums_, {}, &ContentSum::size);
}

bool PropertyIndex::empty() const {
  return checksums_.empty() && std::ranges::all_of(fields_, [](const Field& field) {
           return field.contained.empty() && field.equal.empty();
         });
}

std::optional<Evidence> PropertyIndex::FindText(VersionField field, std::string_view text) const {
  if (text.empty()) return {};
  const Field& known = fields_[FieldNumber(field)];
  const auto of = [&](std::uint32_t row, Certainty certainty) {
    return Evidence{texts_[row].spy, certainty, texts_[row].source};
  };
  if (const auto row = known.contained.FirstRowIn(text)) return of(*row, Certainty::Part);
  const auto row = known.equal.find(text);
  if (row == known.equal.end()) return {};
  return of(row->second, Certainty::VersionText);
}

std::vector<ContentSum>::const_iterator PropertyIndex::FirstOfSize(std::uint64_t size) const {
  return std::ranges::lower_bound(checksums_, size, {}, &ContentSum::size);
}

bool PropertyIndex::KnowsSize(std::uint64_t size) const {
  const auto row = FirstOfSize(size);
  return row != checksums_.end() && row->size == size;
}

std::optional<Evidence> PropertyIndex::FindChecksum(std::uint64_t size,
                                                    std::uint8_t checksum) const {
  for (auto row = FirstOfSize(size); row != checksums_.end() && row->size == size; ++row) {
    if (row->checksum == checksum) {
      return Evidence{row->spy, Certainty::Checksum, row->source};
    }
  }
  return {};
}

bool AdvancedScan::Wants(const DirEntry& entry) const {
  if (entry.IsFolder() || index_.empty()) return false;
  return IsShortcut(entry.name) || IsProgram(entry.name);
}

void AdvancedScan::searchFilesAdvanced(const std::string& folder, const Candidate& candidate) {
  parts_.log.Trap("searchFilesAdvanced", [&] {
    parts_.progress.lblScan =
        parts_.captions.Text(Caption::AdvancedScanning) + " - " + candidate.name;
    if (!parts_.pump.Next()) return;
    const std::string path = AddPathToFileName(folder, candidate.name);
    if (IsShortcut(candidate.name)) {
      FollowShortcut(path);
    } else {
      AdvancedFilePropertiesSearch({path, candidate.size});
    }
  });
}

void AdvancedScan::FollowShortcut(const std::string& link) {
  std::string target;
  Outcome resolved = parts_.shell.ShortcutTarget(link, &target);
  if (!resolved.ok()) {
    parts_.log.LogFailure(std::move(resolved).With("sPath: ", link), "searchFilesAdvanced");
    return;
  }
  // A shortcut can hold anything: what is looked up must be one plain path.
  if (!IsProgram(target) || !IsPlainPath(target)) return;
  if (!IsOwnGround(target, parts_.folders)) {
    if (std::exchange(server_met_, true)) return;
    return parts_.log.LogFailure(
        Outcome::Failed(kBadFileName, "Shortcuts to another computer are not followed")
            .With("sPath: ", link)
            .With("Target: ", target),
        "searchFilesAdvanced");
  }
  DirEntry entry;
  if (!parts_.files.Stat(target, &entry).ok() || entry.IsFolder()) {
    return;
  }
  // However the shortcut spells it, it is the file that a listing shows.
  AdvancedFilePropertiesSearch({RealPath(parts_.files, target), entry.size});
}

void AdvancedScan::AdvancedFilePropertiesSearch(const Item& item) {
  parts_.log.Trap("AdvancedFilePropertiesSearch", [&]() -> Outcome {
    if (!examined_.insert(item.path).second) return {};
    Outcome outcome;
    if (const std::optional<Evidence> evidence = Identify(item, &outcome)) {
      ReportOnce(parts_.sink, FoundFile{item.path}, *evidence);
    }
    return outcome.ok() ? Outcome() : std::move(outcome).With("sPath: ", item.path);
  });
}

// By the first row that the file answers.
std::optional<Evidence> AdvancedScan::Identify(const Item& item, Outcome* outcome) {
  if (!parts_.versions.ReadBlock(item.path, &block_).ok()) return {};
  const VersionResource resource(block_, parts_.versions);
  for (const VersionField field : PropertyIndex::kFields) {
    const std::string text = Upper(TrimBlanks(resource.Text(field).value_or("")));
    if (field == kCompanyName && (text.empty() || IsSystemsOwn(item.path, text))) return {};
    if (const auto evidence = index_.FindText(field, text)) return evidence;
  }
  const std::uint64_t size = SizeOf(item);
  if (!index_.KnowsSize(size)) return {};
  std::optional<std::uint8_t> checksum;
  *outcome = GetFileCheckSum(parts_.files, parts_.pump, item.path, &checksum);
  if (!checksum) return {};
  return index_.FindChecksum(size, *checksum);
}

// A listing for a walk need not tell sizes.
std::uint64_t AdvancedScan::SizeOf(const Item& item) const {
  DirEntry entry;
  if (item.size == 0 && parts_.files.Stat(item.path, &entry).ok()) return entry.size;
  return item.size;
}

// The files of Windows itself, right inside its two folders.
bool AdvancedScan::IsSystemsOwn(std::string_view path, std::string_view company) const {
  if (company.find("MICROSOFT") == std::string_view::npos) return false;
  const std::string_view folder = FolderPart(path);
  return EqualsNoCase(folder, parts_.folders.windows) ||
         EqualsNoCase(folder, parts_.folders.system) ||
         EqualsNoCase(folder, parts_.folders.system_wow64);
}

}  // namespace scourwell
