// SPDX-License-Identifier: MIT
#pragma once

// What tests of every kind share: on the fake machine, on the real one and from outside.

#include <map>
#include <random>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "scan/finding_texts.h"
#include "text/captions.h"
#include "text/text.h"

namespace scourwell::test {

// "<1882>": shows which caption was asked for.
class NumberCaptions : public Captions {
 public:
  std::string Text(Caption caption) const override {
    return "<" + std::to_string(NumberOf(caption)) + ">";
  }
};

// Keeps every finding; `lines()` is one "kind|spy|place" a line.
class CollectingSink : public FindingSink {
 public:
  std::vector<Finding> found;

  bool Contains(const FoundObject& wanted) const override {
    for (const Finding& finding : found) {
      if (EqualsNoCase(IdentityOf(finding.object), IdentityOf(wanted))) return true;
    }
    return false;
  }
  bool Shows(const FoundObject& wanted) const override { return Contains(wanted); }
  void AddSpyToListView(const Finding& finding) override { found.push_back(finding); }
  std::string lines() const {
    std::string text;
    for (const Finding& finding : found) {
      text.append(KindWord(KindOf(finding.object))).append("|" + finding.spy + "|");
      text += PlaceText(finding.object) + "\n";
    }
    return text;
  }
};

// Registry findings by the full path of their key.
inline FoundKey KeyAt(std::string_view full_path, bool view64 = false) {
  FoundKey key;
  SplitRegistryPlace(full_path, &key.place);
  key.view64 = view64;
  return key;
}
inline FoundValue ValueAt(std::string_view key, const std::string& name,
                          const std::string& data = {}, bool view64 = false) {
  return {KeyAt(key).place, name, data, view64};
}

// The form that values have in a definitions file.
inline std::string Scramble(std::string_view text) {
  std::string result(text);
  for (char& c : result) c = static_cast<char>(c + 12);
  return result;
}

// A definitions file in the making.
class Definitions {
 public:
  Definitions& Value(const std::string& section, const std::string& key, std::string_view plain) {
    return Raw(section, key, Scramble(plain));
  }
  Definitions& Raw(const std::string& section, const std::string& key, const std::string& value) {
    sections_[section] += key + "=" + value + "\r\n";
    return *this;
  }
  // The next entry of a sequence, e.g. {"TAFIT", "TAFIS"} with {"spy", "evil.exe"}.
  Definitions& Entry(const std::string& section, const std::vector<std::string>& suffixes,
                     const std::vector<std::string>& values) {
    const std::string number = std::to_string(next_[suffixes[0]]++);
    for (std::size_t i = 0; i < suffixes.size(); ++i) {
      Value(section, number + suffixes[i], values[i]);
    }
    return *this;
  }
  std::string Text() const {
    std::string text;
    for (const auto& [name, lines] : sections_) text += "[" + name + "]\r\n" + lines;
    return text;
  }

 private:
  std::map<std::string, std::string> sections_;
  std::map<std::string, int> next_;
};

// Random choices that are the same on every machine.
class Dice {
 public:
  explicit Dice(std::uint32_t seed) : engine_(seed) {}
  std::size_t Below(std::size_t limit) { return engine_() % limit; }
  bool Chance(std::size_t one_in) { return Below(one_in) == 0; }
  template <class Container>
  const auto& Pick(const Container& container) {
    return container[Below(std::size(container))];
  }

 private:
  std::mt19937 engine_;
};

// A table of cases: `for (const auto& [text, number] : Rows<std::string, int>{{"1", 1}, {"x",
// 0}})`.
template <class... Columns>
using Rows = std::vector<std::tuple<Columns...>>;

// Comparable by CHECK, one item a line.
inline std::string Lines(const std::vector<std::string>& items) {
  std::string text;
  for (const std::string& item : items) text += item + "\n";
  return text;
}

}  // namespace scourwell::test
