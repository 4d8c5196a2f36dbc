// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <filesystem>

#include "offline/posix_files.h"
#include "tests/helpers.h"
#include "tests/offline/temporary_folder.h"

#include <doctest/doctest.h>

namespace scourwell::test {
namespace {

constexpr std::size_t kAttributes = 4;  // bytes, the highest first
constexpr std::uint32_t kCompressed = 0x800;

std::string Bytes(std::uint64_t number, std::size_t count) {
  std::string bytes;
  while (count-- > 0) bytes += static_cast<char>(number >> (8 * count));
  return bytes;
}

// As long as one lives, the volumes here keep what the drivers of NTFS show of an item: under names
// for which they have room.
class NtfsDriver {
 public:
  NtfsDriver() { present_ = true; }
  NtfsDriver(const NtfsDriver&) = delete;
  NtfsDriver& operator=(const NtfsDriver&) = delete;
  ~NtfsDriver() { present_ = false; }

  static std::string NameFor(std::string name) {
    return present_ && name.starts_with("system.ntfs_") ? "user" + name.substr(6) : name;
  }
  // Of "attrib_be", "crtime_be" and "dos_name"; empty when there is none.
  static std::string Get(const std::string& path, const std::string& name) {
    std::string value(256, '\0');
    const ssize_t size =
        getxattr(path.c_str(), ("user.ntfs_" + name).c_str(), value.data(), value.size());
    return value.substr(0, size > 0 ? static_cast<std::size_t>(size) : 0);
  }
  static void Set(const std::string& path, const std::string& name, const std::string& value) {
    REQUIRE(setxattr(path.c_str(), ("user.ntfs_" + name).c_str(), value.data(), value.size(), 0) ==
            0);
  }

