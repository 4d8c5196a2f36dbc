// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "refc/catalogue.h"

namespace scourwell::refc {

// A piece of one of a set's texts. A longer one than its size can say is cut there.
struct Span {
  std::uint32_t begin = 0;
  std::uint16_t size = 0;
};
inline constexpr std::size_t kLongestSpan = 0xFFFF;

// Where something stands: a text of the set and its line, from 1; line 0 is the text as a whole.
struct Place {
  std::uint32_t line = 0;
  std::uint16_t text = 0;
};

// One definition. Its spans lie in the text of its place.
struct Row {
  std::array<Span, 3> cells;  // spy, value, second value
  Place place;
};

// Something that a person should look at.
struct Finding {
  Place place;
  const char* rule;
  std::string reason;
};

// Findings in the order of their places. Beyond the thousandth they are only counted, so that no
// file can fill the memory with them.
class Findings {
 public:
  static constexpr std::size_t kMostKept = 1000;

  void Add(Place place, const char* rule, std::string reason);
  // They stand in the order of texts and lines.
  const std::vector<Finding>& Sorted();
  std::size_t count() const { return count_; }
  bool Has(std::string_view rule) const;

 private:
  std::vector<Finding> kept_;
  std::size_t count_ = 0;
  bool sorted_ = true;
};

// The definitions of one or several sources, or of one reference file, in plain text of code page
// 1252. Rows cost 32 bytes and no text of their own, so that a set is never much larger than what
// it was read from.
class DefinitionSet {
 public:
  struct Single {
    Span span;
    Place place;  // line 0: there is no such value
  };

  // Takes a text over; it may be changed in place through `Text`, and never moves.
  std::uint16_t AddText(std::string name, std::string content);
  std::string& Text(std::uint16_t text) { return texts_[text].content; }
  const std::string& TextName(std::uint16_t text) const { return texts_[text].name; }
  std::size_t text_count() const { return texts_.size(); }

  std::string_view View(const Row& row, std::size_t cell) const {
    return View(row.cells[cell], row.place);
  }
  std::string_view View(Span span, Place place) const {
    return std::string_view(texts_[place.text].content).substr(span.begin, span.size);
  }
  // From `span` to the end of its line; empty for an empty span.
  std::string_view LineFrom(Span span, Place place) const;
  // The value of a release, in the order of kReleaseValues; empty when there is none.
  std::string_view Release(std::size_t which) const {
    return View(release[which].span, release[which].place);
  }

  // Of definitions.
  std::size_t row_count() const;
  // Neither a row nor a value of a release.
  bool IsEmpty() const;

  // The rows of each sequence, in the order of Catalogue.
  std::vector<std::deque<Row>> rows = std::vector<std::deque<Row>>(Catalogue().size());
  std::array<Single, kReleaseValues.size()> release;
  bool from_source = false;  // rows must say where they are known from

 private:
  struct Named {
    std::string name;
    std::string content;
  };
  std::deque<Named> texts_ = std::deque<Named>(1);  // so that text 0 always exists
};

// "file:line: rule: reason", or "file: ..." for a text as a whole.
std::string Describe(const Finding& finding, const DefinitionSet& set);

// `text` of code page 1252 in quotes, as UTF-8, cut when it is long.
std::string Quoted(std::string_view text);

}  // namespace scourwell::refc
