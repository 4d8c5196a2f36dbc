// SPDX-License-Identifier: MIT
#include <cstdio>
#include <new>

#include "console/exit_codes.h"
#include "console/linux_host.h"
#include "engine/version.h"

int main(int count, char** words) {
  using namespace scourwell;
  try {
    LinuxHost host(kProgramVersion);
    return RunConsole({words + (count > 0 ? 1 : 0), words + count}, host);
  } catch (const std::bad_alloc&) {
    std::fputs("scourwell: not enough memory\n", stderr);
    return kIncomplete;
  }
}
