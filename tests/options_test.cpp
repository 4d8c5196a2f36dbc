// SPDX-License-Identifier: MIT
#include "shell/options.h"

#include "shell/small_bitmap.h"
#include "tests/app_support.h"

namespace scourwell::test {
namespace {

constexpr RootKey kUser = RootKey::CurrentUser;
constexpr char kRun[] = "Software\\Microsoft\\Windows\\CurrentVersion\\Run";
constexpr char kFolderVerb[] = "Software\\Classes\\Directory\\shell\\Scourwell";
constexpr char kDriveVerb[] = "Software\\Classes\\Drive\\shell\\Scourwell";
constexpr char kLang[] = "C:\\App\\Lang\\";

// A picture of one red pixel.
std::string Bitmap() {
  std::string bytes(58, '\0');
  bytes[0] = 'B';
  bytes[1] = 'M';
  bytes[10] = 54;
  bytes[14] = 40;
  bytes[18] = bytes[22] = bytes[26] = 1;
  bytes[28] = 24;
  bytes[56] = '\xFF';
  return bytes;
}

// A picture of 2 x 2 pixels with all the colours of its depth.
std::string Bitmap(char header, char depth, char packing, const std::string& pixels) {
  const bool old = header == 12;
  std::string bytes = "BM" + std::string(12, '\0') + header + std::string(3, '\0');
  bytes += old ? std::string("\2\0\2\0\1\0", 6) : std::string("\2\0\0\0\2\0\0\0\1\0", 10);
  bytes += depth;
  bytes.resize(static_cast<std::size_t>(14 + header), '\0');
  if (!old) bytes[30] = packing;
  if (packing == 3 && header == 40) bytes.resize(bytes.size() + 12);
  if (depth <= 8) bytes.resize(bytes.size() + (old ? 3u : 4u) * (1u << depth));
  bytes[10] = static_cast<char>(bytes.size() & 0xFF);
  bytes[11] = static_cast<char>(bytes.size() >> 8);
  return bytes + pixels;
}

// The program behind its options dialog.
struct Dialog {
  Dialog() {
    m.File(std::string(kLang) + "English.ini", "[Adware Language Pack]\r\n");
    m.File("C:\\App\\Ini\\update.ref", Definitions().Value("NTOT", "SAFITNUM", "0").Text());
    app.Start();
  }
  FakeMachine m;
  Application app{PortsOf(m), kAppFolder, {1, 0, 7}};

