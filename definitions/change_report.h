// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string>

#include "definitions/catalogue.h"
#include "definitions/reference_file.h"
#include "settings/kept_texts.h"
#include "text/captions.h"

namespace scourwell {

// What a release says of itself, in the order of kReleaseValues.
using ReleaseTexts = std::array<std::string, kReleaseValues.size()>;

// Four lines that end in CR LF: the number of the release, and what it updated, added and removed.
std::string ReleaseLines(const Captions& captions, const ReleaseTexts& release);
// Lines that are too long for a message box, which cannot scroll, cut short.
std::string WithShortLines(const std::string& text);

// Notices a new release of the definitions and says what it changed.
class ChangeReport {
 public:
  ChangeReport(ReferenceFile& reference, KeptTexts& kept, const Captions& captions, ErrorLog& log)
      : reference_(reference), kept_(kept), captions_(captions), log_(log) {}

  // The lines of a release, once for each. Empty when the release is the one that is on record
  // (blanks around the number and its case do not count), has no number, or cannot be put on
  // record.
  std::string checkUpdateRefFileChanges();

 private:
  ReferenceFile& reference_;
  KeptTexts& kept_;
  const Captions& captions_;
  ErrorLog& log_;
};

}  // namespace scourwell
