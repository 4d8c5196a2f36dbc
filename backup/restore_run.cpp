// SPDX-License-Identifier: MIT
#include "backup/restore_run.h"

#include <algorithm>

#include "backup/block_codec.h"
#include "machine/file_utils.h"
#include "scan/finding_texts.h"
#include "text/caption_ids.h"
#include "text/text.h"

namespace scourwell {
namespace {

constexpr std::uint32_t kImportLimit = 15'000;           // milliseconds for one script
constexpr std::uint64_t kLargestScript = 64ull << 20;    // bytes
constexpr std::uint64_t kLargestCompared = 16ull << 20;  // bytes of a file, while it is only listed

FoundObject ObjectOf(const RegistryItem& item) {
  if (!item.is_value) return FoundKey{item.place, item.view64};
  return FoundValue{item.place, item.name, ValueToText(item.value), item.view64};
}

}  // namespace

RestoreRun::RestoreRun(Parts parts)
    : parts_(std::move(parts)),
      archive_(parts_.files, parts_.pump, parts_.code_pages),
      next_start_({parts_.files, parts_.system, parts_.registry, parts_.code_pages, parts_.os,
                   parts_.folders}) {}

Outcome RestoreRun::Open(const std::string& path, const FindVolume& find) {
  if (Outcome opened = archive_.Open(path, find, parts_.key); !opened.ok()) return opened;
  rules_ = std::make_unique<RestoreRules>(parts_.files, parts_.folders, foreign());
  extractor_ = std::make_unique<Extractor>(parts_.files, parts_.pump, *rules_);
  registry_ = std::make_unique<RegistryRestore>(parts_.registry, parts_.registry64,
                                                parts_.code_pages, parts_.log, foreign());
  if (Outcome read = ReadScripts(); !read.ok()) return read;
  AddFileItems();
  AddRegistryItems();
  return {};
}

Outcome RestoreRun::ReadScripts() {
  for (std::size_t i = 0; i < archive_.items().size(); ++i) {
    const ArchiveItem& item = archive_.items()[i];
    if (item.kind != ItemKind::Script) continue;
    if (!parts_.pump.Next())
      return Outcome::Failed(kInvalidCall, "Stopped before the end")
          .Because(Caption::ReasonStopped);
    std::string text;
    Outcome read = Outcome::Failed(kOutOfMemory, "The script is too large");
    if (!IsScriptName(item.path)) {
      read = Outcome::Failed(kBadFileName, "The archive names a script that is not allowed");
    } else if (item.size <= kLargestScript) {
      read = archive_.ReadItem(i, [&](std::string_view block) {
        text += block;
        return Outcome();
      });
    }
    // An empty script says nothing.
    if (read.ok() && !text.empty()) read = registry_->AddScript(item.path, text);
    if (read.ok() && !text.empty()) scripts_.push_back(item.path);
    // Another machine's users are not ours.
    if (read.ok() && !foreign()) registry_->AddRecords(item.keys, IsScriptOf64(item.path));
    if (!read.ok()) unreadable_.push_back({item.path, std::move(read)});
  }
  return {};
}

void RestoreRun::AddFileItems() {
  for (std::size_t i = 0; i < archive_.items().size(); ++i) {
    const ArchiveItem& stored = archive_.items()[i];
    if (stored.kind == ItemKind::Script || !parts_.pump.Next()) continue;
    BackupItem item;
    item.object = stored.kind == ItemKind::Folder ? FoundObject(FoundFolder{stored.path})
                                                  : FoundObject(FoundFile{stored.path});
    item.spy = SpyOf(stored.path);
    item.size = stored.size;
    std::vector<std::unique_ptr<FolderHold>> holds;
    item.refused = IsStorablePath(stored.path)
                       ? rules_->Allow(stored.path, &holds)
                       : Outcome::Failed(kBadFileName, "A path that is not allowed");
    if (item.refused.ok()) item.state = StateOf(stored);
    numbers_.push_back(i);
    items_.push_back(std::move(item));
  }
}

void RestoreRun::AddRegistryItems() {
  for (const RegistryItem& stored : registry_->items()) {
    BackupItem item;
    item.object = ObjectOf(stored);
    item.spy = SpyOf(FullKeyPath(stored.place));
    item.size = stored.value.data.size();
    item.state = registry_->StateOf(stored);
    item.starts_program = stored.is_value && StartsPrograms(FullKeyPath(stored.place)) &&
                          !BringsProgramOf(stored.value);
    item.refused = stored.refused;
    items_.push_back(std::move(item));
  }
}

// A file of the same size and time is taken for the same here: restoring compares all of it.
ItemState RestoreRun::StateOf(const ArchiveItem& item) {
  DirEntry there;
  if (!parts_.files.Stat(item.path, &there).ok()) return ItemState::Missing;
  if (there.IsLink() || there.IsFolder() != (item.kind == ItemKind::Folder)) {
    return ItemState::Different;
  }
  if (there.IsFolder()) return ItemState::Same;
  if (there.size != item.size) return ItemState::Different;
  if (there.modified == item.times.modified || item.size > kLargestCompared) {
    return there.modified == item.times.modified ? ItemState::Same : ItemState::Different;
  }
  std::uint32_t crc = 0;
  const Outcome read = parts_.files.ReadBlocks(item.path, [&](std::string_view block) {
    crc = Crc32(block, crc);
    return parts_.pump.Next();
  });
  return read.ok() && crc == item.crc ? ItemState::Same : ItemState::Different;
}

// The whole text is the path of a file that comes with it, perhaps in quotes: behind a path, more
// could be started.
bool RestoreRun::BringsProgramOf(const RegValue& value) const {
  std::string_view text = TrimNull(value.data);
  if (text.size() > 2 && text.starts_with('"') && text.ends_with('"')) {
    text = text.substr(1, text.size() - 2);
  }
  return std::ranges::any_of(archive_.items(), [&](const ArchiveItem& item) {
    return item.kind == ItemKind::File && EqualsNoCase(item.path, text);
  });
}

// Of several places that hold this one, the innermost.
std::string RestoreRun::SpyOf(std::string_view place) const {
  const ArchiveSpy* best = nullptr;
  for (const ArchiveSpy& spy : archive_.spies()) {
    if (!IsAtOrBelow(place, spy.place)) continue;
    if (!best || best->place.size() < spy.place.size()) best = &spy;
  }
  return best ? best->spy : std::string();
}

std::vector<bool> RestoreRun::AllButDoubtful() const {
  std::vector<bool> chosen;
  for (const BackupItem& item : items_) chosen.push_back(!foreign() || !item.starts_program);
  return chosen;
}

Outcome RestoreRun::Restore(const std::vector<bool>& chosen, RestoreResult* result) {
  if (chosen.size() != items_.size()) return Outcome::Failed(kInvalidCall);
  const std::vector<ItemReport> doomed = RestoreFiles(chosen);
  *result = extractor_->result();
  result->failed.insert(result->failed.end(), doomed.begin(), doomed.end());
  result->failed.insert(result->failed.end(), unreadable_.begin(), unreadable_.end());
  RestoreRegistry(chosen, result);
  for (const auto* items : {&result->failed, &result->notes}) {
    for (const ItemReport& item : *items) {
      Outcome record = item.why;
      parts_.log.LogFailure(std::move(record).With("Path: ", item.path), "cmdRestore");
    }
  }
  if (!parts_.pump.closing()) return {};
  return Outcome::Failed(kInvalidCall, "The restoring was stopped before its end")
      .Because(Caption::ReasonStopped);
}

// What is put back, or lies there unchanged, must not go at the next start: those that would are
// returned.
std::vector<ItemReport> RestoreRun::RestoreFiles(const std::vector<bool>& chosen) {
  std::vector<ItemReport> doomed;
  for (std::size_t i = 0; i < numbers_.size() && parts_.pump.Next(); ++i) {
    if (!chosen[i]) continue;
    const std::string& path = archive_.items()[numbers_[i]].path;
    if (items_[i].refused.ok()) {
      Outcome withdrawn = next_start_.Withdraw(path);
      if (!withdrawn.ok()) {
        doomed.push_back({path, std::move(withdrawn)});
        continue;
      }
    }
    static_cast<void>(extractor_->ExtractItem(archive_, numbers_[i]));
  }
  extractor_->FinishFolders();
  return doomed;
}

// The editor goes first; what it does not do, or must not be told, is done here.
void RestoreRun::RestoreRegistry(const std::vector<bool>& chosen, RestoreResult* result) {
  const std::vector<bool> of_registry(chosen.begin() + static_cast<std::ptrdiff_t>(numbers_.size()),
                                      chosen.end());
  registry_->MakeKeys(of_registry);
  for (std::size_t i = 0; i < scripts_.size() && parts_.pump.Next(); ++i) {
    const RegScript script = registry_->ForEditor(i, of_registry, ReaderOf(parts_.os));
    if (script.empty() || !IsOwnScript(scripts_[i])) continue;
    parts_.log.Trap("cmdRestore", [&] { return RunEditor(scripts_[i], script); });
  }
  for (std::size_t i = 0; i < of_registry.size() && parts_.pump.Next(); ++i) {
    if (!of_registry[i]) continue;
    const RegistryItem& item = registry_->items()[i];
    Outcome restored = registry_->Restore(item);
    if (!restored.ok()) result->failed.push_back({PlaceText(ObjectOf(item)), std::move(restored)});
  }
  for (ItemReport& key : registry_->FinishKeys()) result->notes.push_back(std::move(key));
  for (const std::string& line : registry_->left_out()) {
    result->failed.push_back(
        {line, Outcome::Failed(kTypeMismatch, "This line of a script is not carried out")});
  }
}

// What lies in its place already is somebody else's: then the editor is not needed.
Outcome RestoreRun::RunEditor(const std::string& name, const RegScript& script) {
  const std::string path = AddPathToFileName(parts_.scratch, name);
  DirEntry there;
  if (parts_.files.Stat(path, &there).code() != kFileNotFound) return {};
  if (Outcome written = parts_.files.Replace(path, script.Bytes(true)); !written.ok())
    return written;
  Outcome ran = parts_.shell.Run(CommandFor(name, path), kImportLimit);
  // An editor that goes on may still read it; the next run erases it.
  Outcome erased = ran.code() == kDeviceError ? Outcome() : parts_.files.EraseFile(path);
  return ran.ok() ? std::move(erased) : std::move(ran).With("Script: ", path);
}

// A 64-bit Windows gives our kind of program the 32-bit editor even by the full path of the other
// one; only when it starts a program, "Sysnative" is a name of the true system folder.
std::string RestoreRun::CommandFor(const std::string& name, const std::string& path) const {
  if (IsScriptOf64(name)) {
    const bool native =
        FileExists(parts_.files, AddPathToFileName(parts_.folders.system, "reg.exe"));
    return AddPathToFileName(parts_.folders.windows,
                             native ? "Sysnative\\reg.exe import" : "regedit.exe /S") +
           " \"" + path + "\"";
  }
  std::string plain = path;
  if (plain.find(' ') != plain.npos) plain = parts_.files.ShortPath(path);
  if (plain.empty() || plain.find(' ') != plain.npos) plain = "\"" + path + "\"";
  return "regedit /I /S " + plain;
}

void RestoreRun::EraseScripts(Files& files, const std::string& folder, ErrorLog& log) {
  std::vector<std::string> names;
  static_cast<void>(files.List(AddPathToFileName(folder, "*.reg"), [&](const DirEntry& entry) {
    if (!entry.IsFolder() && IsOwnScript(entry.name)) names.push_back(entry.name);
    return true;
  }));
  for (const std::string& name : names) {
    const std::string path = AddPathToFileName(folder, name);
    std::unique_ptr<FileReader> reader;
    char bytes[300];
    std::size_t filled = 0;
    if (!files.OpenReader(path, &reader).ok()) continue;
    if (!reader->ReadAt(0, bytes, sizeof bytes, &filled).ok()) continue;
    reader.reset();
    if (!BearsScriptMark({bytes, filled})) continue;
    log.Trap("cmdBackup", [&] { return files.EraseFile(path); });
  }
}

}  // namespace scourwell
