// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "machine/error_log.h"
#include "settings/kept_texts.h"
#include "text/captions.h"
#include "widgets/metrics.h"

namespace scourwell {

// What every window needs. Outlives them all.
struct WindowEnv {
  HINSTANCE instance;
  const Metrics& metrics;
  ErrorLog& log;
  const Captions& captions;
  // Shows the help about the window of that name.
  std::function<void(const char* window)> help = nullptr;
  // What windows remember from run to run; null: nothing.
  KeptTexts* kept = nullptr;

  std::string Text(Caption caption) const { return captions.Text(caption); }
};

}  // namespace scourwell
