// SPDX-License-Identifier: MIT
#pragma once

#include <doctest/doctest.h>

#include <algorithm>
#include <vector>

#include "tests/contract/contract.h"

namespace scourwell::test {

// The folder of a machine, with names for paths.
struct OnDisk {
  std::unique_ptr<ContractMachine> machine = NewContractMachine();
  Files& files = machine->files();
  std::string root = machine->folder() + "\\";

  std::string Path(const std::string& name) { return root + name; }
  void Make(const std::string& name, const std::string& content = {}) {
    machine->MakeFile(root + name, content);
  }
  ErrorCode List(const std::string& pattern, std::vector<DirEntry>* entries) {
    const auto keep = [&](const DirEntry& entry) {
      entries->push_back(entry);
      return true;
    };
    return files.List(root + pattern, keep).code();
  }
  // The names found, in alphabetical order; "!" and the number of a failure.
  std::string Names(const std::string& pattern) {
    std::vector<DirEntry> entries;
    const ErrorCode code = List(pattern, &entries);
    std::vector<std::string> names;
    for (const DirEntry& entry : entries) names.push_back(entry.name);
    std::sort(names.begin(), names.end());
    std::string text = code ? "!" + std::to_string(code.number()) + " " : "";
    for (const std::string& name : names) text += name + " ";
    return text;
  }
  ErrorCode Stat(const std::string& name, DirEntry* entry) {
    return files.Stat(root + name, entry).code();
  }
  std::string Content(const std::string& name) {
    std::string content = "(none)";
    static_cast<void>(files.Read(root + name, 1000, &content));
    return content;
  }
};

}  // namespace scourwell::test
