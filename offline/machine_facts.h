// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/registry.h"
#include "platform/system.h"

namespace scourwell {

// What the registry of a Windows says of it.
struct MachineFacts {
  VersionRecord version;
  std::string name;         // "Microsoft Windows XP, Service Pack 3, Build 2600"
  std::string system_root;  // with the letter that the drive has there; may be empty
  bool is_64 = false;
  unsigned code_page = 1252;
};

MachineFacts FactsOfNt(Registry& registry);
MachineFacts FactsOfW9x(Registry& registry);

// A text value up to its NUL; empty when there is none.
std::string TextValue(Registry& registry, RootKey root, const std::string& path,
                      const std::string& name);
std::uint32_t NumberValue(Registry& registry, RootKey root, const std::string& path,
                          const std::string& name);

}  // namespace scourwell
