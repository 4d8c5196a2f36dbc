// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win/file_calls.h"

namespace scourwell {

class FilesWin : public Files {
 public:
  // Missing media and damaged disks must come back as errors, not as system message boxes.
  explicit FilesWin(const FileCalls& calls = SystemFileCalls());

  Outcome List(const std::string& pattern, const Visit& visit) override;
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
  bool HasStreams(const std::string& path) override;
  std::string Security(const std::string& path) override;
  Outcome SetSecurity(const std::string& path, const std::string& descriptor) override;
  std::string ShortPath(const std::string& path) override;
  std::vector<Drive> Drives() override;
  bool IsReady(const std::string& root) override;

 private:
  FileHandle OpenToRead(const std::string& path) const;

  const FileCalls& calls_;
};

}  // namespace scourwell
