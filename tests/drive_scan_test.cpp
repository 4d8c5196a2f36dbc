// SPDX-License-Identifier: MIT
#include "scan/drive_scan.h"

#include <algorithm>

#include "machine/file_utils.h"
#include "tests/support.h"

namespace scourwell::test {
namespace {

struct Pass : Bench {
  Pass() { m.AddDrive('D'); }

  DefinitionList<SearchedName> list;
  ScanProgress progress;

  void FileRow(std::string_view name) { list.Add({"spy", name, DiskItem::File}); }
  void FolderRow(std::string_view name) { list.Add({"spy", name, DiskItem::Folder}); }

  DefinitionList<SearchedName> none;
  DriveScan::Parts Parts() { return {m.files, m.pump, log, captions, sink, progress}; }
  DriveScan Scan() {
    sink.found.clear();
    return DriveScan(Parts(), list, none);
  }
  // The rows as those of the folder pass.
  std::string Walk(const std::string& root) {
    m.files.journal.clear();
    Scan().ScanPaths({root});
    return sink.lines();
  }
  std::string Walked() const {
    std::string folders;
    bool first = true;  // asks whether the path is a folder at all
    for (const std::string& call : m.files.journal) {
      if (!call.starts_with("List ")) continue;
      if (!first) folders += call.substr(5) + "\n";
      first = false;
    }
    return folders;
  }
};

}  // namespace

TEST_SUITE("drive_scan") {
  TEST_CASE("each folder is listed once, parents before their subfolders") {
    Pass pass;
    pass.m.File("D:\\r\\b\\x\\1.exe");
    pass.m.File("D:\\r\\a\\2.exe");
    pass.m.File("D:\\r\\3.exe");
    pass.m.Folder("D:\\System Volume Information");
    pass.m.Folder("D:\\recycler\\S-1-5");
    pass.m.Folder("D:\\Recycled");
    pass.m.Link("D:\\r\\loop", "D:\\r");
    pass.m.Folder("D:\\r\\a\\Hidden one").Hidden().System();
    for (int i = 0; i < 50; ++i) pass.FileRow("nothing" + std::to_string(i) + (i % 2 ? "" : "*"));
    CHECK(pass.Walk("D:\\") == "");
    CHECK(pass.Walked() ==
          "D:\\r\\*.*\nD:\\r\\b\\*.*\nD:\\r\\b\\x\\*.*\nD:\\r\\a\\*.*\n"
          "D:\\r\\a\\Hidden one\\*.*\n");
    CHECK(pass.progress.lblSFolders == 6);
    CHECK(pass.progress.lblFScan == 6);
    CHECK(pass.progress.scanned_files == 3);
    CHECK(pass.progress.lblScan == "D:\\r\\a\\Hidden one");
  }

  TEST_CASE("a row is confirmed once in a folder, however many entries answer it") {
    Pass pass;
    for (const char n : {'1', '2', '3'}) pass.m.File(std::string("D:\\r\\evil") + n + ".exe");
    pass.FileRow("evil*.exe");
    pass.Walk("D:\\r");
    CHECK(pass.sink.found.size() == 3);
    CHECK(pass.Walked() == "D:\\r\\*.*\nD:\\r\\evil*.exe\n");
  }

  TEST_CASE("a link that is named itself is reported but neither searched nor emptied") {
    Pass pass;
    pass.m.File("C:\\Documents\\letter.txt");
    pass.m.Link("D:\\r\\evil", "C:\\Documents");
    pass.m.Link("D:\\r\\sub\\evil", "C:\\Documents");
    pass.FolderRow("evil");
    pass.FolderRow("e*l");
    pass.FileRow("letter.txt");
    pass.FileRow("evil\\letter.txt");
    pass.FileRow("sub\\evil\\letter.txt");
    CHECK(pass.Walk("D:\\r") == "Spy Folder|spy|D:\\r\\evil\nSpy Folder|spy|D:\\r\\sub\\evil\n");
  }

  TEST_CASE("an unreadable or vanished folder gives one record and the rest goes on") {
    Pass pass;
    pass.m.File("D:\\r\\bad\\evil.exe");
    pass.m.Folder("D:\\r\\bad").Denied();
    pass.m.Folder("D:\\r\\gone").VanishAfter(2);
    pass.m.File("D:\\r\\good\\evil.exe");
    pass.m.Folder("D:\\r\\spy").Denied();
    pass.FileRow("evil.exe");
    pass.FolderRow("spy");
    CHECK(pass.Walk("D:\\r") == "Spy Folder|spy|D:\\r\\spy\nSpy File|spy|D:\\r\\good\\evil.exe\n");
    CHECK(pass.m.Failures() ==
          "70 FindFiles, sPath: D:\\r\\spy\n"
          "70 subShowFolderList, File Name: bad, sFolder: D:\\r\\bad\n"
          "76 subShowFolderList, File Name: gone, sFolder: D:\\r\\gone\n"
          "70 subShowFolderList, File Name: spy, sFolder: D:\\r\\spy\n");
  }

  TEST_CASE("a failing confirmation is recorded, an absent path is not") {
    Pass pass;
    pass.m.File("D:\\r\\sub\\evil.exe");
    pass.m.files.faults["List D:\\r\\sub\\evil.exe"] = kDeviceError;
    pass.FileRow("sub\\none\\evil.exe");
    pass.FileRow("sub\\evil.exe");
    CHECK(pass.Walk("D:\\r") == "");
    CHECK(pass.m.Failures() == "57 subFileSearch, retFolderName: sub\\evil.exe, sPath: D:\\r\n");
  }

  TEST_CASE("names of every script and paths of any length are found as they stand") {
    std::string deep = "D:\\r";
    while (deep.size() < 5000) deep += "\\" + std::string(200, 'd');
    for (const std::string& folder :
         {deep, std::string("D:\\r\\\u8868\u30BD"), std::string("D:\\r\\\uFF0E\uFF0E"),
          std::string("D:\\r\\\uFF0E\uFF3C\uFF0E"), std::string("D:\\r\\aux."),
          std::string("D:\\r\\half \xED\xA0\x80")}) {
      Pass pass;
      pass.m.File(folder + "\\\u0141\U0001F600.evl");
      pass.m.File(folder + "\\evil.exe");
      pass.m.File(folder + "\\ev\u0131l.exe");
      pass.FileRow("*.evl");
      pass.FileRow("evil.exe");
      CAPTURE(folder);
      CHECK(pass.Walk("D:\\r") == "Spy File|spy|" + folder + "\\\u0141\U0001F600.evl\n" +
                                      "Spy File|spy|" + folder + "\\evil.exe\n");
      CHECK(pass.m.Errors() == "");
    }
  }

  TEST_CASE("unusable signatures are reported once and never listed") {
    Pass pass;
    pass.m.File("D:\\r\\a\\x");
    const std::vector<std::string> unusable = {"..\\x", "C:\\x", "a|b",  "nul", "COM1.txt",
                                               "a*\\x", "a\\",   "a/x",  "...", "",
                                               " ",     "a\\..", "a\tb", "a:b", "a\\.\\x"};
    for (const std::string& signature : unusable) pass.FileRow(signature);
    CHECK(pass.Walk("D:\\r") == "");
    CHECK(pass.Walked() == "D:\\r\\*.*\nD:\\r\\a\\*.*\n");
    CHECK(pass.m.Errors() ==
          "Error Description: 15 signatures cannot be searched for, "
          "Error Number: 52, Method: subFileSearch, First: ..\\x\n");
  }

  // Windows drops a dot at the end of a folder's name and reads doubled "\" as one.
  TEST_CASE("unusual spellings of a relative path find what the listing finds") {
    for (const std::string signature : {"sub\\evil.exe", "sub.\\evil.exe", "SUB\\\\evil.exe",
                                        "\\sub\\evil.exe", "sub\\evil.exe.", "sub\\ev?l.*"}) {
      CAPTURE(signature);
      Pass pass;
      pass.m.File("D:\\r\\sub\\evil.exe");
      pass.FileRow(signature);
      // One spelling of the path, else the same file would be listed under each.
      CHECK(Upper(pass.Walk("D:\\r")) == "SPY FILE|SPY|D:\\R\\SUB\\EVIL.EXE\n");
    }
    Pass pass;
    pass.m.File("D:\\r\\evil.exe");
    pass.m.Folder("D:\\r\\spy");
    pass.FileRow("\\evil.exe");
    pass.FolderRow("\\spy");
    CHECK(pass.Walk("D:\\r") == "Spy File|spy|D:\\r\\evil.exe\nSpy Folder|spy|D:\\r\\spy\n");
  }

  TEST_CASE("ticked drives that are ready are walked in tree order") {
    Pass pass;
    pass.m.AddDrive('A', DriveKind::Removable, false);
    pass.m.AddDrive('E', DriveKind::Optical);
    pass.m.AddDrive('F', DriveKind::Network);
    for (const char letter : std::string("CDEF")) {
      pass.m.File(std::string(1, letter) + ":\\evil.exe");
    }
    pass.FileRow("evil.exe");
    ScanScope scope;
    scope.FillTree(pass.captions, pass.m.files.Drives());
    const auto scan = [&] {
      pass.Scan().ScanDrives(scope);
      return pass.sink.lines();
    };
    CHECK(scan() ==
          "Spy File|spy|C:\\evil.exe\nSpy File|spy|D:\\evil.exe\n"
          "Spy File|spy|F:\\evil.exe\n");
    CHECK(pass.progress.lblScanOption == "<1841> - F: (<1910>) ...");
    CHECK(pass.m.files.Count("List A:") == 0);
    CHECK(pass.m.Errors() == "");
    scope.SetTicked(ScanScope::kFirstDrive + 2, false);
    CHECK(scan() == "Spy File|spy|C:\\evil.exe\nSpy File|spy|F:\\evil.exe\n");
  }

  TEST_CASE("a path that names a file is compared alone") {
    Pass pass;
    pass.m.File("D:\\r\\Evil Program.exe");
    pass.m.File("D:\\r\\other.exe");
    pass.FileRow("none");
    pass.FileRow("*.exe");
    pass.FileRow("EVILPR~1.EXE");
    pass.FolderRow("Evil*");
    CHECK(pass.Walk("D:\\r\\evil program.exe") == "Spy File|spy|D:\\r\\Evil Program.exe\n");
    pass.list.Clear();
    pass.FileRow("*l prog*.exe");
    CHECK(pass.Walk("D:\\r\\EVILPR~1.EXE") == "Spy File|spy|D:\\r\\Evil Program.exe\n");
    CHECK(pass.m.Errors() == "");
    CHECK(pass.Walk("D:\\r\\absent") == "");
    CHECK(pass.m.Failures() == "53 ScanFolder, sPath: D:\\r\\absent\n");
  }
}

}  // namespace scourwell::test
