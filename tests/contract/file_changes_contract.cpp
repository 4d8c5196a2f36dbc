// SPDX-License-Identifier: MIT
#include "tests/contract/on_disk.h"

namespace scourwell::test {

TEST_SUITE("contract_file_changes") {
  TEST_CASE("a file is read from any place") {
    OnDisk disk;
    disk.Make("file", std::string("0123\0\r\n789", 10));
    std::unique_ptr<FileReader> reader;
    REQUIRE(disk.files.OpenReader(disk.Path("FILE"), &reader).ok());
    CHECK(reader->size() == 10);
    const auto read = [&](std::uint64_t offset, std::size_t count) {
      char bytes[100];
      std::size_t filled = 77;
      CHECK(reader->ReadAt(offset, bytes, count, &filled).ok());
      return std::string(bytes, filled);
    };
    CHECK(read(0, 4) == "0123");
    CHECK(read(7, 2) == "78");
    CHECK(read(3, 3) == std::string("3\0\r", 3));
    CHECK(read(8, 100) == "89");
    CHECK(read(10, 5) == "");
    CHECK(read(5'000'000'000, 5) == "");
    std::unique_ptr<FileReader> none;
    CHECK(disk.files.OpenReader(disk.Path("none"), &none).code() == kFileNotFound);
    CHECK(disk.files.OpenReader(disk.Path("none\\x"), &none).code() == kPathNotFound);
    disk.machine->MakeFolder(disk.Path("folder"));
    CHECK_FALSE(disk.files.OpenReader(disk.Path("folder"), &none).ok());
    CHECK(none == nullptr);
  }

  TEST_CASE("what is written takes its place when it is committed, and not before") {
    OnDisk disk;
    disk.Make("file", "old");
    std::unique_ptr<FileWriter> writer;
    REQUIRE(disk.files.OpenWriter(disk.Path("file"), &writer).ok());
    CHECK(writer->Write("new").ok());
    CHECK(writer->Write(std::string("\0er", 3)).ok());
    CHECK(disk.Content("file") == "old");
    CHECK(writer->Commit().ok());
    writer.reset();
    CHECK(disk.Content("file") == std::string("new\0er", 6));

    REQUIRE(disk.files.OpenWriter(disk.Path("file"), &writer).ok());
    CHECK(writer->Write("never").ok());
    writer.reset();
    REQUIRE(disk.files.OpenWriter(disk.Path("other"), &writer).ok());
    writer.reset();
    CHECK(disk.Content("file").size() == 6);
    CHECK(disk.Names("*.*") == "file ");
    CHECK(disk.files.OpenWriter(disk.Path("none\\x"), &writer).code() == kPathNotFound);
    CHECK(writer == nullptr);
  }

  TEST_CASE("folders are made and removed, with nothing in them") {
    OnDisk disk;
    CHECK(disk.files.CreateFolder(disk.Path("folder")).ok());
    DirEntry entry;
    CHECK(disk.Stat("folder", &entry) == kNoError);
    CHECK(entry.IsFolder());
    CHECK(disk.files.CreateFolder(disk.Path("FOLDER")).code() == kFileExists);
    CHECK(disk.files.CreateFolder(disk.Path("none\\x")).code() == kPathNotFound);
    disk.Make("folder\\file", "x");
    CHECK(disk.files.CreateFolder(disk.Path("folder\\file")).code() == kFileExists);
    CHECK(disk.files.RemoveFolder(disk.Path("folder")).code() == kPathFileAccess);
    CHECK_FALSE(disk.files.RemoveFolder(disk.Path("folder\\file")).ok());
    CHECK(disk.Content("folder\\file") == "x");
    CHECK(disk.files.EraseFile(disk.Path("folder\\file")).ok());
    CHECK(disk.files.RemoveFolder(disk.Path("folder")).ok());
    CHECK_FALSE(disk.files.RemoveFolder(disk.Path("folder")).ok());
  }

  TEST_CASE("a move never replaces") {
    OnDisk disk;
    disk.Make("a.txt", "a");
    disk.Make("b.txt", "b");
    disk.machine->MakeFolder(disk.Path("folder"));
    CHECK(disk.files.Move(disk.Path("a.txt"), disk.Path("B.TXT")).code() == kFileExists);
    CHECK(disk.files.Move(disk.Path("a.txt"), disk.Path("folder")).code() == kFileExists);
    CHECK(disk.files.Move(disk.Path("none"), disk.Path("c.txt")).code() == kFileNotFound);
    CHECK(disk.files.Move(disk.Path("a.txt"), disk.Path("none\\c.txt")).code() == kPathNotFound);
    CHECK(disk.Content("a.txt") + disk.Content("b.txt") == "ab");
    CHECK(disk.files.Move(disk.Path("a.txt"), disk.Path("folder\\A new name.text")).ok());
    CHECK(disk.Content("folder\\a new name.text") == "a");
    CHECK(disk.files.Move(disk.Path("folder"), disk.Path("moved")).ok());
    CHECK(disk.Content("moved\\a new name.text") == "a");
    CHECK(disk.Content("a.txt") == "(none)");
  }

  TEST_CASE("attributes and times are set") {
    OnDisk disk;
    disk.Make("file", "x");
    disk.machine->MakeFolder(disk.Path("folder"));
    constexpr std::uint32_t kCompared = kReadOnly | kHidden | kSystem | kFolder;
    DirEntry entry;
    for (const std::uint32_t bits : {kReadOnly | kHidden, kSystem + 0u, 0u}) {
      CAPTURE(bits);
      CHECK(disk.files.SetAttributes(disk.Path("file"), bits | kFolder | kLink).ok());
      CHECK(disk.Stat("file", &entry) == kNoError);
      CHECK((entry.attributes & kCompared) == bits);
    }
    const FileTimes times = {125'000'000'000'000'000, 127'000'000'000'000'000,
                             126'000'000'000'000'000};
    for (const char* name : {"file", "folder"}) {
      CAPTURE(std::string(name));
      CHECK(disk.files.SetTimes(disk.Path(name), times).ok());
      CHECK(disk.files.SetTimes(disk.Path(name), {0, 0, 0}).ok());
      CHECK(disk.Stat(name, &entry) == kNoError);
      CHECK(entry.modified == times.modified);
      CHECK(entry.accessed == times.accessed);
    }
    CHECK(disk.files.SetAttributes(disk.Path("none"), 0).code() == kFileNotFound);
    CHECK(disk.files.SetTimes(disk.Path("none"), times).code() == kFileNotFound);
  }

  TEST_CASE("a held folder stays where it is, and what lies in it may change") {
    OnDisk disk;
    disk.machine->MakeFolder(disk.Path("folder"));
    disk.Make("file", "x");
    std::unique_ptr<FolderHold> hold;
    CHECK(disk.files.HoldFolder(disk.Path("none"), &hold).code() == kFileNotFound);
    CHECK(disk.files.HoldFolder(disk.Path("file"), &hold).code() == kPathNotFound);
    CHECK(disk.files.HoldFolder(disk.root.substr(0, 3), &hold).ok());
    REQUIRE(disk.files.HoldFolder(disk.Path("folder"), &hold).ok());
    CHECK_FALSE(disk.files.Move(disk.Path("folder"), disk.Path("moved")).ok());
    CHECK_FALSE(disk.files.RemoveFolder(disk.Path("folder")).ok());
    CHECK(disk.files.Append(disk.Path("folder\\inside"), "x").ok());
    CHECK(disk.files.EraseFile(disk.Path("folder\\inside")).ok());
    hold.reset();
    CHECK(disk.files.RemoveFolder(disk.Path("folder")).ok());
  }
}

}  // namespace scourwell::test
