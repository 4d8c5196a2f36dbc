// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "backup/archive_format.h"
#include "platform/files.h"

namespace scourwell {

// Asks where the next piece of an archive goes.
struct VolumeRequest {
  std::uint32_t number = 0;
  std::string file_name;  // "name.q02"
  std::string folder;     // that of the piece before
  Outcome problem;        // why the last place would not do; ok: the piece before has its size
};
// Answers with a folder; empty gives the archive up.
using NextVolume = std::function<std::string(const VolumeRequest&)>;

struct ArchiveOptions {
  std::uint64_t volume_size = 0;  // bytes of a piece, kSmallestVolume or more; 0: one piece
  // Without it all pieces lie in one folder and a full disk ends the writing; with it, a piece
  // ends where the disk is full.
  NextVolume next_volume;
};

// Writes the data of an archive, cut into pieces. Nothing of the archive's name exists before;
// pieces take their places as they are full, the last one, as "name.qzp", with Finish.
class VolumeWriter {
 public:
  static constexpr std::uint64_t kSmallestVolume = 512;

  explicit VolumeWriter(Files& files) : files_(files) {}
  ~VolumeWriter() { Discard(); }
  VolumeWriter(const VolumeWriter&) = delete;
  VolumeWriter& operator=(const VolumeWriter&) = delete;

  // `path` is "folder\name.qzp". kFileExists: there is such an archive or its first volume.
  Outcome Open(const std::string& path, std::uint64_t identity, ArchiveOptions options);
  // Appends to the data.
  Outcome Write(std::string_view bytes);
  // Appends the index with these items and commits. The last piece holds the whole index, if need
  // be beyond the size of a volume. `index`: without its volumes; `key`: of this machine.
  Outcome Finish(ArchiveIndex index, const std::string& key);
  // Removes all pieces, unless the archive was finished.
  void Discard();

  std::uint64_t position() const { return before_ + data_; }
  // The last piece; valid after Finish.
  const std::string& path() const { return path_; }

 private:
  Outcome StartPiece(VolumeRequest request, bool ask);
  Outcome TryPiece(const std::string& folder);
  Outcome NextPiece(Outcome problem);
  Outcome WriteTail();
  bool MayAskAfter(const Outcome& failed) const;
  std::string Tail();
  std::string PiecePath() const;
  void EraseIfOurs(const std::string& path);

  Files& files_;
  ArchiveOptions options_;
  std::uint64_t identity_ = 0;
  std::string name_;    // without folder and ending
  std::string folder_;  // of the current piece
  std::string path_;
  std::unique_ptr<FileWriter> writer_;
  std::uint32_t number_ = 1;
  std::uint64_t data_ = 0;    // in the current piece
  std::uint64_t before_ = 0;  // in those before
  ArchiveIndex index_;
  std::string key_;
  std::vector<std::string> written_;  // pieces that have taken their places
};

}  // namespace scourwell
