// SPDX-License-Identifier: MIT
#include "refc/lint.h"

#include <algorithm>

#include "refc/built_in.h"
#include "refc/categories.h"
#include "refc/lint_rows.h"
#include "scan/signature_index.h"
#include "text/text.h"

namespace scourwell::refc {
namespace {

// Rows that say the same but for the spy.
void FindDuplicates(const DefinitionSet& set, const std::deque<Row>& rows, Findings* findings) {
  std::vector<std::uint32_t> order(rows.size());
  for (std::size_t i = 0; i < order.size(); ++i) order[i] = static_cast<std::uint32_t>(i);
  const auto compare = [&](std::uint32_t a, std::uint32_t b) {
    const int value = CompareNoCase(set.View(rows[a], 1), set.View(rows[b], 1));
    return value != 0 ? value : CompareNoCase(set.View(rows[a], 2), set.View(rows[b], 2));
  };
  std::sort(order.begin(), order.end(), [&](std::uint32_t a, std::uint32_t b) {
    const int value = compare(a, b);
    return value != 0 ? value < 0 : a < b;
  });
  for (std::size_t i = 1; i < order.size(); ++i) {
    if (compare(order[i - 1], order[i]) != 0) continue;
    const Row& row = rows[order[i]];
    findings->Add(row.place, "duplicate",
                  Quoted(set.View(row, 1)) + " stands in line " +
                      std::to_string(rows[order[i - 1]].place.line) + " already");
  }
}

// The rows of a kind, whatever their family.
template <typename Visit>
void ForEach(const DefinitionSet& set, Kind kind, const Visit& visit) {
  for (std::size_t sequence = 0; sequence < Catalogue().size(); ++sequence) {
    if (Catalogue()[sequence].kind != kind) continue;
    for (const Row& row : set.rows[sequence]) visit(row);
  }
}

// A helper object is half removed when its class stays.
void FindLoneHelpers(const DefinitionSet& set, Findings* findings) {
  constexpr std::string_view kHelpers =
      "HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\"
      "Browser Helper Objects\\";
  std::vector<std::string_view> classes;
  ForEach(set, Kind::KeyPart, [&](const Row& row) { classes.push_back(set.View(row, 1)); });
  std::sort(classes.begin(), classes.end(), NoCaseLess());
  ForEach(set, Kind::Key, [&](const Row& row) {
    const std::string_view key = set.View(row, 1);
    if (!StartsWithNoCase(key, kHelpers)) return;
    const std::string_view id = key.substr(kHelpers.size());
    if (std::binary_search(classes.begin(), classes.end(), id, NoCaseLess()) ||
        BuiltInRows::Get().Has(Kind::KeyPart, id, "")) {
      return;
    }
    findings->Add(row.place, "helper", "the class " + Quoted(id) + " has no key part");
  });
}

// Patterns against the good names, in pieces: an index takes several times the room of its rows.
class PatternCheck {
 public:
  PatternCheck(const DefinitionSet& set, bool folders, Findings* findings)
      : set_(set), folders_(folders), findings_(findings) {}

  void Add(const Row& row) {
    if (!IsNarrowPattern(set_.View(row, 1))) return;
    rows_.push_back(&row);
    if (rows_.size() == kPiece) Compare();
  }
  void Compare();

 private:
  static constexpr std::size_t kPiece = 1024;
  const DefinitionSet& set_;
  bool folders_;
  Findings* findings_;
  std::vector<const Row*> rows_;
};

void PatternCheck::Compare() {
  if (rows_.empty()) return;
  DefinitionList<SearchedName> list;
  for (const Row* row : rows_) {
    list.Add({"", set_.View(*row, 1), folders_ ? DiskItem::Folder : DiskItem::File});
  }
  const SignatureIndex index(list);
  std::vector<SignatureIndex::Nomination> hits;
  FoldedEntry folded;
  std::vector<bool> said(rows_.size());
  for (const std::string_view name :
       GoodNames::Get().Names(folders_ ? GoodList::Folders : GoodList::Files)) {
    DirEntry entry;
    entry.name = name;
    entry.attributes = folders_ ? std::uint32_t{kFolder} : 0;
    hits.clear();
    folded.Take(entry);
    index.Nominate(folded, &hits);
    for (const SignatureIndex::Nomination& hit : hits) {
      if (said[hit.row]) continue;
      said[hit.row] = true;
      findings_->Add(rows_[hit.row]->place, "known-good",
                     Quoted(set_.View(*rows_[hit.row], 1)) + " hits " + Quoted(name));
    }
  }
  rows_.clear();
}

}  // namespace

void Lint(const DefinitionSet& set, Findings* findings) {
  RowJudge judge(set, *findings);
  const std::span<const Listed> all = Catalogue();
  for (std::size_t sequence = 0; sequence < all.size(); ++sequence) {
    const std::deque<Row>& rows = set.rows[sequence];
    const Kind kind = all[sequence].kind;
    if (!IsDefinition(kind)) continue;
    for (const Row& row : rows) judge.Judge(row, all[sequence]);
    if (kind == Kind::File || kind == Kind::Folder) {
      PatternCheck check(set, kind == Kind::Folder, findings);
      for (const Row& row : rows) check.Add(row);
      check.Compare();
    }
    FindDuplicates(set, rows, findings);
  }
  FindLoneHelpers(set, findings);
  JudgeCategories(set, findings);
}

}  // namespace scourwell::refc
