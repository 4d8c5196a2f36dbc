#include "tools/startup_manager.h"

#include "tests/startup_support.h"

namespace scourwell::test {
namespace {

constexpr RootKey kUser = RootKey::CurrentUser;
constexpr RootKey kMachine = RootKey::LocalMachine;

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

// Every row disabled, or enabled again.
void ToggleAll(StartupManager& manager) {
  for (std::size_t row = 0; row < manager.size(); ++row) manager.cmdDisable_Click(row);
}

}  // namespace

TEST_SUITE("startup_manager") {
  TEST_CASE("all nine places are listed, with file, company and spy") {
    Planted p;
    p.m.File("C:\\App\\Ini\\update.ref",
             Definitions()
                 .Entry("SAFI", {"SAFIT", "SAFIS"}, {"Adware.O", "o.exe"})
                 .Entry("REGV", {"REGVT", "REGVK", "REGVV"},
                        {"Adware.V", "HKEY_LOCAL_MACHINE\\" + std::string(kRun), "Machine"})
                 .Text());
    p.m.versions.blocks["C:\\a.exe"] = VersionBlock().Text("CompanyName", "Acme").Make();
    StartupManager manager(p.needs);
    manager.Form_Load();
    CHECK(p.Rows(manager, {0, 1, 2, 3, 4, 6, 7, 8}) ==
          "Machine|<413>|<419>(Machine Run)|<416>|<420>|<17234>|Acme|Adware.V|\n"
          "<17236>|<413>|<419>(Machine Run)|<416>|<420>|<17235>|||\n"
          "Bad, name|<413>|<419>(Machine Run)|<416>|<420>|<17235>|||\n"
          "NoData|<413>|<419>(Machine Run)|<416>|<420>|<17235>|||\n"
          "Long|<413>|<419>(Machine Run)|<416>|<420>|<17235>|||\n"
          "Once|<413>|<419>(Machine RunOnce)|<416>|<420>|<17235>|||\n"
          "Ex|<413>|<419>(Machine RunOnceEx)|<416>|<420>|<17235>|||\n"
          "Service|<413>|<419>(Machine RunServices)|<416>|<420>|<17235>|||\n"
          "User|<413>|<426>|<415>|<418>|<17235>|||\n"
          "C:\\one.exe|<413>|<433>|<416>|<420>|<17235>|||\n"
          "two|<413>|<433>|<416>|<420>|<17235>|||\n"
          "C:\\a b.exe|<413>|<433>|<416>|<420>|<17235>|||\n"
          "Tray|<413>|<430>|<415>|<418>|<17235>|||\n"
          "Broken|<413>|<430>|<415>|<418>|<17235>|||\n"
          "Office|<413>|<431>|<416>|<420>|<17235>||Adware.O|\n");
    CHECK(manager.Cell(p.RowOf(manager, "Tray"), StartupManager::kCommand) ==
          "\"C:\\My Files\\t.exe\" /q");
    CHECK(manager.Cell(p.RowOf(manager, "User"), StartupManager::kCommand) == "%WinDir%\\u.exe");
    CHECK(manager.Cell(p.RowOf(manager, "Ex"), StartupManager::kCommand) == "01 02");
    CHECK(manager.KeyOf(0) == "HKEY_LOCAL_MACHINE\\" + std::string(kRun));
    CHECK(manager.KeyOf(p.RowOf(manager, "Tray")) == "");
    CHECK_FALSE(manager.IsChanged());
    CHECK(p.m.Errors() == "");
  }

  TEST_CASE("what is disabled leaves its place, outlives the run and comes back as it was") {
    Planted p;
    const std::string before = p.State();
    {
      StartupManager manager(p.needs);
      manager.Form_Load();
      ToggleAll(manager);
      CHECK(manager.IsChanged());
      CHECK(p.State() == before);  // marks change nothing
      CHECK(manager.ApplyNow());
      CHECK(manager.disabled_count() == 15);
      CHECK_FALSE(manager.IsChanged());
    }
    CHECK(p.State().find("exe") == std::string::npos);
    CHECK(p.m.Content(kWinIni) == "[windows]\r\nload=\r\nrun=\r\n[x]\r\nrun=no\r\n");
    CHECK_FALSE(p.m.Has(std::string(kUserStartup) + "\\Tray.lnk"));
    CHECK(
        p.m.Content(kSaveProf).starts_with("Machine\r\nDisabled\r\nRegistry(Machine Run)\r\n"
                                           "All Users\r\nAny User Logs On\r\nC:\\a.exe\r\n"));
    StartupManager manager(p.needs);
    manager.Form_Load();
    CHECK(manager.disabled_count() == 15);
    CHECK(manager.Cell(0, StartupManager::kStatus) == "<423>");
    // In two steps and another order.
    for (std::size_t row = 1; row < manager.size(); row += 2) manager.cmdDisable_Click(row);
    CHECK(manager.ApplyNow());
    manager.Form_Load();
    for (std::size_t row = 0; row < manager.size(); ++row) {
      if (manager.status(row) == EntryStatus::Disabled) manager.cmdDisable_Click(row);
    }
    CHECK(manager.ApplyNow());
    CHECK(p.State() == before);
    CHECK_FALSE(p.m.Has(kSaveProf));
    CHECK_FALSE(p.m.Has(std::string(kKept) + "Tray.lnk"));
    CHECK_FALSE(p.m.Has("C:\\App\\Disabled Startup\\win.ini\\Run.txt"));
    CHECK(p.m.Errors() == "");
  }

  // A machine that stops before any one of its changes: at the next start every entry is in its
  // place or in the profile, and enabling all brings everything back.
  TEST_CASE("no crash loses an entry") {
    struct Crash {};
    for (const bool enabling : {false, true}) {
      for (int stop = 1;; ++stop) {
        CAPTURE(enabling);
        CAPTURE(stop);
        Planted p;
        const std::string before = p.State();
        StartupManager manager(p.needs);
        manager.Form_Load();
        ToggleAll(manager);
        if (enabling) {
          REQUIRE(manager.ApplyNow());
          ToggleAll(manager);
        }
        int changes = 0;
        p.m.files.before_change = p.m.registry.before_change = [&] {
          if (++changes == stop) throw Crash();
        };
        bool crashed = false;
        try {
          manager.ApplyNow();
        } catch (const Crash&) {
          crashed = true;
        }
        p.m.files.before_change = p.m.registry.before_change = nullptr;
        StartupManager next(p.needs);
        next.Form_Load();
        CHECK(next.size() == 15);
        for (std::size_t row = 0; row < next.size(); ++row) {
          if (next.status(row) == EntryStatus::Disabled) next.cmdDisable_Click(row);
        }
        CHECK(next.ApplyNow());
        CHECK((p.State() == before));
        CHECK_FALSE(p.m.Has(kSaveProf));
        if (!crashed) break;
      }
    }
  }

  TEST_CASE("a disk that refuses any one change leaves every entry in one place") {
    for (std::size_t failing = 1; failing < 12; ++failing) {
      CAPTURE(failing);
      Planted p;
      StartupManager manager(p.needs);
      manager.Form_Load();
      ToggleAll(manager);
      p.m.files.failing_change = p.m.files.changes + failing;
      // A shortcut that cannot be moved is copied.
      const bool applied = manager.ApplyNow();
      CHECK(applied == (p.m.files.Count("Failing Move") == 1));
      CHECK(applied == (p.m.Errors().find("Method: FRM Startup - ApplyNow") == std::string::npos));
      CHECK(applied == manager.failures().empty());
      StartupManager next(p.needs);
      next.Form_Load();
      CHECK(next.size() == 15);
      CHECK(next.disabled_count() == manager.disabled_count());
    }
  }

  TEST_CASE("a registry that refuses keeps its entries enabled, the others go on") {
    Planted p;
    p.m.registry.Find(kMachine, kRun)->Denied();
    StartupManager manager(p.needs);
    manager.Form_Load();
    ToggleAll(manager);
    CHECK_FALSE(manager.ApplyNow());
    CHECK(manager.failures().size() == 5);
    CHECK(manager.disabled_count() == 10);
    CHECK(p.m.Content(kSaveProf).find("(Machine Run)") == std::string::npos);
    // And one that refuses to take an entry back.
    p.m.registry.Find(kMachine, kRun)->denied = false;
    p.m.registry.Find(kUser, kRun)->Denied();
    manager.cmdDisable_Click(p.RowOf(manager, "User"));
    CHECK_FALSE(manager.ApplyNow());
    CHECK(manager.status(p.RowOf(manager, "User")) == EntryStatus::Disabled);
    CHECK(p.m.Content(kSaveProf).find("User\r\n") != std::string::npos);
  }

  TEST_CASE("removal is final") {
    Planted p;
    StartupManager manager(p.needs);
    manager.Form_Load();
    manager.cmdDisable_Click(p.RowOf(manager, "Tray"));
    manager.cmdDisable_Click(p.RowOf(manager, "two"));
    REQUIRE(manager.ApplyNow());
    for (const char* name : {"Tray", "Machine", "C:\\one.exe"}) {
      manager.cmdRemove_Click(p.RowOf(manager, name));
    }
    CHECK(manager.Cell(0, StartupManager::kStatus) == "<424>");
    CHECK(manager.ApplyNow());
    CHECK(manager.size() == 12);
    manager.Form_Load();
    CHECK(manager.size() == 12);
    CHECK_FALSE(p.m.Has(std::string(kKept) + "Tray.lnk"));
    CHECK(p.m.registry.Text(kMachine, kRun, "Machine") == "(none)");
    // What is left of the line takes the other program back in its place.
    manager.cmdDisable_Click(p.RowOf(manager, "two"));
    CHECK(manager.ApplyNow());
    CHECK(p.m.Content(kWinIni).find("\r\nrun=two  \"C:\\a b.exe\"\r\n") != std::string::npos);
    CHECK_FALSE(p.m.Has(kSaveProf));
  }

  TEST_CASE("an entry of the same name that came up meanwhile is not written over") {
    Planted p;
    StartupManager manager(p.needs);
    manager.Form_Load();
    for (const char* name : {"Machine", "Tray"}) manager.cmdDisable_Click(p.RowOf(manager, name));
    REQUIRE(manager.ApplyNow());
    p.m.registry.Make(kMachine, kRun).Value("Machine", Z("C:\\newer.exe"));
    p.m.File(std::string(kUserStartup) + "\\Tray.lnk",
             FakeShell::MakeShortcut("C:\\newer.exe", ""));
    manager.Form_Load();
    CHECK(manager.size() == 17);  // the new ones beside the old ones
    manager.ResetAll();
    CHECK_FALSE(manager.ApplyNow());
    CHECK(manager.failures().size() == 2);
    CHECK(manager.disabled_count() == 2);
    CHECK(p.m.registry.Text(kMachine, kRun, "Machine") == Z("C:\\newer.exe"));
    // The newer shortcut cannot be kept under the name of the older one.
    ToggleAll(manager);
    CHECK_FALSE(manager.ApplyNow());
    CHECK(p.m.Has(std::string(kUserStartup) + "\\Tray.lnk"));
    CHECK(p.m.Content(std::string(kKept) + "Tray.lnk").find("t.exe") != std::string::npos);
  }

  TEST_CASE("a shortcut whose file has gone is made from its command") {
    Planted p;
    StartupManager manager(p.needs);
    manager.Form_Load();
    for (const char* name : {"Tray", "Broken"}) manager.cmdDisable_Click(p.RowOf(manager, name));
    REQUIRE(manager.ApplyNow());
    for (const char* name : {"Tray.lnk", "Broken.lnk"}) p.m.files.Remove(std::string(kKept) + name);
    manager.ResetAll();
    CHECK_FALSE(manager.ApplyNow());  // nothing is known of the broken one
    CHECK(p.m.Content(std::string(kUserStartup) + "\\Tray.lnk") ==
          FakeShell::MakeShortcut("C:\\My Files\\t.exe", "/q"));
    CHECK(manager.disabled_count() == 1);
  }

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
    p.m.registry.Find(kMachine, kRun)
        ->values.erase(p.m.registry.Find(kMachine, kRun)->values.begin());
    manager.Form_Load();
    CHECK(manager.LoadProfile("C:\\mine.pro"));  // marks one row, brings another as it was saved
    CHECK(manager.disabled_count() == 2);
    CHECK(manager.ApplyNow());
    CHECK(p.m.Content(kSaveProf) == p.m.Content("C:\\mine.pro").substr(0, 0) +
                                        "two\r\nDisabled\r\nWin.ini Run\r\nAll Users\r\n"
                                        "Any User Logs On\r\ntwo\r\nMachine\r\nDisabled\r\n"
                                        "Registry(Machine Run)\r\nAll Users\r\nAny User Logs On\r\n"
                                        "C:\\a.exe\r\n");
    CHECK_FALSE(manager.LoadProfile("C:\\none\\x.pro"));
    CHECK_FALSE(manager.SaveProfile("C:\\none\\x.pro"));
    CHECK(p.m.Errors().find("FRM Startup - SaveDisabledItems") != std::string::npos);
  }

