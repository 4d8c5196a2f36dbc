// SPDX-License-Identifier: MIT
#include "settings/kept_numbers.h"

#include <charconv>

namespace scourwell {
namespace {

// More would be no length on any screen, and sums of such numbers must not overflow.
constexpr int kLargest = 100000;

}  // namespace

std::string PackNumbers(const std::vector<int>& numbers) {
  std::string text;
  for (const int number : numbers) {
    if (!text.empty()) text += ',';
    text += std::to_string(number);
  }
  return text;
}

std::vector<int> UnpackNumbers(std::string_view text) {
  std::vector<int> numbers;
  const char* at = text.data();
  const char* const end = at + text.size();
  while (at != end && numbers.size() < kMostKeptNumbers) {
    int number = 0;
    const auto [next, error] = std::from_chars(at, end, number);
    if (error != std::errc() || number > kLargest || number < -kLargest) return {};
    numbers.push_back(number);
    if (next == end) return numbers;
    if (*next != ',') return {};
    at = next + 1;
  }
  return {};
}

}  // namespace scourwell
