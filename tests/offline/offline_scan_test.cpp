// SPDX-License-Identifier: MIT
#include "tests/offline/offline_support.h"

namespace scourwell::test {

TEST_SUITE("offline_scan") {
  TEST_CASE("a scan of a disk finds what was planted there, and whose it is, and nothing else") {
    for (const char* options : {"", "--98"}) {
      CAPTURE(std::string(options));
      const PlantedDisk disk(options);
      OfflineBench bench;
      const auto machine = disk.Open();
      CHECK(bench.Scan(*machine) == disk.planted());
      CHECK(machine->unread().empty());
      CHECK(bench.m.Errors() == "");
      CHECK(bench.sections == "registry cookies drives end ");
    }
  }
}

}  // namespace scourwell::test
