// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <functional>

#include "scan/matching.h"
#include "scan/scan_session.h"
#include "tests/support.h"

namespace scourwell::test {

// The parts of a scan, without the session that drives them.
struct ScanBench : Bench, private LoadProgress {
  SystemFolders folders;
  DefinitionLists lists;
  ScanProgress progress;
  COpSysInfo os{m.system};
  MemoryScan memory{{m.processes, m.system, m.pump, log, os, folders, sink, progress, m.files}};
  Matching matching{m.files, m.pump, log, folders, sink};
  ReferenceFile reference{m.files, m.clock, log, settings, kAppFolder};
  ListLoader loader{reference, lists, *this, m.pump, log, folders};
  Definitions definitions;

  void WriteDefinitions() { m.File("C:\\App\\Ini\\update.ref", definitions.Text()); }

 private:
  void Begin(int) override {}
  void Advance() override {}
  void End() override {}
};

// A machine on which every category of the definitions has one folder and one file to find.
struct Session : ScanBench, private ScanReport {
  Session() {
    m.AddDrive('D');
    for (const std::string letter : {"T", "D", "H", "K", "S"}) {
      m.File("D:\\" + letter + "file.exe");
      m.Folder("D:\\" + letter + "folder");
      definitions.Entry(letter + "AFI", {letter + "AFIT", letter + "AFIS"},
                        {letter, letter + "file.exe"});
      definitions.Entry(letter + "AFO", {letter + "AFOT", letter + "AFOS"},
                        {letter, letter + "folder"});
    }
    WriteDefinitions();
    settings.Trojans = settings.Dialers = settings.BHO = settings.KeyLoggers =
        settings.SpywareAdware = true;
    scope.FillTree(captions, {{'D', DriveKind::Fixed}});
    m.pump.on_yield = [this] {
      if (look) look();
      Note(progress.lblScanStatus + " " + progress.lblScanOption);
      folder_rows = std::ranges::count(lists.searched, DiskItem::Folder, &SearchedName::item);
    };
  }

  ScanScope scope;
  BuiltInLists built_in{lists, folders, m.pump, log};
  ScanSession session{{m.files, m.registry, nullptr, m.pump, log, m.shell, captions, settings,
                       lists, built_in, loader, memory, m.versions, os, folders, sink, *this,
                       progress}};
  std::function<void()> look;  // at each yield
  std::vector<std::string> events;
  std::ptrdiff_t folder_rows = 0;  // in the last pass

  bool Noted(std::string_view event) const {
    return std::find(events.begin(), events.end(), event) != events.end();
  }
  std::string Spies() const {
    std::string spies;
    for (const Finding& finding : sink.found) {
      spies += finding.spy + (KindOf(finding.object) == FindingKind::Folder ? "/" : " ");
    }
    return spies;
  }

 private:
  void Note(const std::string& event) {
    if (events.empty() || events.back() != event) events.push_back(event);
  }
  void CreateMemoryLogFile(const std::vector<ProcessEntry>&) override { Note("memory log"); }
  void CreateRegistryScanLogFile() override { Note("registry log"); }
  void CreateCookieScanLogFile() override { Note("cookie log"); }
  void CreateDriveScanLogFile() override { Note("log"); }
  void FinishScan() override { Note("finish"); }
};

}  // namespace scourwell::test
