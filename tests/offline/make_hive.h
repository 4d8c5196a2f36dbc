// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/registry.h"

namespace scourwell::test {

// The smallest registry file of the NT family: a root key that everybody may change.
std::string EmptyHive(const std::string& root_name = "ROOT");
// What a crash leaves: the file says that some of it was not saved.
std::string Unsaved(std::string hive);
// The free rest of its first page says that it has a size which none has; nothing is lost.
std::string Damaged(std::string hive);
std::string WithChecksum(std::string hive);

}  // namespace scourwell::test
