// SPDX-License-Identifier: MIT
#include "machine/counting.h"

#include <iterator>

namespace scourwell {
namespace {

constexpr char kFormMark = '|';
constexpr std::uint64_t kMostShown = 9999;  // of a unit

std::size_t EnglishForm(std::uint64_t count) { return count == 1 ? 0 : 1; }

std::size_t FrenchForm(std::uint64_t count) { return count < 2 ? 0 : 1; }

// 2 to 4, 22 to 24 and so on, but not 12 to 14.
bool IsFew(std::uint64_t count) {
  const std::uint64_t last = count % 10;
  return last >= 2 && last <= 4 && count / 10 % 10 != 1;
}

std::size_t PolishForm(std::uint64_t count) {
  if (count == 1) return 0;
  return IsFew(count) ? 1 : 2;
}

std::size_t RussianForm(std::uint64_t count) {
  if (count % 10 == 1 && count / 10 % 10 != 1) return 0;
  return IsFew(count) ? 1 : 2;
}

struct Rule {
  std::string_view name;
  std::size_t forms;
  std::size_t (*form)(std::uint64_t count);
};
constexpr Rule kRules[] = {
    {"English", 2, EnglishForm},
    {"French", 2, FrenchForm},
    {"Polish", 3, PolishForm},
    {"Russian", 3, RussianForm},
};

// The first one stands for those that nobody knows.
const Rule& RuleOf(const std::string& name) {
  for (const Rule& rule : kRules) {
    if (rule.name == name) return rule;
  }
  return kRules[0];
}

struct Unit {
  Caption caption;
  std::uint64_t bytes;
};
constexpr Unit kUnits[] = {{Caption::UnitKilobytes, 1024},
                           {Caption::UnitMegabytes, 1024 * 1024},
                           {Caption::UnitGigabytes, 1024 * 1024 * 1024}};

}  // namespace

std::size_t FormsOfRule(std::string_view rule) {
  for (const Rule& each : kRules) {
    if (each.name == rule) return each.forms;
  }
  return 0;
}

std::string FormFor(const Captions& captions, std::uint64_t count, Caption caption) {
  std::string text = captions.Text(caption);
  if (text.find(kFormMark) == text.npos) return text;
  const std::size_t form = RuleOf(captions.Text(Caption::PluralRule)).form(count);
  std::size_t at = 0;
  for (std::size_t i = 0; i < form; ++i) {
    const std::size_t next = text.find(kFormMark, at);
    if (next == text.npos) break;
    at = next + 1;
  }
  return text.substr(at, text.find(kFormMark, at) - at);
}

std::string CountedText(const Captions& captions, std::uint64_t count, Caption caption) {
  return std::to_string(count) + " " + FormFor(captions, count, caption);
}

std::string SizeText(const Captions& captions, std::uint64_t bytes) {
  const Unit* unit = kUnits;
  const auto rounded = [&] { return bytes / unit->bytes + (bytes % unit->bytes != 0); };
  while (rounded() > kMostShown && unit + 1 != std::end(kUnits)) ++unit;
  return std::to_string(rounded()) + " " + captions.Text(unit->caption);
}

}  // namespace scourwell
