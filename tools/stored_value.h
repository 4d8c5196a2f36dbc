// SPDX-License-Identifier: MIT
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

// How texts inside of the lines below are written in digits.
class HexForm {
 public:
  virtual ~HexForm() = default;
  virtual std::string Write(std::string_view text) const { return HexOfBytes(text); }
  virtual bool Read(std::string_view digits, std::string* text) const {
    return BytesOfHex(digits, text);
  }
};

// A registry value as one text from which it comes back exactly. A text with its one NUL stands
// as it is; anything else is "hex(TYPE):" and its bytes, with "." and one more byte behind a text
// that ends in half a character.
std::string TextOfValue(const RegValue& value, const HexForm& form = {});
RegValue ValueOfText(std::string_view text, const HexForm& form = {});
// What a user is shown of such a text.
std::string ShownValue(std::string_view text);

// A registry key with its values and all keys below it.
struct StoredKey {
  std::string path;  // below the key that was read; empty: that key itself
  std::vector<std::pair<std::string, RegValue>> values;
};
using StoredTree = std::vector<StoredKey>;  // each key before those below it

// One line; damaged texts read as nothing.
std::string TextOfTree(const StoredTree& tree, const HexForm& form = {});
StoredTree TreeOfText(std::string_view text, const HexForm& form = {});

// A line in one form, written in another; one that is neither value nor tree stays as it is.
std::string Rewritten(std::string_view text, const HexForm& from, const HexForm& to);

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
