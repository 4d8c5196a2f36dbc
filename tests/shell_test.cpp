// SPDX-License-Identifier: MIT
#include "engine/language.h"
#include "settings/settings.h"
#include "settings/settings_table.h"
#include "shell/command_line.h"
#include "shell/start_request.h"
#include "shell/statistics.h"
#include "tests/support.h"

namespace scourwell::test {
namespace {

constexpr RootKey kUser = RootKey::CurrentUser;
constexpr char kPack[] = "C:\\App\\Lang\\English.ini";
constexpr char kSection[] = "[Adware Language Pack]\r\n";

struct Speaking : Bench {
  Speaking() { settings.LanguageFile = "English.ini"; }
  Language language{m.files, m.clock, m.code_pages, log, settings, kAppFolder};

  void Pack(const std::string& texts, const char* path = kPack) { m.File(path, kSection + texts); }
};

struct Stored : Bench {
  Stored() { folders.application = kAppFolder; }
  SystemFolders folders;
  SettingsStore store{m.registry};
  Settings both{
      {store, m.registry, m.profiles, m.files, m.clock, m.code_pages, log, folders, {1, 2, 3}},
      settings};

  std::string Get(const std::string& section, const std::string& key) {
    return m.registry.Text(kUser, "Software\\Scourwell\\" + section, key);
  }
  // All that is stored, a section a line.
  std::string All() {
    std::string text;
    for (const auto& section : m.registry.Find(kUser, "Software\\Scourwell")->children) {
      text += section->name + ": ";
      for (const auto& [key, value] : section->values) text += key + "=" + value.data + " ";
      text += "\n";
    }
    return text;
  }
};

}  // namespace

TEST_SUITE("language") {
  TEST_CASE("texts of the pack are cut and trimmed") {
    Speaking s;
    s.Pack("1=  two  words \r\n2=\r\n3=\"  \"\r\n4=" + std::string(600, 'x') + "\r\n5=\" " +
           std::string(498, 'y') + "zz\"\r\n6=a" + std::string(1, '\0') + "b\r\n1700=Eigene\r\n");
    const auto text = [&](const char* number) {
      return s.language.SetCaptionfromINI(number, " fallback ");
    };
    CHECK(text("1") == "two  words");
    CHECK(text("2") == "");
    CHECK(text("3") == "");
    CHECK(text("4") == std::string(499, 'x'));
    CHECK(text("5") == std::string(498, 'y'));  // cut first, trimmed then
    CHECK(text("6") == "a");
    CHECK(text("7") == "fallback");
    CHECK(s.language.Text(Caption::NothingToScan) == "Eigene");
    CHECK(s.language.Text(Caption::ScanFinished) == "Scan finished");
    CHECK(s.language.Text(static_cast<Caption>(99999)) == "");
    CHECK(s.m.Errors() == "");
  }

  TEST_CASE("the pack is the one of the setting, as it stands") {
    Speaking s;
    CHECK(s.language.Text(Caption::ScanFinished) == "Scan finished");  // no pack
    CHECK(s.language.StatusText() == "Language: English");
    s.Pack("1808=one\r\n");
    CHECK(s.language.Text(Caption::ScanFinished) == "one");
    s.Pack("1808=two\r\n");
    CHECK(s.language.Text(Caption::ScanFinished) == "two");
    s.Pack("1743=Sprache:\r\n", "C:\\App\\Lang\\Deutsch.ini");
    s.settings.LanguageFile = "Deutsch.ini";
    CHECK(s.language.StatusText() == "Sprache: Deutsch");
    CHECK(s.language.Text(Caption::ScanFinished) == "Scan finished");
    s.settings.LanguageFile = "";
    CHECK(s.language.StatusText() == "Language: ");
    CHECK(s.m.Errors() == "");
  }

  TEST_CASE("a useless pack is recorded once, the defaults serve") {
    Speaking s;
    s.m.File(kPack, "no section here");
    for (int i = 0; i < 3; ++i) CHECK(s.language.Text(Caption::ScanFinished) == "Scan finished");
    CHECK(s.m.Failures() == "62 SetCaptionfromINI, File: C:\\App\\Lang\\English.ini\n");
    CHECK(WithLineBreaks("a##b#") == "a\r\n\r\nb\r\n");
  }

  TEST_CASE("a pack is read in the code page that it states, else in the system's") {
    const std::string bytes = "\xBF\xF3\xB3w";
    const std::string polish = "\u017C\u00F3\u0142w\n";
    const std::string western = "\u00BF\u00F3\u00B3w\n";
    const auto shown = [&](const std::string& head, unsigned system) {
      Speaking s;
      s.m.code_pages.system = system;
      s.m.File(kPack, head + kSection + "1808=" + bytes + "\r\n");
      const std::string text = s.language.Text(Caption::ScanFinished);
      CHECK(s.language.Text(Caption::ScanFinished) == text);
      CHECK(s.m.code_pages.asked <= 1);  // once a load, not once a text
      return text + "\n" + s.m.Failures();
    };
    const auto stated = [](const std::string& number) {
      return "[Language Pack]\r\nCodePage=" + number + "\r\n";
    };
    CHECK(shown(stated("1250"), 1252) == polish);
    CHECK(shown(stated("1250"), 1250) == polish);
    CHECK(shown(stated("01250"), 1252) == polish);
    CHECK(shown(stated("001250"), 1252) == western);
    CHECK(shown("", 1250) == polish);
    CHECK(shown("", 1252) == western);
    for (const char* nonsense : {"", "polish", "-1250", "1250x", "1", "0", "999999", "+437"}) {
      CHECK(shown(stated(nonsense), 1252) == western);
    }
    CHECK(shown(stated("437"), 1252).find("Code page: 437,") != std::string::npos);
    CHECK(
        shown(stated("1361"), 1252) ==
        "Scan finished\n5 SetCaptionfromINI, Code page: 1361, File: C:\\App\\Lang\\English.ini\n");
  }
}

TEST_SUITE("settings") {
  TEST_CASE("a first start has the defaults and stores every key") {
    Stored s;
    s.m.registry
        .Make(kUser, "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders")
        .Value("Cookies", "C:\\Cookies");
    s.both.LoadSettings();
    CHECK(s.settings.LogFilePath == "C:\\App\\ScanLog05-03-04-50000.txt");
    CHECK(s.settings.CookiesFolder == "C:\\Cookies\\");
    s.folders.special[static_cast<std::size_t>(SpecialFolder::Cookies)] = "C:\\The shell's";
    s.both.LoadSettings();
    CHECK(s.settings.CookiesFolder == "C:\\The shell's\\");
    s.both.SaveSettings();
    CHECK(s.All() ==
          "Version: Version=1.2.3 MAJOR=1 MINOR=2 REVISION=3 BUILD=0 \n"
          "Language: Name=English.ini \nMark: Checked=y \nAutoSave: AutoSave=True \n"
          "UseRegEdit: UseRegEdit=True \nAutoCheckForUpdate: AutoCheckForUpdate=False \n"
          "ScanSections: SpywareAdware=True Dialers=True KeyLoggers=True AdvancedScanning=False "
          "ExtraLogInfo=False AllCookies=True Trojans=True BHO=True \n"
          "RunStartup: RunStartup=False \n"
          "Path: LogPath=C:\\App BackupPath=C:\\App Install=C:\\App DefinitionsPath=C:\\App\\Ini \n"
          "DeleteAfterReboot: DeleteAfterReboot=True \nAutoRemove: AutoRemove=False \n"
          "Backup: BackupBeforeRemoval=True \n");
    CHECK(s.m.Content("C:\\App\\Setting.ini") ==
          "[Setting]\r\nDEFINITIONS_FILE_LOCATION=C:\\App\\Ini\r\n");
    CHECK(s.m.Errors() == "");
  }

  TEST_CASE("the language is known before the other settings") {
    Stored s;
    s.m.registry.Make(kUser, "Software\\Scourwell\\Language").Value("Name", "German.ini");
    s.m.registry.Make(kUser, "Software\\Scourwell\\Mark").Value("Checked", "n");
    const std::string checked = s.settings.MarkChecked;
    s.both.ReadLanguage();
    CHECK(s.settings.LanguageFile == "German.ini");
    CHECK(s.settings.MarkChecked == checked);
  }

  TEST_CASE("only the exact text True is true") {
    for (const SettingRow& row : kSettingRows) {
      if (row.kind != SettingKind::Flag) continue;
      CAPTURE(std::string(row.key));
      for (const auto& [text, expected] : Rows<const char*, bool>{
               {"True", true}, {"true", false}, {"False", false}, {"1", false}}) {
        Stored s;
        static_cast<void>(s.store.Set(row.section, row.key, text));
        s.both.LoadSettings();
        CHECK(s.settings.*std::get<bool AppSettings::*>(row.field) == expected);
      }
    }
  }

  TEST_CASE("stored folders count while they exist") {
    Stored s;
    s.m.Folder("C:\\Logs");
    s.m.File("C:\\Backup", "a file");
    for (const char* key : {"LogPath", "BackupPath", "DefinitionsPath"}) {
      static_cast<void>(s.store.Set("Path", key, "C:\\Logs"));
    }
    s.both.LoadSettings();
    CHECK(s.settings.LogFilePath.starts_with("C:\\Logs\\ScanLog"));
    CHECK(s.settings.BackupFolder == "C:\\Logs");
    CHECK(s.settings.DefinitionsFolder == "C:\\Logs");
    s.m.files.Remove("C:\\Logs");
    static_cast<void>(s.store.Set("Path", "BackupPath", "C:\\Backup"));
    s.both.LoadSettings();
    s.both.SaveSettings();
    CHECK(s.Get("Path", "LogPath") == "C:\\App");
    CHECK(s.Get("Path", "BackupPath") == "C:\\App");
    CHECK(s.Get("Path", "DefinitionsPath") == "C:\\App\\Ini");
  }

  TEST_CASE("one refused value is recorded and does not keep the others") {
    Stored s;
    s.both.LoadSettings();
    s.m.registry.Make(kUser, "Software\\Scourwell\\Language").Denied();
    s.both.SaveSettings();
    CHECK(s.m.Failures() == "70 SaveSettings, Section: Language, Key: Name\n");
    CHECK(s.Get("Path", "DefinitionsPath") == "C:\\App\\Ini");
    CHECK(s.m.Has("C:\\App\\Setting.ini"));
  }

  TEST_CASE("log names carry the day and the hundred-thousandths of it") {
    for (const auto& [time, name] : Rows<LocalTime, std::string>{
             {LocalTime{2004, 3, 5, 12, 0, 0, 0}, "05-03-04-50000"},
             {LocalTime{1999, 12, 31, 0, 0, 0, 0}, "31-12-99-0"},
             {LocalTime{2010, 1, 1, 23, 59, 59, 999}, "01-01-10-100000"},
             {LocalTime{2100, 1, 1, 0, 0, 0, 432}, "01-01-00-0"},  // half: to even
             {LocalTime{2004, 1, 1, 0, 0, 1, 296}, "01-01-04-2"},  // one and a half
             {LocalTime{2004, 1, 1, 0, 0, 2, 160}, "01-01-04-2"},  // two and a half
             {LocalTime{2004, 1, 1, 0, 0, 0, 433}, "01-01-04-1"}}) {
      CHECK(ScanLogPath("C:\\L", time) == "C:\\L\\ScanLog" + name + ".txt");
    }
    CHECK(ScanLogPath("C:\\", {2004, 3, 5, 12, 0, 0, 0}) == "C:\\ScanLog05-03-04-50000.txt");
  }
}

TEST_SUITE("statistics") {
  TEST_CASE("counters start at 0 and survive nonsense") {
    Stored s;
    Statistics statistics(s.store, s.m.clock, s.captions);
    CHECK(statistics.getNumberOfScans() == "0");
    CHECK(statistics.getNumberOfObjectsRemoved() == "0");
    CHECK(statistics.getLastSystemScanDate() == "<1763>");
    for (int i = 0; i < 2; ++i) CHECK(statistics.setNumberOfScans().ok());
    CHECK(statistics.setNumberOfObjectsRemoved(5).ok());
    CHECK(statistics.setLastSystemScanDate().ok());
    CHECK(statistics.getNumberOfScans() == "2");
    CHECK(statistics.getNumberOfObjectsRemoved() == "5");
    CHECK(statistics.getLastSystemScanDate() == "05-03-04 @ 12:00:00 PM");
    for (const auto& [stored, next] : Rows<const char*, const char*>{
             {"junk", "1"}, {"41x", "42"}, {"2147483647", "2147483647"}, {"-7", "0"}}) {
      static_cast<void>(s.store.Set("Statistics", "NUMBER OF SCANS", stored));
      CHECK(statistics.setNumberOfScans().ok());
      CHECK(statistics.getNumberOfScans() == next);
    }
    s.m.registry.Make(kUser, "Software\\Scourwell\\Statistics").Denied();
    CHECK(statistics.setNumberOfScans().code() == kPermissionDenied);
  }
}

TEST_SUITE("command_line") {
  TEST_CASE("texts become a kind of start") {
    using Kind = CommandLine::Kind;
    for (const auto& [text, kind, path] : Rows<std::string, Kind, const char*>{
             {"", Kind::Normal, ""},
             {"   ", Kind::Normal, ""},
             {"\"\"", Kind::Normal, ""},
             {"/STARTUP", Kind::StartScan, ""},
             {" x /startup y", Kind::StartScan, ""},
             {"C:\\a b", Kind::ScanPath, "C:\\a b"},
             {" \"C:\\a b\\\" ", Kind::ScanPath, "C:\\a b"},
             {"C:\\", Kind::ScanPath, "C:\\"},
             {"\"C:\"", Kind::ScanPath, "C:\\"},
             {"ab", Kind::ScanPath, "ab"},
             {"\"D:\\-x /y%1\"", Kind::ScanPath, "D:\\-x /y%1"},
             {"\"C:\\it's, (1) & = ;+\"", Kind::ScanPath, "C:\\it's, (1) & = ;+"},
             {"\"\\\\server\\share\\a b\"", Kind::ScanPath, "\\\\server\\share\\a b"},
             {"\"", Kind::ScanPath, "\""},
             {"\\", Kind::ScanPath, "\\"}}) {
      CAPTURE(text);
      const CommandLine line = ParseCommandLine(text);
      CHECK(line.kind == kind);
      CHECK(line.path == path);
    }
  }

  TEST_CASE("a request of another start comes as it was sent, or not at all") {
    using Kind = CommandLine::Kind;
    for (const CommandLine& sent :
         {CommandLine{Kind::Normal, ""}, CommandLine{Kind::StartScan, ""},
          CommandLine{Kind::ScanPath, "C:\\"}, CommandLine{Kind::ScanPath, "C:\\Łódka 表\\x"},
          CommandLine{Kind::ScanPath, "\\\\server\\share\\a b"}}) {
      CAPTURE(sent.path);
      const std::string bytes = PackRequest(sent);
      const auto came = UnpackRequest(bytes);
      REQUIRE(came);
      CHECK(came->kind == sent.kind);
      CHECK(came->path == sent.path);
      for (std::size_t cut = 0; cut < bytes.size(); ++cut) {
        CHECK_FALSE(UnpackRequest(std::string_view(bytes).substr(0, cut)));
      }
      CHECK_FALSE(UnpackRequest(bytes + "x"));
      CHECK_FALSE(UnpackRequest(bytes + std::string(1, '\0')));
    }
    for (const std::string text :
         {"", "R", "Nx", "Sx", "P", "Prelative", "PC:", "PC:\\a\\..\\b", "PC:\\a\\.", "PC:\\*.exe",
          "PC:/a", "P\\\\?\\C:\\a", "P\\\\.\\PhysicalDrive0", "PC:\\a\nb", "PC:\\a|b", "PC:\\\xFFx",
          "pC:\\a"}) {
      CAPTURE(text);
      CHECK_FALSE(UnpackRequest(text + '\0'));
    }
    CHECK_FALSE(UnpackRequest("PC:\\" + std::string(100000, 'x') + '\0'));
  }

  TEST_CASE("folders that are asked for one by one make one scan, each once") {
    WantedScans wanted;
    for (const char* path : {"C:\\a\\deep", "D:\\b", "c:\\A", "C:\\a", "C:\\ab", "D:\\"}) {
      wanted.Add({CommandLine::Kind::ScanPath, path});
    }
    CHECK(wanted.HasPaths());
    CHECK(wanted.TakePaths() == std::vector<std::string>{"c:\\A", "C:\\ab", "D:\\"});
    CHECK_FALSE(wanted.HasPaths());
    CHECK_FALSE(wanted.TakeEverything());
    wanted.Add({CommandLine::Kind::StartScan, ""});
    wanted.Add({CommandLine::Kind::Normal, ""});
    CHECK_FALSE(wanted.HasPaths());
    CHECK(wanted.TakeEverything());
    CHECK_FALSE(wanted.TakeEverything());
  }
}

}  // namespace scourwell::test
