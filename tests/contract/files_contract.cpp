// SPDX-License-Identifier: MIT
#include <map>

#include "tests/contract/on_disk.h"

namespace scourwell::test {

TEST_SUITE("contract_files") {
  TEST_CASE("a listing finds names by wildcards and without case") {
    OnDisk disk;
    for (const char* name : {"alpha.txt", "Beta.TXT", "noext", "x1.exe", "x12.exe", "a.b.c"}) {
      disk.Make(name);
    }
    disk.machine->MakeFolder(disk.root + "folder.txt");
    const std::string everything = "Beta.TXT a.b.c alpha.txt folder.txt noext x1.exe x12.exe ";
    CHECK(disk.Names("*.*") == everything);
    CHECK(disk.Names("*") == everything);
    for (const auto& [pattern, names] : {std::pair{"*.txt", "Beta.TXT alpha.txt folder.txt "},
                                         {"x?.exe", "x1.exe "},
                                         {"x??.exe", "x12.exe "},
                                         {"x*.exe", "x1.exe x12.exe "},
                                         {"*l*", "alpha.txt folder.txt "},
                                         {"none", ""},
                                         {"a.b", ""},
                                         {"", ""},
                                         {"folder.txt\\", ""},
                                         {"folder.txt\\*.*", ""},
                                         {"none\\*.*", "!76 "},
                                         {"alpha.txt\\*.*", "!76 "},
                                         {"f*\\*.*", "!76 "},
                                         {"f?lder.txt\\x", "!76 "}}) {
      CAPTURE(std::string(pattern));
      CHECK(disk.Names(pattern) == names);
    }
    const bool exact = disk.machine->holds_any_name();
    CHECK(disk.Names("alpha.txt.") == (exact ? "" : "!76 "));
    CHECK(disk.Names("folder.txt\\..\\x1.*") == "!76 ");
    CHECK(disk.Names(".\\x1.*") == "!76 ");
    CHECK(disk.Names("\\\\x1.*") == "x1.exe ");
    int visits = 0;
    CHECK(disk.files.List(disk.root + "*.*", [&](const DirEntry&) { return ++visits < 3; }).ok());
    CHECK(visits == 3);
  }

  TEST_CASE("hidden and system entries are found and described") {
    OnDisk disk;
    disk.Make("seen", "12345");
    disk.Make("hidden");
    disk.machine->SetAttributes(disk.root + "hidden", kHidden | kSystem);
    disk.machine->MakeFolder(disk.root + "folder");
    disk.machine->SetAttributes(disk.root + "folder", kHidden);
    disk.Make("fixed");
    disk.machine->SetAttributes(disk.root + "fixed", kReadOnly);
    std::vector<DirEntry> entries;
    CHECK(disk.List("*.*", &entries) == kNoError);
    constexpr std::uint32_t kCompared = kReadOnly | kHidden | kSystem | kFolder;
    std::map<std::string, std::pair<std::uint32_t, std::uint64_t>> found;
    for (const DirEntry& listed : entries) {
      CAPTURE(listed.name);
      found[listed.name] = {listed.attributes & kCompared, listed.size};
      CHECK(listed.modified != 0);
      DirEntry alone;
      CHECK(disk.Stat(listed.name, &alone) == kNoError);
      CHECK(alone.name == listed.name);
      CHECK(alone.attributes == listed.attributes);
      CHECK(alone.size == listed.size);
      CHECK(alone.modified == listed.modified);
    }
    CHECK((found == decltype(found){{"seen", {0, 5}},
                                    {"hidden", {kHidden | kSystem, 0}},
                                    {"folder", {kHidden | kFolder, 0}},
                                    {"fixed", {kReadOnly, 0}}}));
  }

  TEST_CASE("names are taken as they stand, whatever the script and however odd") {
    OnDisk disk;
    if (!disk.machine->holds_any_name()) return;
    std::string deep;
    // The disks below some systems take no more than 4,000 bytes.
    for (int i = 0; i < 15; ++i) deep += std::string(200, 'd') + "\\";
    const std::vector<std::string> parents = {"",
                                              "\u0141\u00F3dka\\",
                                              "L\u00F3dka\\",
                                              "\u4E88\u5B9A\u8868\\",
                                              "\uFF0E\uFF0E\\",
                                              "\uFF0E\uFF3C\uFF0E\\",
                                              "dot.\\",
                                              "blank \\",
                                              "aux\\",
                                              deep};
    std::vector<std::string> names = {"quellmark\u0101.dll",
                                      "quellmarka.dll",
                                      "\U0001F600.exe",
                                      "half \xED\xA0\x80",
                                      "a\uFF3Cb.txt",
                                      "x.exe.",
                                      "x.exe",
                                      "con",
                                      "e\u0301",
                                      std::string(255, 'n')};
    // Not every volume of the NT family holds halves of pairs.
    DirEntry entry;
    disk.Make(names[3]);
    if (disk.Stat(names[3], &entry) != kNoError) names.erase(names.begin() + 3);
    for (const std::string& parent : parents) {
      CAPTURE(parent);
      for (std::size_t end = parent.find('\\'); end != parent.npos;
           end = parent.find('\\', end + 1)) {
        disk.machine->MakeFolder(disk.root + parent.substr(0, end));
      }
      for (const std::string& name : names) disk.Make(parent + name, parent + name);
      std::vector<DirEntry> entries;
      CHECK(disk.List(parent + "*.*", &entries) == kNoError);
      std::size_t files = 0;
      for (const DirEntry& listed : entries) {
        files += static_cast<std::size_t>(std::count(names.begin(), names.end(), listed.name));
      }
      CHECK(files == names.size());
      for (const std::string& name : names) {
        CAPTURE(name);
        std::string content;
        REQUIRE(disk.files.Read(disk.root + parent + name, 10'000, &content).ok());
        CHECK(content == parent + name);
        CHECK(disk.files.Move(disk.root + parent + name, disk.root + parent + "moved").ok());
        CHECK(disk.files.EraseFile(disk.root + parent + "moved").ok());
      }
      CHECK(disk.Names(parent + "*.exe*") == "");
    }
    for (auto parent = parents.rbegin(); parent != parents.rend(); ++parent) {
      for (std::string path = *parent; !path.empty();) {
        path.pop_back();
        CHECK(disk.files.RemoveFolder(disk.root + path).ok());
        path.erase(path.rfind('\\') + 1);
      }
    }
    CHECK(disk.Names("*.*") == "");
  }

  TEST_CASE("what is listed is reached by the name that it is listed under") {
    OnDisk disk;
    std::vector<std::string> made = {"alone.exe.", "pair.exe", "pair.exe.", "pair.exe ",
                                     "aux.long"};
    for (const std::string& name : made) disk.Make(name, name);
    std::vector<DirEntry> entries;
    REQUIRE(disk.List("*.*", &entries) == kNoError);
    std::vector<std::string> reached;
    for (const DirEntry& entry : entries) {
      CAPTURE(entry.name);
      reached.push_back(disk.Content(entry.name));
      CHECK(disk.files.EraseFile(disk.root + entry.name).ok());
    }
    std::sort(reached.begin(), reached.end());
    std::sort(made.begin(), made.end());
    CHECK(reached == made);
    CHECK(disk.Names("*.*") == "");
  }

  TEST_CASE("a path is as long as the system's own letters make it") {
    OnDisk disk;
    std::string name;
    while (name.size() < 250) name += "\u00E9";
    if (!disk.machine->code_pages().Encode(name)) return;
    disk.machine->MakeFolder(disk.root + name);
    disk.Make(name + "\\spy.exe", "evil");
    CHECK(disk.Content(name + "\\spy.exe") == "evil");
    CHECK(disk.Names(name + "\\*.*") == "spy.exe ");
    CHECK(disk.files.EraseFile(disk.root + name + "\\spy.exe").ok());
    CHECK(disk.files.RemoveFolder(disk.root + name).ok());
  }

  TEST_CASE("what is not there is not found") {
    OnDisk disk;
    disk.Make("file");
    DirEntry entry;
    entry.name = "untouched";
    for (const char* name : {"none", "none\\x", "fil?", "*", "file\\x"}) {
      CAPTURE(std::string(name));
      CHECK(disk.Stat(name, &entry) == kFileNotFound);
    }
    CHECK(disk.Stat(std::string(300, 'x'), &entry) != kNoError);
    CHECK(entry.name == "untouched");
    CHECK(disk.files.Stat(disk.root.substr(0, 3), &entry).ok());  // a root
    CHECK(entry.IsFolder());
    CHECK(disk.Stat("FILE", &entry) == kNoError);
    CHECK(entry.name == "file");
  }

  TEST_CASE("8.3 names lead to the same item") {
    OnDisk disk;
    disk.machine->MakeFolder(disk.root + "A long folder name");
    disk.Make("A long folder name\\some long file name.text", "1234567");
    std::vector<DirEntry> entries;
    CHECK(disk.List("A long folder name\\*.*", &entries) == kNoError);
    REQUIRE(entries.size() == 1);
    const std::string short_name = entries[0].short_name;
    if (!short_name.empty()) {
      CHECK(short_name.size() <= 12);
      CHECK(disk.Names("A long folder name\\" + short_name) == "some long file name.text ");
      DirEntry entry;
      CHECK(disk.Stat("A long folder name\\" + short_name, &entry) == kNoError);
      CHECK(entry.name == "some long file name.text");
    }
    const std::string path =
        disk.files.ShortPath(disk.root + "a long FOLDER name\\Some long file name.text");
    if (!short_name.empty()) CHECK(path.size() <= disk.root.size() + 25);
    std::string content;
    CHECK(disk.files.Read(path, 100, &content).ok());
    CHECK(content == "1234567");
    CHECK(disk.files.ShortPath(disk.root + "none") == "");
    CHECK(disk.files.ShortPath(disk.root + "*") == "");
    disk.Make("short.txt");
    CHECK(disk.List("short.txt", &entries) == kNoError);
    CHECK(entries.back().short_name == "");
  }

  TEST_CASE("a file is read whole or not at all") {
    OnDisk disk;
    const std::string bytes("a\0\r\n\x1A\xFF z", 8);
    disk.Make("file", bytes);
    disk.machine->MakeFolder(disk.root + "folder");
    std::string content = "old";
    CHECK(disk.files.Read(disk.root + "none", 100, &content).code() == kFileNotFound);
    CHECK(disk.files.Read(disk.root + "file", 7, &content).code() == kOutOfMemory);
    CHECK_FALSE(disk.files.Read(disk.root + "folder", 100, &content).ok());
    CHECK(content == "old");
    CHECK(disk.files.Read(disk.root + "FILE", 8, &content).ok());
    CHECK(content == bytes);
    disk.Make("empty");
    CHECK(disk.files.Read(disk.root + "empty", 0, &content).ok());
    CHECK(content == "");
  }

  TEST_CASE("a file is read in blocks until the visitor has enough") {
    OnDisk disk;
    std::string bytes;
    while (bytes.size() < 2 * Files::kBlockSize + 5) {
      bytes += static_cast<char>(bytes.size() * 7 + bytes.size() / 251);
    }
    // The sizes of the blocks that a visitor is shown until it has so many.
    const auto blocks = [&](std::size_t size, std::size_t enough) {
      CAPTURE(size);
      disk.Make("file", bytes.substr(0, size));
      std::string sizes;
      std::string content;
      std::size_t visits = 0;
      const auto visit = [&](std::string_view block) {
        sizes += std::to_string(block.size()) + " ";
        content += block;
        return ++visits < enough;
      };
      CHECK(disk.files.ReadBlocks(disk.root + "FILE", visit).ok());
      CHECK((content == bytes.substr(0, content.size())));
      return sizes;
    };
    CHECK(blocks(0, 9) == "");
    CHECK(blocks(65535, 9) == "65535 ");
    CHECK(blocks(65536, 9) == "65536 ");
    CHECK(blocks(65537, 9) == "65536 1 ");
    CHECK(blocks(131077, 9) == "65536 65536 5 ");
    CHECK(blocks(131077, 1) == "65536 ");
    disk.machine->MakeFolder(disk.root + "folder");
    const auto fail = [](std::string_view) {
      FAIL_CHECK("visited");
      return true;
    };
    CHECK(disk.files.ReadBlocks(disk.root + "none", fail).code() == kFileNotFound);
    CHECK(disk.files.ReadBlocks(disk.root + "none\\x", fail).code() == kPathNotFound);
    CHECK_FALSE(disk.files.ReadBlocks(disk.root + "folder", fail).ok());
  }

  TEST_CASE("appending creates a file and lengthens it") {
    OnDisk disk;
    CHECK(disk.files.Append(disk.root + "log", "one\r\n").ok());
    CHECK(disk.files.Append(disk.root + "log", std::string("\0two", 4)).ok());
    CHECK(disk.Content("log") == std::string("one\r\n\0two", 9));
    CHECK(disk.files.Append(disk.root + "none\\log", "x").code() == kPathNotFound);
    disk.machine->MakeFile(disk.root + "precious", "dear");
    if (disk.machine->MakeSecondName(disk.root + "led astray", disk.root + "precious")) {
      CHECK(disk.files.Append(disk.root + "led astray", "x").code() == kPermissionDenied);
      CHECK(disk.Content("precious") == "dear");
    }
    disk.machine->SetAttributes(disk.root + "log", kReadOnly);
    // Wine lets the superuser write all the same.
    const bool appended = disk.files.Append(disk.root + "log", "x").ok();
    CHECK(disk.Content("log").size() == (appended ? 10 : 9));
  }

  TEST_CASE("replacing leaves the new content alone behind, or the old one") {
    OnDisk disk;
    CHECK(disk.files.Replace(disk.root + "file.ini", "first").ok());
    CHECK(disk.files.Replace(disk.root + "FILE.ini", "2nd").ok());
    CHECK(disk.Content("file.ini") == "2nd");
    CHECK(disk.Names("*.*").size() == 9);  // one name and a blank
    CHECK(disk.files.Replace(disk.root + "none\\file", "x").code() == kPathNotFound);
    disk.machine->SetAttributes(disk.root + "file.ini", kReadOnly);
    const bool replaced = disk.files.Replace(disk.root + "file.ini", "third").ok();
    CHECK(disk.Content("file.ini") == (replaced ? "third" : "2nd"));
    CHECK(disk.Names("*.*").size() == 9);
    disk.machine->MakeFolder(disk.root + "folder");
    CHECK_FALSE(disk.files.Replace(disk.root + "folder", "x").ok());
    CHECK(disk.Names("fold*") == "folder ");
  }

  TEST_CASE("erasing takes files only") {
    OnDisk disk;
    disk.Make("file");
    disk.Make("fixed");
    disk.machine->SetAttributes(disk.root + "fixed", kReadOnly);
    disk.machine->MakeFolder(disk.root + "folder");
    CHECK(disk.files.EraseFile(disk.root + "FILE").ok());
    CHECK(disk.files.EraseFile(disk.root + "file").code() == kFileNotFound);
    CHECK(disk.files.EraseFile(disk.root + "fixed").code() == kPermissionDenied);
    CHECK_FALSE(disk.files.EraseFile(disk.root + "folder").ok());
    CHECK(disk.Names("*.*") == "fixed folder ");
    disk.machine->SetAttributes(disk.root + "fixed", 0);
    CHECK(disk.files.EraseFile(disk.root + "fixed").ok());
  }

  TEST_CASE("drives come in letter order") {
    OnDisk disk;
    const std::vector<Drive> drives = disk.files.Drives();
    bool has_own = false;
    for (std::size_t i = 0; i < drives.size(); ++i) {
      CHECK((i == 0 || drives[i - 1].letter < drives[i].letter));
      has_own = has_own || drives[i].letter == disk.root.front();
    }
    CHECK(has_own);
    CHECK(disk.files.IsReady(disk.root.substr(0, 3)));
    CHECK_FALSE(disk.files.IsReady("Q:\\"));
  }
}

}  // namespace scourwell::test
