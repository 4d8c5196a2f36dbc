#pragma once

#include <doctest/doctest.h>

#include "definitions/signature_list.h"
#include "platform/app_settings.h"
#include "platform/error_log.h"
#include "tests/fake/fake_machine.h"
#include "tests/helpers.h"

namespace scourwell::test {

// A machine with the things that most parts of the core ask for.
struct Bench {
  FakeMachine m;
  ErrorLog log{m.files, m.clock, kErrorLog};
  NumberCaptions captions;
  AppSettings settings;
  CollectingSink sink;
};

}  // namespace scourwell::test
