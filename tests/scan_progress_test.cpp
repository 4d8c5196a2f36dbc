// SPDX-License-Identifier: MIT
#include "tests/session_support.h"

namespace scourwell::test {
namespace {

// Notes the progress at every yield: one line a phase, its total, its percentages.
struct Watched : Session {
  struct Phase {
    std::string option;
    std::uint32_t number = 0;
    std::uint32_t total = 0;
    std::vector<std::uint32_t> done;
  };
  std::vector<Phase> phases;
  std::vector<std::uint32_t> at_yield;
  std::function<void()> between;  // in the middle of the walk, once

  Watched() {
    m.AddDrive('E');
    for (int i = 0; i < 40; ++i) {
      m.Folder("D:\\many\\" + std::to_string(i));
      m.Folder("E:\\others\\" + std::to_string(i));
      m.File("C:\\Cookies\\user@" + std::to_string(i) + "[1].txt");
      m.registry.Make(RootKey::ClassesRoot, "CLSID\\{" + std::to_string(i) + "}\\Deep\\er");
      definitions.Entry("REGK", {"REGKT", "REGKK"},
                        {"Key", "HKEY_LOCAL_MACHINE\\None" + std::to_string(i)});
    }
    WriteDefinitions();
    settings.CookiesFolder = "C:\\Cookies";
    m.Link("D:\\loop", "D:\\many");
    m.Folder("D:\\closed").Denied();
    scope.FillTree(captions, m.files.Drives());
    look = [this] {
      if (between && progress.lblScan == "D:\\many\\5") {
        between();
        between = nullptr;
      }
      const PhaseMeter& meter = progress.phase;
      if (phases.empty() || phases.back().number != meter.number()) {
        phases.push_back({progress.lblScanOption, meter.number(), meter.total(), {}});
      }
      phases.back().done.push_back(meter.done());
      REQUIRE(phases.back().total == meter.total());
      REQUIRE(std::is_sorted(phases.back().done.begin(), phases.back().done.end()));
      REQUIRE(meter.done() <= meter.total());
      at_yield.push_back(meter.done());
    };
  }

  // The phase that was counted under this caption.
  const Phase* Counted(const std::string& option) const {
    for (const Phase& phase : phases) {
      if (phase.option.starts_with(option) && phase.total > 0) return &phase;
    }
    return nullptr;
  }
  // How many different numbers of steps were seen done.
  static std::size_t Stages(const Phase* phase) {
    if (!phase) return 0;
    std::vector<std::uint32_t> done = phase->done;
    return static_cast<std::size_t>(std::unique(done.begin(), done.end()) - done.begin());
  }
};

}  // namespace

TEST_SUITE("scan_progress") {
  TEST_CASE("every phase that can be counted shows each of its steps") {
    Watched s;
    s.session.StartScan(s.scope);
    CHECK(s.session.finished());
    CHECK(Watched::Stages(s.Counted("<1806>")) >= 40);  // the named keys
    CHECK(Watched::Stages(s.Counted("<1807>")) >= 40);  // the classes, whatever lies below them
    CHECK(s.Counted("<1807>")->total == 40);
    CHECK(Watched::Stages(s.Counted("<1907>")) >= 40);
    CHECK(s.Counted("<1907>")->total == 40);
    CHECK(s.Counted("<1902>") == nullptr);
    // The walk is measured by the shares of its folders.
    REQUIRE(s.Counted("<1841>"));
    CHECK(Watched::Stages(s.Counted("<1841>")) >= 90);
    CHECK(s.progress.phase.total() == 0);  // nothing goes on any more
  }

  TEST_CASE("one folder on the command line is counted as well, one file has nothing to count") {
    Watched folder;
    folder.session.ScanFolders({"D:\\many"});
    REQUIRE(folder.Counted("<1882>"));
    CHECK(Watched::Stages(folder.Counted("<1882>")) == 41);
    Watched file;
    file.session.ScanFolders({"D:\\Tfile.exe"});
    CHECK(file.Counted("<1882>") == nullptr);
    CHECK(file.session.finished());
  }

  TEST_CASE("a tree that changes during the walk keeps the measure within bounds") {
    Watched s;
    SUBCASE("it grows") {
      s.between = [&] {
        for (int i = 0; i < 300; ++i) s.m.Folder("D:\\new\\" + std::to_string(i));
      };
    }
    SUBCASE("it shrinks") {
      s.between = [&] { s.m.files.Remove("D:\\many"); };
    }
    SUBCASE("a drive goes") {
      s.between = [&] { s.m.AddDrive('D', DriveKind::Fixed, false); };
    }
    SUBCASE("a drive comes") {
      s.m.AddDrive('E', DriveKind::Fixed, false);
      s.between = [&] { s.m.AddDrive('E', DriveKind::Fixed, true); };
    }
    s.session.StartScan(s.scope);
    CHECK(s.session.finished());
    REQUIRE(s.Counted("<1841>"));
    CHECK_FALSE(s.between);
    CHECK(s.progress.scanned_folders > 0);
  }

  TEST_CASE("a stopped phase does not claim to be through") {
    Watched whole;
    whole.session.StartScan(whole.scope);
    for (std::size_t n = 1; n <= whole.m.pump.yields; n += 23) {
      Watched s;
      s.m.pump.close_at = n;
      s.session.StartScan(s.scope);
      // At most the item at hand was brought to its end; folders have shares of any size.
      const std::uint32_t item = s.progress.phase.total() == 1'000'000 ? 1'000'000 / 3 : 1;
      CHECK(s.progress.phase.done() <= whole.at_yield[n - 1] + item);
      const bool through = whole.at_yield[n - 1] == s.progress.phase.total();
      CHECK((through || s.progress.phase.done() < s.progress.phase.total()));
    }
  }
}

}  // namespace scourwell::test
