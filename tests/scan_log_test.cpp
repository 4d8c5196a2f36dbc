// SPDX-License-Identifier: MIT
#include "results/scan_log.h"

#include "tests/fake/version_block.h"
#include "tests/support.h"

namespace scourwell::test {
namespace {

struct Logging : Bench {
  Logging() {
    settings.LogFilePath = "D:\\Logs\\ScanLog.txt";
    m.AddDrive('D');
    m.Folder("D:\\Logs");
    folders.application = kAppFolder;
  }
  IgnoreList ignore{m.files, m.clock, m.code_pages, kept, log, "C:\\App\\none.txt"};
  HitList hits{ignore, settings, captions, log};
  COpSysInfo os{m.system};
  SystemFolders folders;
  FileVersion file_version{m.files, m.versions, captions, log};
  ScanLog scan_log{{m.files,
                    m.clock,
                    m.code_pages,
                    m.versions,
                    file_version,
                    m.processes,
                    m.pump,
                    log,
                    captions,
                    settings,
                    hits,
                    os,
                    folders,
                    {1, 2, 3}}};

  void Add(FoundObject object, const std::string& spy) {
    hits.AddSpyToListView({spy, std::move(object)});
  }
  std::string Text() { return m.Content("D:\\Logs\\ScanLog.txt"); }
  // A file of 1.5 KB, last read on 3/4/2004, that says this of itself.
  void Program(const std::string& path, const VersionBlock& block) {
    m.File(path, std::string(1536, 'x')).Times(0, 127'229'183'980'000'000);
    m.versions.blocks[path] = block.Make();
  }
};

// The first lines of the memory section and, with the number it ends with, its last.
const std::string kMemoryBegin = "3/5/2004 12:00:00 PM <1825>\r\n" + std::string(49, '=') +
                                 "\r\n<1826>\r\n====================\r\n<1827>\r\n\r\n";
std::string MemoryEnd(const std::string& count) {
  return "<1828>\r\n<1829>" + count + "\r\n<1830>\r\n<1831>\r\n";
}

// What an indent stands before, a line each.
std::string Indented(const std::string& indent, const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += indent + line + "\r\n";
  return text;
}

// A process of the memory section whose file says nothing but `says` of itself.
std::string BareProcess(const std::string& indent, const std::string& path,
                        const std::string& priority, const std::string& says) {
  return Indented(indent, {"Path:" + path, "BasePriority:" + priority, "FileSize :0 kb",
                           "Last accessed  :", "Build :", "OS :-", "Description :" + says,
                           "Version  :" + says, "Product Name:" + says});
}

const std::string kEvilProcess =
    "#:1 (x.exe)\r\n    Path:C:\\Evil\\x.exe\r\n    BasePriority:HIGH\r\n    FileSize :1.5 kb\r\n"
    "    Last accessed  :3/4/2004 11:59:58 PM\r\n    Build :1.2.3.4\r\n    OS :-NT-Win32\r\n"
    "    Description :Watches\r\n    Version  :1.2\r\n    Product Name:Evil Suite\r\n";

VersionBlock EvilBlock() {
  VersionBlock block;
  block.fixed = {0x00010002, 0x00030004, 0x40004, 0, 0, 0x9, 1, 0};
  return block.Text("CompanyName", "Evil Inc.")
      .Text("FileDescription", "Watches")
      .Text("FileVersion", "1.2")
      .Text("InternalName", "evil")
      .Text("OriginalFilename", "EVIL.EXE")
      .Text("ProductName", "Evil Suite")
      .Text("ProductVersion", "7");
}

}  // namespace

TEST_SUITE("scan_log") {
  TEST_CASE("the drive section") {
    Logging l;
    l.Program("C:\\Evil\\x.exe", EvilBlock());
    l.m.File("C:\\Evil\\y.txt").Times(0, 0);
    l.Add(FoundFile{"C:\\Evil\\x.exe"}, "One");
    l.Add(FoundFolder{"C:\\Evil"}, "Two");
    l.Add(FoundCookie{"C:\\Evil\\y.txt"}, "Three");
    l.Add(KeyAt("HKEY_USERS\\x"), "Four");
    l.scan_log.CreateDriveScanLogFile();
    CHECK(l.Text() ==
          "\r\n<1832>\r\n====================\r\n"
          "Two folder:C:\\Evil\r\n"
          "<1833>\r\n<1834>1\r\n"
          "\r\n<1835>\r\n====================\r\n"
          "One file:C:\\Evil\\x.exe\r\n"
          "\tFileSize :1.5 kb\r\n\tLast accessed  :3/4/2004 11:59:58 PM\r\n"
          "\tBuild :1.2.3.4\r\n\tOS :-NT-Win32\r\n\r\n\r\n"
          "Three file:C:\\Evil\\y.txt\r\n"
          "\tFileSize :0 kb\r\n\tLast accessed  :\r\n\tBuild :\r\n\tOS :-\r\n\r\n\r\n"
          "<1836>\r\n<1837>2\r\n<1831>\r\n");
    CHECK(l.m.Errors() == "");
  }

  TEST_CASE("the memory section of the NT family") {
    Logging l;
    l.Program("C:\\Evil\\x.exe", EvilBlock());
    l.m.File("C:\\bare.exe").Times(0, 0);
    l.scan_log.CreateMemoryLogFile({{"C:\\Evil\\x.exe", 8, 128}, {"C:\\bare.exe", 12, 1}});
    CHECK(l.Text() == kMemoryBegin + kEvilProcess + "\r\n\r\n#:2 (bare.exe)\r\n" +
                          BareProcess("    ", "C:\\bare.exe", "", "<8629>") + "\r\n\r\n" +
                          MemoryEnd("3"));
    CHECK(l.m.Errors() == "");
  }

  TEST_CASE("the memory section counts one too many, and its indent follows the number") {
    Logging l;
    l.scan_log.CreateMemoryLogFile(std::vector<ProcessEntry>(100, {"C:\\p.exe", 0, 32}));
    for (const char* line : {"#:9 (p.exe)\r\n    Path:", "#:10 (p.exe)\r\n     Path:",
                             "#:100 (p.exe)\r\n      Path:"}) {
      CHECK(l.Text().find(line) != std::string::npos);
    }
    CHECK(l.Text().ends_with(MemoryEnd("101")));
  }

  TEST_CASE("the memory section of Windows 98 has whole names and no details") {
    Logging l;
    l.m.system.record = {4, 10, 0x040A08AE, 1, "", 0, 0, 0, 0};
    l.os = COpSysInfo(l.m.system);
    l.settings.ExtraLogInfo = true;
    l.Program("C:\\Evil\\x.exe", EvilBlock());
    l.scan_log.CreateMemoryLogFile({{"C:\\EVIL\\X.EXE", 8, 0}, {"KERNEL32.DLL", 9, 0}});
    CHECK(l.Text() == kMemoryBegin +
                          "#:1 (C:\\EVIL\\X.EXE)\r\n\r\n\r\n"
                          "#:2 (KERNEL32.DLL)\r\n\r\n\r\n" +
                          MemoryEnd("3"));
    CHECK(l.m.versions.journal.empty());
  }

  TEST_CASE("a process whose file has gone is listed and recorded") {
    Logging l;
    l.scan_log.CreateMemoryLogFile({{"C:\\gone.exe", 8, 64}});
    CHECK(l.Text() == kMemoryBegin + "#:1 (gone.exe)\r\n" +
                          BareProcess("    ", "C:\\gone.exe", "IDLE",
                                      "The file \"C:\\gone.exe\" doesn't exist.") +
                          "\r\n\r\n" + MemoryEnd("2"));
    CHECK(l.m.Failures() == "53 CreateMemoryLogFile, File: C:\\gone.exe\n");
  }

  TEST_CASE("the cookie section") {
    Logging l;
    l.scan_log.CreateCookieScanLogFile();
    CHECK(l.Text() ==
          "\r\n<1881>\r\n====================\r\n\r\n\r\n<1879>\r\n<1880>0\r\n<1831>\r\n");
    l.m.files.Remove("D:\\Logs\\ScanLog.txt");
    l.Add(FoundCookie{"C:\\Cookies\\me@tracker[1].txt"}, "Tracker");
    l.Add(FoundFolder{"C:\\Evil"}, "no cookie");
    l.Add(FoundFile{"C:\\Evil\\x.exe"}, "counted with the cookies");
    l.Add(FoundCookie{"C:\\Cookies\\me@other[2].txt"}, "Other");
    l.settings.ExtraLogInfo = true;  // changes nothing here
    l.scan_log.CreateCookieScanLogFile();
    CHECK(l.Text() ==
          "\r\n<1881>\r\n====================\r\n"
          "Tracker Cookie:C:\\Cookies\\me@tracker[1].txt\r\n"
          "Other Cookie:C:\\Cookies\\me@other[2].txt\r\n"
          "\r\n\r\n<1879>\r\n<1880>3\r\n<1831>\r\n");
    CHECK(l.m.Errors() == "");
  }

  TEST_CASE("the registry section: the keys, then the values as in an export") {
    Logging l;
    l.scan_log.CreateRegistryScanLogFile();
    CHECK(l.Text() == "<1838>\r\n\r\n====================\r\n<1839>\r\n<1840>0\r\n<1831>\r\n");
    l.m.files.Remove("D:\\Logs\\ScanLog.txt");
    const auto value = [&](const std::string& spy, const std::string& key, const std::string& name,
                           const std::string& data) { l.Add(ValueAt(key, name, data), spy); };
    value("Starter", "HKEY_CURRENT_USER\\Run", "evil", "\"C:\\\\x.exe\"");
    l.Add(KeyAt("HKEY_LOCAL_MACHINE\\SOFTWARE\\Evil"), "Home");
    value("Counter", "HKEY_CURRENT_USER\\Run", "a\\b", "dword:00000007");
    l.Add(FoundFile{"C:\\Evil\\x.exe"}, "no key");
    l.Add(KeyAt("HKEY_CLASSES_ROOT\\CLSID\\{1}", true), "Class");
    l.settings.ExtraLogInfo = true;  // changes nothing here
    l.scan_log.CreateRegistryScanLogFile();
    CHECK(l.Text() ==
          "<1838>\r\n\r\n====================\r\n"
          "Registry Key Type = Home:\r\n\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Evil]\r\n\r\n"
          "Registry Key Type = Class (64-bit):\r\n\r\n[HKEY_CLASSES_ROOT\\CLSID\\{1}]\r\n\r\n"
          "Registry Key Value Type = Starter:\r\n[HKEY_CURRENT_USER\\Run]\r\n"
          "\"evil\"=\"C:\\\\x.exe\"\r\n"
          "Registry Key Value Type = Counter:\r\n[HKEY_CURRENT_USER\\Run]\r\n"
          "\"a\\b\"=dword:00000007\r\n"
          "<1839>\r\n<1840>4\r\n<1831>\r\n");
    CHECK(l.m.Errors() == "");
  }

  TEST_CASE("ExtraLogInfo adds lines to every process and every file") {
    const std::vector<std::string> kExtra = {"File version :1.2",     "Product version :7",
                                             "Company :Evil Inc.",    "File description :Watches",
                                             "Internal name :evil",   "Original name :EVIL.EXE",
                                             "Flags :Debug Private ", "Type :Executable"};
    Logging l;
    l.settings.ExtraLogInfo = true;
    l.Program("C:\\Evil\\x.exe", EvilBlock());
    l.m.processes.running = {{"C:\\Evil\\x.exe", 4242, 256}};
    l.scan_log.CreateMemoryLogFile(l.m.processes.running);
    CHECK(l.Text() == kMemoryBegin + ReplaceAll(kEvilProcess, "HIGH", "REALTIME") +
                          Indented("    ", {"Process identifier :4242", "Module :C:\\Evil\\x.exe",
                                            "Module :C:\\b.dll"}) +
                          Indented("    ", kExtra) + "\r\n\r\n" + MemoryEnd("2"));
    l.m.files.Remove("D:\\Logs\\ScanLog.txt");
    l.Add(FoundFile{"C:\\Evil\\x.exe"}, "One");
    l.scan_log.CreateDriveScanLogFile();
    CHECK(l.Text().find("\tBuild :1.2.3.4\r\n\tOS :-NT-Win32\r\n" + Indented("\t", kExtra) +
                        "\r\n\r\n<1836>") != std::string::npos);
  }

  TEST_CASE("a file that has gone is listed and recorded") {
    Logging l;
    l.Add(FoundFile{"C:\\gone.exe"}, "One");
    l.scan_log.CreateDriveScanLogFile();
    CHECK(l.Text().find("One file:C:\\gone.exe\r\n\tFileSize :0 kb") != std::string::npos);
    CHECK(l.m.Failures() == "53 CreateDriveScanLogFile, File: C:\\gone.exe\n");
  }

  TEST_CASE("the closing block") {
    Logging l;
    l.m.File("D:\\Logs\\ScanLog.txt", "before\r\n");
    l.Add(FoundFile{"C:\\x"}, "One");
    l.Add(FoundFolder{"C:\\y"}, "One");
    l.scan_log.FinishScan();
    const std::string rule = std::string(58, '=') + "\r\n";
    CHECK(l.Text() == "before\r\n\r\n\r\n" + rule + "<1851> 2\r\n" + rule +
                          "\r\n<1852> 3/5/2004 12:00:00 PM\r\n<1853>\r\n\r\n\r\n" + rule +
                          "Application Version: 1.2.3\r\n" + rule +
                          "Major Version: 5\r\nMinor Version: 1\r\nBuild Number Version: 2600\r\n"
                          "Platform ID: 2\r\nService Pack Major: 3\r\nService Pack Minor: 0\r\n"
                          "Suite Mask: 256\r\nPlatform: Windows XP\r\n"
                          "Platform Version: Windows XP v5.1, Build 2600\r\n"
                          "OS Product Name: NT Workstation\r\nCSD Version: Service Pack 3\r\n"
                          "Is Windows XP: True\r\nIs Windows 2K: True\r\nIs Windows NT: True\r\n"
                          "Is Windows 9x: False\r\nIs Windows 95: False\r\nIs Windows 98: False\r\n"
                          "Is Windows Me: False\r\n\r\n\r\n" +
                          rule);
  }

  TEST_CASE("a vanished or refusing folder moves the log to the application folder") {
    for (const bool vanished : {true, false}) {
      Logging l;
      if (vanished) {
        l.m.files.Remove("D:\\Logs");
      } else {
        l.m.Folder("D:\\Logs").Refuses();
      }
      l.scan_log.CreateDriveScanLogFile();
      l.scan_log.FinishScan();
      CHECK(l.settings.LogFilePath == "C:\\App\\ScanLog.txt");
      CHECK(l.m.Content("C:\\App\\ScanLog.txt").starts_with("\r\n<1832>\r\n"));
      CHECK(l.m.Content("C:\\App\\ScanLog.txt").find("<1851> 0") != std::string::npos);
      CHECK(l.m.Failures() == std::string(vanished ? "76" : "70") +
                                  " CreateDriveScanLogFile, LogFile: D:\\Logs\\ScanLog.txt, "
                                  "Written to: C:\\App\\ScanLog.txt\n");
    }
  }

  TEST_CASE("where the application folder refuses too, the path stays") {
    Logging l;
    l.m.Folder("D:\\Logs").Refuses();
    l.m.File("C:\\App\\ScanLog.txt", "old").Locked();
    l.scan_log.FinishScan();
    CHECK(l.settings.LogFilePath == "D:\\Logs\\ScanLog.txt");
    CHECK(l.m.Content("C:\\App\\ScanLog.txt") == "old");
    CHECK(l.m.Failures() == "70 FinishScan, LogFile: D:\\Logs\\ScanLog.txt\n");
  }

  TEST_CASE("a section that is stopped at any row is not written") {
    for (std::size_t n = 1; n <= 4; ++n) {
      Logging l;
      l.Add(KeyAt("HKEY_USERS\\x"), "One");
      l.Add(FoundFile{"C:\\x"}, "Two");
      const auto stop = [&] {
        l.m.pump.set_closing(false);
        l.m.pump.close_at = l.m.pump.yields + n;
      };
      stop();
      l.scan_log.CreateDriveScanLogFile();
      CHECK(l.Text() == "");
      stop();
      l.scan_log.CreateMemoryLogFile(std::vector<ProcessEntry>(4));
      CHECK(l.Text().find("<1825>") == std::string::npos);
    }
  }

  TEST_CASE("a failure in the memory section says where it was") {
    Logging l;
    l.Program("C:\\Evil\\x.exe", EvilBlock());
    l.m.Folder("D:\\Logs").Refuses();
    l.scan_log.CreateMemoryLogFile({{"C:\\Evil\\x.exe", 8, 128}});
    CHECK(l.m.Errors().find("ModuleName: C:\\Evil\\x.exe, FileVer: 1.2.3.4") != std::string::npos);
  }
}

}  // namespace scourwell::test
