// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/versions.h"
#include "text/text.h"

namespace scourwell::test {

class FakeVersions : public Versions {
 public:
  std::map<std::string, std::string, NoCaseLess> blocks;
  std::vector<std::string> journal;  // the paths asked for
  Outcome ReadBlock(const std::string& path, std::string* block) override;
};

}  // namespace scourwell::test
