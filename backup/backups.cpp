// SPDX-License-Identifier: MIT
#include "backup/backups.h"

#include <algorithm>

#include "machine/file_utils.h"
#include "machine/reasons.h"
#include "text/text.h"
#include "text/unicode.h"

namespace scourwell {
namespace {

constexpr char kFirstEnding[] = ".q01";
constexpr unsigned kMostNames = 1000;
constexpr std::size_t kLongestFileName = 255;  // 16-bit units

std::string ArchiveNamed(const std::string& name) { return name + std::string(kArchiveEnding); }

// A listing compares 8.3 names too: its "*.reg" finds "notes.registry".
bool HasEnding(std::string_view name, std::string_view ending) {
  return name.size() > ending.size() && EndsWithNoCase(name, ending);
}

std::string Stem(const std::string& key) {
  return HasEnding(key, kArchiveEnding) || HasEnding(key, kFirstEnding)
             ? key.substr(0, key.size() - 4)
             : key;
}

bool IsBareName(const std::string& key) {
  return !key.empty() && !HoldsSeparator(key) && key.find_first_of("/:*?") == key.npos;
}

// The key of a finding that lies in the registry.
std::string KeyOf(const FoundObject& object) {
  if (const auto* key = std::get_if<FoundKey>(&object)) return FullKeyPath(key->place);
  if (const auto* value = std::get_if<FoundValue>(&object)) return FullKeyPath(value->key);
  return {};
}

}  // namespace

std::string Backups::PathOf(std::string_view file_name) const {
  return AddPathToFileName(parts_.settings.BackupFolder, file_name);
}

// Another path would lead to the root or the current folder of some drive.
Outcome Backups::CheckFolder() const {
  if (IsAbsolutePath(PathOf({}))) return {};
  return Outcome::Failed(kBadFileName, "The backup folder is not a full path")
      .With("Folder: ", parts_.settings.BackupFolder);
}

std::vector<std::string> FailureTexts(const Captions& captions, const BackupReport& report) {
  std::vector<std::string> texts;
  if (!report.archive.ok()) texts.push_back(ReasonText(captions, report.archive));
  for (const ItemReport& failure : report.failures) {
    texts.push_back(failure.path + ": " + ReasonText(captions, failure.why));
  }
  return texts;
}

bool Backups::IsUsableName(const std::string& name) const {
  if (name.empty() || HoldsSeparator(name) || name.find_first_of("/:*?\"<>|%") != name.npos) {
    return false;
  }
  if (name.front() == ' ' || name.back() == ' ' || name.front() == '.') return false;
  return IsPlainPath(PathOf(ArchiveNamed(name))) &&
         ToUtf16(name + kExported64Ending).size() <= kLongestFileName;
}

bool Backups::Exists(const std::string& name) const {
  return FileExists(parts_.files, PathOf(ArchiveNamed(name)));
}

std::string Backups::NameForNow() const {
  const LocalTime now = parts_.clock.Now();
  const auto two = [](int number) { return Padded(static_cast<unsigned>(number), 2); };
  const std::string stem = std::to_string(now.year) + "-" + two(now.month) + "-" + two(now.day) +
                           " " + two(now.hour) + two(now.minute) + two(now.second);
  std::string name = stem;
  for (unsigned i = 2; Exists(name) && i < kMostNames; ++i) name = stem + " " + std::to_string(i);
  return name;
}

bool Backups::Needs(const FoundObject& object) const {
  DirEntry there;
  const std::string* path = PathOnDisk(object);
  if (path) return parts_.files.Stat(*path, &there).code() != kFileNotFound;
  return KindOf(object) != FindingKind::Process;
}

BackupReport Backups::Create(const std::string& name, const std::vector<const Finding*>& rows,
                             ArchiveOptions options) {
  BackupReport report;
  report.archive = parts_.log.TrapOutcome("cmdBackup", [&]() -> Outcome {
    Outcome stored = Store(name, rows, std::move(options), &report);
    return stored.ok() ? Outcome() : std::move(stored).With("Archive: ", ArchiveNamed(name));
  });
  for (const ItemReport& failure : report.failures) {
    Outcome record =
        Outcome::Failed(kPathFileAccess, "Not backed up: " + failure.why.description());
    parts_.log.LogFailure(std::move(record).With("Path: ", failure.path), "cmdBackup");
  }
  return report;
}

Outcome Backups::Store(const std::string& name, const std::vector<const Finding*>& rows,
                       ArchiveOptions options, BackupReport* report) {
  if (Outcome usable = CheckFolder(); !usable.ok()) return usable;
  if (!IsUsableName(name)) return Outcome::Failed(kBadFileName);
  RestoreRun::EraseScripts(parts_.files, parts_.settings.BackupFolder, parts_.log);
  ArchiveWriter archive(parts_.files, parts_.clock, parts_.pump);
  if (Outcome made = archive.Create(PathOf(ArchiveNamed(name)), std::move(options)); !made.ok()) {
    return made;
  }
  RegistryBackup registry(parts_.registry, parts_.registry64, parts_.pump, parts_.code_pages,
                          ScriptReader::Unicode);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const std::size_t failed = archive.result().failed.size();
    const std::size_t left_out = registry.left_out().size();
    if (Outcome added = StoreRow(*rows[i], &registry, &archive); !added.ok()) return added;
    if (archive.result().failed.size() > failed || registry.left_out().size() > left_out) {
      report->failed_rows.push_back(i);
    }
  }
  // What is stored only in part belongs to the report, but hinders nothing.
  for (const auto* items : {&archive.result().failed, &archive.result().notes, &registry.left_out(),
                            &registry.notes()}) {
    report->failures.insert(report->failures.end(), items->begin(), items->end());
  }
  Outcome done = AddScripts(name, registry, &archive);
  if (done.ok()) done = archive.Finish(KeyOfMachine(parts_.kept, parts_.system));
  if (done.ok()) RememberPlace(archive.path());
  return done;
}

