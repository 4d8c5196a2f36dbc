#pragma once

#include <string>

#include "definitions/list_loader.h"
#include "machine/error_log.h"
#include "machine/system_folders.h"
#include "platform/files.h"
#include "scan/finding.h"
#include "scan/memory_scan.h"

namespace scourwell {

// What definitions ask at once: does this one path exist, does this process run.
class Matching : public DirectChecks {
 public:
  Matching(Files& files, ErrorLog& log, const SystemFolders& folders, FindingSink& sink,
           MemoryScan& memory)
      : files_(files), log_(log), folders_(folders), sink_(sink), memory_(memory) {}

  // The path may hold a folder token. One that is not a plain absolute path is not looked up: a
  // definition names one object, it does not search. Nor is one that leads to another computer. The
  // first of a list is put on record.
  void checkIfFileExistsThenAddToSpyList(const std::string& spy, const std::string& path);
  void checkIfFolderExistsThenAddToSpyList(const std::string& spy, const std::string& path);

  void BeginList() override { refused_ = false; }
  void CheckFile(const std::string& spy, const std::string& path) override {
    checkIfFileExistsThenAddToSpyList(spy, path);
  }
  void CheckFolder(const std::string& spy, const std::string& path) override {
    checkIfFolderExistsThenAddToSpyList(spy, path);
  }
  void CheckProcess(const std::string& spy, const std::string& process) override {
    memory_.MatchAll(spy, process);
  }

 private:
  bool MayLookUp(const std::string& path) const;
  Outcome Refuse(const std::string& path);

  Files& files_;
  ErrorLog& log_;
  const SystemFolders& folders_;
  FindingSink& sink_;
  MemoryScan& memory_;
  bool refused_ = false;  // something of this list
};

}  // namespace scourwell
