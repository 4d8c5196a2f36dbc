// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "definitions/catalogue.h"
#include "definitions/reference_file.h"
#include "settings/kept_texts.h"
#include "text/captions.h"

namespace scourwell {

// Notices a new release of the definitions and says what it changed.
class ChangeReport {
 public:
  ChangeReport(ReferenceFile& reference, KeptTexts& kept, const Captions& captions, ErrorLog& log)
      : reference_(reference), kept_(kept), captions_(captions), log_(log) {}

  // Four lines that end in CR LF, once for every release: its number, and what it updated, added
  // and removed. Empty when the release is the one that is on record (blanks around the number and
  // its case do not count), has no number, or cannot be put on record.
  std::string checkUpdateRefFileChanges();

 private:
  std::string Line(Caption label, const std::string& value) const;
  std::string TextOrNone(const ReleaseValue& value);

  ReferenceFile& reference_;
  KeptTexts& kept_;
  const Captions& captions_;
  ErrorLog& log_;
};

}  // namespace scourwell
