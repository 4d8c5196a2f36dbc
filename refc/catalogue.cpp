// SPDX-License-Identifier: MIT
#include "refc/catalogue.h"

#include "text/text.h"

namespace scourwell::refc {
namespace {

constexpr std::string_view kFamilyNames[kFamilies] = {"trojans",    "dialers", "hijackers",
                                                      "keyloggers", "spyware", "cookies",
                                                      "withdrawn",  "release", "categories"};

struct Prefix {
  std::string_view text;
  Family family;
};
constexpr Prefix kPrefixes[] = {
    {"Trojan.", Family::Trojans},       {"Worm.", Family::Trojans},
    {"Backdoor.", Family::Trojans},     {"Virus.", Family::Trojans},
    {"Dialer.", Family::Dialers},       {"Hijacker.", Family::Hijackers},
    {"Keylogger.", Family::KeyLoggers},
};

// Rows keep the number of their sequence in a byte.
std::uint8_t NumberOf(std::size_t sequence) { return static_cast<std::uint8_t>(sequence); }

}  // namespace

std::optional<ListedKey> FindKey(std::string_view section, std::string_view suffix) {
  const std::span<const Listed> all = Catalogue();
  for (std::size_t sequence = 0; sequence < all.size(); ++sequence) {
    if (!EqualsNoCase(all[sequence].section, section)) continue;
    for (std::uint8_t part = 0; part < 3; ++part) {
      const char* key = all[sequence].keys[part];
      if (key && EqualsNoCase(key, suffix)) return ListedKey{NumberOf(sequence), part};
    }
  }
  return std::nullopt;
}

bool IsListSection(std::string_view section) {
  for (const Listed& listed : Catalogue()) {
    if (EqualsNoCase(listed.section, section)) return true;
  }
  return false;
}

std::optional<std::uint8_t> FindCount(std::string_view key) {
  const std::span<const Listed> all = Catalogue();
  for (std::size_t sequence = 0; sequence < all.size(); ++sequence) {
    const char* count_key = all[sequence].count_key;
    if (count_key && EqualsNoCase(count_key, key)) return NumberOf(sequence);
  }
  return std::nullopt;
}

std::optional<std::uint8_t> SequenceFor(Kind kind, Family family) {
  if ((kind == Kind::Withdrawn) != (family == Family::Withdrawn)) return std::nullopt;
  if (IsDefinition(kind) == (family == Family::Categories)) return std::nullopt;
  if (family == Family::Release || (family == Family::Cookies && kind != Kind::Cookie)) {
    return std::nullopt;
  }
  const std::span<const Listed> all = Catalogue();
  for (std::size_t sequence = 0; sequence < all.size(); ++sequence) {
    if (all[sequence].kind != kind) continue;
    if (!all[sequence].family || all[sequence].family == family) return NumberOf(sequence);
  }
  return std::nullopt;
}

std::string_view FamilyName(Family family) {
  return kFamilyNames[static_cast<std::size_t>(family)];
}

std::optional<Family> FindFamily(std::string_view name) {
  for (std::size_t i = 0; i < kFamilies; ++i) {
    if (EqualsNoCase(kFamilyNames[i], name)) return static_cast<Family>(i);
  }
  return std::nullopt;
}

Family FamilyByName(std::string_view spy) {
  for (const Prefix& prefix : kPrefixes) {
    if (StartsWithNoCase(spy, prefix.text)) return prefix.family;
  }
  return Family::Spyware;
}

Family FamilyOf(const Listed& listed, std::string_view spy) {
  if (listed.kind == Kind::Cookie) return Family::Cookies;
  if (listed.kind == Kind::Withdrawn) return Family::Withdrawn;
  return listed.family ? *listed.family : FamilyByName(spy);
}

}  // namespace scourwell::refc
