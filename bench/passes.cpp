// SPDX-License-Identifier: MIT

// The folder pass and the file pass, both together, against a bare walk that lists each folder once
// and compares nothing.
#include <string>

#include "bench/bench.h"
#include "bench/stand_ins.h"
#include "machine/error_log.h"
#include "platform/win/code_pages_win.h"
#include "platform/win/desktop_win.h"
#include "platform/win/files_win.h"
#include "platform/win/native_text.h"
#include "scan/drive_scan.h"
#include "text/captions.h"

namespace scourwell::bench {
namespace {

constexpr int kRounds = 9;

struct Walked {
  int files = 0;
  int folders = 0;
};

void BareWalk(const std::wstring& folder, Walked* walked) {
  ++walked->folders;
  std::vector<std::wstring> subfolders;
  WIN32_FIND_DATAW data;
  const HANDLE find = FindFirstFileW((folder + L"\\*").c_str(), &data);
  if (find == INVALID_HANDLE_VALUE) return;
  do {
    const std::wstring name = data.cFileName;
    if (name == L"." || name == L"..") continue;
    if (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) {
      subfolders.push_back(name);
    } else {
      ++walked->files;
    }
  } while (FindNextFileW(find, &data));
  FindClose(find);
  for (const std::wstring& name : subfolders) BareWalk(folder + L"\\" + name, walked);
}

// One row in five with a wildcard; one names a file of every folder.
DefinitionList<SearchedName> Rows(int count, DiskItem item) {
  DefinitionList<SearchedName> list;
  for (int i = 0; i < count; ++i) {
    const std::string number = std::to_string(i * 7919 % 1000003);
    std::string signature = "spyware" + number + ".dll";
    if (i % 5 == 0) {
      const char* const kWild[] = {"toolbar", "dialer?x", "popup", "hijack", "trackr"};
      const std::string stem = kWild[i / 5 % 5];
      signature = i % 10 == 0 ? stem + number + "*.*" : "*" + stem + number + ".exe";
    }
    if (i == 1) signature = "f7.dat";
    list.Add({"Bench", signature, item});
  }
  return list;
}

}  // namespace

void BenchWalk(const char* tree) {
  Walked walked;
  const double took = Measure([&] { BareWalk(Wide(tree), &walked); });
  std::printf("walk: %.1f ms\n", took);
}

void BenchPasses(const char* tree) {
  FilesWin files;
  ClockWin clock;
  CodePagesWin code_pages;
  ErrorLog log(files, clock, code_pages, "C:\\bench-errors.txt");
  PlainCaptions captions;
  ScanProgress progress;
  GapPump pump;
  const std::wstring wide_tree = Wide(tree);
  Walked walked;
  BareWalk(wide_tree, &walked);  // warms the disk cache
  std::printf("tree: %d files in %d folders\n", walked.files, walked.folders);

  for (const int rows : {100, 1000, 10000, 100000}) {
    const DefinitionList<SearchedName> folders = Rows(rows, DiskItem::Folder);
    const DefinitionList<SearchedName> names = Rows(rows, DiskItem::File);
    Figures bare, passes, ratio, build;
    CountingSink sink;
    pump.Restart();
    for (int i = 0; i < kRounds; ++i) {
      Walked again;
      bare.values.push_back(Measure([&] { BareWalk(wide_tree, &again); }));
      pump.Restart();
      double built = 0;
      passes.values.push_back(Measure([&] {
        const double start = Milliseconds();
        DriveScan scan({files, pump, log, captions, sink, progress}, folders, names);
        built = Milliseconds() - start;
        scan.ScanPaths({tree});
        scan.ScanFiles();
      }));
      build.values.push_back(built);
      ratio.values.push_back(passes.values.back() / bare.values.back());
    }
    std::printf(
        "both passes, %6d rows each: bare walk %6.1f ms, passes %6.1f ms (of it indexes %4.1f ms), "
        "ratio %.2f (%.2f to %.2f), %d hits, longest time between yields %.1f ms\n",
        rows, bare.Median(), passes.Median(), build.Median(), ratio.Median(), ratio.Min(),
        ratio.Max(), sink.hits / kRounds, pump.longest());
  }
}

}  // namespace scourwell::bench
