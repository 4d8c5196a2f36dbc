// SPDX-License-Identifier: MIT
#include "tools/stored_value.h"

#include <algorithm>
#include <charconv>

#include "machine/registry_place.h"
#include "text/text.h"

namespace scourwell {
namespace {

constexpr std::string_view kTyped = "hex(";
constexpr std::string_view kTree = "key:";

// The part before the next `separator`, which goes with it.
std::string_view CutPart(std::string_view* text, char separator) {
  const std::size_t end = std::min(text->find(separator), text->size());
  const std::string_view part = text->substr(0, end);
  text->remove_prefix(std::min(end + 1, text->size()));
  return part;
}

std::string TypedText(const RegValue& value, const HexForm& form) {
  std::string text = std::string(kTyped) + Hex(value.type, 1) + "):";
  text += IsTextType(value.type) ? form.Write(value.data) : HexOfBytes(value.data);
  if (value.half_character) text += '.' + HexOfBytes({&*value.half_character, 1});
  return text;
}

bool ReadTyped(std::string_view text, const HexForm& form, RegValue* value) {
  if (!text.starts_with(kTyped)) return false;
  text.remove_prefix(kTyped.size());
  std::uint32_t type = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), type, 16);
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  if (error != std::errc() || !text.starts_with("):")) return false;
  text.remove_prefix(2);
  const std::size_t dot = text.find('.');
  std::string half;
  if (dot != text.npos && (!BytesOfHex(text.substr(dot + 1), &half) || half.size() != 1)) {
    return false;
  }
  const std::string_view digits = text.substr(0, dot);
  const bool read =
      IsTextType(type) ? form.Read(digits, &value->data) : BytesOfHex(digits, &value->data);
  if (!read) return false;
  value->type = type;
  if (!half.empty()) value->half_character = half[0];
  return true;
}

std::string Below(const std::string& path, const std::string& part) {
  return part.empty() ? path : path + "\\" + part;
}

RegStatus ReadLevel(Registry& registry, RootKey root, const std::string& path,
                    const std::string& part, unsigned depth, StoredTree* tree) {
  if (depth > kDeepestStoredKey) return kRegInvalidParameter;
  StoredKey key{part, {}};
  RegStatus status = registry.EnumValues(root, Below(path, part),
                                         [&](const std::string& name, const RegValue& value) {
                                           key.values.emplace_back(name, value);
                                           return true;
                                         });
  // Below the key, what no name leads to is not gone.
  if (status == kRegNotFound && depth > 0) status = kRegInvalidParameter;
  if (status != kRegOk) return status;
  for (const auto& [name, value] : key.values) {
    RegValue there;
    if (registry.QueryValue(root, Below(path, part), name, &there) != kRegOk ||
        there.type != value.type || there.data != value.data ||
        there.half_character != value.half_character) {
      return kRegInvalidParameter;
    }
  }
  tree->push_back(std::move(key));
  std::vector<std::string> names;
  status = registry.EnumKeys(root, Below(path, part), [&](const std::string& name) {
    names.push_back(name);
    return true;
  });
  for (std::size_t i = 0; status == kRegOk && i < names.size(); ++i) {
    const std::string next = part.empty() ? names[i] : part + "\\" + names[i];
    status = ReadLevel(registry, root, path, next, depth + 1, tree);
  }
  return status;
}

}  // namespace

std::string HexOfBytes(std::string_view bytes) {
  static constexpr char kDigits[] = "0123456789ABCDEF";
  std::string text;
  text.reserve(2 * bytes.size());
  for (const char c : bytes) {
    text += kDigits[static_cast<unsigned char>(c) >> 4];
    text += kDigits[static_cast<unsigned char>(c) & 15];
  }
  return text;
}

bool BytesOfHex(std::string_view text, std::string* bytes) {
  if (text.size() % 2 != 0) return false;
  std::string read;
  for (std::size_t i = 0; i < text.size(); i += 2) {
    unsigned byte = 0;
    const auto [end, error] = std::from_chars(&text[i], &text[i] + 2, byte, 16);
    if (error != std::errc() || end != &text[i] + 2) return false;
    read += static_cast<char>(byte);
  }
  *bytes = std::move(read);
  return true;
}

