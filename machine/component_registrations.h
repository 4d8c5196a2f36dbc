// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "machine/system_folders.h"
#include "platform/files.h"
#include "platform/registry.h"
#include "platform/system.h"

namespace scourwell {

// What the classes of the machine name as their libraries.
class ComponentRegistrations {
 public:
  ComponentRegistrations(Registry& registry, Files& files, System& system,
                         const SystemFolders& folders)
      : registry_(registry), files_(files), system_(system), folders_(folders) {}

  // Whether a class is served by this very file. The registry is read at the first question.
  bool Name(const std::string& path);

 private:
  void Read();
  std::string LibraryOf(const RegValue& value) const;

  Registry& registry_;
  Files& files_;
  System& system_;
  const SystemFolders& folders_;
  std::optional<std::vector<std::string>> libraries_;
};

}  // namespace scourwell
