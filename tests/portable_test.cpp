// SPDX-License-Identifier: MIT

// A copy of the program with "portable.ini" beside it.
#include "settings/portable_texts.h"
#include "tests/app_support.h"

namespace scourwell::test {
namespace {

constexpr char kFile[] = "C:\\App\\portable.ini";

// Settings of a portable copy on a machine whose drives have these letters.
struct Stick {
  explicit Stick(const std::string& content = "", const std::string& folder = "E:\\Tools\\App")
      : application(folder), file(folder + "\\portable.ini") {
    for (const char letter : {'D', 'E', 'F'}) m.AddDrive(letter);
    m.File(file, content);
    m.Folder(folder + "\\Ini");
    m.Folder(folder.substr(0, 3) + "Backups");
    m.Folder(folder.substr(0, 3) + "Tools\\Log\u0142");
    m.Folder("D:\\Elsewhere");
  }
  FakeMachine m;
  std::string application;
  std::string file;

  std::unique_ptr<Application> Start() {
    auto app = std::make_unique<Application>(PortsOf(m), application, ProgramVersion{1, 0, 7});
    app->Start();
    return app;
  }
};

// What a copy makes of a file that says this.
bool BacksUp(const std::string& content) {
  return Stick(content).Start()->settings().BackupBeforeRemoval;
}

}  // namespace

TEST_SUITE("portable") {
  TEST_CASE("everything is kept beside the program, and nothing in the registry") {
    Stick s;
    {
      const auto app = s.Start();
      CHECK(app->portable());
      static_cast<void>(app->statistics().setNumberOfScans());
      app->settings().AutoRemove = true;
      app->settings().LanguageFile = "Log\u0142 \"=;\r\n]";
      static_cast<void>(app->backups());
      app->Shutdown();
    }
    const auto again = s.Start();
    CHECK(again->statistics().getNumberOfScans() == "1");
    CHECK(again->settings().AutoRemove);
    CHECK(again->settings().LanguageFile == "Log\u0142 \"=;\r\n]");
    CHECK(again->TakeNotKept() == "");
    CHECK(s.m.registry.Find(RootKey::CurrentUser, "Software\\Scourwell") == nullptr);
    CHECK(s.m.Content(s.application + "\\Setting.ini") ==
          "[Setting]\r\nDEFINITIONS_FILE_LOCATION=Ini\r\n");
    CHECK(s.m.Errors() == "");
  }

  TEST_CASE("without the file the registry keeps it") {
    FakeMachine m;
    m.Folder(kFile);
    Application app(PortsOf(m), kAppFolder, {1, 0, 7});
    app.Start();
    CHECK_FALSE(app.portable());
    CHECK(m.registry.Text(RootKey::CurrentUser, "Software\\Scourwell\\AutoSave", "AutoSave") ==
          "True");
  }

  TEST_CASE("folders follow the drive to another letter") {
    std::string content;
    {
      Stick s;
      const auto app = s.Start();
      app->settings().BackupFolder = "e:\\Backups\\";
      app->settings().LogFilePath = "E:\\Tools\\Log\u0142\\ScanLog.txt";
      app->settings().DefinitionsFolder = "D:\\Elsewhere";
      app->Shutdown();
      content = s.m.Content(s.file);
      CHECK(content.find("E:") == std::string::npos);
      CHECK(content.find("D:") == std::string::npos);
    }
    Stick moved(content, "F:\\Tools\\App");
    const auto app = moved.Start();
    CHECK(app->settings().BackupFolder == "F:\\Backups");
    CHECK(app->settings().LogFilePath.starts_with("F:\\Tools\\Log\u0142\\ScanLog"));
    CHECK(app->settings().DefinitionsFolder == "F:\\Tools\\App\\Ini");
  }

  TEST_CASE("folders are written as they lie from the file") {
    FakeMachine m;
    for (const auto& [file, folder, written] : Rows<std::string, std::string, std::string>{
             {"E:\\App\\portable.ini", "E:\\App", "."},
             {"E:\\App\\portable.ini", "e:\\app\\Logs\\", "Logs"},
             {"E:\\App\\portable.ini", "E:\\Apples", "\\Apples"},
             {"E:\\App\\portable.ini", "E:\\", "\\"},
             {"E:\\portable.ini", "E:\\", "."},
             {"E:\\portable.ini", "E:\\Logs", "Logs"},
             {"\\\\server\\share\\App\\portable.ini", "\\\\server\\share\\Logs", "\\Logs"},
             {"\\\\server\\share\\App\\portable.ini", "\\\\server\\other", ""},
             {"E:\\App\\portable.ini", "C:\\Logs", ""},
         }) {
      CAPTURE(folder);
      PortableTexts kept(m.files, m.code_pages, file);
      CHECK(kept.WrittenFolder(folder) == written);
      if (!written.empty()) CHECK(kept.WrittenFolder(kept.FolderOf(written)) == written);
    }
    PortableTexts kept(m.files, m.code_pages, "E:\\App\\portable.ini");
    for (const char* bad :
         {"", "C:\\Windows", "\\\\server\\share\\x", "..\\x", "a\\..\\b", "x*", "\\..", "nul"}) {
      CAPTURE(std::string(bad));
      CHECK(kept.FolderOf(bad) == "");
    }
  }

  TEST_CASE("a damaged file reads as defaults, a mistyped flag too") {
    const std::string good = "[Backup]\r\nBackupBeforeRemoval=False\r\n";
    CHECK_FALSE(BacksUp(good));
    CHECK_FALSE(BacksUp(good + "BackupBeforeRemoval=True\r\n"));  // the first one counts
    CHECK_FALSE(BacksUp("[BACKUP]\nbackupbeforeremoval = \"False\""));
    for (const std::string& damaged :
         {good + std::string(1, '\0'), "\x01" + good, good + std::string(1u << 20, ' '),
          std::string("[Backup]\r\nBackupBeforeRemoval=Fal"),
          std::string("BackupBeforeRemoval=False"),
          std::string("[Backup]\r\nBackupBeforeRemoval=no")}) {
      CHECK(BacksUp(damaged));
    }
    // It is whole again at the next save.
    Stick s(good + std::string(1, '\0'));
    s.Start();
    CHECK(s.m.Content(s.file).find("BackupBeforeRemoval=True\r\n") != std::string::npos);
  }

  TEST_CASE("what another program of the copy keeps meanwhile stays") {
    Stick s;
    PortableTexts one(s.m.files, s.m.code_pages, s.file);
    PortableTexts other(s.m.files, s.m.code_pages, s.file);
    CHECK(one.Set("A", "One", "1").ok());
    CHECK(other.Set("A", "Two", "2").ok());
    CHECK(one.Set("A", "One", "3").ok());
    CHECK(one.Set("A", "Blanks", " \"x\" ").ok());
    PortableTexts read(s.m.files, s.m.code_pages, s.file);
    CHECK(read.Get("A", "Blanks") == " \"x\" ");
    CHECK(read.Get("a", "ONE") == "3");
    CHECK(read.Get("A", "Two") == "2");
    CHECK_FALSE(one.Set("A\r\n[B", "x", "1").ok());
    CHECK_FALSE(one.Set("A", "x=y", "1").ok());
    const KeptText texts[] = {{"A", "x=y", "1"}, {"A", "Three", "3"}};
    CHECK(one.SetAll(texts).code() == kBadFileName);  // and the other one is kept
    CHECK(PortableTexts(s.m.files, s.m.code_pages, s.file).Get("A", "Three") == "3");
    // A file that cannot be read now is not taken for an empty one.
    s.m.File(s.file, s.m.Content(s.file)).Locked();
    CHECK_FALSE(other.Set("A", "Two", "4").ok());
  }

  TEST_CASE("a read-only medium is told of once, and takes no removal without a backup") {
    Stick s("[Statistics]\r\nNUMBER OF SCANS=7\r\n");
    s.m.Folder(s.application).Refuses();
    const std::string before = s.m.Content(s.file);
    const auto app = s.Start();
    CHECK(app->TakeNotKept() != "");
    CHECK(app->TakeNotKept() == "");
    static_cast<void>(app->statistics().setNumberOfScans());
    static_cast<void>(app->statistics().setLastSystemScanDate());
    CHECK(app->statistics().getNumberOfScans() == "8");
    CHECK(app->BackupsRefused());
    app->settings().BackupFolder = "D:\\Elsewhere";
    CHECK_FALSE(app->BackupsRefused());
    app->Shutdown();
    CHECK(s.m.Content(s.file) == before);
    CHECK(s.m.registry.Find(RootKey::CurrentUser, "Software\\Scourwell") == nullptr);
  }

  TEST_CASE("the options offer nothing that Windows would have to find again") {
    Stick s;
    const auto app = s.Start();
    s.m.registry.Make(RootKey::CurrentUser,
                      "Software\\Classes\\Directory\\shell\\Scourwell\\command");
    OptionsForm form = app->Options();
    CHECK_FALSE(form.startup_available());
    CHECK_FALSE(form.explorer_available());
    CHECK(form.explorer_note() == Caption::PortableUnavailable);
    CHECK_FALSE(form.controls().chkExplorer);
    form.controls().txtBackup = "D:\\Elsewhere";
    form.controls().txtLogfiles = "E:\\Tools";
    CHECK(form.Confirm().unkept == std::vector<std::string>{"D:\\Elsewhere"});
    // An installed program's entry is not ours to take away.
    CHECK(s.m.registry.Find(RootKey::CurrentUser,
                            "Software\\Classes\\Directory\\shell\\Scourwell") != nullptr);
  }
}

}  // namespace scourwell::test
