#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace scourwell::refc {

// What a source file, or a section, is about. The first five are switched on and off in the
// settings of the scan.
enum class Family : std::uint8_t {
  Trojans,
  Dialers,
  Hijackers,
  KeyLoggers,
  Spyware,
  Cookies,
  Withdrawn,
  Release,
  Categories,
};
inline constexpr std::size_t kFamilies = 9;

// How a row is looked for.
enum class Kind : std::uint8_t {
  File,          // by name or pattern, anywhere
  Folder,        // the same
  DirectFile,    // at one place, below a folder token
  DirectFolder,  // the same
  KeyPart,       // a class identifier or path anywhere inside a key's path
  Value,         // one registry value
  Process,
  Key,       // one registry key
  ClassKey,  // one registry key below the classes
  Cookie,
  Company,
  CompanyPart,
  OriginalName,
  InternalName,
  Product,
  Description,
  Checksum,
  Withdrawn,
  ProgramPart,   // of an installed program's name
  Program,       // an installed program's whole name
  CategoryText,  // what programs of a category do
  Category,      // of a spy
};
// Unlike what is only said about spies.
inline bool IsDefinition(Kind kind) { return kind != Kind::CategoryText && kind != Kind::Category; }

// One numbered sequence of the reference file, in the order in which files are written.
struct Listed {
  const char* section;
  std::array<const char*, 3> keys;  // suffixes: spy, value, second value; null where there is none
  const char* count_key;            // in section "NTOT"; null: not counted
  Kind kind;
  std::optional<Family> family;  // of file and folder sequences
  int most;                      // entries that the program reads
};

std::span<const Listed> Catalogue();

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

// The single values of a release, as a reference file and a source call them.
struct ReleaseValue {
  const char* section;
  const char* key;
  const char* word;
};
inline constexpr std::array<ReleaseValue, 4> kReleaseValues = {{
    {"SETTINGS", "UPDATE-FILE-NUMBER", "number"},
    {"SPYWARE DEFINITIONS UPDATED", "SDU0", "updated"},
    {"SPYWARE DEFINITIONS ADDED", "SDA0", "added"},
    {"SPYWARE DEFINITIONS REMOVED", "SDR0", "removed"},
}};

// Names of source files and of "[family]" lines; the same order as Family.
std::string_view FamilyName(Family family);
std::optional<Family> FindFamily(std::string_view name);

// Names of spies begin with the family they belong to, those of spyware with none of its words.
Family FamilyByName(std::string_view spy);
// The family of a row: that of its list, or by the name of its spy.
Family FamilyOf(const Listed& listed, std::string_view spy);

// The word that a source says for a kind. Direct kinds and keys below the classes share the words
// of their plain sisters.
std::string_view KindWord(Kind kind);
// The plain kind.
std::optional<Kind> FindKind(std::string_view word);

}  // namespace scourwell::refc
