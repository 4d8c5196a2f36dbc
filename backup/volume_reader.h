// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "backup/archive_format.h"
#include "platform/files.h"

namespace scourwell {

// Asks for the folder that holds a volume; empty gives up. `problem` says why the place that was
// looked at last would not do.
using FindVolume = std::function<std::string(std::uint32_t number, const std::string& file_name,
                                             const Outcome& problem)>;

// The data of an archive as one run of bytes, whatever pieces it lies in.
class VolumeReader {
 public:
  explicit VolumeReader(Files& files) : files_(files) {}

  // `path` is that of the last piece. Fails as archive_format.h says, or as the file does. `key`:
  // of this machine. *index has no volumes.
  Outcome Open(const std::string& path, FindVolume find, const std::string& key,
               ArchiveIndex* index);
  // Fills all of the bytes or fails. kFileNotFound: nobody knows where a volume is.
  Outcome ReadAt(std::uint64_t offset, char* bytes, std::size_t count);

  std::size_t volumes() const { return pieces_.size(); }
  // True when the archive bears the mark of the key.
  bool made_here() const { return made_here_; }
  // The version of the archive's form, once it is open.
  std::uint32_t version() const { return header_.version; }

 private:
  struct Piece {
    std::uint64_t start = 0;  // of its data, within that of all pieces
    std::uint64_t size = 0;
    bool given_up = false;  // nobody is asked for it again
  };

  Outcome ReadIndex(std::uint64_t file_size, const std::string& key, ArchiveIndex* index);
  bool HasMark(std::string_view index, const std::string& key) const;
  Outcome UsePiece(std::size_t piece);
  Outcome TryFolder(const std::string& folder, std::size_t piece);
  std::string NameOf(std::size_t piece) const;

  Files& files_;
  FindVolume find_;
  PieceHeader header_;
  bool made_here_ = false;
  std::string path_;
  std::string answer_;  // the folder that served when somebody was asked
  std::vector<Piece> pieces_;
  std::unique_ptr<FileReader> last_;
  std::unique_ptr<FileReader> other_;  // the volume in use, when it is not the last piece
  std::size_t other_piece_ = 0;
};

}  // namespace scourwell
