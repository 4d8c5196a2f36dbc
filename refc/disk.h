// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace scourwell::refc {

// The files that the tool works with. Paths are the host's; "/" stands between their parts.
class Disk {
 public:
  // A file in the making. Nothing stands under its name before Commit; without it, nothing stays.
  class NewFile {
   public:
    virtual ~NewFile() = default;
    virtual void Append(std::string_view text) = 0;
    // False when anything could not be written; an older file stays then.
    virtual bool Commit() = 0;
  };

  virtual ~Disk() = default;
  virtual bool IsFolder(const std::string& path) = 0;
  // Names of a folder's entries, sorted.
  virtual std::vector<std::string> List(const std::string& folder) = 0;
  // No value when there is no such file, it cannot be read, or it is larger than 256 MB.
  virtual std::optional<std::string> Read(const std::string& path) = 0;
  virtual std::unique_ptr<NewFile> Create(const std::string& path) = 0;
};

// The real one.
std::unique_ptr<Disk> MakeDisk();

}  // namespace scourwell::refc
