// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "definitions/reference_file.h"
#include "text/text.h"

namespace scourwell {

// What kind of program a spy is, by the table that comes with the definitions. Its lines are about
// a spy, about all whose names begin alike ("Worm.*"), about all that is known by a cookie alone,
// or about the rest ("*"); the narrowest one counts.
class SpyCategories {
 public:
  static constexpr std::string_view kAnyCookie = "any cookie";

  // Of two lines about the same the first counts.
  void AddCategory(std::string_view category, std::string_view text);
  void AddSubject(std::string_view subject, std::string_view category);
  // Takes the place of what was there.
  void Load(ReferenceFile& reference);

  // Empty when the table does not say it.
  std::string_view Of(std::string_view spy, bool by_cookie) const;
  // What programs of the category do.
  std::string_view TextOf(std::string_view category) const;

 private:
  using Map = std::map<std::string, std::string, NoCaseLess>;

  static std::string_view Find(const Map& map, std::string_view name);

  Map texts_;
  Map spies_;
  Map beginnings_;  // without the "*"
};

}  // namespace scourwell
