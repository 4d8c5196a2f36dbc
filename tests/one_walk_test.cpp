// SPDX-License-Identifier: MIT
#include <cstdlib>
#include <set>

#include "scan/drive_scan.h"
#include "tests/contract/plain_loop.h"
#include "tests/support.h"
#include "text/paths.h"

namespace scourwell::test {
namespace {

constexpr char kRoot[] = "D:\\root";

// More trees by hand: SCOURWELL_TREES=10000.
std::uint32_t Trees() {
  const char* const text = std::getenv("SCOURWELL_TREES");
  return text ? static_cast<std::uint32_t>(std::atoi(text)) : 400;
}

// A random tree with rows for both passes, the same for the same seed.
struct RandomScan : Bench {
  explicit RandomScan(std::uint32_t seed) : dice(seed) {
    m.AddDrive('D');
    m.files.short_names = !dice.Chance(5);
    m.Folder(kRoot);
    for (const TreeItem& item : RandomTree(dice, kRoot, dice.Below(40))) {
      if (item.folder) {
        m.Folder(item.path);
      } else if (dice.Chance(8)) {
        m.Link(item.path, dice.Chance(2) ? "D:\\" : std::string(FolderPart(item.path)));
      } else {
        m.File(item.path);
        paths.push_back(item.path);
      }
    }
    const std::vector<std::string> short_names = ShortNames(m.files, kRoot);
    FillRandomRows(dice, dice.Below(10), short_names, &folder_pass);
    FillRandomRows(dice, 1 + dice.Below(10), short_names, &file_pass);
    // None, some or all of the file pass fits into the notes.
    constexpr std::size_t kRooms[] = {0, 600, 1500, FileNotes::kMostBytes};
    room = dice.Pick(kRooms);
    if (paths.empty() || !dice.Chance(3)) return;
    for (std::size_t i = 1 + dice.Below(4); i > 0; --i) vanishing.push_back(dice.Pick(paths));
  }

  void Vanish() {
    for (const std::string& path : vanishing) m.files.Remove(path);
  }

  std::string Scan() {
    ScanProgress progress;
    DriveScan scan({m.files, m.pump, log, captions, sink, progress}, folder_pass, file_pass,
                   nullptr, room);
    scan.ScanPaths({kRoot});
    if (m.pump.closing()) return sink.lines();
    Vanish();
    scan.ScanFiles();
    return sink.lines();
  }

  std::string Expected() {
    CollectingSink plain;
    PlainLoop(m.files, folder_pass, kRoot, plain);
    Vanish();
    PlainLoop(m.files, file_pass, kRoot, plain);
    return plain.lines();
  }

  Dice dice;
  DefinitionList<SearchedName> folder_pass, file_pass;
  std::vector<std::string> paths, vanishing;
  std::size_t room = 0;
};

struct Walks : Bench {
  DefinitionList<SearchedName> folder_pass, file_pass;
  ScanProgress progress;