 private:
  inline static bool present_ = false;
};

struct stat FactsOf(const std::string& path) {
  struct stat facts = {};
  CHECK(lstat(path.c_str(), &facts) == 0);
  return facts;
}

mode_t ModeOf(const std::string& path) { return FactsOf(path).st_mode & 07777; }

// A disk and a folder beside it for archives.
struct Drives {
  TemporaryFolder disk;
  TemporaryFolder beside;
  PosixFiles files{{{'C', disk.path()}}};
  std::string root = files.Adopt(beside.path());
};

// A disk as the drivers of NTFS show it.
struct NtfsDisk : NtfsDriver, TemporaryFolder {
  NtfsDisk() { Set(path(), "attrib_be", Bytes(kFolder, kAttributes)); }
};

}  // namespace

TEST_SUITE("offline_changes") {
  TEST_CASE("a file that takes the place of another has its owner, rights and attributes") {
    Drives m;
    const std::string old = m.disk.Put("SYSTEM.DAT", "old");
    m.disk.Put("fresh", "new");
    const uid_t owner = geteuid() == 0 ? 1234 : geteuid();
    REQUIRE(chown(old.c_str(), owner, static_cast<gid_t>(-1)) == 0);
    REQUIRE(m.files.SetAttributes("C:\\SYSTEM.DAT", kHidden | kSystem).ok());
    REQUIRE(chmod(old.c_str(), 0640) == 0);
    DirEntry entry;
    CHECK(m.files.Stat("c:\\FRESH", &entry).ok());  // its name is known from now on
    CHECK(m.files.TakePlace("C:\\Fresh", "C:\\system.dat").ok());
    CHECK(m.disk.Content("SYSTEM.DAT") == "new");
    CHECK_FALSE(m.disk.Has("fresh"));
    CHECK(FactsOf(old).st_uid == owner);
    CHECK(ModeOf(old) == 0640);
    CHECK(m.files.Stat("C:\\SYSTEM.dat", &entry).ok());
    CHECK(entry.attributes == (kHidden | kSystem));
    CHECK(m.files.Stat("c:\\FRESH", &entry).code() == kFileNotFound);
    m.disk.Put("fresh", "newer");
    CHECK(m.files.TakePlace("C:\\fresh", "C:\\none").code() == kFileNotFound);
    CHECK(m.files.TakePlace("C:\\none", "C:\\SYSTEM.DAT").code() == kFileNotFound);
    CHECK(m.disk.Content("SYSTEM.DAT") + m.disk.Content("fresh") == "newnewer");
  }

  TEST_CASE(
      "what is written anew keeps its owner and rights, and replaces no folder or read-only file") {
    Drives m;
    const std::string path = m.disk.Put("file", "old");
    const uid_t owner = geteuid() == 0 ? 1234 : geteuid();
    REQUIRE(chown(path.c_str(), owner, static_cast<gid_t>(-1)) == 0);
    REQUIRE(chmod(path.c_str(), 0660) == 0);
    // What another run of the same number left behind is in nobody's way.
    m.disk.Put("~scourwell" + std::to_string(getpid()) + "-0.tmp", "left");
    CHECK(m.files.Replace("C:\\file", "new").ok());
    CHECK(FactsOf(path).st_uid == owner);
    CHECK(ModeOf(path) == 0660);
    m.disk.MakeFolder("folder");
    CHECK_FALSE(m.files.Replace("C:\\folder", "x").ok());
    REQUIRE(chmod(path.c_str(), 0444) == 0);
    CHECK(m.files.Replace("C:\\file", "newest").code() == kPermissionDenied);
    CHECK(m.disk.Content("file") == "new");
    CHECK(std::distance(std::filesystem::directory_iterator(m.disk.path()), {}) == 3);
  }

  TEST_CASE("nothing is appended to a file that has another name as well, or is a link") {
    Drives m;
    const std::string path = m.disk.Put("file", "x");
    REQUIRE(link(path.c_str(), (m.disk.path() + "/other").c_str()) == 0);
    REQUIRE(symlink("file", (m.disk.path() + "/link").c_str()) == 0);
    for (const char* name : {"C:\\file", "C:\\link"}) {
      CHECK(m.files.Append(name, "evil").code() == kPermissionDenied);
    }
    CHECK(m.disk.Content("file") == "x");
  }

  TEST_CASE("a name moves to another case of it, but not to another name of the same item") {
    Drives m;
    const std::string path = m.disk.Put("File", "x");
    REQUIRE(m.files.Move("C:\\File", "C:\\FILE").ok());
    REQUIRE(m.files.Move("C:\\FILE", "C:\\file").ok());
    const std::string moved = m.disk.path() + "/file";
    REQUIRE(link(moved.c_str(), (m.disk.path() + "/other").c_str()) == 0);
    REQUIRE(link(moved.c_str(), (m.disk.path() + "/OTHER").c_str()) == 0);
    std::unique_ptr<OpenedItem> item;
    REQUIRE(m.files.OpenItem("C:\\other", &item).ok());
    CHECK(m.files.Move("C:\\file", "C:\\other").code() == kFileExists);
    CHECK(item->MoveTo("C:\\OTHER").code() == kFileExists);
    CHECK(m.files.Move("C:\\file", "C:\\File").ok());
    CHECK(m.disk.Has("File"));
    CHECK_FALSE(m.disk.Has("file"));
    CHECK(m.disk.Has("other"));
  }

  TEST_CASE("a guarded folder beside the disk is one that nobody else can write to") {
    Drives m;
    REQUIRE(m.root == "Z:\\");
    CHECK(m.files.CreateGuardedFolder("Z:\\folder").ok());
    const std::string folder = m.beside.path() + "/folder";
    CHECK(ModeOf(folder) == 0700);
    m.disk.MakeFolder("folder");
    for (const auto& [mode, guarded] :
         Rows<mode_t, bool>{{0700, true}, {0755, true}, {0770, false}, {0702, false}}) {
      CAPTURE(mode);
      REQUIRE(chmod(folder.c_str(), mode) == 0);
      CHECK(m.files.IsGuarded("Z:\\folder") == guarded);
      // On the disk itself nobody else is there.
      REQUIRE(chmod((m.disk.path() + "/folder").c_str(), mode) == 0);
      CHECK(m.files.IsGuarded("C:\\folder"));
    }
    CHECK_FALSE(m.files.IsGuarded("C:\\none"));
    CHECK_FALSE(m.files.IsGuarded("Z:\\none"));
  }

  TEST_CASE("attributes, security and times of NTFS are those of its driver") {
    const NtfsDisk disk;
    const std::string path = disk.Put("long name.txt", "x");
    NtfsDriver::Set(path, "attrib_be",
                    Bytes(kCompressed | kHidden | kSystem | kArchive, kAttributes));
    NtfsDriver::Set(path, "dos_name", "LONGNA~1.TXT");
    const std::string second = disk.Put("SHORT.TXT", "y");
    NtfsDriver::Set(second, "dos_name", "SHORT.TXT");
    REQUIRE(chmod(second.c_str(), 0444) == 0);
    PosixFiles files({{'C', disk.path()}});
    DirEntry entry;
    CHECK(files.Stat("C:\\long name.txt", &entry).ok());
    CHECK(entry.attributes == (kHidden | kSystem | kArchive));
    CHECK(entry.short_name == "LONGNA~1.TXT");
    // The driver says nothing of this one.
    CHECK(files.Stat("C:\\SHORT.TXT", &entry).ok());
    CHECK(entry.attributes == kReadOnly);
    CHECK(entry.short_name == "");

    CHECK(files.SetAttributes("C:\\long name.txt", kReadOnly | kFolder).ok());
    CHECK(NtfsDriver::Get(path, "attrib_be") == Bytes(kCompressed | kReadOnly, kAttributes));
    const FileTime made = 0x01C0'1234'5678'9ABC;
    CHECK(files.SetTimes("C:\\long name.txt", {made, 0, 0}).ok());
    CHECK(files.SetTimes("C:\\long name.txt", {0, made, made}).ok());
    CHECK(NtfsDriver::Get(path, "crtime_be") == Bytes(made, 8));
    CHECK(files.SetSecurity("C:\\long name.txt", "who may do what").ok());
    CHECK(files.Security("C:\\long name.txt") == "who may do what");
    CHECK(files.SetSecurity("C:\\long name.txt", "").ok());  // nothing is known of it
    const std::string fresh = disk.Put("fresh", "new");
    NtfsDriver::Set(fresh, "attrib_be", Bytes(kArchive, kAttributes));
    CHECK(files.TakePlace("C:\\fresh", "C:\\long name.txt").ok());
    CHECK(files.Security("C:\\long name.txt") == "who may do what");
    CHECK(NtfsDriver::Get(path, "attrib_be") == Bytes(kReadOnly, kAttributes));
  }

  TEST_CASE(
      "a volume that does not keep attributes says so, and one without NTFS has no security") {
    Drives m;
    m.disk.Put("file", "x");
    CHECK(m.files.SetSecurity("C:\\file", "who may do what").ok());
    CHECK(m.files.Security("C:\\file") == "");
    auto driver = std::make_unique<NtfsDriver>();
    NtfsDriver::Set(m.disk.path(), "attrib_be", Bytes(kFolder, kAttributes));
    PosixFiles files({{'C', m.disk.path()}});
    driver.reset();
    CHECK(files.SetAttributes("C:\\file", kHidden).code() == kPermissionDenied);
    CHECK(files.SetSecurity("C:\\file", "who may do what").code() == kPermissionDenied);
  }

  TEST_CASE("times before 1970 are times like others") {
    Drives m;
    m.disk.Put("file");
    const FileTime early = 116'443'735'999'999'995;
    CHECK(m.files.SetTimes("C:\\file", {0, early, early + 1}).ok());
    DirEntry entry;
    CHECK(m.files.Stat("C:\\file", &entry).ok());
    CHECK(entry.accessed == early);
    CHECK(entry.modified == early + 1);
  }

  TEST_CASE("an 8.3 name that the driver knows and does not list leads to the item") {
    Drives m;
    const std::string path = m.disk.Put("folder/a long name.txt", "x");
    for (const char* name : {"a", "b", "c", "d", "e", "f"})
      m.disk.Put(std::string("folder/") + name);
    CHECK(m.files.ShortPath("C:\\folder\\A LONG NAME.TXT") == "C:\\folder\\a long name.txt");
    // A second name that the listing before does not hold, in a folder that seems unchanged.
    const std::string folder = m.disk.path() + "/folder";
    const struct stat before = FactsOf(folder);
    REQUIRE(link(path.c_str(), (folder + "/ALONGN~1.TXT").c_str()) == 0);
    const timespec times[] = {before.st_atim, before.st_mtim};
    REQUIRE(utimensat(AT_FDCWD, folder.c_str(), times, 0) == 0);
    for (const char* name : {"ALONGN~1.TXT", "alongn~1.txt"}) {
      CHECK(m.files.ShortPath("C:\\folder\\" + std::string(name)) == "C:\\folder\\a long name.txt");
    }
    CHECK(m.files.ShortPath("C:\\folder\\ALONGN~2.TXT") == "");
  }
}

}  // namespace scourwell::test

// The program finds these before those of the system.
extern "C" ssize_t lgetxattr(const char* path, const char* name, void* value,
                             std::size_t size) noexcept {
  const std::string kept = scourwell::test::NtfsDriver::NameFor(name);
  return syscall(SYS_lgetxattr, path, kept.c_str(), value, size);
}

extern "C" int lsetxattr(const char* path, const char* name, const void* value, std::size_t size,
                         int flags) noexcept {
  const std::string kept = scourwell::test::NtfsDriver::NameFor(name);
  return static_cast<int>(syscall(SYS_lsetxattr, path, kept.c_str(), value, size, flags));
}
