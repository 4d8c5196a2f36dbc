// SPDX-License-Identifier: MIT
#include "shell/companions.h"

#include "machine/file_utils.h"

namespace scourwell {
namespace {

struct Row {
  Companion companion;
  const char* program;
  const char* subfolder;
  const char* arguments;
};
constexpr Row kRows[kCompanionCount] = {
    {Companion::PopupBlocker, "ScourwellPopup.exe", "Popup", ""},
    {Companion::ResidentWatcher, "ScourwellWatch.exe", "Watch", ""},
    {Companion::NetworkRepair, "ScourwellNet.exe", "Net", ""},
    {Companion::HijackScanner, "ScourwellHijack.exe", "Hijack", ""},
    {Companion::Firewall, "ScourwellWall.exe", "Wall", ""},
    {Companion::Updater, "ScourwellUpdate.exe", "Update", "/S:244"},
};

const Row& RowOf(Companion companion) { return kRows[static_cast<int>(companion)]; }

}  // namespace

std::string Companions::ExpectedPath(Companion companion) const {
  return AddPathToFileName(application_folder_, RowOf(companion).program);
}

std::string Companions::Find(Companion companion) const {
  const Row& row = RowOf(companion);
  for (const std::string& folder :
       {application_folder_, AddPathToFileName(application_folder_, row.subfolder)}) {
    std::string path = AddPathToFileName(folder, row.program);
    if (FileExists(files_, path)) return path;
  }
  return {};
}

Outcome Companions::Start(Companion companion) const {
  const std::string path = Find(companion);
  if (path.empty()) {
    return Outcome::Failed(kFileNotFound).With("File: ", ExpectedPath(companion));
  }
  return shell_.Start(path, RowOf(companion).arguments);
}

}  // namespace scourwell
