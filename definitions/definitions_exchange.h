// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "definitions/change_report.h"

namespace scourwell {

// A file of definitions that could be used from now on.
struct DefinitionsOffer {
  std::string path;
  std::string content;
  ReleaseTexts release;
  std::size_t entries = 0;
  bool older = false;  // than what is in use
};

struct EntryCount {
  std::size_t entries = 0;  // of all sequences together
  bool announced = true;    // as many of each as the file says
};
EntryCount CountEntries(const IniText& definitions);
// Whether the number of a release stands before another one, "1-9" before "1-10". Numbers of
// another form stand before nothing.
bool IsOlderRelease(std::string_view number, std::string_view than);

// Changes the definitions file for another one that the user brings, and back.
class DefinitionsExchange {
 public:
  DefinitionsExchange(Files& files, ReferenceFile& reference, const AppSettings& settings,
                      const Captions& captions, ErrorLog& log)
      : files_(files), reference_(reference), settings_(settings), captions_(captions), log_(log) {}

  // Looks at a file and changes nothing. The caption says why it cannot be used.
  std::optional<Caption> Examine(const std::string& path, DefinitionsOffer* offer);
  // What a user should know before the offer is taken.
  std::string Describe(const DefinitionsOffer& offer);
  // Entries of the file in use; no value without one.
  std::optional<std::size_t> EntriesInUse();
  // The file that was in use is kept beside it. On failure it stays in use.
  Outcome Take(const DefinitionsOffer& offer);
  // Where the one before lies; empty when there is none. It can be examined and taken like any
  // other.
  std::string FormerFound();

 private:
  std::string NumberInUse();
  std::string PathInUse();
  std::string FormerPath();
  Outcome Exchange(const DefinitionsOffer& offer, const std::string& target);
  Outcome Write(const std::string& path, const std::string& content);

  Files& files_;
  ReferenceFile& reference_;
  const AppSettings& settings_;
  const Captions& captions_;
  ErrorLog& log_;
};

}  // namespace scourwell
