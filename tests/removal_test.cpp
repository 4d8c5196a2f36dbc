#include "results/removal.h"
#include "backup/ignore_list.h"
#include "tests/support.h"

namespace scourwell::test {
namespace {

struct Remover : Bench {
  IgnoreList ignore{m.files, m.clock, log, "C:\\App\\ignorespylist.txt"};
  HitList hits{ignore, settings, log};
  SystemFolders folders;
  std::unique_ptr<COpSysInfo> os;
  std::unique_ptr<RegistryAccess> access;
  std::unique_ptr<Removal> removal;
  Registry* registry64 = nullptr;

  explicit Remover(bool nt = true) {
    settings.MarkChecked = "y";
    settings.DeleteAfterReboot = true;
    folders.application = kAppFolder;
    folders.windows = "C:\\WINDOWS";
    folders.system = "C:\\WINDOWS\\system32";
    folders.program_files = "C:\\Program Files";
    folders.common_files = "C:\\Program Files\\Common Files";
    folders.temporary = "C:\\Temp";
    folders.special[0] = "C:\\Users\\me\\Desktop";
    for (const char* folder : {"C:\\WINDOWS\\system32", "C:\\Program Files\\Common Files",
                               "C:\\Users\\me\\Desktop", "C:\\Temp"}) {
      m.Folder(folder);
    }
    if (!nt) m.system.record = {4, 10, 2222, 1, " A ", 0, 0, 0, 0};
    os = std::make_unique<COpSysInfo>(m.system);
    access = std::make_unique<RegistryAccess>(m.registry, log, captions, m.shell);
  }

