// SPDX-License-Identifier: MIT

// What archives may not do: nobody knows who made them.
#include "tests/victim.h"

namespace scourwell::test {
namespace {

std::string Lsa() { return "[HKEY_LOCAL_MACHINE\\SYSTEM\\ControlSet001\\Control\\Lsa"; }

}  // namespace

TEST_SUITE("hostile_archive") {
  TEST_CASE("a hostile archive changes nothing that is precious") {
    const auto evil_file = [](const char* path) {
      return [path](Victim& v) { v.archive.Add(1, path, "evil"); };
    };
    const auto evil_lines = [](const std::string& lines) {
      return [lines](Victim& v) { v.Script(lines); };
    };
    struct Row {
      const char* what;
      std::function<void(Victim&)> make;
      std::size_t failed = 1;
    };
    const Row rows[] = {
        {"a program for the next logon", evil_file("C:\\All\\StartUp\\x.exe")},
        {"a new library for Windows", evil_file("C:\\WINDOWS\\system32\\version.dll")},
        {"another library for Windows", evil_file("C:\\WINDOWS\\system32\\helper.dll")},
        {"a task", evil_file("C:\\WINDOWS\\Tasks\\x.job")},
        {"a program before all others", evil_file("C:\\Program.exe")},
        {"a start file", evil_file("C:\\AUTOEXEC.BAT")},
        {"a path aside", evil_file("C:\\My backups\\..\\All\\StartUp\\x.exe")},
        {"a key that goes", evil_lines("[-HKEY_LOCAL_MACHINE\\Software\\Kept]\r\n")},
        {"a value that goes", evil_lines("[HKEY_LOCAL_MACHINE\\Software\\Kept]\r\n\"v\"=-\r\n")},
        {"a vital value",
         evil_lines("[HKEY_LOCAL_MACHINE\\\\SOFTWARE\\Wow6432Node\\Microsoft\\"
                    "Windows NT\\CurrentVersion\\Winlogon\\]\r\n"
                    "\"USERINIT\"=\"evil\"\r\n"
                    "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows NT\\"
                    "CurrentVersion\\Winlogon]\r\n\"Userinit\"=\"evil\"\r\n"),
         2},
        {"a value of a protected key",
         evil_lines(Lsa() + "]\r\n\"Notification Packages\"=\"evil\"\r\n")},
        {"a key below it", evil_lines(Lsa() + "\\evil]\r\n")},
        {"a link's value", evil_lines(std::string("[") + kEvilKey +
                                      "]\r\n\"SymbolicLinkValue\"="
                                      "hex(6):61\r\n")},
        {"a way through a link",
         evil_lines("[HKEY_LOCAL_MACHINE\\Software\\Way]\r\n\"v\"=\"evil\"\r\n")},
        {"a root", evil_lines("[HKEY_LOCAL_MACHINE]\r\n\"v\"=\"evil\"\r\n")},
        {"an unknown root", evil_lines("[HKEY_DYN_DATA\\x]\r\n\"v\"=\"evil\"\r\n")},
        {"a line in a name",
         evil_lines("[HKEY_LOCAL_MACHINE\\Software\\K\n"
                    "[-HKEY_LOCAL_MACHINE\\Software\\Kept]\r\n"),
         2},
        {"no script", [](Victim& v) { v.archive.Add(3, "a.reg", "[-HKEY_USERS]\r\n"); }},
        {"a script elsewhere",
         [](Victim& v) { v.archive.Add(3, "..\\All\\StartUp\\x.reg", "REGEDIT4\r\n"); }},
        {"a great many scripts",
         [](Victim& v) {
           for (int i = 0; i < 40; ++i) v.Script("", "s" + std::to_string(i) + "key.reg");
         },
         8},
    };
    for (const Row& row : rows) {
      CAPTURE(std::string(row.what));
      Victim v;
      row.make(v);
      CHECK(v.RestoreHandmade(Ticked::All).ok());
      CHECK(v.restored.failed.size() == row.failed);
      CHECK(v.m.shell.journal.empty());
      v.CheckCanary();
    }
  }

  TEST_CASE("what a foreign archive would start is left out unless it is ticked") {
    Victim v;
    const std::string run_key =
        "[HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Run]\r\n";
    v.archive.Add(1, "C:\\spy\\a.exe", "x");
    v.Script(
        run_key +
        "\"own\"=\"\\\"C:\\\\spy\\\\A.exe\\\"\"\r\n"
        "\"more\"=\"C:\\\\spy\\\\a.exe & evil\"\r\n\"other\"=\"rundll32 x\"\r\n"
        "[HKEY_LOCAL_MACHINE\\SYSTEM\\ControlSet001\\Services\\Evil]\r\n\"ImagePath\"=\"x\"\r\n");
    CHECK(v.RestoreHandmade().ok());
    CHECK(v.restored.failed.empty());
    const auto value = [&](const char* name) {
      return v.m.registry.Text(RootKey::CurrentUser,
                               "Software\\Microsoft\\Windows\\CurrentVersion\\Run", name);
    };
    CHECK(value("own") == std::string("\"C:\\spy\\A.exe\"\0", 15));
    CHECK(value("more") == "(none)");
    CHECK(value("other") == "(none)");
    CHECK(v.m.registry.Text(RootKey::LocalMachine, "SYSTEM\\ControlSet001\\Services\\Evil",
                            "ImagePath") == "(none)");
    CHECK(v.RestoreHandmade(Ticked::All).ok());
    CHECK(value("other") == std::string("rundll32 x\0", 11));
  }
}

}  // namespace scourwell::test
