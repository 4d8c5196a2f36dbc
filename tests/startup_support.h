#pragma once

#include "definitions/reference_file.h"
#include "tests/fake/version_block.h"
#include "tests/support.h"
#include "tools/bho_manager.h"
#include "tools/startup_manager.h"

namespace scourwell::test {

inline constexpr char kRun[] = "Software\\Microsoft\\Windows\\CurrentVersion\\Run";
inline constexpr char kUserStartup[] = "C:\\User\\Startup";
inline constexpr char kCommonStartup[] = "C:\\All\\Startup";
inline constexpr char kWinIni[] = "C:\\WINDOWS\\win.ini";
inline constexpr char kSaveProf[] = "C:\\App\\SaveProf.pro";
inline constexpr char kKept[] = "C:\\App\\Disabled Startup\\Current User\\";

// A machine with entries in their places, on which the tools are opened and closed.
struct ToolBench : Bench {
  ToolBench() {
    m.File("C:\\App\\Ini\\update.ref", Definitions().Value("SAFI", "0SAFIT", "").Text());
    folders.application = kAppFolder;
    folders.windows = "C:\\WINDOWS";
    folders.system = "C:\\WINDOWS\\system32";
    folders.special[static_cast<std::size_t>(SpecialFolder::StartUp)] = kUserStartup;
    folders.special[static_cast<std::size_t>(SpecialFolder::CommonStartUp)] = kCommonStartup;
  }
  // All that a tool may change: the whole registry, the folders and "win.ini".
  std::string State() {
    std::string text;
    for (const RootKey root : {RootKey::CurrentUser, RootKey::LocalMachine}) {
      text += KeyState(*m.registry.Find(root, ""), "");
    }
    std::map<std::string, const Node*> shortcuts;
    for (const std::string folder : {kUserStartup, kCommonStartup}) {
      const Node* node = m.files.Find(folder);
      if (!node) continue;
      for (const auto& child : node->children) shortcuts[folder + child->name] = child.get();
    }
    for (const auto& [path, node] : shortcuts) {
      text += path + " " + std::to_string(node->attributes) + " " + std::to_string(node->modified) +
              " " + node->content + "\n";
    }
    return text + m.Content(kWinIni);
  }
  // In the order of the names: the system promises none.
  static std::string KeyState(const Key& key, const std::string& path) {
    std::map<std::string, RegValue> sorted(key.values.begin(), key.values.end());
    std::string text;
    for (const auto& [name, value] : sorted) {
      text += path + "\\" + name + "=" + std::to_string(value.type) + ":" +
              HexOf(value.data.substr(0, 40)) + std::to_string(value.data.size()) + "\n";
    }
    if (sorted.empty()) text += path + "\n";
    std::map<std::string, const Key*> children;
    for (const auto& child : key.children) children[child->name] = child.get();
    for (const auto& [name, child] : children) text += KeyState(*child, path + "\\" + name);
    return text;
  }
  static std::string HexOf(const std::string& bytes);

  std::string Rows(const EntryManager& manager, std::initializer_list<int> columns) {
    std::string text;
    for (std::size_t row = 0; row < manager.size(); ++row) {
      for (const int column : columns) text += manager.Cell(row, column) + "|";
      text += "\n";
    }
    return text;
  }
  static std::size_t RowOf(const EntryManager& manager, const std::string& name) {
    for (std::size_t row = 0; row < manager.size(); ++row) {
      if (manager.entry(row).name == name) return row;
    }
    FAIL("no such row: " << name);
    return 0;
  }

  SystemFolders folders;
  FakeRegistry registry64;
  ReferenceFile reference{m.files, m.clock, log, settings, kAppFolder};
  KnownSpies spies{reference, log, folders};
  FactFinder facts{m.files, m.versions, m.system, folders, spies};
  StartupLocations locations{
      {m.files, m.registry, &registry64, m.profiles, m.shell, m.system, folders}};
  EntryManager::Needs needs{locations, spies, facts, log, captions};
};

inline std::string ToolBench::HexOf(const std::string& bytes) {
  std::string text;
  for (const char c : bytes) text += Hex(static_cast<unsigned char>(c), 2);
  return text;
}

inline std::string Z(const std::string& text) { return text + '\0'; }

inline constexpr RootKey kUser = RootKey::CurrentUser;
inline constexpr RootKey kMachine = RootKey::LocalMachine;

// Something in each of the nine places.
struct Planted : ToolBench {
  Planted() {
    const std::string version = "Software\\Microsoft\\Windows\\CurrentVersion\\";
    m.registry.Make(kMachine, version + "Run")
        .Value("Machine", Z("C:\\a.exe"))
        .Value("", Z("C:\\unnamed.exe"))
        .Value("Bad, name", Z("\"C:\\My Files\\b.exe\" %1"))
        .Value("NoData", "")
        .Value("Long", Z(std::string(10'000, 'x')));
    m.registry.Make(kMachine, version + "RunOnce").Value("Once", "C:\\once.exe");  // without NUL
    m.registry.Make(kMachine, version + "RunOnceEx").Value("Ex", "\1\2", kRegBinary);
    m.registry.Make(kMachine, version + "RunServices").Value("Service", Z("srv"));
    m.registry.Make(kUser, version + "Run").Value("User", Z("%WinDir%\\u.exe"), kRegExpandText);
    m.File(kWinIni,
           "[windows]\r\nload=\r\nrun=C:\\one.exe, two  \"C:\\a b.exe\"\r\n[x]\r\nrun=no\r\n");
    m.File(std::string(kUserStartup) + "\\Tray.lnk",
           FakeShell::MakeShortcut("C:\\My Files\\t.exe", "/q"))
        .ReadOnly()
        .Times(77, 78);
    m.File(std::string(kUserStartup) + "\\Broken.LNK", "no shortcut at all");
    m.File(std::string(kUserStartup) + "\\desktop.ini");
    m.File(std::string(kCommonStartup) + "\\Office.lnk", FakeShell::MakeShortcut("C:\\o.exe", ""));
    m.File("C:\\a.exe");
  }
};

// Every row disabled, or enabled again.
inline void ToggleAll(StartupManager& manager) {
  for (std::size_t row = 0; row < manager.size(); ++row) manager.cmdDisable_Click(row);
}

}  // namespace scourwell::test
