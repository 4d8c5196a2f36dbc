// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

namespace scourwell {

// A folder of this machine that stands for a drive.
struct MountedDrive {
  char letter = 'C';
  std::string folder;  // "/mnt/c"
};

// Folders of this machine as the drives of another. Names compare without case, also where the
// volume tells "A" from "a"; no link is followed, and nothing leads out of a drive's folder. Names
// on the disk may be any bytes (see DiskName). Nobody but us is expected to change the disk.
class PosixFiles : public Files {
 public:
  class Tree;

  explicit PosixFiles(const std::vector<MountedDrive>& drives);
  ~PosixFiles() override;

  // Makes one more folder reachable as a drive that Drives() does not name: for archives and logs.
  // Returns its root, "Z:\"; empty when no letter is left or there is no such folder.
  std::string Adopt(const std::string& folder);
  // Where the item lies on this machine; empty for a path of no drive.
  std::string ToLinux(std::string_view path) const;
  // The way back. Empty when it lies on no drive.
  std::string FromLinux(std::string_view path) const;
  // A file takes the place of another in the same folder, with its owner, rights and attributes.
  // Either the old one is there or the new one, whatever happens.
  Outcome TakePlace(const std::string& fresh, const std::string& path);
  // True when nothing can be written to the drive.
  bool IsReadOnly(char letter) const;

  Outcome List(const std::string& pattern, const Visit& visit) override;
  Outcome ListNames(const std::string& pattern, const Visit& visit) override;
  Outcome Stat(const std::string& path, DirEntry* entry) override;
  Outcome Read(const std::string& path, std::uint64_t limit, std::string* content) override;
  Outcome ReadBlocks(const std::string& path, const VisitBlock& visit) override;
  Outcome Append(const std::string& path, std::string_view text) override;
  Outcome Replace(const std::string& path, std::string_view text) override;
  Outcome EraseFile(const std::string& path) override;
  Outcome OpenReader(const std::string& path, std::unique_ptr<FileReader>* reader) override;
  Outcome OpenWriter(const std::string& path, std::unique_ptr<FileWriter>* writer) override;
  Outcome CreateFolder(const std::string& path) override;
  Outcome RemoveFolder(const std::string& path) override;
  Outcome Move(const std::string& from, const std::string& to) override;
  Outcome SetAttributes(const std::string& path, std::uint32_t attributes) override;
  Outcome SetTimes(const std::string& path, const FileTimes& times) override;
  Outcome HoldFolder(const std::string& path, std::unique_ptr<FolderHold>* hold) override;
  Outcome OpenItem(const std::string& path, std::unique_ptr<OpenedItem>* item) override;
  Outcome Identify(const std::string& path, FileId* id) override;
  Outcome CreateGuardedFolder(const std::string& path) override;
  bool IsGuarded(const std::string& folder) override;
  std::string Security(const std::string& path) override;
  Outcome SetSecurity(const std::string& path, const std::string& descriptor) override;
  std::string ShortPath(const std::string& path) override;
  std::vector<Drive> Drives() override;
  bool IsReady(const std::string& root) override;

 private:
  Outcome ListAny(const std::string& pattern, bool all, const Visit& visit);

  std::unique_ptr<Tree> tree_;
};

}  // namespace scourwell