  Walks() { m.AddDrive('D'); }
  DriveScan Scan(std::size_t room = FileNotes::kMostBytes) {
    sink.found.clear();
    m.files.journal.clear();
    progress = {};
    return {
        {m.files, m.pump, log, captions, sink, progress}, folder_pass, file_pass, nullptr, room};
  }
};

}  // namespace

TEST_SUITE("one_walk") {
  TEST_CASE("one walk reports what a listing per row, folder and pass would, in the same order") {
    std::size_t hits = 0, vanished = 0;
    for (std::uint32_t seed = 0; seed < Trees(); ++seed) {
      CAPTURE(seed);
      RandomScan plain(seed);
      const std::string expected = plain.Expected();
      RandomScan scan(seed);
      REQUIRE(scan.Scan() == expected);
      hits += scan.sink.found.size();
      vanished += scan.vanishing.size();
    }
    CHECK(hits > 3 * Trees());
    CHECK(vanished > Trees() / 3);
  }

  TEST_CASE("a stop anywhere leaves a beginning of what would have been reported") {
    for (std::uint32_t seed = 0; seed < 12; ++seed) {
      RandomScan whole(seed);
      const std::string lines = whole.Scan();
      for (std::size_t n = 1; n <= whole.m.pump.yields; ++n) {
        CAPTURE(seed);
        CAPTURE(n);
        RandomScan stopped(seed);
        stopped.m.pump.close_at = n;
        REQUIRE(lines.starts_with(stopped.Scan()));
        REQUIRE(stopped.m.pump.yields == n);
      }
    }
  }

  TEST_CASE("each folder is listed once for both passes, the rest twice when the notes are full") {
    Walks w;
    for (int i = 0; i < 30; ++i) w.m.File("D:\\r\\" + std::to_string(i) + "\\evil.exe");
    w.file_pass.Add({"spy", "evil.exe", DiskItem::File});
    w.folder_pass.Add({"spy", "none", DiskItem::Folder});
    std::string all;
    for (const std::size_t room : {FileNotes::kMostBytes, std::size_t{2000}, std::size_t{0}}) {
      CAPTURE(room);
      DriveScan scan = w.Scan(room);
      scan.ScanPaths({"D:\\r"});
      CHECK(w.sink.found.empty());
      const std::size_t first = w.m.files.Count("List ");
      CHECK(first == 32);  // with the question whether the path is a folder
      scan.ScanFiles();
      CHECK(w.sink.found.size() == 30);
      if (all.empty()) all = w.sink.lines();
      CHECK(w.sink.lines() == all);
      const std::size_t again = w.m.files.Count("List ") - first;
      if (room == FileNotes::kMostBytes) CHECK(again == 0);
      if (room == 2000) CHECK((again > 20 && again < 30));
      if (room == 0) CHECK(again == 30);  // nothing in the root had to be noted
      CHECK(w.progress.scanned_folders == 31);
      CHECK(w.progress.scanned_files == 30);
      CHECK(w.progress.lblFScan == 31);
      CHECK(w.progress.phase.done() == w.progress.phase.total());
    }
  }

  TEST_CASE("what is something else by the time of the file pass is not reported") {
    Walks w;
    w.m.File("D:\\r\\evil.exe");
    w.m.File("D:\\r\\sub\\evil.exe");
    w.m.Folder("D:\\r\\evil");
    w.file_pass.Add({"spy", "evil.exe", DiskItem::File});
    w.file_pass.Add({"spy", "evil", DiskItem::Folder});
    DriveScan scan = w.Scan();
    scan.ScanPaths({"D:\\r"});
    w.m.files.Remove("D:\\r\\evil.exe");
    w.m.Folder("D:\\r\\evil.exe");
    w.m.files.Remove("D:\\r\\evil");
    w.m.Link("D:\\r\\evil", "C:\\");
    scan.ScanFiles();
    CHECK(w.sink.lines() == "Spy File|spy|D:\\r\\sub\\evil.exe\n");
    CHECK(w.m.Errors() == "");
  }

  TEST_CASE("several roots keep their order, whatever fits into the notes") {
    Walks w;
    for (const char* file : {"D:\\a\\evil.exe", "D:\\one evil.exe", "D:\\c\\d\\evil.exe"})
      w.m.File(file);
    w.file_pass.Add({"spy", "*evil.exe", DiskItem::File});
    for (const std::size_t room : {FileNotes::kMostBytes, std::size_t{400}, std::size_t{0}}) {
      CAPTURE(room);
      DriveScan scan = w.Scan(room);
      scan.ScanPaths({"D:\\a", "D:\\one evil.exe", "D:\\c"});
      scan.ScanFiles();
      CHECK(w.sink.lines() ==
            "Spy File|spy|D:\\a\\evil.exe\nSpy File|spy|D:\\one evil.exe\n"
            "Spy File|spy|D:\\c\\d\\evil.exe\n");
      CHECK(w.m.Errors() == "");
    }
  }

  TEST_CASE("the measure of the walk grows with each folder and ends with the last") {
    Walks w;
    for (const char* folder : {"a\\b\\c", "a\\d", "e", "f\\g"}) {
      w.m.Folder(std::string("D:\\r\\") + folder);
    }
    std::vector<std::uint32_t> seen;
    w.m.pump.on_yield = [&] { seen.push_back(w.progress.phase.done()); };
    w.Scan().ScanPaths({"D:\\r"});
    CHECK(std::ranges::is_sorted(seen));
    CHECK(std::set<std::uint32_t>(seen.begin(), seen.end()).size() == 8);  // as many as folders
    CHECK(w.progress.phase.done() == w.progress.phase.total());
  }
}

}  // namespace scourwell::test
