// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "backup/extractor.h"
#include "guard/path_guard.h"
#include "tests/archive_support.h"

namespace scourwell::test {

// The guard of the product, which also refuses what lies below one of its paths.
class TestGuard : public RestoreGuard {
 public:
  explicit TestGuard(Files& files) : guard_(files, folders_) {}

  std::vector<std::string> refused;
  int calls = 0;

  Outcome Allow(const std::string& path, HeldWay* way) override {
    ++calls;
    for (const std::string& beginning : refused) {
      if (path.starts_with(beginning)) return Outcome::Failed(kPathFileAccess, "protected");
    }
    return guard_.Allow(path, way);
  }

 private:
  SystemFolders folders_;
  PathGuard guard_;
};

struct RestoreBench : ArchiveBench {
  TestGuard guard{m.files};
  RestoreResult result;

  // Puts back everything of the archive.
  Outcome Restore() {
    ArchiveReader reader = Reader();
    if (Outcome opened = reader.Open(kArchivePath); !opened.ok()) return opened;
    Extractor extractor(m.files, m.pump, guard);
    Outcome done = extractor.ExtractAll(reader);
    result = extractor.result();
    return done;
  }
  // Everything below a folder: path, attributes, times and content, one item a line.
  std::string Tree(const std::string& path) {
    const Node* node = m.files.Find(path);
    if (!node) return {};
    std::string text = path;
    for (const std::uint64_t number :
         {FileTime{node->attributes}, node->created, node->accessed, node->modified}) {
      text += " " + std::to_string(number);
    }
    text += " " + node->content + "\n";
    std::map<std::string, std::string> below;
    for (const auto& child : node->children) {
      below[Upper(child->name)] = Tree(path + "\\" + child->name);
    }
    for (const auto& [name, tree] : below) text += tree;
    return text;
  }
  std::string Failures() const {
    std::string text;
    for (const ItemReport& report : result.failed) {
      CHECK_FALSE(report.why.description().empty());
      text += report.path + " " + std::to_string(report.why.code().number()) + "\n";
    }
    return text;
  }
  std::string Kept() const {
    std::string text;
    for (const KeptFile& kept : result.kept) text += kept.path + " > " + kept.kept_as + "\n";
    return text;
  }
};

}  // namespace scourwell::test
