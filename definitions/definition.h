// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "machine/version_resource.h"

namespace scourwell {

// How a spy is known. Adding one takes its type below, its row in the table of kinds, its sequence
// in the catalogue, and somebody who looks for it.
enum class DefinitionKind : std::uint8_t {
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
inline constexpr std::size_t kDefinitionKinds = 22;

// Who says so: a finding shows whose word it stands on.
enum class DefinitionSource : std::uint8_t {
  BuiltIn,  // compiled into the program
  File,     // the reference file
  Setting,  // no definition: the user wants all of them
};

// What a scan looks for, one type for each way of looking. The texts are spelled as the definition
// spells them; who compares folds. `spy` is the name that a finding is reported under. kTexts says
// which members a DefinitionList has to keep.

enum class DiskItem : std::uint8_t { File, Folder };

// A file or folder by its name, wherever it lies.
struct SearchedName {
  std::string_view spy;
  std::string_view name;  // or a pattern, or a relative path that ends in either
  DiskItem item;
  DefinitionSource source = DefinitionSource::File;
  static constexpr std::array kTexts = {&SearchedName::spy, &SearchedName::name};
};

// A file or folder at one place.
struct FixedPlace {
  std::string_view spy;
  std::string_view path;  // its folder token has given way to the folder
  DiskItem item;
  DefinitionSource source = DefinitionSource::File;
  static constexpr std::array kTexts = {&FixedPlace::spy, &FixedPlace::path};
};

// Keys and values whose path or data holds a text.
struct KeyPart {
  std::string_view spy;
  std::string_view part;
  DefinitionSource source = DefinitionSource::File;
  static constexpr std::array kTexts = {&KeyPart::spy, &KeyPart::part};
};

struct NamedKey {
  std::string_view spy;
  std::string_view path;  // from the root's name on
  DefinitionSource source = DefinitionSource::File;
  static constexpr std::array kTexts = {&NamedKey::spy, &NamedKey::path};
};

struct NamedValue {
  std::string_view spy;
  std::string_view key;  // from the root's name on, with a "\" at its end
  std::string_view name;
  DefinitionSource source = DefinitionSource::File;
  static constexpr std::array kTexts = {&NamedValue::spy, &NamedValue::key, &NamedValue::name};
};

struct ProcessName {
  std::string_view spy;
  std::string_view name;  // of its file
  DefinitionSource source = DefinitionSource::File;
  static constexpr std::array kTexts = {&ProcessName::spy, &ProcessName::name};
};

struct CookieFragment {
  std::string_view spy;
  std::string_view fragment;  // of a cookie file's name
  DefinitionSource source = DefinitionSource::File;
  static constexpr std::array kTexts = {&CookieFragment::spy, &CookieFragment::fragment};
};

enum class Comparison : std::uint8_t { Equal, Contained };

// A program file by a text of its version information.
struct ProgramText {
  std::string_view spy;
  std::string_view text;
  VersionField field;
  Comparison comparison;  // of `text` with the file's
  DefinitionSource source = DefinitionSource::File;
  static constexpr std::array kTexts = {&ProgramText::spy, &ProgramText::text};
};

// A program file by its content.
struct ContentSum {
  std::string_view spy;
  std::uint64_t size;
  std::uint8_t checksum;
  DefinitionSource source = DefinitionSource::File;
  static constexpr std::array kTexts = {&ContentSum::spy};
};

}  // namespace scourwell
