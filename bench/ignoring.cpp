// SPDX-License-Identifier: MIT

// Detections against a long ignore list. The bare work is reading the file and walking through it.
#include <algorithm>
#include <string>

#include "backup/ignore_list.h"
#include "bench/bench.h"
#include "machine/file_utils.h"
#include "platform/win/code_pages_win.h"
#include "platform/win/desktop_win.h"
#include "platform/win/files_win.h"
#include "results/hit_list.h"

namespace scourwell::bench {
namespace {

constexpr int kRecords = 100'000;
constexpr int kDetections = 10'000;

// No row is shown here.
class NoCaptions : public Captions {
 public:
  std::string Text(Caption) const override { return {}; }
};

class NothingKept : public KeptTexts {
 public:
  std::string Get(const std::string&, const std::string&) override { return {}; }
  Outcome Set(const std::string&, const std::string&, const std::string&) override { return {}; }
};

std::string Name(int number) { return "C:\\folder\\file " + std::to_string(number) + ".dll"; }

}  // namespace

void BenchIgnoring(const char* scratch_folder) {
  FilesWin files;
  ClockWin clock;
  CodePagesWin code_pages;
  ErrorLog log(files, clock, code_pages, AddPathToFileName(scratch_folder, "errors.txt"));
  const std::string path = AddPathToFileName(scratch_folder, "ignorespylist.txt");
  std::string text;
  for (int i = 0; i < kRecords; ++i) text += IgnoreLine({"Spy File", Name(i), "Adware.Some"});
  if (!files.Replace(path, text).ok()) return;
  AppSettings settings;
  GapPump pump;
  NothingKept kept;
  const NoCaptions captions;
  std::size_t quotes = 0;
  const auto bare = [&] {
    std::string content;
    static_cast<void>(files.Read(path, IgnoreList::kLargest, &content));
    quotes += static_cast<std::size_t>(std::count(content.begin(), content.end(), '"'));
  };
  std::size_t rows = 0;
  const auto ours = [&] {
    IgnoreList ignore(files, clock, code_pages, kept, log, path);
    HitList hits(ignore, settings, captions, log);
    // Every second one is excluded.
    for (int i = 0; i < kDetections; ++i) {
      hits.AddSpyToListView({"Adware", FoundFile{Name(kRecords + (i % 2 ? i : -i - 1))}});
    }
    rows = hits.size();
  };
  Compare("100,000 records, 10,000 hits", pump, bare, ours);
  std::printf("  %u rows of %d shown; quotation marks seen: %u\n", static_cast<unsigned>(rows),
              kDetections, static_cast<unsigned>(quotes));
}

}  // namespace scourwell::bench