  std::string Stored(const std::string& section_and_key) {
    const std::size_t slash = section_and_key.find('/');
    return Stored(section_and_key.substr(0, slash), section_and_key.substr(slash + 1));
  }
  std::string Stored(const std::string& section, const std::string& key) {
    return m.registry.Text(kUser, "Software\\Scourwell\\" + section, key);
  }
  // Opens the dialog, changes what `change` says and presses OK.
  template <class Change>
  OptionsForm::Confirmed Ok(Change&& change) {
    OptionsForm form = app.Options();
    change(form);
    const OptionsForm::Confirmed confirmed = form.Confirm();
    app.SaveSettings();
    return confirmed;
  }
  std::string Verb(const char* key) { return m.registry.Text(kUser, key, ""); }
};

}  // namespace

TEST_SUITE("options") {
  TEST_CASE("every box changes its own setting and no other") {
    const Rows<bool OptionControls::*, std::string> kBoxes{
        {&OptionControls::chkAutosaveLog, "AutoSave/AutoSave"},
        {&OptionControls::chkUseRegEdit, "UseRegEdit/UseRegEdit"},
        {&OptionControls::chkAutoCheckForUpdate, "AutoCheckForUpdate/AutoCheckForUpdate"},
        {&OptionControls::chkSpywareAdware, "ScanSections/SpywareAdware"},
        {&OptionControls::chkDialers, "ScanSections/Dialers"},
        {&OptionControls::chkKeyLoggers, "ScanSections/KeyLoggers"},
        {&OptionControls::chkExtraLogInfo, "ScanSections/ExtraLogInfo"},
        {&OptionControls::chkAllCookies, "ScanSections/AllCookies"},
        {&OptionControls::chkTrojans, "ScanSections/Trojans"},
        {&OptionControls::chkBHO, "ScanSections/BHO"},
        {&OptionControls::ChkRemoveFile, "DeleteAfterReboot/DeleteAfterReboot"},
        {&OptionControls::ChkAutoRemove, "AutoRemove/AutoRemove"},
        {&OptionControls::chkBackupBeforeRemoval, "Backup/BackupBeforeRemoval"},
        {&OptionControls::chkMarkChecked, "Mark/Checked"},
    };
    Dialog d;
    const auto store = [&] {
      std::string all;
      for (const auto& [box, key] : kBoxes) all += d.Stored(key) + " ";
      return all;
    };
    for (const auto& [box, key] : kBoxes) {
      CAPTURE(key);
      const std::string before = store();
      const std::string old = d.Stored(key);
      const auto toggle = [&, box = box](OptionsForm& form) {
        CHECK(form.controls().*box == (d.Stored(key) == "True" || d.Stored(key) == "y"));
        form.controls().*box ^= true;
      };
      d.Ok(toggle);
      CHECK(d.Stored(key) == (old == "y" ? "n" : old == "True" ? "False" : "True"));
      d.Ok(toggle);
      CHECK(store() == before);
    }
    CHECK(d.m.Errors() == "");
  }

  TEST_CASE("advanced scanning is refused and told of each time") {
    Dialog d;
    CHECK_FALSE(d.Ok([](OptionsForm&) {}).advanced_scanning);
    for (int i = 0; i < 2; ++i) {
      CHECK(d.Ok([](OptionsForm& form) {
               CHECK_FALSE(form.controls().chkAdvancedScanning);
               form.controls().chkAdvancedScanning = true;
             }).advanced_scanning);
      CHECK(d.Stored("ScanSections", "AdvancedScanning") == "False");
    }
  }

  TEST_CASE("scanning at the start of Windows acts at once, even without OK") {
    Dialog d;
    OptionsForm form = d.app.Options();
    CHECK(form.SetScanStartup(true).ok());
    CHECK(d.m.registry.Text(kUser, kRun, "ZURANTISPY") ==
          std::string("\"C:\\App\\Scourwell.exe\" /STARTUP") + '\0');
    CHECK(d.app.settings().RunStartup);
    CHECK(d.app.Options().controls().chkScanStartup);
    d.Ok([](OptionsForm&) {});
    CHECK(d.Stored("RunStartup", "RunStartup") == "True");
    CHECK(form.SetScanStartup(false).ok());
    CHECK(d.m.registry.Text(kUser, kRun, "ZURANTISPY") == "(none)");
    CHECK(form.SetScanStartup(false).ok());  // somebody else deleted it
    CHECK_FALSE(d.app.settings().RunStartup);
    CHECK(d.m.Errors() == "");
    d.m.registry.Make(kUser, kRun).Denied();
    CHECK_FALSE(form.SetScanStartup(true).ok());
    CHECK_FALSE(d.app.settings().RunStartup);
    CHECK_FALSE(form.controls().chkScanStartup);
    CHECK(d.m.Errors().find("Error Number: 70, Method: chkScanStartup") != std::string::npos);
  }

  TEST_CASE("folders are taken as typed, the log keeps its name") {
    Dialog d;
    for (const auto& [typed, log] :
         Rows<const char*, const char*>{{"C:\\Logs", "C:\\Logs\\ScanLog05-03-04-50000.txt"},
                                        {"C:\\", "C:\\ScanLog05-03-04-50000.txt"},
                                        {"Z:\\gone\\", "Z:\\gone\\ScanLog05-03-04-50000.txt"},
                                        {"", "C:\\App\\ScanLog05-03-04-50000.txt"}}) {
      d.Ok([&, typed = typed](OptionsForm& form) { form.controls().txtLogfiles = typed; });
      CHECK(d.app.settings().LogFilePath == log);
    }
    d.Ok([&](OptionsForm& form) { form.controls().txtLogfiles = "C:\\"; });
    CHECK(d.app.Options().controls().txtLogfiles == "C:\\");
    const std::string lengthy = "D:\\" + std::string(5000, 'x');
    d.Ok([&](OptionsForm& form) {
      CHECK(form.controls().txtBackup == "C:\\App");
      CHECK(form.controls().txtRefFileLocation == "C:\\App\\Ini");
      form.controls().txtBackup = lengthy;
      form.controls().txtRefFileLocation = "\\\\nobody\\there";
    });
    CHECK(d.Stored("Path", "BackupPath") == lengthy);
    CHECK(d.Stored("Path", "DefinitionsPath") == "\\\\nobody\\there");
    CHECK(d.m.Content("C:\\App\\Setting.ini").find("\\\\nobody\\there") != std::string::npos);
    const OptionsForm form = d.app.Options();
    for (const char* missing :
         {lengthy.c_str(), "", "App", "\\\\nobody\\there", "Z:\\", "C:\\App\\*"}) {
      CHECK(form.IsMissing(missing));
    }
    for (const char* there : {"C:\\", "C:", "C:\\App", "c:\\app\\ini\\"}) {
      CHECK_FALSE(form.IsMissing(there));
    }
  }

  TEST_CASE("the packs are listed, the chosen one speaks at once") {
    Dialog d;
    const std::string lang = kLang;
    d.m.File(lang + "svenska.INI", "[Adware Language Pack]\r\n1503=Alternativ\r\n");
    d.m.File(lang + "Deutsch.ini", "[Adware Language Pack]\r\n1503=Optionen\r\n");
    d.m.File(lang + "Deutsch.bmp", Bitmap());
    d.m.File(lang + "English.bmp", "BM, but no picture at all, whatever its name may be claiming");
    d.m.File(lang + "Old.ini.bak");
    d.m.Folder(lang + "Folder.ini");
    OptionsForm form = d.app.Options();
    std::string shown;
    for (const LanguageEntry& entry : form.languages()) {
      shown += entry.name + "|" + entry.picture + "\n";
    }
    CHECK(shown == "Deutsch|C:\\App\\Lang\\Deutsch.bmp\nEnglish|\nsvenska|\n");
    CHECK(form.language_index() == 1);
    d.app.settings().LanguageFile = "ENGLISH.ini";
    CHECK(d.app.Options().language_index() == 1);
    d.app.settings().LanguageFile = "English.ini";
    CHECK(d.m.Errors().find("damaged, Error Number: 13, Method: CmbLang") != std::string::npos);
    CHECK_FALSE(form.Confirm().language);
    CHECK(d.Ok([](OptionsForm& other) { other.controls().CmbLang = "Deutsch"; }).language);
    CHECK(d.Stored("Language", "Name") == "Deutsch.ini");
    CHECK(d.app.language().Text(Caption::OptionsTitle) == "Optionen");
    static_cast<void>(form.EditLanguagePackFile());
    CHECK(d.m.shell.journal.back() ==
          "Run \"C:\\WINDOWS\\notepad.exe\" \"C:\\App\\lang\\English.ini\"");
    CHECK(d.m.Errors().find("Method: cmdEditLanguagePackFile") != std::string::npos);
    // Its pack goes: nothing is chosen, and the setting stays.
    d.m.files.Remove(lang + "Deutsch.ini");
    CHECK_FALSE(d.Ok([](OptionsForm& other) { CHECK(other.language_index() == -1); }).language);
    CHECK(d.Stored("Language", "Name") == "Deutsch.ini");
    d.m.files.Remove("C:\\App\\Lang");
    CHECK(d.app.Options().languages().empty());
  }

  TEST_CASE("only small and whole bitmaps are let through") {
    const std::string good = Bitmap();
    CHECK(IsSmallBitmap(good));
    for (std::size_t size = 0; size < good.size(); ++size) {
      CHECK_FALSE(IsSmallBitmap(good.substr(0, size)));
    }
    for (const auto& [at, byte] : Rows<std::size_t, char>{{0, 'X'},
                                                          {10, '\0'},
                                                          {13, '\x7F'},
                                                          {14, '\x0C'},
                                                          {14, '\x29'},
                                                          {18, '\0'},
                                                          {19, '\2'},
                                                          {22, '\2'},
                                                          {25, '\xFF'},
                                                          {28, '\3'},
                                                          {28, '\x08'},  // its colours are missing
                                                          {30, '\1'}}) {
      CAPTURE(at);
      std::string bad = good;
      bad[at] = byte;
      CHECK_FALSE(IsSmallBitmap(bad));
    }
  }

  TEST_CASE("bitmaps of every kind are let through, unless their pixels leave them") {
    const std::string plain(8, '\0');
    const auto bytes = [](std::initializer_list<int> values) {
      std::string text;
      for (const int value : values) text += static_cast<char>(value);
      return text;
    };
    const std::string runs = bytes({2, 0, 0, 0, 2, 1, 0, 1});
    const Rows<char, char, char, std::string, bool> kRows{
        {12, 1, 0, plain, true},
        {12, 24, 0, plain + plain, true},
        {12, 24, 0, plain, false},
        {64, 4, 0, plain, true},
        {108, 8, 0, plain, true},
        {124, 32, 3, plain + plain, true},
        {40, 16, 3, plain, true},
        {40, 8, 3, plain, false},
        {44, 8, 0, plain, false},
        {40, 8, 1, runs, true},
        {40, 4, 2, runs, true},
        {40, 4, 1, runs, false},
        {40, 8, 4, plain, false},
        {40, 8, 1, runs.substr(0, 6), false},                // no end
        {40, 8, 1, bytes({3, 0, 0, 1}), false},              // beside the line
        {40, 8, 1, bytes({0, 0, 0, 0, 1, 0, 0, 1}), false},  // above the picture
        {40, 8, 1, bytes({0, 2, 1, 1, 1, 0, 0, 1}), true},   // a step aside
        {40, 8, 1, bytes({0, 2, 0, 2, 0, 1}), false},        // out of it
        {40, 8, 1, bytes({0, 2, 1}), false},                 // half a step
        {40, 8, 1, bytes({0, 3, 1, 1, 1, 0, 0, 1}), false},  // three single ones
        {40, 8, 1, bytes({0, 0, 0, 1}), true},
    };
    for (const auto& [header, depth, packing, pixels, good] : kRows) {
      CAPTURE(int{header});
      CAPTURE(int{depth});
      CAPTURE(int{packing});
      CHECK(IsSmallBitmap(Bitmap(header, depth, packing, pixels)) == good);
    }
    std::string from_top = Bitmap(40, 24, 0, plain + plain);
    from_top.replace(22, 4, "\xFE\xFF\xFF\xFF");
    CHECK(IsSmallBitmap(from_top));
    from_top = Bitmap(40, 8, 1, runs);
    from_top.replace(22, 4, "\xFE\xFF\xFF\xFF");
    CHECK_FALSE(IsSmallBitmap(from_top));
  }
}

TEST_SUITE("explorer_verb") {
  TEST_CASE("it comes and goes with the box, and nothing beside it is touched") {
    Dialog d;
    d.m.registry.Make(kUser, "Software\\Classes\\Directory\\shell\\Other\\command")
        .Value("", "other.exe");
    const auto tick = [&](bool wanted) {
      return d.Ok([&](OptionsForm& form) { form.controls().chkExplorer = wanted; });
    };
    tick(false);
    CHECK_FALSE(d.m.registry.Find(kUser, "Software\\Classes\\Drive"));
    tick(true);
    for (const std::string& verb : {std::string(kFolderVerb), std::string(kDriveVerb)}) {
      CHECK(TrimNull(d.Verb(verb.c_str())) == "Scan with Scourwell");
      CHECK(TrimNull(d.Verb((verb + "\\command").c_str())) == "\"C:\\App\\Scourwell.exe\" \"%1\"");
    }
    CHECK(d.app.Options().controls().chkExplorer);
    // Another language, another caption.
    d.m.File(std::string(kLang) + "Deutsch.ini",
             "[Adware Language Pack]\r\n17341=Mit Scourwell scannen\r\n");
    d.Ok([](OptionsForm& form) { form.controls().CmbLang = "Deutsch"; });
    CHECK(TrimNull(d.Verb(kDriveVerb)) == "Mit Scourwell scannen");
    d.m.registry.deletes_trees = false;
    tick(false);
    CHECK_FALSE(d.m.registry.Find(kUser, kFolderVerb));
    CHECK_FALSE(d.m.registry.Find(kUser, kDriveVerb));
    CHECK(d.m.registry.Find(kUser, "Software\\Classes\\Directory\\shell\\Other\\command"));
    CHECK_FALSE(d.app.Options().controls().chkExplorer);
    CHECK(d.m.Errors() == "");
  }

  TEST_CASE("half of it can be taken away, a refusal is told") {
    Dialog d;
    d.m.registry.Make(kUser, std::string(kDriveVerb) + "\\command").Value("", "old");
    d.Ok([](OptionsForm& form) {
      CHECK(form.controls().chkExplorer);
      form.controls().chkExplorer = false;
    });
    CHECK_FALSE(d.m.registry.Find(kUser, kDriveVerb));
    CHECK(d.m.Errors() == "");
    d.m.registry.Make(kUser, std::string(kDriveVerb) + "\\command").Denied();
    CHECK(d.app.Options().controls().chkExplorer);  // it is there, whoever may change it
    d.m.registry.Find(kUser, std::string(kDriveVerb) + "\\command")->denied = false;
    d.m.registry.Make(kUser, "Software\\Classes\\Directory").Denied();
    d.m.registry.Make(kUser, kFolderVerb).Denied();
    CHECK(d.Ok([](OptionsForm& form) { form.controls().chkExplorer = true; }).explorer_failed);
    CHECK(TrimNull(d.Verb(kDriveVerb)) == "Scan with Scourwell");
    CHECK(d.m.Errors().find("Error Number: 70, Method: chkExplorer") != std::string::npos);
  }

  TEST_CASE("systems whose Explorer does not look there are left alone") {
    for (const VersionRecord& old : {VersionRecord{4, 10, 2222, 1, "", 0, 0, 0, 0},
                                     VersionRecord{4, 0, 1381, 2, "", 0, 0, 0, 0}}) {
      Dialog d;
      d.m.system.record = old;
      Application app(PortsOf(d.m), kAppFolder, {1, 0, 7});
      app.Start();
      OptionsForm form = app.Options();
      CHECK_FALSE(form.explorer_available());
      form.controls().chkExplorer = true;
      form.Confirm();
      CHECK_FALSE(d.m.registry.Find(kUser, kFolderVerb));
    }
  }
}

}  // namespace scourwell::test
