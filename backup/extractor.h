// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "backup/archive_reader.h"
#include "backup/restore_guard.h"
#include "platform/files.h"
#include "platform/pump.h"

namespace scourwell {

struct KeptFile {
  std::string path;
  std::string kept_as;  // "path.kept", "path.kept2", ...
};

struct RestoreResult {
  std::size_t restored = 0;        // files and folders that are back, unchanged ones included
  std::size_t unchanged = 0;       // files that were there with the same content
  std::vector<ItemReport> failed;  // not back, and why
  std::vector<ItemReport> notes;   // back, but not with these attributes, times or rights
  std::vector<KeptFile> kept;      // what lay there and was not older
};

// Puts what an archive holds back in its places. A file takes its place only when all of it has
// come out right; until then, and when anything fails, what lies there stays.
class Extractor {
 public:
  Extractor(Files& files, Pump& pump, RestoreGuard& guard)
      : files_(files), pump_(pump), guard_(guard) {}

  // All files and folders. What fails is listed in the result and does not stop the rest. A failure
  // means that the program is closing.
  Outcome ExtractAll(ArchiveReader& archive);

  // One file or folder; a failure is listed in the result as well. Missing folders are made. A
  // file of the same content stays as it is, an older one is replaced, any other is kept aside.
  Outcome ExtractItem(ArchiveReader& archive, std::size_t item);
  // Gives the folders their attributes and times, the deepest first. Once, after all items.
  void FinishFolders();

  const RestoreResult& result() const { return result_; }

 private:
  using Holds = std::vector<std::unique_ptr<FolderHold>>;

  Outcome Extract(ArchiveReader& archive, std::size_t number);
  Outcome ExtractFile(ArchiveReader& archive, std::size_t number);
  Outcome MakeFolders(const std::string& folder, Holds* holds, std::vector<std::string>* made);
  bool HasContent(const ArchiveItem& item, const DirEntry& there);
  Outcome WriteContent(ArchiveReader& archive, std::size_t number, FileWriter& writer);
  Outcome TakePlace(const ArchiveItem& item, FileWriter& writer);
  Outcome ReplaceOlder(const std::string& path, const DirEntry& there, FileWriter& writer);
  Outcome ReplaceNewer(const std::string& path, FileWriter& writer);
  Outcome MoveAside(const std::string& path, std::string* kept_as);
  void KeepFolder(const ArchiveItem& item, bool made_here);
  void Stamp(const ArchiveItem& item, bool made_here);

  Files& files_;
  Pump& pump_;
  RestoreGuard& guard_;
  std::vector<ArchiveItem> folders_;  // that are back
  RestoreResult result_;
};

}  // namespace scourwell
