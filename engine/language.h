// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "machine/error_log.h"
#include "machine/watched_file.h"
#include "platform/code_pages.h"
#include "settings/app_settings.h"
#include "text/captions.h"
#include "text/ini_text.h"

namespace scourwell {

inline constexpr std::size_t kLongestCaption = 499;  // characters

// The active language pack: "Lang\<LanguageFile>" below the application folder, an INI file with
// the section "Adware Language Pack" with decimal numbers as keys. A second section may state the
// code page that the file was written in:
//   [Language Pack]
//   CodePage=1250
// Without that it is the system's own.
class Language : public Captions {
 public:
  static constexpr std::uint64_t kLargest = 16u << 20;

  Language(Files& files, Clock& clock, CodePages& code_pages, ErrorLog& log,
           const AppSettings& settings, std::string application_folder)
      : code_pages_(code_pages),
        log_(log),
        settings_(settings),
        application_folder_(std::move(application_folder)),
        watched_(files, clock, kLargest) {}

  // The pack's text for a number, else `fallback`; cut to 499 characters, then trimmed of blanks at
  // both ends. A key that is there without a value gives an empty text.
  std::string SetCaptionfromINI(std::string_view number, std::string_view fallback) const;

  // The same with the English default of the caption table, and with its line breaks.
  std::string Text(Caption caption) const override;

  // The pack's file name without ".ini".
  std::string Name() const;
  // "Language: English", as the status bar shows it.
  std::string StatusText() const;

 private:
  Outcome Refresh() const;
  Outcome Load(const std::string& content) const;

  CodePages& code_pages_;
  ErrorLog& log_;
  const AppSettings& settings_;
  std::string application_folder_;
  mutable WatchedFile watched_;
  mutable IniText pack_;
};

// "#" stands for a line break in long messages.
std::string WithLineBreaks(std::string_view message);

}  // namespace scourwell
