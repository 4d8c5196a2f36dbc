// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

#include "offline/offline_machine.h"
#include "offline/offline_scan.h"
#include "tests/offline/temporary_folder.h"
#include "tests/support.h"

namespace scourwell::test {

// The disk that demo/make-disk makes, as drive C:.
struct PlantedDisk : TemporaryFolder {
  explicit PlantedDisk(const std::string& options = {}) {
    const std::string command = std::string("python3 -B '") + SCOURWELL_SOURCE_DIR +
                                "/demo/make-disk' " + options + " '" + path() + "/c'";
    REQUIRE(std::system(command.c_str()) == 0);
  }

  std::vector<MountedDrive> drives() const { return {{'C', path() + "/c"}}; }
  std::unique_ptr<OfflineMachine> Open() const {
    std::unique_ptr<OfflineMachine> machine;
    const Outcome opened = OfflineMachine::Open(drives(), "", &machine);
    REQUIRE_MESSAGE(opened.ok(), opened.description());
    return machine;
  }
  // What was planted, "user|kind|spy|place" in alphabetical order.
  std::string planted() const {
    std::vector<std::string> lines;
    std::istringstream rows(ReplaceAll(Content("c.planted.tsv"), "\t", "|"));
    for (std::string line; std::getline(rows, line);) lines.push_back(line);
    std::sort(lines.begin(), lines.end());
    return Lines(lines);
  }
};

// A scan of such a disk. Everything but the disk is the fake machine's.
struct OfflineBench : Bench, private ScanReport, private LoadProgress {
  OfflineBench() {
    definitions.Entry(
        "REGK", {"REGKT", "REGKK"},
        {"Hijacker.CommonName",
         "HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\"
         "Browser Helper Objects\\{1E1B2879-88FF-11D2-8D96-D7ACAC95951F}"});
    m.File("C:\\App\\Ini\\update.ref", definitions.Text());
    settings.Trojans = settings.Dialers = settings.BHO = settings.KeyLoggers =
        settings.SpywareAdware = true;
  }

  ScanScope ScopeOf(OfflineMachine& machine) {
    ScanScope scope;
    scope.FillTree(captions, machine.files().Drives());
    return scope;
  }
  OfflineScan::Parts PartsFor(OfflineMachine& machine) {
    return {machine, m.pump, log,      captions, settings,       reference,
            sink,    *this,  progress, *this,    "Z:\\Scourwell"};
  }
  // What a scan of everything finds, as PlantedDisk::planted() says it.
  std::string Scan(OfflineMachine& machine) {
    sink.found.clear();
    OfflineScan scan(PartsFor(machine));
    scan.StartScan(ScopeOf(machine));
    CHECK(scan.finished());
    return Found();
  }
  std::string Found() const {
    std::vector<std::string> lines;
    for (const Finding& finding : sink.found) {
      lines.push_back(finding.user + "|" + std::string(KindWord(KindOf(finding.object))) + "|" +
                      finding.spy + "|" + PlaceText(finding.object));
    }
    std::sort(lines.begin(), lines.end());
    return Lines(lines);
  }

  Definitions definitions;
  ScanProgress progress;
  ReferenceFile reference{m.files, m.clock, log, settings, kAppFolder};
  std::string sections;  // of the log that were asked for

 private:
  void CreateMemoryLogFile(const std::vector<ProcessEntry>&) override { sections += "memory "; }
  void CreateRegistryScanLogFile() override { sections += "registry "; }
  void CreateCookieScanLogFile() override { sections += "cookies "; }
  void CreateDriveScanLogFile() override { sections += "drives "; }
  void FinishScan() override { sections += "end "; }
  void Begin(int) override {}
  void Advance() override {}
  void End() override {}
};

}  // namespace scourwell::test
