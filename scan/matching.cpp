// SPDX-License-Identifier: MIT
#include "scan/matching.h"

#include <utility>

#include "machine/file_utils.h"

namespace scourwell {

void Matching::LookUp(const DefinitionList<FixedPlace>& places) {
  refused_ = false;
  for (const FixedPlace& place : places) {
    if (!pump_.Next()) return;
    const Evidence evidence = {place.spy, Certainty::Place, place.source};
    if (place.item == DiskItem::File) {
      checkIfFileExistsThenAddToSpyList(evidence, place.path);
    } else {
      checkIfFolderExistsThenAddToSpyList(evidence, place.path);
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

void Matching::checkIfFileExistsThenAddToSpyList(const Evidence& evidence, std::string_view path) {
  log_.Trap("checkIfFileExistsThenAddToSpyList", [&]() -> Outcome {
    const std::string full = CleanDirString(path, folders_);
    if (full.empty()) return {};
    if (!MayLookUp(full)) return Refuse(full);
    for (const std::string& place : PlacesOf(full, folders_)) {
      if (FileExists(files_, place)) ReportOnce(sink_, FoundFile{place}, evidence);
    }
    return {};
  });
}

void Matching::checkIfFolderExistsThenAddToSpyList(const Evidence& evidence,
                                                   std::string_view path) {
  log_.Trap("checkIfFolderExistsThenAddToSpyList", [&]() -> Outcome {
    const std::string full = CleanDirString(path, folders_);
    if (full.empty()) return {};
    if (!MayLookUp(full)) return Refuse(full);
    for (const std::string& place : PlacesOf(full, folders_)) {
      if (FolderExists(files_, place)) ReportOnce(sink_, FoundFolder{place}, evidence);
    }
    return {};
  });
}

}  // namespace scourwell
