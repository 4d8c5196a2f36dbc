// SPDX-License-Identifier: MIT
#include "backup/restore_text.h"

#include <vector>

#include "machine/reasons.h"

namespace scourwell {
namespace {

constexpr std::size_t kMostRestoredNamed = 10;  // under each heading

std::string NamedLines(const Captions& captions, const std::vector<std::string>& lines) {
  std::string text;
  for (std::size_t i = 0; i < lines.size() && i < kMostRestoredNamed; ++i) {
    text += "\r\n" + lines[i];
  }
  if (lines.size() > kMostRestoredNamed) text += "\r\n... " + captions.Text(Caption::AndMore);
  return text;
}

std::vector<std::string> ReasonLines(const Captions& captions,
                                     const std::vector<ItemReport>& items) {
  std::vector<std::string> lines;
  for (const ItemReport& item : items) {
    lines.push_back(item.path + ": " + ReasonText(captions, item.why));
  }
  return lines;
}

}  // namespace

std::string RestoreText(const Captions& captions, const Outcome& outcome,
                        const RestoreResult& result) {
  const bool whole = outcome.ok() && result.failed.empty();
  std::string text = captions.Text(whole ? Caption::BackupRestored : Caption::RestoreIncomplete);
  if (!outcome.ok()) text += "\r\n" + ReasonText(captions, outcome);
  text += NamedLines(captions, ReasonLines(captions, result.failed));
  const auto add = [&](Caption heading, const std::vector<std::string>& lines) {
    if (lines.empty()) return;
    text += "\r\n\r\n" + captions.Text(heading) + NamedLines(captions, lines);
  };
  add(Caption::RestoredNotAsItWas, ReasonLines(captions, result.notes));
  std::vector<std::string> kept;
  for (const KeptFile& file : result.kept) kept.push_back(file.kept_as);
  add(Caption::NewerFilesKept, kept);
  return text;
}

}  // namespace scourwell
