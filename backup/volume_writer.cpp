// SPDX-License-Identifier: MIT
#include "backup/volume_writer.h"

#include <algorithm>

#include "backup/block_codec.h"
#include "machine/file_utils.h"
#include "text/text.h"

namespace scourwell {
namespace {

// So often a place for one piece is asked for.
constexpr int kMostTries = 20;

// Nothing may be overwritten: not an older archive, not a volume of one.
Outcome MustBeFree(Files& files, const std::string& path) {
  DirEntry entry;
  Outcome found = files.Stat(path, &entry);
  if (found.ok()) return Outcome::Failed(kFileExists, path + " is there already");
  return found.code() == kFileNotFound ? Outcome() : std::move(found);
}

}  // namespace

Outcome VolumeWriter::Open(const std::string& path, std::uint64_t identity,
                           ArchiveOptions options) {
  const std::string_view file = FileNamePart(path);
  if (!IsPlainPath(path) || file.size() <= kArchiveEnding.size() ||
      !EndsWithNoCase(file, kArchiveEnding)) {
    return Outcome::Failed(kBadFileName, "The archive needs a full path that ends in .qzp");
  }
  if (options.volume_size != 0 && options.volume_size < kSmallestVolume) {
    return Outcome::Failed(kInvalidCall, "The volumes of the archive are too small");
  }
  options_ = std::move(options);
  identity_ = identity;
  name_ = file.substr(0, file.size() - kArchiveEnding.size());
  return StartPiece({1, VolumeName(name_, 1), std::string(FolderPart(path)), {}}, false);
}

bool VolumeWriter::MayAskAfter(const Outcome& failed) const {
  return failed.code() == kDiskFull && options_.next_volume;
}

// Looks for a place until one will do or the user gives up.
Outcome VolumeWriter::StartPiece(VolumeRequest request, bool ask) {
  for (int tries = 0; tries < kMostTries; ++tries) {
    if (ask) {
      request.folder = options_.next_volume(request);
      if (request.folder.empty()) {
        if (!request.problem.ok()) return request.problem;
        return Outcome::Failed(kPathNotFound, "No place was given for " + request.file_name);
      }
    }
    Outcome started = TryPiece(request.folder);
    if (started.ok() || (!ask && !MayAskAfter(started))) return started;
    request.problem = std::move(started);
    ask = true;
  }
  return request.problem;
}

Outcome VolumeWriter::TryPiece(const std::string& folder) {
  writer_.reset();
  folder_ = folder;
  const std::string last = AddPathToFileName(folder, name_ + std::string(kArchiveEnding));
  for (const std::string& path : {last, PiecePath()}) {
    if (Outcome free = MustBeFree(files_, path); !free.ok()) return free;
  }
  if (Outcome opened = files_.OpenWriter(PiecePath(), &writer_); !opened.ok()) return opened;
  Outcome begun = writer_->Write(EncodePieceHeader({identity_, number_}));
  if (!begun.ok()) writer_.reset();
  return begun;
}

std::string VolumeWriter::PiecePath() const {
  return AddPathToFileName(folder_, VolumeName(name_, number_));
}

// A piece that took no data is given up, and its number used again.
Outcome VolumeWriter::NextPiece(Outcome problem) {
  if (data_ > 0) {
    if (number_ == kMostVolumes) {
      return Outcome::Failed(kOverflow, "The archive would have too many volumes");
    }
    const std::string path = PiecePath();
    if (Outcome written = writer_->Commit(); !written.ok()) return written;
    written_.push_back(path);
    index_.volumes.push_back(data_);
    before_ += data_;
    data_ = 0;
    ++number_;
  }
  writer_.reset();
  return StartPiece({number_, VolumeName(name_, number_), folder_, std::move(problem)},
                    static_cast<bool>(options_.next_volume));
}

Outcome VolumeWriter::Write(std::string_view bytes) {
  int tries = 0;
  while (!bytes.empty()) {
    const std::uint64_t full = options_.volume_size;
    const std::uint64_t room = full == 0 ? bytes.size() : full - kPieceHeaderSize - data_;
    const std::string_view part =
        bytes.substr(0, static_cast<std::size_t>(std::min<std::uint64_t>(room, bytes.size())));
    Outcome written = part.empty() ? Outcome() : writer_->Write(part);
    if (written.ok() && !part.empty()) {
      data_ += part.size();
      bytes.remove_prefix(part.size());
      tries = 0;
      continue;
    }
    if (!written.ok() && (!MayAskAfter(written) || ++tries == kMostTries)) return written;
    // What a full disk took of the part lies behind the data of the piece and is never read.
    if (Outcome next = NextPiece(std::move(written)); !next.ok()) return next;
  }
  return {};
}

std::string VolumeWriter::Tail() {
  std::string index = EncodeIndex(index_);
  index += MarkOf(index, identity_, key_);
  return index.append(EncodeTrailer({identity_, data_, index.size(), Crc32(index)}));
}

Outcome VolumeWriter::WriteTail() {
  for (int tries = 0;; ++tries) {
    const std::string tail = Tail();
    const std::uint64_t size = kPieceHeaderSize + data_ + tail.size();
    Outcome written;
    if (options_.volume_size == 0 || size <= options_.volume_size || data_ == 0) {
      written = writer_->Write(tail);
      if (written.ok() || !MayAskAfter(written) || tries == kMostTries) return written;
    }
    if (Outcome next = NextPiece(std::move(written)); !next.ok()) return next;
  }
}

Outcome VolumeWriter::Finish(ArchiveIndex index, const std::string& key) {
  index.volumes = std::move(index_.volumes);
  index_ = std::move(index);
  key_ = key;
  if (Outcome written = WriteTail(); !written.ok()) return written;
  if (Outcome written = writer_->Commit(); !written.ok()) return written;
  writer_.reset();
  written_.push_back(PiecePath());
  path_ = AddPathToFileName(folder_, name_ + std::string(kArchiveEnding));
  if (Outcome named = files_.Move(PiecePath(), path_); !named.ok()) return named;
  written_.clear();
  return {};
}

void VolumeWriter::Discard() {
  writer_.reset();
  for (const std::string& path : written_) EraseIfOurs(path);
  written_.clear();
}

// Another disk may be in the drive by now, with a volume of the same name.
void VolumeWriter::EraseIfOurs(const std::string& path) {
  std::unique_ptr<FileReader> reader;
  if (!files_.OpenReader(path, &reader).ok()) return;
  char bytes[kPieceHeaderSize];
  std::size_t filled = 0;
  PieceHeader header;
  const bool read = reader->ReadAt(0, bytes, sizeof bytes, &filled).ok() &&
                    DecodePieceHeader({bytes, filled}, &header).ok();
  reader.reset();
  if (read && header.identity == identity_) static_cast<void>(files_.EraseFile(path));
}

}  // namespace scourwell
