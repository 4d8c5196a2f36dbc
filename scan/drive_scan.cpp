// SPDX-License-Identifier: MIT
#include "scan/drive_scan.h"

#include "machine/file_utils.h"
#include "text/text.h"

namespace scourwell {
namespace {

// A walk does not know its end: its measure is the share that is through.
constexpr std::uint32_t kWalkSteps = 1'000'000;

std::vector<std::string> Paths(const auto& roots) {
  std::vector<std::string> paths;
  for (const auto& root : roots) paths.push_back(root.path);
  return paths;
}

}  // namespace

DriveScan::DriveScan(const Parts& parts, const DefinitionList<SearchedName>& folder_pass,
                     const DefinitionList<SearchedName>& file_pass, AdvancedScan* advanced,
                     std::size_t most_noted)
    : parts_(parts),
      folder_pass_(parts.files, parts.pump, parts.log, parts.sink, folder_pass),
      file_pass_(parts.files, parts.pump, parts.log, parts.sink, file_pass),
      advanced_(advanced),
      notes_(most_noted) {}

void DriveScan::ScanDrives(const ScanScope& scope) {
  for (std::size_t i = 1; i <= scope.count(); ++i) {
    if (!scope.IsDrive(i) || !scope.ticked(i)) continue;
    const ScanScope::Node& node = scope.node(i);
    roots_.push_back({node.key,
                      parts_.captions.Text(Caption::ScanningDrive) + " - " +
                          node.text.substr(0, 2) + " (" +
                          std::string(TrimBlanks(node.text.substr(2))) + ") ...",
                      true});
  }
  parts_.log.Trap("ScanDrives", [&] { WalkFolders(); });
}

void DriveScan::ScanPaths(const std::vector<std::string>& paths) {
  for (const std::string& path : paths) roots_.push_back({path, {}, false});
  WalkFolders();
}

void DriveScan::WalkFolders() {
  folder_pass_.RecordUnusable();
  FolderWalk walk(Paths(roots_));
  PhaseMeter& phase = parts_.progress.phase;
  while (!parts_.pump.closing() && walk.Next()) {
    if (walk.at_root()) {
      if (!EnterRoot(walk, [&](const DirEntry& file) { EnterFile(walk, file); })) continue;
      if (phase.total() == 0) {
        phase.Begin(kWalkSteps);
        phase.BeginPortion(kWalkSteps);
      }
    }
    phase.Reach(walk.done());
    EnterFolder(&walk);
  }
  if (!parts_.pump.closing()) phase.EndPortion();
}

// True for a folder that is there. A file is handed to `on_file`.
template <class OnFile>
bool DriveScan::EnterRoot(const FolderWalk& walk, OnFile&& on_file) {
  const Root& root = roots_[walk.root()];
  if (root.drive) {
    if (!parts_.files.IsReady(root.path)) return false;
    parts_.progress.lblScanOption = root.label;
    return parts_.pump.Next();
  }
  bool folder = false;
  parts_.log.Trap("ScanFolder", [&]() -> Outcome {
    const bool drive_root = root.path.size() == 3 && IsAbsolutePath(root.path);
    folder = drive_root || FolderExists(parts_.files, root.path);
    if (folder) return {};
    DirEntry entry;
    Outcome found = parts_.files.Stat(root.path, &entry);
    if (!found.ok()) return std::move(found).With("sPath: ", root.path);
    on_file(entry);
    return {};
  });
  return folder;
}

// Lists one folder, compares its entries with the rows of the folder pass and notes what the file
// pass has to look at.
void DriveScan::EnterFolder(FolderWalk* walk) {
  if (!parts_.pump.Next()) return;
  FolderNote note;
  note.folder = walk->folder();
  note.root = walk->root();
  std::vector<NameMatch> matches;
  std::vector<std::string> subfolders;
  subShowFolderList(note.folder, &subfolders, [&](const DirEntry& entry) {
    entry_.Take(entry);
    folder_pass_.Nominate(entry_, &matches);
    if (!rest_) Note(entry_, &note);
  });
  if (parts_.pump.closing()) return;
  ++parts_.progress.lblFScan;
  folder_pass_.Report(note.folder, &matches);
  Keep(std::move(note), *walk);
  walk->Descend(std::move(subfolders));
}

void DriveScan::EnterFile(const FolderWalk& walk, const DirEntry& file) {
  FolderNote note = NoteOfFile(walk, file);
  std::vector<NameMatch> matches;
  entry_.Take(file);
  folder_pass_.Nominate(entry_, &matches);
  folder_pass_.Report(note.folder, &matches, note.only);
  if (!rest_) Note(entry_, &note);
  Keep(std::move(note), walk);
}

// However the path spells it, the name is the one that a listing shows.
FolderNote DriveScan::NoteOfFile(const FolderWalk& walk, const DirEntry& file) {
  const std::string& path = walk.folder();
  parts_.progress.lblScan = path;
  ++parts_.progress.scanned_files;
  FolderNote note;
  note.folder = FolderPart(path);
  if (note.folder.size() == 2) note.folder += "\\";
  note.only = file.name;
  note.root = walk.root();
  return note;
}

// Lists a folder on the way down.
template <class Visit>
void DriveScan::subShowFolderList(const std::string& folder, std::vector<std::string>* subfolders,
                                  Visit&& visit) {
  parts_.progress.lblScan = folder;
  ++parts_.progress.lblSFolders;
  ++parts_.progress.scanned_folders;
  parts_.log.Trap("subShowFolderList", [&]() -> Outcome {
    Outcome listed =
        parts_.files.ListNames(AddPathToFileName(folder, "*.*"), [&](const DirEntry& entry) {
          if (!parts_.pump.Next()) return false;
          visit(entry);
          if (!entry.IsFolder()) {
            ++parts_.progress.scanned_files;
          } else if (!DoWeSkipThisFolder(folder, entry)) {
            subfolders->push_back(entry.name);
          }
          return true;
        });
    if (listed.ok()) return {};
    return std::move(listed).With("File Name: ", FileNamePart(folder)).With("sFolder: ", folder);
  });
}

void DriveScan::Note(const FoldedEntry& folded, FolderNote* note) {
  file_pass_.Nominate(folded, &note->matches);
  const DirEntry& entry = folded.entry();
  if (advanced_ && advanced_->Wants(entry)) note->programs.push_back({entry.name, entry.size});
}

void DriveScan::Keep(FolderNote note, const FolderWalk& walk) {
  if (rest_) return;
  note.folders = parts_.progress.scanned_folders;
  note.files = parts_.progress.scanned_files;
  const bool empty = note.empty();
  if (!empty && !notes_.Add(std::move(note))) {
    rest_ = walk.FromHere();
    return;
  }
  folders_ = parts_.progress.scanned_folders;
  files_ = parts_.progress.scanned_files;
}

void DriveScan::ScanFiles() {
  file_pass_.RecordUnusable();
  const std::uint32_t noted = notes_.steps();
  // The notes stand for the share of the walk that they speak of.
  const double through = rest_ ? rest_->done() : 1;
  const double rest = noted * (1 - through) / std::max(through, 0.01);
  const auto steps = static_cast<std::uint32_t>(rest);
  parts_.progress.phase.Begin(noted + steps);
  parts_.progress.phase.BeginPortion(noted);
  SearchNoted();
  if (parts_.pump.closing()) return;
  parts_.progress.phase.EndPortion();
  ShowSeen(folders_, files_);
  parts_.progress.phase.BeginPortion(steps);
  if (rest_) WalkRest(through);
  if (!parts_.pump.closing()) parts_.progress.phase.EndPortion();
}

void DriveScan::SearchNoted() {
  std::size_t shown = roots_.size();
  for (FolderNote& note : notes_) {
    if (!parts_.pump.Next()) return;
    if (note.root != shown) ShowRoot(shown = note.root);
    parts_.progress.lblScan = note.folder;
    ShowSeen(note.folders, note.files);
    file_pass_.DropVanished(note.folder, &note.matches);
    subFileSearch(&note);
    if (parts_.pump.closing()) return;
    parts_.progress.phase.Step();
  }
}

// `begin`: the share of the walk that lies before it.
void DriveScan::WalkRest(double begin) {
  FolderWalk& walk = *rest_;
  if (!walk.at_root()) ShowRoot(walk.root());
  while (!parts_.pump.closing() && walk.Next()) {
    const auto on_file = [&](const DirEntry& file) {
      FolderNote note = NoteOfFile(walk, file);
      entry_.Take(file);
      Note(entry_, &note);
      subFileSearch(&note);
    };
    if (walk.at_root() && !EnterRoot(walk, on_file)) continue;
    parts_.progress.phase.Reach((walk.done() - begin) / (1 - begin));
    SearchFolder(&walk);
  }
}

// One folder of the file pass that was not noted.
void DriveScan::SearchFolder(FolderWalk* walk) {
  if (!parts_.pump.Next()) return;
  FolderNote note;
  note.folder = walk->folder();
  std::vector<std::string> subfolders;
  subShowFolderList(note.folder, &subfolders, [&](const DirEntry& entry) {
    entry_.Take(entry);
    Note(entry_, &note);
  });
  if (parts_.pump.closing()) return;
  subFileSearch(&note);
  walk->Descend(std::move(subfolders));
}

void DriveScan::subFileSearch(FolderNote* note) {
  for (const AdvancedScan::Candidate& program : note->programs) {
    advanced_->searchFilesAdvanced(note->folder, program);
    parts_.progress.phase.Step();
  }
  ++parts_.progress.lblFScan;
  file_pass_.Report(note->folder, &note->matches, note->only);
}

void DriveScan::ShowRoot(std::size_t root) {
  if (!roots_[root].label.empty()) parts_.progress.lblScanOption = roots_[root].label;
}

// What the walk had seen by then.
void DriveScan::ShowSeen(std::uint32_t folders, std::uint32_t files) {
  parts_.progress.lblSFolders = parts_.progress.scanned_folders = folders;
  parts_.progress.lblFScan = folders;
  parts_.progress.scanned_files = files;
}

}  // namespace scourwell
