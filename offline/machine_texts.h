// SPDX-License-Identifier: MIT
#pragma once

#include "offline/offline_machine.h"
#include "settings/kept_texts.h"

namespace scourwell {

// What is kept here, but for the key of the machine's archives, where the program was ever used
// there: so an archive made from outside bears the mark of the machine, and comes back there like
// one of its own.
class MachineTexts : public KeptTexts {
 public:
  MachineTexts(OfflineMachine& machine, KeptTexts& here) : machine_(machine), here_(here) {}

  std::string Get(const std::string& section, const std::string& key) override;
  Outcome Set(const std::string& section, const std::string& key,
              const std::string& text) override {
    return here_.Set(section, key, text);
  }

 private:
  OfflineMachine& machine_;
  KeptTexts& here_;
};

}  // namespace scourwell
