// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "definitions/definition_list.h"
#include "machine/error_log.h"
#include "platform/files.h"
#include "platform/pump.h"
#include "scan/advanced_scan.h"
#include "scan/file_notes.h"
#include "scan/finding.h"
#include "scan/folder_walk.h"
#include "scan/name_search.h"
#include "scan/scan_progress.h"
#include "scan/scan_scope.h"
#include "text/captions.h"

namespace scourwell {

// The folder pass and the file pass over drives or folders. To whoever looks on they follow each
// other; the disk is listed once: the first pass compares each listing with the rows of both and
// notes what the second has to look at. When the notes are full, the second walks the rest itself.
class DriveScan {
 public:
  struct Parts {
    Files& files;
    Pump& pump;
    ErrorLog& log;
    const Captions& captions;
    FindingSink& sink;
    ScanProgress& progress;
  };

  // The lists must stay unchanged as long as the scan lives. `advanced`, when there is one, looks
  // into the programs of each folder before the rows of the file pass are looked for.
  DriveScan(const Parts& parts, const DefinitionList<SearchedName>& folder_pass,
            const DefinitionList<SearchedName>& file_pass, AdvancedScan* advanced = nullptr,
            std::size_t most_noted = FileNotes::kMostBytes);

  // The folder pass: over the ticked drives that are ready, in tree order, ...
  void ScanDrives(const ScanScope& scope);
  // ... or over folders and everything below them; a path that names a file is compared alone.
  void ScanPaths(const std::vector<std::string>& paths);
  // The file pass over what the folder pass has walked.
  void ScanFiles();

 private:
  struct Root {
    std::string path;
    std::string label;  // shown while it is walked
    bool drive = false;
  };

  void WalkFolders();
  template <class OnFile>
  bool EnterRoot(const FolderWalk& walk, OnFile&& on_file);
  void EnterFolder(FolderWalk* walk);
  void EnterFile(const FolderWalk& walk, const DirEntry& file);
  FolderNote NoteOfFile(const FolderWalk& walk, const DirEntry& file);
  template <class Visit>
  void subShowFolderList(const std::string& folder, std::vector<std::string>* subfolders,
                         Visit&& visit);
  void Note(const FoldedEntry& folded, FolderNote* note);
  void Keep(FolderNote note, const FolderWalk& walk);
  void SearchNoted();
  void WalkRest(double begin);
  void SearchFolder(FolderWalk* walk);
  void subFileSearch(FolderNote* note);
  void ShowRoot(std::size_t root);
  void ShowSeen(std::uint32_t folders, std::uint32_t files);

  Parts parts_;
  NameSearch folder_pass_;
  NameSearch file_pass_;
  FoldedEntry entry_;  // the one at hand, for both passes
  AdvancedScan* advanced_;
  std::vector<Root> roots_;
  FileNotes notes_;
  std::optional<FolderWalk> rest_;  // what did not fit into the notes
  std::uint32_t folders_ = 0;       // that the notes speak for
  std::uint32_t files_ = 0;
};

}  // namespace scourwell
