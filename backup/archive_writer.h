// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "backup/block_codec.h"
#include "backup/item_report.h"
#include "backup/sha256.h"
#include "backup/volume_writer.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/pump.h"
#include "text/text.h"

namespace scourwell {

struct ArchiveResult {
  std::size_t files = 0;           // stored, with their folders
  std::uint64_t bytes = 0;         // of their content
  std::vector<ItemReport> failed;  // not in the archive
  std::vector<ItemReport> notes;   // links that were passed over, files that changed meanwhile
};

// Makes one backup archive. Yields once an item and a block; when the program closes, the archive
// is given up and nothing of it stays. The same goes for a writer that is destroyed before Finish.
class ArchiveWriter {
 public:
  ArchiveWriter(Files& files, Clock& clock, Pump& pump)
      : files_(files), clock_(clock), pump_(pump), volumes_(files) {}

  // "folder\name.qzp", in a folder that exists. kFileExists: such an archive is there; it stays.
  Outcome Create(const std::string& path, ArchiveOptions options = {});
  // A file, or a folder with everything below it. Links are neither followed nor stored. What
  // cannot be read is listed in the result and does not stop the rest; what was added before is
  // passed over. A failure means that the archive itself cannot go on: all of it is removed, and
  // every later call fails likewise.
  Outcome AddFile(const std::string& path);
  // A registry script with a bare file name, and what it cannot say of its keys. kBadFileName: it
  // is none.
  Outcome AddScript(const std::string& name, std::string_view text, const std::string& keys = {});
  // The spy to which what lies at or below a place belongs.
  void AddSpy(const std::string& spy, const std::string& place);
  // Once, as the last call. `key`: the archive bears the mark of this machine.
  Outcome Finish(const std::string& key = {});

  const ArchiveResult& result() const { return result_; }
  // The piece with the index; valid after Finish.
  const std::string& path() const { return volumes_.path(); }

 private:
  Outcome HoldWay(const std::string& path, std::vector<std::unique_ptr<FolderHold>>* way);
  void AddTree(const std::string& path, const DirEntry& entry);
  void AddFolder(const std::string& path, const DirEntry& entry);
  void AddContent(const std::string& path, const DirEntry& entry);
  Outcome StoreContent(FileReader& reader, ArchiveItem* item);
  Outcome StoreBlock(std::string_view plain, ArchiveItem* item, Sha256* digest);
  bool Keep(ArchiveItem item);
  bool RoomFor(std::size_t bytes) const;
  void Fail(const std::string& path, Outcome why) {
    result_.failed.push_back({path, std::move(why)});
  }
  void Note(const std::string& path, Outcome why) {
    result_.notes.push_back({path, std::move(why)});
  }
  Outcome Abandon(Outcome why);

  Files& files_;
  Clock& clock_;
  Pump& pump_;
  VolumeWriter volumes_;
  BlockPacker packer_;
  std::string block_;
  std::vector<ArchiveItem> items_;
  std::vector<ArchiveSpy> spies_;
  std::unordered_set<std::string, NoCaseHash, NoCaseEqual> stored_;
  std::size_t index_size_ = 0;
  bool open_ = false;
  Outcome broken_;  // why the archive was given up
  ArchiveResult result_;
};

}  // namespace scourwell
