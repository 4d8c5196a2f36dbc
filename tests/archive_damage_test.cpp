// SPDX-License-Identifier: MIT

// Archives that are cut off, damaged or made to harm.
#include <doctest/doctest.h>

#include "tests/archive_support.h"
#include "tests/hand_archive.h"

namespace scourwell::test {
namespace {

constexpr std::uint64_t kFourGigabytes = 1ull << 32;
constexpr std::uint64_t kMost = ~0ull;

// No error when the archive opens and all of it reads well.
ErrorCode ReadAll(ArchiveBench& b, const std::string& bytes) {
  b.m.File(kArchivePath).content = bytes;
  ArchiveReader reader = b.Reader();
  if (const Outcome opened = reader.Open(kArchivePath); !opened.ok()) {
    CHECK(reader.items().empty());
    CHECK_FALSE(opened.description().empty());
    return opened.code();
  }
  const std::vector<ItemReport> damaged = reader.Verify();
  return damaged.empty() ? kNoError : damaged[0].why.code();
}

HandArchive Good() {
  HandArchive archive;
  archive.Add(1, "C:\\one", "first");
  archive.Add(2, "C:\\folder");
  archive.Add(3, "x.reg", "REGEDIT4");
  return archive;
}

// An archive and its content. Pieces of 512 bytes end in headers, data and the index.
std::string MakeSmall(ArchiveBench& b, std::uint64_t volume_size) {
  b.m.File("C:\\spy\\text", std::string(200, 't'));
  b.m.File("C:\\spy\\noise", Noise(volume_size ? 900 : 40));
  b.m.Folder("C:\\spy\\empty");
  REQUIRE(b.Store({"C:\\spy"}, {volume_size, {}}).ok());
  return b.Items();
}

}  // namespace

TEST_SUITE("archive_damage") {
  TEST_CASE("an archive made from the description of the format is read") {
    ArchiveBench b;
    b.m.File(kArchivePath).content = Good().Make();
    CHECK(b.Items() ==
          "C:\\one 1 32 1 3 2 first\nC:\\folder 2 32 1 3 2 \nx.reg 3 32 1 3 2 REGEDIT4\n");
    ArchiveReader reader = b.Reader();
    CHECK(ArchiveBench::ItemText(reader, 0) == "(5)");  // there is no such item
  }

  TEST_CASE("an archive that is cut off anywhere, or goes on, is refused") {
    ArchiveBench b;
    MakeSmall(b, 0);
    const std::string whole = b.m.Content(kArchivePath);
    REQUIRE(ReadAll(b, whole) == kNoError);
    for (std::size_t size = 0; size < whole.size(); ++size) {
      CAPTURE(size);
      CHECK(ReadAll(b, whole.substr(0, size)) == kPastEndOfFile);
    }
    CHECK(ReadAll(b, whole + "x") == kPastEndOfFile);
    CHECK(ReadAll(b, whole + whole) != kNoError);
  }

  TEST_CASE("no changed or missing byte of a piece goes unnoticed") {
    for (const std::uint64_t volume_size : {0, 512}) {
      ArchiveBench b;
      const std::string contents = MakeSmall(b, volume_size);
      CHECK(b.m.files.Find("C:\\Backup")->children.size() == (volume_size ? 3 : 1));
      for (const auto& piece : b.m.files.Find("C:\\Backup")->children) {
        const std::string whole = piece->content;
        const auto is_noticed = [&](const std::string& changed) {
          piece->content = changed;
          ArchiveReader reader = b.Reader();
          // Compressed data may be written in another way that means the same.
          return !reader.Open(kArchivePath).ok() || !reader.Verify().empty() ||
                 b.Items() == contents;
        };
        for (std::size_t at = 0; at < whole.size(); ++at) {
          CAPTURE(at);
          for (const int bits : {0x01, 0x80, 0x20, 0xFF}) {
            std::string changed = whole;
            changed[at] = static_cast<char>(changed[at] ^ bits);
            CHECK(is_noticed(changed));
          }
          CHECK(is_noticed(whole.substr(0, at) + whole.substr(at + 1)));
          CHECK(is_noticed(whole.substr(0, at)));
        }
        piece->content = whole;
      }
    }
  }

  TEST_CASE("an index that lies is refused") {
    using Change = void (*)(HandArchive&);
    struct Row {
      const char* what;
      Change change;
    };
    const Row rows[] = {
        {"another piece", [](HandArchive& a) { a.number = 2; }},
        {"another archive's end", [](HandArchive& a) { a.trailer_identity = 1; }},
        {"index of all", [](HandArchive& a) { a.index_size = kMost; }},
        {"data of 4 GB", [](HandArchive& a) { a.data_size = kFourGigabytes; }},
        {"data and index overflow",
         [](HandArchive& a) { a.data_size = kMost - 100, a.index_size = 300; }},
        {"one item too many", [](HandArchive& a) { a.count = 4; }},
        {"one item too few", [](HandArchive& a) { a.count = 2; }},
        {"something behind", [](HandArchive& a) { a.behind_index = "x"; }},
        {"volumes without end", [](HandArchive& a) { a.volume_count = 0xFFFFFFFF; }},
        {"many volumes", [](HandArchive& a) { a.volume_count = 10000; }},
        {"an empty volume", [](HandArchive& a) { a.number = 2, a.volumes = {0}; }},
        {"endless volumes",
         [](HandArchive& a) {
           a.number = 3, a.volumes = {kMost, kMost};
         }},
        {"kind 0", [](HandArchive& a) { a.items[0].kind = 0; }},
        {"kind 4", [](HandArchive& a) { a.items[0].kind = 4; }},
        {"reserved", [](HandArchive& a) { a.items[0].reserved = 1; }},
        {"no path", [](HandArchive& a) { a.items[0].path = ""; }},
        {"a path of 64 KB", [](HandArchive& a) { a.items[2].path_size = 65535; }},
        {"an endless size", [](HandArchive& a) { a.items[0].size = kMost; }},
        {"a size of 0", [](HandArchive& a) { a.items[0].size = 0; }},
        {"larger than stored", [](HandArchive& a) { a.items[0].size = 6; }},
        {"smaller than stored", [](HandArchive& a) { a.items[0].size = 4; }},
        {"an offset of 4 GB", [](HandArchive& a) { a.items[0].offset = kFourGigabytes; }},
        {"an offset near the end of numbers",
         [](HandArchive& a) { a.items[2].offset = kMost - 3; }},
        {"shared data",
         [](HandArchive& a) { a.items[2].content = "first", a.items[2].offset = 0; }},
        {"endless blocks", [](HandArchive& a) { a.items[0].stored = kMost; }},
        {"a folder with content", [](HandArchive& a) { a.items[0].kind = 2; }},
        {"a folder with a size", [](HandArchive& a) { a.items[1].size = 1; }},
        {"a wrong CRC", [](HandArchive& a) { a.items[0].crc = 1; }},
        {"an empty block", [](HandArchive& a) { a.items[0].block_header = 0x80000000u; }},
        {"a block of 2 GB", [](HandArchive& a) { a.items[0].block_header = 0xFFFFFFFFu; }},
        {"a compressed block that is none", [](HandArchive& a) { a.items[0].block_header = 5; }},
        {"a compressed block of less",
         [](HandArchive& a) {
           // As zlib writes it, with the right checksums.
           a.items[0].content = std::string("\x78\x9C\x4B\xCB\x2F\x2D\x02\0\x04\x45\x01\xBD", 12);
           a.items[0].block_header = a.items[0].content.size();
           a.items[0].size = 5;
           a.items[0].crc = HandArchive::Crc("four");
         }},
        {"a block that ends early", [](HandArchive& a) { a.items[0].block_header = 0x80000004u; }},
    };
    for (const Row& row : rows) {
      CAPTURE(std::string(row.what));
      ArchiveBench b;
      HandArchive archive = Good();
      row.change(archive);
      CHECK(ReadAll(b, archive.Make()) == kDeviceError);
    }
    ArchiveBench b;
    HandArchive archive = Good();
    CHECK(ReadAll(b, archive.Make()) == kNoError);
    archive.items[0].size = archive.items[0].stored = archive.items[0].crc = 0;  // dead data
    CHECK(ReadAll(b, archive.Make()) == kNoError);
    archive.version = 4;
    CHECK(ReadAll(b, archive.Make()) == kTypeMismatch);
  }

  TEST_CASE("other files are no archives") {
    ArchiveBench b;
    CHECK(b.Reader().Open(kArchivePath).code() == kFileNotFound);
    CHECK(ReadAll(b, std::string(1000, '\0')) == kTypeMismatch);
    CHECK(ReadAll(b, Noise(1000)) == kTypeMismatch);
    b.m.files.Find(kArchivePath)->Locked();
    CHECK(b.Reader().Open(kArchivePath).code() == kPermissionDenied);
  }

  TEST_CASE("paths that may be stored") {
    for (const std::string& path :
         {std::string("C:\\x"), std::string("z:\\a b\\.c\\d..e"), "C:\\" + std::string(5000, 'x'),
          std::string("C:\\odd.\\names \\con"),
          std::string("C:\\\u8868\\\uFF0E\uFF0E\uFF3C\uFF0E")}) {
      CAPTURE(path);
      CHECK(IsStorablePath(path));
    }
    const std::map<const char*, std::vector<const char*>> refused = {
        {"no item", {"", "C:", "C:\\", "C:\\a\\", "C:\\a\\\\b"}},
        {"not below a drive",
         {"C:x\\y", "x\\y", "\\x", "\\\\host\\share\\x", "\\\\.\\C:\\x", "\\\\?\\C:\\x"}},
        {"another way to write a path", {"C:\\a\\..\\b", "C:\\a\\.", "C:\\a/b"}},
        {"a stream", {"C:\\a:stream"}},
        {"another spelling of a text",
         {"C:\\\xFF", "C:\\\xC0\xAE\xC0\xAE\\x", "C:\\\xED\xA0\xBD\xED\xB8\x80"}},
        {"characters of no name",
         {"C:\\a*", "C:\\lost?", "C:\\a\r\nb", "C:\\\"", "C:\\<", "C:\\>", "C:\\|"}}};
    for (const auto& [why, paths] : refused) {
      for (const char* path : paths) {
        CAPTURE(path);
        CHECK_FALSE(IsStorablePath(path));
      }
    }
    CHECK_FALSE(IsStorablePath("C:\\" + std::string(65533, 'x')));
    CHECK_FALSE(IsStorablePath(std::string("C:\\a\0b", 6)));
  }
}

}  // namespace scourwell::test
