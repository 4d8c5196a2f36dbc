// SPDX-License-Identifier: MIT
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
    Define(Definitions().Value("SAFI", "0SAFIT", ""));
    folders.application = kAppFolder;
    folders.windows = "C:\\WINDOWS";
    folders.system = "C:\\WINDOWS\\system32";
    folders.special[static_cast<std::size_t>(SpecialFolder::StartUp)] = kUserStartup;
    folders.special[static_cast<std::size_t>(SpecialFolder::CommonStartUp)] = kCommonStartup;
  }
  void Define(const Definitions& definitions) {
    m.File("C:\\App\\Ini\\update.ref", definitions.Text());
  }
  // All that a tool may change: both views of the registry, the folders and "win.ini".
  std::string State() {
    std::string text;
    for (const RootKey root : {RootKey::CurrentUser, RootKey::LocalMachine}) {
      text += KeyState(*m.registry.Find(root, ""), "") + KeyState(*registry64.Find(root, ""), "64");
    }
    std::map<std::string, const Node*> shortcuts;
    for (const std::string folder : {kUserStartup, kCommonStartup}) {
      if (!m.Has(folder)) continue;
      for (const auto& child : m.files.Find(folder)->children) {
        shortcuts[folder + child->name] = child.get();
      }
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
  static std::string HexOf(const std::string& bytes) {
    std::string text;
    for (const char c : bytes) text += Hex(static_cast<unsigned char>(c), 2);
    return text;
  }

  void BeforeChange(const std::function<void()>& act) {
    m.files.before_change = m.registry.before_change = registry64.before_change = act;
  }
  std::string Cells(const EntryManager& manager, std::initializer_list<int> columns) {
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
      {m.files, m.registry, &registry64, m.profiles, m.shell, m.system, m.code_pages, folders}};
  EntryManager::Needs needs{locations, spies, facts, log, captions};
};

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
inline void ToggleAll(EntryManager& manager) {
  for (std::size_t row = 0; row < manager.size(); ++row) manager.cmdDisable_Click(row);
}

// A machine that stops before any one of its changes: at the next start every entry is in its
// place or in the profile, and enabling all brings everything back.
template <class Manager, class Machine>
void CheckThatNoCrashLosesAnEntry() {
  struct Crash {};
  for (const bool enabling : {false, true}) {
    bool crashed = true;
    for (int stop = 1; crashed; ++stop) {
      CAPTURE(enabling);
      CAPTURE(stop);
      Machine b;
      const std::string before = b.State();
      Manager manager(b.needs);
      manager.Form_Load();
      const std::size_t entries = manager.size();
      ToggleAll(manager);
      if (enabling) {
        REQUIRE(manager.ApplyNow());
        ToggleAll(manager);
      }
      int changes = 0;
      b.BeforeChange([&] {
        if (++changes == stop) throw Crash();
      });
      crashed = false;
      try {
        manager.ApplyNow();
      } catch (const Crash&) {
        crashed = true;
      }
      b.BeforeChange(nullptr);
      Manager next(b.needs);
      next.Form_Load();
      CHECK(next.size() == entries);
      next.ResetAll();
      CHECK(next.ApplyNow());
      CHECK((b.State() == before));
      CHECK(next.disabled_count() == 0);
    }
  }
}

}  // namespace scourwell::test
