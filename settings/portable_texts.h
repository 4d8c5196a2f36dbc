// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/code_pages.h"
#include "platform/files.h"
#include "settings/kept_texts.h"

namespace scourwell {

// Kept texts in an INI file beside a portable copy of the program. Folders are written as they lie
// from there, since the drive has another letter elsewhere, and letters that a code page could
// lack are escaped, since the file travels. A file that others have damaged holds nothing.
class PortableTexts : public KeptTexts {
 public:
  PortableTexts(Files& files, CodePages& code_pages, std::string path);

  // Asked once: where nothing can be written, texts count until the program ends.
  bool read_only();

  std::string Get(const std::string& section, const std::string& key) override;
  Outcome Set(const std::string& section, const std::string& key, const std::string& text) override;
  Outcome SetAll(std::span<const KeptText> texts) override;
  // Empty for a folder on another drive.
  std::string WrittenFolder(const std::string& folder) const override;
  std::string FolderOf(const std::string& text) const override;
  bool IsTyped() const override { return true; }

 private:
  Outcome Load();
  KeptText* Find(std::string_view section, std::string_view key);
  void Keep(KeptText text);
  std::string Content() const;

  Files& files_;
  CodePages& code_pages_;
  std::string path_;
  std::string folder_;  // ends in "\"
  std::optional<bool> read_only_;
  std::string content_;  // of the file, as it was read last
  std::vector<KeptText> texts_;
};

}  // namespace scourwell
