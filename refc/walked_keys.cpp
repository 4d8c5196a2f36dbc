// SPDX-License-Identifier: MIT
#include "refc/walked_keys.h"

#include <algorithm>

#include "text/paths.h"
#include "text/text.h"

namespace scourwell::refc {
namespace {

constexpr WalkedKey kWalked[] = {
    {"HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\run", false},
    {"HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Internet Explorer", false},
    {"HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Internet Explorer\\Main", false},
    {"HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Internet Explorer\\Search", false},
    {"HKEY_CURRENT_USER\\Software\\Microsoft\\Internet Explorer", false},
    {"HKEY_CURRENT_USER\\Software\\Microsoft\\Internet Explorer\\Main", false},
    {"HKEY_CURRENT_USER\\Software\\Microsoft\\Internet Explorer\\Search", false},
    {"HKEY_USERS\\.Default\\Software\\Microsoft\\Internet Explorer", false},
    {"HKEY_USERS\\.Default\\Software\\Microsoft\\Internet Explorer\\Main", false},
    {"HKEY_USERS\\.Default\\Software\\Microsoft\\Internet Explorer\\Search", false},
    {"HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\SharedDLLs", false},
    {"HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Services\\WinSock2\\Parameters\\"
     "Protocol_Catalog9\\Catalog_Entries",
     true},
    {"HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Internet Explorer\\Extensions", true},
    {"HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\moduleusage", true},
    {"HKEY_CLASSES_ROOT\\CLSID", true},
    {"HKEY_CLASSES_ROOT\\Software\\Microsoft\\Windows\\Currentversion\\internet settings\\"
     "user agent\\post platform",
     true},
};

// Values of shared files are named by whole paths.
bool IsValueName(std::string_view name) {
  return !HoldsSeparator(name) || (name.size() > 2 && name[1] == ':');
}

}  // namespace

std::span<const WalkedKey> WalkedKeys() { return kWalked; }

bool IsWalked(std::string_view part) {
  return std::ranges::any_of(kWalked, [&](const WalkedKey& key) {
    if (StartsWithNoCase(key.path, part)) return true;
    if (!StartsWithNoCase(part, key.path)) return false;
    const std::string_view below = part.substr(key.path.size());
    return BeginsWithSeparator(below) && (key.subkeys || IsValueName(below.substr(1)));
  });
}

}  // namespace scourwell::refc
