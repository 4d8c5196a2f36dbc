// SPDX-License-Identifier: MIT
#include "machine/next_start.h"

#include "machine/restart_lists.h"
#include "platform/security_descriptor.h"
#include "tests/support.h"

namespace scourwell::test {
namespace {

constexpr char kWinInit[] = "C:\\WINDOWS\\WinInit.ini";
constexpr char kSessionManager[] = "SYSTEM\\CurrentControlSet\\Control\\Session Manager";
constexpr char kMoves[] = "PendingFileRenameOperations";

// A machine of either family, on which something is in use.
struct Starter : Bench {
  SystemFolders folders{kAppFolder, "C:\\WINDOWS", "C:\\WINDOWS\\system32", "", "", "", "", {}};
  COpSysInfo os;
  NextStart next{{m.files, m.system, m.registry, m.code_pages, os, folders}};

  explicit Starter(bool nt = true) : os(Family(nt)) {
    m.files.knows_links = nt;
    m.Folder("C:\\WINDOWS");
  }
  System& Family(bool nt) {
    if (!nt) m.system.record = {4, 10, 2222, 1, " A ", 0, 0, 0, 0};
    return m.system;
  }
  ErrorCode Leave(const std::string& path) {
    std::unique_ptr<OpenedItem> item;
    REQUIRE(m.files.OpenItem(path, &item).ok());
    return next.Leave(path, item.get()).code();
  }
  std::string Noted() {
    RegValue list;
    m.registry.QueryValue(RootKey::LocalMachine, kSessionManager, kMoves, &list);
    return list.data + m.Content(kWinInit);
  }
};

}  // namespace

TEST_SUITE("next_start") {
  TEST_CASE("WinInit.ini gets its entry right below the header, once") {
    const Rows<std::string, const char*> kFiles{
        {"", "[Rename]\r\nNUL=C:\\SPYWAR~1\\evil.exe\r\n"},
        {"[rename]\r\nNUL=C:\\a\r\n", "[rename]\r\nNUL=C:\\SPYWAR~1\\evil.exe\r\nNUL=C:\\a\r\n"},
        {"[x]\r\n[Rename]", "[x]\r\n[Rename]\r\nNUL=C:\\SPYWAR~1\\evil.exe\r\n"},
        {";[Rename]\r\n[x]\r\n", "[Rename]\r\nNUL=C:\\SPYWAR~1\\evil.exe\r\n;[Rename]\r\n[x]\r\n"},
    };
    for (const auto& [before, after] : kFiles) {
      Starter s(false);
      s.m.File("C:\\Spyware Folder\\evil.exe");
      if (!before.empty()) s.m.File(kWinInit, before);
      for (int i = 0; i < 2; ++i) {
        CHECK(s.Leave("C:\\Spyware Folder\\evil.exe") == kNoError);
        CHECK(s.Noted() == after);
      }
    }
  }

  TEST_CASE("WinInit.ini survives every failure") {
    Starter s(false);
    s.m.File("C:\\evil.exe");
    Node& ini = s.m.File(kWinInit, "[Rename]\r\nNUL=C:\\a\r\n");
    ini.Locked();
    CHECK(s.Leave("C:\\evil.exe") == kPermissionDenied);
    ini.locked = false;
    s.m.Folder("C:\\WINDOWS").Refuses();
    CHECK(s.Leave("C:\\evil.exe") == kPermissionDenied);
    s.m.Folder("C:\\WINDOWS").refuses = false;
    s.m.files.faults["Stat C:\\WINDOWS\\WinInit.ini"] = kDeviceError;
    CHECK(s.Leave("C:\\evil.exe") != kNoError);
    CHECK(s.next.Withdraw("C:\\a").code() != kNoError);
    CHECK(ini.content == "[Rename]\r\nNUL=C:\\a\r\n");
  }

  TEST_CASE("what may be moved waits where only administrators get at it") {
    Starter s;
    s.m.File("C:\\Evil\\run.exe").Running();
    s.m.Folder("C:\\Evil\\empty").Running();
    s.m.Folder("C:\\Evil").OpenToUsers();
    s.m.Folder("C:\\WINDOWS\\~scw0000.del");
    CHECK(s.Leave("C:\\Evil\\run.exe") == kNoError);
    CHECK(s.Leave("C:\\Evil\\empty") == kNoError);
    CHECK_FALSE(s.m.Has("C:\\Evil\\run.exe"));
    CHECK(s.m.Has("C:\\WINDOWS\\~scw0001.del\\run.exe"));
    // A second try finds it noted.
    CHECK(s.Leave("C:\\WINDOWS\\~scw0001.del\\run.exe") == kNoError);
    CHECK(Lines(s.m.system.journal) ==
          "Delete C:\\WINDOWS\\~scw0001.del\\run.exe\nDelete C:\\WINDOWS\\~scw0001.del\n"
          "Delete C:\\WINDOWS\\~scw0002.del\\empty\nDelete C:\\WINDOWS\\~scw0002.del\n");
    s.m.Restart();
    CHECK(s.m.files.Find("C:\\WINDOWS")->children.size() == 1);
  }

  TEST_CASE("nothing is noted that the next start could not do, or would do elsewhere") {
    Starter s;
    s.m.AddDrive('D', DriveKind::Removable);
    s.m.AddDrive('E');
    s.m.AddDrive('R', DriveKind::Optical);
    s.m.files.AddSecondLetter('Z', DriveKind::Network, "C:\\Shared", "\\\\server\\share");
    // A letter that claims to be a disk, for a folder elsewhere.
    s.m.files.AddSecondLetter('Y', DriveKind::Fixed, "C:\\Shared", "\\\\server\\share");
    s.m.File("C:\\Shared\\run.exe").Running();
    s.m.File("C:\\open\\held.exe").Locked();
    s.m.Folder("C:\\open").OpenToUsers();
    s.m.Folder("C:\\Held").Locked();
    s.m.File("C:\\denied.exe").Denied();
    for (const char* path : {"D:\\run.exe", "E:\\run.exe", "R:\\run.exe"}) s.m.File(path).Running();
    s.m.Folder("E:\\").OpenToUsers();
    for (const char* path : {"D:\\run.exe", "E:\\run.exe", "R:\\run.exe", "Z:\\run.exe",
                             "Y:\\run.exe", "C:\\open\\held.exe", "C:\\Held", "C:\\denied.exe"}) {
      CAPTURE(std::string(path));
      CHECK(s.Leave(path) != kNoError);
      CHECK(s.m.Has(path));
    }
    CHECK(s.m.system.journal.empty());
    CHECK(s.m.files.Find("C:\\WINDOWS")->children.empty());
    // On a way that is closed to them, a file may wait in its place.
    s.m.File("C:\\held.exe").Locked();
    CHECK(s.Leave("C:\\held.exe") == kNoError);
    CHECK(Lines(s.m.system.journal) == "Delete C:\\held.exe\n");
  }

  TEST_CASE("a folder in which something stays is noted, once, where no user can change it") {
    Starter s;
    s.m.AddDrive('D', DriveKind::Removable);
    s.m.Folder("C:\\open").OpenToUsers();
    for (const char* folder : {"D:\\full", "C:\\open", "C:\\open\\full", "C:\\full", "C:\\full"}) {
      CAPTURE(std::string(folder));
      s.m.Folder(folder);
      std::unique_ptr<OpenedItem> item;
      REQUIRE(s.m.files.OpenItem(folder, &item).ok());
      CHECK(s.next.LeaveFull(folder, item.get()).ok() == (std::string_view(folder) == "C:\\full"));
    }
    CHECK(Lines(s.m.system.journal) == "Delete C:\\full\n");
  }

  TEST_CASE("what cannot be noted goes back to its place") {
    Starter s;
    s.m.File("C:\\Evil\\run.exe").Running();
    s.m.system.refuses_at = 2;  // the folder
    CHECK(s.Leave("C:\\Evil\\run.exe") != kNoError);
    CHECK(s.m.Has("C:\\Evil\\run.exe"));
    CHECK(s.m.files.Find("C:\\WINDOWS")->children.empty());
    CHECK(s.Noted() == "");
  }

  TEST_CASE("what comes to lie there is taken off the list, and nothing else is") {
    for (const bool nt : {true, false}) {
      Starter s(nt);
      s.m.File("C:\\Evil Folder\\one.exe").Locked();
      s.m.File("C:\\two.exe").Locked();
      CHECK(s.Leave("C:\\two.exe") == kNoError);
      const std::string two = s.Noted();
      CHECK(s.Leave("C:\\Evil Folder\\one.exe") == kNoError);
      CHECK(s.next.Withdraw("C:\\Evil").ok());
      CHECK(s.Noted() != two);
      CHECK(s.next.Withdraw("c:\\evil folder\\ONE.exe").ok());
      CHECK(s.Noted() == two);
      // A folder that waits would take what comes into it along.
      if (nt) CHECK(s.m.system.DeleteAtReboot("C:\\Waits").ok());
      CHECK(s.next.Withdraw("C:\\Waits\\below\\three.exe").ok());
      CHECK(s.Noted() == two);
      s.m.Restart();
      CHECK(s.m.Has("C:\\Evil Folder\\one.exe"));
      CHECK_FALSE(s.m.Has("C:\\two.exe"));
      CHECK(s.next.Withdraw("C:\\two.exe").ok());
    }
  }

  TEST_CASE("entries of others stay byte for byte, whatever they look like") {
    using namespace std::string_literals;
    const auto take_x = [](const std::string& path) { return EqualsNoCase(path, "C:\\x"); };
    for (const auto& [list, kept] : Rows<std::string, std::string>{
             {""s, ""s},
             {"\\??\\c:\\X\0\0\0"s, ""s},
             {"*1\\??\\C:\\x\0\0\0"s, ""s},
             {"\\??\\C:\\a\0\0\\??\\C:\\x\0\0\0"s, "\\??\\C:\\a\0\0\0"s},
             {"\\??\\C:\\x\0\0\\??\\C:\\b\0!\\??\\C:\\x\0\0"s, "\\??\\C:\\b\0!\\??\\C:\\x\0\0"s},
             {"\\??\\C:\\x\0\\??\\C:\\y\0\0"s, "\\??\\C:\\x\0\\??\\C:\\y\0\0"s},
             {"\\??\\C:\\a\0\0cut off"s, "\\??\\C:\\a\0\0cut off"s},
             {"\\??\\C:\\a\0\0\\??\\C:\\x\0"s, "\\??\\C:\\a\0\0\\??\\C:\\x\0"s}}) {
      CHECK(WithoutMoves(list, take_x) == kept);
    }
    for (const auto& [text, kept] : Rows<std::string, std::string>{
             {"NUL=C:\\x\r\n", "NUL=C:\\x\r\n"},
             {"[Rename]\r\nNUL=C:\\x\r\nC:\\x=C:\\y\r\nnul = C:\\X", "[Rename]\r\nC:\\x=C:\\y\r\n"},
             {"[Rename]\r\nDIRNUL=C:\\x\r\n[SetupOptions]\r\nNUL=C:\\x\r\n",
              "[Rename]\r\n[SetupOptions]\r\nNUL=C:\\x\r\n"}}) {
      CHECK(WithoutRenameEntries(text, take_x) == kept);
    }
  }

  TEST_CASE("a folder is closed only when every right to change it is an administrator's") {
    const std::string closed = ClosedDescriptor();
    CHECK(IsClosedToUsers(closed));
    CHECK(IsClosedToUsers(closed + std::string(1000, '\0')));
    for (std::size_t size = 0; size < closed.size(); ++size) {
      CHECK_FALSE(IsClosedToUsers(closed.substr(0, size)));
    }
    // The owner, the two holders of rights: anybody else instead.
    constexpr std::size_t kOwner = 20;
    constexpr std::size_t kEntry = kOwner + 16 + 8;
    for (const std::size_t at : {kOwner + 8, kEntry + 8 + 8, kEntry + 20 + 8 + 8}) {
      std::string other = closed;
      other[at] = '\x21';
      CHECK_FALSE(IsClosedToUsers(other));
      // Who may only read, or has the rights for what is made in it alone, does no harm.
      if (at < kEntry) continue;
      const std::size_t entry = at < kEntry + 20 ? kEntry : kEntry + 20;
      for (const std::uint32_t right :
           {0x2u, 0x40u, 0x100u, 0x10000u, 0x40000u, 0x80000u, 0x10000000u, 0x40000000u}) {
        std::string one = other;
        for (int i = 0; i < 4; ++i) one[entry + 4 + i] = static_cast<char>(right >> 8 * i & 0xFF);
        CAPTURE(right);
        CHECK_FALSE(IsClosedToUsers(one));
      }
      std::string reads = other;
      reads.replace(entry + 4, 4, std::string("\xA9\0\x12\0", 4));
      CHECK(IsClosedToUsers(reads));
      other[entry + 1] = 0x0B;
      CHECK(IsClosedToUsers(other));
      other[entry + 1] = 0;
      other[entry] = 9;
      CHECK_FALSE(IsClosedToUsers(other));
      other[entry] = 1;  // what is denied to somebody gives nobody anything
      CHECK(IsClosedToUsers(other));
    }
  }

  TEST_CASE("a folder is open when a right to change it is every user's") {
    const std::string closed = ClosedDescriptor();
    CHECK_FALSE(LetsEveryUserChange(closed));
    CHECK_FALSE(LetsEveryUserChange(""));
    std::string listless = closed;
    listless[2] = 0;
    CHECK(LetsEveryUserChange(listless));
    listless = closed;
    listless.replace(16, 4, std::string(4, '\0'));
    CHECK(LetsEveryUserChange(listless));
    // The second holder: power users (0x23) are not everybody, users (0x21) and guests are.
    constexpr std::size_t kEntry = 20 + 16 + 8 + 20;
    const Rows<char, bool> kHolders{{'\x23', false}, {'\x21', true}, {'\x22', true}};
    for (const auto& [holder, open] : kHolders) {
      std::string other = closed;
      other[kEntry + 8 + 12] = holder;
      CHECK(LetsEveryUserChange(other) == open);
      other.replace(kEntry + 4, 4, std::string("\xA9\0\x12\0", 4));
      CHECK_FALSE(LetsEveryUserChange(other));
    }
    const std::string world("\1\1\0\0\0\0\0\1\0\0\0\0", 12);
    std::string first = closed;  // what follows takes nothing back
    first.replace(20 + 16 + 8 + 8, 12, world);
    CHECK(LetsEveryUserChange(first));
    std::string everyone = closed;
    everyone.replace(kEntry + 8, 12, world);
    CHECK(LetsEveryUserChange(everyone));
    for (std::size_t size = 0; size < everyone.size(); ++size) {
      CHECK_FALSE(LetsEveryUserChange(everyone.substr(0, size)));
    }
  }
}

}  // namespace scourwell::test
