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

  TEST_CASE("an opened item goes whatever its attributes, and what it cannot do leaves it alone") {
    OnDisk disk;
    disk.machine->MakeFolder(disk.Path("folder"));
    disk.Make("folder\\file", "x");
    disk.machine->SetAttributes(disk.Path("folder\\file"), kReadOnly | kHidden | kSystem);
    std::unique_ptr<OpenedItem> folder;
    std::unique_ptr<OpenedItem> item;
    CHECK(disk.files.OpenItem(disk.Path("none"), &item).code() == kFileNotFound);
    REQUIRE(disk.files.OpenItem(disk.Path("FOLDER"), &folder).ok());
    CHECK((folder->attributes() & (kFolder | kLink)) == kFolder);
    CHECK(folder->Erase().code() == kPathFileAccess);
    REQUIRE(disk.files.OpenItem(disk.Path("FOLDER\\file"), &item).ok());
    if (disk.machine->holds_any_name()) {
      CHECK(folder->true_path() == disk.Path("folder"));
      CHECK(item->true_path() == disk.Path("folder\\file"));
    }
    CHECK((item->attributes() & kReadOnly) != 0);
    CHECK(item->Erase().ok());
    item.reset();
    CHECK(disk.Names("folder\\*.*") == "");
    CHECK(folder->Erase().ok());
    folder.reset();
    CHECK(disk.Names("*.*") == "");
  }

  TEST_CASE("an opened item moves within its volume and never replaces") {
    OnDisk disk;
    disk.Make("file", "x");
    disk.Make("other", "y");
    disk.machine->MakeFolder(disk.Path("folder"));
    std::unique_ptr<OpenedItem> item;
    REQUIRE(disk.files.OpenItem(disk.Path("file"), &item).ok());
    CHECK(item->MoveTo(disk.Path("other")).code() == kFileExists);
    CHECK(item->MoveTo(disk.Path("folder\\A new name.text")).ok());
    item.reset();
    CHECK(disk.Content("folder\\A new name.text") == "x");
    CHECK(disk.Names("*.*") == "folder other ");
  }

  TEST_CASE("names that a plain call rewrites lead to nothing but themselves") {
    OnDisk disk;
    if (!disk.machine->holds_any_name()) return;
    for (const std::string name : {"x.", "x ", "aux", "nul.txt", "con"}) {
      CAPTURE(name);
      disk.Make("x", "innocent");
      disk.Make(name, "evil");
      std::unique_ptr<OpenedItem> item;
      REQUIRE(disk.files.OpenItem(disk.Path(name), &item).ok());
      CHECK(item->Erase().ok());
      item.reset();
      CHECK(disk.Names("*.*") == "x ");
      CHECK(disk.files.OpenItem(disk.Path(name), &item).code() == kFileNotFound);
      CHECK(disk.Content("x") == "innocent");
    }
  }

  TEST_CASE("an item has one number, whatever it is called") {
    OnDisk disk;
    disk.machine->MakeFolder(disk.Path("a long folder name"));
    disk.Make("a long folder name\\file", "x");
    FileId id, again, other;
    CHECK(disk.files.Identify(disk.Path("none"), &id).code() == kFileNotFound);
    CHECK(disk.files.Identify(disk.Path("none\\file"), &id).code() == kFileNotFound);
    REQUIRE(disk.files.Identify(disk.Path("a long folder name\\file"), &id).ok());
    REQUIRE(disk.files.Identify(disk.files.ShortPath(disk.Path("A LONG FOLDER NAME\\FILE")), &again)
                .ok());
    REQUIRE(disk.files.Identify(disk.Path("a long folder name"), &other).ok());
    CHECK(id == again);
    CHECK((id.index != 0) == disk.machine->holds_any_name());
    CHECK((id == other) == (id.index == 0));
    REQUIRE(disk.files.Identify(disk.root.substr(0, 3), &other).ok());
    CHECK(other.volume == id.volume);
  }

  TEST_CASE("a folder that is closed to users is one more folder to administrators") {
    OnDisk disk;
    if (!disk.machine->holds_any_name()) return;
    CHECK(disk.files.CreateGuardedFolder(disk.Path("closed")).ok());
    CHECK(disk.files.CreateGuardedFolder(disk.Path("CLOSED")).code() == kFileExists);
    CHECK(disk.files.IsGuarded(disk.Path("closed")));
    disk.Make("closed\\file", "x");
    CHECK(disk.files.EraseFile(disk.Path("closed\\file")).ok());
    CHECK(disk.files.RemoveFolder(disk.Path("closed")).ok());
  }
}

}  // namespace scourwell::test
