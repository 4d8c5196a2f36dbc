// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "refc/definition_set.h"
#include "refc/good_names.h"

namespace scourwell::refc {

// Fewer characters of its own make a text too broad.
inline constexpr std::size_t kLeastDistinctive = 5;

// Judges single rows, each by the rules of its kind.
class RowJudge {
 public:
  RowJudge(const DefinitionSet& set, Findings& findings);

  void Judge(const Row& row, const Listed& listed);

 private:
  void Searched(bool folder);
  void Direct(bool folder);
  void OwnPart(std::string_view path, bool folder);
  void Short();
  void Process();
  void Key(std::size_t least_parts);
  void KeyPart();
  void KeyPath(std::string_view key);
  void Value();
  void Cookie();
  void VersionText(Kind kind);
  void Checksum();
  void Program(bool part);
  void Withdrawn();
  void Category(Family family);
  bool IsKnownGoodClass(std::string_view part);
  void Complain(const char* rule, std::string reason) {
    findings_.Add(place_, rule, std::move(reason));
  }

  const DefinitionSet& set_;
  Findings& findings_;
  const GoodNames& good_ = GoodNames::Get();
  std::vector<std::string> cookies_;  // of ordinary sites, folded
  const Row* row_ = nullptr;
  Place place_;
  std::string_view spy_;
  std::string_view value_;
  std::string_view second_;
};

// True for a searched name with wildcards that is narrow enough to be compared with good names.
bool IsNarrowPattern(std::string_view value);

}  // namespace scourwell::refc
