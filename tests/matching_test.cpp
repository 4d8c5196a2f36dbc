// SPDX-License-Identifier: MIT
#include "scan/matching.h"

#include "tests/session_support.h"

namespace scourwell::test {
namespace {

struct LookingUp : ScanBench {
  LookingUp() { folders.windows = "C:\\WINDOWS"; }
  void LoadAndLookUp(const Loader& which) {
    WriteDefinitions();
    lists.fixed.Clear();
    loader.Load(which);
    Matching(m.files, m.pump, log, folders, sink).LookUp(lists.fixed);
  }
};

}  // namespace

TEST_SUITE("matching") {
  TEST_CASE("the places of direct entries are looked up in order") {
    LookingUp l;
    l.m.File("C:\\WINDOWS\\evil.exe");
    l.m.Folder("C:\\WINDOWS\\spydir");
    for (const char* path :
         {"%WIN%\\EVIL.exe", "%WIN%\\gone.exe", "%Windows%\\x.exe", "C:\\WINDOWS\\evil.exe",
          "%win%\\evil.exe", "%WIN%\\*.exe", "%WIN%\\spydir", "%PF%", "%WIN%\\EVIL.EXE"}) {
      l.definitions.Entry("SAFI", {"SAFITD", "SAFISD"}, {"spy", path});
      l.definitions.Entry("SAFO", {"SAFOTD", "SAFOSD"}, {"spy", path});
    }
    l.LoadAndLookUp(kUpdateSpyFileList);
    CHECK(l.sink.lines() == "Spy File|spy|C:\\WINDOWS\\EVIL.exe\n");
    l.LoadAndLookUp(kUpdateSpyFolderList);
    CHECK(l.sink.lines() ==
          "Spy File|spy|C:\\WINDOWS\\EVIL.exe\nSpy Folder|spy|C:\\WINDOWS\\spydir\n");
    const std::string refused =
        "Error Description: The definition does not name one absolute path, Error Number: 52, "
        "Method: checkIfFileExistsThenAddToSpyList, Path: ";
    CHECK(l.m.Errors().starts_with(refused + "%win%\\evil.exe\n"));  // of each list the first
    CHECK(l.m.Errors().find("*.exe") == std::string::npos);
    CHECK(l.m.files.Count("List %") == 0);
  }

  TEST_CASE("a definition leads to no server but where the user's own folders lie") {
    LookingUp l;
    l.folders.app_data = "\\\\home\\me\\AppData";
    for (const char* path : {"\\\\far\\share\\%win%.exe", "%CF%\\\\far\\share\\evil.exe",
                             "%CF%\\\\home\\me\\AppDataX\\evil.exe", "%AD%\\evil.exe"}) {
      l.definitions.Entry("SAFI", {"SAFITD", "SAFISD"}, {"spy", path});
    }
    l.LoadAndLookUp(kUpdateSpyFileList);
    CHECK(l.m.files.Count("List \\\\") == 1);
    CHECK(l.m.files.Count("List \\\\home\\me\\AppData\\evil.exe") == 1);
    CHECK(l.m.Errors() ==
          "Error Description: The definition names a place on another computer, Error Number: 52, "
          "Method: checkIfFileExistsThenAddToSpyList, Path: \\\\far\\share\\%win%.exe\n");
  }

  TEST_CASE("a place below a folder that the system does not know is left out silently") {
    LookingUp l;
    l.folders.windows = "";
    l.definitions.Entry("SAFI", {"SAFITD", "SAFISD"}, {"spy", "%WIN%\\evil.exe"});
    l.LoadAndLookUp(kUpdateSpyFileList);
    CHECK(l.lists.fixed.empty());
    CHECK(l.m.Errors() == "");
  }

  TEST_CASE("a stop ends the looking up at that place") {
    LookingUp l;
    for (const char* name : {"a", "b", "c"}) {
      l.m.File(std::string("C:\\WINDOWS\\") + name);
      l.lists.fixed.Add({"spy", std::string("C:\\WINDOWS\\") + name, DiskItem::File});
    }
    l.m.pump.close_at = 2;
    Matching(l.m.files, l.m.pump, l.log, l.folders, l.sink).LookUp(l.lists.fixed);
    CHECK(l.sink.found.size() == 1);
  }
}

}  // namespace scourwell::test
