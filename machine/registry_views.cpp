// SPDX-License-Identifier: MIT
#include "machine/registry_views.h"

#include <algorithm>
#include <string>

#include "text/paths.h"
#include "text/text.h"

namespace scourwell {
namespace {

// Each view has its own of these, below the classes of the machine and of a user.
constexpr const char* kOwnClasses[] = {"CLSID", "DirectShow", "Interface", "Media Type",
                                       "MediaFoundation"};

// These lie below SOFTWARE of the machine, the rest of which each view has for itself.
constexpr const char* kShared[] = {
    "Clients",
    "Policies",
    "Microsoft\\COM3",
    "Microsoft\\EventSystem",
    "Microsoft\\SystemCertificates",
    "Microsoft\\Windows NT\\CurrentVersion\\Fonts",
    "Microsoft\\Windows NT\\CurrentVersion\\Image File Execution Options",
    "Microsoft\\Windows NT\\CurrentVersion\\NetworkCards",
    "Microsoft\\Windows NT\\CurrentVersion\\Perflib",
    "Microsoft\\Windows NT\\CurrentVersion\\Ports",
    "Microsoft\\Windows NT\\CurrentVersion\\Print",
    "Microsoft\\Windows NT\\CurrentVersion\\ProfileList",
    "Microsoft\\Windows NT\\CurrentVersion\\Time Zones",
    "Microsoft\\Windows\\CurrentVersion\\App Paths",
    "Microsoft\\Windows\\CurrentVersion\\Explorer\\AutoplayHandlers",
    "Microsoft\\Windows\\CurrentVersion\\Group Policy",
    "Microsoft\\Windows\\CurrentVersion\\Policies",
    "Microsoft\\Windows\\CurrentVersion\\PreviewHandlers",
    "Microsoft\\Windows\\CurrentVersion\\Setup",
};

bool IsSharedClass(std::string_view below) {
  return std::ranges::none_of(kOwnClasses,
                              [&](const char* own) { return IsAtOrBelow(below, own); });
}

}  // namespace

bool IsSharedByViews(std::string_view full_path) {
  const std::string_view root = TakePart(&full_path);
  if (EqualsNoCase(root, "HKEY_CLASSES_ROOT")) return IsSharedClass(full_path);
  const std::string_view hive = TakePart(&full_path);
  if (!EqualsNoCase(hive, "SOFTWARE")) return true;
  if (EqualsNoCase(FirstPart(full_path), "Classes")) {
    return IsSharedClass(BehindFirstPart(full_path));
  }
  if (!EqualsNoCase(root, "HKEY_LOCAL_MACHINE")) return true;
  return std::ranges::any_of(kShared, [&](const char* key) { return IsAtOrBelow(full_path, key); });
}

}  // namespace scourwell
