// SPDX-License-Identifier: MIT
#include "definitions/kinds.h"

#include <charconv>

#include "text/paths.h"
#include "text/text.h"

namespace scourwell {
namespace {

using Lists = DefinitionLists;
using Folders = SystemFolders;

template <class Number>
std::optional<Number> WholeNumber(std::string_view text) {
  text = TrimBlanks(text);
  Number number = 0;
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, number);
  if (read.ec != std::errc() || read.ptr != end) return {};
  return number;
}

template <DiskItem kItem>
void AddSearched(const DefinitionEntry& entry, const Folders&, Lists* lists) {
  lists->searched.Add({entry.spy, entry.value, kItem, entry.source});
}

template <DiskItem kItem>
void AddFixed(const DefinitionEntry& entry, const Folders& folders, Lists* lists) {
  const std::string path = ExpandFolderToken(entry.value, folders).value_or("");
  // The path would lie below the root of whatever drive is the current one.
  const bool folder_unknown = BeginsWithSeparator(path) && !IsAbsolutePath(path);
  if (!path.empty() && !folder_unknown) lists->fixed.Add({entry.spy, path, kItem, entry.source});
}

void AddKeyPart(const DefinitionEntry& entry, const Folders&, Lists* lists) {
  lists->key_parts.Add({entry.spy, TrimBlanks(entry.value), entry.source});
}

void AddValue(const DefinitionEntry& entry, const Folders&, Lists* lists) {
  lists->values.Add({entry.spy, TrimBlanks(entry.value), entry.second, entry.source});
}

void AddProcess(const DefinitionEntry& entry, const Folders&, Lists* lists) {
  lists->processes.Add({entry.spy, entry.value, entry.source});
}

void AddKey(const DefinitionEntry& entry, const Folders&, Lists* lists) {
  lists->keys.Add({entry.spy, entry.value, entry.source});
}

void AddCookie(const DefinitionEntry& entry, const Folders&, Lists* lists) {
  lists->cookies.Add({entry.spy, entry.value, entry.source});
}

template <VersionField kField, Comparison kComparison>
void AddVersionText(const DefinitionEntry& entry, const Folders&, Lists* lists) {
  lists->program_texts.Add({entry.spy, entry.value, kField, kComparison, entry.source});
}

template <VersionField kField, Comparison kComparison>
void ForgetVersionTexts(Lists* lists) {
  lists->program_texts.Remove(
      [](const ProgramText& row) { return row.field == kField && row.comparison == kComparison; });
}

// Spies that are known by a checksum are shown in capitals.
void AddChecksum(const DefinitionEntry& entry, const Folders&, Lists* lists) {
  const auto size = WholeNumber<std::uint64_t>(entry.value);
  const auto checksum = WholeNumber<std::uint8_t>(entry.second);
  if (!size || !checksum) return;
  lists->checksums.Add({Upper(TrimBlanks(entry.spy)), *size, *checksum, entry.source});
}

void ForgetChecksums(Lists* lists) { lists->checksums.Clear(); }

struct KindRow {
  DefinitionKind kind;
  std::string_view word;
  void (*add)(const DefinitionEntry&, const Folders&,
              Lists*) = nullptr;  // none: no scan looks for it
  void (*forget)(Lists*) = nullptr;
};

template <VersionField kField, Comparison kComparison = Comparison::Equal>
constexpr KindRow VersionKind(DefinitionKind kind, std::string_view word) {
  return {kind, word, AddVersionText<kField, kComparison>, ForgetVersionTexts<kField, kComparison>};
}

using enum DefinitionKind;

constexpr KindRow kKinds[] = {
    {File, "file", AddSearched<DiskItem::File>},
    {Folder, "folder", AddSearched<DiskItem::Folder>},
    {DirectFile, "file", AddFixed<DiskItem::File>},
    {DirectFolder, "folder", AddFixed<DiskItem::Folder>},
    {KeyPart, "key part", AddKeyPart},
    {Value, "value", AddValue},
    {Process, "process", AddProcess},
    {Key, "key", AddKey},
    {ClassKey, "key", AddKey},
    {Cookie, "cookie", AddCookie},
    VersionKind<kCompanyName>(Company, "company"),
    VersionKind<kCompanyName, Comparison::Contained>(CompanyPart, "company part"),
    VersionKind<kOriginalFileName>(OriginalName, "original name"),
    VersionKind<kInternalName>(InternalName, "internal name"),
    VersionKind<kProductName>(Product, "product"),
    VersionKind<kFileDescription>(Description, "description"),
    {Checksum, "checksum", AddChecksum, ForgetChecksums},
    {Withdrawn, "withdrawn"},
    {ProgramPart, "program part"},
    {Program, "program"},
    {CategoryText, "category text"},
    {Category, "category"},
};

constexpr bool IsInOrder() {
  for (std::size_t i = 0; i < std::size(kKinds); ++i) {
    if (static_cast<std::size_t>(kKinds[i].kind) != i) return false;
  }
  return std::size(kKinds) == kDefinitionKinds;
}
static_assert(IsInOrder());

const KindRow& RowOf(DefinitionKind kind) { return kKinds[static_cast<std::size_t>(kind)]; }

}  // namespace

void AddDefinition(DefinitionKind kind, const DefinitionEntry& entry, const SystemFolders& folders,
                   DefinitionLists* lists) {
  if (const auto add = RowOf(kind).add) add(entry, folders, lists);
}

void ForgetBeforeLoading(DefinitionKind kind, DefinitionLists* lists) {
  if (const auto forget = RowOf(kind).forget) forget(lists);
}

std::string_view KindWord(DefinitionKind kind) { return RowOf(kind).word; }

std::optional<DefinitionKind> FindKind(std::string_view word) {
  for (const KindRow& row : kKinds) {
    if (EqualsNoCase(row.word, word)) return row.kind;
  }
  return std::nullopt;
}

}  // namespace scourwell
