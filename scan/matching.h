// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "definitions/definition_list.h"
#include "machine/error_log.h"
#include "machine/system_folders.h"
#include "platform/files.h"
#include "platform/pump.h"
#include "scan/finding.h"

namespace scourwell {

// Definitions that name one place: is there such a file or folder?
class Matching {
 public:
  Matching(Files& files, Pump& pump, ErrorLog& log, const SystemFolders& folders, FindingSink& sink)
      : files_(files), pump_(pump), log_(log), folders_(folders), sink_(sink) {}

  // Looks the places of a list up, in its order.
  void LookUp(const DefinitionList<FixedPlace>& places);

  // The path may hold a folder token. One that is not a plain absolute path is not looked up: a
  // definition names one object, it does not search. Nor is one that leads to another computer. The
  // first of a list is put on record.
  void checkIfFileExistsThenAddToSpyList(const Evidence& evidence, std::string_view path);
  void checkIfFolderExistsThenAddToSpyList(const Evidence& evidence, std::string_view path);

 private:
  bool MayLookUp(const std::string& path) const;
  Outcome Refuse(const std::string& path);

  Files& files_;
  Pump& pump_;
  ErrorLog& log_;
  const SystemFolders& folders_;
  FindingSink& sink_;
  bool refused_ = false;  // something of this list
};

}  // namespace scourwell
