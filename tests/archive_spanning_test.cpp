// SPDX-License-Identifier: MIT

// Archives in several pieces.
#include <doctest/doctest.h>

#include "tests/archive_support.h"

namespace scourwell::test {
namespace {

struct Spanned : ArchiveBench {
  std::string content = Noise(5000);
  std::vector<std::string> asked;

  Spanned() {
    m.File("C:\\spy\\big", content);
    m.File("C:\\spy\\small", "small");
    m.AddDrive('D');
    m.Folder("D:\\disk");
  }
  Outcome StoreSpanned(NextVolume next = {}) { return Store({"C:\\spy"}, {1000, std::move(next)}); }
  // The first failure.
  ErrorCode Verify(FindVolume find = {}) {
    ArchiveReader reader = Reader();
    if (const Outcome opened = reader.Open(kArchivePath, std::move(find)); !opened.ok()) {
      return opened.code();
    }
    const std::vector<ItemReport> damaged = reader.Verify();
    if (damaged.empty()) CHECK((ItemText(reader, 1) == content));
    return damaged.empty() ? kNoError : damaged[0].why.code();
  }
  FindVolume Answer(const std::string& folder) {
    return [this, folder](std::uint32_t number, const std::string& name, const Outcome& problem) {
      asked.push_back(std::to_string(number) + " " + name + " " +
                      std::to_string(problem.code().number()));
      return asked.size() > 3 ? std::string() : folder;
    };
  }
  std::string& Piece(const std::string& ending) {
    return m.files.Find("C:\\Backup\\one." + ending)->content;
  }
};

}  // namespace

TEST_SUITE("archive_spanning") {
  TEST_CASE("volumes have their size, and the last piece lists all") {
    Spanned b;
    REQUIRE(b.StoreSpanned().ok());
    CHECK(b.Names("C:\\Backup") == "one.q01\none.q02\none.q03\none.q04\none.q05\none.qzp\n");
    CHECK(b.Piece("qzp").size() <= 1000);
    CHECK(b.Verify() == kNoError);
    for (const std::string ending : {"q01", "q02", "q03", "q04", "q05"}) {
      CHECK(b.Piece(ending).size() == 1000);
      b.m.files.Remove("C:\\Backup\\one." + ending);
    }
    ArchiveReader reader = b.Reader();
    REQUIRE(reader.Open(kArchivePath).ok());
    CHECK(reader.items().size() == 3);
    CHECK(reader.volumes() == 6);
    // What lies in the last piece can still be had.
    CHECK(ArchiveBench::ItemText(reader, 1) == "(53)");
    CHECK(ArchiveBench::ItemText(reader, 2) == "small");
  }

  TEST_CASE("an index that does not fit beside the data has the last piece for itself") {
    Spanned b;
    for (int i = 0; i < 30; ++i) b.m.File("C:\\spy\\e" + std::to_string(i));
    REQUIRE(b.StoreSpanned().ok());
    CHECK(b.Piece("q06").size() < 1000);
    CHECK(b.Piece("qzp").size() > 1000);
    CHECK(b.Verify() == kNoError);
    b.Piece("q02") += "what a full disk left behind the data is ignored";
    CHECK(b.Verify() == kNoError);
  }

  TEST_CASE("a missing, foreign, swapped or cut volume is asked for") {
    struct Row {
      const char* what;
      ErrorCode expected;
      void (*change)(Spanned&);
    };
    const Row rows[] = {
        {"missing", kFileNotFound, [](Spanned& b) { b.m.files.Remove("C:\\Backup\\one.q02"); }},
        {"swapped", kTypeMismatch, [](Spanned& b) { b.Piece("q02") = b.Piece("q03"); }},
        {"foreign", kTypeMismatch,
         [](Spanned& b) {
           const std::string old = b.Piece("q02");
           REQUIRE(b.Store({"C:\\spy"}, {1000, {}}, nullptr, "C:\\Backup\\other.qzp").ok());
           b.Piece("q02") = b.m.Content("C:\\Backup\\other.q02");
           REQUIRE((b.Piece("q02").substr(32) == old.substr(32)));
         }},
        {"cut", kPastEndOfFile, [](Spanned& b) { b.Piece("q02").pop_back(); }},
        {"cut in its header", kPastEndOfFile, [](Spanned& b) { b.Piece("q02").resize(20); }},
        {"damaged header", kDeviceError, [](Spanned& b) { b.Piece("q02")[17] ^= 1; }},
        {"no volume", kTypeMismatch, [](Spanned& b) { b.Piece("q02") = Noise(1000); }},
    };
    for (const Row& row : rows) {
      CAPTURE(std::string(row.what));
      Spanned b;
      REQUIRE(b.StoreSpanned().ok());
      b.m.File("D:\\disk\\one.q02", b.Piece("q02"));
      row.change(b);
      CHECK(b.Verify() == row.expected);
      CHECK(b.Verify(b.Answer("D:\\disk")) == kNoError);
      REQUIRE(b.asked.size() == 1);
      CHECK(b.asked[0].starts_with("2 one.q02 "));
      // Asked until the answer is empty, and not once more.
      b.asked.clear();
      CHECK(b.Verify(b.Answer("D:\\wrong")) == kFileNotFound);
      CHECK(b.asked.size() == 4);
    }
  }

  TEST_CASE("pieces go where the user says") {
    Spanned b;
    std::string asked;
    REQUIRE(b.StoreSpanned([&](const VolumeRequest& request) {
               asked +=
                   request.file_name + " " + std::to_string(request.problem.code().number()) + "\n";
               if (request.number == 2 && request.problem.ok()) return std::string("D:\\none");
               return std::string(request.number == 6 ? "C:\\Backup" : "D:\\disk");
             }).ok());
    CHECK(asked == "one.q02 0\none.q02 76\none.q03 0\none.q04 0\none.q05 0\none.q06 0\n");
    CHECK(b.Names("C:\\Backup") == "one.q01\none.qzp\n");
    CHECK(b.Names("D:\\disk") == "one.q02\none.q03\none.q04\none.q05\n");
    CHECK(b.Verify(b.Answer("D:\\disk")) == kNoError);
    // Once found, the place is tried for the others without asking.
    CHECK(b.asked.size() == 1);
  }

  TEST_CASE("giving up, or a volume in the way, removes what was written") {
    Spanned b;
    CHECK(b.StoreSpanned([](const VolumeRequest& request) {
             return std::string(request.number == 4 ? "" : "D:\\disk");
           }).code() == kPathNotFound);
    CHECK(b.Names("C:\\Backup") == "");
    CHECK(b.Names("D:\\disk") == "");
    b.m.File("C:\\Backup\\one.q03", "somebody's");
    CHECK(b.StoreSpanned().code() == kFileExists);
    CHECK(b.Names("C:\\Backup") == "one.q03\n");
    CHECK(b.Piece("q03") == "somebody's");
  }

  TEST_CASE("a volume on a changed disk is not taken for our own") {
    Spanned b;
    CHECK_FALSE(b.StoreSpanned([&](const VolumeRequest& request) {
                   if (request.number == 3) b.Piece("q01") = "another disk";
                   return std::string(request.number == 4 ? "" : "C:\\Backup");
                 }).ok());
    CHECK(b.Names("C:\\Backup") == "one.q01\n");
  }

  TEST_CASE("where a disk is full, the archive goes on elsewhere") {
    // The space left, in steps that end in headers, data, index and nothing.
    for (std::uint64_t space = 0; space <= 5600; space += 16) {
      CAPTURE(space);
      Spanned b;
      b.m.files.free_space = space;
      int questions = 0;
      const NextVolume next = [&](const VolumeRequest& request) {
        ++questions;
        CHECK(request.problem.code() == kDiskFull);
        b.m.files.free_space = 1'000'000;
        return std::string("D:\\disk");
      };
      REQUIRE(b.Store({"C:\\spy"}, {0, next}).ok());
      if (questions == 0) continue;
      CHECK(questions == 1);
      b.m.File(kArchivePath).content = b.m.Content("D:\\disk\\one.qzp");
      CHECK(b.Verify() == kNoError);
    }
  }

  TEST_CASE("a disk that stays full ends the archive") {
    for (const std::uint64_t space : {0, 40, 700, 5100}) {
      CAPTURE(space);
      Spanned b;
      b.m.files.free_space = space;
      CHECK(b.Store({"C:\\spy"}).code() == kDiskFull);
      CHECK(b.Names("C:\\Backup") == "");
      b.m.files.free_space = space;
      const NextVolume next = [](const VolumeRequest&) { return std::string("D:\\disk"); };
      CHECK(b.Store({"C:\\spy"}, {0, next}).code() == kDiskFull);
      CHECK(b.Names("C:\\Backup") + b.Names("D:\\disk") == "");
    }
  }
}

}  // namespace scourwell::test
