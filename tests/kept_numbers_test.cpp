// SPDX-License-Identifier: MIT
#include "settings/kept_numbers.h"

#include <doctest/doctest.h>

#include "tests/helpers.h"

namespace scourwell::test {

TEST_SUITE("kept_numbers") {
  TEST_CASE("numbers come back as they were kept") {
    for (const std::vector<int>& numbers :
         {std::vector<int>{}, {0}, {-4, 20, 640, 480, 1}, {100000, -100000}}) {
      CHECK(UnpackNumbers(PackNumbers(numbers)) == numbers);
    }
  }

  TEST_CASE("a text that is anything else counts for nothing") {
    std::string too_many = "1";
    for (std::size_t i = 0; i < kMostKeptNumbers; ++i) too_many += ",1";
    for (const std::string& text :
         {std::string("x"), std::string("1,"), std::string(",1"), std::string("1,,2"),
          std::string("1 2"), std::string("1,2\0", 4), std::string("100001"),
          std::string("-100001"), std::string("99999999999999999999"), too_many}) {
      CHECK_MESSAGE(UnpackNumbers(text).empty(), text);
    }
  }
}

}  // namespace scourwell::test
