// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string>

#include "machine/error_log.h"
#include "machine/version_resource.h"
#include "platform/files.h"
#include "text/captions.h"

namespace scourwell {

// What a file says of itself, as texts to show.
class FileVersion {
 public:
  // The direct readers load no more of a file than this, a whole number of blocks.
  static constexpr std::size_t kMostLoaded = 16 << 20;

  FileVersion(Files& files, Versions& versions, const Captions& captions, ErrorLog& log)
      : files_(files), versions_(versions), captions_(captions), log_(log) {}

  // The texts of the version resource, by VersionField. What is not there reads as a caption; for
  // a missing file every text says so.
  std::array<std::string, kVersionFields> GetVerHeader(const std::string& path);

  // Without the system's help, from the bytes of the file; empty when they hold no such text.
  std::string GetFileDescription(const std::string& path);
  std::string GetProductName(const std::string& path);

 private:
  std::string ReadDirectly(const char* method, std::string_view field, std::string_view next,
                           const std::string& path);
  Outcome Load(const std::string& path, std::string* content);

  Files& files_;
  Versions& versions_;
  const Captions& captions_;
  ErrorLog& log_;
};

}  // namespace scourwell
