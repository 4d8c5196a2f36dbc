#include "scan/drive_scan.h"

#include <algorithm>

#include "platform/file_utils.h"
#include "platform/text.h"
#include "scan/name_pattern.h"

namespace scourwell {
namespace {

constexpr std::string_view kEverything = "*.*";

bool Fits(const std::string& folder) {
  return folder.size() + 1 + kEverything.size() <= kLongestPath;
}

Outcome Unreachable(const std::string& path) {
  return Outcome::Failed(kPathNotFound,
                         "The folder cannot be reached: its path is too long or its name has "
                         "characters outside the code page")
      .With("sFolder: ", path);
}

}  // namespace

DriveScan::DriveScan(Files& files, Pump& pump, ErrorLog& log, const Captions& captions,
                     DetectionSink& sink, ScanProgress& progress, const SignatureList& list)
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
  static_cast<void>(log_.Trap("ScanDrives", [&] {
    for (std::size_t i = 1; i <= scope.count(); ++i) {
      if (!scope.IsDrive(i) || !scope.ticked(i)) continue;
      const ScanScope::Node& node = scope.node(i);
      if (!files_.IsReady(node.key)) continue;
      progress_.lblScanOption = captions_.Text(1841) + " - " + node.text.substr(0, 2) + " (" +
                                std::string(TrimBlanks(node.text.substr(2))) + ") ...";
      if (!pump_.Next()) return;
      subShowFolderList(node.key);
    }
  }));
}

void DriveScan::ScanPath(const std::string& path) {
  static_cast<void>(log_.Trap("ScanFolder", [&]() -> Outcome {
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
  }));
}

void DriveScan::subShowFolderList(const std::string& root) {
  if (goal_) goal_->Enter(root);
  std::vector<Level> levels;
  Enter(root, root, {}, &levels);
  while (!levels.empty() && !pump_.closing()) {
    if (levels.back().next == levels.back().subfolders.size()) {
      levels.pop_back();
    } else {
      EnterSubfolder(&levels);
    }
  }
  if (goal_ && !pump_.closing()) goal_->Leave();
}

// Lists one folder, compares its entries and puts it on the way down. `fallback` is another path
// to try when the folder is not found, which happens when its name was changed to fit the code
// page.
void DriveScan::Enter(std::string path, std::string reachable, const std::string& fallback,
                      std::vector<Level>* levels) {
  if (!pump_.Next()) return;
  Level level{std::move(path), std::move(reachable), {}, 0};
  std::vector<Match> matches;
  progress_.lblScan = level.path;
  ++progress_.lblSFolders;
  ++progress_.scanned_folders;
  static_cast<void>(log_.Trap("subShowFolderList", [&]() -> Outcome {
    Outcome outcome = ListFolder(&level, &matches);
    if (outcome.number() == kPathNotFound && !fallback.empty()) {
      level.reachable = fallback;
      outcome = ListFolder(&level, &matches);
    }
    if (outcome.ok()) return {};
    return std::move(outcome)
        .With("File Name: ", FileNamePart(level.path))
        .With("sFolder: ", level.path)
        .With("sPath: ", level.reachable);
  }));
  if (pump_.closing()) return;
  subFileSearch(level, &matches);
  if (goal_ && !pump_.closing()) goal_->FolderDone();
  levels->push_back(std::move(level));
}

Outcome DriveScan::ListFolder(Level* level, std::vector<Match>* matches) {
  std::vector<SignatureIndex::Nomination> nominations;
  return files_.List(AddPathToFileName(level->reachable, kEverything), [&](const DirEntry& entry) {
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
      level->subfolders.push_back({entry.name, entry.short_name});
    }
    return true;
  });
}

void DriveScan::EnterSubfolder(std::vector<Level>* levels) {
  // Copies: entering grows the vector that holds the level.
  Level& parent = levels->back();
  const Subfolder subfolder = parent.subfolders[parent.next++];
  const std::string path = AddPathToFileName(parent.path, subfolder.name);
  std::string reachable = AddPathToFileName(parent.reachable, subfolder.name);
  std::string by_short_name;
  if (!subfolder.short_name.empty()) {
    by_short_name = AddPathToFileName(parent.reachable, subfolder.short_name);
  }
  if (IsLossy(subfolder.name) || !Fits(reachable)) {
    const std::string& name = subfolder.short_name.empty() ? subfolder.name : subfolder.short_name;
    reachable = AddPathToFileName(parent.reachable, name);
    if (!Fits(reachable)) {
      const std::string folder = files_.ShortPath(parent.reachable);
      if (!folder.empty()) reachable = AddPathToFileName(folder, name);
    }
    if (IsLossy(name) || !Fits(reachable)) {
      log_.LogFailure(Unreachable(path), "subShowFolderList");
      return;
    }
    by_short_name.clear();
  }
  Enter(path, std::move(reachable), by_short_name, levels);
}

