// SPDX-License-Identifier: MIT
#pragma once

#include "backup/backups.h"
#include "tests/support.h"

namespace scourwell::test {

enum class Ticked { ByDefault, All };

inline Outcome RestoreAll(Backups& backups, const std::string& key, RestoreResult* result,
                          const FindVolume& find = {}, Ticked ticked = Ticked::ByDefault) {
  std::unique_ptr<RestoreRun> run;
  if (Outcome opened = backups.Open(key, find, &run); !opened.ok()) return opened;
  const std::vector<bool> all(run->items().size(), true);
  return backups.Restore(*run, ticked == Ticked::All ? all : run->AllButDoubtful(), result);
}

struct Manager : Bench {
  SystemFolders folders{kAppFolder, "C:\\WINDOWS", "C:\\WINDOWS\\system32", "", "", "", "", {}};
  COpSysInfo os{m.system};
  Backups backups{{m.files, m.registry, nullptr, m.clock, m.pump, m.shell, m.system, kept, log,
                   m.code_pages, os, folders, settings}};
  std::vector<Finding> rows;
  RestoreResult restored;

  Manager() {
    settings.BackupFolder = "C:\\My backups";
    m.Folder("C:\\My backups");
    m.Folder("C:\\WINDOWS\\system32");
  }
  void Add(FoundObject object) { rows.push_back({"Evil", std::move(object)}); }
  BackupReport Create(const std::string& name, ArchiveOptions options = {}) {
    std::vector<const Finding*> pointers;
    for (const Finding& row : rows) pointers.push_back(&row);
    return backups.Create(name, pointers, std::move(options));
  }
  Outcome Restore(const std::string& key) { return RestoreAll(backups, key, &restored); }
  std::string Names() {
    std::string text;
    for (const auto& child : m.files.Find("C:\\My backups")->children) text += child->name + " ";
    return text;
  }
};

}  // namespace scourwell::test
