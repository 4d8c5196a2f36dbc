// SPDX-License-Identifier: MIT
#include "tests/removal_support.h"
#include "text/paths.h"

namespace scourwell::test {

TEST_SUITE("guard") {
  TEST_CASE("folders, roots and files of the system, the user and Scourwell are refused") {
    constexpr const char* kFiles[] = {"C:\\App\\Scourwell.exe", "C:\\App\\Lang\\English.ini",
                                      "C:\\WINDOWS\\explorer.exe", "C:\\ntldr"};
    const auto is_refused = [&](const FoundObject& object) {
      CAPTURE(PlaceText(object));
      Remover r;
      for (const char* file : kFiles) r.m.File(file, "x");
      r.m.File("C:\\x1.exe", "x");
      const std::string before = TreeOf(r.m, "C:");
      CHECK(r.RemoveOne(object) == "R");
      r.m.files.Remove("C:\\App\\Remove.reg");
      r.m.files.Remove(kErrorLog);
      CHECK(TreeOf(r.m, "C:") == before);
      CHECK(r.removal->report().failed);
      CHECK(r.m.system.journal.empty());
    };
    for (const char* folder :
         {"C:\\", "C:\\WINDOWS", "c:\\windows\\SYSTEM32", "C:\\WINDOWS\\system32\\", "C:\\PROGRA~1",
          "C:\\Program Files\\Common Files", "C:\\Users", "C:\\Users\\me", "C:\\Users\\me\\Desktop",
          "C:\\Users\\me\\Desktop\\..\\..\\..\\WINDOWS", "\\\\?\\C:\\WINDOWS", "C:\\\\WINDOWS",
          "C:\\App", "C:\\App\\Lang"}) {
      is_refused(FoundFolder{folder});
    }
    for (const char* file : kFiles) is_refused(FoundFile{file});
    is_refused(FoundFile{"App\\Scourwell.exe"});
    is_refused(FoundFile{"C:\\x*.exe"});
  }

  TEST_CASE("what lies beside the protected goes") {
    for (const char* path : {"C:\\WINDOWS\\Evil", "C:\\Program Files\\App", "C:\\Application",
                             "C:\\Users\\me\\Desktop\\Evil", "C:\\WINDOWS\\system32x"}) {
      CAPTURE(std::string(path));
      Remover r;
      r.m.File(std::string(path) + "\\x.exe", "x");
      CHECK(r.RemoveOne(FoundFolder{path}) == "r");
      CHECK_FALSE(r.m.Has(path));
    }
  }

  TEST_CASE("what a machine shares with its administrators is guarded as its own") {
    for (const auto& [path, state] :
         Rows<std::string, std::string>{{"\\\\me\\ADMIN$\\system32", "R"},
                                        {"\\\\me\\admin$\\Evil", "g"},
                                        {"\\\\127.0.0.1\\c$\\WINDOWS\\system32", "R"},
                                        {"\\\\me\\C$\\App", "R"},
                                        {"\\\\me\\C$\\Evil", "g"},
                                        {"\\\\me\\Cx\\App", "g"},
                                        {"\\\\me\\DC$\\App", "g"}}) {
      CAPTURE(path);
      Remover r;
      CHECK(r.RemoveOne(FoundFolder{path}) == state);
    }
  }

  TEST_CASE("folders that hold the program stay") {
    Remover r;
    r.folders.application = "D:\\Tools\\Safety\\Scourwell";
    r.m.AddDrive('D');
    r.m.File("D:\\Tools\\Safety\\Scourwell\\Scourwell.exe", "x");
    for (const char* above : {"D:\\Tools", "D:\\Tools\\Safety"}) {
      CHECK(r.RemoveOne(FoundFolder{above}) == "R");
    }
  }

  TEST_CASE("beside a program that lies on the desktop or in the root of a stick a spy goes") {
    for (const std::string base : {"C:\\Users\\me\\Desktop\\", "E:\\"}) {
      CAPTURE(base);
      Remover r;
      r.m.AddDrive('E', DriveKind::Removable);
      r.folders.application = std::string(WithoutEndSeparators(base));
      r.m.File(base + "Evil\\x.exe", "x");
      r.m.File(base + "evil.exe", "x");
      CHECK(r.RemoveOne(FoundFolder{base + "Evil"}) == "r");
      CHECK(r.RemoveOne(FoundFile{base + "evil.exe"}) == "r");
      CHECK(r.RemoveOne(FoundFolder{r.folders.application}) == "R");
      for (const char* own : {"Scourwell.exe", "Lang\\English.ini", "ini\\update.ref"}) {
        r.m.File(base + own, "x");
        CHECK(r.RemoveOne(FoundFile{base + own}) == "R");
        CHECK(r.m.Has(base + own));
      }
    }
  }

  TEST_CASE("what Windows starts with stays, a spy beside it goes") {
    struct Row {
      const char* path;
      char state;  // Refused or removed
    };
    for (const auto& [path, state] :
         std::initializer_list<Row>{{"C:\\WINDOWS\\system32\\drivers\\", 'R'},
                                    {"C:\\WINDOWS\\system32\\wbem\\", 'R'},
                                    {"C:\\WINDOWS\\system32\\config\\", 'R'},
                                    {"C:\\WINDOWS\\system32\\config\\Evil\\", 'R'},
                                    {"C:\\WINDOWS\\system32\\config\\SYSTEM", 'R'},
                                    {"C:\\WINDOWS\\system32\\config\\systemprofile\\", 'R'},
                                    {"C:\\WINDOWS\\system32\\config\\systemprofile\\x.exe", 'r'},
                                    {"C:\\WINDOWS\\inf\\", 'R'},
                                    {"C:\\WINDOWS\\inf\\evil.inf", 'r'},
                                    {"C:\\WINDOWS\\system32\\drivers\\Disk.sys", 'R'},
                                    {"C:\\WINDOWS\\system32\\drivers\\evil.sys", 'r'},
                                    {"C:\\WINDOWS\\system32\\drivers\\etc\\evil", 'r'},
                                    {"C:\\WINDOWS\\system32\\WIN32K.SYS", 'R'},
                                    {"C:\\WINDOWS\\SysWOW64\\kernel32.dll", 'R'},
                                    {"C:\\WINDOWS\\system32\\disk.sys", 'r'},
                                    {"C:\\WINDOWS\\system32\\vmm32.vxd", 'R'},
                                    {"C:\\WINDOWS\\system32\\VMM32\\evil.vxd", 'r'},
                                    {"C:\\WINDOWS\\himem.sys", 'R'},
                                    {"D:\\ntldr", 'R'},
                                    {"D:\\Boot\\BCD", 'R'},
                                    {"D:\\old\\ntldr", 'r'},
                                    {"D:\\old\\NTUSER.DAT", 'R'}}) {
      CAPTURE(std::string(path));
      Remover r;
      r.m.AddDrive('D');
      std::string item = path;
      const bool folder = item.ends_with('\\');
      if (folder) item.pop_back();
      r.m.File(folder ? item + "\\x.dat" : item, "x");
      CHECK(r.RemoveOne(folder ? FoundObject(FoundFolder{item}) : FoundFile{item}) ==
            std::string(1, state));
      CHECK(r.m.Has(folder ? item + "\\x.dat" : item) == (state == 'R'));
    }
  }

  TEST_CASE("the registry that Windows starts with stays under each of its names") {
    struct Row {
      const char* key;
      const char* value;  // null: the key itself
      char state;         // Refused, or gone: it was not there
    };
    const std::string winlogon =
        "HKEY_LOCAL_MACHINE\\software\\Microsoft\\Windows NT\\CurrentVersion\\Winlogon";
    for (const auto& [key, value, state] : std::initializer_list<Row>{
             {"HKEY_USERS", nullptr, 'R'},
             {"HKEY_LOCAL_MACHINE\\SYSTEM\\ControlSet001", nullptr, 'R'},
             {"HKEY_LOCAL_MACHINE\\SYSTEM\\\\ControlSet002\\Control\\Lsa\\Data", nullptr, 'R'},
             {"HKEY_LOCAL_MACHINE\\SYSTEM\\ControlSet001\\Control\\Session Manager", nullptr, 'R'},
             {"HKEY_LOCAL_MACHINE\\SYSTEM\\ControlSet001\\Control\\Evil", nullptr, 'g'},
             {"HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Services\\disk\\Enum", nullptr, 'R'},
             {"HKEY_LOCAL_MACHINE\\SYSTEM\\ControlSet001\\Services\\Disk", "Start", 'R'},
             {"HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Services\\Diskette", nullptr, 'g'},
             {"HKEY_LOCAL_MACHINE\\SYSTEM\\ControlSet001\\Services\\Evil", "Start", 'g'},
             {"HKEY_LOCAL_MACHINE\\SYSTEM\\Select", nullptr, 'R'},
             {"HKEY_LOCAL_MACHINE\\SYSTEM\\Select", "Current", 'R'},
             {"HKEY_LOCAL_MACHINE\\SOFTWARE\\Classes\\exefile", nullptr, 'R'},
             {"HKEY_LOCAL_MACHINE\\SOFTWARE\\Wow6432Node\\Classes\\CLSID", nullptr, 'R'},
             {"HKEY_CLASSES_ROOT\\Wow6432Node\\CLSID", nullptr, 'R'},
             {"HKEY_CURRENT_USER\\Software\\Wow6432Node\\Microsoft\\Windows\\CurrentVersion\\Run",
              nullptr, 'R'},
             {"HKEY_LOCAL_MACHINE\\SYSTEM\\Clone\\Services\\Disk", nullptr, 'R'},
             {"HKEY_LOCAL_MACHINE\\SYSTEM\\ControlSetX\\Services\\Disk", nullptr, 'g'},
             {"HKEY_CURRENT_USER\\Software\\Classes\\PROTOCOLS\\Handler", nullptr, 'R'},
             {"HKEY_CURRENT_USER\\Software\\Classes\\exefile", nullptr, 'g'},
             {"HKEY_USERS\\S-1-5-21_Classes\\CLSID", nullptr, 'R'},
             {"HKEY_USERS\\S-1-5-21_Classes\\CLSID\\{1}", nullptr, 'g'},
             {"HKEY_CLASSES_ROOT\\exefile\\shell\\open\\command", "", 'R'},
             {winlogon.c_str(), "userinit", 'R'},
             {winlogon.c_str(), "Shell", 'R'},
             {winlogon.c_str(), "GinaDLL", 'g'}}) {
      CAPTURE(std::string(key));
      Remover r;
      value ? r.Add(ValueAt(key, value)) : r.Add(KeyAt(key));
      r.Run();
      CHECK(r.States() == std::string(1, state));
      CHECK((r.m.Content("C:\\App\\Remove.reg") == "REGEDIT4\r\n") == (state == 'R'));
    }
    const std::string of_user =
        "HKEY_USERS\\S-1-5-21" + winlogon.substr(sizeof "HKEY_LOCAL_MACHINE" - 1);
    Remover r;
    r.Add(ValueAt(of_user, "Shell"));
    r.Add(KeyAt(std::string("HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\0x", 39)));
    r.Add(ValueAt(winlogon, std::string("Shell\0x", 7)));
    r.Run();
    CHECK(r.States() == "gRR");
  }
}

}  // namespace scourwell::test
