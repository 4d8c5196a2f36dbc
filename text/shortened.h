// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace scourwell {

// A path or name in UTF-8 as it may be shown, with what cannot be seen escaped. Of one that is
// longer than its place comes as much as `fits` says yes to, with "..." for what is left out. The
// folders go first, from the last one on; of a name that is too long alone its middle goes, so that
// the ending, which tells a program from a text, is always seen. What comes back is too long only
// when not even "..." and that ending fit.
std::string ShortenedPath(std::string_view path,
                          const std::function<bool(const std::string& text)>& fits);

}  // namespace scourwell
