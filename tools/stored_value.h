#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/registry.h"

namespace scourwell {

// Two digits a byte, nothing between them.
std::string HexOfBytes(std::string_view bytes);
// False, and *bytes untouched, when the text is anything else.
bool BytesOfHex(std::string_view text, std::string* bytes);

// A registry value as one text from which it comes back exactly. A text with its one NUL stands
// as it is; anything else is "hex(TYPE):" and its bytes.
std::string TextOfValue(const RegValue& value);
RegValue ValueOfText(std::string_view text);
// What a user is shown of such a text.
std::string ShownValue(std::string_view text);

// A registry key with its values and all keys below it.
struct StoredKey {
  std::string path;  // below the key that was read; empty: that key itself
  std::vector<std::pair<std::string, RegValue>> values;
};
using StoredTree = std::vector<StoredKey>;  // each key before those below it

// One line; damaged texts read as nothing.
std::string TextOfTree(const StoredTree& tree);
StoredTree TreeOfText(std::string_view text);

// Whether all that is in `part` is in `whole`, too.
bool IsPartOf(const StoredTree& part, const StoredTree& whole);

// Keys deeper than this are refused: no tool of ours handles such.
inline constexpr unsigned kDeepestStoredKey = 8;

// kRegNotFound: no such key. kRegInvalidParameter: too deep, or it holds what could not be put back
// because no name leads to it. *tree is then of no use.
RegStatus ReadTree(Registry& registry, RootKey root, const std::string& path, StoredTree* tree);
// Makes the keys and writes the values; what is there already stays.
RegStatus WriteTree(Registry& registry, RootKey root, const std::string& path,
                    const StoredTree& tree);
// Deepest keys first.
RegStatus DeleteStoredTree(Registry& registry, RootKey root, const std::string& path,
                           const StoredTree& tree);

}  // namespace scourwell
