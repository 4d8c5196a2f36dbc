// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string_view>

namespace scourwell::refc {

// A key that the registry phase walks through. A test compares the table with what the phase asks
// the registry for.
struct WalkedKey {
  std::string_view path;  // from its root on
  bool subkeys;           // all keys below it are looked at; else its values, by their names
};
std::span<const WalkedKey> WalkedKeys();

// True when a walk comes by paths that begin with `part`, a path from its root on.
bool IsWalked(std::string_view part);

}  // namespace scourwell::refc
