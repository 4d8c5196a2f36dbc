// SPDX-License-Identifier: MIT
#include "definitions/builtin_lists.h"

#include <map>
#include <set>
#include <stdexcept>

#include "tests/builtin_sources.h"
#include "tests/definition_rows.h"
#include "tests/support.h"

namespace scourwell::test {
namespace {

const BuiltInStage kStages[] = {
    kBuiltInTrojanFolderStage,    kBuiltInDialerFolderStage, kBuiltInHijackerFolderStage,
    kBuiltInKeyLoggerFolderStage, kBuiltInSpyFolderStage,    kBuiltInTrojanFileStage,
    kBuiltInDialerFileStage,      kBuiltInHijackerFileStage, kBuiltInKeyLoggerFileStage,
    kBuiltInSpyFileStage,         kBuiltInCookieStage,       kBuiltInMemoryStage,
    kBuiltInRegistryStage,
};

// Everything that the lists hand out.
struct Delivery : Bench {
  SystemFolders folders{"", "C:\\WIN", "C:\\SYS", "C:\\AD", "C:\\TMP", "C:\\PF", "C:\\CF", {}};
  DefinitionLists lists;
  BuiltInLists built_in{lists, folders, m.pump, log};

  void Add(const BuiltInList& list) { built_in.AddBuiltIn(list); }
  // At most one of the lists is filled by a kind of row, except by kBuiltInRegistry.
  std::string All() const {
    return RowTexts(lists.values) + RowTexts(lists.key_parts) + RowTexts(lists.cookies) +
           RowTexts(lists.processes) + WithItems(lists.searched) + WithItems(lists.fixed);
  }
  template <class Definition>
  static std::string WithItems(const DefinitionList<Definition>& list) {
    const std::vector<std::string> rows = Split(RowTexts(list), '\n');
    std::string text;
    for (std::size_t i = 0; i < list.size(); ++i) {
      text += (list[i].item == DiskItem::Folder ? "folder|" : "file|") + rows[i] + "\n";
    }
    return text;
  }
};

// What a line of a list's file must come out as.
std::string Expected(const std::string& file, const std::string& line) {
  static const std::map<std::string, std::string> kFolders = {
      {"windows", "C:\\WIN"},   {"system", "C:\\SYS"},       {"app_data", "C:\\AD"},
      {"temporary", "C:\\TMP"}, {"program_files", "C:\\PF"}, {"common_files", "C:\\CF"}};
  std::vector<std::string> cells = Split(line, '\t');
  const auto holds = [&](const char* word) { return file.find(word) != std::string::npos; };
  std::string kind = holds("folders") ? "folder" : "file";
  if (file == "registry" || holds("entries")) {
    kind = cells[0];
    cells.erase(cells.begin());
  }
  if (holds("direct")) return kind + "|" + cells[0] + "|" + kFolders.at(cells[1]) + cells[2];
  if (kind == "key") return cells[1] + "|" + cells[0];
  if (holds("registry")) return cells[1] + "|" + cells[0] + "|" + cells[2];
  const bool on_disk = !holds("processes") && !holds("cookies");
  return (on_disk ? kind + "|" : "") + cells[0] + "|" + cells[1];
}

}  // namespace

TEST_SUITE("builtin_lists") {
  TEST_CASE("every list hands out its file's rows in order, each once, under its own name") {
    std::set<std::string> names;
    for (const Source& source : kSources) {
      CAPTURE(std::string(source.file));
      Delivery d;
      d.Add(*source.list);
      CHECK(names.insert(source.list->name).second);
      CHECK(d.m.pump.yields == source.list->rows.size());
      CHECK(d.m.Errors() == "");
      const auto lines = SourceLines(std::string("definitions/builtin/") + source.file + ".tsv");
      if (!lines) continue;
      std::string expected;
      for (const std::string& line : *lines) expected += Expected(source.file, line) + "\n";
      CHECK(d.All() == expected);
    }
  }

  TEST_CASE("every list belongs to one stage, once") {
    std::multiset<const BuiltInList*> listed;
    for (const BuiltInStage stage : kStages) listed.insert(stage.begin(), stage.end());
    CHECK(listed.size() == std::size(kSources));
    for (const Source& source : kSources) CHECK(listed.count(source.list) == 1);
  }

  TEST_CASE("a direct row is skipped where its folder is unknown, the others stay") {
    Delivery all;
    Delivery some;
    some.folders.windows.clear();
    for (const Source& source : kSources) {
      all.Add(*source.list);
      some.Add(*source.list);
    }
    CHECK(some.lists.fixed.size() < all.lists.fixed.size());
    all.lists.fixed.Remove(
        [](const FixedPlace& place) { return place.path.starts_with("C:\\WIN\\"); });
    CHECK(RowTexts(some.lists.fixed) == RowTexts(all.lists.fixed));
  }

  TEST_CASE("the closing flag ends a stage at once") {
    for (const BuiltInStage stage : kStages) {
      CAPTURE(std::string(stage[0]->name));
      const std::size_t first = stage[0]->rows.size();
      for (const std::size_t at : {std::size_t{1}, first, first + 1}) {
        Delivery d;
        d.m.pump.close_at = at;
        d.built_in.AddBuiltIn(stage);
        const bool through = at > first && stage.size() == 1;
        CHECK(d.m.pump.yields == (through ? first : at));
        CHECK(Split(d.All(), '\n').size() - 1 == at - 1);
      }
    }
  }

  TEST_CASE("a list that fails is put on record and the next one runs") {
    Delivery d;
    d.m.pump.on_yield = [&] {
      if (d.lists.fixed.size() == 1 && d.lists.searched.empty()) {
        d.lists.searched.Add({"spy", "x", DiskItem::File});
        throw std::length_error("too long");
      }
    };
    d.built_in.AddBuiltIn(kBuiltInDialerFileStage);
    CHECK(d.m.Errors() ==
          "Error Description: too long, Error Number: 5, Method: BuiltInDialerDirectFiles\n");
    CHECK(d.lists.fixed.size() == 1);
    CHECK(d.lists.searched.size() == 1 + kBuiltInDialerFiles.rows.size());
  }
}

}  // namespace scourwell::test
