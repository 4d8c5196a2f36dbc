// SPDX-License-Identifier: MIT

// What a restore shows, and what it brings back.
#include "backup/restore_text.h"
#include "tests/helpers.h"
#include "tests/victim.h"

namespace scourwell::test {

TEST_SUITE("restore") {
  TEST_CASE("an archive of this machine may do more than one from elsewhere") {
    Victim v;
    v.Add(FoundFile{"C:\\WINDOWS\\system32\\helper.dll"});
    v.Add(ValueAt("HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Control\\Lsa",
                  "Notification Packages", "precious"));
    REQUIRE(v.Create("own").archive.ok());
    v.m.files.Remove("C:\\WINDOWS\\system32\\helper.dll");
    const auto restored = [&](bool* foreign) {
      v.m.registry.DeleteValue(RootKey::LocalMachine, "SYSTEM\\CurrentControlSet\\Control\\Lsa",
                               "Notification Packages");
      std::unique_ptr<RestoreRun> run;
      REQUIRE(v.backups.Open("own.qzp", {}, &run).ok());
      *foreign = run->foreign();
      CHECK(run->items().size() == 2);
      v.restored = {};
      CHECK(v.backups.Restore(*run, run->AllButDoubtful(), &v.restored).ok());
      return v.restored.failed.size();
    };
    bool foreign = true;
    CHECK(restored(&foreign) == 0);
    CHECK_FALSE(foreign);
    v.CheckCanary();
    // Another machine has another key.
    v.kept.texts.clear();
    v.m.files.Remove("C:\\WINDOWS\\system32\\helper.dll");
    CHECK(restored(&foreign) == 1);
    CHECK(foreign);
    CHECK_FALSE(v.m.Has("C:\\WINDOWS\\system32\\helper.dll"));
  }

  TEST_CASE("who may do what comes back with an archive of this machine alone") {
    for (const bool own : {true, false}) {
      Victim v;
      v.m.File("C:\\spy\\a", "1").security = "file's";
      v.m.files.Find("C:\\spy")->security = "folder's";
      v.m.registry.Make(RootKey::CurrentUser, "Spy\\sub").Value("v", "x").traits = {"Kind",
                                                                                    "key's"};
      v.Add(FoundFolder{"C:\\spy"});
      v.Add(KeyAt("HKEY_CURRENT_USER\\Spy"));
      REQUIRE(v.Create("n").archive.ok());
      v.m.files.Remove("C:\\spy");
      v.m.registry.DeleteKeyCall(RootKey::CurrentUser, "Spy\\sub");
      if (!own) v.kept.texts.clear();
      CHECK(v.Restore("n.qzp").ok());
      CHECK(v.restored.notes.empty());
      CHECK(v.m.Content("C:\\spy\\a") == "1");
      CHECK(v.m.files.Find("C:\\spy\\a")->security == (own ? "file's" : ""));
      CHECK(v.m.files.Find("C:\\spy")->security == (own ? "folder's" : ""));
      CHECK(v.m.registry.Text(RootKey::CurrentUser, "Spy\\sub", "v") == "x");
      const RegTraits traits = v.m.registry.Find(RootKey::CurrentUser, "Spy\\sub")->traits;
      CHECK(traits.kind + traits.security == (own ? "Kindkey's" : ""));
    }
  }

  TEST_CASE("what is back but not as it was is told once, and logged") {
    Victim v;
    for (int i = 0; i < 12; ++i) v.m.File("C:\\spy\\f" + std::to_string(i), "1");
    v.m.registry.Make(RootKey::CurrentUser, "Spy").Value("v", "x").traits = {"", "key's"};
    v.Add(FoundFolder{"C:\\spy"});
    v.Add(KeyAt("HKEY_CURRENT_USER\\Spy"));
    REQUIRE(v.Create("n").archive.ok());
    v.m.files.Remove("C:\\spy");
    v.m.registry.DeleteKeyCall(RootKey::CurrentUser, "Spy");
    v.m.files.keeps_times = v.m.registry.keeps_rights = true;
    CHECK(v.Restore("n.qzp").ok());
    CHECK(v.restored.failed.empty());
    CHECK(v.restored.notes.size() == 14);  // the folder and the key as well
    const NumberCaptions captions;
    const std::string text = RestoreText(captions, {}, v.restored);
    const std::string heading = captions.Text(Caption::RestoredNotAsItWas);
    CHECK(text.starts_with(captions.Text(Caption::BackupRestored)));
    CHECK(text.find(heading) == text.rfind(heading));
    CHECK(text.find(captions.Text(Caption::AndMore)) != std::string::npos);
    CHECK(v.m.Content(kErrorLog).find("C:\\spy\\f11") != std::string::npos);
  }

  TEST_CASE("who changes the list and mends its checksums has made another archive") {
    Victim v;
    v.m.File("C:\\spy\\evil.dll", "evil");
    v.Add(FoundFile{"C:\\spy\\evil.dll"});
    REQUIRE(v.Create("n").archive.ok());
    std::string bytes = v.m.Content("C:\\My backups\\n.qzp");
    const std::size_t trailer = bytes.size() - 40;
    NumberReader numbers(std::string_view(bytes).substr(trailer + 16));
    const std::size_t index = trailer - static_cast<std::size_t>(numbers.Take(8));
    bytes.replace(bytes.find("evil.dll", index), 8, "lest.dll");
    std::string sums;
    PutNumber(&sums, HandArchive::Crc(bytes.substr(index, trailer - index)), 4);
    bytes.replace(trailer + 24, 4, sums);
    PutNumber(&sums, HandArchive::Crc(bytes.substr(trailer, 28)), 4);
    bytes.replace(trailer + 28, 4, sums.substr(4));
    std::unique_ptr<RestoreRun> run;
    REQUIRE(v.backups.Open("n.qzp", {}, &run).ok());
    CHECK_FALSE(run->foreign());
    v.m.File("C:\\My backups\\n.qzp").content = bytes;
    REQUIRE(v.backups.Open("n.qzp", {}, &run).ok());
    CHECK(run->foreign());
    CHECK(PlaceText(run->items()[0].object) == "C:\\spy\\lest.dll");
  }

  TEST_CASE("the list says of each item what it is and what became of it") {
    Victim v;
    v.m.File("C:\\spy\\same.exe", "1234");
    v.m.File("C:\\spy\\changed.exe", "5678");
    v.m.File("C:\\spy\\gone.exe", "9");
    v.m.registry.Make(RootKey::LocalMachine, "Software\\Evil").Value("a", "1").Value("b", "22");
    v.rows = {{"First", FoundFolder{"C:\\spy"}},
              {"Inner", FoundFile{"C:\\spy\\changed.exe"}},
              {"Second", KeyAt(kEvilKey)}};
    REQUIRE(v.Create("n").archive.ok());
    v.m.files.Remove("C:\\spy\\gone.exe");
    v.m.File("C:\\spy\\changed.exe", "8765");
    v.m.registry.Make(RootKey::LocalMachine, "Software\\Evil").Value("b", "33");
    std::unique_ptr<RestoreRun> run;
    REQUIRE(v.backups.Open("n.qzp", {}, &run).ok());
    std::string list;
    std::vector<bool> chosen;
    for (const BackupItem& item : run->items()) {
      constexpr const char* kStates[] = {"missing", "same", "different"};
      list += std::string(KindWord(KindOf(item.object))) + "|" + item.spy + "|" +
              PlaceText(item.object) + "|" + std::to_string(item.size) + "|" +
              kStates[static_cast<std::size_t>(item.state)] + "\n";
      chosen.push_back(PlaceText(item.object) == "C:\\spy\\gone.exe");
    }
    const std::string place = PlaceText(ValueAt(kEvilKey, "a"));
    const std::string place_b = PlaceText(ValueAt(kEvilKey, "b"));
    CHECK(list ==
          "Spy Folder|First|C:\\spy|0|same\nSpy File|First|C:\\spy\\same.exe|4|same\n"
          "Spy File|Inner|C:\\spy\\changed.exe|4|different\n"
          "Spy File|First|C:\\spy\\gone.exe|1|missing\n"
          "Spy Registry Key|Second|" +
              PlaceText(KeyAt(kEvilKey)) +
              "|0|same\n"
              "Spy Registry Value|Second|" +
              place +
              "|1|same\n"
              "Spy Registry Value|Second|" +
              place_b + "|2|different\n");
    // Only what is ticked comes back.
    CHECK(v.backups.Restore(*run, chosen, &v.restored).ok());
    CHECK(v.m.Content("C:\\spy\\gone.exe") == "9");
    CHECK(v.m.Content("C:\\spy\\changed.exe") == "8765");
    CHECK(v.Registry("Software\\Evil", "b") == "33");
    // Nor is a key made for values that are not ticked.
    REQUIRE(v.m.registry.DeleteKeyCall(RootKey::LocalMachine, "Software\\Evil") == kRegOk);
    v.m.files.Remove("C:\\spy\\gone.exe");
    REQUIRE(v.backups.Open("n.qzp", {}, &run).ok());
    CHECK(v.backups.Restore(*run, chosen, &v.restored).ok());
    CHECK(v.m.Has("C:\\spy\\gone.exe"));
    CHECK(v.m.registry.Find(RootKey::LocalMachine, "Software\\Evil") == nullptr);
    CHECK(v.m.shell.journal.empty());
  }

  TEST_CASE("restored is what reads as restored, whatever the editor does") {
    Victim v;
    const auto make = [&] {
      return &v.m.registry.Make(RootKey::LocalMachine, "Software\\Evil")
                  .Value("a", "1")
                  .Value("]", std::string("\0\xFF", 2), kRegNone);
    };
    make();
    v.m.registry.Make(RootKey::LocalMachine, "Software\\Evil\\x]\\y").Value("b", "2");
    v.Add(KeyAt(kEvilKey));
    REQUIRE(v.Create("n").archive.ok());
    const auto wipe = [&] {
      auto& below = v.m.registry.Make(RootKey::LocalMachine, "Software").children;
      std::erase_if(below, [](const auto& key) { return key->name == "Evil"; });
    };
    // The editor does nothing, fails, or cannot be started.
    for (const ErrorCode error : {ErrorCode(), ErrorCode(kDeviceError), ErrorCode(kFileNotFound)}) {
      wipe();
      std::string told;
      v.m.shell.run_error = error;
      v.m.shell.on_run = [&](const std::string& command) {
        told += v.m.Content(command.substr(command.find("C:")));
      };
      CHECK(v.Restore("n.qzp").ok());
      CHECK(v.restored.failed.empty());
      CHECK(v.Registry("Software\\Evil", "a") == "1");
      CHECK(v.Registry("Software\\Evil\\x]\\y", "b") == "2");
      CHECK(told.find("\"a\"=hex(1):31") != told.npos);
      CHECK(told.find("x]") == told.npos);
      CHECK((v.m.Errors() == "") == !error);
    }
    v.m.shell.on_run = {};
    // What cannot be written is named.
    v.m.registry.Make(RootKey::LocalMachine, "Software\\Evil").Value("a", "other").Denied();
    CHECK(v.Restore("n.qzp").ok());
    REQUIRE(v.restored.failed.size() == 1);
    CHECK(v.restored.failed[0].path == PlaceText(ValueAt(kEvilKey, "a")));
    CHECK(v.restored.failed[0].why.code() == kPermissionDenied);
  }

  TEST_CASE("a script of the user in the backup folder is neither replaced nor imported") {
    Victim v;
    v.m.registry.Make(RootKey::LocalMachine, "Software\\Evil").Value("a", "1");
    v.Add(ValueAt(kEvilKey, "a", "1"));
    REQUIRE(v.Create("n").archive.ok());
    for (const char* name : {"nkey.reg", "nval.reg", "nexport.reg"}) {
      v.m.File(std::string("C:\\My backups\\") + name, "mine");
    }
    v.m.registry.DeleteValue(RootKey::LocalMachine, "Software\\Evil", "a");
    CHECK(v.Restore("n.qzp").ok());
    CHECK(v.restored.failed.empty());
    CHECK(v.m.shell.journal.empty());
    CHECK(v.m.Content("C:\\My backups\\nexport.reg") == "mine");
    CHECK(v.Registry("Software\\Evil", "a") == "1");
  }
}

}  // namespace scourwell::test
