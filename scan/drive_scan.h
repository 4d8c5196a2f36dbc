// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "definitions/definition_list.h"
#include "machine/error_log.h"
#include "platform/files.h"
#include "platform/pump.h"
#include "scan/advanced_scan.h"
#include "scan/finding.h"
#include "scan/scan_progress.h"
#include "scan/scan_scope.h"
#include "scan/signature_index.h"
#include "scan/walk_goal.h"
#include "text/captions.h"

namespace scourwell {

// One pass over folders: every folder is listed once and its entries are compared with the
// searched rows of `list`, which must stay unchanged as long as the pass lives.
class DriveScan {
 public:
  DriveScan(Files& files, Pump& pump, ErrorLog& log, const Captions& captions, FindingSink& sink,
            ScanProgress& progress, const DefinitionList<SearchedName>& list);

  // Files of every folder are examined as well, before its rows are searched.
  void Examine(AdvancedScan* advanced) { advanced_ = advanced; }

  // The first of two passes counts for it, the second is measured by it.
  void MeasureBy(WalkGoal* goal) { goal_ = goal; }

  // Walks the ticked drives that are ready, in tree order.
  void ScanDrives(const ScanScope& scope);
  // Walks a folder and everything below it; a path that names a file is compared alone.
  void ScanPath(const std::string& path);

 private:
  // An entry that answers a row.
  struct Hit {
    std::string name;
    bool link = false;
  };
  // One folder on the way down.
  struct Level {
    std::string path;
    std::vector<std::string> subfolders;
    std::size_t next = 0;
  };
  struct Match {
    std::uint32_t row;
    bool certain;
    Hit hit;
  };

  void subShowFolderList(const std::string& root);
  void Enter(std::string path, std::vector<Level>* levels);
  Outcome ListFolder(Level* level, std::vector<Match>* matches);
  void EnterSubfolder(std::vector<Level>* levels);
  void subFileSearch(const Level& level, std::vector<Match>* matches);
  void Confirm(const Level& level, std::uint32_t row);
  Evidence EvidenceOf(std::uint32_t row) const;
  void Report(const Level& level, std::uint32_t row, const std::string& below, const Hit& hit);
  void FindFiles(const std::string& folder, const Evidence& evidence);
  bool PassesThroughLink(const std::string& folder, std::string_view signature);
  static Hit ToHit(const DirEntry& entry);
  void SearchOneFile(const std::string& path);

  Files& files_;
  Pump& pump_;
  ErrorLog& log_;
  const Captions& captions_;
  FindingSink& sink_;
  ScanProgress& progress_;
  SignatureIndex index_;
  AdvancedScan* advanced_ = nullptr;
  WalkGoal* goal_ = nullptr;
};

}  // namespace scourwell
