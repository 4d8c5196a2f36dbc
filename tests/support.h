// SPDX-License-Identifier: MIT
#pragma once

#include <doctest/doctest.h>

#include "definitions/definition_list.h"
#include "machine/error_log.h"
#include "settings/app_settings.h"
#include "settings/kept_texts.h"
#include "tests/fake/fake_machine.h"
#include "tests/helpers.h"

namespace scourwell::test {

class KeptInMemory : public KeptTexts {
 public:
  std::map<std::string, std::string> texts;  // by "section/key"

  std::string Get(const std::string& section, const std::string& key) override {
    return texts[section + "/" + key];
  }
  Outcome Set(const std::string& section, const std::string& key,
              const std::string& text) override {
    texts[section + "/" + key] = text;
    return {};
  }
};

// A machine with the things that most parts of the core ask for.
struct Bench {
  FakeMachine m;
  ErrorLog log{m.files, m.clock, m.code_pages, kErrorLog};
  NumberCaptions captions;
  AppSettings settings;
  CollectingSink sink;
  KeptInMemory kept;
};

}  // namespace scourwell::test
