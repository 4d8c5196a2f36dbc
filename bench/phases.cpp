// SPDX-License-Identifier: MIT

// The registry, cookie and memory phases against bare walks that list the same and match nothing.
#include <string>

#include "bench/bench.h"
#include "machine/file_utils.h"
#include "platform/win/code_pages_win.h"
#include "platform/win/desktop_win.h"
#include "platform/win/files_win.h"
#include "platform/win/native_text.h"
#include "platform/win/registry_win.h"
#include "platform/win/system_win.h"
#include "scan/cookie_scan.h"
#include "scan/memory_scan.h"
#include "scan/registry_scan.h"
#include "text/text.h"

namespace scourwell::bench {
namespace {

constexpr int kClasses = 20000;
constexpr int kSignatures = 10000;
constexpr int kProcesses = 300;

class NoHits : public FindingSink {
 public:
  bool Contains(const FoundObject&) const override { return false; }
  bool Shows(const FoundObject&) const override { return true; }
  void AddSpyToListView(const Finding&) override { ++hits; }
  int hits = 0;
};

class NoProgress : public LoadProgress {
 public:
  void Begin(int) override {}
  void Advance() override {}
  void End() override {}
};

class ManyProcesses : public Processes {
 public:
  Outcome ListByStatus(const Visit& visit) override {
    for (int i = 0; i < kProcesses; ++i) {
      visit({"C:\\Program Files\\Some Program\\process" + std::to_string(i) + ".exe", 0, 32});
    }
    return {};
  }
  Outcome ListBySnapshot(const Visit& visit) override { return ListByStatus(visit); }
  std::vector<std::string> Modules(std::uint32_t) override { return {}; }
};

std::string ClassId(int number) {
  const std::string digits = Hex(static_cast<std::uint32_t>(number) * 2654435761u, 8);
  return "{" + digits + "-11D3-8A42-00C04F" + Hex(static_cast<std::uint32_t>(number), 6) + "}";
}

void MakeClasses() {
  HKEY key = nullptr;
  RegCreateKeyA(HKEY_CLASSES_ROOT, "CLSID", &key);
  char name[64];
  if (RegEnumKeyA(key, kClasses - 1, name, sizeof name) != ERROR_SUCCESS) {
    for (int i = 0; i < kClasses; ++i) {
      HKEY below = nullptr;
      RegCreateKeyA(key, ClassId(i).c_str(), &below);
      RegCloseKey(below);
    }
  }
  RegCloseKey(key);
}

// Lists values, too: those below walked keys are examined.
int BareWalk(HKEY root, const std::wstring& path) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return 0;
  wchar_t name[256];
  static BYTE data[65536];
  int keys = 0;
  for (DWORD i = 0;; ++i) {
    DWORD name_size = 256;
    DWORD size = sizeof data;
    if (RegEnumValueW(key, i, name, &name_size, nullptr, nullptr, data, &size) != ERROR_SUCCESS) {
      break;
    }
  }
  for (DWORD i = 0; RegEnumKeyW(key, i, name, 256) == ERROR_SUCCESS; ++i) {
    keys += 1 + BareWalk(root, path + L"\\" + name);
  }
  RegCloseKey(key);
  return keys;
}

void BareCookies(const char* folder) {
  WIN32_FIND_DATAW data;
  const HANDLE find = FindFirstFileW((Wide(folder) + L"\\*").c_str(), &data);
  if (find == INVALID_HANDLE_VALUE) return;
  while (FindNextFileW(find, &data)) {
  }
  FindClose(find);
}

}  // namespace

void BenchPhases(const char* cookies, const char* scratch_folder) {
  FilesWin files;
  ClockWin clock;
  SystemWin system;
  RegistryWin registry;
  CodePagesWin code_pages;
  ErrorLog log(files, clock, code_pages, "C:\\bench-errors.txt");
  AppSettings settings;
  settings.DefinitionsFolder = scratch_folder;
  SystemFolders folders;
  GapPump pump;
  NoHits sink;
  NoProgress bar;
  ScanProgress progress;
  const COpSysInfo os(system);
  ManyProcesses processes;
  MemoryScan memory({processes, system, pump, log, os, folders, sink, progress, files});
  ReferenceFile reference(files, clock, log, settings, scratch_folder);
  DefinitionLists lists;
  ListLoader loader(reference, lists, bar, pump, log, folders);

  MakeClasses();
  for (int i = 0; i < kSignatures; ++i) {
    lists.key_parts.Add({"Bench", ClassId(1000000 + i)});
  }
  const int keys = BareWalk(HKEY_CLASSES_ROOT, L"CLSID");
  std::printf("registry: %d class keys, %d signatures\n", keys, kSignatures);
  Compare(
      "deep registry pass", pump,
      [] {
        for (const wchar_t* key :
             {L"Software\\Microsoft\\Windows\\CurrentVersion\\moduleusage",
              L"SYSTEM\\CurrentControlSet\\Services\\WinSock2\\Parameters\\Protocol_Catalog9"}) {
          BareWalk(HKEY_LOCAL_MACHINE, key);
        }
        BareWalk(HKEY_CLASSES_ROOT, L"CLSID");
      },
      [&] { RegistryScan(registry, pump, log, sink, progress, lists, loader).DeepPass(); });

  // A text of beginnings of signatures makes the matcher look closely everywhere.
  const ContainmentIndex index(lists.key_parts, &KeyPart::part);
  const std::string beginning = ClassId(1000000).substr(0, 4);
  for (const std::size_t kilobytes : {64, 256, 1024}) {
    std::string text;
    while (text.size() < kilobytes * 1024) text += beginning;
    const double time = Measure([&] { static_cast<void>(index.FirstRowIn(text)); });
    std::printf("one hostile text of %d KB %.1f ms\n", static_cast<int>(kilobytes), time);
  }

  for (int i = 0; i < kSignatures; ++i) {
    lists.cookies.Add({"Bench", "tracker" + std::to_string(i) + "x"});
  }
  Compare(
      "cookie phase, 10,000 cookies", pump, [&] { BareCookies(cookies); },
      [&] {
        CookieScan(files, pump, log, sink, progress, lists.cookies).ScanCookie(cookies, false);
      });

  memory.ListProcesses();
  for (int i = 0; i < kSignatures; ++i) {
    lists.processes.Add({"Bench", "spyware" + std::to_string(i) + ".exe"});
  }
  const double matching_time = Measure([&] { memory.MatchAll(lists.processes); });
  std::printf("memory phase: %d signatures against %d processes %.1f ms\n", kSignatures,
              static_cast<int>(memory.Tasklist().size()), matching_time);
}

}  // namespace scourwell::bench
