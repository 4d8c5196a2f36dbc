// SPDX-License-Identifier: MIT
#include "tools/known_spies.h"

#include "scan/name_pattern.h"
#include "text/paths.h"
#include "text/text.h"

namespace scourwell {
namespace {

constexpr const Loader* kLoaders[] = {
    &kUpdateTrojanList,           &kUpdateDialersFileList,     &kUpdateDialersFolderList,
    &kUpdateHijackersFileList,    &kUpdateHijackersFolderList, &kUpdateKeyLoggersFileList,
    &kUpdateKeyLoggersFolderList, &kUpdateSpyFileList,         &kUpdateSpyFolderList,
    &kUpdateMemoryList,           &kUpdateRegistrySVList,      &kUpdateRegistryKList,
    &kUpdateRegistryKOList};
constexpr BuiltInStage kStages[] = {
    kBuiltInTrojanFolderStage,    kBuiltInTrojanFileStage,     kBuiltInDialerFolderStage,
    kBuiltInDialerFileStage,      kBuiltInHijackerFolderStage, kBuiltInHijackerFileStage,
    kBuiltInKeyLoggerFolderStage, kBuiltInKeyLoggerFileStage,  kBuiltInSpyFolderStage,
    kBuiltInSpyFileStage,         kBuiltInMemoryStage,         kBuiltInRegistryStage};

std::vector<std::string> FoldedParts(std::string_view path) {
  std::vector<std::string> parts;
  while (!path.empty()) {
    const std::string_view part = TakePart(&path);
    if (!part.empty()) parts.push_back(Upper(part));
  }
  return parts;
}

std::string FoldedKey(std::string_view key) {
  while (EndsInSeparator(key)) key.remove_suffix(1);
  return Upper(key);
}

bool HasWildcard(std::string_view text) { return text.find_first_of("*?") != text.npos; }

}  // namespace

// Nothing stops the loading: the stop flag belongs to scans.
struct KnownSpies::Unattended : LoadProgress, Pump {
  void Begin(int) override {}
  void Advance() override {}
  void End() override {}

 private:
  void YieldNow() override {}
};

KnownSpies::KnownSpies(ReferenceFile& reference, ErrorLog& log, const SystemFolders& folders)
    : reference_(reference),
      folders_(folders),
      unattended_(std::make_unique<Unattended>()),
      loader_(reference, lists_, *unattended_, *unattended_, log, folders),
      built_in_(lists_, folders, *unattended_, log) {}

KnownSpies::~KnownSpies() = default;

void KnownSpies::Refresh() {
  static_cast<void>(reference_.updateListfromINI("SETTINGS", "UPDATE-FILE-NUMBER"));
  if (loaded_ && generation_ == reference_.generation()) return;
  generation_ = reference_.generation();
  loaded_ = true;
  Load();
}

void KnownSpies::Load() {
  for (Names* names : {&file_names_, &folder_names_, &values_, &named_keys_}) names->clear();
  patterns_.clear();
  lists_ = {};
  for (const BuiltInStage& stage : kStages) built_in_.AddBuiltIn(stage);
  loader_.removeFromList();
  for (const Loader* loader : kLoaders) loader_.Load(*loader);
  for (const ProcessName& process : lists_.processes) {
    file_names_.try_emplace(Upper(TrimBlanks(process.name)), process.spy);
  }
  for (const FixedPlace& place : lists_.fixed) AddFixed(place);
  for (const SearchedName& name : lists_.searched) AddSearched(name);
  for (const NamedValue& value : lists_.values) {
    values_.try_emplace(FoldedKey(value.key) + "\n" + Upper(value.name), value.spy);
  }
  for (const NamedKey& key : lists_.keys) named_keys_.try_emplace(FoldedKey(key.path), key.spy);
  // The others are known by now.
  DefinitionList<KeyPart> key_parts = std::move(lists_.key_parts);
  lists_ = {};
  lists_.key_parts = std::move(key_parts);
  key_parts_ = ContainmentIndex(lists_.key_parts, &KeyPart::part);
}

void KnownSpies::AddFixed(const FixedPlace& definition) {
  const std::string full = CleanDirString(definition.path, folders_);
  for (const std::string& place : PlacesOf(full, folders_)) {
    patterns_.push_back(
        {FoldedParts(place), definition.item == DiskItem::Folder, std::string(definition.spy)});
  }
}

void KnownSpies::AddSearched(const SearchedName& definition) {
  const std::string signature = NormalizeSignature(definition.name);
  const bool folder = definition.item == DiskItem::Folder;
  switch (ClassifyPattern(signature)) {
    case PatternKind::Unusable:
      return;
    case PatternKind::Name:
      (folder ? folder_names_ : file_names_).try_emplace(Upper(signature), definition.spy);
      return;
    default:
      patterns_.push_back({FoldedParts(signature), folder, std::string(definition.spy)});
  }
}

// Files answer with their last parts, folders with any run of parts before the last.
bool KnownSpies::Matches(const Pattern& pattern, const std::vector<std::string>& path) {
  const std::size_t count = pattern.parts.size();
  if (count == 0 || path.size() < count + (pattern.folder ? 1 : 0)) return false;
  const std::size_t last = path.size() - count - (pattern.folder ? 1 : 0);
  for (std::size_t at = pattern.folder ? 0 : last; at <= last; ++at) {
    std::size_t i = 0;
    while (i < count && (HasWildcard(pattern.parts[i]) ? MayMatch(pattern.parts[i], path[at + i])
                                                       : pattern.parts[i] == path[at + i])) {
      ++i;
    }
    if (i == count) return true;
  }
  return false;
}

std::string KnownSpies::OfFile(std::string_view path) const {
  const std::vector<std::string> parts = FoldedParts(path);
  if (parts.empty()) return {};
  if (const auto name = file_names_.find(parts.back()); name != file_names_.end()) {
    return name->second;
  }
  for (std::size_t i = 0; i + 1 < parts.size(); ++i) {
    if (const auto name = folder_names_.find(parts[i]); name != folder_names_.end()) {
      return name->second;
    }
  }
  for (const Pattern& pattern : patterns_) {
    if (Matches(pattern, parts)) return pattern.spy;
  }
  return {};
}

std::string KnownSpies::OfValue(std::string_view key, std::string_view name) const {
  const auto found = values_.find(FoldedKey(key) + "\n" + Upper(name));
  return found == values_.end() ? std::string() : found->second;
}

std::string KnownSpies::OfKey(std::string_view key) const {
  if (const auto named = named_keys_.find(FoldedKey(key)); named != named_keys_.end()) {
    return named->second;
  }
  const auto row = key_parts_.FirstRowIn(key);
  return row ? std::string(lists_.key_parts[*row].spy) : std::string();
}

}  // namespace scourwell
