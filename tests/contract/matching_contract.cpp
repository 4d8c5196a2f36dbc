// SPDX-License-Identifier: MIT
#include <doctest/doctest.h>

#include <algorithm>

#include "machine/error_log.h"
#include "scan/drive_scan.h"
#include "tests/contract/contract.h"
#include "tests/contract/plain_loop.h"

namespace scourwell::test {
namespace {

void FilePass(Files& files, Pump& pump, ErrorLog& log, const DefinitionList<SearchedName>& rows,
              const std::string& root, CollectingSink* sink) {
  const DefinitionList<SearchedName> none;
  const NumberCaptions captions;
  ScanProgress progress;
  DriveScan scan({files, pump, log, captions, *sink, progress}, none, rows);
  scan.ScanPaths({root});
  scan.ScanFiles();
}

}  // namespace

TEST_SUITE("contract_matching") {
  TEST_CASE("a scan finds what one listing per row and folder finds, in the same order") {
    std::size_t hits = 0;
    for (std::uint32_t seed = 0; seed < 12; ++seed) {
      Dice dice(seed);
      const auto machine = NewContractMachine();
      Files& files = machine->files();
      const std::string root = machine->folder() + "\\root";
      machine->MakeFolder(root);
      for (const TreeItem& item : RandomTree(dice, root, 80)) {
        item.folder ? machine->MakeFolder(item.path) : machine->MakeFile(item.path, "x");
      }
      DefinitionList<SearchedName> list;
      const std::vector<std::string> signatures =
          FillRandomRows(dice, 60, ShortNames(files, root), &list);
      CAPTURE(seed);
      CAPTURE(Lines(signatures));
      const std::string expected = PlainLoop(files, list, root);
      QuietPump pump;
      ErrorLog log(files, machine->clock(), machine->code_pages(),
                   machine->folder() + "\\errorlog.txt");
      CollectingSink sink;
      FilePass(files, pump, log, list, root, &sink);
      REQUIRE(sink.lines() == expected);
      hits += sink.found.size();
      DirEntry entry;
      const bool all_usable = std::all_of(signatures.begin(), signatures.end(), IsUsable);
      REQUIRE(files.Stat(log.path(), &entry).ok() != all_usable);
    }
    CHECK(hits > 300);  // the random rows do hit
  }

  TEST_CASE("what is found inside long folders is reached by the path that is shown") {
    const auto machine = NewContractMachine();
    Files& files = machine->files();
    std::string folder = machine->folder() + "\\root";
    const std::string root = folder;
    REQUIRE(files.CreateFolder(folder).ok());
    for (const char letter : {'a', 'b', 'c', 'd'}) {
      folder += "\\long folder " + std::string(70, letter);
      REQUIRE(files.CreateFolder(folder).ok());
      REQUIRE(files.Replace(folder + "\\evil.exe", "x").ok());
    }
    for (const char* name : {"\\bad folder", "\\part"})
      REQUIRE(files.CreateFolder(folder + name).ok());
    for (const char* name : {"\\bad folder\\any.txt", "\\part\\of way.dll", "\\hijack one.ocx"}) {
      REQUIRE(files.Replace(folder + name, "x").ok());
    }
    DefinitionList<SearchedName> list;
    list.Add({"1", "EVIL.exe", DiskItem::File});
    list.Add({"2", "bad fold*", DiskItem::Folder});
    list.Add({"3", "part\\of way.dll", DiskItem::File});
    list.Add({"4", "hijack*.ocx", DiskItem::File});
    QuietPump pump;
    ErrorLog log(files, machine->clock(), machine->code_pages(), machine->folder() + "\\log.txt");
    CollectingSink sink;
    FilePass(files, pump, log, list, root, &sink);
    CHECK(sink.lines() == PlainLoop(files, list, root));
    CHECK(sink.found.size() == 8);
    for (const Finding& found : sink.found) {
      const std::string path = PlaceText(found.object);
      CAPTURE(path);
      DirEntry entry;
      CHECK(files.Stat(path, &entry).ok());
      if (!entry.IsFolder()) CHECK(files.EraseFile(path).ok());
    }
    CHECK(PlaceText(sink.found.back().object).size() > 340);
    sink.found.clear();
    FilePass(files, pump, log, list, root, &sink);
    CHECK(sink.lines() == "Spy Folder|2|" + folder + "\\bad folder\n");
    DirEntry entry;
    CHECK_FALSE(files.Stat(log.path(), &entry).ok());  // nothing failed
  }
}

}  // namespace scourwell::test
