// The compiled-in definitions against names that belong to Windows and to honest programs.

#include <set>

#include "definitions/builtin_lists.h"
#include "scan/name_pattern.h"
#include "scan/signature_index.h"
#include "tests/builtin_sources.h"
#include "tests/support.h"

namespace scourwell::test {
namespace {

std::vector<std::string> GoodNames(std::initializer_list<const char*> kinds) {
  std::vector<std::string> names;
  for (const char* kind : kinds) {
    const auto lines = SourceLines(std::string("tests/data/known_good_names") + kind + ".txt");
    if (lines) names.insert(names.end(), lines->begin(), lines->end());
  }
  return names;
}

// The rows of lstSearch that answer a name on some Windows, of files or of folders.
std::string Hits(const SignatureIndex& index, const std::string& name, bool folder) {
  std::string hits;
  DirEntry entry;
  entry.name = name;
  entry.attributes = folder ? std::uint32_t{kFolder} : 0;
  std::vector<SignatureIndex::Nomination> nominations;
  index.Nominate(entry, &nominations);
  for (const auto& nomination : nominations) {
    const std::string signature(index.Row(nomination.row).sub2);
    // Relative rows are nominated by their first folder alone.
    if (ClassifyPattern(NormalizeSignature(signature)) == PatternKind::Relative) continue;
    hits += name + " is hit by " + signature + "\n";
  }
  return hits;
}

// Paths of ordinary words that belong to one program all the same.
bool IsKnownPath(std::string_view path) {
  for (const char* known : {"Common Files\\GMT", "\\GMT", "Program Files\\Save\\Save.exe",
                            "\\Save\\Save.exe", "\\ClockSync\\Sync.exe"}) {
    if (path == known) return true;
  }
  return false;
}

// Folders in which programs of all makers lie: they tell nothing about what is in them.
bool IsSharedFolder(std::string_view part) {
  for (const char* shared : {"Program Files", "Common Files", "Programs", "Start Menu", "System",
                             "System32", "Windows", "WINNT", "Temp", "bin", "1.bin"}) {
    if (EqualsNoCase(part, shared)) return true;
  }
  return false;
}

}  // namespace

TEST_SUITE("builtin_lists") {
  TEST_CASE("no searched row can be misread, and none hits a good name") {
    SignatureList searched;
    for (const Source& source : kSources) {
      for (const BuiltInRow& row : source.list->rows) {
        if (row.kind == BuiltInKind::SearchedFile) FillListBox(searched, "Spy File", "", row.text);
        if (row.kind == BuiltInKind::SearchedFolder) {
          FillListBox(searched, "Spy Folder", "", row.text);
        }
      }
    }
    const SignatureIndex index(searched);
    CHECK(index.unusable() == 0);
    std::string hits;
    for (const std::string& name : GoodNames({"", "_programs", "_processes"})) {
      hits += Hits(index, name, false);
    }
    for (const std::string& name : GoodNames({"", "_programs", "_folders"})) {
      hits += Hits(index, name, true);
    }
    CHECK(hits == "");
  }

  TEST_CASE("a relative or direct row names something that is its own") {
    const std::vector<std::string> good = GoodNames({"", "_programs", "_processes", "_folders"});
    const std::set<std::string, NoCaseLess> names(good.begin(), good.end());
    for (const Source& source : kSources) {
      for (const BuiltInRow& row : source.list->rows) {
        if (row.kind > BuiltInKind::SearchedFolder && row.kind != BuiltInKind::DirectFile &&
            row.kind != BuiltInKind::DirectFolder) {
          continue;
        }
        CAPTURE(std::string(row.text));
        // One part at least, folder or last name, must belong to no good program.
        bool own = IsKnownPath(row.text);
        for (const std::string& part : Split(NormalizeSignature(row.text), '\\')) {
          own |= !IsSharedFolder(part) && names.count(part) == 0;
        }
        CHECK(own);
        if (row.folder) CHECK((row.text[0] == '\\' && std::string_view(row.text).size() > 2));
      }
    }
  }

  TEST_CASE("no process of Windows or of a common program is matched") {
    std::set<std::string, NoCaseLess> spies;
    for (const BuiltInRow& row : kBuiltInProcesses.rows) spies.insert(row.text);
    for (const std::string& name : GoodNames({"", "_programs", "_processes"})) {
      CAPTURE(name);
      CHECK(spies.count(name) == 0);
    }
  }

  TEST_CASE("no cookie fragment occurs in the cookie of a good site or in a user's name") {
    for (const std::string& site : GoodNames({"_cookies"})) {
      for (const char* user : {"default", "administrator", "owner", "user", "home pc"}) {
        for (const char* number : {"[1].txt", "[2].txt"}) {
          const std::string file = std::string(user) + "@" + site + number;
          CAPTURE(file);
          for (const BuiltInRow& row : kBuiltInCookies.rows) {
            if (FindNoCase(file, row.text) != std::string_view::npos) CHECK(row.text == file);
          }
        }
      }
    }
  }

  TEST_CASE("no start-up value of a good program is named, and no key beyond the known ones") {
    const std::vector<std::string> good = GoodNames({"_run_values"});
    const std::set<std::string, NoCaseLess> names(good.begin(), good.end());
    constexpr std::string_view kRoots[] = {
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
        if (row.kind != BuiltInKind::RegistryValue) continue;
        CAPTURE(std::string(row.text));
        CHECK(names.count(row.text) == 0);
        const std::string_view key(row.key);
        bool known = false;
        for (const std::string_view root : kRoots) {
          known |= EqualsNoCase(key.substr(key.find('\\')), root);
        }
        CHECK(known);
      }
    }
  }
}

}  // namespace scourwell::test