  void Add(std::string_view kind, const std::string& details, const std::string& tool_tip = {},
           const std::string& tag = {}) {
    hits.AddSpyToListView(
        {std::string(kind), details, "spy", 0, tool_tip.empty() ? details : tool_tip, tag});
  }
  void Run(const std::unordered_set<std::size_t>& kept = {}) {
    removal = std::make_unique<Removal>(
        Removal::Parts{{m.files, m.system, m.shell, m.pump, log, *os, folders, settings, *access},
                       m.processes,
                       m.registry,
                       registry64,
                       captions,
                       hits});
    removal->RemoveSelectedSpy(kept);
  }
  // One letter an object: removed, gone, pending, Refused, Failed.
  std::string States() const {
    std::string text;
    for (const RemovedObject& object : removal->report().objects) {
      text += "rgpRF"[static_cast<int>(object.result.state)];
    }
    return text;
  }
  std::string RemoveOne(std::string_view kind, const std::string& details) {
    hits.Clear();
    Add(kind, details);
    Run();
    return States();
  }
};

// Everything below a folder, one path a line, with sizes.
std::string TreeOf(FakeMachine& m, const std::string& folder) {
  std::string text;
  std::vector<DirEntry> entries;
  static_cast<void>(m.files.List(folder + "\\*.*", [&](const DirEntry& entry) {
    entries.push_back(entry);
    return true;
  }));
  for (const DirEntry& entry : entries) {
    const std::string path = folder + "\\" + entry.name;
    text += path + " " + std::to_string(entry.size) + "\n";
    if (entry.IsFolder() && !entry.IsLink()) text += TreeOf(m, path);
  }
  return text;
}

}  // namespace

TEST_SUITE("removal") {
  TEST_CASE("files go whatever their attributes, and the counters rise whatever came of it") {
    Remover r;
    r.m.File("C:\\a.exe", "x").Hidden().System().ReadOnly();
    r.m.File("C:\\b.txt", "x");
    r.m.File("C:\\locked.exe", "x").With(kReadOnly).Locked();
    r.m.File("C:\\left.txt", "x");
    r.m.Folder("C:\\Evil");
    r.settings.DeleteAfterReboot = false;
    r.Add(kSpyFile, " C:\\a.exe ");
    r.Add(kSpyCookie, "C:\\b.txt");
    r.Add(kSpyFile, "C:\\locked.exe");
    r.Add(kSpyFile, "C:\\none.exe");
    r.Add(kSpyFolder, "C:\\Evil");
    r.Add(kSpyFile, "C:\\left.txt");
    r.hits.SetChecked(5, false);
    r.Run();
    CHECK(r.States() == "rrFgr");
    CHECK_FALSE(r.m.Has("C:\\a.exe"));
    CHECK_FALSE(r.m.Has("C:\\b.txt"));
    CHECK_FALSE(r.m.Has("C:\\Evil"));
    CHECK(r.m.Has("C:\\left.txt"));
    CHECK((r.m.files.Find("C:\\locked.exe")->attributes & kReadOnly) != 0);
    const RemovalCounters& counters = r.removal->counters();
    CHECK(counters.total_found == 6);
    CHECK(counters.files == 3);
    CHECK(counters.cookies == 1);
    CHECK(counters.folders == 1);
    CHECK(r.removal->report().failed);
    CHECK(r.m.Errors().find("Spy Folder or File Name: C:\\locked.exe") != std::string::npos);
    CHECK(r.m.Content("C:\\App\\Remove.reg") == "REGEDIT4\r\n");
    CHECK(r.hits.size() == 6);
    CHECK(r.m.system.journal.empty());
  }

  TEST_CASE("what is in use waits for the next start, each family in its way") {
    Remover nt;
    nt.m.File("C:\\used.dll", "x").Locked();
    CHECK(nt.RemoveOne(kSpyFile, "C:\\used.dll") == "p");
    REQUIRE(nt.m.system.journal.size() == 1);
    CHECK(nt.m.system.journal[0] == "Move C:\\used.dll > C:\\Temp\\\\2.txt");
    CHECK(nt.removal->report().failed);

    Remover old(false);
    old.m.File("C:\\WINDOWS\\WinInit.ini", "[rename]\r\nNUL=C:\\OTHER\r\n");
    old.m.File("C:\\used.dll", "x").Locked();
    CHECK(old.RemoveOne(kSpyFile, "C:\\used.dll") == "p");
    CHECK(old.m.Content("C:\\WINDOWS\\WinInit.ini") ==
          "[rename]\r\nNUL=C:\\used.dll\r\nNUL=C:\\OTHER\r\n");
    CHECK(old.m.system.journal.empty());
    REQUIRE(old.m.shell.journal.size() == 1);
    CHECK(old.m.shell.journal[0] == "Start regsvr32.exe /U /s \"C:\\used.dll\"");
  }

  TEST_CASE("a component is unregistered by its entry point, and deleted whatever it says") {
    for (const int error : {0, int{kDeviceError}, int{kInvalidCall}}) {
      CAPTURE(error);
      Remover r;
      r.m.File("C:\\x.OcX", "x");
      r.m.shell.call_error = error;
      CHECK(r.RemoveOne(kSpyFile, "C:\\x.OcX") == "r");
      CHECK(r.m.shell.journal[0] == "Call C:\\x.OcX DllUnregisterServer");
      CHECK((r.m.Errors() != "") == (error == kDeviceError));
    }
  }

  TEST_CASE("folders, roots and files of the system, the user and Scourwell are refused") {
    struct Row {
      std::string_view kind;
      const char* path;
    };
    for (const Row& row :
         std::initializer_list<Row>{{kSpyFolder, "C:\\"},
                                    {kSpyFolder, "C:\\WINDOWS"},
                                    {kSpyFolder, "c:\\windows\\SYSTEM32"},
                                    {kSpyFolder, "C:\\WINDOWS\\system32\\"},
                                    {kSpyFolder, "C:\\WINDOWS."},
                                    {kSpyFolder, "C:\\PROGRA~1"},
                                    {kSpyFolder, "C:\\Program Files\\Common Files"},
                                    {kSpyFolder, "C:\\Users"},
                                    {kSpyFolder, "C:\\Users\\me"},
                                    {kSpyFolder, "C:\\Users\\me\\Desktop"},
                                    {kSpyFolder, "C:\\Users\\me\\Desktop\\..\\..\\..\\WINDOWS"},
                                    {kSpyFolder, "\\\\?\\C:\\WINDOWS"},
                                    {kSpyFolder, "C:\\App"},
                                    {kSpyFolder, "C:\\App\\Lang"},
                                    {kSpyFile, "C:\\App\\Scourwell.exe"},
                                    {kSpyFile, "C:\\WINDOWS\\explorer.exe"},
                                    {kSpyFile, "C:\\ntldr"},
                                    {kSpyFile, "App\\Scourwell.exe"},
                                    {kSpyFile, "C:\\x*.exe"}}) {
      CAPTURE(std::string(row.path));
      Remover r;
      for (const char* file : {"C:\\App\\Scourwell.exe", "C:\\WINDOWS\\explorer.exe", "C:\\ntldr",
                               "C:\\x1.exe", "C:\\App\\Lang\\English.ini"}) {
        r.m.File(file, "x");
      }
      const std::string before = TreeOf(r.m, "C:");
      CHECK(r.RemoveOne(row.kind, row.path) == "R");
      CHECK(TreeOf(r.m, "C:").starts_with(before.substr(0, 20)));
      r.m.files.Remove("C:\\App\\Remove.reg");
      r.m.files.Remove(kErrorLog);
      CHECK(TreeOf(r.m, "C:") == before);
      CHECK(r.removal->report().failed);
      CHECK(r.m.system.journal.empty());
    }
  }

  TEST_CASE("what lies beside the protected goes") {
    for (const char* path : {"C:\\WINDOWS\\Evil", "C:\\Program Files\\App", "C:\\Application",
                             "C:\\Users\\me\\Desktop\\Evil", "C:\\WINDOWS\\system32x"}) {
      CAPTURE(std::string(path));
      Remover r;
      r.m.File(std::string(path) + "\\x.exe", "x");
      CHECK(r.RemoveOne(kSpyFolder, path) == "r");
      CHECK_FALSE(r.m.Has(path));
    }
  }

  TEST_CASE("a link is removed as the link it is") {
    Remover r;
    r.m.File("C:\\Precious\\deep\\letter.txt", "dear");
    r.m.File("C:\\Evil\\sub\\x.exe", "x").ReadOnly();
    r.m.Folder("C:\\Evil\\fixed").ReadOnly();
    r.m.Link("C:\\Evil\\sub\\way", "C:\\Precious");
    r.m.Link("C:\\Evil\\way", "C:\\Precious\\deep");
    const std::string precious = TreeOf(r.m, "C:\\Precious");
    CHECK(r.RemoveOne(kSpyFolder, "C:\\Evil") == "r");
    CHECK_FALSE(r.m.Has("C:\\Evil"));
    CHECK(TreeOf(r.m, "C:\\Precious") == precious);
    // The object itself was swapped for a link.
    r.m.Link("C:\\Evil", "C:\\Precious");
    CHECK(r.RemoveOne(kSpyFolder, "C:\\Evil") == "r");
    CHECK_FALSE(r.m.Has("C:\\Evil"));
    CHECK(TreeOf(r.m, "C:\\Precious") == precious);
    // A folder above it was.
    r.m.Link("C:\\Evil", "C:\\Precious");
    CHECK(r.RemoveOne(kSpyFolder, "C:\\Evil\\deep") == "R");
    CHECK(r.RemoveOne(kSpyFile, "C:\\Evil\\deep\\letter.txt") == "R");
    CHECK(TreeOf(r.m, "C:\\Precious") == precious);
    CHECK(r.m.Errors().find("The folder is a link: C:\\Evil") != std::string::npos);
  }

  TEST_CASE("a folder that is swapped for a link while it is emptied") {
    Remover r;
    r.m.File("C:\\Precious\\letter.txt", "dear");
    r.m.File("C:\\Evil\\a\\x.exe", "x");
    r.m.File("C:\\Evil\\b\\x.exe", "x");
    bool swapped = false;
    r.m.pump.on_yield = [&] {
      if (swapped || r.m.Has("C:\\Evil\\b\\x.exe")) return;
      swapped = true;
      r.m.files.Remove("C:\\Evil\\a");
      r.m.Link("C:\\Evil\\a", "C:\\Precious");
    };
    CHECK(r.RemoveOne(kSpyFolder, "C:\\Evil") == "r");
    CHECK(swapped);
    CHECK(r.m.Has("C:\\Precious\\letter.txt"));
    CHECK_FALSE(r.m.Has("C:\\Evil"));
  }

  TEST_CASE("of a folder in use all goes but what cannot") {
    Remover r;
    r.m.File("C:\\Evil\\a\\used.exe", "x").Locked();
    r.m.File("C:\\Evil\\a\\x.exe", "x");
    r.m.File("C:\\Evil\\b\\x.exe", "x");
    CHECK(r.RemoveOne(kSpyFolder, "C:\\Evil") == "p");
    CHECK(TreeOf(r.m, "C:\\Evil") == "C:\\Evil\\a 0\nC:\\Evil\\a\\used.exe 1\n");
    CHECK(r.m.system.journal == std::vector<std::string>{"Move C:\\Evil\\a\\used.exe > ",
                                                         "Move C:\\Evil\\a > ",
                                                         "Move C:\\Evil > "});
    Remover old(false);
    old.m.File("C:\\Evil\\a\\used.exe", "x").Locked();
    CHECK(old.RemoveOne(kSpyFolder, "C:\\Evil") == "p");
    CHECK(old.m.Content("C:\\WINDOWS\\WinInit.ini") ==
          "[Rename]\r\nNUL=C:\\Evil\\a\\used.exe\r\nDIRNUL=C:\\Evil\\a\r\nDIRNUL=C:\\Evil\r\n");
    r.settings.DeleteAfterReboot = false;
    CHECK(r.RemoveOne(kSpyFolder, "C:\\Evil") == "F");
    CHECK(r.m.Errors().find("spyFolderName: C:\\Evil") != std::string::npos);
  }

  TEST_CASE("long and unspellable names go by their 8.3 form") {
    Remover r;
    std::string folder = "C:\\Evil";
    while (folder.size() < 200) folder += "\\a rather long name";
    r.m.File(folder + "\\x.exe", "x");
    Node& inner = *r.m.files.Find(folder);
    auto deep = std::make_unique<Node>();
    deep->name = std::string(90, 'n');
    deep->short_name = "NNNNNN~1";
    deep->attributes = kFolder;
    auto lost = std::make_unique<Node>();
    lost->name = "a?b";
    lost->short_name = "AB~1";
    deep->children.push_back(std::move(lost));
    inner.children.push_back(std::move(deep));
    CHECK(r.RemoveOne(kSpyFolder, "C:\\Evil") == "r");
    CHECK_FALSE(r.m.Has("C:\\Evil"));
    r.m.files.short_names = false;
    r.m.File("C:\\Evil\\x.exe", "x");
    r.m.files.Find("C:\\Evil\\x.exe")->name = "a?b";
    CHECK(r.RemoveOne(kSpyFolder, "C:\\Evil") == "F");
  }

  TEST_CASE("whichever change fails, nothing innocent is lost") {
    for (std::size_t n = 1; n < 40; ++n) {
      CAPTURE(n);
      Remover r(n % 2 != 0);
      r.m.File("C:\\Precious\\letter.txt", "dear");
      r.m.File("C:\\App\\Scourwell.exe", "x");
      r.m.File("C:\\WINDOWS\\WinInit.ini", "[Rename]\r\n");
      r.m.File("C:\\Evil\\a\\x.exe", "x").ReadOnly();
      r.m.Link("C:\\Evil\\way", "C:\\Precious");
      r.m.File("C:\\Evil\\used.exe", "x").Locked();
      r.m.File("C:\\one.dll", "x").Hidden();
      r.Add(kSpyFolder, "C:\\Evil");
      r.Add(kSpyFile, "C:\\one.dll");
      r.m.files.failing_change = n;
      r.m.files.change_error = kPermissionDenied;
      r.Run();
      CHECK(r.m.Content("C:\\Precious\\letter.txt") == "dear");
      CHECK(r.m.Content("C:\\App\\Scourwell.exe") == "x");
      CHECK(r.m.Content("C:\\WINDOWS\\WinInit.ini").starts_with("[Rename]\r\n"));
      CHECK(r.removal->report().objects.size() == 2);
      for (const RemovedObject& object : r.removal->report().objects) {
        CHECK(object.result.done() == !r.m.Has(object.details));
      }
    }
  }

  TEST_CASE("registry rows go in their own view, and Windows' own keys stay") {
    Remover r;
    FakeRegistry other;
    r.registry64 = &other;
    for (FakeRegistry* registry : {&r.m.registry, &other}) {
      registry->Make(RootKey::LocalMachine, "SOFTWARE\\Evil\\a\\b").Value("v", "x");
      registry->Make(RootKey::CurrentUser, "Software\\Microsoft\\Windows\\CurrentVersion\\Run")
          .Value("Evil", "C:\\x.exe")
          .Value("back\\slash \"q\"", "x")
          .Value("", "default");
    }
    const std::string run = "HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Run";
    r.Add(kSpyRegistryKey, "HKEY_LOCAL_MACHINE\\SOFTWARE\\EVIL");
    r.Add(kSpyRegistryValue, run + "\\EVIL", run);
    r.Add(kSpyRegistryValue, run + "\\back\\slash \"q\"", run);
    r.Add(kSpyRegistryKey, "HKEY_LOCAL_MACHINE\\SOFTWARE\\None");
    r.Add(kSpyRegistryKey, run);
    r.Add(kSpyRegistryKey, "HKEY_LOCAL_MACHINE\\SOFTWARE");
    r.Add(kSpyRegistryKey, "HKEY_CLASSES_ROOT\\CLSID");
    r.Add(kSpyRegistryKey, "HKEY_USERS\\S-1-5\\Software\\Microsoft");
    r.Add(kSpyRegistryKey, "HKEY_LOCAL_MACHINE");
    r.Add(kSpyRegistryKey, "HKEY_DYN_DATA\\x");
    r.Add(kSpyRegistryValue, run + "\\a\r\n[-HKEY_LOCAL_MACHINE\\SOFTWARE]", run);
    r.hits.AddSpyToListView({std::string(kSpyRegistryValue), run + "\\Evil (64-bit)", "spy", 0, run,
                             "C:\\x.exe", true});
    r.Run();
    CHECK(r.States() == "rrrgRRRRRRgr");
    CHECK(r.m.registry.Find(RootKey::LocalMachine, "SOFTWARE\\Evil") == nullptr);
    CHECK(other.Find(RootKey::LocalMachine, "SOFTWARE\\Evil\\a\\b") != nullptr);
    CHECK(r.m.registry
              .Find(RootKey::CurrentUser, "Software\\Microsoft\\Windows\\CurrentVersion\\Run")
              ->values.size() == 1);
    CHECK(other.Find(RootKey::CurrentUser, "Software\\Microsoft\\Windows\\CurrentVersion\\Run")
              ->values.size() == 2);
    CHECK(r.removal->counters().registry == 12);
    CHECK(r.m.Content("C:\\App\\Remove.reg") ==
          "REGEDIT4\r\n\r\n[-HKEY_LOCAL_MACHINE\\SOFTWARE\\EVIL]\r\n\r\n[" + run +
              "]\r\n\"EVIL\"=-\r\n[" + run +
              "]\r\n\"back\\\\slash \\\"q\\\"\"=-\r\n"
              "\r\n[-HKEY_LOCAL_MACHINE\\SOFTWARE\\None]\r\n\r\n[" +
              run + "]\r\n\"Evil\"=-\r\n");
  }

  TEST_CASE("a process is ended when it is still the one that was found") {
    Remover r;
    r.m.processes.running = {
        {"C:\\evil.exe", 7}, {"C:\\other.exe", 8}, {"C:\\WINDOWS\\system32\\lsass.exe", 9}};
    r.Add(kMemoryProcess, "C:\\EVIL.exe", "C:\\evil.exe", "7");
    r.Add(kMemoryProcess, "C:\\evil.exe", "C:\\evil.exe", "8");
    r.Add(kMemoryProcess, "C:\\evil.exe", "C:\\evil.exe", "");
    r.Add(kMemoryProcess, "C:\\WINDOWS\\system32\\lsass.exe", "", "9");
    r.Run();
    CHECK(r.States() == "rggR");
    CHECK(r.m.system.journal == std::vector<std::string>{"Terminate 7"});
    CHECK(r.removal->counters().processes == 4);
  }

  TEST_CASE("rows that shall stay are not touched") {
    Remover r;
    r.m.File("C:\\a.exe", "x");
    r.Add(kSpyFile, "C:\\a.exe");
    r.Run({0});
    CHECK(r.States() == "F");
    CHECK(r.m.Has("C:\\a.exe"));
    CHECK(r.removal->counters().files == 0);
  }

  TEST_CASE("the registry editor gets the script in the form of its family") {
    for (const bool nt : {true, false}) {
      Remover r(nt);
      r.Run();
      r.removal->launchRegEditDelete();
      REQUIRE(r.m.shell.journal.size() == 1);
      CHECK(r.m.shell.journal[0] ==
            (nt ? "Launch C:\\WINDOWS\\system32\\RegEdt32.exe /S \"C:\\App\\Remove.reg\""
                : "Launch C:\\WINDOWS\\Regedit.exe /S \"C:\\App\\Remove.reg\""));
    }
  }
}

}  // namespace scourwell::test
