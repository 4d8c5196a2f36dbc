#include "tools/known_spies.h"

#include "scan/name_pattern.h"
#include "text/paths.h"
#include "text/text.h"

namespace scourwell {
namespace {

constexpr const Loader* kFileLoaders[] = {&kUpdateTrojanList,           &kUpdateDialersFileList,
                                          &kUpdateDialersFolderList,    &kUpdateHijackersFileList,
                                          &kUpdateHijackersFolderList,  &kUpdateKeyLoggersFileList,
                                          &kUpdateKeyLoggersFolderList, &kUpdateSpyFileList,
                                          &kUpdateSpyFolderList,        &kUpdateMemoryList};
constexpr const Loader* kKeyLoaders[] = {&kUpdateRegistrySVList, &kUpdateRegistryKList,
                                         &kUpdateRegistryKOList};
constexpr BuiltInStage kFileStages[] = {
    kBuiltInTrojanFolderStage,    kBuiltInTrojanFileStage,     kBuiltInDialerFolderStage,
    kBuiltInDialerFileStage,      kBuiltInHijackerFolderStage, kBuiltInHijackerFileStage,
    kBuiltInKeyLoggerFolderStage, kBuiltInKeyLoggerFileStage,  kBuiltInSpyFolderStage,
    kBuiltInSpyFileStage,         kBuiltInMemoryStage};

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

// Entries that a scan looks up at once are names of one file or folder here. Nothing stops the
// loading: the stop flag belongs to scans.
struct KnownSpies::Sink : DirectChecks, LoadProgress, Pump {
  explicit Sink(KnownSpies& owner) : owner_(owner) {}
  void CheckFile(const std::string& spy, const std::string& path) override {
    Add(spy, path, false);
  }
  void CheckFolder(const std::string& spy, const std::string& path) override {
    Add(spy, path, true);
  }
  void CheckProcess(const std::string& spy, const std::string& process) override {
    owner_.file_names_.try_emplace(Upper(TrimBlanks(process)), spy);
  }
  void Begin(int) override {}
  void Advance() override {}
  void End() override {}

 private:
  void YieldNow() override {}
  void Add(const std::string& spy, const std::string& path, bool folder) {
    const std::string full = CleanDirString(path, owner_.folders_);
    for (const std::string& place : PlacesOf(full, owner_.folders_)) {
      owner_.patterns_.push_back({FoldedParts(place), folder, spy});
    }
  }

  KnownSpies& owner_;
};

KnownSpies::KnownSpies(ReferenceFile& reference, ErrorLog& log, const SystemFolders& folders)
    : reference_(reference),
      folders_(folders),
      sink_(std::make_unique<Sink>(*this)),
      file_loader_(reference, files_, *sink_, *sink_, *sink_, log, folders),
      key_loader_(reference, keys_, *sink_, *sink_, *sink_, log, folders),
      built_in_files_(files_, *sink_, folders, *sink_, log),
      built_in_keys_(keys_, *sink_, folders, *sink_, log) {}

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
  key_parts_.reset();
  files_ = {};
  keys_ = {};
  const WithdrawnValues withdrawn = file_loader_.Withdrawn();
  for (const BuiltInStage& stage : kFileStages) built_in_files_.AddBuiltIn(stage, withdrawn);
  file_loader_.removeFromList();
  for (const Loader* loader : kFileLoaders) file_loader_.Load(*loader);
  for (std::size_t i = 0; i < files_.lstSearch.size(); ++i) FileRow(files_.lstSearch[i]);
  files_ = {};
  built_in_keys_.AddBuiltIn(kBuiltInRegistryStage);
  for (const Loader* loader : kKeyLoaders) key_loader_.Load(*loader);
  for (std::size_t i = 0; i < keys_.lstRegistry.size(); ++i) {
    const SignatureRow row = keys_.lstRegistry[i];
    values_.try_emplace(FoldedKey(row.text) + "\n" + Upper(row.sub1), row.sub2);
  }
  for (std::size_t i = 0; i < keys_.lstRegKSearch.size(); ++i) {
    const SignatureRow row = keys_.lstRegKSearch[i];
    named_keys_.try_emplace(FoldedKey(row.sub2), row.sub1);
  }
  key_parts_ = std::make_unique<ContainmentIndex>(keys_.lstSearch, &SignatureRow::text);
}

void KnownSpies::FileRow(const SignatureRow& row) {
  const std::string signature = NormalizeSignature(row.sub2);
  const bool folder = row.text == kRowSpyFolder;
  if (!folder && row.text != kRowSpyFile) return;
  switch (ClassifyPattern(signature)) {
    case PatternKind::Unusable:
      return;
    case PatternKind::Name:
      (folder ? folder_names_ : file_names_).try_emplace(Upper(signature), row.sub1);
      return;
    default:
      patterns_.push_back({FoldedParts(signature), folder, std::string(row.sub1)});
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
  if (!key_parts_) return {};
  const auto row = key_parts_->FirstRowIn(key);
  return row ? std::string(keys_.lstSearch[*row].sub1) : std::string();
}

}  // namespace scourwell
