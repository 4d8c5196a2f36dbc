// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "platform/code_pages.h"
#include "platform/files.h"
#include "platform/registry.h"
#include "settings/kept_texts.h"

namespace scourwell {

// Beside the program, it makes a portable copy.
inline constexpr char kPortableFile[] = "portable.ini";

// Where this copy of the program keeps its texts: in the user's part of the registry, or in the
// file of a portable copy, which leaves the registry alone; or in a file of its own, where the
// registry is another machine's.
class ProgramStore {
 public:
  enum class Home { OfProgram, OwnFile };

  ProgramStore(Files& files, Registry& registry, CodePages& code_pages,
               const std::string& application_folder, Home home);

  KeptTexts& texts() { return *texts_; }
  bool portable() const { return portable_; }
  // A portable copy that lies where nothing can be written.
  bool read_only() const { return read_only_; }

 private:
  std::unique_ptr<KeptTexts> texts_;
  bool portable_ = false;
  bool read_only_ = false;
};

}  // namespace scourwell
