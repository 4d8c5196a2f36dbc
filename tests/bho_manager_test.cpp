// SPDX-License-Identifier: MIT
#include "tools/bho_manager.h"

#include "scan/finding_texts.h"
#include "tests/startup_support.h"

namespace scourwell::test {
namespace {

constexpr char kHelpers[] =
    "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Browser Helper Objects";
constexpr char kBar[] = "{11111111-1111-1111-1111-111111111111}";
constexpr char kLost[] = "{22222222-2222-2222-2222-222222222222}";
constexpr char kWide[] = "{33333333-3333-3333-3333-333333333333}";
constexpr char kProfile[] = "C:\\App\\BHOProf.pro";

struct Helpers : ToolBench {
  Helpers() {
    Key& bar = Helper(m.registry, kBar);
    bar.Value("", Z("Bar")).Value("NoExplorer", std::string("\1\0\0\0", 4), kRegDword);
    m.registry.Make(kMachine, Path(kBar) + "\\Settings").Value("|x;y=", "\xFF", kRegBinary);
    Helper(m.registry, kLost);
    Helper(registry64, kWide);
    Class(m.registry, kBar, "The Bar", "C:\\Program Files\\Bar\\bar.dll");
    Class(registry64, kWide, "Wide", "C:\\wide.dll");
    m.File("C:\\Program Files\\Bar\\bar.dll");
    m.versions.blocks["C:\\Program Files\\Bar\\bar.dll"] =
        VersionBlock().Text("CompanyName", "Bar Inc").Make();
  }
  static std::string Path(const std::string& id) { return std::string(kHelpers) + "\\" + id; }
  static Key& Helper(FakeRegistry& registry, const std::string& id) {
    return registry.Make(kMachine, Path(id));
  }
  static void Class(FakeRegistry& registry, const std::string& id, const std::string& name,
                    const std::string& file) {
    registry.Make(RootKey::ClassesRoot, "CLSID\\" + id).Value("", Z(name));
    registry.Make(RootKey::ClassesRoot, "CLSID\\" + id + "\\InprocServer32").Value("", Z(file));
  }
};

}  // namespace

TEST_SUITE("bho_manager") {
  TEST_CASE("helpers of both views, with class, file, company and definition") {
    Helpers h;
    h.m.File("C:\\App\\Ini\\update.ref",
             Definitions().Entry("REGS", {"REGST", "REGSK"}, {"Hijacker.Lost", kLost}).Text());
    BhoManager manager(h.needs);
    manager.Form_Load();
    CHECK(h.Cells(manager, {0, 1, 2, 3, 4, 5, 6, 7}) ==
          "The Bar|<413>|" + std::string(kBar) +
              "|C:\\Program Files\\Bar\\bar.dll|<17234>|Bar Inc||<17264>|\n"
              "<17263>|<413>|" +
              kLost +
              "||<17235>||Hijacker.Lost|<17264>|\n"
              "Wide|<413>|" +
              kWide + "|C:\\wide.dll|<17235>|||<17265>|\n");
    CHECK(manager.KeyOf(0) ==
          "HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\"
          "Explorer\\Browser Helper Objects\\" +
              std::string(kBar));
    const std::string details = manager.Details(0);
    CHECK(details.find("NoExplorer = 0x00000001\r\n") != std::string::npos);
    CHECK(details.find("Settings\\|x;y= = FF\r\n") != std::string::npos);
    CHECK(h.m.Errors() == "");
  }

  TEST_CASE("a helper that is marked for removal is stored as the key that it is") {
    Helpers h;
    BhoManager manager(h.needs);
    manager.Form_Load();
    manager.cmdDisable_Click(2);
    REQUIRE(manager.ApplyNow());
    for (std::size_t row = 0; row < 3; ++row) manager.cmdRemove_Click(row);
    const std::vector<Finding> removed = manager.RemovedObjects();
    REQUIRE(removed.size() == 2);  // a disabled one is in its place no more
    REQUIRE(std::holds_alternative<FoundKey>(removed[0].object));
    CHECK(PlaceText(removed[0].object) == manager.KeyOf(0));
    CHECK(removed[0].spy == "The Bar");
    CHECK(manager.KeyOf(2).ends_with("\\Browser Helper Objects"));
  }

  TEST_CASE("a helper is called by its class, else by its own key, else by its file") {
    constexpr char kFull[] = "C:\\Program Files\\Bar Co\\new bar.dll";
    const auto name = [&](const std::string& class_name, const std::string& key_name,
                          const std::string& file) {
      ToolBench b;
      Helpers::Helper(b.m.registry, kBar);
      if (!key_name.empty()) Helpers::Helper(b.m.registry, kBar).Value("", Z(key_name));
      if (!file.empty()) Helpers::Class(b.m.registry, kBar, class_name, file);
      b.m.File("C:\\Program.exe");
      BhoManager manager(b.needs);
      manager.Form_Load();
      return manager.Cell(0, BhoManager::kName) + "|" + manager.Cell(0, BhoManager::kFile);
    };
    CHECK(name("Class", "Key", kFull) == std::string("Class|") + kFull);
    CHECK(name("", "Key", std::string("\"") + kFull + "\"") == std::string("Key|") + kFull);
    CHECK(name("", "", kFull) == std::string("new bar.dll|") + kFull);
    CHECK(name("", "", " ") == std::string(kBar) + "|");
    CHECK(name("", "Key", "") == "Key <17263>|");
    CHECK(name("", "", "") == "<17263>|");
  }

  TEST_CASE("a disabled helper leaves the browser's list and comes back with all its values") {
    Helpers h;
    const std::string before = h.State();
    BhoManager manager(h.needs);
    manager.Form_Load();
    ToggleAll(manager);
    REQUIRE(manager.ApplyNow());
    CHECK(h.m.registry.Find(kMachine, kHelpers)->children.empty());
    CHECK(h.registry64.Find(kMachine, kHelpers)->children.empty());
    CHECK(h.m.Content(kProfile).starts_with(std::string(kBar) + "\r\nDisabled\r\n"));
    BhoManager next(h.needs);
    next.Form_Load();
    CHECK(next.disabled_count() == 3);
    CHECK(next.Cell(0, BhoManager::kName) == "The Bar");  // the class is still registered
    next.ResetAll();
    CHECK(next.ApplyNow());
    CHECK(h.State() == before);
    CHECK_FALSE(h.m.Has(kProfile));
  }

  TEST_CASE("a helper whose key has as long a name as a key can have is disabled like any other") {
    Helpers h;
    std::string longest;
    while (longest.size() < 3 * 255) longest += "\u8868";
    Helpers::Helper(h.m.registry, longest);
    const std::string before = h.State();
    BhoManager manager(h.needs);
    manager.Form_Load();
    ToggleAll(manager);
    CHECK(manager.ApplyNow());
    CHECK(h.m.registry.Find(kMachine, kHelpers)->children.empty());
    manager.ResetAll();
    CHECK(manager.ApplyNow());
    CHECK(h.State() == before);
  }

  TEST_CASE("no crash loses a helper") { CheckThatNoCrashLosesAnEntry<BhoManager, Helpers>(); }

  TEST_CASE("refusals, intruders and records that are no helpers") {
    Helpers h;
    BhoManager manager(h.needs);
    manager.Form_Load();
    h.m.registry.Find(kMachine, Helpers::Path(kBar))->Denied();
    manager.cmdDisable_Click(0);
    CHECK_FALSE(manager.ApplyNow());
    CHECK(manager.status(0) == EntryStatus::Enabled);
    CHECK(h.m.Errors().find("Method: BHO ApplyNow") != std::string::npos);
    h.m.registry.Find(kMachine, Helpers::Path(kBar))->denied = false;
    manager.cmdDisable_Click(0);
    REQUIRE(manager.ApplyNow());
    Helpers::Helper(h.m.registry, kBar).Value("", Z("Another"));
    manager.Form_Load();
    manager.ResetAll();
    CHECK_FALSE(manager.ApplyNow());
    CHECK(h.m.registry.Text(kMachine, Helpers::Path(kBar), "") == Z("Another"));
    // Records that would write elsewhere or write nothing.
    const std::string rest = "\r\nDisabled\r\nBrowser Helper Objects\r\nx\r\ny\r\n";
    h.m.File(kProfile,
             "..\\Run" + rest + "key:\r\n{x}" + rest + "no tree\r\n" + "\\" + rest + "key:\r\n");
    const std::string before = h.State();
    manager.Form_Load();
    manager.ResetAll();
    CHECK_FALSE(manager.ApplyNow());
    CHECK(manager.failures().size() == 3);
    CHECK(h.State() == before);
    CHECK(manager.disabled_count() == 3);
  }

  TEST_CASE("a record of the 64-bit view stays where there is none") {
    Helpers h;
    BhoManager manager(h.needs);
    manager.Form_Load();
    manager.cmdDisable_Click(2);
    REQUIRE(manager.ApplyNow());
    const StartupLocations one({h.m.files, h.m.registry, nullptr, h.m.profiles, h.m.shell,
                                h.m.system, h.m.code_pages, h.folders});
    BhoManager small({one, h.spies, h.facts, h.log, h.captions});
    small.Form_Load();
    CHECK(small.size() == 3);
    small.ResetAll();
    CHECK_FALSE(small.ApplyNow());
    CHECK(h.m.Content(kProfile).starts_with(kWide));
  }
}

}  // namespace scourwell::test
