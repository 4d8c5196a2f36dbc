#include "refc/catalogue.h"

#include <vector>

#include "definitions/list_loader.h"
#include "definitions/spy_categories.h"
#include "text/text.h"

namespace scourwell::refc {
namespace {

struct FamilyLoader {
  const Loader& loader;
  std::optional<Family> family;
};

const FamilyLoader kLoaders[] = {
    {kUpdateTrojanList, Family::Trojans},
    {kUpdateDialersFileList, Family::Dialers},
    {kUpdateDialersFolderList, Family::Dialers},
    {kUpdateHijackersFileList, Family::Hijackers},
    {kUpdateHijackersFolderList, Family::Hijackers},
    {kUpdateKeyLoggersFileList, Family::KeyLoggers},
    {kUpdateKeyLoggersFolderList, Family::KeyLoggers},
    {kUpdateSpyFileList, Family::Spyware},
    {kUpdateSpyFolderList, Family::Spyware},
    {kUpdateRegistrySVList, {}},
    {kUpdateMemoryList, {}},
    {kUpdateRegistryKList, {}},
    {kUpdateRegistryKOList, {}},
    {kUpdateCookieList, {}},
    {kUpdateSearchByCompanyList, {}},
    {kUpdateSearchByOriginalFileName, {}},
    {kUpdateSearchByInternalFileName, {}},
    {kUpdateSearchByProductName, {}},
    {kUpdateSearchByFileDescription, {}},
    {kUpdateSearchByFileChecSum, {}},
};

struct ListKind {
  SignatureList SignatureLists::*list;
  Kind kind;
};
constexpr ListKind kListKinds[] = {
    {&SignatureLists::lstCESearch, Kind::Company},
    {&SignatureLists::lstCWSearch, Kind::CompanyPart},
    {&SignatureLists::lstOFNSearch, Kind::OriginalName},
    {&SignatureLists::lstIFNSearch, Kind::InternalName},
    {&SignatureLists::lstPNSearch, Kind::Product},
    {&SignatureLists::lstFDSearch, Kind::Description},
};

Kind RowKind(const Sequence& sequence, const Loader& loader) {
  for (const ListKind& each : kListKinds) {
    if (sequence.list == each.list) return each.kind;
  }
  if (sequence.list == &SignatureLists::lstRegKSearch) {
    return &loader == &kUpdateRegistryKOList ? Kind::ClassKey : Kind::Key;
  }
  if (EqualsNoCase(sequence.type, kRowSpyFile)) return Kind::File;
  return EqualsNoCase(sequence.type, kRowSpyFolder) ? Kind::Folder : Kind::Cookie;
}

Kind KindOf(const Sequence& sequence, const Loader& loader) {
  switch (sequence.target) {
    case EntryTarget::Row:
      return RowKind(sequence, loader);
    case EntryTarget::KeyRow:
      return Kind::KeyPart;
    case EntryTarget::ValueRow:
      return Kind::Value;
    case EntryTarget::ChecksumRow:
      return Kind::Checksum;
    case EntryTarget::DirectFile:
      return Kind::DirectFile;
    case EntryTarget::DirectFolder:
      return Kind::DirectFolder;
    case EntryTarget::Process:
      break;
  }
  return Kind::Process;
}

std::vector<Listed> MakeCatalogue() {
  std::vector<Listed> all;
  for (const FamilyLoader& each : kLoaders) {
    for (const Sequence& s : each.loader.sequences) {
      all.push_back({s.section,
                     {s.name_key, s.value_key, s.value2_key},
                     s.count_key,
                     KindOf(s, each.loader),
                     each.family,
                     kMostEntries});
    }
  }
  // The trojans' searched and direct files are read apart from each other; a section is one piece.
  std::swap(all[1], all[2]);
  const auto names = [&](const char* section, const char* key, Kind kind) {
    all.push_back({section, {nullptr, key, nullptr}, nullptr, kind, {}, kMostNames});
  };
  names("REMO", "REMENT", Kind::Withdrawn);
  names("ADRE", "WCL", Kind::ProgramPart);
  names("ADRE", "ESL", Kind::Program);
  const auto pairs = [&](const char* subject, const char* text, Kind kind) {
    all.push_back(
        {SpyCategories::kSection, {nullptr, subject, text}, nullptr, kind, {}, kMostEntries});
  };
  pairs(SpyCategories::kCategoryKey, SpyCategories::kTextKey, Kind::CategoryText);
  pairs(SpyCategories::kSubjectKey, SpyCategories::kIsKey, Kind::Category);
  return all;
}

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

// In the order of Kind.
constexpr std::string_view kKindWords[] = {
    "file",          "folder",        "file",          "folder",      "key part", "value",
    "process",       "key",           "key",           "cookie",      "company",  "company part",
    "original name", "internal name", "product",       "description", "checksum", "withdrawn",
    "program part",  "program",       "category text", "category"};

}  // namespace

std::span<const Listed> Catalogue() {
  static const std::vector<Listed> catalogue = MakeCatalogue();
  return catalogue;
}

std::optional<ListedKey> FindKey(std::string_view section, std::string_view suffix) {
  const std::span<const Listed> all = Catalogue();
  for (std::uint8_t sequence = 0; sequence < all.size(); ++sequence) {
    if (!EqualsNoCase(all[sequence].section, section)) continue;
    for (std::uint8_t part = 0; part < 3; ++part) {
      const char* key = all[sequence].keys[part];
      if (key && EqualsNoCase(key, suffix)) return ListedKey{sequence, part};
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
  for (std::uint8_t sequence = 0; sequence < all.size(); ++sequence) {
    const char* count_key = all[sequence].count_key;
    if (count_key && EqualsNoCase(count_key, key)) return sequence;
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
  for (std::uint8_t sequence = 0; sequence < all.size(); ++sequence) {
    if (all[sequence].kind != kind) continue;
    if (!all[sequence].family || all[sequence].family == family) return sequence;
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

std::string_view KindWord(Kind kind) { return kKindWords[static_cast<std::size_t>(kind)]; }

std::optional<Kind> FindKind(std::string_view word) {
  for (std::size_t i = 0; i < std::size(kKindWords); ++i) {
    if (EqualsNoCase(kKindWords[i], word)) return static_cast<Kind>(i);
  }
  return std::nullopt;
}

}  // namespace scourwell::refc
