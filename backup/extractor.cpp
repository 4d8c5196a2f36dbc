// SPDX-License-Identifier: MIT
#include "backup/extractor.h"

#include <algorithm>

#include "backup/block_codec.h"
#include "machine/file_utils.h"
#include "text/caption_ids.h"
#include "text/text.h"

namespace scourwell {
namespace {

constexpr std::uint32_t kHindering = kReadOnly | kHidden | kSystem;
constexpr std::uint32_t kSettable = kHindering | kArchive;
constexpr unsigned kMostKept = 1000;

Outcome InTheWay(const char* why) { return Outcome::Failed(kPathFileAccess, why); }

}  // namespace

Outcome Extractor::ExtractAll(ArchiveReader& archive) {
  for (std::size_t i = 0; i < archive.items().size() && pump_.Next(); ++i) {
    if (archive.items()[i].kind != ItemKind::Script) static_cast<void>(ExtractItem(archive, i));
  }
  FinishFolders();
  if (!pump_.closing()) return {};
  return Outcome::Failed(kInvalidCall, "The restoring was stopped before its end")
      .Because(Caption::ReasonStopped);
}

Outcome Extractor::ExtractItem(ArchiveReader& archive, std::size_t number) {
  if (number >= archive.items().size()) return Outcome::Failed(kInvalidCall);
  Outcome extracted = Extract(archive, number);
  if (extracted.ok()) {
    ++result_.restored;
  } else {
    result_.failed.push_back({archive.items()[number].path, extracted});
  }
  return extracted;
}

Outcome Extractor::Extract(ArchiveReader& archive, std::size_t number) {
  const ArchiveItem& item = archive.items()[number];
  if (item.kind == ItemKind::Script || !IsStorablePath(item.path)) {
    return Outcome::Failed(kBadFileName, "The archive names a path that is not allowed");
  }
  Holds holds;
  if (Outcome allowed = guard_.Allow(item.path, &holds); !allowed.ok()) return allowed;
  const bool folder = item.kind == ItemKind::Folder;
  std::vector<std::string> made;
  Outcome done =
      MakeFolders(folder ? item.path : std::string(FolderPart(item.path)), &holds, &made);
  // What was made must be held as well, and may have been swapped since.
  if (done.ok() && !made.empty()) done = guard_.Allow(item.path, &holds);
  if (done.ok() && folder) KeepFolder(item, archive.made_here());
  if (done.ok() && !folder) done = ExtractFile(archive, number);
  if (done.ok()) return done;
  holds.clear();
  for (; !made.empty(); made.pop_back()) static_cast<void>(files_.RemoveFolder(made.back()));
  return done;
}

// Another machine's users are not ours.
void Extractor::KeepFolder(const ArchiveItem& item, bool made_here) {
  folders_.push_back(item);
  if (!made_here) folders_.back().security.clear();
}

Outcome Extractor::MakeFolders(const std::string& folder, Holds* holds,
                               std::vector<std::string>* made) {
  for (std::size_t end = 2; end < folder.size();) {
    end = PartEnd(folder, end + 1);
    const std::string layer = folder.substr(0, end);
    DirEntry entry;
    Outcome found = files_.Stat(layer, &entry);
    if (found.ok() && entry.IsLink()) return InTheWay("A link lies on the way");
    if (found.ok() && !entry.IsFolder()) return InTheWay("A file lies in the place of a folder");
    if (found.code() == kFileNotFound) {
      found = files_.CreateFolder(layer);
      if (found.ok()) made->push_back(layer);
      std::unique_ptr<FolderHold> hold;
      if (found.ok()) found = files_.HoldFolder(layer, &hold);
      holds->push_back(std::move(hold));
    }
    if (!found.ok()) return found;
  }
  return {};
}

Outcome Extractor::ExtractFile(ArchiveReader& archive, std::size_t number) {
  const ArchiveItem& item = archive.items()[number];
  DirEntry there;
  Outcome found = files_.Stat(item.path, &there);
  if (!found.ok() && found.code() != kFileNotFound) return found;
  if (found.ok() && there.IsLink()) return InTheWay("A link lies in its place");
  if (found.ok() && there.IsFolder()) return InTheWay("A folder lies in its place");
  if (found.ok() && HasContent(item, there)) {
    ++result_.unchanged;
    return {};
  }
  std::unique_ptr<FileWriter> writer;
  if (Outcome opened = files_.OpenWriter(item.path, &writer); !opened.ok()) return opened;
  if (Outcome written = WriteContent(archive, number, *writer); !written.ok()) return written;
  if (Outcome taken = TakePlace(item, *writer); !taken.ok()) return taken;
  Stamp(item, archive.made_here());
  return {};
}

bool Extractor::HasContent(const ArchiveItem& item, const DirEntry& there) {
  if (there.size != item.size) return false;
  std::uint32_t crc = 0;
  std::uint64_t size = 0;
  const Outcome read = files_.ReadBlocks(item.path, [&](std::string_view block) {
    crc = Crc32(block, crc);
    size += block.size();
    return pump_.Next();
  });
  return read.ok() && size == item.size && crc == item.crc;
}

Outcome Extractor::WriteContent(ArchiveReader& archive, std::size_t number, FileWriter& writer) {
  return archive.ReadItem(number, [&](std::string_view block) { return writer.Write(block); });
}

// Looks again at what lies there: the content may have taken its time.
Outcome Extractor::TakePlace(const ArchiveItem& item, FileWriter& writer) {
  DirEntry there;
  Outcome found = files_.Stat(item.path, &there);
  if (found.code() == kFileNotFound) return writer.Commit();
  if (!found.ok()) return found;
  if (there.IsLink() || there.IsFolder()) return InTheWay("Its place was taken meanwhile");
  return there.modified < item.times.modified ? ReplaceOlder(item.path, there, writer)
                                              : ReplaceNewer(item.path, writer);
}

Outcome Extractor::ReplaceOlder(const std::string& path, const DirEntry& there,
                                FileWriter& writer) {
  const bool hindered = (there.attributes & kHindering) != 0;
  Outcome done = hindered ? files_.SetAttributes(path, there.attributes & kArchive) : Outcome();
  if (done.ok()) done = writer.Commit();
  if (!done.ok() && hindered) {
    static_cast<void>(files_.SetAttributes(path, there.attributes & kSettable));
  }
  return done;
}

Outcome Extractor::ReplaceNewer(const std::string& path, FileWriter& writer) {
  std::string kept_as;
  if (Outcome moved = MoveAside(path, &kept_as); !moved.ok()) return moved;
  Outcome done = writer.Commit();
  if (done.ok() || !files_.Move(kept_as, path).ok()) result_.kept.push_back({path, kept_as});
  return done;
}

Outcome Extractor::MoveAside(const std::string& path, std::string* kept_as) {
  Outcome moved;
  for (unsigned number = 1; number <= kMostKept; ++number) {
    *kept_as = path + ".kept" + (number == 1 ? "" : std::to_string(number));
    moved = files_.Move(path, *kept_as);
    if (moved.code() != kFileExists) return moved;
  }
  return moved;
}

// Times first: a read-only file may refuse them.
void Extractor::Stamp(const ArchiveItem& item, bool made_here) {
  Outcome stamped = files_.SetTimes(item.path, item.times);
  if (made_here && !item.security.empty()) {
    Outcome secured = files_.SetSecurity(item.path, item.security);
    if (stamped.ok()) stamped = std::move(secured);
  }
  Outcome marked = files_.SetAttributes(item.path, item.attributes & kSettable);
  if (stamped.ok()) stamped = std::move(marked);
  if (!stamped.ok()) result_.notes.push_back({item.path, std::move(stamped)});
}

void Extractor::FinishFolders() {
  const auto depth = [](const ArchiveItem& item) {
    return std::count(item.path.begin(), item.path.end(), kSeparator);
  };
  std::stable_sort(folders_.begin(), folders_.end(),
                   [&](const ArchiveItem& a, const ArchiveItem& b) { return depth(a) > depth(b); });
  for (const ArchiveItem& item : folders_) {
    Holds holds;
    DirEntry entry;
    Outcome allowed = guard_.Allow(item.path, &holds);
    if (allowed.ok()) allowed = files_.Stat(item.path, &entry);
    if (allowed.ok() && (entry.IsLink() || !entry.IsFolder())) {
      allowed = InTheWay("The folder was swapped meanwhile");
    }
    if (allowed.ok()) {
      Stamp(item, !item.security.empty());
    } else {
      result_.notes.push_back({item.path, std::move(allowed)});
    }
  }
  folders_.clear();
}

}  // namespace scourwell
