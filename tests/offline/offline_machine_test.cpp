// SPDX-License-Identifier: MIT
#include <filesystem>

#include "tests/offline/disk_builder.h"
#include "tests/offline/offline_support.h"

// The library of Windows 98's registries loses a few bytes when it refuses a damaged file.
extern "C" const char* __lsan_default_suppressions();
const char* __lsan_default_suppressions() { return "leak:libcreg_"; }

namespace scourwell::test {
namespace {

constexpr char kProfiles[] = "Microsoft\\Windows NT\\CurrentVersion\\ProfileList";
constexpr char kShellFolders[] =
    "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders";

ErrorCode OpenCode(const DiskBuilder& disk, const std::string& windows = {}) {
  std::unique_ptr<OfflineMachine> machine;
  return OfflineMachine::Open(disk.drives(), windows, &machine).code();
}

std::string FoundOn(const DiskBuilder& disk) {
  std::vector<WindowsFound> found;
  static_cast<void>(OfflineMachine::Find(disk.drives(), &found));
  std::string text;
  for (const WindowsFound& each : found) text += each.folder + "|" + each.version + "\n";
  return text;
}

SystemFolders FoldersOf(OfflineMachine& machine, const std::string& user) {
  Bench bench;
  for (const OfflineUser& each : machine.users()) {
    if (each.name == user) machine.ActAs(&each);
  }
  return machine.Folders(bench.log, "Z:\\");
}

}  // namespace

TEST_SUITE("offline_machine") {
  TEST_CASE("what is no Windows disk is none") {
    DiskBuilder disk;
    CHECK(OpenCode(disk) == kFileNotFound);
    disk.Put("Program Files/x");
    disk.Put("WINDOWS/system32/config/SOFTWARE", "a text");
    disk.Put("WINDOWS/system32/config/SYSTEM", "a text");
    disk.Put("WIN98/SYSTEM.DAT", "CREG");
    disk.Put("WIN95/SYSTEM.DAT", "a text");
    disk.Put("WIN95/WIN.COM");
    CHECK(OpenCode(disk) == kFileNotFound);
    std::unique_ptr<OfflineMachine> machine;
    CHECK(OfflineMachine::Open({{'C', disk.path() + "/none"}}, "", &machine).code() ==
          kPathNotFound);
  }

  TEST_CASE("of several the user chooses") {
    DiskBuilder disk;
    disk.Windows().Text(kSoftware, kNtVersion, "ProductName", "Microsoft Windows XP");
    const std::string old = "Windows.old/WINNT/System32/config/";
    disk.Text(old + "SOFTWARE", kNtVersion, "ProductName", "Microsoft Windows 2000");
    disk.Key(old + "SYSTEM", "Select").Save();
    disk.Put("WIN95/WIN.COM");
    for (const char* folder : {"xp2", "Another", "m"}) {
      disk.Key(std::string(folder) + "/System32/config/SOFTWARE", kNtVersion);
      disk.Key(std::string(folder) + "/System32/config/SYSTEM", "Select").Save();
    }
    CHECK(FoundOn(disk) ==
          "C:\\Another|Windows NT\nC:\\m|Windows NT\nC:\\WINDOWS|Microsoft Windows XP\n"
          "C:\\Windows.old\\WINNT|Microsoft Windows 2000\nC:\\xp2|Windows NT\n");
    CHECK(OpenCode(disk) == kTypeMismatch);
    CHECK(OpenCode(disk, "C:\\Elsewhere") == kFileNotFound);
    CHECK(disk.Open("c:\\windows.OLD\\winnt")->windows().version == "Microsoft Windows 2000");
  }

  TEST_CASE("one hive of no use leaves the other") {
    DiskBuilder disk;
    disk.Windows().Text(kSoftware, kNtVersion, "ProductName", "Microsoft Windows XP").Save();
    disk.Put(kSystemHive, "a text");
    const auto machine = disk.Open();
    CHECK(machine->windows().version == "Microsoft Windows XP");
    REQUIRE(machine->unread().size() == 1);
    CHECK(machine->unread()[0].place == "C:\\WINDOWS\\system32\\config\\SYSTEM");
    CHECK(machine->unread()[0].reason != "");
  }

  TEST_CASE("a version is what the registry says, by the numbers that count") {
    for (const auto& [product, version, build, major, expected, number] :
         Rows<const char*, const char*, const char*, std::uint32_t, const char*, std::uint32_t>{
             {"Windows 10 Pro", "6.3", "22631", 10, "Windows 11 Pro, Build 22631", 1000},
             {"Windows 10 Pro", "6.3", "22000", 10, "Windows 11 Pro, Build 22000", 1000},
             {"Windows 10 Pro", "6.3", "19045", 10, "Windows 10 Pro, Build 19045", 1000},
             {"Windows 7 Home", "6.1", "7601", 0, "Windows 7 Home, Build 7601", 601},
             {"", "4.0", "1381", 0, "Windows NT, Build 1381", 400},
             {"", "", "", 0, "Windows NT", 0}}) {
      CAPTURE(std::string(expected));
      DiskBuilder disk;
      disk.Windows().Text(kSoftware, kNtVersion, "CurrentVersion", version);
      disk.Text(kSoftware, kNtVersion, "ProductName", product);
      disk.Text(kSoftware, kNtVersion, "CurrentBuildNumber", build);
      if (major) disk.Number(kSoftware, kNtVersion, "CurrentMajorVersionNumber", major);
      const auto machine = disk.Open();
      CHECK(machine->windows().version == expected);
      CHECK(machine->os().MajorVersion() * 100 + machine->os().MinorVersion() == number);
      CHECK(machine->os().IsWinNT());
    }
  }

  TEST_CASE("the drive has the letter that its Windows gave it") {
    DiskBuilder disk;
    disk.Windows().Text(kSoftware, kNtVersion, "SystemRoot", "D:\\WINDOWS");
    const auto machine = disk.Open();
    CHECK(machine->windows().folder == "D:\\WINDOWS");
    CHECK(machine->files().Drives()[0].letter == 'D');
    CHECK(OpenCode(disk, "C:\\WINDOWS") == kNoError);
    CHECK(OpenCode(disk, "D:\\windows") == kNoError);
    // Where another drive has that letter, the given one counts.
    const TemporaryFolder other;
    std::vector<WindowsFound> found;
    CHECK(OfflineMachine::Find({{'C', disk.path()}, {'D', other.path()}}, &found).ok());
    CHECK(found[0].folder == "C:\\WINDOWS");
  }

  TEST_CASE("users are those of the list, and those who only have a profile") {
    DiskBuilder disk;
    disk.Windows().User("S-1-5-21-1", "Documents and Settings\\Ann");
    disk.Key("Documents and Settings/\u0416/NTUSER.DAT", "Software\\mine");
    disk.Put("Documents and Settings/All Users/x");
    disk.MakeFolder("WINDOWS/system32/config/systemprofile");
    disk.Text(kSoftware, std::string(kProfiles) + "\\S-1-5-18", "ProfileImagePath",
              "%systemroot%\\system32\\config\\systemprofile");
    disk.Text(kSoftware, std::string(kProfiles) + "\\S-gone", "ProfileImagePath", "C:\\gone");
    std::filesystem::create_directory_symlink("/", disk.path() + "/Documents and Settings/link");
    const auto machine = disk.Open();
    std::string users;
    for (const OfflineUser& user : machine->users()) {
      users += user.sid + "|" + user.name + "|" + user.profile + "\n";
    }
    CHECK(users ==
          "S-1-5-18|systemprofile|C:\\WINDOWS\\system32\\config\\systemprofile\n"
          "S-1-5-21-1|Ann|C:\\Documents and Settings\\Ann\n"
          "\u0416|\u0416|C:\\Documents and Settings\\\u0416\n");
    machine->ActAs(&machine->users()[2]);
    CHECK(NamesBelow(machine->registry(), RootKey::CurrentUser, "Software") == "mine ");
    Finding found{"X", KeyAt("HKEY_CURRENT_USER\\Software\\mine")};
    found.user = machine->users()[2].name;
    found = machine->ForEveryone(found);
    CHECK(PlaceText(found.object) == "HKEY_USERS\\\u0416\\Software\\mine");
    machine->ActAs(nullptr);
    CHECK(NamesBelow(machine->registry(), RootKey::CurrentUser, "Software") == "!2 ");
  }

  TEST_CASE("a user's hive may be a mandatory one; whoever has none is a user all the same") {
    DiskBuilder disk;
    disk.Windows().Key("WINDOWS/system32/config/DEFAULT", "Software\\everybody");
    const std::string list = std::string(kProfiles) + "\\";
    disk.Text(kSoftware, kProfiles, "ProfilesDirectory", "%SystemDrive%\\People");
    for (const char* name : {"kiosk", "bare"}) {
      disk.Text(kSoftware, list + name, "ProfileImagePath",
                "C:\\Users\\" + std::string(name) + "\\");
    }
    disk.Key("Users/kiosk/NTUSER.MAN", "Software\\fixed").MakeFolder("Users/bare");
    disk.Key("People/new/NTUSER.DAT", "Software\\new").MakeFolder("People/nobody");
    const auto machine = disk.Open();
    std::string seen;
    for (const OfflineUser& user : machine->users()) {
      machine->ActAs(&user);
      seen += user.profile + "|" +
              NamesBelow(machine->registry(), RootKey::CurrentUser, "Software") + "\n";
    }
    CHECK(seen == "C:\\Users\\bare|!2 \nC:\\Users\\kiosk|fixed \nC:\\People\\new|new \n");
    CHECK(NamesBelow(machine->registry(), RootKey::Users, ".default\\Software") == "everybody ");
    CHECK(machine->unread().empty());
  }

  TEST_CASE("two hundred users are looked at in turn") {
    DiskBuilder disk;
    disk.Windows();
    for (int i = 0; i < 200; ++i) {
      const std::string name = "user" + std::to_string(i);
      disk.User("S-1-5-21-" + std::to_string(i), "Users\\" + name);
    }
    disk.Text("Users/user77/NTUSER.DAT", "Software\\Microsoft\\Windows\\CurrentVersion\\Run",
              "Cydoor", "x");
    const auto machine = disk.Open();
    CHECK(machine->users().size() == 200);
    OfflineBench bench;
    bench.settings = {};  // the registry is enough
    CHECK(bench.Scan(*machine) ==
          "user77|Spy Registry Value|Cydoor|HKEY_CURRENT_USER\\SOFTWARE\\MICROSOFT\\WINDOWS\\"
          "CURRENTVERSION\\RUN\\Cydoor\n");
    // Nobody's files stay open.
    std::size_t open_files = 0;
    for ([[maybe_unused]] const auto& each : std::filesystem::directory_iterator("/proc/self/fd")) {
      ++open_files;
    }
    CHECK(open_files < 50);
  }

  TEST_CASE("folders and variables are the user's own, and never those of this machine") {
    DiskBuilder disk;
    disk.Windows()
        .User("S-1", "Documents and Settings\\Ann")
        .User("S-2", "Documents and Settings\\Bob");
    disk.Text(kSoftware, kNtVersion, "CurrentVersion", "5.1");
    const std::string hive = "Documents and Settings/Ann/NTUSER.DAT";
    disk.Text(hive, kShellFolders, "Cookies", "%USERPROFILE%\\My cookies");
    disk.Text(hive, "Environment", "TEMP", "%LOOP%\\%HOME%\\temp");
    disk.Text(hive, "Environment", "LOOP", "%TEMP%");
    const std::string bob = "Documents and Settings/Bob/NTUSER.DAT";
    disk.Text(bob, "Environment", "TEMP", "%USERPROFILE%\\Temp");
    disk.Text(bob, "Environment", "shared", "D:\\bobs");
    disk.Text(bob, ReplaceAll(kShellFolders, "User ", ""), "Cookies", "D:\\Cookies");
    disk.Text(kSoftware, kProfiles, "AllUsersProfile", "Everybody");
    disk.Text(kSystemHive, "ControlSet001\\Control\\Session Manager\\Environment", "Shared",
              "%SystemDrive%\\shared");
    disk.Text(kSoftware, "Microsoft\\Windows\\CurrentVersion", "ProgramFilesDir", "C:\\Programme");
    const auto machine = disk.Open();
    SystemFolders folders = FoldersOf(*machine, "Ann");
    CHECK(folders.windows == "C:\\WINDOWS");
    CHECK(folders.system == "C:\\WINDOWS\\system32");
    CHECK(folders.program_files == "C:\\Programme");
    CHECK(folders.Special(SpecialFolder::Cookies) == "C:\\Documents and Settings\\Ann\\My cookies");
    CHECK(folders.Special(SpecialFolder::StartUp) ==
          "C:\\Documents and Settings\\Ann\\Start Menu\\Programs\\Startup");
    CHECK(folders.Special(SpecialFolder::CommonStartUp) ==
          "C:\\Documents and Settings\\Everybody\\Start Menu\\Programs\\Startup");
    CHECK(folders.temporary == "C:\\WINDOWS\\Temp");
    CHECK(machine->system().Environment("SHARED") == "C:\\shared");
    CHECK(machine->system().Environment("PATH") == "");
    CHECK(machine->system().Environment("HOME") == "");
    const std::string profiles = "C:\\Documents and Settings\\";
    for (const auto& [name, text] : Rows<const char*, std::string>{
             {"windir", "C:\\WINDOWS"},
             {"HOMEDRIVE", "C:"},
             {"UserName", "Ann"},
             {"USERPROFILE", profiles + "Ann"},
             {"APPDATA", profiles + "Ann\\Application Data"},
             {"LOCALAPPDATA", profiles + "Ann\\Local Settings\\Application Data"},
             {"ALLUSERSPROFILE", profiles + "Everybody"},
             {"ProgramFiles", "C:\\Programme"}}) {
      CAPTURE(std::string(name));
      CHECK(machine->system().Environment(name) == text);
    }
    folders = FoldersOf(*machine, "Bob");
    CHECK(folders.Special(SpecialFolder::Cookies) == "D:\\Cookies");
    CHECK(folders.Special(SpecialFolder::StartUp) ==
          profiles + "Bob\\Start Menu\\Programs\\Startup");
    CHECK(folders.temporary == profiles + "Bob\\Temp");
    CHECK(machine->system().Environment("Shared") == "D:\\bobs");
    machine->ActAs(nullptr);
    CHECK(machine->system().Environment("Shared") == "C:\\shared");
    for (const char* name : {"USERNAME", "USERPROFILE", "APPDATA", "LOCALAPPDATA"}) {
      CHECK(machine->system().Environment(name) == "");
    }
  }

  TEST_CASE("what the machine would say of its version, and of what does not run") {
    DiskBuilder disk;
    disk.Windows().Text(kSoftware, kNtVersion, "CurrentVersion", "5.2");
    disk.Text(kSoftware, kNtVersion, "CSDVersion", "Service Pack 2");
    disk.Text(kSoftware, kNtVersion, "CurrentBuild", "3790");
    disk.Text(kSystemHive, "ControlSet001\\Control\\ProductOptions", "ProductType", "LanmanNT");
    const auto machine = disk.Open();
    CHECK(machine->windows().version == "Windows NT, Service Pack 2, Build 3790");
    VersionRecord record;
    CHECK(machine->system().QueryVersion(kExtendedVersionRecord, &record));
    CHECK(record.service_pack_major == 2);
    CHECK(record.product_type == 2);
    CHECK(record.build == 3790);
    CHECK(machine->system().QueryVersion(kBasicVersionRecord, &record));
    CHECK(record.service_pack_major + record.product_type == 0);
    CHECK_FALSE(machine->system().TerminateProcess(1, {}).ok());
    CHECK_FALSE(machine->system().DeleteAtReboot("C:\\x").ok());
    const std::string bytes = machine->system().RandomBytes(32);
    CHECK(bytes.size() == 32);
    CHECK(bytes != machine->system().RandomBytes(32));
  }

  TEST_CASE("newer systems have their folders elsewhere, and 64-bit ones two of some") {
    DiskBuilder disk;
    disk.Windows().User("S-1", "Users\\Ann").Key(kSoftware, "Wow6432Node");
    disk.Text(kSoftware, kNtVersion, "CurrentVersion", "6.1");
    const std::string version = "Microsoft\\Windows\\CurrentVersion";
    disk.Text(kSoftware, version, "ProgramFilesDir", "C:\\Program Files");
    disk.Text(kSoftware, "Wow6432Node\\" + version, "ProgramFilesDir", "C:\\Program Files (x86)");
    disk.MakeFolder("WINDOWS/SysWow64");
    const auto machine = disk.Open();
    const SystemFolders folders = FoldersOf(*machine, "Ann");
    CHECK(folders.Special(SpecialFolder::Cookies) ==
          "C:\\Users\\Ann\\AppData\\Roaming\\Microsoft\\Windows\\Cookies");
    CHECK(folders.Special(SpecialFolder::CommonStartUp) ==
          "C:\\ProgramData\\Microsoft\\Windows\\Start Menu\\Programs\\Startup");
    CHECK(folders.program_files == "C:\\Program Files (x86)");
    CHECK(folders.program_files_64 == "C:\\Program Files");
    CHECK(folders.system_wow64 == "C:\\WINDOWS\\SysWow64");
  }

  TEST_CASE("Windows 98 damaged, or with one user, is read as far as it goes") {
    const PlantedDisk disk("--98");
    const std::string name = "c/WINDOWS/SYSTEM.DAT";
    const std::string sound = disk.Content(name);
    // The library refuses what goes on behind the last block.
    disk.Put(name, sound + std::string(100, '\0'));
    {
      const auto machine = disk.Open();
      CHECK(machine->windows().version == "Microsoft Windows 98, 4.10.2222");
      CHECK(machine->os().IsWin98());
      CHECK(machine->users().size() == 2);
      CHECK(machine->unread().size() == 1);
      CHECK_FALSE(machine->registry_writable());
      CHECK(machine->SaveRegistry().ok());
    }
    disk.Put(name, "CREG" + std::string(5000, 'x'));
    const auto machine = disk.Open();
    CHECK(machine->unread().size() == 1);
    CHECK(machine->users().size() == 1);
    Dice dice(98);
    for (int round = 0; round < 60; ++round) {
      std::string bytes = sound;
      for (int i = 0; i < 4; ++i)
        bytes[dice.Below(bytes.size())] = static_cast<char>(dice.Below(256));
      disk.Put(name, bytes);
      std::unique_ptr<OfflineMachine> any;
      static_cast<void>(OfflineMachine::Open(disk.drives(), "", &any));
    }
  }
}

}  // namespace scourwell::test
