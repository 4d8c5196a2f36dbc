// Archives that are cut off, damaged or made to harm.
#include <doctest/doctest.h>

#include "tests/archive_support.h"
#include "tests/hand_archive.h"

namespace scourwell::test {
namespace {

constexpr std::uint64_t kFourGigabytes = 1ull << 32;
constexpr std::uint64_t kMost = ~0ull;

// 0 when the archive opens and all of it reads well.
int ReadAll(ArchiveBench& b, const std::string& bytes) {
  b.m.File(kArchivePath).content = bytes;
  ArchiveReader reader = b.Reader();
  if (const Outcome opened = reader.Open(kArchivePath); !opened.ok()) {
    CHECK(reader.items().empty());
    CHECK_FALSE(opened.description().empty());
    return opened.number();
  }
  const std::vector<ItemReport> damaged = reader.Verify();
  return damaged.empty() ? 0 : damaged[0].why.number();
}

HandArchive Good() {
  HandArchive archive;
  archive.Add(1, "C:\\one", "first");
  archive.Add(2, "C:\\folder");
  archive.Add(3, "x.reg", "REGEDIT4");
  return archive;
}

// All items and what they hold.
std::string Contents(ArchiveBench& b) {
  ArchiveReader reader = b.Reader();
  REQUIRE(reader.Open(kArchivePath).ok());
  std::string text;
  for (std::size_t i = 0; i < reader.items().size(); ++i) {
    const ArchiveItem& item = reader.items()[i];
    text += item.path + " " + std::to_string(item.attributes) + " " +
            std::to_string(item.times.modified) + " " + ArchiveBench::ItemText(reader, i) + "\n";
  }
  return text;
}

std::string SmallArchive(ArchiveBench& b) {
  b.m.File("C:\\spy\\text", std::string(200, 't'));
  b.m.File("C:\\spy\\noise", Noise(40));
  b.m.Folder("C:\\spy\\empty");
  REQUIRE(b.Store({"C:\\spy"}).ok());
  return b.m.Content(kArchivePath);
}

}  // namespace

TEST_SUITE("archive_damage") {
  TEST_CASE("an archive made from the description of the format is read") {
    ArchiveBench b;
    b.m.File(kArchivePath).content = Good().Make();
    ArchiveReader reader = b.Reader();
    REQUIRE(reader.Open(kArchivePath).ok());
    REQUIRE(reader.items().size() == 3);
    CHECK(ArchiveBench::ItemText(reader, 0) == "first");
    CHECK(ArchiveBench::ItemText(reader, 1) == "");
    CHECK(ArchiveBench::ItemText(reader, 2) == "REGEDIT4");
    CHECK(ArchiveBench::ItemText(reader, 3) == "(5)");
    CHECK(reader.items()[0].times.modified == 3);
    CHECK(reader.items()[0].attributes == 0x20);
    CHECK(reader.items()[1].kind == ItemKind::Folder);
  }

  TEST_CASE("an archive that is cut off anywhere, or goes on, is refused") {
    ArchiveBench b;
    const std::string whole = SmallArchive(b);
    REQUIRE(ReadAll(b, whole) == 0);
    for (std::size_t size = 0; size < whole.size(); ++size) {
      CAPTURE(size);
      CHECK(ReadAll(b, whole.substr(0, size)) == kPastEndOfFile);
    }
    CHECK(ReadAll(b, whole + "x") == kPastEndOfFile);
    CHECK(ReadAll(b, whole + whole) != 0);
  }

  TEST_CASE("no changed byte goes unnoticed") {
    ArchiveBench b;
    const std::string whole = SmallArchive(b);
    const std::string contents = Contents(b);
    for (std::size_t at = 0; at < whole.size(); ++at) {
      for (const int bits : {0x01, 0x80, 0x20, 0xFF}) {
        CAPTURE(at);
        std::string changed = whole;
        changed[at] = static_cast<char>(changed[at] ^ bits);
        // Compressed data may be written in another way that means the same.
        CHECK((ReadAll(b, changed) != 0 || Contents(b) == contents));
      }
    }
  }

  TEST_CASE("an index that lies is refused") {
    using Change = void (*)(HandArchive&);
    struct Row {
      const char* what;
      int expected;
      Change change;
    };
    const Row rows[] = {
        {"nothing wrong", 0, [](HandArchive&) {}},
        {"dead data", 0,
         [](HandArchive& a) { a.items[0].size = a.items[0].stored = a.items[0].crc = 0; }},
        {"version 0", kTypeMismatch, [](HandArchive& a) { a.version = 0; }},
        {"version 2", kTypeMismatch, [](HandArchive& a) { a.version = 2; }},
        {"another piece", kDeviceError, [](HandArchive& a) { a.number = 2; }},
        {"another archive's end", kDeviceError, [](HandArchive& a) { a.trailer_identity = 1; }},
        {"index of 4 GB", kDeviceError, [](HandArchive& a) { a.index_size = kFourGigabytes; }},
        {"index of all", kDeviceError, [](HandArchive& a) { a.index_size = kMost; }},
        {"data of 4 GB", kDeviceError, [](HandArchive& a) { a.data_size = kFourGigabytes; }},
        {"data and index overflow", kDeviceError,
         [](HandArchive& a) { a.data_size = kMost - 100, a.index_size = 300; }},
        {"items without end", kDeviceError, [](HandArchive& a) { a.count = 0xFFFFFFFF; }},
        {"one item too many", kDeviceError, [](HandArchive& a) { a.count = 4; }},
        {"one item too few", kDeviceError, [](HandArchive& a) { a.count = 2; }},
        {"something behind", kDeviceError, [](HandArchive& a) { a.behind_index = "x"; }},
        {"volumes without end", kDeviceError, [](HandArchive& a) { a.volume_count = 0xFFFFFFFF; }},
        {"many volumes", kDeviceError, [](HandArchive& a) { a.volume_count = 10000; }},
        {"an empty volume", kDeviceError, [](HandArchive& a) { a.number = 2, a.volumes = {0}; }},
        {"endless volumes", kDeviceError,
         [](HandArchive& a) {
           a.number = 3, a.volumes = {kMost, kMost};
         }},
        {"kind 0", kDeviceError, [](HandArchive& a) { a.items[0].kind = 0; }},
        {"kind 4", kDeviceError, [](HandArchive& a) { a.items[0].kind = 4; }},
        {"reserved", kDeviceError, [](HandArchive& a) { a.items[0].reserved = 1; }},
        {"no path", kDeviceError, [](HandArchive& a) { a.items[0].path = ""; }},
        {"a path of 64 KB", kDeviceError, [](HandArchive& a) { a.items[2].path_size = 65535; }},
        {"a size of 4 GB", kDeviceError, [](HandArchive& a) { a.items[0].size = kFourGigabytes; }},
        {"an endless size", kDeviceError, [](HandArchive& a) { a.items[0].size = kMost; }},
        {"a size of 0", kDeviceError, [](HandArchive& a) { a.items[0].size = 0; }},
        {"larger than stored", kDeviceError, [](HandArchive& a) { a.items[0].size = 6; }},
        {"smaller than stored", kDeviceError, [](HandArchive& a) { a.items[0].size = 4; }},
        {"an offset of 4 GB", kDeviceError,
         [](HandArchive& a) { a.items[0].offset = kFourGigabytes; }},
        {"an offset near the end of numbers", kDeviceError,
         [](HandArchive& a) { a.items[2].offset = kMost - 3; }},
        {"shared data", kDeviceError,
         [](HandArchive& a) { a.items[2].content = "first", a.items[2].offset = 0; }},
        {"endless blocks", kDeviceError, [](HandArchive& a) { a.items[0].stored = kMost; }},
        {"a folder with content", kDeviceError, [](HandArchive& a) { a.items[0].kind = 2; }},
        {"a folder with a size", kDeviceError, [](HandArchive& a) { a.items[1].size = 1; }},
        {"a wrong CRC", kDeviceError, [](HandArchive& a) { a.items[0].crc = 1; }},
        {"an empty block", kDeviceError,
         [](HandArchive& a) { a.items[0].block_header = 0x80000000u; }},
        {"a block of 2 GB", kDeviceError,
         [](HandArchive& a) { a.items[0].block_header = 0xFFFFFFFFu; }},
        {"a compressed block that is none", kDeviceError,
         [](HandArchive& a) { a.items[0].block_header = 5; }},
        {"a block that ends early", kDeviceError,
         [](HandArchive& a) { a.items[0].block_header = 0x80000004u; }},
    };
    for (const Row& row : rows) {
      CAPTURE(std::string(row.what));
      ArchiveBench b;
      HandArchive archive = Good();
      row.change(archive);
      CHECK(ReadAll(b, archive.Make()) == row.expected);
    }
  }

  TEST_CASE("other files are no archives") {
    ArchiveBench b;
    CHECK(b.Reader().Open(kArchivePath).number() == kFileNotFound);
    CHECK(ReadAll(b, std::string(1000, '\0')) == kTypeMismatch);
    CHECK(ReadAll(b, Noise(1000)) == kTypeMismatch);
    b.m.files.Find(kArchivePath)->Locked();
    CHECK(b.Reader().Open(kArchivePath).number() == kPermissionDenied);
  }

  TEST_CASE("paths that may be stored") {
    struct Row {
      std::string path;
      bool storable;
    };
    const Row rows[] = {
        {"C:\\x", true},
        {"z:\\a b\\.c\\d..e", true},
        {"C:\\" + std::string(256, 'x'), true},
        {"C:\\" + std::string(257, 'x'), false},
        {"", false},
        {"C:", false},
        {"C:\\", false},
        {"C:x\\y", false},
        {"x\\y", false},
        {"\\x", false},
        {"\\\\host\\share\\x", false},
        {"\\\\.\\C:\\x", false},
        {"\\\\?\\C:\\x", false},
        {"C:\\a\\..\\b", false},
        {"C:\\a\\.", false},
        {"C:\\WINDOWS.\\x", false},
        {"C:\\WINDOWS \\x", false},
        {"C:\\a\\\\b", false},
        {"C:\\a\\", false},
        {"C:\\a\\con", false},
        {"C:\\aux.txt\\a", false},
        {"C:\\a:stream", false},
        {"C:\\a*", false},
        {"C:\\lost?", false},
        {"C:\\a/b", false},
        {std::string("C:\\a\0b", 6), false},
        {"C:\\a\r\nb", false},
    };
    for (const Row& row : rows) {
      CAPTURE(row.path);
      CHECK(IsStorablePath(row.path) == row.storable);
    }
  }
}

}  // namespace scourwell::test
