#include "scan/matching.h"

#include "platform/file_utils.h"

namespace scourwell {
namespace {

Outcome Refused(const std::string& path) {
  return Outcome::Failed(kBadFileName, "The definition does not name one absolute path")
      .With("Path: ", path);
}

}  // namespace

void Matching::checkIfFileExistsThenAddToSpyList(const std::string& spy, const std::string& path) {
  static_cast<void>(log_.Trap("checkIfFileExistsThenAddToSpyList", [&]() -> Outcome {
    const std::string full = CleanDirString(path, folders_);
    if (full.empty()) return {};
    if (!IsPlainPath(full)) return Refused(full);
    if (FileExists(files_, full)) ReportOnce(sink_, kSpyFile, kCodeFile, full, spy);
    return {};
  }));
}

void Matching::checkIfFolderExistsThenAddToSpyList(const std::string& spy,
                                                   const std::string& path) {
  static_cast<void>(log_.Trap("checkIfFolderExistsThenAddToSpyList", [&]() -> Outcome {
    const std::string full = CleanDirString(path, folders_);
    if (full.empty()) return {};
    if (!IsPlainPath(full)) return Refused(full);
    if (FolderExists(files_, full)) ReportOnce(sink_, kSpyFolder, kCodeFolder, full, spy);
    return {};
  }));
}

}  // namespace scourwell
