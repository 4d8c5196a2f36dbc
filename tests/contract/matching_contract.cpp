#include <doctest/doctest.h>

#include <algorithm>

#include "machine/error_log.h"
#include "scan/drive_scan.h"
#include "tests/contract/contract.h"
#include "tests/contract/plain_loop.h"

namespace scourwell::test {
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
      ScanProgress progress;
      DriveScan(files, pump, log, NumberCaptions(), sink, progress, list).ScanPath(root);
      REQUIRE(sink.lines() == expected);
      hits += sink.found.size();
      DirEntry entry;
      const bool all_usable = std::all_of(signatures.begin(), signatures.end(), IsUsable);
      REQUIRE(files.Stat(log.path(), &entry).ok() != all_usable);
    }
    CHECK(hits > 300);  // the random rows do hit
  }
}

}  // namespace scourwell::test
