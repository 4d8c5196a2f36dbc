#pragma once

#include <string>

namespace scourwell {

// Every visible text, by number: the active language pack first, the English default second.
class Captions {
 public:
  virtual ~Captions() = default;
  virtual std::string Text(int number) const = 0;
};

}  // namespace scourwell
