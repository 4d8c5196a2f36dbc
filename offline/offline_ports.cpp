// SPDX-License-Identifier: MIT
#include "offline/offline_ports.h"

#include "offline/shortcut_file.h"

namespace scourwell {
namespace {

constexpr std::uint64_t kLargestShortcut = 1 << 20;

}  // namespace

Outcome OfflineShell::Refuse() { return Outcome::Failed(kInvalidCall, "The machine does not run"); }

Outcome OfflineShell::ShortcutTarget(const std::string& link, std::string* target) {
  std::string bytes;
  if (Outcome read = files_.Read(link, kLargestShortcut, &bytes); !read.ok()) return read;
  *target = ReadShortcut(bytes, code_pages_).target;
  return {};
}

Outcome OfflineShell::ShortcutArguments(const std::string& link, std::string* arguments) {
  std::string bytes;
  if (Outcome read = files_.Read(link, kLargestShortcut, &bytes); !read.ok()) return read;
  *arguments = ReadShortcut(bytes, code_pages_).arguments;
  return {};
}

}  // namespace scourwell
