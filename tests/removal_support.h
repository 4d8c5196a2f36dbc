// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "backup/ignore_list.h"
#include "results/removal.h"
#include "tests/support.h"

namespace scourwell::test {

struct Remover : Bench {
  IgnoreList ignore{m.files, m.clock, m.code_pages, kept, log, "C:\\App\\ignorespylist.txt"};
  HitList hits{ignore, settings, captions, log};
  SystemFolders folders{kAppFolder,
                        "C:\\WINDOWS",
                        "C:\\WINDOWS\\system32",
                        "",
                        "C:\\Temp",
                        "C:\\Program Files",
                        "C:\\Program Files\\Common Files",
                        {"C:\\Users\\me\\Desktop"}};
  COpSysInfo os;
  std::unique_ptr<Removal> removal;
  Registry* registry64 = nullptr;

  explicit Remover(bool nt = true) : os(Family(nt)) {
    m.files.knows_links = nt;
    settings.MarkChecked = "y";
    settings.DeleteAfterReboot = true;
    settings.UseRegEdit = true;
    for (const auto& folder : {folders.system, folders.common_files, folders.special[0]}) {
      m.Folder(folder);
    }
  }
  System& Family(bool nt) {
    if (!nt) m.system.record = {4, 10, 2222, 1, " A ", 0, 0, 0, 0};
    return m.system;
  }
  void Add(FoundObject object) { hits.AddSpyToListView({"spy", std::move(object)}); }
  // A class whose library is the one named.
  void Register(const std::string& library, const std::string& id = "{1}") {
    m.registry.Make(RootKey::ClassesRoot, "CLSID\\" + id + "\\InprocServer32").Value("", library);
  }
  void Run(const std::unordered_set<std::size_t>& left_alone = {}) {
    removal = std::make_unique<Removal>(Removal::Parts{
        {m.files, m.system, m.shell, m.pump, log, m.code_pages, os, folders, settings, m.registry},
        m.processes,
        registry64,
        captions,
        hits});
    removal->RemoveSelectedSpy(left_alone);
  }
  // One letter an object: removed, gone, pending, Refused, Failed.
  std::string States() const {
    std::string text;
    for (const RemovedObject& object : removal->report().objects) {
      text += "rgpRF"[static_cast<int>(object.result.state)];
    }
    return text;
  }
  std::string RemoveOne(FoundObject object) {
    hits.Clear();
    Add(std::move(object));
    Run();
    return States();
  }
  bool Recorded(std::string_view text) { return m.Errors().find(text) != std::string::npos; }
};

// Everything below a folder, one path a line, with sizes.
inline std::string TreeOf(FakeMachine& m, const std::string& folder) {
  std::string text;
  for (const auto& child : m.files.Find(folder)->children) {
    const std::string path = folder + "\\" + child->name;
    text += path + " " + std::to_string(child->content.size()) + "\n";
    if (child->IsFolder() && !child->IsLink()) text += TreeOf(m, path);
  }
  return text;
}

}  // namespace scourwell::test
