// SPDX-License-Identifier: MIT
#pragma once

#include "tests/backup_support.h"
#include "tests/hand_archive.h"

namespace scourwell::test {

inline constexpr char kEvilKey[] = "HKEY_LOCAL_MACHINE\\Software\\Evil";

// Archives made by hand, on a machine with precious things.
struct Victim : Manager {
  HandArchive archive;

  Victim() {
    folders.special[static_cast<std::size_t>(SpecialFolder::CommonStartUp)] = "C:\\All\\StartUp";
    m.Folder("C:\\All\\StartUp");
    m.Folder("C:\\WINDOWS\\Tasks");
    m.File("C:\\WINDOWS\\system32\\helper.dll", "precious");
    m.registry.Make(RootKey::LocalMachine, "Software\\Kept").Value("v", "precious");
    m.registry
        .Make(RootKey::LocalMachine, "Software\\Microsoft\\Windows NT\\CurrentVersion\\Winlogon")
        .Value("Userinit", "precious");
    m.registry.Make(RootKey::LocalMachine, "SYSTEM\\CurrentControlSet\\Control\\Lsa")
        .Value("Notification Packages", "precious");
    m.registry.Link(RootKey::LocalMachine, "Software\\Way", "Software\\Kept");
    archive.version = 2;
  }
  // A script with these lines.
  void Script(const std::string& lines, const std::string& name = "xexport.reg") {
    archive.Add(3, name, "REGEDIT4\r\n\r\n" + lines);
  }
  Outcome RestoreHandmade(Ticked ticked = Ticked::ByDefault) {
    m.File("C:\\My backups\\hand.qzp").content = archive.Make();
    return RestoreAll(backups, "hand.qzp", &restored, {}, ticked);
  }
  std::string Registry(const std::string& path, const std::string& name) {
    return m.registry.Text(RootKey::LocalMachine, path, name);
  }
  void CheckCanary() {
    CHECK(m.Content("C:\\WINDOWS\\system32\\helper.dll") == "precious");
    CHECK(Registry("Software\\Kept", "v") == "precious");
    CHECK(Registry("Software\\Microsoft\\Windows NT\\CurrentVersion\\Winlogon", "Userinit") ==
          "precious");
    CHECK(Registry("SYSTEM\\CurrentControlSet\\Control\\Lsa", "Notification Packages") ==
          "precious");
    CHECK(m.files.Find("C:\\All\\StartUp")->children.empty());
    CHECK(m.files.Find("C:\\WINDOWS\\Tasks")->children.empty());
    CHECK(m.files.Find("C:\\WINDOWS\\system32")->children.size() == 1);
    for (const auto& child : m.files.Find("C:\\")->children) {
      CHECK(std::string("All App My backups WINDOWS").find(child->name) != std::string::npos);
    }
  }
};

}  // namespace scourwell::test
