// SPDX-License-Identifier: MIT
#include "machine/op_sys_info.h"

#include "machine/system_folders.h"
#include "tests/support.h"

namespace scourwell::test {

TEST_SUITE("op_sys_info") {
  TEST_CASE("version records become names") {
    const Rows<VersionRecord, std::string, std::string> kSystems{
        {VersionRecord{4, 0, 0x040003B6, 1, ""}, "Windows 95", " v4.0, Build 950"},
        {VersionRecord{4, 10, 0x040A08AE, 1, ""}, "Windows 98", " v4.10, Build 2222"},
        {VersionRecord{4, 90, 0x045A0BB8, 1, ""}, "Windows Me", " v4.90, Build 3000"},
        {VersionRecord{4, 0, 1381, 2, ""}, "Windows NT", " v4.0, Build 1381"},
        {VersionRecord{5, 0, 2195, 2, ""}, "Windows 2000", " v5.0, Build 2195"},
        {VersionRecord{5, 1, 2600, 2, ""}, "Windows XP", " v5.1, Build 2600"},
        // Later systems read as the nearest of the six by both numbers.
        {VersionRecord{6, 1, 7601, 2, ""}, "Windows XP", " v6.1, Build 7601"},
        {VersionRecord{10, 0, 19045, 2, ""}, "Windows 2000", " v10.0, Build 19045"},
        {VersionRecord{3, 11, 300, 0, ""}, "", " v3.11, Build 300"},
    };
    for (const auto& [record, name, version] : kSystems) {
      CAPTURE(version);
      FakeSystem system;
      system.record = record;
      const COpSysInfo os(system);
      CHECK(os.Platform() == name);
      CHECK(os.Version() == name + version);
      CHECK(os.IsWin9x() == (record.platform == 1));
      CHECK(os.IsWinNT() == (record.platform == 2));
      CHECK(os.WindowsVer() == (record.platform == 2 ? "Windows NT" : "Windows 95/98"));
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
    system.knows_extended = true;
    for (const auto& [type, name] :
         Rows<int, const char*>{{2, "Domain Controller"}, {3, "NT Server"}, {4, ""}}) {
      system.record.product_type = static_cast<std::uint8_t>(type);
      CHECK(COpSysInfo(system).ProductTypeName() == std::string(name));
    }
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
    CHECK(Lines({folders.application, folders.windows, folders.system, folders.temporary,
                 folders.app_data, folders.program_files, folders.common_files,
                 folders.Special(SpecialFolder::Desktop), folders.Special(SpecialFolder::StartUp),
                 folders.Special(SpecialFolder::History), folders.Special(SpecialFolder::Fonts)}) ==
          "C:\\App\nC:\\WIN\nC:\\WINDOWS\\system32\nC:\\Temp\n"
          "C:\\AppData\nC:\\Program Files\nC:\\Common\n"
          "C:\\Desk\nC:\\Start\nC:\\History\n\n");
  }

  TEST_CASE("a silent system gets the usual folders") {
    for (const auto& [record, windows, system] : Rows<VersionRecord, const char*, const char*>{
             {VersionRecord{4, 0, 1, 1, ""}, "C:\\WINDOWS", "C:\\WINDOWS\\system"},
             {VersionRecord{4, 0, 1, 2, ""}, "C:\\WINNT", "C:\\WINNT\\system32"},
             {VersionRecord{5, 0, 1, 2, ""}, "C:\\WINDOWS", "C:\\WINDOWS\\system32"}}) {
      Bench b;
      b.m.system.windows = b.m.system.system = b.m.system.temporary = "";
      b.m.system.record = record;
      const SystemFolders folders =
          ComputeSystemFolders(b.m.system, b.m.registry, COpSysInfo(b.m.system), b.log, "C:\\");
      CHECK(folders.windows == windows);
      CHECK(folders.system == system);
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
    for (const auto& [text, expanded] :
         Rows<std::string, const char*>{{"%WIN%\\x.exe", "C:\\WIN\\x.exe"},
                                        {"%win%\\x.exe", "%win%\\x.exe"},
                                        {"%SYS%\\%WIN%", "%SYS%\\C:\\WIN"},
                                        {"%win%\\%SYS%", "%win%\\%SYS%"},
                                        {"%WIN%%WIN%", "C:\\WINC:\\WIN"},
                                        {"%Desktop%\\a", "C:\\Desk\\a"},
                                        {"%DesktopDirectory%\\a", "C:\\Dir\\a"},
                                        {"%PF%\\a", "\\a"},
                                        {"%Windows%\\a", "%Windows%\\a"},
                                        {"", ""}}) {
      CAPTURE(text);
      CHECK(CleanDirString(text, folders) == expanded);
    }
    CHECK_FALSE(ExpandFolderToken("%Windows%\\a", folders));
    CHECK(ExpandFolderToken("%win%\\a", folders) == "%win%\\a");
  }

  TEST_CASE("a 64-bit Windows has two folders where a definition names one") {
    SystemFolders folders;
    folders.system = "C:\\WIN\\System32";
    folders.program_files = "C:\\Program Files (x86)";
    folders.common_files = "C:\\Program Files (x86)\\Common Files";
    const auto places = [&](const std::string& path) { return Lines(PlacesOf(path, folders)); };
    CHECK(places("C:\\WIN\\System32\\evil.dll") == "C:\\WIN\\System32\\evil.dll\n");
    folders.system_wow64 = "C:\\WIN\\SysWOW64";
    folders.program_files_64 = "C:\\Program Files";
    folders.common_files_64 = "C:\\Program Files\\Common Files";
    CHECK(places("c:\\win\\SYSTEM32\\evil.dll") ==
          "c:\\win\\SYSTEM32\\evil.dll\nC:\\WIN\\SysWOW64\\evil.dll\n");
    CHECK(places("C:\\Program Files (x86)\\Evil") ==
          "C:\\Program Files (x86)\\Evil\nC:\\Program Files\\Evil\n");
    CHECK(places("C:\\Program Files (x86)\\Common Files\\x") ==
          "C:\\Program Files (x86)\\Common Files\\x\nC:\\Program Files\\Common Files\\x\n");
    CHECK(places("C:\\WIN\\System32x") == "C:\\WIN\\System32x\n");
  }
}

}  // namespace scourwell::test
