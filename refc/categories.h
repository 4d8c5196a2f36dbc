#pragma once

#include <map>
#include <string_view>

#include "refc/definition_set.h"
#include "text/text.h"

namespace scourwell::refc {

// What kind of program a spy is. The table says it for a spy, for all whose names begin alike
// ("Worm.*"), or for a whole family ("family trojans"); the narrowest one counts.
class Categories {
 public:
  explicit Categories(const DefinitionSet& set);

  bool empty() const { return texts_.empty(); }
  // Empty when the table does not say it.
  std::string_view Of(std::string_view spy, Family family) const;
  // What programs of the category do.
  std::string_view Text(std::string_view category) const;

 private:
  using Map = std::map<std::string_view, std::string_view, NoCaseLess>;

  Map texts_;
  Map spies_;
  Map beginnings_;  // without the "*"
  Map families_;
};

// Finds lines that contradict or lead nowhere, and spies that belong to no category.
void JudgeCategories(const DefinitionSet& set, Findings* findings);

}  // namespace scourwell::refc
