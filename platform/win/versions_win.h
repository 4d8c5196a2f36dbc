// SPDX-License-Identifier: MIT
#pragma once

#include "platform/versions.h"
#include "platform/win/file_calls.h"

namespace scourwell {

class VersionsWin : public Versions {
 public:
  explicit VersionsWin(const FileCalls& calls = SystemFileCalls()) : calls_(calls) {}

  Outcome ReadBlock(const std::string& path, std::string* block) override;
  std::string FromAnsi(std::string_view bytes) const override;

 private:
  const FileCalls& calls_;
};

}  // namespace scourwell
