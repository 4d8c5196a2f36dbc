// SPDX-License-Identifier: MIT
#include "refc/definition_set.h"

#include <algorithm>

#include "refc/escape.h"
#include "text/text.h"

namespace scourwell::refc {

void Findings::Add(Place place, const char* rule, std::string reason) {
  ++count_;
  if (kept_.size() >= kMostKept) return;
  kept_.push_back({place, rule, std::move(reason)});
  sorted_ = false;
}

const std::vector<Finding>& Findings::Sorted() {
  if (!sorted_) {
    std::stable_sort(kept_.begin(), kept_.end(), [](const Finding& a, const Finding& b) {
      return a.place.text != b.place.text ? a.place.text < b.place.text
                                          : a.place.line < b.place.line;
    });
    sorted_ = true;
  }
  return kept_;
}

bool Findings::Has(std::string_view rule) const {
  return std::any_of(kept_.begin(), kept_.end(),
                     [&](const Finding& finding) { return finding.rule == rule; });
}

std::uint16_t DefinitionSet::AddText(std::string name, std::string content) {
  texts_.push_back({std::move(name), std::move(content)});
  return static_cast<std::uint16_t>(texts_.size() - 1);
}

std::string_view DefinitionSet::LineFrom(Span span, Place place) const {
  if (span.size == 0) return {};
  const std::string_view line = std::string_view(texts_[place.text].content).substr(span.begin);
  return line.substr(0, line.find_first_of("\r\n"));
}

std::size_t DefinitionSet::row_count() const {
  std::size_t count = 0;
  for (std::size_t sequence = 0; sequence < rows.size(); ++sequence) {
    if (IsDefinition(Catalogue()[sequence].kind)) count += rows[sequence].size();
  }
  return count;
}

bool DefinitionSet::IsEmpty() const {
  const auto is_missing = [](const Single& single) { return single.place.line == 0; };
  return std::ranges::all_of(rows, [](const auto& sequence) { return sequence.empty(); }) &&
         std::all_of(release.begin(), release.end(), is_missing);
}

std::string Describe(const Finding& finding, const DefinitionSet& set) {
  std::string text = set.TextName(finding.place.text);
  if (finding.place.line != 0) text += ":" + std::to_string(finding.place.line);
  return text + ": " + finding.rule + ": " + finding.reason;
}

std::string Quoted(std::string_view text) {
  constexpr std::size_t kLongest = 100;
  std::string quoted = "\"" + Escaped(text.substr(0, kLongest));
  return quoted + (text.size() > kLongest ? "...\"" : "\"");
}

}  // namespace scourwell::refc
