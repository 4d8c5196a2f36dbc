// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace scourwell::refc {

// What belongs to Windows and to honest programs; the texts are those of definitions/known_good and
// of definitions/builtin/windows_names.txt.
enum class GoodList {
  Files,    // files and processes
  Folders,  // and files: what ships under a name may be a folder elsewhere
  RunValues,
  Sites,  // as a cookie's name holds them
  Keys,   // registry keys; those above them are good, too
  ClassIds,
  Makers,  // of programs, and their products
};
inline constexpr std::size_t kGoodLists = 7;

// The texts as the build embeds them, one a line.
extern const char kGoodFiles[];
extern const char kGoodFolders[];
extern const char kGoodRunValues[];
extern const char kGoodSites[];
extern const char kGoodKeys[];
extern const char kGoodClassIds[];
extern const char kGoodMakers[];

class GoodNames {
 public:
  static const GoodNames& Get();

  const std::vector<std::string_view>& Names(GoodList list) const { return Of(list).names; }
  // Compared without case.
  bool Has(GoodList list, std::string_view name) const;
  // The first name of the list that holds `part`, which is folded; empty when none does.
  std::string_view Holding(GoodList list, std::string_view part) const;
  // The good key that is `key` or lies below it; empty when there is none.
  std::string_view KeyAtOrBelow(std::string_view key) const;

 private:
  struct Names {
    std::vector<std::string_view> names;  // sorted without case
    std::string folded;                   // all of them, one a line, in the same order
  };

  GoodNames();
  const struct Names& Of(GoodList list) const { return lists_[static_cast<std::size_t>(list)]; }

  std::array<struct Names, kGoodLists> lists_;
};

}  // namespace scourwell::refc
