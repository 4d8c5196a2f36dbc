// SPDX-License-Identifier: MIT
#include "tests/offline/disk_builder.h"
#include "tests/offline/offline_support.h"

namespace scourwell::test {
namespace {

// The lines that hold one of the texts, or none of them.
std::string Having(const std::string& lines, const std::vector<std::string>& texts, bool having) {
  std::vector<std::string> kept;
  std::istringstream rows(lines);
  for (std::string line; std::getline(rows, line);) {
    const bool has = std::ranges::any_of(
        texts, [&](const std::string& text) { return line.find(text) != line.npos; });
    if (has == having) kept.push_back(line);
  }
  return Lines(kept);
}

}  // namespace

TEST_SUITE("offline_scan") {
  TEST_CASE("a scan of a disk finds what was planted there, and whose it is, and nothing else") {
    for (const char* options : {"", "--98"}) {
      CAPTURE(std::string(options));
      const PlantedDisk disk(options);
      OfflineBench bench;
      const auto machine = disk.Open();
      CHECK(bench.Scan(*machine) == disk.planted());
      CHECK(machine->unread().empty());
      CHECK(bench.m.Errors() == "");
      CHECK(bench.sections == "registry cookies drives end ");
    }
  }

  TEST_CASE("what is not ticked is neither looked at nor told of, for nobody") {
    const PlantedDisk disk;
    const auto machine = disk.Open();
    for (const auto& [node, kinds, sections] :
         Rows<std::size_t, std::vector<std::string>, const char*>{
             {ScanScope::kScanRegistry, {"Spy Registry"}, "cookies drives end "},
             {ScanScope::kScanCookie, {"Spy Cookie"}, "registry drives end "},
             {ScanScope::kScanDrives, {"Spy File", "Spy Folder"}, "registry cookies end "}}) {
      CAPTURE(std::string(sections));
      OfflineBench bench;
      ScanScope scope = bench.ScopeOf(*machine);
      scope.SetTicked(node, false);
      OfflineScan scan(bench.PartsFor(*machine));
      scan.StartScan(scope);
      CHECK(bench.Found() == Having(disk.planted(), kinds, false));
      CHECK(bench.sections == sections);
    }
  }

  TEST_CASE("chosen folders are scanned alone, and a scan of everything counts all of it") {
    const PlantedDisk disk;
    const auto machine = disk.Open();
    OfflineBench bench;
    OfflineScan scan(bench.PartsFor(*machine));
    scan.ScanFolders({"C:\\WINDOWS"});
    CHECK(scan.finished());
    // The places that definitions name are looked up in any case, as those of the first user.
    CHECK(bench.Found() == Having(disk.planted(),
                                  {"|C:\\WINDOWS", "|C:\\Documents and Settings\\Ann\\Local"},
                                  true));
    CHECK(bench.sections == "drives end ");
    scan.ScanFolders({"C:\\"});
    const auto files = bench.progress.scanned_files;
    CHECK(files > 20);
    bench.Scan(*machine);
    CHECK(bench.progress.scanned_files >= files);
  }

  TEST_CASE("a scan that is stopped among the users has no end, and no log") {
    const PlantedDisk disk;
    const auto machine = disk.Open();
    for (const bool folders : {false, true}) {
      OfflineBench bench;
      OfflineScan scan(bench.PartsFor(*machine));
      int yields = 0;
      bench.m.pump.on_yield = [&] { bench.m.pump.set_closing(++yields > (folders ? 0 : 60)); };
      folders ? scan.ScanFolders({"C:\\"}) : scan.StartScan(bench.ScopeOf(*machine));
      CAPTURE(yields);
      CHECK_FALSE(scan.finished());
      CHECK(bench.sections == "");
    }
  }

  TEST_CASE("cookies lie where any browser of the system keeps them, each told once") {
    DiskBuilder disk;
    disk.Windows().User("S-1", "Users\\Ann");
    disk.Text(kSoftware, kNtVersion, "CurrentVersion", "6.3");
    std::vector<std::string> places;
    for (const char* folder :
         {"Roaming/Microsoft/Windows/Cookies", "Local/Microsoft/Windows/INetCookies"}) {
      for (const char* low : {"", "/Low"}) {
        const std::string name =
            "Users/Ann/AppData/" + (folder + std::string(low)) + "/ann@doubleclick[1].txt";
        disk.Put(name, "x");
        places.push_back("Ann|Spy Cookie|DoubleClick|C:\\" + ReplaceAll(name, "/", "\\"));
      }
    }
    std::sort(places.begin(), places.end());
    OfflineBench bench;
    CHECK(bench.Scan(*disk.Open()) == Lines(places));
  }
}

}  // namespace scourwell::test
