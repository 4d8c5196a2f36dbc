// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "machine/error_log.h"
#include "machine/watched_file.h"
#include "platform/code_pages.h"
#include "scan/finding.h"
#include "settings/kept_texts.h"

namespace scourwell {

// One excluded detection.
struct IgnoreRecord {
  std::string kind;
  std::string details;
  std::string system;
};

// The record by which a finding is known in every language. Its words are the file's alone.
IgnoreRecord IgnoreRecordOf(const Finding& finding);

// Reads records of three quoted, comma-separated fields a line. A field without quotes ends at
// the comma; a missing field is empty; quotation marks cannot stand inside a field.
std::vector<IgnoreRecord> ParseIgnoreRecords(std::string_view text);

// The line of a record, with its CR LF.
std::string IgnoreLine(const IgnoreRecord& record);
// False when a field holds a quotation mark or a line break: the line would read as another record.
bool CanBeIgnored(const IgnoreRecord& record);

// "ignorespylist.txt" of the application folder: detections that the user excluded. The file is in
// the ANSI code page of the system; which one that was is kept in the settings, so that a list of
// another is read right and written anew.
class IgnoreList {
 public:
  static constexpr std::uint64_t kLargest = 32u << 20;

  IgnoreList(Files& files, Clock& clock, CodePages& code_pages, KeptTexts& kept, ErrorLog& log,
             std::string path)
      : files_(files),
        code_pages_(code_pages),
        kept_(kept),
        log_(log),
        path_(std::move(path)),
        watched_(files, clock, kLargest) {}

  // True when a record names the same kind and details, both compared with case. The answer is
  // always that of the file as it stands; it is read again only when it changed. While it cannot be
  // read, the records that were read last count.
  bool Matches(const IgnoreRecord& record);
  // False when Matches could never look: nobody knows what is excluded.
  bool known() const { return known_; }

  // The records as they stand in the file; none when there is no file.
  Outcome Load(std::vector<IgnoreRecord>* records);
  // Appends records in one write; the file is created when missing.
  Outcome Append(const std::vector<IgnoreRecord>& records);
  // Makes `kept` the whole list, by way of "ignorespytemp.txt". What an interrupted earlier call
  // left there comes back in front of it. Nothing kept and nothing left: the file goes.
  Outcome Keep(const std::vector<IgnoreRecord>& kept);

 private:
  static std::string Key(const IgnoreRecord& record);
  Outcome Refresh();
  // The code page of the file as it stands.
  unsigned FileCodePage();
  // That it is the present one.
  Outcome StateCodePage();
  std::string FromFile(std::string_view bytes);
  std::string ToFile(const std::vector<IgnoreRecord>& records);
  Outcome TurnOver();

  Files& files_;
  CodePages& code_pages_;
  KeptTexts& kept_;
  ErrorLog& log_;
  std::string path_;
  WatchedFile watched_;
  std::unordered_set<std::string> keys_;
  bool known_ = false;
};

}  // namespace scourwell
