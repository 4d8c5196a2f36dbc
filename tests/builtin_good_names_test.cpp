// SPDX-License-Identifier: MIT

// The compiled-in definitions, judged by the rules for those of a file: names that belong to
// Windows and to honest programs must not be hit.

#include <algorithm>
#include <set>

#include "tests/builtin_sources.h"
#include "tests/refc_support.h"

namespace scourwell::test {
namespace {

// A row as a line of a source for refc.
std::string SourceLine(const BuiltInRow& row) {
  std::string what = row.value;
  if (row.kind == DefinitionKind::Value) what += std::string("\\") + row.second;
  return "Spy\t" + std::string(KindWord(row.kind)) + "\t" + what + "\tknown\n";
}

// What the rules say of a list, but for each of its rows that it is built in.
std::string Findings(const Source& source) {
  // Names of ordinary words that belong to one program all the same.
  constexpr const char* kKnown[] = {"\"Common Files\\GMT\"", "\"%CF%\\GMT\"",
                                    "\"%PF%\\ClockSync\\Sync.exe\""};
  Tool tool;
  std::string& text = tool.disk.files[source.file];
  text = "[spyware]\n";
  for (const BuiltInRow& row : source.list->rows) text += SourceLine(row);
  tool.Run({"lint", source.file});
  CHECK(tool.err.find("are not shown") == std::string::npos);
  std::string findings;
  std::size_t built_in = 0;
  for (const std::string& line : Split(tool.err, '\n')) {
    const bool said = line.find(": built-in: ") != std::string::npos;
    built_in += said ? 1 : 0;
    const bool known = std::any_of(std::begin(kKnown), std::end(kKnown), [&](const char* part) {
      return line.find(part) != std::string::npos;
    });
    if (!said && !known && !line.empty()) findings += line + "\n";
  }
  CHECK(built_in == source.list->rows.size());
  return findings;
}

}  // namespace

TEST_SUITE("builtin_lists") {
  TEST_CASE("no row hits what belongs to Windows or to an honest program") {
    for (const Source& source : kSources) CHECK(Findings(source) == "");
  }

  TEST_CASE("no key of a registry value is beyond the known ones") {
    const std::set<std::string, NoCaseLess> roots = {
        "\\Software\\Microsoft\\Windows\\CurrentVersion\\Run\\",
        "\\Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\",
        "\\Software\\Microsoft\\Windows\\CurrentVersion\\SharedDLLs\\",
        "\\Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\SaveNow\\",
        "\\Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings\\User Agent\\Post "
        "Platform\\",
        "\\Software\\Microsoft\\Internet Explorer\\Toolbar\\",
        "\\Software\\Gator.com\\AppInfo\\CME\\"};
    for (const BuiltInList* list : kBuiltInRegistryStage) {
      for (const BuiltInRow& row : list->rows) {
        if (row.kind != DefinitionKind::Value) continue;
        CAPTURE(std::string(row.second));
        const std::string key(row.value);
        CHECK(roots.count(key.substr(key.find('\\'))) == 1);
      }
    }
  }
}

}  // namespace scourwell::test
