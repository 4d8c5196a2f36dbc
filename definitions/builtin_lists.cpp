// SPDX-License-Identifier: MIT
#include "definitions/builtin_lists.h"

namespace scourwell {

void BuiltInLists::AddBuiltIn(BuiltInStage stage) {
  for (const BuiltInList* list : stage) AddBuiltIn(*list);
}

void BuiltInLists::AddBuiltIn(const BuiltInList& list) {
  log_.Trap(list.name, [&]() -> Outcome {
    std::size_t n = 0;
    try {
      for (; n < list.rows.size(); ++n) {
        if (!pump_.Next()) return {};
        const BuiltInRow& row = list.rows[n];
        AddDefinition(row.kind, {row.spy, row.value, row.second, DefinitionSource::BuiltIn},
                      folders_, &lists_);
      }
    } catch (const std::bad_alloc&) {
      return Outcome::Failed(kOutOfMemory).With("I: ", std::to_string(n));
    }
    return {};
  });
}

}  // namespace scourwell