Outcome Backups::StoreRow(const Finding& row, RegistryBackup* registry, ArchiveWriter* archive) {
  registry->Add(row.object);
  const std::string* path = PathOnDisk(row.object);
  archive->AddSpy(row.spy, path ? std::string(WithoutEndSeparators(*path)) : KeyOf(row.object));
  DirEntry there;
  if (!path || parts_.files.Stat(*path, &there).code() == kFileNotFound) return {};
  return archive->AddFile(*path);
}

// Without this, an archive that was continued on another disk would never be seen again.
void Backups::RememberPlace(const std::string& path) {
  const std::string_view name = FileNamePart(path);
  ArchivePlace place{std::string(name), path.substr(0, path.size() - name.size())};
  DirEntry there;
  if (parts_.files.Stat(path, &there).ok()) {
    place.size = there.size;
    place.modified = there.modified;
  }
  const bool inside = EqualsNoCase(WithoutEndSeparators(place.folder),
                                   WithoutEndSeparators(parts_.settings.BackupFolder));
  parts_.log.Trap("cmdBackup",
                  [&] { return inside ? places_.Forget(place.key) : places_.Remember(place); });
}

// Scripts stand in the order in which they are imported: what knows the true types comes last.
Outcome Backups::AddScripts(const std::string& name, const RegistryBackup& registry,
                            ArchiveWriter* archive) {
  const struct {
    const char* ending;
    const RegScript* script;
    bool always;
    std::string records;
  } scripts[] = {
      {kKeysEnding, &registry.keys(), true, {}},
      {kValuesEnding, &registry.values(), true, {}},
      {kExportedEnding, &registry.exported(), false, registry.key_records()},
      {kExported64Ending, &registry.exported64(), false, registry.key_records64()},
  };
  for (const auto& [ending, script, always, records] : scripts) {
    if (script->empty() && !always) continue;
    Outcome added = archive->AddScript(name + ending, script->Bytes(), records);
    if (!added.ok()) return added;
  }
  return {};
}

std::vector<BackupRow> Backups::List() {
  std::vector<BackupRow> rows;
  std::vector<BackupRow> begun;  // first volumes
  parts_.log.Trap("frmBackup_Load", [&]() -> Outcome {
    if (Outcome usable = CheckFolder(); !usable.ok()) return usable;
    Outcome listed = parts_.files.List(PathOf("*.q*"), [&](const DirEntry& entry) {
      if (entry.IsFolder()) return true;
      if (HasEnding(entry.name, kArchiveEnding)) {
        rows.push_back({entry.name, entry.size, entry.modified});
      } else if (HasEnding(entry.name, kFirstEnding)) {
        begun.push_back(
            {ArchiveNamed(Stem(entry.name)), entry.size, entry.modified, std::string()});
      }
      return true;
    });
    const auto add = [&](BackupRow row) {
      const auto is_it = [&](const BackupRow& each) { return EqualsNoCase(each.key, row.key); };
      if (std::ranges::none_of(rows, is_it)) rows.push_back(std::move(row));
    };
    for (ArchivePlace& place : places_.All()) {
      add({place.key, place.size, place.modified, std::move(place.folder)});
    }
    for (BackupRow& row : begun) add(std::move(row));
    return listed;
  });
  return rows;
}

