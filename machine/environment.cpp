// SPDX-License-Identifier: MIT
#include "machine/environment.h"

namespace scourwell {

std::string ExpandEnvironment(std::string_view text, System& system) {
  std::string result;
  while (!text.empty()) {
    const std::size_t first = text.find('%');
    const std::size_t second = first == text.npos ? first : text.find('%', first + 1);
    result += text.substr(0, first);
    if (second == text.npos) {
      if (first != text.npos) result += text.substr(first);
      break;
    }
    const std::string name(text.substr(first + 1, second - first - 1));
    const std::string value = name.empty() ? std::string() : system.Environment(name);
    if (value.empty()) {
      // The second sign may begin the next name.
      result += text.substr(first, second - first);
      text.remove_prefix(second);
      continue;
    }
    result += value;
    text.remove_prefix(second + 1);
  }
  return result;
}

}  // namespace scourwell
