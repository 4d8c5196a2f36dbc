// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "offline/beneath.h"
#include "offline/dos_attributes.h"
#include "offline/posix_files.h"
#include "text/text.h"

namespace scourwell {

// A folder of this machine as a drive.
struct PosixDrive {
  char letter = 'C';
  std::string folder;
  UniqueFd root;
  AttributeStore store = AttributeStore::Named;
  bool folds = false;    // finds a name in any case, and does not say which one it has
  bool adopted = false;  // not one of the machine's own
};

// Where a path leads: a folder that is there, and a name in it that may be there.
struct PosixSpot {
  const PosixDrive* drive = nullptr;
  std::shared_ptr<UniqueFd> folder;
  std::string folder_path;  // by the names on the disk
  std::string name;         // as it stands on the disk; of a root "."
  bool exists = false;

  ItemName item() const { return {folder->get(), name.c_str()}; }
  bool IsRoot() const { return name == "."; }
  std::string Path() const;
};

// Looks paths up on the drives, without case and without ever following a link.
class PosixFiles::Tree {
 public:
  using ItemId = std::pair<std::uint64_t, std::uint64_t>;  // device and number
  enum class Links { Unseen, Refused };

  explicit Tree(const std::vector<MountedDrive>& drives);

  const std::vector<PosixDrive>& drives() const { return drives_; }
  bool Add(char letter, const std::string& folder, bool adopted);
  const PosixDrive* DriveOf(std::string_view path) const;

  // kPathNotFound: the folder is not there. A link on the way is, by choice, not seen, or
  // kPathFileAccess.
  Outcome Walk(std::string_view path, Links links, PosixSpot* spot);
  // The same for something that has to be there; kFileNotFound: it is not.
  Outcome Find(std::string_view path, Links links, PosixSpot* spot);
  // The folder itself, open for listing.
  Outcome OpenFolder(const std::string& path, std::shared_ptr<UniqueFd>* folder,
                     const PosixDrive** drive);

  // Something in the folder has come, gone or changed its name.
  void Changed(const UniqueFd& folder);
  // Folders that must stay where they are.
  std::map<ItemId, int>& holds() { return holds_; }
  bool IsHeld(const ItemName& item) const;

 private:
  // The names of one folder, by their folded form; a name that occurs in several cases has several
  // entries.
  using Names = std::unordered_multimap<std::string, std::string, NoCaseHash, NoCaseEqual>;
  struct Listing {
    std::int64_t changed = 0;  // when the folder last was, by the volume
    Names names;
  };
  struct FolderState {
    ItemId id;
    std::int64_t changed = 0;
  };

  // A folder on the way.
  struct Step {
    std::string part;  // as it was asked for
    std::string real;  // its path, by the names on the disk
    std::shared_ptr<UniqueFd> folder;
  };

  // What errno says when it is false.
  bool EnterFolder(const PosixDrive& drive, std::string_view below, Links links, Step* step);
  bool EnterPart(const PosixDrive& drive, std::string_view part, const Step& at, Step* next);
  // Takes off what leads along the last way, and says how far that is.
  std::size_t KnownSteps(std::string_view* below) const;
  // errno is ENOENT when there is none.
  std::optional<std::string> RealName(const PosixDrive& drive, int folder, std::string_view name);
  static std::optional<FolderState> StateOf(int folder);
  // Null when it was not listed yet, or has changed since.
  const Names* KnownNames(const FolderState& state) const;
  const Names* NamesOf(int folder, const FolderState& state);
  void Forget(const ItemId& id);
  std::optional<std::string> ByShortName(int folder, const Names& names, std::string_view name);

  std::vector<PosixDrive> drives_;
  std::map<ItemId, Listing> listings_;
  std::size_t listed_ = 0;  // names in listings_
  std::map<ItemId, int> holds_;
  // The way that was gone last, from the root of its drive.
  const PosixDrive* way_drive_ = nullptr;
  std::vector<Step> way_;
};

std::optional<PosixFiles::Tree::ItemId> IdOf(const ItemName& item);
// What the system knows of an item, in the words of the port. `all`: also what costs a question
// more for each item.
Outcome Describe(const PosixDrive& drive, const ItemName& item, bool all, DirEntry* entry);

}  // namespace scourwell
