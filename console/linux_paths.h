// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace scourwell {

// The path without links and dots. What its last part names need not be there; empty when the
// folder is not.
std::string RealLinuxPath(const std::string& path);
// Its folder and its last part, of a path that RealLinuxPath gave.
std::string LinuxFolder(const std::string& path);
std::string LinuxName(const std::string& path);

// The path as a text: each byte that is no UTF-8 becomes U+DC00 and the byte. Half of a surrogate
// pair is none, too.
std::string LinuxPathText(std::string_view path);

bool IsLinuxFile(const std::string& path);
// Makes the folder and those on the way to it. False when it is not there afterwards.
bool MakeLinuxFolder(const std::string& path);

// Where the definitions are looked for: beside the program, in its program folder, and where a
// package puts them. Empty when there are none.
std::string FindDefinitions();
// Where backups and the ignore list of the user lie.
std::string UserFolder();

}  // namespace scourwell
