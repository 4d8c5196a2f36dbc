// SPDX-License-Identifier: MIT

// Every write, rename and deletion fails once.
#include <doctest/doctest.h>

#include "tests/restore_support.h"

namespace scourwell::test {
namespace {

constexpr FileTime kStored = 125'000'000'000'000'000;
constexpr ErrorCode kErrors[] = {kDiskFull, kPermissionDenied};

// Whether some file of the folder holds the text.
bool Survives(RestoreBench& b, const std::string& folder, const std::string& text) {
  for (const auto& child : b.m.files.Find(folder)->children) {
    if (child->content == text) return true;
  }
  return false;
}

}  // namespace

TEST_SUITE("archive_faults") {
  TEST_CASE("a backup is whole or not there, whatever fails") {
    for (const std::uint64_t volume_size : {0, 600}) {
      for (const ErrorCode error : kErrors) {
        bool done = false;
        for (std::size_t failing = 1; !done; ++failing) {
          CAPTURE(failing);
          RestoreBench b;
          b.m.File("C:\\spy\\noise", Noise(1500));
          b.m.File("C:\\spy\\text", "text");
          b.m.File("C:\\Backup\\other.qzp", "other");
          const std::string before = b.Tree("C:\\spy");
          b.m.files.failing_change = failing;
          b.m.files.change_error = error;
          done = b.Store({"C:\\spy"}, {volume_size, {}}).ok();
          CHECK(done == (b.m.files.changes < failing));
          CHECK(b.m.Has(kArchivePath) == done);
          if (!done) CHECK(b.Names("C:\\Backup") == "other.qzp\n");
          CHECK(b.m.Content("C:\\Backup\\other.qzp") == "other");
          CHECK(b.Tree("C:\\spy") == before);
          REQUIRE(failing < 100);
        }
      }
    }
  }

  TEST_CASE("a restore loses nothing, whatever fails") {
    for (const ErrorCode error : kErrors) {
      bool done = false;
      for (std::size_t failing = 1; !done; ++failing) {
        CAPTURE(failing);
        RestoreBench b;
        for (const char* name : {"new", "older", "newer"}) {
          const std::string path = std::string("C:\\spy\\") + name;
          b.m.File(path, std::string("stored ") + name).Times(kStored, kStored);
        }
        b.m.File("C:\\spy\\deep\\below\\file", "stored below");
        REQUIRE(b.Store({"C:\\spy"}).ok());
        const std::string archive = b.m.Content(kArchivePath);
        b.m.files.Remove("C:\\spy\\deep");
        b.m.files.Remove("C:\\spy\\new");
        b.m.File("C:\\spy\\older", "there older").ReadOnly().System().modified = kStored - 1;
        b.m.File("C:\\spy\\newer", "there newer").Hidden().modified = kStored + 1;
        b.m.files.changes = 0;
        b.m.files.failing_change = failing;
        b.m.files.change_error = error;
        REQUIRE(b.Restore().ok());
        done = b.m.files.changes < failing;
        CHECK((b.result.failed.empty() && b.result.notes.empty()) == done);
        CHECK(b.result.failed.size() + b.result.notes.size() <= 1);

        const std::string older = b.m.Content("C:\\spy\\older");
        const bool replaced = older == "stored older";
        CHECK((replaced || older == "there older"));
        if (!replaced) {
          CHECK(b.m.files.Find("C:\\spy\\older")->attributes == (kArchive | kReadOnly | kSystem));
        }
        CHECK(Survives(b, "C:\\spy", "there newer"));
        CHECK(b.m.Has("C:\\spy\\newer"));
        const Node* fresh = b.m.files.Find("C:\\spy\\new");
        CHECK((!fresh || fresh->content == "stored new"));
        // A file that did not come back is named.
        if (!fresh || !replaced) CHECK(b.result.failed.size() == 1);
        CHECK(b.m.Content(kArchivePath) == archive);
        REQUIRE(failing < 100);
      }
    }
  }
}

}  // namespace scourwell::test
