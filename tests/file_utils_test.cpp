// SPDX-License-Identifier: MIT
#include "machine/file_utils.h"

#include "tests/support.h"

namespace scourwell::test {

TEST_SUITE("file_utils") {
  TEST_CASE("paths are joined and split at the last backslash") {
    CHECK(AddPathToFileName("C:\\a", "b") == "C:\\a\\b");
    CHECK(AddPathToFileName("C:\\", "b") == "C:\\b");
    CHECK(AddPathToFileName("", "b") == "\\b");
    CHECK(FullPath_With_Filename(" C:\\App ", "x.ini") == "C:\\App\\x.ini");
    CHECK(FileNamePart("C:\\a\\b.c") == "b.c");
    CHECK(FileNamePart("b.c") == "b.c");
    CHECK(FolderPart("C:\\a\\b.c") == "C:\\a");
    CHECK(FolderPart("b.c") == "");
  }

  // Dots and blanks that Windows drops do not hide a parent or a device.
  TEST_CASE("plain paths") {
    const auto all_are = [](bool plain, const std::vector<std::string>& paths) {
      for (const std::string& path : paths) {
        CAPTURE(path);
        CHECK(IsPlainPath(path) == plain);
      }
    };
    all_are(true, {"C:\\x", "c:\\Program Files\\a b.exe", "\\\\server\\share\\x", "C:\\a\\.hidden",
                   "C:\\caf\u00E9", "C:\\a~1", "C:\\console\\x", "C:\\", "C:\\%win%\\x"});
    all_are(false, {"", "x", "C:", "C:x", "\\x", "%win%\\x", "1:\\x", "\\\\\\x", "\\\\s"});
    all_are(false, {"C:/x", "C:\\*.exe", "C:\\a?", "C:\\a:b", "C:\\a|b", "C:\\\"a\"", "C:\\a\x01"});
    all_are(false, {"C:\\..\\x", "C:\\a\\.", "C:\\a\\..", "C:\\a\\.. \\x", "C:\\a\\... \\x"});
    all_are(false, {"C:\\nul", "C:\\a\\Com1.txt\\x", "C:\\nul .txt", "C:\\ nul", "\\\\.\\C:\\x",
                    "\\\\?\\C:\\x"});
  }

  TEST_CASE("existence is asked of the listing") {
    FakeMachine m;
    m.File("C:\\d\\f.txt").Hidden().System();
    m.Folder("C:\\empty");
    m.Folder("C:\\denied").Denied();
    for (const auto& [path, file, folder] :
         Rows<std::string, bool, bool>{{"C:\\d\\F.TXT", true, false},
                                       {"C:\\d\\*.txt", true, false},
                                       {"C:\\d", false, true},
                                       {"C:\\empty", false, true},
                                       {"C:\\", false, true},
                                       {"C:\\denied", false, false},
                                       {"C:\\none\\f", false, false},
                                       {"", false, false}}) {
      CAPTURE(path);
      CHECK(FileExists(m.files, path) == file);
      CHECK(FolderExists(m.files, path) == folder);
    }
  }

  TEST_CASE("skipped folders") {
    const auto skipped = [](const char* name, std::uint32_t attributes = kFolder) {
      return DoWeSkipThisFolder("C:\\", {name, "", attributes, 0, 0, 0});
    };
    for (const char* name :
         {".", "..", "recycler", "RECYCLED", "System volume information", "$RECYCLE.BIN"}) {
      CHECK(skipped(name));
    }
    CHECK(skipped("Documents", kFolder | kLink));
    CHECK_FALSE(skipped("Documents"));
    CHECK_FALSE(skipped("Recycler2"));
  }

  TEST_CASE("processes, errors and the setting file") {
    Bench b;
    b.m.processes.running = {{"C:\\spy.exe", 7}, {"C:\\App\\Scourwell.exe", 4711}};
    CHECK(KillProcessById(4711, b.m.system, b.m.pump).code() == kPermissionDenied);
    CHECK(KillProcessById(7, b.m.system, b.m.pump).ok());
    CHECK(Lines(b.m.system.journal) == "Terminate 7\n");
    CHECK(RetrieveError(b.m.system) == "error 5");
    CHECK(WriteINIString(b.m.profiles, b.m.code_pages, kAppFolder, "KEY", "value").ok());
    CHECK(b.m.Content("C:\\App\\Setting.ini") == "[Setting]\r\nKEY=value\r\n");
  }

  TEST_CASE("only a drive's own recycler is skipped") {
    for (const char* parent : {"C:\\sub", "\\\\server\\share"}) {
      CHECK_FALSE(DoWeSkipThisFolder(parent, {"RECYCLER", "", kFolder, 0, 0, 0}));
      CHECK(DoWeSkipThisFolder(parent, {"RECYCLER", "", kFolder | kLink, 0, 0, 0}));
    }
  }

  TEST_CASE("images that start before the logon have plain paths") {
    struct Row {
      const char* path;
      const char* plain;
    };
    for (const Row& row :
         {Row{"\\SystemRoot\\System32\\smss.exe", "C:\\WINNT\\System32\\smss.exe"},
          {"\\??\\C:\\WINNT\\system32\\csrss.exe", "C:\\WINNT\\system32\\csrss.exe"},
          {"\\\\?\\D:\\x.exe", "D:\\x.exe"},
          {"\\??\\Volume\\x.exe", "\\??\\Volume\\x.exe"},
          {"C:\\SystemRoot\\x.exe", "C:\\SystemRoot\\x.exe"},
          {"", ""}}) {
      CHECK(PlainImagePath(row.path, "C:\\WINNT") == row.plain);
    }
  }
}

}  // namespace scourwell::test
