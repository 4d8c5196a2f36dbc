// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "text/caption_ids.h"

namespace scourwell {

struct DefaultText {
  Caption caption;
  const char* text;
};

// The English default of a caption; empty for a number that has no name.
std::string_view DefaultCaption(Caption caption);

// All captions, in rising order of their numbers. "Lang\English.ini" holds the same texts.
extern const DefaultText kCaptions[];
extern const std::size_t kCaptionCount;

}  // namespace scourwell
