// SPDX-License-Identifier: MIT
#define DOCTEST_CONFIG_IMPLEMENT
#include <doctest/doctest.h>

#include <cstdio>

int main(int argc, char** argv) {
  // Whatever ends the program, what it has found so far is told.
  std::setvbuf(stdout, nullptr, _IONBF, 0);
  return doctest::Context(argc, argv).run();
}
