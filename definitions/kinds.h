// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>

#include "definitions/definition_list.h"
#include "machine/system_folders.h"

namespace scourwell {

// A definition in the form in which files and the compiled-in tables hold it.
struct DefinitionEntry {
  std::string_view spy;
  std::string_view value;
  std::string_view second;  // of kinds that say two things: a value's name, a checksum
  DefinitionSource source = DefinitionSource::File;
};

// Puts a definition into the list of its kind. One that can never be found is left out: a place
// without a folder token or below a folder that the system does not know, a size or checksum that
// is no number.
void AddDefinition(DefinitionKind kind, const DefinitionEntry& entry, const SystemFolders& folders,
                   DefinitionLists* lists);

// Takes the definitions of a kind out when its list is read anew at every scan. Lists of other
// kinds grow.
void ForgetBeforeLoading(DefinitionKind kind, DefinitionLists* lists);

// The word for a kind in sources of definitions. Direct kinds and keys below the classes share the
// words of their plain sisters.
std::string_view KindWord(DefinitionKind kind);
// The plain kind.
std::optional<DefinitionKind> FindKind(std::string_view word);

}  // namespace scourwell
