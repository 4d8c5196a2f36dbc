// SPDX-License-Identifier: MIT

// Loading twenty sequences of 10,001 entries, and the system's own look-up of single values.
#include <string>

#include "bench/bench.h"
#include "definitions/list_loader.h"
#include "machine/file_utils.h"
#include "platform/win/code_pages_win.h"
#include "platform/win/desktop_win.h"
#include "platform/win/files_win.h"

namespace scourwell::bench {
namespace {

constexpr int kEntries = 10001;
constexpr int kSamples = 200;

// The sequences of a scan that end in lists of texts: twenty.
bool IsLoaded(const Sequence& sequence) {
  switch (sequence.kind) {
    case DefinitionKind::DirectFile:
    case DefinitionKind::DirectFolder:
    case DefinitionKind::Process:
    case DefinitionKind::Description:
    case DefinitionKind::Checksum:
      return false;
    default:
      return sequence.count_key != nullptr;
  }
}

const Loader* const kLoaders[] = {&kUpdateTrojanList,
                                  &kUpdateDialersFileList,
                                  &kUpdateDialersFolderList,
                                  &kUpdateHijackersFileList,
                                  &kUpdateHijackersFolderList,
                                  &kUpdateKeyLoggersFileList,
                                  &kUpdateKeyLoggersFolderList,
                                  &kUpdateSpyFileList,
                                  &kUpdateSpyFolderList,
                                  &kUpdateRegistrySVList,
                                  &kUpdateRegistryKList,
                                  &kUpdateRegistryKOList,
                                  &kUpdateCookieList,
                                  &kUpdateSearchByCompanyList,
                                  &kUpdateSearchByOriginalFileName,
                                  &kUpdateSearchByInternalFileName,
                                  &kUpdateSearchByProductName};

class NoProgress : public LoadProgress {
 public:
  void Begin(int) override {}
  void Advance() override {}
  void End() override {}
};

std::string Scrambled(std::string text) {
  for (char& c : text) c = static_cast<char>(c + 12);
  return text;
}

// The file, with one section after the other; `*sequences` counts what it holds.
std::string ReferenceText(int* sequences) {
  std::string text;
  std::string counts = "[NTOT]\r\n";
  *sequences = 0;
  for (const Sequence& sequence : Catalogue()) {
    if (!IsLoaded(sequence)) continue;
    ++*sequences;
    text.append("[").append(sequence.section).append("]\r\n");
    for (int n = 0; n < kEntries; ++n) {
      const std::string number = std::to_string(n);
      text += number + sequence.keys[0] + "=" + Scrambled("Adware.Bench" + number) + "\r\n";
      text += number + sequence.keys[1] + "=" + Scrambled("spyware" + number + ".dll") + "\r\n";
      if (sequence.keys[2]) {
        text += number + sequence.keys[2] + "=" + Scrambled("value" + number) + "\r\n";
      }
    }
    counts += std::string(sequence.count_key) + "=" + Scrambled(std::to_string(kEntries)) + "\r\n";
  }
  return text + counts;
}

// Its size in megabytes; 0 when it could not be written.
double WriteReference(Files& files, const std::string& path, int* sequences) {
  const std::string text = ReferenceText(sequences);
  return files.Replace(path, text).ok() ? static_cast<double>(text.size()) / 1e6 : 0;
}

double SystemLookUp(const std::string& file) {
  char value[2000];
  return Measure([&] {
           for (int i = 0; i < kSamples; ++i) {
             const std::string key = std::to_string(i * 49) + "SAFIS";
             GetPrivateProfileStringA("SAFI", key.c_str(), "", value, sizeof value, file.c_str());
           }
         }) /
         kSamples;
}

}  // namespace

void BenchLoading(const char* scratch_folder) {
  FilesWin files;
  ClockWin clock;
  CodePagesWin code_pages;
  ErrorLog log(files, clock, code_pages, "C:\\bench-errors.txt");
  AppSettings settings;
  settings.DefinitionsFolder = scratch_folder;
  const std::string path = AddPathToFileName(scratch_folder, "update.ref");
  int sequences = 0;
  const double megabytes = WriteReference(files, path, &sequences);
  if (megabytes == 0) {
    std::printf("cannot write %s\n", path.c_str());
    return;
  }
  PrintMemory("writing the file");
  SystemFolders folders;
  NoProgress progress;
  GapPump pump;
  Figures times;
  std::size_t rows = 0;
  for (int i = 0; i < 5; ++i) {
    ReferenceFile reference(files, clock, log, settings, scratch_folder);
    DefinitionLists lists;
    ListLoader loader(reference, lists, progress, pump, log, folders);
    pump.Restart();
    times.values.push_back(Measure([&] {
      for (const Loader* each : kLoaders) loader.Load(*each);
    }));
    rows = lists.searched.size() + lists.key_parts.size() + lists.values.size() +
           lists.keys.size() + lists.cookies.size() + lists.program_texts.size();
  }
  const double ours = times.Median() / static_cast<double>(rows * 2);
  const double system = SystemLookUp(path);
  std::printf(
      "loading %d sequences of %d entries (%.1f MB, %d rows): %.0f ms (%.0f to %.0f), "
      "longest time between yields %.1f ms\n",
      sequences, kEntries, megabytes, static_cast<int>(rows), times.Median(), times.Min(),
      times.Max(), pump.longest());
  std::printf(
      "one look-up: %.2f us; GetPrivateProfileStringA on the same file: %.0f us "
      "(%d samples), ratio %.0f\n",
      ours * 1000, system * 1000, kSamples, system / ours);
  files.EraseFile(path).ok();
}

}  // namespace scourwell::bench
