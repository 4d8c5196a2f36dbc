// SPDX-License-Identifier: MIT
#include "tests/removal_support.h"

namespace scourwell::test {

TEST_SUITE("removal_folders") {
  TEST_CASE("a folder that is swapped for a link while it is emptied") {
    Remover r;
    r.m.File("C:\\Precious\\letter.txt", "dear");
    r.m.File("C:\\Evil\\a\\x.exe", "x");
    r.m.File("C:\\Evil\\b\\x.exe", "x");
    bool swapped = false;
    r.m.pump.on_yield = [&] {
      if (swapped || r.m.Has("C:\\Evil\\b\\x.exe")) return;
      swapped = true;
      r.m.files.Remove("C:\\Evil\\a");
      r.m.Link("C:\\Evil\\a", "C:\\Precious");
    };
    CHECK(r.RemoveOne(FoundFolder{"C:\\Evil"}) == "r");
    CHECK(swapped);
    CHECK(r.m.Has("C:\\Precious\\letter.txt"));
    CHECK_FALSE(r.m.Has("C:\\Evil"));
  }

  TEST_CASE("of a folder in use all goes but what cannot, which stays as it was") {
    Remover r;
    r.settings.DeleteAfterReboot = false;
    r.m.File("C:\\Evil\\a\\used.exe", "x").Locked();
    r.m.Folder("C:\\Evil\\a").Hidden().ReadOnly();
    r.m.File("C:\\Evil\\a\\x.exe", "x");
    r.m.File("C:\\Evil\\b\\x.exe", "x");
    CHECK(r.RemoveOne(FoundFolder{"C:\\Evil"}) == "F");
    CHECK(TreeOf(r.m, "C:\\Evil") == "C:\\Evil\\a 0\nC:\\Evil\\a\\used.exe 1\n");
    CHECK(r.m.files.Find("C:\\Evil\\a")->attributes == (kFolder | kHidden | kReadOnly));
    CHECK(r.Recorded("spyFolderName: C:\\Evil"));
  }

  TEST_CASE("a folder in use waits for the next start, what lies in it first") {
    for (const bool nt : {true, false}) {
      Remover r(nt);
      r.m.File("C:\\Evil\\a\\used.exe", "x").Running();
      CHECK(r.RemoveOne(FoundFolder{"C:\\Evil"}) == "p");
      CHECK(r.m.Has("C:\\Evil") == !nt);
      const std::string aside = "C:\\WINDOWS\\~scw0000.del";
      CHECK(Lines(r.m.system.journal) + r.m.Content("C:\\WINDOWS\\WinInit.ini") ==
            (nt ? "Delete " + aside + "\\used.exe\nDelete " + aside + "\n"
                : "[Rename]\r\nNUL=C:\\Evil\\a\\used.exe\r\nDIRNUL=C:\\Evil\\a\r\n"
                  "DIRNUL=C:\\Evil\r\n"));
      r.m.Restart();
      CHECK_FALSE((r.m.Has("C:\\Evil") || r.m.Has(aside)));
    }
  }

  TEST_CASE(
      "a folder with a file that cannot be moved waits where users cannot make a link of it") {
    for (const bool open : {false, true}) {
      Remover r;
      r.m.File("C:\\Evil\\deep\\held.exe", "x").Locked();
      if (open) r.m.Folder("C:\\Evil").OpenToUsers();
      CHECK(r.RemoveOne(FoundFolder{"C:\\Evil"}) == (open ? "F" : "p"));
      CHECK(Lines(r.m.system.journal) ==
            (open ? ""
                  : "Delete C:\\Evil\\deep\\held.exe\nDelete C:\\Evil\\deep\nDelete C:\\Evil\n"));
      r.m.File("C:\\Evil\\another's.txt", "x");
      r.m.Restart();
      CHECK(r.m.Has("C:\\Evil\\deep") == open);
      CHECK(r.m.Has("C:\\Evil\\another's.txt"));
      CHECK(r.RemoveOne(FoundFolder{"C:\\Evil"}) == "r");
    }
  }

  TEST_CASE("what goes of a folder after all is off the list, and the folder stays on it") {
    for (const bool nt : {true, false}) {
      for (const bool whole : {true, false}) {
        CAPTURE(nt);
        CAPTURE(whole);
        Remover r(nt);
        r.m.File("C:\\Evil\\one.exe", "x").Locked();
        r.m.File("C:\\Evil\\two.exe", "x").Locked();
        CHECK(r.RemoveOne(FoundFolder{"C:\\Evil"}) == "p");
        r.m.files.Find("C:\\Evil\\one.exe")->locked = false;
        if (whole) r.m.files.Find("C:\\Evil\\two.exe")->locked = false;
        CHECK(r.RemoveOne(FoundFile{"C:\\Evil\\one.exe"}) == "r");
        if (whole) {
          CHECK(r.RemoveOne(FoundFolder{"C:\\Evil"}) == "r");
          r.m.File("C:\\Evil\\two.exe", "another's");
          CHECK(r.RemoveOne(FoundFile{"C:\\Evil\\one.exe"}) == "g");
        }
        r.m.Restart();
        CHECK(r.m.Has("C:\\Evil") == whole);
      }
    }
  }

  TEST_CASE("what lies where a folder was named, or a folder where a file was, stays") {
    Remover r;
    r.m.File("C:\\Evil", "x");
    r.m.File("C:\\Dir\\letter.txt", "dear");
    CHECK(r.RemoveOne(FoundFolder{"C:\\Evil"}) == "R");
    CHECK(r.RemoveOne(FoundFile{"C:\\Dir"}) == "g");
    CHECK((r.m.Has("C:\\Evil") && r.m.Has("C:\\Dir\\letter.txt")));
  }

  TEST_CASE("a removal that is stopped within a folder leaves the rest of it, and says so") {
    Remover r;
    for (const char* name : {"1", "2", "3"}) r.m.File(std::string("C:\\Evil\\") + name, "x");
    r.m.pump.on_yield = [&] {
      if (!r.m.Has("C:\\Evil\\3")) r.m.pump.set_closing(true);
    };
    CHECK(r.RemoveOne(FoundFolder{"C:\\Evil"}) == "F");
    CHECK(r.m.files.Find("C:\\Evil")->children.size() == 2);
    CHECK(r.hits.row(0).result->why.reason() == Caption::ReasonStopped);
  }
}

}  // namespace scourwell::test
