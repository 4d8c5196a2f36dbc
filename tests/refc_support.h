// SPDX-License-Identifier: MIT
#pragma once

// What the tests of the definitions tool share: a disk in memory, and the tool run on it.

#include <map>

#include "refc/commands.h"
#include "tests/support.h"

namespace scourwell::test {

class FakeDisk : public refc::Disk {
 public:
  std::map<std::string, std::string> files;  // a folder is what "/" follows
  bool full = false;                         // nothing can be written

  bool IsFolder(const std::string& path) override { return !List(path).empty(); }
  std::vector<std::string> List(const std::string& folder) override {
    std::vector<std::string> names;
    for (const auto& [path, content] : files) {
      if (path.starts_with(folder + "/")) names.push_back(path.substr(folder.size() + 1));
    }
    return names;
  }
  std::optional<std::string> Read(const std::string& path) override {
    const auto file = files.find(path);
    if (file == files.end()) return std::nullopt;
    return file->second;
  }
  std::unique_ptr<NewFile> Create(const std::string& path) override {
    return std::make_unique<New>(*this, path);
  }

 private:
  class New : public NewFile {
   public:
    New(FakeDisk& disk, std::string path) : disk_(disk), path_(std::move(path)) {}
    void Append(std::string_view text) override { content_ += text; }
    bool Commit() override {
      if (!disk_.full) disk_.files[path_] = content_;
      return !disk_.full;
    }

   private:
    FakeDisk& disk_;
    std::string path_;
    std::string content_;
  };
};

struct Tool {
  FakeDisk disk;
  std::string out;
  std::string err;

  // The exit code; `out` and `err` hold this run's words.
  int Run(const std::vector<std::string>& words) {
    out.clear();
    err.clear();
    return refc::Run(words, disk,
                     {[this](std::string_view text) { out += text; },
                      [this](std::string_view text) { err += text; }});
  }
  // The reference file of a source; empty when it has mistakes.
  std::string Build(const std::string& name, const std::string& source) {
    disk.files[name] = source;
    disk.files.erase("made.ref");
    Run({"build", name, "-o", "made.ref"});
    return disk.files["made.ref"];
  }
  std::string Dump(const std::string& reference) {
    disk.files["dumped.ref"] = reference;
    CHECK(Run({"dump", "dumped.ref"}) == 0);
    return out;
  }
};

// The sources of the default file, by their names; empty where the tests run for Windows.
inline std::map<std::string, std::string> ShippedSources() {
  std::map<std::string, std::string> sources;
  const std::string folder = SCOURWELL_SOURCE_DIR "/definitions/reference";
  const auto disk = refc::MakeDisk();
  for (const std::string& name : disk->List(folder)) {
    if (const auto content = disk->Read(folder + "/" + name)) sources["ref/" + name] = *content;
  }
#ifndef _WIN32
  REQUIRE(sources.size() > 5);
#endif
  return sources;
}

}  // namespace scourwell::test
