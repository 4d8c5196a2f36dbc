#include "definitions/builtin_lists.h"

#include <map>
#include <set>
#include <stdexcept>

#include "tests/builtin_sources.h"
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

// Everything that the lists hand out, as one "target|..." a line.
struct Delivery : Bench, private DirectChecks {
  SystemFolders folders{"", "C:\\WIN", "C:\\SYS", "C:\\AD", "C:\\TMP", "C:\\PF", "C:\\CF", {}};
  SignatureLists lists;
  std::string direct;
  std::string refuses;  // a direct path whose check fails
  BuiltInLists built_in{lists, *this, folders, m.pump, log};

  void Add(const BuiltInList& list) { built_in.AddBuiltIn(list); }
  // At most one of the lists is filled by a kind of row, except by kBuiltInRegistry.
  std::string All() const { return Rows(lists.lstRegistry) + Rows(lists.lstSearch) + direct; }

  static std::string Rows(const SignatureList& list) {
    std::string text;
    for (std::size_t i = 0; i < list.size(); ++i) {
      text.append(list[i].text).append("|").append(list[i].sub1).append("|");
      text.append(list[i].sub2).append("\n");
    }
    return text;
  }

 private:
  void CheckFile(const std::string& spy, const std::string& path) override {
    if (path == refuses) throw std::length_error("too long");
    direct += "file|" + spy + "|" + path + "\n";
  }
  void CheckFolder(const std::string& spy, const std::string& path) override {
    direct += "folder|" + spy + "|" + path + "\n";
  }
  void CheckProcess(const std::string& spy, const std::string& process) override {
    direct += "process|" + spy + "|" + process + "\n";
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
  if (kind == "key") return Upper(cells[0]) + "|" + cells[1] + "|";
  if (holds("registry")) return Upper(cells[0]) + "|" + cells[2] + "|" + cells[1];
  if (holds("processes")) return "process|" + cells[0] + "|" + cells[1];
  return (holds("cookies") ? "SPY COOKIE|" : "SPY " + Upper(kind) + "|") + cells[0] + "|" +
         cells[1];
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
    std::string expected;
    for (const std::string& line : Split(all.direct, '\n')) {
      if (!line.empty() && line.find("|C:\\WIN\\") == std::string::npos) expected += line + "\n";
    }
    CHECK(some.direct == expected);
    CHECK(some.direct != all.direct);
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
    d.refuses = "C:\\WIN" + std::string(kBuiltInSpyDirectFiles.rows[0].text);
    d.built_in.AddBuiltIn(kBuiltInSpyFileStage);
    CHECK(d.m.Errors() ==
          "Error Description: too long, Error Number: 5, Method: BuiltInSpyDirectFiles\n");
    CHECK(d.lists.lstSearch.size() == kBuiltInSpyFiles.rows.size() + kBuiltInSpyFiles2.rows.size());
    CHECK(Split(d.direct, '\n').size() - 1 == kBuiltInSpyDirectFiles2.rows.size());
  }
}

}  // namespace scourwell::test
