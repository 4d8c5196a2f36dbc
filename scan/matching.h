#pragma once

#include <string>

#include "definitions/list_loader.h"
#include "platform/error_log.h"
#include "platform/files.h"
#include "platform/system_folders.h"
#include "scan/detection.h"

namespace scourwell {

// Existence checks of definitions that name one fixed path.
class Matching : public DirectChecks {
 public:
  Matching(Files& files, ErrorLog& log, const SystemFolders& folders, DetectionSink& sink)
      : files_(files), log_(log), folders_(folders), sink_(sink) {}

  // The path may hold a folder token. One that is not a plain absolute path is put on record and
  // not looked up: a definition names one object, it does not search.
  void checkIfFileExistsThenAddToSpyList(const std::string& spy, const std::string& path);
  void checkIfFolderExistsThenAddToSpyList(const std::string& spy, const std::string& path);

  void CheckFile(const std::string& spy, const std::string& path) override {
    checkIfFileExistsThenAddToSpyList(spy, path);
  }
  void CheckFolder(const std::string& spy, const std::string& path) override {
    checkIfFolderExistsThenAddToSpyList(spy, path);
  }

 private:
  Files& files_;
  ErrorLog& log_;
  const SystemFolders& folders_;
  DetectionSink& sink_;
};

}  // namespace scourwell
