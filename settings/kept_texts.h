// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>

#include "platform/outcome.h"

namespace scourwell {

struct KeptText {
  std::string section;
  std::string key;
  std::string text;
};

// Texts that outlive the run, by section and key: the settings store, for those who know nothing
// of settings.
class KeptTexts {
 public:
  virtual ~KeptTexts() = default;
  // Empty when there is none.
  virtual std::string Get(const std::string& section, const std::string& key) = 0;
  virtual Outcome Set(const std::string& section, const std::string& key,
                      const std::string& text) = 0;
  // Every text is tried, whatever becomes of the others; the first failure is the one reported.
  virtual Outcome SetAll(std::span<const KeptText> texts) {
    Outcome first;
    for (const KeptText& each : texts) {
      Outcome written = Set(each.section, each.key, each.text);
      if (first.ok()) first = std::move(written);
    }
    return first;
  }

  // How a folder is written down here, and back. Empty for one that cannot be kept.
  virtual std::string WrittenFolder(const std::string& folder) const { return folder; }
  virtual std::string FolderOf(const std::string& text) const { return text; }
  // Whether anybody may type into it: a text that means nothing is then a mistake, no answer.
  virtual bool IsTyped() const { return false; }
};

}  // namespace scourwell
