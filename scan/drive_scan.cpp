// SPDX-License-Identifier: MIT
#include "scan/drive_scan.h"

#include <algorithm>

#include "machine/file_utils.h"
#include "scan/name_pattern.h"
#include "text/text.h"

namespace scourwell {
namespace {

constexpr std::string_view kEverything = "*.*";

}  // namespace

DriveScan::DriveScan(Files& files, Pump& pump, ErrorLog& log, const Captions& captions,
                     FindingSink& sink, ScanProgress& progress,
                     const DefinitionList<SearchedName>& list)
    : files_(files),
      pump_(pump),
      log_(log),
      captions_(captions),
      sink_(sink),
      progress_(progress),
      index_(list) {
  if (index_.unusable() == 0) return;
  log_.LogFailure(Outcome::Failed(kBadFileName, std::to_string(index_.unusable()) +
                                                    " signatures cannot be searched for")
                      .With("First: ", index_.first_unusable()),
                  "subFileSearch");
}

void DriveScan::ScanDrives(const ScanScope& scope) {
  log_.Trap("ScanDrives", [&] {
    for (std::size_t i = 1; i <= scope.count(); ++i) {
      if (!scope.IsDrive(i) || !scope.ticked(i)) continue;
      const ScanScope::Node& node = scope.node(i);
      if (!files_.IsReady(node.key)) continue;
      progress_.lblScanOption = captions_.Text(Caption::ScanningDrive) + " - " +
                                node.text.substr(0, 2) + " (" +
                                std::string(TrimBlanks(node.text.substr(2))) + ") ...";
      if (!pump_.Next()) return;
      subShowFolderList(node.key);
    }
  });
}

void DriveScan::ScanPath(const std::string& path) {
  log_.Trap("ScanFolder", [&]() -> Outcome {
    DirEntry entry;
    const bool is_root = path.size() == 3 && IsAbsolutePath(path);
    if (is_root || FolderExists(files_, path)) {
      subShowFolderList(path);
      return {};
    }
    Outcome found = files_.Stat(path, &entry);
    if (!found.ok()) return std::move(found).With("sPath: ", path);
    SearchOneFile(path);
    return {};
  });
}

void DriveScan::subShowFolderList(const std::string& root) {
  if (goal_) goal_->Enter(root);
  std::vector<Level> levels;
  Enter(root, &levels);
  while (!levels.empty() && !pump_.closing()) {
    if (levels.back().next == levels.back().subfolders.size()) {
      levels.pop_back();
    } else {
      EnterSubfolder(&levels);
    }
  }
  if (goal_ && !pump_.closing()) goal_->Leave();
}

// Lists one folder, compares its entries and puts it on the way down.
void DriveScan::Enter(std::string path, std::vector<Level>* levels) {
  if (!pump_.Next()) return;
  Level level{std::move(path), {}, 0};
  std::vector<Match> matches;
  progress_.lblScan = level.path;
  ++progress_.lblSFolders;
  ++progress_.scanned_folders;
  log_.Trap("subShowFolderList", [&]() -> Outcome {
    Outcome outcome = ListFolder(&level, &matches);
    if (outcome.ok()) return {};
    return std::move(outcome)
        .With("File Name: ", FileNamePart(level.path))
        .With("sFolder: ", level.path);
  });
  if (pump_.closing()) return;
  subFileSearch(level, &matches);
  if (goal_ && !pump_.closing()) goal_->FolderDone();
  levels->push_back(std::move(level));
}

Outcome DriveScan::ListFolder(Level* level, std::vector<Match>* matches) {
  std::vector<SignatureIndex::Nomination> nominations;
  return files_.ListNames(AddPathToFileName(level->path, kEverything), [&](const DirEntry& entry) {
    if (!pump_.Next()) return false;
    nominations.clear();
    index_.Nominate(entry, &nominations);
    for (const SignatureIndex::Nomination& nomination : nominations) {
      matches->push_back(
          {nomination.row, nomination.certain, nomination.certain ? ToHit(entry) : Hit()});
    }
    if (!entry.IsFolder()) {
      ++progress_.scanned_files;
    } else if (!DoWeSkipThisFolder(level->path, entry)) {
      level->subfolders.push_back(entry.name);
    }
    return true;
  });
}

void DriveScan::EnterSubfolder(std::vector<Level>* levels) {
  Level& parent = levels->back();
  // A copy: entering grows the vector that holds the level.
  std::string path = AddPathToFileName(parent.path, parent.subfolders[parent.next++]);
  Enter(std::move(path), levels);
}

// Row order first, then listing order, as if every row had been listed on its own.
void DriveScan::subFileSearch(const Level& level, std::vector<Match>* matches) {
  if (advanced_) advanced_->searchFilesAdvanced(level.path);
  ++progress_.lblFScan;
  std::stable_sort(matches->begin(), matches->end(),
                   [](const Match& a, const Match& b) { return a.row < b.row; });
  log_.Trap("subFileSearch", [&] {
    std::uint32_t confirmed = 0xFFFFFFFF;
    for (const Match& match : *matches) {
      if (!pump_.Next()) return;
      if (match.certain) {
        Report(level, match.row, {}, match.hit);
      } else if (match.row != confirmed) {
        confirmed = match.row;
        Confirm(level, match.row);
      }
    }
  });
}

void DriveScan::Confirm(const Level& level, std::uint32_t row) {
  const std::string signature = NormalizeSignature(index_.Row(row).name);
  if (PassesThroughLink(level.path, signature)) return;
  const std::string pattern = AddPathToFileName(level.path, signature);
  // The names lie in the folder that the signature's own path leads to.
  const std::string below(FolderPart(signature));
  const Outcome listed = files_.List(pattern, [&](const DirEntry& entry) {
    if (!pump_.Next()) return false;
    if (entry.IsFolder() == index_.IsFolderRow(row)) Report(level, row, below, ToHit(entry));
    return true;
  });
  if (listed.ok() || listed.code() == kPathNotFound) return;  // the path may just not be there
  log_.LogFailure(Outcome(listed).With("retFolderName: ", signature).With("sPath: ", level.path),
                  "subFileSearch");
}

// True when a folder on the way of a relative signature is a link: its content lies elsewhere.
bool DriveScan::PassesThroughLink(const std::string& folder, std::string_view signature) {
  for (std::size_t slash = FindSeparator(signature); slash != std::string_view::npos;
       slash = FindSeparator(signature, slash + 1)) {
    DirEntry entry;
    const std::string part = AddPathToFileName(folder, signature.substr(0, slash));
    if (files_.Stat(part, &entry).ok() && entry.IsLink()) return true;
  }
  return false;
}

DriveScan::Hit DriveScan::ToHit(const DirEntry& entry) { return {entry.name, entry.IsLink()}; }

Evidence DriveScan::EvidenceOf(std::uint32_t row) const {
  const SearchedName& definition = index_.Row(row);
  const bool pattern = definition.name.find_first_of("*?") != std::string_view::npos;
  return {definition.spy, pattern ? Certainty::Part : Certainty::Name, definition.source};
}

// `below` is the way from the level to the folder of the hit, mostly empty.
void DriveScan::Report(const Level& level, std::uint32_t row, const std::string& below,
                       const Hit& hit) {
  const Evidence evidence = EvidenceOf(row);
  const std::string folder = below.empty() ? level.path : AddPathToFileName(level.path, below);
  const std::string path = AddPathToFileName(folder, hit.name);
  if (!index_.IsFolderRow(row)) {
    ReportOnce(sink_, FoundFile{path}, evidence);
    return;
  }
  ReportOnce(sink_, FoundFolder{path}, evidence);
  if (!hit.link) FindFiles(path, {evidence.spy, Certainty::Beside, evidence.source});
}

// Every file right inside a spy folder is reported with it.
void DriveScan::FindFiles(const std::string& folder, const Evidence& evidence) {
  log_.Trap("FindFiles", [&]() -> Outcome {
    Outcome listed =
        files_.ListNames(AddPathToFileName(folder, kEverything), [&](const DirEntry& entry) {
          if (!pump_.Next()) return false;
          if (entry.IsFolder()) return true;
          ReportOnce(sink_, FoundFile{AddPathToFileName(folder, entry.name)}, evidence);
          return true;
        });
    return listed.ok() ? Outcome() : std::move(listed).With("sPath: ", folder);
  });
}

void DriveScan::SearchOneFile(const std::string& path) {
  const std::string folder(FolderPart(path));
  const Level level{folder.size() == 2 ? folder + "\\" : folder, {}, 0};
  progress_.lblScan = path;
  ++progress_.scanned_files;
  DirEntry entry;
  if (!files_.Stat(path, &entry).ok()) return;
  if (advanced_) advanced_->SearchFile(level.path, entry);
  std::vector<SignatureIndex::Nomination> nominations;
  index_.Nominate(entry, &nominations);
  std::stable_sort(nominations.begin(), nominations.end(),
                   [](const auto& a, const auto& b) { return a.row < b.row; });
  for (const SignatureIndex::Nomination& nomination : nominations) {
    bool certain = nomination.certain;
    if (!certain) {
      const Outcome listed = files_.List(
          AddPathToFileName(level.path, NormalizeSignature(index_.Row(nomination.row).name)),
          [&](const DirEntry& found) {
            certain = EqualsNoCase(found.name, entry.name);
            return !certain;
          });
      if (!listed.ok()) continue;
    }
    if (certain) Report(level, nomination.row, {}, ToHit(entry));
  }
}

}  // namespace scourwell