  TEST_CASE("win.ini: no section, read-only, quotes, several lines, too long for a profile call") {
    struct Row {
      const char* content;
      const char* names;
      const char* without_first;
    };
    for (const Row& row :
         {Row{"", "", ""},
          {"[x]\r\nLoad=a\r\n", "", "[x]\r\nLoad=a\r\n"},
          {"[Windows]\r\nLoad=a b\r\nLoad=c\r\n", "a b ", "[Windows]\r\nLoad=b\r\nLoad=c\r\n"},
          {"[Windows]\r\nLoad=\"C:\\a b.exe\"\r\n", "C:\\a b.exe ", "[Windows]\r\nLoad=\r\n"},
          {"[Windows]\r\nLoad=\"a b\" \"c d\"\r\n", "a b c d ", "[Windows]\r\nLoad=\"c d\"\r\n"},
          {"[Windows]\r\nLoad= a , b\r\n", "a b ", "[Windows]\r\nLoad=b\r\n"}}) {
      CAPTURE(row.content);
      ToolBench b;
      b.m.File(kWinIni, row.content);
      StartupManager manager(b.needs);
      manager.Form_Load();
      std::string names;
      for (std::size_t i = 0; i < manager.size(); ++i) names += manager.entry(i).name + " ";
      CHECK(names == row.names);
      if (manager.size() == 0) continue;
      manager.cmdDisable_Click(0);
      b.m.files.Find(kWinIni)->ReadOnly();
      CHECK_FALSE(manager.ApplyNow());
      CHECK(manager.disabled_count() == 0);
      b.m.files.Find(kWinIni)->attributes = kArchive;
      manager.cmdDisable_Click(0);
      CHECK(manager.ApplyNow());
      CHECK(b.m.Content(kWinIni) == row.without_first);
    }
    // The profile call would have cut the line at 1999 characters.
    ToolBench b;
    CutProfiles cut(b.m.files);
    const std::string line = "first " + std::string(3000, 'x') + " last";
    b.m.File(kWinIni, "[windows]\r\nrun=" + line + "\r\n");
    const StartupLocations places(
        {b.m.files, b.m.registry, nullptr, cut, b.m.shell, b.m.system, b.folders});
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
    const StartupLocations places(
        {b.m.files, b.m.registry, nullptr, mapped, b.m.shell, b.m.system, b.folders});
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
    CHECK_FALSE(manager.AddTask(places[0], "new", "C:\\x.exe"));
    CHECK_FALSE(manager.AddTask(places[0], " ", "C:\\x.exe"));
    CHECK_FALSE(manager.AddTask(places[0], "y", " "));
    CHECK_FALSE(manager.AddTask(places[7], "..\\y", "C:\\x.exe"));
    CHECK(manager.size() == rows);

    CHECK_FALSE(manager.MayEdit(p.RowOf(manager, "Tray")));
    CHECK_FALSE(manager.MayEdit(p.RowOf(manager, "Ex")));
    CHECK(manager.Edit(p.RowOf(manager, "User"), "User2", "%WinDir%\\v.exe"));
    CHECK(p.m.registry.Text(kUser, kRun, "User") == "(none)");
    RegValue value;
    REQUIRE(p.m.registry.QueryValue(kUser, kRun, "User2", &value) == kRegOk);
    CHECK(value.type == kRegExpandText);
    CHECK(value.data == Z("%WinDir%\\v.exe"));
    CHECK(manager.Edit(p.RowOf(manager, "two"), "", "three.exe"));
    CHECK(p.m.Content(kWinIni).find("one.exe, three.exe  \"") != std::string::npos);
    CHECK_FALSE(manager.Edit(0, "Long", "C:\\x.exe"));  // taken
    manager.cmdDisable_Click(0);
    REQUIRE(manager.ApplyNow());
    CHECK(manager.Edit(0, "Machine", "C:\\edited.exe"));
    CHECK(p.m.Content(kSaveProf).find("C:\\edited.exe\r\n") != std::string::npos);
    CHECK(manager.EditedCommand(0) == "C:\\edited.exe");
  }
}

}  // namespace scourwell::test