std::string TextOfValue(const RegValue& value, const HexForm& form) {
  const std::size_t nul = value.data.find('\0');
  const bool plain = value.type == kRegText && nul != std::string::npos && !value.half_character &&
                     nul + 1 == value.data.size() && !value.data.starts_with(kTyped);
  return plain ? value.data.substr(0, nul) : TypedText(value, form);
}

RegValue ValueOfText(std::string_view text, const HexForm& form) {
  RegValue value;
  if (ReadTyped(text, form, &value)) return value;
  return {kRegText, std::string(TrimNull(text)) + '\0'};
}

std::string ShownValue(std::string_view text) { return ValueToText(ValueOfText(text)); }

// Each key is its path, then its values, between "|"; a value is name, "=" and its typed text;
// keys are parted by ";". Names are written as bytes, so that none of these can stand in them.
std::string TextOfTree(const StoredTree& tree, const HexForm& form) {
  std::string text;
  for (const StoredKey& key : tree) {
    if (!text.empty()) text += ';';
    text += std::string(kTree) + form.Write(key.path);
    for (const auto& [name, value] : key.values) {
      text += '|' + form.Write(name) + '=' + TypedText(value, form);
    }
  }
  return text;
}

StoredTree TreeOfText(std::string_view text, const HexForm& form) {
  StoredTree tree;
  while (!text.empty()) {
    std::string_view rest = CutPart(&text, ';');
    std::string_view head = CutPart(&rest, '|');
    StoredKey key;
    if (!head.starts_with(kTree) || !form.Read(head.substr(kTree.size()), &key.path)) return {};
    while (!rest.empty()) {
      std::string_view typed = CutPart(&rest, '|');
      std::string name;
      RegValue value;
      if (!form.Read(CutPart(&typed, '='), &name) || !ReadTyped(typed, form, &value)) return {};
      key.values.emplace_back(std::move(name), std::move(value));
    }
    tree.push_back(std::move(key));
  }
  return tree;
}

std::string Rewritten(std::string_view text, const HexForm& from, const HexForm& to) {
  RegValue value;
  if (ReadTyped(text, from, &value)) return TypedText(value, to);
  const StoredTree tree = text.starts_with(kTree) ? TreeOfText(text, from) : StoredTree();
  return tree.empty() ? std::string(text) : TextOfTree(tree, to);
}

bool IsPartOf(const StoredTree& part, const StoredTree& whole) {
  return std::all_of(part.begin(), part.end(), [&](const StoredKey& key) {
    const auto found = std::find_if(whole.begin(), whole.end(), [&](const StoredKey& other) {
      return EqualsNoCase(other.path, key.path);
    });
    if (found == whole.end()) return false;
    return std::all_of(key.values.begin(), key.values.end(), [&](const auto& value) {
      return std::any_of(found->values.begin(), found->values.end(), [&](const auto& other) {
        return EqualsNoCase(other.first, value.first) && other.second.type == value.second.type &&
               other.second.data == value.second.data;
      });
    });
  });
}

RegStatus ReadTree(Registry& registry, RootKey root, const std::string& path, StoredTree* tree) {
  tree->clear();
  return ReadLevel(registry, root, path, {}, 0, tree);
}

RegStatus WriteTree(Registry& registry, RootKey root, const std::string& path,
                    const StoredTree& tree) {
  for (const StoredKey& key : tree) {
    const std::string whole = Below(path, key.path);
    if (const RegStatus made = registry.CreateKey(root, whole)) return made;
    for (const auto& [name, value] : key.values) {
      if (const RegStatus set = registry.SetValue(root, whole, name, value)) return set;
    }
  }
  return kRegOk;
}

RegStatus DeleteStoredTree(Registry& registry, RootKey root, const std::string& path,
                           const StoredTree& tree) {
  for (std::size_t i = tree.size(); i-- > 0;) {
    const RegStatus gone = registry.DeleteKeyCall(root, Below(path, tree[i].path));
    if (gone != kRegOk && gone != kRegNotFound) return gone;
  }
  return kRegOk;
}

}  // namespace scourwell
