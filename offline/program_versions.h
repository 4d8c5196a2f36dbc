// SPDX-License-Identifier: MIT
#pragma once

#include "platform/code_pages.h"
#include "platform/files.h"
#include "platform/versions.h"

namespace scourwell {

// Finds the version resource in program files themselves, 32-bit, 64-bit and 16-bit ones. Every
// number of the file is checked before it is followed.
class ProgramVersions : public Versions {
 public:
  ProgramVersions(Files& files, CodePages& code_pages) : files_(files), code_pages_(code_pages) {}

  Outcome ReadBlock(const std::string& path, std::string* block) override;
  std::string FromAnsi(std::string_view bytes) const override;

 private:
  Files& files_;
  CodePages& code_pages_;
};

}  // namespace scourwell
