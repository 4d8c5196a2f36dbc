// SPDX-License-Identifier: MIT
#include "scan/advanced_scan.h"

#include "definitions/kinds.h"
#include "tests/fake/version_block.h"
#include "tests/support.h"

namespace scourwell::test {
namespace {

constexpr char kExe[] = "C:\\Evil\\x.exe";

struct Advanced : Bench {
  Advanced() {
    m.Folder("C:\\Evil");
    folders.windows = "C:\\WINDOWS";
    folders.system = "C:\\WINDOWS\\system32";
  }
  DefinitionLists lists;
  SystemFolders folders;
  ScanProgress progress;
  AdvancedScan::Parts parts{m.files,  m.versions, m.shell,  m.pump, log,
                            captions, sink,       progress, lists,  folders};

  void Row(DefinitionKind kind, std::string_view spy, std::string_view value,
           std::string_view second = {}) {
    AddDefinition(kind, {spy, value, second}, folders, &lists);
  }
  Node& Program(const std::string& path, const std::string& company = "Evil Inc.") {
    return Program(path, VersionBlock().Text("CompanyName", company));
  }
  Node& Program(const std::string& path, const VersionBlock& block) {
    m.versions.blocks[path] = block.Make();
    return m.File(path, "content");
  }
  // Says what the system finds under a path, whether or not the file is there by that name.
  void Company(const std::string& path) {
    m.versions.blocks[path] = VersionBlock().Text("CompanyName", "Evil Inc.").Make();
  }
  void Shortcut(const std::string& path, const std::string& target) {
    m.File(path, FakeShell::MakeShortcut(target, ""));
  }
  std::string Scan(const std::string& folder = "C:\\Evil") {
    sink.found.clear();
    m.versions.journal.clear();
    m.files.journal.clear();
    AdvancedScan pass(parts);
    Examine(pass, folder);
    return sink.lines();
  }
  void Examine(AdvancedScan& pass, const std::string& folder) {
    std::vector<AdvancedScan::Candidate> candidates;
    static_cast<void>(m.files.List(folder + "\\*.*", [&](const DirEntry& entry) {
      if (pass.Wants(entry)) candidates.push_back({entry.name, entry.size});
      return true;
    }));
    for (const auto& candidate : candidates) pass.searchFilesAdvanced(folder, candidate);
  }
};

}  // namespace

TEST_SUITE("advanced_scan") {
  TEST_CASE("each list has its own field and its own way to compare") {
    using enum DefinitionKind;
    for (const auto& [kind, field, value, found] :
         Rows<DefinitionKind, std::string, std::string, bool>{
             {CompanyPart, "CompanyName", "the Bad Guys, inc.", true},
             {CompanyPart, "CompanyName", " bad guys ", true},
             {CompanyPart, "CompanyName", "Bad  Guys", false},
             {CompanyPart, "ProductName", "Bad Guys", false},
             {Company, "CompanyName", "  BAD guys ", true},
             {Company, "CompanyName", "the Bad Guys", false},
             {OriginalName, "OriginalFilename", "bad guys", true},
             {OriginalName, "InternalName", "bad guys", false},
             {InternalName, "InternalName", "Bad Guys", true},
             {InternalName, "OriginalFilename", "Bad Guys", false},
             {Product, "ProductName", "Bad Guys", true},
             {Product, "FileDescription", "Bad Guys", false},
             {Description, "FileDescription", "Bad Guys", true},
             {Description, "FileDescription", "Bad Guys b", false}}) {
      Advanced a;
      a.Row(kind, "other", "something else");
      a.Row(kind, "spy", " bad Guys ");
      a.Row(kind, "later", "BAD GUYS");
      VersionBlock block;
      if (field != "CompanyName") block.Text("CompanyName", "unknown");
      a.Program(kExe, block.Text(field, value));
      CAPTURE(field + ": " + value);
      CHECK(a.Scan() == (found ? "Spy File|spy|C:\\Evil\\x.exe\n" : ""));
      CHECK(a.m.Errors() == "");
    }
  }

  TEST_CASE("the first list and in it the first row win, once per file") {
    Advanced a;
    a.Program(kExe, VersionBlock().Text("CompanyName", "Evil Inc.").Text("ProductName", "Evil"));
    a.Row(DefinitionKind::Product, "by product", "Evil");
    CHECK(a.Scan() == "Spy File|by product|C:\\Evil\\x.exe\n");
    a.Row(DefinitionKind::Company, "by equality", "Evil Inc.");
    CHECK(a.Scan() == "Spy File|by equality|C:\\Evil\\x.exe\n");
    a.Row(DefinitionKind::CompanyPart, "empty", "  ");
    a.Row(DefinitionKind::CompanyPart, "first", "inc.");
    a.Row(DefinitionKind::CompanyPart, "second", "Evil");
    CHECK(a.Scan() == "Spy File|first|C:\\Evil\\x.exe\n");
    ForgetBeforeLoading(DefinitionKind::CompanyPart, &a.lists);
    a.Row(DefinitionKind::CompanyPart, "second", "Evil");
    a.Row(DefinitionKind::CompanyPart, "first", "inc.");
    CHECK(a.Scan() == "Spy File|second|C:\\Evil\\x.exe\n");
  }

  TEST_CASE("only programs with a company are examined") {
    Advanced a;
    a.Row(DefinitionKind::Product, "spy", "Evil");
    a.Row(DefinitionKind::Checksum, "by sum", "7", "105");
    const VersionBlock evil =
        VersionBlock().Text("CompanyName", "Evil Inc.").Text("ProductName", "Evil");
    for (const char* name : {"1.exe", "2.EXE", "3.Dll", "4.ocx", "5.sys", "6.exe.txt", "exe",
                             "7.lnk.exe", ".dll", "8.scr"}) {
      a.Program(std::string("C:\\Evil\\") + name, evil);
    }
    a.m.Folder("C:\\Evil\\folder.exe");
    a.Program("C:\\Evil\\blank.exe",
              VersionBlock().Text("CompanyName", "  ").Text("ProductName", "Evil"));
    a.m.File("C:\\Evil\\bare.exe", "content");
    CHECK(a.Scan() ==
          "Spy File|spy|C:\\Evil\\1.exe\nSpy File|spy|C:\\Evil\\2.EXE\n"
          "Spy File|spy|C:\\Evil\\3.Dll\nSpy File|spy|C:\\Evil\\4.ocx\n"
          "Spy File|spy|C:\\Evil\\7.lnk.exe\nSpy File|spy|C:\\Evil\\.dll\n");
    CHECK(a.m.files.Count("ReadBlocks") == 0);
  }

  TEST_CASE("the system's own programs are left out") {
    for (const auto& [path, company, found] : Rows<std::string, std::string, bool>{
             {"C:\\windows\\x.exe", "Microsoft Corp.", false},
             {"C:\\WINDOWS\\System32\\x.dll", "(c) microsoft", false},
             {"C:\\WINDOWS\\x.exe", "Micro soft", true},
             {"C:\\WINDOWS\\temp\\x.exe", "Microsoft Corp.", true},
             {"C:\\WINDOWS2\\x.exe", "Microsoft Corp.", true},
             {"C:\\x.exe", "Microsoft Corp.", true}}) {
      Advanced a;
      a.Row(DefinitionKind::Product, "spy", "Evil");
      a.Program(path, VersionBlock().Text("CompanyName", company).Text("ProductName", "Evil"));
      CAPTURE(path);
      CHECK((a.Scan(path.substr(0, path.rfind('\\'))) != "") == found);
    }
  }

  TEST_CASE("size and checksum together identify a file") {
    // "content" is seven bytes that add up to 105.
    for (const auto& [size, sum, read, found] : Rows<std::string, const char*, bool, bool>{
             {"7", "105", true, true},
             {" 7 ", " 105", true, true},
             {"7", "104", true, false},
             {"7", "", false, false},
             {"7", "x", false, false},
             {"7", "361", false, false},
             {"8", "105", false, false},
             {"7x", "105", false, false},
             {"-7", "105", false, false},
             {"", "105", false, false},
             {"99999999999999999999", "105", false, false}}) {
      Advanced a;
      a.Row(DefinitionKind::Checksum, "large", "4294967303", "105");
      if (read) a.Row(DefinitionKind::Checksum, "another", "7", "106");
      a.Row(DefinitionKind::Checksum, "spy", size, sum);
      a.Row(DefinitionKind::Checksum, "later", size, sum);
      a.Program(kExe);
      CAPTURE(size);
      CHECK(a.Scan() == (found ? "Spy File|SPY|C:\\Evil\\x.exe\n" : ""));
      CHECK(a.m.files.Count("ReadBlocks") == (read ? 1 : 0));
    }
  }

  TEST_CASE("shortcuts lead to the programs behind them") {
    for (const auto& [link, target, found] : Rows<std::string, std::string, std::string>{
             {"a.lnk", "C:\\Far\\x.exe", "C:\\Far\\x.exe"},
             {"a.lnk", "C:\\far\\X.EXE", "C:\\Far\\x.exe"},
             {"a.LNK", "C:\\Far\\x.exe", ""},
             {"lnk", "C:\\Far\\x.exe", ""},
             {"a.lnk", "", ""},
             {"a.lnk", "C:\\Far\\x.txt", ""},
             {"a.lnk", "C:\\Far\\gone.exe", ""},
             {"a.lnk", "C:\\Far\\folder.exe", ""},
             {"a.lnk", "C:\\Far\\?.exe", ""},
             {"a.lnk", "C:\\Far\\.\\x.exe", ""},
             {"a.lnk", "x.exe", ""},
             {"a.lnk", "C:\\LONGFO~1\\X.EXE", "C:\\Long folder\\x.exe"}}) {
      Advanced a;
      a.Row(DefinitionKind::CompanyPart, "spy", "evil");
      a.Company(found.empty() ? target : found);
      a.m.File("C:\\Far\\x.exe");
      a.m.File("C:\\Far\\x.txt");
      a.m.File("C:\\Long folder\\x.exe");
      a.m.Folder("C:\\Far\\folder.exe");
      a.Shortcut("C:\\Evil\\" + link, target);
      CAPTURE(link + " to " + target);
      CHECK(a.Scan() == (found.empty() ? "" : "Spy File|spy|" + found + "\n"));
      CHECK(a.m.Errors() == "");
    }
  }

  TEST_CASE("a file is examined once in a pass, whichever way leads to it") {
    Advanced a;
    a.Row(DefinitionKind::CompanyPart, "spy", "nobody");
    a.Program("C:\\Evil\\Long program.exe");
    a.Shortcut("C:\\Evil\\1.lnk", "C:\\evil\\LONGPR~1.EXE");
    a.Shortcut("C:\\Evil\\2.lnk", "C:\\Evil\\long program.exe");
    a.Shortcut("C:\\Other\\3.lnk", "C:\\Evil\\Long program.exe");
    a.Shortcut("C:\\Other\\4.lnk", "C:\\Far\\x.exe");
    a.Program("C:\\Far\\x.exe");
    AdvancedScan pass(a.parts);
    for (const char* folder : {"C:\\Evil", "C:\\Other", "C:\\Far", "C:\\Evil"}) {
      a.Examine(pass, folder);
    }
    CHECK(Lines(a.m.versions.journal) == "C:\\Evil\\Long program.exe\nC:\\Far\\x.exe\n");
  }

  TEST_CASE("each candidate shows and yields, and a stop ends the search") {
    Advanced a;
    a.Row(DefinitionKind::CompanyPart, "spy", "evil");
    a.m.Folder("C:\\Evil\\folder");
    a.m.File("C:\\Evil\\text.txt");
    a.Program(kExe);
    std::string shown;
    a.m.pump.on_yield = [&] { shown += a.progress.lblScan + "\n"; };
    CHECK(a.Scan() != "");
    CHECK(shown == "<1530> - x.exe\n");
    a.m.pump.close_at = a.m.pump.yields + 1;
    CHECK(a.Scan() == "");
  }

  TEST_CASE("nothing is opened when no row could be answered") {
    Advanced a;
    a.Row(DefinitionKind::CompanyPart, "spy", " ");
    a.Program(kExe);
    a.Shortcut("C:\\Evil\\a.lnk", kExe);
    CHECK(a.Scan() == "");
    CHECK(a.m.versions.journal.empty());
    CHECK(a.m.shell.journal.empty());
  }

  TEST_CASE("failures are on record and the search goes on") {
    Advanced a;
    a.Row(DefinitionKind::CompanyPart, "spy", "evil");
    a.Row(DefinitionKind::Checksum, "sum", "7", "105");
    a.m.File("C:\\Evil\\damaged.lnk");
    a.Program("C:\\Evil\\locked.exe", "unknown").Locked();
    a.Program(kExe);
    CHECK(a.Scan() == "Spy File|spy|C:\\Evil\\x.exe\n");
    CHECK(a.m.Failures() ==
          "75 searchFilesAdvanced, sPath: C:\\Evil\\damaged.lnk\n"
          "70 AdvancedFilePropertiesSearch, sPath: C:\\Evil\\locked.exe\n");
  }

  TEST_CASE("shortcuts to other computers are not followed, the first is on record") {
    Advanced a;
    a.Row(DefinitionKind::CompanyPart, "spy", "evil");
    a.Shortcut("C:\\Evil\\1.lnk", "\\\\dead\\share\\x.exe");
    a.Shortcut("C:\\Evil\\2.lnk", "\\\\dead\\share\\y.exe");
    CHECK(a.Scan() == "");
    CHECK(a.m.files.Count("Stat \\\\dead") == 0);
    CHECK(a.m.Errors() ==
          "Error Description: Shortcuts to another computer are not followed, Error Number: 52, "
          "Method: searchFilesAdvanced, sPath: C:\\Evil\\1.lnk, Target: \\\\dead\\share\\x.exe\n");
  }
}

}  // namespace scourwell::test
