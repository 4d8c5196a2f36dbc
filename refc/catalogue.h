// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "definitions/catalogue.h"
#include "definitions/kinds.h"

namespace scourwell::refc {

// The program's own tables.
using scourwell::Catalogue;
using scourwell::Family;
using scourwell::FindKind;
using scourwell::kFamilies;
using scourwell::KindWord;
using scourwell::kReleaseValues;
using scourwell::ReleaseValue;
using Kind = DefinitionKind;
using Listed = Sequence;

// Unlike what is only said about spies.
inline bool IsDefinition(Kind kind) { return kind != Kind::CategoryText && kind != Kind::Category; }

// A key of a list section: the place in the catalogue, and in its `keys`.
struct ListedKey {
  std::uint8_t sequence;
  std::uint8_t part;
};
// `suffix` is what follows the entry number. No value when the section has no such key.
std::optional<ListedKey> FindKey(std::string_view section, std::string_view suffix);
bool IsListSection(std::string_view section);
// The sequence that announces its entries under this key of section "NTOT".
std::optional<std::uint8_t> FindCount(std::string_view key);

// The sequence for rows of a kind; the family matters to files and folders only, and no value
// means that the family has none of the kind.
std::optional<std::uint8_t> SequenceFor(Kind kind, Family family);

// Names of source files and of "[family]" lines; the same order as Family.
std::string_view FamilyName(Family family);
std::optional<Family> FindFamily(std::string_view name);

// Names of spies begin with the family they belong to, those of spyware with none of its words.
Family FamilyByName(std::string_view spy);
// The family of a row: that of its list, or by the name of its spy.
Family FamilyOf(const Listed& listed, std::string_view spy);

}  // namespace scourwell::refc
