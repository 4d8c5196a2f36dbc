// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "machine/error_log.h"
#include "machine/watched_file.h"
#include "settings/app_settings.h"
#include "text/ini_text.h"

namespace scourwell {

// A value is at most this long, in bytes; the rest is cut before it is descrambled.
inline constexpr std::size_t kLongestValue = 1999;

// The characters before the first NUL; no value when there is none, since readers always leave
// one behind a value.
std::optional<std::string> CleanParam(std::string_view text);

// Every character's code less 12. No value when a code lies below 12.
std::optional<std::string> Decrypt(std::string_view scrambled);
// The text of a value as it stands in a file, cut to what is read. No value when it cannot be
// descrambled.
std::optional<std::string> PlainValue(std::string_view raw);
// Back from Decrypt: every code more by 12. Codes above 243 have no scrambled form and must not
// occur.
void AppendScrambled(std::string_view plain, std::string* text);

// The file's name, wherever it stands.
inline constexpr char kReferenceName[] = "update.ref";

// The definitions reference file "update.ref": an INI text whose section and key names are plain
// and whose values are scrambled. It stands in the definitions folder, else in "Ini" below the
// application folder, and is written in code page 1252 whatever the system's is. Every look-up
// decides that afresh; the file is parsed again only when it is another one than before.
class ReferenceFile {
 public:
  // Larger files are refused with an error record.
  static constexpr std::uint64_t kLargest = 256u << 20;

  ReferenceFile(Files& files, Clock& clock, ErrorLog& log, const AppSettings& settings,
                const std::string& application_folder);

  // This file and no other from now on.
  void Use(const std::string& path) { given_path_ = path; }

  // The descrambled value; empty when the key is absent, its value is empty or it cannot be
  // descrambled. Empty is the end of every list.
  std::string updateListfromINI(std::string_view section, std::string_view key);

  // Whether the last look-up had a file to look in: else the compiled-in rows are all there is.
  bool readable() const { return ini_.section_count() != 0; }
  // Where the file is looked for: the definitions folder first.
  std::string path() const { return watched_.path(); }
  // Rises each time another file is parsed.
  unsigned generation() const { return generation_; }

 private:
  bool checkUpdateIni();
  Outcome Parse(std::optional<std::string> content);

  ErrorLog& log_;
  const AppSettings& settings_;
  std::string given_path_;
  std::string own_path_;            // the fallback, below the application folder
  std::string definitions_folder_;  // the setting that candidate_path_ was made from
  std::string candidate_path_;
  WatchedFile watched_;
  IniText ini_;
  unsigned generation_ = 0;
};

}  // namespace scourwell
