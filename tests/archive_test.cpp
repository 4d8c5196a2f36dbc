// SPDX-License-Identifier: MIT
#include <doctest/doctest.h>

#include "backup/sha256.h"
#include "tests/archive_support.h"
#include "tests/hand_archive.h"

namespace scourwell::test {
namespace {

std::string Paths(const std::vector<ItemReport>& reports) {
  std::string text;
  for (const ItemReport& report : reports) {
    text += report.path + " " + std::to_string(report.why.code().number()) + "\n";
  }
  return text;
}

}  // namespace

TEST_SUITE("archive") {
  TEST_CASE("content of every size comes out as it went in") {
    ArchiveBench b;
    std::vector<std::string> paths;
    std::vector<std::string> contents;
    const std::size_t block = kArchiveBlock;
    for (const std::size_t size :
         {std::size_t{0}, std::size_t{1}, block - 1, block, block + 1, 3 * block, 3 * block + 77}) {
      for (const std::string& content : {Noise(size), std::string(size, 'x')}) {
        paths.push_back("C:\\f" + std::to_string(paths.size()));
        contents.push_back(content);
        b.m.File(paths.back(), content);
      }
    }
    REQUIRE(b.Store(paths).ok());
    CHECK(b.Names("C:\\Backup") == "one.qzp\n");
    ArchiveReader reader = b.Reader();
    REQUIRE(reader.Open(kArchivePath).ok());
    REQUIRE(reader.items().size() == paths.size());
    std::uint64_t stored = 0;
    for (std::size_t i = 0; i < paths.size(); ++i) {
      CAPTURE(paths[i]);
      const ArchiveItem& item = reader.items()[i];
      CHECK(item.path == paths[i]);
      CHECK(item.size == contents[i].size());
      CHECK((ArchiveBench::ItemText(reader, i) == contents[i]));
      stored += item.stored;
    }
    CHECK(Paths(reader.Verify()) == "");
    // Noise is stored as it is, the rest shrinks to nearly nothing.
    CHECK(stored < 9 * block + block / 2);
  }

  TEST_CASE("an item carries its true name, attributes and times") {
    ArchiveBench b;
    b.m.File("C:\\Spy Folder\\Evil One.exe", "evil").ReadOnly().System().Times(22, 23).created = 21;
    b.m.Folder("C:\\Spy Folder\\empty").Times(32, 33).created = 31;
    b.m.Folder("C:\\Spy Folder").Hidden().Times(12, 13).created = 11;
    const std::string short_path = b.m.files.ShortPath("C:\\Spy Folder\\Evil One.exe");
    REQUIRE(short_path != "C:\\Spy Folder\\Evil One.exe");
    ArchiveResult result;
    // The file is named first by itself, and is met again in its folder.
    REQUIRE(b.Store({short_path, "c:\\spy folder\\"}, {}, &result).ok());
    CHECK(result.files == 3);
    CHECK(result.bytes == 4);
    CHECK(b.Items() ==
          "C:\\Spy Folder\\Evil One.exe 1 37 21 22 23 evil\n"
          "c:\\Spy Folder 2 2 11 12 13 \n"
          "c:\\Spy Folder\\empty 2 0 31 32 33 \n");
  }

  TEST_CASE("names of every script are kept; an older archive has those of the code page") {
    ArchiveBench b;
    const std::string path = "C:\\\u8868\\\u0141\U0001F600 \xED\xA0\x80.exe.";
    b.m.File(path, "spy");
    REQUIRE(b.Store({path}).ok());
    ArchiveReader reader = b.Reader();
    REQUIRE(reader.Open(kArchivePath).ok());
    REQUIRE(reader.items().size() == 1);
    CHECK(reader.items()[0].path == path);
    HandArchive old;
    old.Add(1, "C:\\z\xFCrich \x80", "x");
    b.m.File("C:\\Backup\\old.qzp", old.Make());
    ArchiveReader second = b.Reader();
    REQUIRE(second.Open("C:\\Backup\\old.qzp").ok());
    CHECK(second.items()[0].path == "C:\\z\u00FCrich \u20AC");
  }

  TEST_CASE("what cannot be stored is named, and the rest is stored") {
    ArchiveBench b;
    b.m.File("C:\\spy\\good", "good");
    b.m.File("C:\\spy\\locked", "x").Locked();
    b.m.File("C:\\spy\\denied", "x").Denied();
    b.m.Folder("C:\\spy\\closed").Denied();
    b.m.File("C:\\spy\\lost?name", "x");
    b.m.File("C:\\precious\\file", "precious");
    b.m.Link("C:\\spy\\link", "C:\\precious");
    ArchiveResult result;
    REQUIRE(b.Store({"C:\\none", "C:\\spy", "C:\\spy\\link", "C:\\spy\\link\\file", "spy", "C:\\",
                     "\\\\host\\share\\x", "C:\\x\\..\\spy"},
                    {}, &result)
                .ok());
    CHECK(Paths(result.failed) ==
          "C:\\none 53\nC:\\spy\\locked 70\nC:\\spy\\denied 70\n"
          "C:\\spy\\closed 70\nC:\\spy\\lost?name 52\nC:\\spy\\link\\file 75\n"
          "spy 52\nC:\\ 52\n\\\\host\\share\\x 52\nC:\\x\\..\\spy 52\n");
    CHECK(Paths(result.notes) == "C:\\spy\\link 75\nC:\\spy\\link 75\n");
    ArchiveReader reader = b.Reader();
    REQUIRE(reader.Open(kArchivePath).ok());
    std::string stored;
    for (const ArchiveItem& item : reader.items()) stored += item.path + "\n";
    CHECK(stored == "C:\\spy\nC:\\spy\\good\n");
  }

  TEST_CASE("digests are those that others make") {
    const auto hex = [](const std::string& bytes) {
      std::string text;
      for (const char c : bytes) text += Hex(static_cast<unsigned char>(c), 2);
      return text;
    };
    CHECK(hex(Sha256Of("abc")) ==
          "BA7816BF8F01CFEA414140DE5DAE2223B00361A396177A9CB410FF61F20015AD");
    Sha256 million;
    for (std::size_t left = 1'000'000, part = 1; left > 0; part = part * 3 % 1009 + 1) {
      million.Add(std::string(std::min(left, part), 'a'));
      left -= std::min(left, part);
    }
    CHECK(hex(million.Finish()) ==
          "CDC76E5C9914FB9281A1C7E284D73E67F1809A48A497200E046D39CCC7112CD0");
    CHECK(hex(KeyedDigest("Jefe", "what do ya want for nothing?")) ==
          "5BDCC146BF60754E6A042426089575C75A003F089D2739839DEC58B964EC3843");
    CHECK(hex(KeyedDigest(std::string(131, '\xAA'),
                          "Test Using Larger Than Block-Size Key - Hash Key First")) ==
          "60E431591EE0B67F0D8A26AACBF5B77F8E0BC6213728C5140546040F0EE37F54");
  }

  TEST_CASE("scripts lie in the archive under bare names") {
    ArchiveBench b;
    ArchiveWriter writer(b.m.files, b.m.clock, b.m.pump);
    REQUIRE(writer.Create(kArchivePath).ok());
    CHECK(writer.AddScript("onekey.reg", "REGEDIT4\r\n").ok());
    for (const char* name : {"", ".reg", "a\\b.reg", "C:\\x.reg", "..", "nul.reg", "a:b.reg",
                             "a/b.reg", "a.exe", "a.reg.", "a.reg "}) {
      CAPTURE(std::string(name));
      CHECK(writer.AddScript(name, "x").code() == kBadFileName);
    }
    REQUIRE(writer.Finish().ok());
    CHECK(writer.path() == kArchivePath);
    CHECK(b.Items().starts_with("onekey.reg 3 "));
    CHECK(b.Items().ends_with(" REGEDIT4\r\n\n"));
  }

  TEST_CASE("a file that changes meanwhile is stored as it was read") {
    for (const char* now : {"short", "longer than the listing said"}) {
      CAPTURE(std::string(now));
      ArchiveBench b;
      Node& file = b.m.File("C:\\spy\\file", "as it was");
      b.m.pump.on_yield = [&] {
        if (b.m.pump.yields == 2) file.content = now;  // the folder has been listed
      };
      ArchiveResult result;
      REQUIRE(b.Store({"C:\\spy"}, {}, &result).ok());
      CHECK(Paths(result.notes) == "C:\\spy\\file 75\n");
      CHECK(b.Items().ends_with(" " + std::string(now) + "\n"));
    }
  }

  TEST_CASE("a folder that is swapped for a link before it is listed is not followed") {
    ArchiveBench b;
    b.m.File("C:\\precious\\file", "precious");
    b.m.File("C:\\spy\\sub\\file", "x");
    b.m.pump.on_yield = [&] {
      if (b.m.pump.yields != 2) return;
      b.m.files.Remove("C:\\spy\\sub");
      b.m.Link("C:\\spy\\sub", "C:\\precious");
    };
    ArchiveResult result;
    REQUIRE(b.Store({"C:\\spy"}, {}, &result).ok());
    CHECK(Paths(result.failed) == "C:\\spy\\sub 75\n");
    CHECK(result.files == 1);
  }

  TEST_CASE("closing leaves nothing behind") {
    const std::string content = Noise(3 * kArchiveBlock);
    for (const std::uint64_t volume_size : {0, 300'000}) {
      for (std::size_t at = 1; at <= 5; ++at) {
        CAPTURE(at);
        ArchiveBench b;
        b.m.File("C:\\spy\\file", content);
        b.m.pump.close_at = at;
        CHECK_FALSE(b.Store({"C:\\spy"}, {volume_size, {}}).ok());
        CHECK(b.Names("C:\\Backup") == "");
      }
    }
  }

  TEST_CASE("an archive takes no other's place") {
    ArchiveBench b;
    b.m.File("C:\\file", "x");
    for (const char* there : {"C:\\Backup\\one.qzp", "C:\\Backup\\ONE.Q01"}) {
      b.m.File(there, "older");
      CHECK(b.Store({"C:\\file"}).code() == kFileExists);
      CHECK(b.m.Content(there) == "older");
      b.m.files.Remove(there);
    }
    ArchiveWriter writer(b.m.files, b.m.clock, b.m.pump);
    CHECK(writer.AddFile("C:\\file").code() == kInvalidCall);
    CHECK(writer.Finish().code() == kInvalidCall);
    CHECK(writer.Create("C:\\none\\x.qzp").code() == kPathNotFound);
    // Once it has failed it stays so.
    CHECK_FALSE(writer.Create(kArchivePath).ok());
    CHECK(writer.AddFile("C:\\file").code() == kPathNotFound);
    for (const char* path : {"x.qzp", "C:\\Backup\\.qzp", "C:\\Backup\\x.zip", "C:\\Bac*\\x.qzp"}) {
      CAPTURE(std::string(path));
      CHECK(ArchiveWriter(b.m.files, b.m.clock, b.m.pump).Create(path).code() == kBadFileName);
    }
  }
}

}  // namespace scourwell::test
