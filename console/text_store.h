// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>
#include <utility>

#include "platform/files.h"
#include "settings/kept_texts.h"

namespace scourwell {

// Kept texts in a file of ours, where the registry is another machine's: one line each, with tabs
// between section, key and text.
class TextStore : public KeptTexts {
 public:
  TextStore(Files& files, std::string path) : files_(files), path_(std::move(path)) {}

  std::string Get(const std::string& section, const std::string& key) override;
  // Texts with a tab or the end of a line are refused.
  Outcome Set(const std::string& section, const std::string& key, const std::string& text) override;

 private:
  void Load();

  Files& files_;
  std::string path_;
  bool loaded_ = false;
  std::map<std::pair<std::string, std::string>, std::string> texts_;
};

}  // namespace scourwell
