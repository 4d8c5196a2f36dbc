#pragma once

#include <string_view>

namespace scourwell {

struct Caption {
  int number;
  const char* text;
};

// The English default of a caption; empty for a number that no window uses.
std::string_view DefaultCaption(int number);

// All captions, in rising order of their numbers. "Lang\English.ini" holds the same texts.
extern const Caption kCaptions[];
extern const std::size_t kCaptionCount;

}  // namespace scourwell