// Row order first, then listing order, as if every row had been listed on its own.
void DriveScan::subFileSearch(const Level& level, std::vector<Match>* matches) {
  if (advanced_) advanced_->searchFilesAdvanced(level.path, level.reachable);
  ++progress_.lblFScan;
  std::stable_sort(matches->begin(), matches->end(),
                   [](const Match& a, const Match& b) { return a.row < b.row; });
  static_cast<void>(log_.Trap("subFileSearch", [&] {
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
  }));
}

void DriveScan::Confirm(const Level& level, std::uint32_t row) {
  const std::string signature = NormalizeSignature(index_.Row(row).sub2);
  if (PassesThroughLink(level.reachable, signature)) return;
  std::string pattern = AddPathToFileName(level.reachable, signature);
  if (pattern.size() > kLongestPath) {
    const std::string folder = files_.ShortPath(level.reachable);
    if (!folder.empty()) pattern = AddPathToFileName(folder, signature);
  }
  // The names lie in the folder that the signature's own path leads to.
  const std::string below(FolderPart(signature));
  const Outcome listed = files_.List(pattern, [&](const DirEntry& entry) {
    if (!pump_.Next()) return false;
    if (entry.IsFolder() == index_.IsFolderRow(row)) Report(level, row, below, ToHit(entry));
    return true;
  });
  if (listed.ok() || listed.number() == kPathNotFound) return;  // the path may just not be there
  log_.LogFailure(
      Outcome(listed).With("retFolderName: ", signature).With("sPath: ", level.reachable),
      "subFileSearch");
}

// True when a folder on the way of a relative signature is a link: its content lies elsewhere.
bool DriveScan::PassesThroughLink(const std::string& folder, std::string_view signature) {
  for (std::size_t slash = signature.find('\\'); slash != std::string_view::npos;
       slash = signature.find('\\', slash + 1)) {
    DirEntry entry;
    const std::string part = AddPathToFileName(folder, signature.substr(0, slash));
    if (files_.Stat(part, &entry).ok() && entry.IsLink()) return true;
  }
  return false;
}

DriveScan::Hit DriveScan::ToHit(const DirEntry& entry) {
  return {entry.name, entry.short_name, entry.IsLink()};
}

// `below` is the way from the level to the folder of the hit, mostly empty.
void DriveScan::Report(const Level& level, std::uint32_t row, const std::string& below,
                       const Hit& hit) {
  const SignatureRow signature = index_.Row(row);
  const auto join = [&](const std::string& folder, const std::string& name) {
    return AddPathToFileName(below.empty() ? folder : AddPathToFileName(folder, below), name);
  };
  const std::string& name =
      IsLossy(hit.name) && !hit.short_name.empty() ? hit.short_name : hit.name;
  const std::string reachable = join(level.reachable, name);
  std::string path = join(level.path, name);
  // The user, and the removal, need a path that leads there.
  if (IsLossy(path)) path = reachable;
  if (path.size() > kLongestPath) {
    path = join(level.reachable, hit.short_name.empty() ? name : hit.short_name);
    const std::string short_path = files_.ShortPath(path);
    if (!short_path.empty()) path = short_path;
  }
  if (!index_.IsFolderRow(row)) {
    ReportOnce(sink_, kSpyFile, kCodeFile, path, signature.sub1);
    return;
  }
  ReportOnce(sink_, kSpyFolder, kCodeFolder, path, signature.sub1);
  if (!hit.link) FindFiles(path, reachable, signature.sub1);
}

// Every file right inside a spy folder is reported with it.
void DriveScan::FindFiles(const std::string& folder, const std::string& reachable,
                          std::string_view spy) {
  static_cast<void>(log_.Trap("FindFiles", [&]() -> Outcome {
    Outcome listed =
        files_.List(AddPathToFileName(reachable, kEverything), [&](const DirEntry& entry) {
          if (!pump_.Next()) return false;
          if (entry.IsFolder()) return true;
          const std::string& name =
              IsLossy(entry.name) && !entry.short_name.empty() ? entry.short_name : entry.name;
          ReportOnce(sink_, kSpyFile, kCodeFile, AddPathToFileName(folder, name), spy);
          return true;
        });
    return listed.ok() ? Outcome() : std::move(listed).With("sPath: ", folder);
  }));
}

void DriveScan::SearchOneFile(const std::string& path) {
  const std::string folder(FolderPart(path));
  Level level{folder.size() == 2 ? folder + "\\" : folder, {}, {}, 0};
  level.reachable = level.path;
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
          AddPathToFileName(level.path, NormalizeSignature(index_.Row(nomination.row).sub2)),
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
