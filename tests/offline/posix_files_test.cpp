// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>

#include "offline/beneath.h"
#include "offline/disk_name.h"
#include "offline/listing_pattern.h"
#include "offline/posix_files.h"
#include "platform/posix/clock_posix.h"
#include "platform/posix/terminal_posix.h"
#include "tests/helpers.h"
#include "tests/offline/temporary_folder.h"
#include "text/paths.h"
#include "text/unicode.h"

#include <doctest/doctest.h>

namespace scourwell::test {
namespace {

struct Mounted {
  TemporaryFolder disk;
  PosixFiles files{{{'C', disk.path()}}};

  std::vector<DirEntry> List(const std::string& pattern, bool names_only = false) {
    std::vector<DirEntry> entries;
    const auto keep = [&](const DirEntry& entry) {
      entries.push_back(entry);
      return true;
    };
    CHECK((names_only ? files.ListNames(pattern, keep) : files.List(pattern, keep)).ok());
    return entries;
  }
  void Link(const std::string& target, const std::string& name) {
    CHECK(symlink(target.c_str(), (disk.path() + "/" + name).c_str()) == 0);
  }
  std::string Content(const std::string& path) {
    std::string content = "(none)";
    static_cast<void>(files.Read(path, 1000, &content));
    return content;
  }
};

}  // namespace

TEST_SUITE("terminal") {
  TEST_CASE("lines are read until there are no more, and an endless one in parts") {
    TerminalPosix terminal;
    const TemporaryFolder folder;
    const std::string path = folder.Put("input", "yes\n\n" + std::string(65'536, 'x') + "end");
    const UniqueFd before(dup(STDIN_FILENO));
    const UniqueFd input(open(path.c_str(), O_RDONLY));
    REQUIRE(dup2(input.get(), STDIN_FILENO) == STDIN_FILENO);
    std::vector<std::string> lines;
    while (const auto line = terminal.ReadLine()) lines.push_back(line->substr(0, 4));
    dup2(before.get(), STDIN_FILENO);
    CHECK(Lines(lines) == "yes\n\nxxxx\nend\n");
  }

  TEST_CASE("a signal stops the scan; what whoever started us ignores stays ignored") {
    std::signal(SIGHUP, SIG_IGN);
    std::signal(SIGTERM, SIG_DFL);
    const TerminalPosix terminal;
    CHECK_FALSE(terminal.Interrupted());
    std::raise(SIGHUP);
    CHECK_FALSE(terminal.Interrupted());
    std::raise(SIGTERM);
    CHECK(terminal.Interrupted());
    const bool pipe_ignored = std::signal(SIGPIPE, SIG_DFL) == SIG_IGN;
    CHECK(pipe_ignored);
    for (const int signal : {SIGHUP, SIGTERM, SIGINT}) std::signal(signal, SIG_DFL);
  }
}

TEST_SUITE("clock") {
  TEST_CASE("times are told in the zone of the user") {
    const char* const before = std::getenv("TZ");
    const std::string kept = before ? before : "";
    setenv("TZ", "XYZ-3", 1);
    tzset();
    ClockPosix clock;
    const LocalTime time = clock.ToLocal(FileTime{116'444'736'001'230'000});  // 1970
    CHECK(clock.ShortDate(time) + " " + clock.TimeOfDay(time) == "1970-01-01 03:00:00");
    CHECK(time.millisecond == 123);
    before ? setenv("TZ", kept.c_str(), 1) : unsetenv("TZ");
    tzset();
  }
}

TEST_SUITE("offline_files") {
  TEST_CASE("any bytes of a name go there and back, and no two read alike") {
    std::vector<std::string> names = {"plain.exe",
                                      "Gr\u00FC\u00DFe",
                                      "\u4E88\u5B9A",
                                      "\U0001F600",
                                      "caf\xE9",
                                      "\xFF",
                                      "\xC3\xA4\xC3",
                                      "a\\b",
                                      "q?",
                                      "*",
                                      "a:b",
                                      "\"<|>\x01",
                                      "half \xED\xA0\x80",
                                      "\xED\xB3\x83\xED\xB2\xA4",
                                      "end. "};
    std::vector<std::string> seen;
    for (const std::string& name : names) {
      const std::string shown = FromDiskName(name);
      CAPTURE(shown);
      CHECK(ToDiskName(shown) == name);
      CHECK(IsPossibleName(shown));
      CHECK(std::count(seen.begin(), seen.end(), shown) == 0);
      seen.push_back(shown);
    }
    // Halves that stand for no byte, or for bytes that are a character, or for what no name has.
    for (const std::string& name :
         {std::string(), std::string("."), std::string(".."), std::string("a/b"), std::string("*"),
          std::string("\xFF"), FromUtf16(u"\xDCC3\xDCA4"), FromUtf16(u"\xDC2F"),
          FromUtf16(u"\xDC61"), FromUtf16(u"\xD800"), std::string("nul\0", 4)}) {
      CAPTURE(name);
      CHECK_FALSE(ToDiskName(name));
    }
  }

  TEST_CASE("every name on a disk is listed, reached, moved and erased") {
    Mounted m;
    const std::vector<std::string> names = {"caf\xE9", "a\\b", "x*y",  "?",   "c:d",
                                            "tab\t",   "Name", "NAME", "name"};
    for (const std::string& name : names) m.disk.Put("folder/" + name, "content of " + name);
    const auto entries = m.List("c:\\FOLDER\\*");
    REQUIRE(entries.size() == names.size());
    for (const DirEntry& entry : entries) {
      CAPTURE(entry.name);
      const std::string path = "C:\\folder\\" + entry.name;
      CHECK(m.Content("C:\\folder\\none") == "(none)");  // the folder has been listed
      CHECK(m.Content(path) == "content of " + ToDiskName(entry.name).value_or("?"));
      CHECK(m.files.Move(path, path + " moved").ok());
      CHECK(m.files.EraseFile(path + " moved").ok());
    }
    CHECK(m.List("C:\\folder\\*").empty());
    m.disk.Put("folder/case");
    CHECK(m.files.Move("C:\\folder\\Case", "C:\\FOLDER\\CASE").ok());
    CHECK(m.disk.Has("folder/CASE"));
  }

  TEST_CASE("each of several drives has its own, whatever the letters that were given") {
    const TemporaryFolder first, second;
    first.Put("folder/file", "of the first");
    second.Put("folder/file", "of the second");
    PosixFiles files(
        {{'d', second.path() + "//"}, {'e', second.path() + "/folder"}, {'c', first.path()}});
    for (const auto& [path, content] : Rows<const char*, const char*>{
             {"C:\\folder\\file", "of the first"}, {"d:\\folder\\file", "of the second"}}) {
      std::string read;
      CHECK(files.Read(path, 100, &read).ok());
      CHECK(read == content);
    }
    REQUIRE(files.Drives().size() == 3);
    CHECK(files.Drives()[0].letter == 'C');
    CHECK(files.FromLinux(second.path() + "/new") == "D:\\new");
    CHECK(files.FromLinux(second.path() + "/folder/file") == "E:\\file");
    CHECK(files.FromLinux(second.path() + "folder") == "");
  }

  TEST_CASE("what no exact name leads to is found in any case") {
    Mounted m;
    m.disk.Put("Windows/SYSTEM32/\u0436\u0416.Dll", "x");
    m.disk.Put("windows2/a", "y");
    CHECK(m.Content("C:\\WINDOWS\\system32\\\u0416\u0436.DLL") == "x");
    CHECK(m.files.ShortPath("c:\\windows\\System32\\\u0416\u0436.dll") ==
          "C:\\Windows\\SYSTEM32\\\u0436\u0416.Dll");
    // Changes by others are seen, too.
    m.disk.Put("Windows/SYSTEM32/new.dll", "z");
    CHECK(m.Content("C:\\WINDOWS\\SYSTEM32\\NEW.dll") == "z");
    CHECK(m.Content("C:\\WINDOWS\\SYSTEM32\\x/../new.dll") == "(none)");
    CHECK(m.Content("D:\\WINDOWS\\SYSTEM32\\new.dll") == "(none)");
  }

  TEST_CASE("links are links, and nothing behind one is seen or touched") {
    Mounted m;
    TemporaryFolder outside;
    outside.Put("precious", "dear");
    m.disk.Put("inside/file", "x");
    m.Link(outside.path(), "out");
    m.Link(outside.path() + "/precious", "file.exe");
    m.Link("inside", "alias");
    m.Link("nowhere", "dangling");
    m.Link("..", "up");
    const auto entries = m.List("C:\\*", true);
    CHECK(std::ranges::count_if(entries, &DirEntry::IsLink) == 5);
    for (const char* path : {"C:\\out\\precious", "C:\\file.exe", "C:\\alias\\file", "C:\\up\\x",
                             "C:\\..\\etc\\passwd", "C:\\dangling"}) {
      CAPTURE(std::string(path));
      CHECK(m.Content(path) == "(none)");
      CHECK_FALSE(m.files.Replace(path, "evil").ok());
      CHECK_FALSE(m.files.Append(path, "evil").ok());
    }
    std::unique_ptr<FolderHold> hold;
    CHECK(m.files.HoldFolder("C:\\out", &hold).code() == kPathFileAccess);
    CHECK(m.files.HoldFolder("C:\\alias\\x", &hold).code() == kPathFileAccess);
    CHECK_FALSE(m.files.CreateFolder("C:\\out\\new").ok());
    CHECK_FALSE(m.files.EraseFile("C:\\out\\precious").ok());
    for (const char* path : {"C:\\out", "C:\\file.exe", "C:\\dangling"}) {
      std::unique_ptr<OpenedItem> item;
      REQUIRE(m.files.OpenItem(path, &item).ok());
      CHECK((item->attributes() & kLink) != 0);
      CHECK(item->Erase().ok());
    }
    CHECK(outside.Content("precious") == "dear");
    CHECK(m.disk.Content("inside/file") == "x");
  }

  TEST_CASE("a link that takes the place of a folder on the way leads nowhere") {
    Mounted m;
    TemporaryFolder outside;
    outside.Put("file", "dear");
    m.disk.Put("folder/file", "x");
    std::unique_ptr<OpenedItem> item;
    REQUIRE(m.files.OpenItem("C:\\folder\\file", &item).ok());
    CHECK(m.Content("C:\\folder\\file") == "x");  // the way is known from now on
    std::filesystem::rename(m.disk.path() + "/folder", m.disk.path() + "/aside");
    m.Link(outside.path(), "folder");
    CHECK_FALSE(m.files.Replace("C:\\folder\\file", "evil").ok());
    CHECK(m.disk.Content("aside/file") == "x");
    CHECK(item->Erase().ok());
    CHECK(outside.Content("file") == "dear");
    CHECK_FALSE(m.disk.Has("aside/file"));
    m.disk.Put("other", "x");
    REQUIRE(m.files.OpenItem("C:\\other", &item).ok());
    std::filesystem::remove(m.disk.path() + "/other");
    m.disk.Put("other", "another one");
    CHECK_FALSE(item->Erase().ok());
    CHECK_FALSE(item->MoveTo("C:\\moved").ok());
    CHECK(m.disk.Content("other") == "another one");
  }

  TEST_CASE("a system without the newer call opens the same and refuses the same") {
    Mounted m;
    m.disk.Put("a/b/file", "x");
    m.Link("/etc", "etc");
    m.Link("a", "a/alias");
    m.Link("file", "a/b/link");
    const UniqueFd root(open(m.disk.path().c_str(), O_PATH | O_DIRECTORY));
    for (const auto& [path, flags, error] :
         Rows<const char*, int, int>{{".", O_PATH | O_DIRECTORY, 0},
                                     {"a/b", O_PATH | O_DIRECTORY, 0},
                                     {"a/b/file", O_RDONLY, 0},
                                     {"a/b/file", O_RDONLY | O_DIRECTORY, ENOTDIR},
                                     {"a/b/link", O_RDONLY, ELOOP},
                                     {"a/b/link", O_PATH | O_NOFOLLOW, 0},
                                     {"a/b/none", O_RDONLY, ENOENT},
                                     {"a/b/file/x", O_RDONLY, ENOTDIR},
                                     {"etc/passwd", O_RDONLY, ELOOP},
                                     {"a/alias/b/file", O_RDONLY, ELOOP},
                                     {"/etc/passwd", O_RDONLY, EXDEV},
                                     {"../x", O_RDONLY, EXDEV}}) {
      CAPTURE(std::string(path));
      for (const auto open_it : {&OpenBeneath, &OpenPartByPart}) {
        errno = 0;
        const UniqueFd opened = open_it(root.get(), path, flags, 0);
        CHECK((opened ? 0 : errno) == error);
      }
    }
  }

  TEST_CASE("what is no ordinary file is listed, and never opened") {
    Mounted m;
    REQUIRE(mkfifo((m.disk.path() + "/pipe.exe").c_str(), 0666) == 0);
    CHECK(m.List("C:\\*").size() == 1);
    CHECK(m.Content("C:\\pipe.exe") == "(none)");
    CHECK_FALSE(m.files.Append("C:\\pipe.exe", "x").ok());
  }

  TEST_CASE("a walk sees the names that a listing shows, with less of them") {
    Mounted m;
    m.disk.Put("folder/file", "12345");
    m.disk.Put("x", "1");
    m.Link("x", "link");
    const auto all = m.List("C:\\*");
    const auto names = m.List("C:\\*", true);
    REQUIRE(all.size() == names.size());
    for (std::size_t i = 0; i < all.size(); ++i) {
      CHECK(all[i].name == names[i].name);
      CHECK((all[i].attributes & (kFolder | kLink)) == (names[i].attributes & (kFolder | kLink)));
    }
  }

  TEST_CASE("attributes are those that Wine and file servers keep") {
    Mounted m;
    const std::string path = m.disk.Put("file");
    REQUIRE(chmod(path.c_str(), 0666) == 0);
    REQUIRE(m.files.SetAttributes("C:\\file", kHidden | kReadOnly).ok());
    char text[16] = {};
    CHECK(getxattr(path.c_str(), "user.DOSATTRIB", text, sizeof text) == 3);
    CHECK(std::string(text) == "0x2");
    struct stat facts = {};
    CHECK(stat(path.c_str(), &facts) == 0);
    CHECK((facts.st_mode & 0222) == 0);
  }

  TEST_CASE("paths of both systems lead to each other") {
    Mounted m;
    TemporaryFolder other;
    m.disk.Put("Folder/caf\xE9", "x");
    const std::string shown = m.files.FromLinux(m.disk.path() + "/Folder/caf\xE9");
    CHECK(m.Content(shown) == "x");
    CHECK(m.files.ToLinux(shown) == m.disk.path() + "/Folder/caf\xE9");
    CHECK(m.files.ToLinux("c:\\FOLDER\\new") == m.disk.path() + "/Folder/new");
    CHECK(m.files.FromLinux(other.path()) == "");
    CHECK(m.files.ToLinux("Q:\\x") == "");
    const std::string root = m.files.Adopt(other.path());
    REQUIRE(root == "Z:\\");
    CHECK(m.files.Replace(root + "file", "y").ok());
    CHECK(other.Content("file") == "y");
    CHECK(m.files.FromLinux(other.path() + "/file") == "Z:\\file");
    CHECK(m.files.Drives().size() == 1);
    CHECK(m.files.Adopt(other.path() + "/none") == "");
  }

  TEST_CASE("patterns of listings") {
    for (const auto& [pattern, name, matches] :
         Rows<const char*, const char*, bool>{{"*.*", "noext", true},
                                              {"*", "a.b", true},
                                              {"*.", "noext", true},
                                              {"*.", "a.b", false},
                                              {"A*.DLL", "a1.dll", true},
                                              {"a?.dll", "a.dll", false},
                                              {"a?.dll", "a12.dll", false},
                                              {"x.*", "x", true},
                                              {"x*.*", "xy", true},
                                              {"*\u00E9?", "\u00C9x", true},
                                              {"a*b*c", "aXbYbZc", true},
                                              {"a*b*c", "aXbYbZ", false},
                                              {"", "x", false},
                                              {"?", "\u4E88", true},
                                              {"*a", "a ", false}}) {
      CAPTURE(std::string(pattern));
      CAPTURE(std::string(name));
      CHECK(ListingPattern(pattern).Matches(name) == matches);
    }
  }
}

}  // namespace scourwell::test
