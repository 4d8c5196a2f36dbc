// SPDX-License-Identifier: MIT
#pragma once

#include "definitions/spy_categories.h"
#include "refc/definition_set.h"

namespace scourwell::refc {

// The table of a set, as the program reads it.
SpyCategories CategoriesOf(const DefinitionSet& set);
// The category of a row's spy; empty when the table does not say it.
std::string_view CategoryOf(const SpyCategories& categories, const Listed& listed,
                            std::string_view spy);

// Finds lines that contradict or lead nowhere, and spies that belong to no category.
void JudgeCategories(const DefinitionSet& set, Findings* findings);

}  // namespace scourwell::refc
