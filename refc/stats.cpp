// SPDX-License-Identifier: MIT
#include "refc/stats.h"

#include <algorithm>
#include <map>
#include <string>

#include "refc/categories.h"
#include "refc/escape.h"
#include "refc/provenance.h"
#include "text/text.h"

namespace scourwell::refc {
namespace {

// Findings of these rules are rows that the program does not read, or that nothing can be found by.
constexpr std::string_view kNeverRules[] = {"form",       "token", "reach", "length",
                                            "characters", "gap",   "unread"};

struct Spy {
  std::size_t rows = 0;
  Place place;  // of the last one
};

class Stats {
 public:
  Stats(const DefinitionSet& set, const Put& out)
      : set_(set), out_(out), categories_(CategoriesOf(set)) {}

  void Count();
  void Show();
  void ShowNever(Findings& findings);

 private:
  using Counts = std::map<std::string, std::size_t, NoCaseLess>;

  void Table(const char* title, const Counts& counts);

  const DefinitionSet& set_;
  const Put& out_;
  SpyCategories categories_;
  Counts families_;
  Counts kinds_;
  Counts categories_count_;
  Counts certainties_;
  std::map<std::string_view, Spy, NoCaseLess> spies_;
  std::size_t pages_ = 0;
};

void Stats::Count() {
  const std::span<const Listed> lists = Catalogue();
  for (std::size_t sequence = 0; sequence < lists.size(); ++sequence) {
    if (!IsDefinition(lists[sequence].kind)) continue;
    for (const Row& row : set_.rows[sequence]) {
      const std::string_view name = set_.View(row, 0);
      const std::string_view source = ProvenanceOf(set_, row).source;
      const Family family = FamilyOf(lists[sequence], name);
      const std::string_view category = CategoryOf(categories_, lists[sequence], name);
      ++families_[std::string(FamilyName(family))];
      ++kinds_[std::string(KindWord(lists[sequence].kind))];
      ++categories_count_[category.empty() ? "none" : std::string(category)];
      ++certainties_[std::string(CertaintyName(CertaintyOf(source)))];
      pages_ += HasPage(source) ? 1 : 0;
      Spy& spy = spies_[name];
      ++spy.rows;
      spy.place = row.place;
    }
  }
}

// One line each, the largest first.
void Stats::Table(const char* title, const Counts& counts) {
  std::vector<std::pair<std::string_view, std::size_t>> lines(counts.begin(), counts.end());
  std::ranges::stable_sort(lines, std::ranges::greater(),
                           [](const auto& line) { return line.second; });
  for (const auto& [name, count] : lines) {
    out_(std::string(title) + "\t" + std::to_string(count) + "\t" + Escaped(name) + "\n");
  }
}

void Stats::Show() {
  const std::size_t rows = set_.row_count();
  out_("rows\t" + std::to_string(rows) + "\nspies\t" + std::to_string(spies_.size()) + "\n");
  Table("family", families_);
  Table("kind", kinds_);
  Table("category", categories_count_);
  Table("certainty", certainties_);
  out_("with a page\t" + std::to_string(pages_) + "\t" +
       std::to_string(rows == 0 ? 0 : pages_ * 100 / rows) + " %\n");
  const auto is_single = [](const auto& spy) { return spy.second.rows == 1; };
  out_("spies with one row\t" + std::to_string(std::ranges::count_if(spies_, is_single)) + "\n");
  for (const auto& [name, spy] : spies_) {
    if (spy.rows != 1) continue;
    out_("one row\t" + Escaped(name) + "\t" + set_.TextName(spy.place.text) + ":" +
         std::to_string(spy.place.line) + "\n");
  }
}

void Stats::ShowNever(Findings& findings) {
  std::size_t count = 0;
  std::string lines;
  for (const Finding& finding : findings.Sorted()) {
    if (std::ranges::find(kNeverRules, finding.rule) == std::end(kNeverRules)) continue;
    ++count;
    lines += "never\t" + Describe(finding, set_) + "\n";
  }
  out_("rows that can never match\t" + std::to_string(count) + "\n" + lines);
}

}  // namespace

void ShowStats(const DefinitionSet& set, Findings& findings, const Put& out) {
  Stats stats(set, out);
  stats.Count();
  stats.Show();
  stats.ShowNever(findings);
}

}  // namespace scourwell::refc
