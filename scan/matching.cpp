// SPDX-License-Identifier: MIT
#include "scan/matching.h"

#include <utility>

#include "machine/file_utils.h"

namespace scourwell {

void Matching::LookUp(const DefinitionList<FixedPlace>& places) {
  refused_ = false;
  for (const FixedPlace& place : places) {
    if (!pump_.Next()) return;
    if (place.item == DiskItem::File) {
      checkIfFileExistsThenAddToSpyList(place.spy, place.path);
    } else {
      checkIfFolderExistsThenAddToSpyList(place.spy, place.path);
    }
  }
}

bool Matching::MayLookUp(const std::string& path) const {
  return IsPlainPath(path) && IsOwnGround(path, folders_);
}

Outcome Matching::Refuse(const std::string& path) {
  if (std::exchange(refused_, true)) return {};
  return Outcome::Failed(kBadFileName, IsPlainPath(path)
                                           ? "The definition names a place on another computer"
                                           : "The definition does not name one absolute path")
      .With("Path: ", path);
}

void Matching::checkIfFileExistsThenAddToSpyList(std::string_view spy, std::string_view path) {
  log_.Trap("checkIfFileExistsThenAddToSpyList", [&]() -> Outcome {
    const std::string full = CleanDirString(path, folders_);
    if (full.empty()) return {};
    if (!MayLookUp(full)) return Refuse(full);
    for (const std::string& place : PlacesOf(full, folders_)) {
      if (FileExists(files_, place)) ReportOnce(sink_, FoundFile{place}, spy);
    }
    return {};
  });
}

void Matching::checkIfFolderExistsThenAddToSpyList(std::string_view spy, std::string_view path) {
  log_.Trap("checkIfFolderExistsThenAddToSpyList", [&]() -> Outcome {
    const std::string full = CleanDirString(path, folders_);
    if (full.empty()) return {};
    if (!MayLookUp(full)) return Refuse(full);
    for (const std::string& place : PlacesOf(full, folders_)) {
      if (FolderExists(files_, place)) ReportOnce(sink_, FoundFolder{place}, spy);
    }
    return {};
  });
}

}  // namespace scourwell
