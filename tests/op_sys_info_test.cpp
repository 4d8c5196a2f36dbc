#include "platform/op_sys_info.h"

#include "platform/system_folders.h"
#include "tests/support.h"

namespace scourwell::test {

TEST_SUITE("op_sys_info") {
  TEST_CASE("version records become names") {
    struct Row {
      std::uint32_t major, minor, build, platform;
      const char* name;
      const char* version;
    };
    constexpr Row kRows[] = {
        {4, 0, 0x040003B6, 1, "Windows 95", "Windows 95 v4.0, Build 950"},
        {4, 10, 0x040A08AE, 1, "Windows 98", "Windows 98 v4.10, Build 2222"},
        {4, 90, 0x045A0BB8, 1, "Windows Me", "Windows Me v4.90, Build 3000"},
        {4, 0, 1381, 2, "Windows NT", "Windows NT v4.0, Build 1381"},
        {5, 0, 2195, 2, "Windows 2000", "Windows 2000 v5.0, Build 2195"},
        {5, 1, 2600, 2, "Windows XP", "Windows XP v5.1, Build 2600"},
        {5, 2, 3790, 2, "Windows XP", "Windows XP v5.2, Build 3790"},
        {6, 1, 7601, 2, "Windows XP", "Windows XP v6.1, Build 7601"},
        // Later systems read as the nearest of the six by both numbers.
        {6, 0, 6002, 2, "Windows 2000", "Windows 2000 v6.0, Build 6002"},
        {10, 0, 19045, 2, "Windows 2000", "Windows 2000 v10.0, Build 19045"},
        {3, 11, 300, 0, "", " v3.11, Build 300"},
    };
    for (const Row& row : kRows) {
      CAPTURE(std::string(row.version));
      FakeSystem system;
      system.record = {row.major, row.minor, row.build, row.platform, "", 0, 0, 0, 0};
      const COpSysInfo os(system);
      CHECK(os.Platform() == row.name);
      CHECK(os.Version() == row.version);
      CHECK(os.IsWin9x() == (row.platform == 1));
      CHECK(os.IsWinNT() == (row.platform == 2));
      CHECK(os.WindowsVer() == (row.platform == 2 ? "Windows NT" : "Windows 95/98"));
    }
  }

  TEST_CASE("the basic record fills in where the extended one is refused") {
    FakeSystem system;
    system.record.csd_version = std::string(" A \0junk", 8);
    CHECK(COpSysInfo(system).ServicePackMajor() == 3);
    CHECK(COpSysInfo(system).CSDVersion() == " A ");
    CHECK(COpSysInfo(system).ProductTypeName() == "NT Workstation");
    system.knows_extended = false;
    const COpSysInfo os(system);
    CHECK(os.Platform() == "Windows XP");
    CHECK(os.ServicePackMajor() == 0);
    CHECK(os.SuiteMask() == 0);
    CHECK(os.ProductTypeName() == "Unknown");
  }
}

TEST_SUITE("system_folders") {
  TEST_CASE("folders come from the system without their last backslash") {
    Bench b;
    b.m.system.windows = std::string("C:\\WIN \0junk", 12);
    b.m.system.shell_folders = {{0, "C:\\Desk\\"}, {7, "C:\\Start"}, {34, "C:\\History"}};
    b.m.registry
        .Make(RootKey::CurrentUser,
              "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders")
        .Value("AppData", "C:\\AppData\\");
    b.m.registry.Make(RootKey::LocalMachine, "SOFTWARE\\Microsoft\\Windows\\CurrentVersion")
        .Value("ProgramFilesDir", std::string("C:\\Program Files\0", 17))
        .Value("CommonFilesDir", "C:\\Common");
    const SystemFolders folders =
        ComputeSystemFolders(b.m.system, b.m.registry, COpSysInfo(b.m.system), b.log, kAppFolder);
    CHECK(folders.application == kAppFolder);
    CHECK(folders.windows == "C:\\WIN");
    CHECK(folders.system == "C:\\WINDOWS\\system32");
    CHECK(folders.temporary == "C:\\Temp");
    CHECK(folders.app_data == "C:\\AppData");
    CHECK(folders.program_files == "C:\\Program Files");
    CHECK(folders.common_files == "C:\\Common");
    CHECK(folders.Special(SpecialFolder::Desktop) == "C:\\Desk");
    CHECK(folders.Special(SpecialFolder::StartUp) == "C:\\Start");
    CHECK(folders.Special(SpecialFolder::History) == "C:\\History");
    CHECK(folders.Special(SpecialFolder::Fonts) == "");
  }

  TEST_CASE("a silent system gets the usual folders") {
    struct Row {
      std::uint32_t major, platform;
      const char* windows;
      const char* system;
    };
    for (const Row& row : {Row{4, 1, "C:\\WINDOWS", "C:\\WINDOWS\\system"},
                           {4, 2, "C:\\WINNT", "C:\\WINNT\\system32"},
                           {5, 2, "C:\\WINDOWS", "C:\\WINDOWS\\system32"}}) {
      Bench b;
      b.m.system.windows = b.m.system.system = b.m.system.temporary = "";
      b.m.system.record = {row.major, 0, 1, row.platform, "", 0, 0, 0, 0};
      const SystemFolders folders =
          ComputeSystemFolders(b.m.system, b.m.registry, COpSysInfo(b.m.system), b.log, "C:\\");
      CHECK(folders.windows == row.windows);
      CHECK(folders.system == row.system);
      CHECK(folders.temporary == "");
      CHECK(folders.program_files == "");
    }
  }

  TEST_CASE("one token per path, found without case, replaced in its own spelling") {
    SystemFolders folders;
    folders.windows = "C:\\WIN";
    folders.system = "C:\\SYS";
    folders.special[static_cast<std::size_t>(SpecialFolder::Desktop)] = "C:\\Desk";
    folders.special[static_cast<std::size_t>(SpecialFolder::DesktopDirectory)] = "C:\\Dir";
    struct Row {
      const char* text;
      const char* expanded;
    };
    for (const Row& row : {Row{"%WIN%\\x.exe", "C:\\WIN\\x.exe"},
                           {"%win%\\x.exe", "%win%\\x.exe"},
                           {"%SYS%\\%WIN%", "%SYS%\\C:\\WIN"},
                           {"%win%\\%SYS%", "%win%\\%SYS%"},
                           {"%WIN%%WIN%", "C:\\WINC:\\WIN"},
                           {"%Desktop%\\a", "C:\\Desk\\a"},
                           {"%DesktopDirectory%\\a", "C:\\Dir\\a"},
                           {"%PF%\\a", "\\a"},
                           {"%Windows%\\a", "%Windows%\\a"},
                           {"C:\\a", "C:\\a"},
                           {"", ""}}) {
      CAPTURE(std::string(row.text));
      CHECK(CleanDirString(row.text, folders) == row.expanded);
    }
    CHECK_FALSE(ExpandFolderToken("%Windows%\\a", folders));
    CHECK(ExpandFolderToken("%win%\\a", folders) == "%win%\\a");
  }
}

}  // namespace scourwell::test
