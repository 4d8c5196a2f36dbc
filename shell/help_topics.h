// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

namespace scourwell {

// Which page of the help is about a window.
struct HelpTopic {
  const char* window;  // the name that the window goes by in error records
  const char* page;    // a file of the Help folder, also inside help.chm
  int context;         // the page's number in the project of the help
};

extern const HelpTopic kHelpTopics[];
extern const std::size_t kHelpTopicCount;

// The first page for a window that has none of its own.
const HelpTopic& TopicOf(std::string_view window);

}  // namespace scourwell
