// SPDX-License-Identifier: MIT

// What the startup manager reads from others: profiles, win.ini, tasks of the user.
#include <memory>

#include "tests/startup_support.h"
#include "tools/startup_manager.h"
#include "tools/stored_value.h"

namespace scourwell::test {
namespace {

// Profile calls cut what is long.
struct CutProfiles : FakeProfiles {
  using FakeProfiles::FakeProfiles;
  std::string ReadProfile(const std::string& section, const std::string& key,
                          const std::string& file) override {
    return FakeProfiles::ReadProfile(section, key, file).substr(0, 1999);
  }
};

constexpr char kMappedKey[] = "Software\\Microsoft\\Windows NT\\CurrentVersion\\Windows";

// Profile calls of the NT family, for the section that lies in the registry there.
struct MappedProfiles : Profiles {
  explicit MappedProfiles(FakeRegistry& r) : registry(r) {}
  FakeRegistry& registry;

  std::string ReadProfile(const std::string&, const std::string& key, const std::string&) override {
    const std::string text = registry.Text(kUser, kMappedKey, key);
    const bool quoted = text.size() > 1 && text.front() == '"' && text.back() == '"';
    return text == "(none)" ? "" : quoted ? text.substr(1, text.size() - 2) : text;
  }
  Outcome WriteProfile(const std::string&, const std::string& key,
                       const std::optional<std::string>& value, const std::string&) override {
    registry.SetValue(kUser, kMappedKey, key, {kRegText, value.value_or("")});
    return {};
  }
};

}  // namespace

TEST_SUITE("startup_profile") {
  TEST_CASE("records that lead elsewhere are shown, kept and never carried out") {
    Planted p;
    const auto record = [](const std::string& name, const std::string& place) {
      return name + "\r\nDisabled\r\n" + place + "\r\nx\r\ny\r\nC:\\evil.exe b\r\n";
    };
    const std::string profile = record("..\\..\\evil", "StartUp (Current User)") +
                                record("C:\\evil", "StartUp (All Users)") +
                                record("con", "StartUp (All Users)") + record("x", "Win.ini Run") +
                                record("new place", "Registry(Machine Nowhere)") +
                                record("{helper}", "Browser Helper Objects");
    p.m.File(kSaveProf, profile);
    const std::string before = p.State();
    StartupManager manager(p.needs);
    manager.Form_Load();
    CHECK(manager.disabled_count() == 6);
    CHECK(manager.Cell(p.RowOf(manager, "new place"), StartupManager::kLocation) ==
          "Registry(Machine Nowhere)");
    manager.ResetAll();
    CHECK_FALSE(manager.ApplyNow());
    CHECK(manager.failures().size() == 6);
    CHECK(p.State() == before);
    CHECK_FALSE(p.m.Has("C:\\evil.lnk"));
    StartupManager next(p.needs);
    next.Form_Load();
    CHECK(next.disabled_count() == 6);
  }

  TEST_CASE("a damaged profile is put aside, an unreadable one is not written over") {
    Planted p;
    const std::string damaged = "a\r\nDisabled\r\nWin.ini Run\r\nx\r\ny\r\na\r\nhalf\r\n";
    p.m.File(kSaveProf, damaged);
    StartupManager manager(p.needs);
    manager.Form_Load();
    CHECK(manager.disabled_count() == 1);
    REQUIRE(manager.failures().size() == 1);
    CHECK(p.m.Errors().find("FRM Startup - Form_Load") != std::string::npos);
    CHECK(manager.ApplyNow());
    CHECK(p.m.Content("C:\\App\\SaveProf.pro.bad") == damaged);
    p.m.files.Find(kSaveProf)->Denied();
    manager.Form_Load();
    ToggleAll(manager);
    const std::string before = p.State();
    CHECK_FALSE(manager.ApplyNow());
    CHECK(p.State() == before);
  }

  TEST_CASE("profiles of the user's choice") {
    Planted p;
    StartupManager manager(p.needs);
    manager.Form_Load();
    for (const char* name : {"Machine", "two"}) manager.cmdDisable_Click(p.RowOf(manager, name));
    CHECK(manager.SaveProfile("C:\\mine.pro"));
    CHECK_FALSE(p.m.Has(kSaveProf));
    manager.ResetAll();
    CHECK(manager.disabled_count() == 0);
    REQUIRE(p.m.registry.DeleteValue(kMachine, kRun, "Machine") == kRegOk);
    manager.Form_Load();
    CHECK(manager.LoadProfile("C:\\mine.pro"));  // marks one row, brings another as it was saved
    CHECK(manager.disabled_count() == 2);
    CHECK(manager.ApplyNow());
    CHECK(p.m.Content(kSaveProf) ==
          "two\r\nDisabled\r\nWin.ini Run\r\nAll Users\r\n"
          "Any User Logs On\r\ntwo\r\nMachine\r\nDisabled\r\n"
          "Registry(Machine Run)\r\nAll Users\r\nAny User Logs On\r\n"
          "C:\\a.exe\r\n");
    CHECK_FALSE(manager.LoadProfile("C:\\none\\x.pro"));
    CHECK_FALSE(manager.SaveProfile("C:\\none\\x.pro"));
    CHECK(p.m.Errors().find("FRM Startup - SaveDisabledItems") != std::string::npos);
  }

  TEST_CASE("win.ini: no section, read-only, quotes, several lines, too long for a profile call") {
    for (const auto& [content, expected, without_first] :
         Rows<const char*, const char*, const char*>{
             {"", "", ""},
             {"[x]\r\nLoad=a\r\n", "", "[x]\r\nLoad=a\r\n"},
             {"[Windows]\r\nLoad=a b\r\nLoad=c\r\n", "a b ", "[Windows]\r\nLoad=b\r\nLoad=c\r\n"},
             {"[Windows]\r\nLoad=\"C:\\a b.exe\"\r\n", "C:\\a b.exe ", "[Windows]\r\nLoad=\r\n"},
             {"[Windows]\r\nLoad=\"a b\" \"c d\"\r\n", "a b c d ", "[Windows]\r\nLoad=\"c d\"\r\n"},
             {"[Windows]\r\nLoad= a , b\r\n", "a b ", "[Windows]\r\nLoad=b\r\n"}}) {
      CAPTURE(std::string(content));
      ToolBench b;
      b.m.File(kWinIni, content);
      StartupManager manager(b.needs);
      manager.Form_Load();
      std::string names;
      for (std::size_t i = 0; i < manager.size(); ++i) names += manager.entry(i).name + " ";
      CHECK(names == expected);
      if (manager.size() == 0) continue;
      manager.cmdDisable_Click(0);
      b.m.files.Find(kWinIni)->ReadOnly();
      CHECK_FALSE(manager.ApplyNow());
      CHECK(manager.disabled_count() == 0);
      b.m.files.Find(kWinIni)->attributes = kArchive;
      manager.cmdDisable_Click(0);
      CHECK(manager.ApplyNow());
      CHECK(b.m.Content(kWinIni) == without_first);
    }
    // The profile call would have cut the line at 1999 characters.
    ToolBench b;
    CutProfiles cut(b.m.files);
    const std::string line = "first " + std::string(3000, 'x') + " last";
    b.m.File(kWinIni, "[windows]\r\nrun=" + line + "\r\n");
    const StartupLocations places(
        {b.m.files, b.m.registry, nullptr, cut, b.m.shell, b.m.system, b.m.code_pages, b.folders});
    std::string last;
    const StartupLocation& run = *FindPlace("win.ini run");
    REQUIRE(places.List(run, [&](const PlaceEntry& entry) { last = entry.name; }).ok());
    CHECK(last == "last");
    CHECK(places.DeleteEntry(run, {"first", "first"}).ok());
    CHECK(b.m.Content(kWinIni).ends_with("x last\r\n"));
  }

  TEST_CASE("on the NT family the lines lie in the registry") {
    ToolBench b;
    b.m.File(kWinIni, "[windows]\r\nrun=ignored by the system\r\n");
    MappedProfiles mapped(b.m.registry);
    b.m.registry.Make(kUser, kMappedKey).Value("Run", "\"C:\\a b.exe\"");
    const StartupLocations places({b.m.files, b.m.registry, nullptr, mapped, b.m.shell, b.m.system,
                                   b.m.code_pages, b.folders});
    std::string found;
    const auto list = [&](const PlaceEntry& entry) { found += entry.command + ";"; };
    REQUIRE(places.List(*FindPlace("Win.ini Run"), list).ok());
    CHECK(found == "\"C:\\a b.exe\";");
  }

  TEST_CASE("tasks are added and edited at once") {
    Planted p;
    p.m.File("C:\\My Files\\b.exe");
    StartupManager manager(p.needs);
    manager.Form_Load();
    const auto places = StartupPlaces();
    CHECK(manager.AddTask(places[0], "New", "C:\\My Files\\b.exe"));
    CHECK(p.m.registry.Text(kMachine, kRun, "New") == Z("\"C:\\My Files\\b.exe\""));
    CHECK(manager.AddTask(places[5], "any", "C:\\My Files\\b.exe"));
    CHECK(p.m.Content(kWinIni).find("load=\"C:\\My Files\\b.exe\"") != std::string::npos);
    CHECK(manager.AddTask(places[7], "Link", "C:\\My Files\\b.exe /x"));
    CHECK(p.m.Content(std::string(kUserStartup) + "\\Link.lnk") ==
          FakeShell::MakeShortcut("C:\\My Files\\b.exe", "/x"));
    const std::size_t rows = manager.size();
    // A line parts its programs by blanks: an argument would be started as another one.
    CHECK_FALSE(manager.AddTask(places[5], "any", "\"C:\\My Files\\b.exe\" /x"));
    CHECK_FALSE(manager.Edit(p.RowOf(manager, "two"), "", "three.exe /x"));
    CHECK(p.m.Content(kWinIni).find("/x") == std::string::npos);
    CHECK_FALSE(manager.AddTask(places[0], "new", "C:\\x.exe"));
    CHECK_FALSE(manager.AddTask(places[0], " ", "C:\\x.exe"));
    CHECK_FALSE(manager.AddTask(places[0], "y", " "));
    CHECK_FALSE(manager.AddTask(places[7], "..\\y", "C:\\x.exe"));
    CHECK(manager.size() == rows);

    // The name of a disabled entry is free.
    manager.cmdDisable_Click(p.RowOf(manager, "New"));
    REQUIRE(manager.ApplyNow());
    CHECK(manager.AddTask(places[0], "new", "C:\\My Files\\b.exe"));
    CHECK(manager.size() == rows + 1);

    CHECK_FALSE(manager.MayEdit(p.RowOf(manager, "Tray")));
    CHECK_FALSE(manager.MayEdit(p.RowOf(manager, "Ex")));
    CHECK(manager.Edit(p.RowOf(manager, "User"), "User2", "%WinDir%\\v.exe"));
    CHECK(p.m.registry.Text(kUser, kRun, "User") == "(none)");
    RegValue value;
    REQUIRE(p.m.registry.QueryValue(kUser, kRun, "User2", &value) == kRegOk);
    CHECK(value.type == kRegExpandText);
    CHECK(value.data == Z("%WinDir%\\v.exe"));
    CHECK(manager.Edit(p.RowOf(manager, "User2"), "USER2", "C:\\other.exe"));
    CHECK(p.m.registry.Text(kUser, kRun, "User2") == Z("C:\\other.exe"));
    CHECK(manager.Edit(p.RowOf(manager, "two"), "", "three.exe"));
    CHECK(p.m.Content(kWinIni).find("one.exe, three.exe  \"") != std::string::npos);
    CHECK_FALSE(manager.Edit(0, "Long", "C:\\x.exe"));  // taken
    manager.cmdDisable_Click(0);
    REQUIRE(manager.ApplyNow());
    CHECK(manager.Edit(0, "Machine", "C:\\edited.exe"));
    CHECK(p.m.Content(kSaveProf).find("C:\\edited.exe\r\n") != std::string::npos);
    CHECK(manager.EditedCommand(0) == "C:\\edited.exe");
  }

  TEST_CASE("values that no name leads to are listed, and no other goes in their place") {
    ToolBench b;
    const std::string hidden("Foo\0x", 5);
    Key& key = b.m.registry.Make(kUser, kRun);
    key.Value("Foo", Z("good.exe")).Value(hidden, Z("hidden.exe"));
    key.unspellable = {{"?", {kRegText, Z("odd.exe")}}, {"foo", {kRegText, Z("twin.exe")}}};
    const auto good = [&] { return b.m.registry.Text(kUser, kRun, "Foo"); };
    StartupManager manager(b.needs);
    manager.Form_Load();
    CHECK(b.Cells(manager, {0, 5}) ==
          "Foo|good.exe|\nFoo\\0x|hidden.exe|\n?|odd.exe|\nfoo|twin.exe|\n");
    for (std::size_t row = 1; row < 4; ++row) {
      CHECK_FALSE(manager.Edit(row, "Bar", "x.exe"));
      manager.cmdRemove_Click(row);
    }
    CHECK_FALSE(manager.ApplyNow());
    CHECK(manager.failures().size() == 3);
    ToggleAll(manager);
    CHECK_FALSE(manager.ApplyNow());
    CHECK(manager.failures().size() == 3);
    CHECK(manager.disabled_count() == 1);
    CHECK(good() == "(none)");
    manager.Form_Load();
    CHECK(manager.size() == 4);
    manager.ResetAll();
    CHECK(manager.ApplyNow());
    CHECK(good() == Z("good.exe"));
    StoredTree tree;  // nor are they dropped with their key
    CHECK(ReadTree(b.m.registry, kUser, kRun, &tree) == kRegInvalidParameter);
  }

  TEST_CASE("an edit stores no marks, and fails where the profile does") {
    Planted p;
    StartupManager manager(p.needs);
    manager.Form_Load();
    manager.cmdDisable_Click(0);
    REQUIRE(manager.ApplyNow());
    manager.cmdDisable_Click(1);
    CHECK(manager.HasMarks());
    CHECK(manager.Edit(0, "Machine", "C:\\edited.exe"));
    StartupManager next(p.needs);
    next.Form_Load();
    CHECK(next.disabled_count() == 1);
    CHECK_FALSE(next.IsChanged());
    p.m.files.Find(kSaveProf)->Denied();
    CHECK_FALSE(next.Edit(p.RowOf(next, "Machine"), "Machine", "C:\\lost.exe"));
    CHECK(next.EditedCommand(p.RowOf(next, "Machine")) == "C:\\edited.exe");
    // In its place and in the profile: no mark of the user, but something to apply.
    p.m.files.Find(kSaveProf)->Fails(kNoError);
    p.m.registry.Make(kMachine, kRun).Value("Machine", Z("C:\\edited.exe"));
    next.Form_Load();
    CHECK_FALSE(next.HasMarks());
    CHECK(next.IsChanged());
  }

  TEST_CASE("what lies in the part of one user is no other user's to put back") {
    Planted p;
    const std::string link = std::string(kUserStartup) + "\\Tray.lnk";
    const std::string shortcut = p.m.Content(link);
    const auto names = [](const StartupManager& manager) {
      std::string text;
      for (std::size_t row = 0; row < manager.size(); ++row) {
        if (manager.status(row) == EntryStatus::Disabled) text += manager.entry(row).name + " ";
      }
      return text;
    };
    const auto as = [&](const char* user) {
      p.locations.UseUser(user);
      auto manager = std::make_unique<StartupManager>(p.needs);
      manager->Form_Load();
      return manager;
    };
    const auto disable = [&](StartupManager& manager) {
      for (const char* name : {"User", "Tray", "Office", "two"}) {
        manager.cmdDisable_Click(p.RowOf(manager, name));
      }
      CHECK(manager.ApplyNow());
    };
    disable(*as("S-1-5-21-7-1000"));
    CHECK(names(*as("S-1-5-21-7-1000")) == "User two Tray Office ");
    CHECK(names(*as("S-1-5-21-7-1001")) == "Office ");
    // The other one has the same, but for a shortcut of his own.
    p.m.registry.Make(kUser, kRun).Value("User", Z("%WinDir%\\u.exe"), kRegExpandText);
    p.m.File(kWinIni, "[windows]\r\nrun=two\r\n");
    p.m.File(link, FakeShell::MakeShortcut("C:\\other.exe", ""));
    {
      const auto manager = as("S-1-5-21-7-1001");
      manager->cmdDisable_Click(p.RowOf(*manager, "Office"));
      disable(*manager);
      CHECK(names(*manager) == "User two Tray Office ");
      manager->ResetAll();
      CHECK(manager->ApplyNow());
    }
    CHECK(p.m.Has(std::string(kCommonStartup) + "\\Office.lnk"));
    REQUIRE(p.m.Has(link));
    CHECK(p.m.Content(link) == FakeShell::MakeShortcut("C:\\other.exe", ""));
    // The first one's are still his, and still his shortcut.
    static_cast<void>(p.m.files.EraseFile(link));
    p.m.File(kWinIni, "[windows]\r\nrun=C:\\one.exe\r\n");
    REQUIRE(p.m.registry.DeleteValue(kUser, kRun, "User") == kRegOk);
    const auto manager = as("S-1-5-21-7-1000");
    CHECK(names(*manager) == "User two Tray ");
    manager->ResetAll();
    CHECK(manager->ApplyNow());
    CHECK(p.m.Content(link) == shortcut);
    CHECK(p.m.registry.Text(kUser, kRun, "User") == Z("%WinDir%\\u.exe"));
    CHECK_FALSE(p.m.Has(kSaveProf));
  }

  TEST_CASE("what was disabled before users were told apart is everybody's") {
    Planted p;
    StartupManager before(p.needs);
    before.Form_Load();
    const std::string state = p.State();
    ToggleAll(before);
    REQUIRE(before.ApplyNow());
    p.locations.UseUser("S-1-5-21-7-1001");
    StartupManager manager(p.needs);
    manager.Form_Load();
    CHECK(manager.disabled_count() == 15);
    manager.ResetAll();
    CHECK(manager.ApplyNow());
    CHECK(p.State() == state);
  }

  TEST_CASE("a profile of endless records is cut and put aside") {
    ToolBench b;
    b.m.File(kSaveProf, std::string(6 * kMostRecords + 1, '\n'));
    StartupManager manager(b.needs);
    manager.Form_Load();
    CHECK(manager.size() == kMostRecords);
    CHECK(manager.failures().size() == 1);
    CHECK(b.m.Has("C:\\App\\SaveProf.pro.bad"));
  }

  TEST_CASE("of a program that a line names twice, the disabled one outlives the run") {
    ToolBench b;
    const std::string both = "[windows]\r\nrun=a.exe  a.exe\r\n";
    b.m.File(kWinIni, both);
    for (const char* line : {"run=a.exe\r\n", "run=\r\n"}) {
      StartupManager manager(b.needs);
      manager.Form_Load();
      REQUIRE(manager.size() == 2);
      manager.cmdDisable_Click(0);
      CHECK(manager.ApplyNow());
      CHECK(b.m.Content(kWinIni).ends_with(line));
    }
    StartupManager manager(b.needs);
    manager.Form_Load();
    CHECK(manager.disabled_count() == 2);
    manager.ResetAll();
    CHECK(manager.ApplyNow());
    CHECK(b.m.Content(kWinIni) == both);
  }

  TEST_CASE("tasks: for rundll32, and only in places that are there") {
    ToolBench b;
    for (const char* file : {"C:\\WINDOWS\\system32\\rundll32.exe", "C:\\bar.dll"}) b.m.File(file);
    b.m.Folder(kUserStartup);
    b.folders.special[static_cast<std::size_t>(SpecialFolder::CommonStartUp)].clear();
    StartupManager manager(b.needs);
    manager.Form_Load();
    CHECK(manager.TaskPlaces().size() == 11);
    CHECK(manager.AddTask(*manager.TaskPlaces()[7], "Dll", "rundll32 C:\\bar.dll,Start"));
    CHECK(b.m.Content(std::string(kUserStartup) + "\\Dll.lnk") ==
          FakeShell::MakeShortcut("C:\\WINDOWS\\system32\\rundll32.exe", "C:\\bar.dll,Start"));
    CHECK(manager.facts(0).path == "C:\\bar.dll");
    CHECK_FALSE(manager.AddTask(StartupPlaces()[8], "All", "C:\\bar.dll"));
  }
}

}  // namespace scourwell::test
