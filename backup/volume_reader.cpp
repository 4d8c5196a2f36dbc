// SPDX-License-Identifier: MIT
#include "backup/volume_reader.h"

#include <algorithm>

#include "backup/block_codec.h"
#include "backup/sha256.h"
#include "machine/file_utils.h"
#include "text/text.h"

namespace scourwell {
namespace {

Outcome ReadExactly(FileReader& reader, std::uint64_t offset, char* bytes, std::size_t count) {
  std::size_t filled = 0;
  if (Outcome read = reader.ReadAt(offset, bytes, count, &filled); !read.ok()) return read;
  if (filled == count) return {};
  return Outcome::Failed(kPastEndOfFile, "The archive is cut off");
}

Outcome ReadHeader(FileReader& reader, PieceHeader* header) {
  char bytes[kPieceHeaderSize];
  std::size_t filled = 0;
  if (Outcome read = reader.ReadAt(0, bytes, sizeof bytes, &filled); !read.ok()) return read;
  return DecodePieceHeader({bytes, filled}, header);
}

}  // namespace

Outcome VolumeReader::Open(const std::string& path, FindVolume find, const std::string& key,
                           ArchiveIndex* index) {
  path_ = path;
  find_ = std::move(find);
  if (Outcome opened = files_.OpenReader(path, &last_); !opened.ok()) return opened;
  if (Outcome read = ReadHeader(*last_, &header_); !read.ok()) return read;
  return ReadIndex(last_->size(), key, index);
}

bool VolumeReader::HasMark(std::string_view index, const std::string& key) const {
  if (version() < kArchiveVersion || key.empty() || index.size() < kDigestSize) return false;
  const std::size_t end = index.size() - kDigestSize;
  return MarkOf(index.substr(0, end), header_.identity, key) == index.substr(end);
}

Outcome VolumeReader::ReadIndex(std::uint64_t file_size, const std::string& key,
                                ArchiveIndex* index) {
  const Outcome cut = Outcome::Failed(kPastEndOfFile, "The archive is cut off");
  const Outcome damaged = Outcome::Failed(kDeviceError,
                                          "The archive is damaged: its parts do not "
                                          "fit together");
  if (file_size < kPieceHeaderSize + kTrailerSize) return cut;
  char bytes[kTrailerSize];
  const std::uint64_t end = file_size - kTrailerSize;
  if (Outcome read = ReadExactly(*last_, end, bytes, sizeof bytes); !read.ok()) return read;
  ArchiveTrailer trailer;
  if (Outcome decoded = DecodeTrailer({bytes, sizeof bytes}, &trailer); !decoded.ok()) {
    return decoded;
  }
  const std::uint64_t body = end - kPieceHeaderSize;
  if (trailer.index > body || trailer.data != body - trailer.index ||
      trailer.index > kLargestIndex || trailer.identity != header_.identity) {
    return damaged;
  }
  std::string text(static_cast<std::size_t>(trailer.index), '\0');
  if (Outcome read = ReadExactly(*last_, end - trailer.index, text.data(), text.size());
      !read.ok()) {
    return read;
  }
  if (Crc32(text) != trailer.index_crc) return damaged;
  ArchiveIndex read_index;
  Outcome decoded = DecodeIndex(text, trailer.data, version(), &read_index);
  if (!decoded.ok()) return decoded;
  if (header_.number != read_index.volumes.size() + 1) return damaged;
  read_index.volumes.push_back(trailer.data);
  std::uint64_t start = 0;
  for (const std::uint64_t size : read_index.volumes) {
    pieces_.push_back({start, size, false});
    start += size;
  }
  made_here_ = HasMark(text, key);
  read_index.volumes.clear();
  *index = std::move(read_index);
  return {};
}

std::string VolumeReader::NameOf(std::size_t piece) const {
  const std::string_view file = FileNamePart(path_);
  return VolumeName(file.substr(0, file.rfind('.')), static_cast<std::uint32_t>(piece + 1));
}

Outcome VolumeReader::TryFolder(const std::string& folder, std::size_t piece) {
  const std::string path = AddPathToFileName(folder, NameOf(piece));
  std::unique_ptr<FileReader> reader;
  if (Outcome opened = files_.OpenReader(path, &reader); !opened.ok()) return opened;
  PieceHeader header;
  if (Outcome read = ReadHeader(*reader, &header); !read.ok()) return read;
  if (header.identity != header_.identity || header.number != piece + 1 ||
      header.version != header_.version) {
    return Outcome::Failed(kTypeMismatch, path + " does not belong to this archive");
  }
  // A disk that was full may have left something behind the data.
  if (reader->size() < kPieceHeaderSize + pieces_[piece].size) {
    return Outcome::Failed(kPastEndOfFile, path + " is cut off");
  }
  other_ = std::move(reader);
  other_piece_ = piece;
  return {};
}

Outcome VolumeReader::UsePiece(std::size_t piece) {
  if (piece + 1 == pieces_.size() || (other_ && other_piece_ == piece)) return {};
  other_.reset();
  Outcome tried = TryFolder(std::string(FolderPart(path_)), piece);
  if (!tried.ok() && !answer_.empty()) {
    Outcome again = TryFolder(answer_, piece);
    if (again.ok()) tried = std::move(again);
  }
  bool& given_up = pieces_[piece].given_up;
  for (int questions = 0; !tried.ok() && find_ && !given_up; ++questions) {
    const std::string folder = find_(static_cast<std::uint32_t>(piece + 1), NameOf(piece), tried);
    if (!folder.empty()) tried = TryFolder(folder, piece);
    if (tried.ok()) answer_ = folder;
    given_up = folder.empty() || questions == kMostQuestions;
  }
  if (tried.code() == kFileNotFound || tried.code() == kPathNotFound) {
    return Outcome::Failed(kFileNotFound, "The volume " + NameOf(piece) + " was not found");
  }
  return tried;
}

Outcome VolumeReader::ReadAt(std::uint64_t offset, char* bytes, std::size_t count) {
  while (count > 0) {
    const auto after =
        std::upper_bound(pieces_.begin(), pieces_.end(), offset,
                         [](std::uint64_t at, const Piece& piece) { return at < piece.start; });
    const std::size_t piece = static_cast<std::size_t>(after - pieces_.begin()) - 1;
    const std::uint64_t within = offset - pieces_[piece].start;
    if (within >= pieces_[piece].size) {
      return Outcome::Failed(kPastEndOfFile, "The archive is cut off");
    }
    if (Outcome used = UsePiece(piece); !used.ok()) return used;
    FileReader& reader = piece + 1 == pieces_.size() ? *last_ : *other_;
    const auto part =
        static_cast<std::size_t>(std::min<std::uint64_t>(count, pieces_[piece].size - within));
    if (Outcome read = ReadExactly(reader, kPieceHeaderSize + within, bytes, part); !read.ok()) {
      return read;
    }
    bytes += part;
    offset += part;
    count -= part;
  }
  return {};
}

}  // namespace scourwell
