// SPDX-License-Identifier: MIT
#include "settings/program_store.h"

#include "machine/file_utils.h"
#include "settings/portable_texts.h"
#include "settings/settings.h"

namespace scourwell {
namespace {

constexpr char kOwnFile[] = "kept.ini";

}  // namespace

ProgramStore::ProgramStore(Files& files, Registry& registry, CodePages& code_pages,
                           const std::string& application_folder, Home home) {
  if (home == Home::OwnFile) {
    texts_ = std::make_unique<PortableTexts>(files, code_pages,
                                             FullPath_With_Filename(application_folder, kOwnFile));
    return;
  }
  std::string file = FullPath_With_Filename(application_folder, kPortableFile);
  portable_ = FileExists(files, file);
  if (!portable_) {
    texts_ = std::make_unique<SettingsStore>(registry);
    return;
  }
  auto kept = std::make_unique<PortableTexts>(files, code_pages, std::move(file));
  read_only_ = kept->read_only();
  texts_ = std::move(kept);
}

}  // namespace scourwell
