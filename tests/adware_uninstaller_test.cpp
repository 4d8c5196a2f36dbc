// SPDX-License-Identifier: MIT
#include "tools/adware_uninstaller.h"

#include "tests/startup_support.h"
#include "tools/tool_box.h"

namespace scourwell::test {
namespace {

constexpr char kUninstall[] = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\";

struct Installed : ToolBench {
  AdwareUninstaller tool{
      {m.registry, m.files, m.shell, m.system, folders, reference, log, captions}};
  std::string progress;

  Key& Program(const std::string& key, const std::string& name) {
    Key& made = m.registry.Make(RootKey::LocalMachine, kUninstall + key);
    if (!name.empty()) made.Value("DisplayName", Z(name));
    return made;
  }
  void Names() {
    Define(Definitions()
               .Entry("ADRE", {"WCL"}, {"toolbar"})
               .Entry("ADRE", {"WCL"}, {"Gator"})
               .Entry("ADRE", {"ESL"}, {"Save Now"})
               .Value("ADRE", "2ESL", "behind the gap"));
  }
  std::string Shown(bool all) {
    progress.clear();
    const auto count = [&](std::size_t done, std::size_t of) {
      progress += std::to_string(done) + "/" + std::to_string(of) + " ";
    };
    CHECK((all ? tool.LoadList(count) : tool.LoadSpyList(count)));
    std::string text;
    for (std::size_t i = 0; i < tool.size(); ++i) {
      text += tool.key(i) + "=" + tool.Cell(i, AdwareUninstaller::kProgram) + ";";
    }
    return text;
  }
};

}  // namespace

TEST_SUITE("adware_uninstaller") {
  TEST_CASE("adware by part and by whole name, in any case; the last key is left out") {
    Installed p;
    p.Names();
    p.Program("a", "Acme TOOLBAR Setup");
    p.Program("b", "SAVE NOW");
    p.Program("c", "Save Now 2");
    p.Program("d", "behind the gap");
    p.Program("e", "");
    p.Program("f", "Good Program");
    p.Program("last", "Another Toolbar");
    CHECK(p.Shown(false) == "a=Acme TOOLBAR Setup;b=SAVE NOW;");
    CHECK(p.tool.StatusText() == "<16000> 2");
    CHECK(p.progress == "1/7 2/7 3/7 4/7 5/7 6/7 ");
    CHECK(p.Shown(true) ==
          "a=Acme TOOLBAR Setup;b=SAVE NOW;c=Save Now 2;d=behind the gap;f=Good Program;");
    CHECK(p.tool.StatusText() == "<16006> 5");
    CHECK(p.Shown(false) == "a=Acme TOOLBAR Setup;b=SAVE NOW;");
    CHECK(p.m.Errors() == "");
  }

  TEST_CASE("one key, no key, no definitions") {
    Installed p;
    CHECK(p.Shown(false) == "");
    CHECK(p.Shown(true) == "");
    CHECK(p.m.Errors() == "");
    p.Program("a", "Toolbar");
    CHECK(p.Shown(true) == "");
    p.Program("b", "x");
    p.m.files.Remove("C:\\App\\Ini\\update.ref");
    CHECK(p.Shown(false) == "");
    CHECK(p.Shown(true) == "a=Toolbar;");
  }

  TEST_CASE("names of other types and without end are read safely") {
    Installed p;
    p.Program("a", "").Value("DisplayName", "no end");
    p.Program("b", "").Value("DisplayName", "\1\0\0\0", kRegDword);
    p.Program("c", "").Value("DisplayName", Z("%WinDir% x"), kRegExpandText);
    p.Program("d", "").Value("DisplayName", std::string("cut\0off", 7));
    p.Program("last", "x");
    CHECK(p.Shown(true) == "a=no end;c=C:\\WINDOWS x;d=cut;");
  }

  TEST_CASE("the registered command is started as it stands, quoted where it needs to be") {
    for (const auto& [command, started, ok] : Rows<std::string, std::string, bool>{
             {"\"C:\\Program Files\\Bar\\un.exe\" /x", "\"C:\\Program Files\\Bar\\un.exe\" /x",
              true},
             {"C:\\Program Files\\Bar\\un.exe /x \"y\"",
              "\"C:\\Program Files\\Bar\\un.exe\" /x \"y\"", true},
             {"C:\\un.exe", "C:\\un.exe", true},
             {"C:\\none here\\un.exe", "C:\\none here\\un.exe", false},
             {"", "", false}}) {
      CAPTURE(command);
      Installed p;
      p.m.File("C:\\Program Files\\Bar\\un.exe");
      p.m.File("C:\\un.exe");
      Key& key = p.Program("a", "Bar");
      if (!command.empty()) key.Value("UninstallString", Z(command));
      p.Program("last", "x");
      p.Shown(true);
      CHECK(p.tool.Uninstall(0) == ok);
      CHECK(p.m.shell.journal.back() == "Run " + started);
      CHECK((p.m.Errors().find("Method: ar cmdRemove_Click") == std::string::npos) == ok);
    }
  }

  TEST_CASE("details, and the key for the registry editor") {
    Installed p;
    p.m.File("C:\\un.exe");
    p.Program("a", "Bar").Value("Publisher", Z("Bar Inc")).Value("UninstallString", Z("C:\\un /x"));
    p.Program("last", "x");
    p.Shown(true);
    CHECK(p.tool.Info(0) == "<16009>\r\n\r\nBar\r\n<17271>: Bar Inc\r\n<17272>: <8629>\r\n");
    CHECK(p.tool.FileOf(0) == "C:\\un.exe");
    CHECK(p.tool.KeyOf(0) == "HKEY_LOCAL_MACHINE\\" + std::string(kUninstall) + "a");
  }

  TEST_CASE("what fails is told, but not what the user refused or what was never there") {
    Installed p;
    p.m.File("C:\\My Files\\un.exe");
    p.Program("a", "Bar").Value("UninstallString", Z("C:\\My Files\\un.exe /x \"y z\""));
    p.Program("b", "Empty").Value("UninstallString", Z(" "));
    p.Program("last", "x");
    p.Shown(true);
    struct Row {
      std::size_t row;
      ErrorCode start_error;
      ErrorCode open_error;
      bool started;
      bool told;
    };
    for (const Row& row : {Row{0, kNoError, kNoError, true, false},
                           {0, kNeedsMoreRights, kNoError, true, false},
                           {0, kNeedsMoreRights, kPermissionDenied, false, false},
                           {0, kNeedsMoreRights, kFileNotFound, false, true},
                           {0, kPermissionDenied, kNoError, false, true},
                           {1, kFileNotFound, kNoError, false, false}}) {
      p.m.shell.start_error = row.start_error;
      p.m.shell.open_error = row.open_error;
      p.m.shell.journal.clear();
      CHECK(p.tool.Uninstall(row.row) == row.started);
      CHECK(p.tool.failures().empty() != row.told);
      if (row.start_error == kNeedsMoreRights) {
        CHECK(p.m.shell.journal.back() == "Start C:\\My Files\\un.exe /x \"y z\"");
      }
    }
    // On another machine nobody looks, so nothing may be in doubt.
    p.m.shell.open_error = {};
    p.m.shell.start_error = kNeedsMoreRights;
    p.m.shell.journal.clear();
    for (const char* command : {"\\\\srv\\my files\\un.exe /x", "\"\\\\srv\\my files\\un.exe\" /x",
                                "\\\\srv\\files\\un.exe /x"}) {
      p.m.registry.Find(kMachine, std::string(kUninstall) + "a")
          ->Value("UninstallString", Z(command));
      p.tool.Uninstall(0);
    }
    std::erase_if(p.m.shell.journal,
                  [](const std::string& call) { return !call.starts_with("Start"); });
    CHECK(Lines(p.m.shell.journal) ==
          "Start \\\\srv\\my files\\un.exe /x\nStart \\\\srv\\files\\un.exe /x\n");
    p.m.registry.Find(kMachine, kUninstall)->unreadable = true;
    CHECK_FALSE(p.tool.LoadSpyList([](std::size_t, std::size_t) {}));
    CHECK(p.tool.failures().size() == 1);
  }
}

TEST_SUITE("tool_box") {
  TEST_CASE("the registry editor is led to the key, unless it cannot be told") {
    ToolBench b;
    ToolBox tools(b.locations.needs(), b.m.versions, b.reference, b.log, b.captions);
    const std::string key = "Software\\Microsoft\\Windows\\CurrentVersion\\Applets\\Regedit";
    CHECK(tools.OpenRegistry("").ok());
    CHECK(b.m.registry.Text(kUser, key, "LastKey") == "(none)");
    CHECK(tools.OpenRegistry("HKEY_LOCAL_MACHINE\\Software").ok());
    CHECK(b.m.registry.Text(kUser, key, "LastKey") ==
          Z("My Computer\\HKEY_LOCAL_MACHINE\\Software"));
    b.m.registry.Find(kUser, key)->Denied();
    CHECK(tools.OpenRegistry("HKEY_CLASSES_ROOT").code() == kPermissionDenied);
    CHECK(tools.OpenText("c:\\autoexec.bat").ok());
    CHECK(Lines(b.m.shell.journal) ==
          "Start C:\\WINDOWS\\regedit.exe \nStart C:\\WINDOWS\\regedit.exe \n"
          "Start C:\\WINDOWS\\notepad.exe c:\\autoexec.bat\n");
  }
}

TEST_SUITE("known_spies") {
  TEST_CASE("files by name, folder, path and pattern; values; keys") {
    ToolBench b;
    b.folders.program_files = "C:\\Program Files";
    b.Define(Definitions()
                 .Entry("SAFI", {"SAFIT", "SAFIS"}, {"Exact", "evil.dll"})
                 .Entry("SAFI", {"SAFIT", "SAFIS"}, {"Wild", "pop*.exe"})
                 .Entry("SAFI", {"SAFIT", "SAFIS"}, {"Relative", "bad bar\\bar.dll"})
                 .Entry("SAFI", {"SAFITD", "SAFISD"}, {"Direct", "%WIN%\\direct.exe"})
                 .Entry("SAFO", {"SAFOT", "SAFOS"}, {"Folder", "SpyHome"})
                 .Entry("SAFO", {"SAFOT", "SAFOS"}, {"FolderPattern", "spypart?"})
                 .Entry("SAFO", {"SAFOTD", "SAFOSD"}, {"DirectFolder", "%PF%\\Toolbar"})
                 .Entry("MEMA", {"MEMAT", "MEMAF"}, {"Process", "spyproc.exe"})
                 .Entry("REGV", {"REGVT", "REGVK", "REGVV"},
                        {"Value", "HKEY_CURRENT_USER\\Software\\Run\\", "Spy"})
                 .Entry("REGS", {"REGST", "REGSK"}, {"Part", "{12345678-ABCD}"})
                 .Entry("REGK", {"REGKT", "REGKK"}, {"Key", "HKEY_LOCAL_MACHINE\\Software\\Bad"}));
    b.spies.Refresh();
    for (const auto& [path, spy] :
         Rows<std::string, const char*>{{"C:\\x\\EVIL.dll", "Exact"},
                                        {"C:\\popup.exe", "Wild"},
                                        {"C:\\x\\Bad Bar\\BAR.DLL", "Relative"},
                                        {"C:\\bar.dll", ""},
                                        {"C:\\windows\\Direct.exe", "Direct"},
                                        {"C:\\direct.exe", ""},
                                        {"C:\\x\\spyhome\\good.exe", "Folder"},
                                        {"C:\\spyhome", ""},
                                        {"C:\\spypart2\\x.exe", "FolderPattern"},
                                        {"C:\\x\\spypart2", ""},
                                        {"C:\\Program Files\\toolbar\\deep\\x.exe", "DirectFolder"},
                                        {"D:\\toolbar\\x.exe", ""},
                                        {"C:\\SpyProc.exe", "Process"},
                                        {"", ""}}) {
      CAPTURE(path);
      CHECK(b.spies.OfFile(path) == spy);
    }
    CHECK(b.spies.OfValue("HKEY_CURRENT_USER\\software\\RUN", "SPY") == "Value");
    CHECK(b.spies.OfValue("HKEY_LOCAL_MACHINE\\Software\\Run", "Spy") == "");
    CHECK(b.spies.OfKey("HKEY_CLASSES_ROOT\\CLSID\\{12345678-abcd}") == "Part");
    CHECK(b.spies.OfKey("HKEY_LOCAL_MACHINE\\SOFTWARE\\bad\\") == "Key");
    CHECK(b.spies.OfKey("HKEY_LOCAL_MACHINE\\Software\\Badly") == "");
  }

  TEST_CASE("compiled-in definitions count, withdrawn ones do not; a new file is noticed") {
    ToolBench b;
    const auto& rows = kBuiltInSpyFiles.rows;
    const auto row = std::find_if(std::begin(rows), std::end(rows), [](const BuiltInRow& each) {
      return each.kind == DefinitionKind::File &&
             std::string_view(each.value).find_first_of("*?\\") == std::string_view::npos;
    });
    REQUIRE(row != std::end(rows));
    const std::string path = std::string("C:\\") + row->value;
    CHECK(b.spies.OfFile(path) == "");  // nothing is known before it is read
    b.spies.Refresh();
    CHECK(b.spies.OfFile(path) == row->spy);
    b.Define(Definitions().Entry("REMO", {"REMENT"}, {row->value}));
    b.spies.Refresh();
    CHECK(b.spies.OfFile(path) == "");
  }
}

}  // namespace scourwell::test
