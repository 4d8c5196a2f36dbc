// SPDX-License-Identifier: MIT
#include "refc/sections.h"

#include <algorithm>
#include <tuple>

namespace scourwell::refc {
namespace {

constexpr std::string_view kCounts = "NTOT";

bool IsKnownSection(std::string_view name) {
  if (IsListSection(name) || EqualsNoCase(name, kCounts)) return true;
  return std::any_of(kReleaseValues.begin(), kReleaseValues.end(),
                     [&](const ReleaseValue& value) { return EqualsNoCase(name, value.section); });
}

// The entry number in front of a key, without leading zeros; *suffix is the rest. No value when
// there is no number, or one that no sequence reaches.
std::optional<std::uint16_t> EntryNumber(std::string_view key, std::string_view* suffix) {
  std::size_t digits = 0;
  std::uint32_t number = 0;
  while (digits < key.size() && digits < 5 && key[digits] >= '0' && key[digits] <= '9') {
    number = number * 10 + static_cast<std::uint32_t>(key[digits++] - '0');
  }
  *suffix = key.substr(digits);
  if (digits == 0 || (digits > 1 && key[0] == '0') || number > 0xFFFF) return std::nullopt;
  return static_cast<std::uint16_t>(number);
}

}  // namespace

void SectionCollector::Header(std::string_view name, Place place) {
  section_.clear();
  last_ = place;
  if (!IsKnownSection(name)) {
    findings_.Add(place, "unread", "the program reads no section " + Quoted(name));
  } else if (!seen_.insert(std::string(name)).second) {
    findings_.Add(place, "duplicate", "the section stands a second time and is not read");
  } else {
    section_ = name;
  }
}

void SectionCollector::Key(std::string_view name, Span value, Place place) {
  last_ = place;
  if (section_.empty()) return;  // said once, at the section
  if (IsListSection(section_)) return ListKey(name, value, place);
  if (EqualsNoCase(section_, kCounts)) {
    if (const auto sequence = FindCount(name)) return Keep(&counts_[*sequence], value, place);
  }
  for (std::size_t which = 0; which < kReleaseValues.size(); ++which) {
    if (EqualsNoCase(section_, kReleaseValues[which].section) &&
        EqualsNoCase(name, kReleaseValues[which].key)) {
      return Keep(&set_.release[which], value, place);
    }
  }
  findings_.Add(place, "unread", "the program reads no key " + Quoted(name) + " of this section");
}

void SectionCollector::Keep(DefinitionSet::Single* single, Span value, Place place) {
  if (single->place.line == 0) {
    *single = {value, place};
  } else {
    findings_.Add(place, "duplicate", "the key stands a second time and is not read");
  }
}

void SectionCollector::ListKey(std::string_view name, Span value, Place place) {
  std::string_view suffix;
  const auto number = EntryNumber(name, &suffix);
  const auto found = FindKey(section_, suffix);
  if (!number || !found) {
    findings_.Add(place, "unread", "the program reads no key " + Quoted(name) + " of this section");
  } else if (const int most = Catalogue()[found->sequence].most; *number >= most) {
    findings_.Add(place, "unread",
                  "the program reads " + std::to_string(most) + " entries of a sequence");
  } else {
    keys_.push_back({value, place, *number, found->sequence, found->part});
  }
}

void SectionCollector::Finish(bool all_counts) {
  std::vector<std::size_t> before;
  for (const auto& rows : set_.rows) before.push_back(rows.size());
  std::sort(keys_.begin(), keys_.end(), [](const Numbered& a, const Numbered& b) {
    return std::tie(a.sequence, a.number, a.part, a.value.begin) <
           std::tie(b.sequence, b.number, b.part, b.value.begin);
  });
  for (auto key = keys_.begin(); key != keys_.end();) key = FinishSequence(key);
  keys_.clear();
  CheckCounts(before, all_counts);
}

SectionCollector::Keys::iterator SectionCollector::FinishSequence(Keys::iterator key) {
  const std::uint8_t sequence = key->sequence;
  const auto of_sequence = [&](Keys::iterator at) {
    return at != keys_.end() && at->sequence == sequence;
  };
  std::uint32_t next = 0;
  bool ended = false;
  while (of_sequence(key)) {
    const std::uint16_t number = key->number;
    auto end = key;
    while (of_sequence(end) && end->number == number) ++end;
    if (!ended && number != next) {
      findings_.Add(key->place, "gap",
                    "entry " + std::to_string(next) +
                        " is missing: neither this entry nor any later one is read");
      ended = true;
    }
    ended = ended || !FinishEntry(key, end);
    next = number + 1u;
    key = end;
  }
  return key;
}

bool SectionCollector::FinishEntry(Keys::iterator first, Keys::iterator end) {
  const Listed& listed = Catalogue()[first->sequence];
  Row row;
  row.place = first->place;
  std::array<bool, 3> there{};
  for (auto key = first; key != end; ++key) {
    if (there[key->part]) {
      findings_.Add(key->place, "duplicate", "the key stands a second time and is not read");
      continue;
    }
    there[key->part] = true;
    row.cells[key->part] = key->value;
  }
  for (std::size_t part = 0; part < there.size(); ++part) {
    if (!listed.keys[part] || row.cells[part].size != 0) continue;
    findings_.Add(row.place, "gap",
                  std::string(there[part] ? "nothing can be read from " : "the entry lacks ") +
                      std::to_string(first->number) + listed.keys[part] +
                      ": neither it nor any later one is read");
    return false;
  }
  set_.rows[first->sequence].push_back(row);
  return true;
}

// Counts only size the progress bar, but a wrong one betrays a damaged file.
void SectionCollector::CheckCounts(const std::vector<std::size_t>& before, bool all_counts) {
  for (std::size_t sequence = 0; sequence < counts_.size(); ++sequence) {
    const Listed& listed = Catalogue()[sequence];
    const std::size_t rows = set_.rows[sequence].size() - before[sequence];
    const DefinitionSet::Single& count = counts_[sequence];
    if (count.place.line == 0) {
      if (rows == 0 || !listed.count_key || !all_counts) continue;
      findings_.Add({0, last_.text}, "count",
                    std::string("the key ") + listed.count_key + " of [NTOT] is missing");
    } else if (const std::string_view text = set_.View(count.span, count.place);
               text != std::to_string(rows)) {
      findings_.Add(
          count.place, "count",
          "it announces " + Quoted(text) + " entries, " + std::to_string(rows) + " are read");
    }
  }
}

}  // namespace scourwell::refc
