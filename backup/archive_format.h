// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"
#include "platform/outcome.h"

namespace scourwell {

// The layout of backup archives; FORMAT.md describes it. Decoding fails with kTypeMismatch (no
// archive, another version, another archive), kPastEndOfFile (something is missing) or
// kDeviceError (damaged).

inline constexpr unsigned kArchiveVersion = 3;
// Its items have neither digests nor extras, and its index ends behind them.
inline constexpr unsigned kPlainArchiveVersion = 2;
// The same, and its paths are bytes of the ANSI code page of the machine.
inline constexpr unsigned kAnsiArchiveVersion = 1;
inline constexpr std::size_t kPieceHeaderSize = 32;
inline constexpr std::size_t kTrailerSize = 40;
inline constexpr std::size_t kArchiveBlock = 256 * 1024;   // bytes of content in a block
inline constexpr std::uint64_t kLargestIndex = 32u << 20;  // bytes; 280,000 items or more
inline constexpr std::uint64_t kLargestSize = 1ull << 62;  // of an item and of all data, in bytes
inline constexpr std::uint32_t kMostVolumes = 9999;
inline constexpr int kMostQuestions = 100;  // for a piece that lies elsewhere
// Of the file that ends an archive; the pieces before it end in ".q01" and so on.
inline constexpr std::string_view kArchiveEnding = ".qzp";

enum class ItemKind : std::uint8_t { File = 1, Folder = 2, Script = 3 };

struct ArchiveItem {
  ItemKind kind = ItemKind::File;
  std::string path;  // absolute; of a script its bare name
  std::uint32_t attributes = 0;
  FileTimes times;
  std::uint64_t size = 0;    // bytes of content; 0 for folders
  std::uint64_t offset = 0;  // of the first block, within the data of all pieces
  std::uint64_t stored = 0;  // bytes of all its blocks with their headers
  std::uint32_t crc = 0;     // of the content
  std::string digest;        // SHA-256 of the content; empty: unknown
  std::string security;      // the system's descriptor of who may do what; empty: unknown
  std::string keys;          // of a script: what it cannot say of its keys
};

struct PieceHeader {
  std::uint64_t identity = 0;  // the same in all pieces of an archive
  std::uint32_t number = 1;
  std::uint32_t version = kArchiveVersion;
};

struct ArchiveTrailer {
  std::uint64_t identity = 0;
  std::uint64_t data = 0;   // bytes of data in this piece
  std::uint64_t index = 0;  // bytes of the index
  std::uint32_t index_crc = 0;
};

// The spy to which what lies at or below a place belongs.
struct ArchiveSpy {
  std::string spy;
  std::string place;  // a path or a key
};

struct ArchiveIndex {
  std::vector<std::uint64_t> volumes;  // bytes of data in each piece but the last
  std::vector<ArchiveItem> items;      // in the order of their data
  std::vector<ArchiveSpy> spies;
};

std::string EncodePieceHeader(const PieceHeader& header);
Outcome DecodePieceHeader(std::string_view bytes, PieceHeader* header);
std::string EncodeTrailer(const ArchiveTrailer& trailer);
Outcome DecodeTrailer(std::string_view bytes, ArchiveTrailer* trailer);
// The bytes that an item adds to the index.
std::size_t EncodedSize(const ArchiveItem& item);
std::string EncodeIndex(const ArchiveIndex& index);
// The keyed digest of an index, of kDigestSize bytes, that ends it: only who knows the key of the
// machine can make it. Without a key it says nothing.
std::string MarkOf(std::string_view index, std::uint64_t identity, std::string_view key);
// `last_data`: bytes of data in the last piece. Paths are not judged, and the mark is passed over.
Outcome DecodeIndex(std::string_view bytes, std::uint64_t last_data, std::uint32_t version,
                    ArchiveIndex* index);

// "name.q01", "name.q100".
std::string VolumeName(std::string_view name, std::uint32_t number);

// True for a path that may be stored and restored: exact, on a drive but not its root, and no
// longer than an item has room for.
bool IsStorablePath(std::string_view path);
// True for a bare file name that ends in ".reg" and could stand in any folder.
bool IsScriptName(std::string_view name);

}  // namespace scourwell
