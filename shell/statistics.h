// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/clock.h"
#include "settings/kept_texts.h"
#include "text/captions.h"

namespace scourwell {

// The usage statistics of the store's section "Statistics".
class Statistics {
 public:
  Statistics(KeptTexts& store, Clock& clock, const Captions& captions)
      : store_(store), clock_(clock), captions_(captions) {}

  // "0" when missing.
  std::string getNumberOfScans();
  // Counts one more scan.
  Outcome setNumberOfScans();
  // Caption::NeverScanned when there was none.
  std::string getLastSystemScanDate();
  // dd-mm-yy @ time
  Outcome setLastSystemScanDate();
  std::string getNumberOfObjectsRemoved();
  Outcome setNumberOfObjectsRemoved(int removed);

 private:
  std::string Number(const char* key);
  Outcome Raise(const char* key, int by);

  KeptTexts& store_;
  Clock& clock_;
  const Captions& captions_;
};

}  // namespace scourwell
