// SPDX-License-Identifier: MIT

// Two definitions files, one beside the other: loading them, and the passes over a tree with their
// rows.
#include <string>

#include "bench/bench.h"
#include "bench/stand_ins.h"
#include "definitions/list_loader.h"
#include "platform/win/code_pages_win.h"
#include "platform/win/desktop_win.h"
#include "platform/win/files_win.h"

namespace scourwell::bench {
namespace {

constexpr int kRounds = 15;
constexpr int kLoads = 20;  // in a round: one takes few milliseconds

const Loader* const kSearched[] = {
    &kUpdateTrojanList,           &kUpdateDialersFolderList,  &kUpdateHijackersFolderList,
    &kUpdateKeyLoggersFolderList, &kUpdateSpyFolderList,      &kUpdateDialersFileList,
    &kUpdateHijackersFileList,    &kUpdateKeyLoggersFileList, &kUpdateSpyFileList};
const Loader* const kOthers[] = {&kUpdateMemoryList,
                                 &kUpdateRegistrySVList,
                                 &kUpdateRegistryKList,
                                 &kUpdateRegistryKOList,
                                 &kUpdateCookieList,
                                 &kUpdateSearchByCompanyList,
                                 &kUpdateSearchByOriginalFileName,
                                 &kUpdateSearchByInternalFileName,
                                 &kUpdateSearchByProductName};

struct Machine {
  FilesWin files;
  ClockWin clock;
  CodePagesWin code_pages;
  ErrorLog log{files, clock, code_pages, "C:\\bench-errors.txt"};
  GapPump pump;
};

class NoProgress : public LoadProgress {
 public:
  void Begin(int) override {}
  void Advance() override {}
  void End() override {}
};

// The update.ref of one folder.
class File {
 public:
  File(Machine& machine, const char* folder) : machine_(machine) {
    settings_.DefinitionsFolder = folder;
  }

  double Load() {
    return Measure([&] {
             for (int i = 0; i < kLoads; ++i) {
               ReferenceFile reference(machine_.files, machine_.clock, machine_.log, settings_,
                                       "C:\\");
               lists_ = {};
               DefinitionLists others;
               ListLoader loader(reference, lists_, no_progress_, machine_.pump, machine_.log,
                                 folders_);
               ListLoader other_loader(reference, others, no_progress_, machine_.pump, machine_.log,
                                       folders_);
               for (const Loader* each : kSearched) loader.Load(*each);
               for (const Loader* each : kOthers) other_loader.Load(*each);
             }
           }) /
           kLoads;
  }

  // Both passes, with the making of their indexes.
  double Pass(const char* tree) {
    return Measure([&] {
      DriveScan scan({machine_.files, machine_.pump, machine_.log, captions_, sink_, progress_},
                     lists_.searched, lists_.searched);
      scan.ScanPaths({tree});
      scan.ScanFiles();
    });
  }

  std::size_t rows() const { return lists_.searched.size(); }

 private:
  Machine& machine_;
  AppSettings settings_;
  SystemFolders folders_;
  DefinitionLists lists_;
  NoProgress no_progress_;
  PlainCaptions captions_;
  CountingSink sink_;
  ScanProgress progress_;
};

}  // namespace

void BenchDefinitions(const char* tree, const char* old_folder, const char* new_folder) {
  Machine machine;
  File before(machine, old_folder);
  File after(machine, new_folder);
  Figures loads[2], passes[2], ratio, whole;
  before.Load();
  before.Pass(tree);  // warms the disk cache
  for (int i = 0; i < kRounds; ++i) {
    loads[0].values.push_back(before.Load());
    loads[1].values.push_back(after.Load());
    passes[0].values.push_back(before.Pass(tree));
    passes[1].values.push_back(after.Pass(tree));
    ratio.values.push_back(passes[1].values.back() / passes[0].values.back());
    whole.values.push_back((loads[1].values.back() + passes[1].values.back()) /
                           (loads[0].values.back() + passes[0].values.back()));
  }
  std::printf("loading: before %.2f ms, after %.2f ms\n", loads[0].Median(), loads[1].Median());
  std::printf("passes, %u and %u rows: before %.1f ms, after %.1f ms, ratio %.2f (%.2f to %.2f)\n",
              static_cast<unsigned>(before.rows()), static_cast<unsigned>(after.rows()),
              passes[0].Median(), passes[1].Median(), ratio.Median(), ratio.Min(), ratio.Max());
  std::printf("loading and passes: ratio %.3f (%.2f to %.2f)\n", whole.Median(), whole.Min(),
              whole.Max());
}

}  // namespace scourwell::bench
