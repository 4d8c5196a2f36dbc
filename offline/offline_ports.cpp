// SPDX-License-Identifier: MIT
#include "offline/offline_ports.h"

namespace scourwell {
namespace {

constexpr std::uint64_t kLargestShortcut = 1 << 20;

}  // namespace

Outcome OfflineShell::Refuse() { return Outcome::Failed(kInvalidCall, "The machine does not run"); }

Outcome OfflineShell::ReadLink(const std::string& link, std::string ShortcutFile::*part,
                               std::string* text) {
  std::string bytes;
  if (Outcome read = files_.Read(link, kLargestShortcut, &bytes); !read.ok()) return read;
  const auto shortcut = ReadShortcut(bytes, code_pages_);
  if (!shortcut) return Outcome::Failed(kPathFileAccess, "The shortcut cannot be read");
  *text = (*shortcut).*part;
  return {};
}

Outcome OfflineShell::ShortcutTarget(const std::string& link, std::string* target) {
  return ReadLink(link, &ShortcutFile::target, target);
}

Outcome OfflineShell::ShortcutArguments(const std::string& link, std::string* arguments) {
  return ReadLink(link, &ShortcutFile::arguments, arguments);
}

}  // namespace scourwell
