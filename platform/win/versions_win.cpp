// SPDX-License-Identifier: MIT
#include "platform/win/versions_win.h"

#include "platform/win/native_text.h"

namespace scourwell {

Outcome VersionsWin::ReadBlock(const std::string& path, std::string* block) {
  return calls_.VersionBlock(path, block) ? Outcome() : Outcome::Failed(kFileNotFound);
}

std::string VersionsWin::FromAnsi(std::string_view bytes) const { return FromNarrow(bytes); }

}  // namespace scourwell
