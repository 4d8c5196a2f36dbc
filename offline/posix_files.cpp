// SPDX-License-Identifier: MIT
#include "offline/posix_files.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "offline/disk_name.h"
#include "offline/listing_pattern.h"
#include "offline/posix_folder.h"
#include "offline/posix_streams.h"
#include "offline/posix_tree.h"
#include "text/paths.h"

namespace scourwell {
namespace {

using Links = PosixFiles::Tree::Links;

// Whoever only looks does not see what lies behind a link.
Outcome ToFolder(Outcome walked) {
  return walked.code() == kFileNotFound ? Outcome::Failed(kPathNotFound) : std::move(walked);
}

}  // namespace

PosixFiles::PosixFiles(const std::vector<MountedDrive>& drives)
    : tree_(std::make_unique<Tree>(drives)) {}

PosixFiles::~PosixFiles() = default;

std::string PosixFiles::Adopt(const std::string& folder) {
  for (char letter = 'Z'; letter >= 'A'; --letter) {
    const std::string root = {letter, ':', kSeparator};
    if (tree_->DriveOf(root)) continue;
    return tree_->Add(letter, folder, true) ? root : std::string();
  }
  return {};
}

std::string PosixFiles::ToLinux(std::string_view path) const {
  const PosixDrive* drive = tree_->DriveOf(path);
  if (!drive) return {};
  std::string real = drive->folder;
  PosixSpot spot;
  std::string known(path);
  if (tree_->Walk(path, Links::Unseen, &spot).ok()) known = spot.Path();
  std::string_view below = std::string_view(known).substr(RootSize(known));
  while (!below.empty()) {
    const std::string_view part = TakePart(&below);
    if (part.empty()) continue;
    if (!real.ends_with('/')) real += '/';
    real += ToDiskName(part).value_or(std::string(part));
  }
  return real;
}

std::string PosixFiles::FromLinux(std::string_view path) const {
  const PosixDrive* innermost = nullptr;
  for (const PosixDrive& drive : tree_->drives()) {
    const std::size_t size = drive.folder == "/" ? 0 : drive.folder.size();
    if (!path.starts_with(std::string_view(drive.folder).substr(0, size))) continue;
    if (path.size() > size && path[size] != '/') continue;
    if (!innermost || innermost->folder.size() < drive.folder.size()) innermost = &drive;
  }
  if (!innermost) return {};
  std::string real = {innermost->letter, ':', kSeparator};
  path.remove_prefix(innermost->folder == "/" ? 0 : innermost->folder.size());
  while (!path.empty()) {
    const std::size_t end = std::min(path.find('/'), path.size());
    if (end > 0) real = AddPathToFileName(real, FromDiskName(path.substr(0, end)));
    path.remove_prefix(std::min(end + 1, path.size()));
  }
  return real;
}

bool PosixFiles::IsReadOnly(char letter) const {
  const PosixDrive* drive = tree_->DriveOf(std::string({letter, ':', kSeparator}));
  struct statvfs volume = {};
  if (!drive || fstatvfs(drive->root.get(), &volume) != 0) return true;
  return (volume.f_flag & ST_RDONLY) != 0 ||
         faccessat(drive->root.get(), ".", W_OK, AT_EACCESS) != 0;
}

Outcome PosixFiles::List(const std::string& pattern, const Visit& visit) {
  return ListAny(pattern, true, visit);
}

Outcome PosixFiles::ListNames(const std::string& pattern, const Visit& visit) {
  return ListAny(pattern, false, visit);
}

Outcome PosixFiles::ListAny(const std::string& pattern, bool all, const Visit& visit) {
  const ListingPattern wanted(FileNamePart(pattern));
  const std::string path(FolderPart(pattern));
  std::shared_ptr<UniqueFd> folder;
  const PosixDrive* drive = nullptr;
  if (Outcome opened = tree_->OpenFolder(path, &folder, &drive); !opened.ok()) return opened;
  PosixSpot spot;
  if (!wanted.HasWildcards()) {
    if (!tree_->Find(pattern, Links::Unseen, &spot).ok() || spot.IsRoot()) return {};
    if (EndsInSeparator(pattern)) return {};
    DirEntry entry;
    Outcome described = Describe(*drive, spot.item(), all, &entry);
    if (described.ok()) visit(entry);
    return described;
  }
  return ReadFolder(folder->get(), [&](const char* name, unsigned char kind) {
    DirEntry entry;
    entry.name = FromDiskName(name);
    if (!wanted.Matches(entry.name)) return true;
    if (all || kind == DT_UNKNOWN) {
      // What has gone since is not there.
      if (!Describe(*drive, {folder->get(), name}, all, &entry).ok()) return true;
    } else {
      entry.attributes = (kind == DT_DIR ? kFolder : 0u) | (kind == DT_LNK ? kLink : 0u);
    }
    return visit(entry);
  });
}

Outcome PosixFiles::Stat(const std::string& path, DirEntry* entry) {
  PosixSpot spot;
  Outcome found = tree_->Find(path, Links::Unseen, &spot);
  if (found.code() == kPathNotFound || found.code() == kBadFileName) {
    return Outcome::Failed(kFileNotFound);
  }
  if (found.ok()) found = Describe(*spot.drive, spot.item(), true, entry);
  if (found.ok() && spot.IsRoot()) entry->name = spot.folder_path;
  return found;
}

Outcome PosixFiles::Read(const std::string& path, std::uint64_t limit, std::string* content) {
  std::unique_ptr<FileReader> reader;
  if (Outcome opened = OpenReader(path, &reader); !opened.ok()) return opened;
  if (reader->size() > limit) return Outcome::Failed(kOutOfMemory);
  std::string text(static_cast<std::size_t>(reader->size()), '\0');
  std::size_t filled = 0;
  if (Outcome read = reader->ReadAt(0, text.data(), text.size(), &filled); !read.ok()) return read;
  text.resize(filled);
  *content = std::move(text);
  return {};
}

Outcome PosixFiles::ReadBlocks(const std::string& path, const VisitBlock& visit) {
  std::unique_ptr<FileReader> reader;
  if (Outcome opened = OpenReader(path, &reader); !opened.ok()) return opened;
  std::string block(kBlockSize, '\0');
  for (std::uint64_t at = 0;;) {
    std::size_t filled = 0;
    Outcome read = reader->ReadAt(at, block.data(), block.size(), &filled);
    if (!read.ok() || filled == 0) return read;
    if (!visit(std::string_view(block).substr(0, filled)) || filled < block.size()) return {};
    at += filled;
  }
}

Outcome PosixFiles::OpenReader(const std::string& path, std::unique_ptr<FileReader>* reader) {
  PosixSpot spot;
  if (Outcome found = tree_->Find(path, Links::Unseen, &spot); !found.ok()) return found;
  return OpenReaderAt(spot.item(), reader);
}

Outcome PosixFiles::OpenWriter(const std::string& path, std::unique_ptr<FileWriter>* writer) {
  PosixSpot spot;
  if (Outcome found = ToFolder(tree_->Walk(path, Links::Refused, &spot)); !found.ok()) {
    return found;
  }
  if (spot.IsRoot()) return Outcome::Failed(kPathFileAccess);
  return OpenWriterAt(*tree_, spot, writer);
}

Outcome PosixFiles::Append(const std::string& path, std::string_view text) {
  PosixSpot spot;
  if (Outcome found = ToFolder(tree_->Walk(path, Links::Refused, &spot)); !found.ok()) {
    return found;
  }
  Outcome appended = AppendAt(spot.item(), text);
  if (!spot.exists) tree_->Changed(*spot.folder);
  return appended;
}

Outcome PosixFiles::Replace(const std::string& path, std::string_view text) {
  std::unique_ptr<FileWriter> writer;
  Outcome written = OpenWriter(path, &writer);
  if (written.ok()) written = writer->Write(text);
  if (written.ok()) written = writer->Commit();
  return written;
}

std::string PosixFiles::ShortPath(const std::string& path) {
  PosixSpot spot;
  return tree_->Find(path, Links::Unseen, &spot).ok() ? spot.Path() : std::string();
}

std::vector<Drive> PosixFiles::Drives() {
  std::vector<Drive> drives;
  for (const PosixDrive& drive : tree_->drives()) {
    if (!drive.adopted) drives.push_back({drive.letter, DriveKind::Fixed});
  }
  return drives;
}

bool PosixFiles::IsReady(const std::string& root) { return tree_->DriveOf(root) != nullptr; }

}  // namespace scourwell
