// SPDX-License-Identifier: MIT
#include <doctest/doctest.h>

#include <algorithm>

#include "tests/hand_archive.h"
#include "tests/restore_support.h"

namespace scourwell::test {
namespace {

constexpr FileTime kOld = 125'000'000'000'000'000;

void Plant(FakeMachine& m) {
  m.Folder("C:\\Spy Ware\\data\\empty").System();
  m.File("C:\\Spy Ware\\Evil.exe", Noise(kArchiveBlock + 9)).ReadOnly().Hidden();
  m.File("C:\\Spy Ware\\data\\list.dat", "list").System().Times(kOld, kOld + 1);
  m.File("C:\\Spy Ware\\data\\nothing", "");
  m.Folder("C:\\Spy Ware").Hidden().ReadOnly().Times(kOld + 3, kOld + 4).created = kOld + 2;
  m.Folder("C:\\Spy Ware\\data").Times(kOld + 5, kOld + 6);
}

}  // namespace

TEST_SUITE("extractor") {
  TEST_CASE("a tree comes back as it was") {
    RestoreBench b;
    Plant(b.m);
    const std::string before = b.Tree("C:\\Spy Ware");
    REQUIRE(b.Store({"C:\\Spy Ware"}).ok());
    b.m.files.Remove("C:\\Spy Ware");
    REQUIRE(b.Restore().ok());
    CHECK(b.Failures() == "");
    CHECK(b.result.notes.empty());
    CHECK(b.result.restored == 6);
    CHECK((b.Tree("C:\\Spy Ware") == before));
    // What happens in a folder may change its times.
    const auto stamped = [&](const std::string& path) {
      const auto& journal = b.m.files.journal;
      return std::find(journal.begin(), journal.end(), "Times " + path) - journal.begin();
    };
    CHECK(stamped("C:\\Spy Ware") > stamped("C:\\Spy Ware\\data"));
    CHECK(stamped("C:\\Spy Ware\\data") > stamped("C:\\Spy Ware\\data\\empty"));
    // Once more changes nothing.
    REQUIRE(b.Restore().ok());
    CHECK(b.result.unchanged == 3);
    CHECK(b.Kept() == "");
    CHECK((b.Tree("C:\\Spy Ware") == before));
    CHECK(b.m.files.Find("C:\\Spy Ware")->holds == 0);
  }

  TEST_CASE("a folder that is missing on the way is made, and only when the file comes back") {
    RestoreBench b;
    b.m.File("C:\\a\\b\\c\\file", "content");
    REQUIRE(b.Store({"C:\\a\\b\\c\\file"}).ok());
    b.m.files.Remove("C:\\a");
    std::string damaged = b.m.Content(kArchivePath);
    damaged[37] ^= 1;
    std::swap(damaged, b.m.files.Find(kArchivePath)->content);
    REQUIRE(b.Restore().ok());
    CHECK(b.Failures() == "C:\\a\\b\\c\\file 57\n");
    CHECK_FALSE(b.m.Has("C:\\a"));
    b.m.files.Find(kArchivePath)->content = damaged;
    REQUIRE(b.Restore().ok());
    CHECK(b.m.Content("C:\\a\\b\\c\\file") == "content");
    CHECK(b.guard.calls > 2);  // asked again about what was made
  }

  TEST_CASE("what lies there meanwhile") {
    struct Row {
      const char* content;
      int age;  // against the stored file
      std::uint32_t attributes;
      const char* kept;
    };
    constexpr char kAside[] = "C:\\file > C:\\file.kept3\n";
    for (const Row& row : {Row{"older", -1, kArchive, ""},
                           {"older", -1, kReadOnly | kHidden | kSystem, ""},
                           {"newer", 1, kReadOnly, kAside},
                           {"other", 0, kArchive, kAside}}) {
      CAPTURE(std::string(row.content));
      RestoreBench b;
      b.m.File("C:\\file", "right").Hidden().Times(kOld, kOld);
      const std::string before = b.Tree("C:\\file");
      REQUIRE(b.Store({"C:\\file"}).ok());
      Node& there = b.m.File("C:\\file", row.content);
      there.attributes = row.attributes;
      there.modified = kOld + static_cast<FileTime>(row.age);
      b.m.File("C:\\file.kept", "first");
      b.m.Folder("C:\\file.kept2");
      REQUIRE(b.Restore().ok());
      CHECK(b.Failures() == "");
      CHECK(b.Kept() == row.kept);
      CHECK(b.Tree("C:\\file") == before);
      const Node* kept = b.m.files.Find("C:\\file.kept3");
      REQUIRE((kept != nullptr) == (row.kept[0] != '\0'));
      if (kept) {
        CHECK(kept->content == row.content);
        CHECK(kept->attributes == row.attributes);
      }
      CHECK(b.m.Content("C:\\file.kept") == "first");
    }
  }

  TEST_CASE("wrong content never takes a place") {
    RestoreBench b;
    b.m.File("C:\\file", Noise(3 * kArchiveBlock)).Times(kOld, kOld);
    b.m.File("C:\\other", "other");
    REQUIRE(b.Store({"C:\\file", "C:\\other"}).ok());
    std::string& archive = b.m.files.Find(kArchivePath)->content;
    archive[3 * kArchiveBlock] ^= 1;  // in the last block
    b.m.File("C:\\file", "what is there").ReadOnly().Times(kOld - 1, kOld);
    b.m.files.Remove("C:\\other");
    const std::string before = b.Tree("C:\\file");
    REQUIRE(b.Restore().ok());
    CHECK(b.Failures() == "C:\\file 57\n");
    CHECK(b.Tree("C:\\file") == before);
    CHECK(b.m.Content("C:\\other") == "other");
  }

  TEST_CASE("hostile places are refused one by one") {
    RestoreBench b;
    b.m.Folder("C:\\precious");
    b.m.Link("C:\\link", "C:\\precious");
    b.m.Folder("C:\\folder");
    b.m.File("C:\\file", "file");
    b.guard.refused = {"C:\\WINDOWS"};
    const std::pair<int, std::vector<const char*>> hostile[] = {
        {1,
         {"C:\\x\\..\\precious\\a", "..\\a", "a", "\\\\host\\share\\a", "\\\\.\\C:\\a", "C:a",
          "C:\\a\\", "C:\\file:stream", "C:\\WINDOWS\\a", "C:\\link\\a", "C:\\link\\new\\a",
          "C:\\link", "C:\\folder", "C:\\file\\a", "Q:\\a"}},
        {2, {"C:\\link\\sub", "C:\\link", "C:\\file"}}};
    HandArchive archive;
    archive.Add(1, "C:\\first", "1");
    for (const auto& [kind, paths] : hostile) {
      for (const char* path : paths) archive.Add(kind, path, kind == 2 ? "" : "x");
    }
    archive.Add(1, std::string("C:\\precious\\a\0b", 15), "x");
    archive.Add(1, "C:\\last", "2");
    b.m.File(kArchivePath).content = archive.Make();
    REQUIRE(b.Restore().ok());
    CHECK(b.result.failed.size() == archive.items.size() - 2);
    CHECK(b.result.restored == 2);
    CHECK(b.Names("C:\\") == "App\nBackup\nprecious\nlink\nfolder\nfile\nfirst\nlast\n");
    CHECK(b.Names("C:\\Backup") == "one.qzp\n");
    CHECK(b.Names("C:\\precious") == "");
    CHECK(b.m.Content("C:\\file") == "file");
  }

  TEST_CASE("a folder that is swapped for a link while a restore runs leads nowhere") {
    RestoreBench b;
    b.m.File("C:\\spy\\sub\\file", "x");
    b.m.Folder("C:\\precious");
    REQUIRE(b.Store({"C:\\spy"}).ok());
    b.m.files.Remove("C:\\spy");
    // Between two items; within one, the folders are held.
    b.m.pump.on_yield = [&] {
      if (!b.m.Has("C:\\spy\\sub") || b.m.files.Find("C:\\spy\\sub")->holds > 0) return;
      b.m.files.Remove("C:\\spy\\sub");
      b.m.Link("C:\\spy\\sub", "C:\\precious");
    };
    const std::string before = b.Tree("C:\\precious");
    REQUIRE(b.Restore().ok());
    CHECK(b.Failures() == "C:\\spy\\sub\\file 75\n");
    CHECK(b.result.notes.size() == 1);
    CHECK(b.Tree("C:\\precious") == before);
  }

  TEST_CASE("what takes the place while the content comes stays") {
    for (const bool link : {false, true}) {
      RestoreBench b;
      b.m.File("C:\\spy", "x");
      b.m.File("C:\\precious", "y");
      REQUIRE(b.Store({"C:\\spy"}).ok());
      b.m.files.Remove("C:\\spy");
      b.m.files.before_change = [&] {
        if (b.m.Has("C:\\spy")) return;
        link ? b.m.Link("C:\\spy", "C:\\precious") : b.m.Folder("C:\\spy");
      };
      REQUIRE(b.Restore().ok());
      b.m.files.before_change = nullptr;
      CHECK(b.Failures() == "C:\\spy 75\n");
      CHECK((b.m.files.Find("C:\\spy")->IsFolder() || link));
      CHECK(b.m.Content("C:\\precious") == "y");
    }
  }

  TEST_CASE("a locked file, a full disk and attributes that refuse are reported") {
    RestoreBench b;
    b.m.File("C:\\locked", "right").Times(kOld, kOld);
    b.m.File("C:\\free", "right");
    REQUIRE(b.Store({"C:\\locked", "C:\\free"}).ok());
    b.m.File("C:\\locked", "there").Times(kOld + 1, kOld).Locked();
    b.m.files.Remove("C:\\free");
    b.m.files.faults["Times C:\\free"] = kPermissionDenied;
    REQUIRE(b.Restore().ok());
    CHECK(b.Failures() == "C:\\locked 70\n");
    CHECK(b.m.Content("C:\\locked") == "there");
    CHECK(b.m.Content("C:\\free") == "right");
    REQUIRE(b.result.notes.size() == 1);
    CHECK(b.result.notes[0].path == "C:\\free");
    b.m.files.Remove("C:\\free");
    b.m.files.free_space = 3;
    REQUIRE(b.Restore().ok());
    CHECK(b.Failures() == "C:\\locked 61\nC:\\free 61\n");
    CHECK_FALSE(b.m.Has("C:\\free"));
  }

  TEST_CASE("closing stops between two blocks") {
    RestoreBench b;
    b.m.File("C:\\one", Noise(3 * kArchiveBlock)).Times(kOld, kOld);
    b.m.File("C:\\two", "2");
    REQUIRE(b.Store({"C:\\one", "C:\\two"}).ok());
    b.m.File("C:\\one", "there").modified = kOld - 1;
    b.m.files.Remove("C:\\two");
    b.m.pump.close_at = b.m.pump.yields + 3;
    CHECK_FALSE(b.Restore().ok());
    CHECK(b.m.Content("C:\\one") == "there");
    CHECK_FALSE(b.m.Has("C:\\two"));
  }
}

}  // namespace scourwell::test