// In the backup folder, where it was left, or where somebody says.
Outcome Backups::FindLastPiece(const std::string& key, const FindVolume& find, std::string* path) {
  *path = PathOf(key);
  if (FileExists(parts_.files, *path)) return {};
  if (const auto place = places_.Find(key)) {
    *path = AddPathToFileName(place->folder, key);
    if (FileExists(parts_.files, *path)) return {};
  } else if (!FileExists(parts_.files, PathOf(VolumeName(Stem(key), 1)))) {
    return Outcome::Failed(kFileNotFound);
  }
  const Outcome missing = Outcome::Failed(kFileNotFound, "The last piece was not found: " + *path);
  for (int questions = 0; find && questions < kMostQuestions; ++questions) {
    const std::string folder = find(0, key, missing);
    if (folder.empty()) break;
    *path = AddPathToFileName(folder, key);
    if (FileExists(parts_.files, *path)) return {};
  }
  return missing;
}

// The first pieces of an archive that ends elsewhere lie here. A piece that does not fit is asked
// for, so the folder is answered only once for each.
FindVolume Backups::InBackupFolder(FindVolume find) const {
  return [this, find = std::move(find), tried = 0u](std::uint32_t number, const std::string& name,
                                                    const Outcome& problem) mutable {
    if (tried != number && FileExists(parts_.files, PathOf(name))) {
      tried = number;
      return parts_.settings.BackupFolder;
    }
    return find ? find(number, name, problem) : std::string();
  };
}

Outcome Backups::Open(const std::string& key, const FindVolume& find,
                      std::unique_ptr<RestoreRun>* run) {
  return parts_.log.TrapOutcome("cmdRestore", [&]() -> Outcome {
    if (Outcome usable = CheckFolder(); !usable.ok()) return usable;
    if (!IsBareName(key)) return Outcome::Failed(kBadFileName);
    RestoreRun::EraseScripts(parts_.files, parts_.settings.BackupFolder, parts_.log);
    std::string path;
    Outcome opened = FindLastPiece(key, find, &path);
    auto made = std::make_unique<RestoreRun>(RestoreRun::Parts{
        parts_.files, parts_.registry, parts_.registry64, parts_.system, parts_.pump, parts_.shell,
        parts_.log, parts_.code_pages, parts_.os, parts_.folders, parts_.settings.BackupFolder,
        KeyOfMachine(parts_.kept, parts_.system)});
    if (opened.ok()) opened = made->Open(path, InBackupFolder(find));
    if (!opened.ok()) return std::move(opened).With("Archive: ", key);
    *run = std::move(made);
    return {};
  });
}

Outcome Backups::Restore(RestoreRun& run, const std::vector<bool>& chosen, RestoreResult* result) {
  return parts_.log.TrapOutcome("cmdRestore", [&] { return run.Restore(chosen, result); });
}

// The archive first: without its last piece the volumes are worth nothing.
Outcome Backups::Delete(const std::string& key) {
  return parts_.log.TrapOutcome("cmdClean", [&]() -> Outcome {
    if (Outcome usable = CheckFolder(); !usable.ok()) return usable;
    if (!IsBareName(key)) return Outcome::Failed(kBadFileName);
    std::string path;
    Outcome found = FindLastPiece(key, {}, &path);
    const bool begun = FileExists(parts_.files, PathOf(VolumeName(Stem(key), 1)));
    const bool known = found.ok() || begun || places_.Find(key);
    if (found.ok() || !known) found = parts_.files.EraseFile(path);
    // A disk that is not there keeps its piece.
    if (!found.ok() && !(known && found.code() == kFileNotFound)) {
      return std::move(found).With("Archive: ", key);
    }
    for (std::uint32_t number = 1; number <= kMostVolumes; ++number) {
      const std::string volume = PathOf(VolumeName(Stem(key), number));
      if (!FileExists(parts_.files, volume)) break;
      if (Outcome erased = parts_.files.EraseFile(volume); !erased.ok()) return erased;
    }
    return places_.Forget(key);
  });
}

}  // namespace scourwell
