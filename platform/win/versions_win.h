#pragma once

#include "platform/versions.h"

namespace scourwell {

class VersionsWin : public Versions {
 public:
  Outcome ReadBlock(const std::string& path, std::string* block) override;
  std::string Narrow(std::u16string_view text) const override;
};

}  // namespace scourwell
