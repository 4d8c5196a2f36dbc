// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "definitions/definition_list.h"
#include "platform/files.h"
#include "tests/helpers.h"

namespace scourwell::test {

// What DriveScan stands for, without an index: one listing per row and folder. The hits have the
// form of CollectingSink::lines.
std::string PlainLoop(Files& files, const DefinitionList<SearchedName>& list,
                      const std::string& folder);
// The same into a sink that may hold something already.
void PlainLoop(Files& files, const DefinitionList<SearchedName>& list, const std::string& folder,
               FindingSink& sink);
// True for a signature that can be looked for.
bool IsUsable(const std::string& signature);

struct TreeItem {
  std::string path;
  bool folder;
};

// Items to make below `root`, folders before what lies in them. Every Windows can hold the names.
std::vector<TreeItem> RandomTree(Dice& dice, const std::string& root, std::size_t most_items);

// The 8.3 names of everything below a folder.
std::vector<std::string> ShortNames(Files& files, const std::string& folder);

// Adds rows with exact names, wildcards, relative paths and nonsense; returns their signatures.
std::vector<std::string> FillRandomRows(Dice& dice, std::size_t count,
                                        const std::vector<std::string>& short_names,
                                        DefinitionList<SearchedName>* list);

}  // namespace scourwell::test
