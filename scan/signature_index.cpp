// SPDX-License-Identifier: MIT
#include "scan/signature_index.h"

#include "scan/name_pattern.h"
#include "text/paths.h"
#include "text/text.h"

namespace scourwell {

void SignatureIndex::NameTable::Reserve(std::size_t names) {
  std::size_t capacity = 64;
  while (capacity < names * 2) capacity *= 2;
  slots_.assign(capacity, 0);
}

void SignatureIndex::NameTable::Add(const FoldedName& name, std::uint32_t row) {
  std::uint32_t& slot = slots_[SlotOf(name)];
  std::uint32_t begin = static_cast<std::uint32_t>(names_.size());
  if (slot != 0) {
    begin = entries_[slot - 1].name_begin;  // rows of one name share its text
  } else {
    names_ += name.text;
  }
  entries_.push_back({begin, static_cast<std::uint32_t>(name.text.size()), row, slot});
  slot = static_cast<std::uint32_t>(entries_.size());
}

std::size_t SignatureIndex::NameTable::SlotOf(const FoldedName& name) const {
  const std::size_t mask = slots_.size() - 1;
  std::size_t at = name.hash & mask;
  for (; slots_[at] != 0; at = (at + 1) & mask) {
    const Entry& entry = entries_[slots_[at] - 1];
    if (std::string_view(names_).substr(entry.name_begin, entry.name_size) == name.text) break;
  }
  return at;
}

SignatureIndex::SignatureIndex(const DefinitionList<SearchedName>& list, Pump* pump) : list_(list) {
  names_.Reserve(list.size());
  first_parts_.Reserve(list.size());
  for (std::uint32_t row = 0; row < list.size(); ++row) {
    if (pump && !pump->Next()) break;
    File(row, list[row].name);
  }
  wildcards_.Freeze();
}

void SignatureIndex::File(std::uint32_t row, std::string_view signature) {
  const std::string folded = Upper(NormalizeSignature(signature));
  switch (ClassifyPattern(folded)) {
    case PatternKind::Name:
      names_.Add(FoldedName(folded), row);
      return;
    case PatternKind::Relative:
      first_parts_.Add(FoldedName(FirstPart(folded)), row);
      return;
    case PatternKind::Unusable:
      if (unusable_++ == 0) first_unusable_ = signature;
      return;
    case PatternKind::Wildcard:
      break;
  }
  const std::string_view literal = RequiredLiteral(folded);
  const auto number = static_cast<std::uint32_t>(patterns_.size());
  if (literal.empty()) {
    anything_.push_back(number);
  } else {
    wildcards_.Add(number, literal);
  }
  patterns_.push_back(folded);
  pattern_rows_.push_back(row);
}

void SignatureIndex::Nominate(const FoldedEntry& entry,
                              std::vector<Nomination>* nominations) const {
  const bool folder = entry.entry().IsFolder();
  const bool link = entry.entry().IsLink();
  NominateName(entry.name(), folder, link, nominations);
  if (entry.has_other_name()) NominateName(entry.other_name(), folder, link, nominations);
}

void SignatureIndex::NominateName(const FoldedName& name, bool folder, bool link,
                                  std::vector<Nomination>* nominations) const {
  names_.Find(name, [&](std::uint32_t row) {
    if (IsFolderRow(row) == folder) nominations->push_back({row, true});
  });
  // What lies below a link belongs to another place: relative rows do not reach through it.
  if (folder && !link) {
    first_parts_.Find(name, [&](std::uint32_t row) { nominations->push_back({row, false}); });
  }
  const auto check = [&](std::uint32_t number) {
    const std::uint32_t row = pattern_rows_[number];
    if (IsFolderRow(row) == folder && MayMatch(patterns_[number], name.text)) {
      nominations->push_back({row, false});
    }
  };
  if (!wildcards_.empty()) wildcards_.Propose(name.text, check);
  for (const std::uint32_t number : anything_) check(number);
}

}  // namespace scourwell
