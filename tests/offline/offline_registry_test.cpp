// SPDX-License-Identifier: MIT
#include "offline/little_endian.h"
#include "tests/helpers.h"
#include "tests/offline/disk_builder.h"
#include "tests/offline/small_files.h"
#include "text/unicode.h"

namespace scourwell::test {
namespace {

constexpr RootKey kMachine = RootKey::LocalMachine;
constexpr RootKey kUser = RootKey::CurrentUser;
constexpr RootKey kClasses = RootKey::ClassesRoot;

// One hive as all of HKEY_LOCAL_MACHINE\H.
struct OneHive {
  explicit OneHive(DiskBuilder& disk, const std::string& name = "HIVE")
      : files(disk.drives()), file(files, "C:\\" + name, [this](const auto&, const auto& reason) {
          troubles.push_back(reason);
        }) {}

  std::string Text(const std::string& path, const std::string& name) {
    RegValue value;
    const RegStatus status = registry.QueryValue(kMachine, path, name, &value);
    return status == kRegOk ? std::string(TrimNull(value.data)) : "!" + std::to_string(status);
  }

  std::vector<std::string> troubles;
  PosixFiles files;
  HiveFile file;
  std::vector<RegistryMount> mounts = {{kMachine, "H", &file, {}}};
  OfflineRegistry registry{mounts, OfflineRegistry::View::Only};
};

std::size_t CountKeys(Registry& registry, const std::string& path, unsigned depth = 0) {
  std::size_t count = 1;
  REQUIRE(depth < 2000);
  registry.EnumKeys(kMachine, path, [&](const std::string& name) {
    count += CountKeys(registry, path + "\\" + name, depth + 1);
    return true;
  });
  return count;
}

}  // namespace

TEST_SUITE("offline_registry") {
  TEST_CASE("what is saved reads the same in another run") {
    DiskBuilder disk;
    disk.Text("HIVE", "Software\\\u0416\u0436\\a", "\u00FC", "\u4E88\u5B9A").Save();
    disk.Text("HIVE", "software\\\u0436\u0436\\A", "second", "x").Save();
    OneHive hive(disk);
    CHECK(hive.Text("H\\SOFTWARE\\\u0436\u0416\\a", "\u00DC") == "\u4E88\u5B9A");
    CHECK(NamesBelow(hive.registry, kMachine, "H\\Software\\\u0416\u0436\\a", true) ==
          "second \u00FC ");
    CHECK(hive.registry.DeleteValue(kMachine, "H\\Software\\\u0416\u0436\\a", "SECOND") == kRegOk);
    CHECK(hive.file.Save().ok());
    OneHive again(disk);
    CHECK(NamesBelow(again.registry, kMachine, "H\\Software\\\u0416\u0436\\a", true) == "\u00FC ");
    CHECK(again.troubles.empty());
    CHECK_FALSE(disk.Has("HIVE.scourwell"));
  }

  TEST_CASE("a key or value with a NUL in its name is seen, and kept when others go") {
    DiskBuilder disk;
    disk.Text("HIVE", "keys\\AxB", "v", "1").Text("HIVE", "values", "CxD", "hidden");
    disk.Text("HIVE", "values", "other", "x").Save();
    std::string bytes = disk.Content("HIVE");
    for (const char* name : {"AxB", "CxD"}) bytes[bytes.rfind(name) + 1] = '\0';
    disk.Put("HIVE", bytes);
    OneHive hive(disk);
    CHECK(NamesBelow(hive.registry, kMachine, "H\\keys") == std::string("A\0B ", 4));
    CHECK(NamesBelow(hive.registry, kMachine, "H\\values", true) == std::string("C\0D other ", 10));
    CHECK(hive.registry.DeleteValue(kMachine, "H\\values", "other") == kRegAccessDenied);
    CHECK(hive.Text("H\\values", "other") == "x");
  }

  TEST_CASE("a key is a link by the type of its value, not by its name alone") {
    DiskBuilder disk;
    disk.Text("HIVE", "plain", "SymbolicLinkValue", "H\\other");
    disk.Set("HIVE", "link", "SymbolicLinkValue", {kRegLink, "x"}).Save();
    OneHive hive(disk);
    for (const auto& [key, expected] :
         Rows<std::string, bool>{{"H\\plain", false}, {"H\\link", true}}) {
      bool is_link = !expected;
      CHECK(hive.registry.IsLink(kMachine, key, &is_link) == kRegOk);
      CHECK(is_link == expected);
    }
  }

  TEST_CASE("texts of any bytes read as far as they go") {
    DiskBuilder disk;
    disk.Set("HIVE", "k", "odd", {kRegText, "ab", 'c'});
    disk.Set("HIVE", "k", "half", {kRegText, FromUtf16(u"x\xD800")});
    disk.Set("HIVE", "k", "list", {kRegMultiText, std::string("a\0b\0\0", 5)}).Save();
    OneHive hive(disk);
    RegValue value;
    CHECK(hive.registry.QueryValue(kMachine, "H\\k", "odd", &value) == kRegOk);
    CHECK((value.data == "ab" && value.half_character == 'c'));
    CHECK(hive.Text("H\\k", "half") == FromUtf16(u"x\xD800"));
    CHECK(hive.registry.QueryValue(kMachine, "H\\k", "list", &value) == kRegOk);
    CHECK(value.data == std::string("a\0b\0\0", 5));
  }

  TEST_CASE("lists that lead back, or elsewhere, end where they begin") {
    DiskBuilder disk;
    disk.Key("HIVE", "a\\b\\c").Key("HIVE", "a\\d").Save();
    const std::string sound = disk.Content("HIVE");
    const std::uint32_t root = DwordAt(sound, 36);
    std::size_t lists = 0;
    for (std::size_t at = sound.find("lh"); at != sound.npos; at = sound.find("lh", at + 2)) {
      ++lists;
      for (const std::uint32_t target : {root, DwordAt(sound, at + 4), std::uint32_t{0x7FFFFFF0}}) {
        std::string bytes = sound;
        for (unsigned i = 0; i < 4; ++i) bytes[at + 4 + i] = static_cast<char>(target >> (8 * i));
        disk.Put("HIVE", bytes);
        OneHive hive(disk);
        CHECK(CountKeys(hive.registry, "H") <= 6);
      }
    }
    CHECK(lists >= 3);
  }

  TEST_CASE("keys lie as deep as the system allows, and no deeper") {
    DiskBuilder disk;
    disk.Put("HIVE", EmptyHive());
    OneHive hive(disk);
    RegistryFile::Node node = hive.file.Root();
    for (int i = 0; i < 600; ++i) {
      REQUIRE(hive.file.AddKey(node, "k") == kRegOk);
      std::shared_ptr<const KeyNames> names;
      REQUIRE(hive.file.ReadNames(node, &names) == kRegOk);
      node = names->Find("K");
    }
    // The last one is listed, and leads nowhere.
    CHECK(CountKeys(hive.registry, "H") == 514);
  }

  TEST_CASE("what is no hive, or a damaged one, says so and is never written") {
    DiskBuilder disk;
    disk.Text("SOUND", "key", "v", "x").Save();
    const std::string sound = disk.Content("SOUND");
    std::string without_sum = sound;
    without_sum[100] = 'x';
    for (const auto& [bytes, readable] : Rows<std::string, bool>{{sound, true},
                                                                 {Unsaved(sound), true},
                                                                 {Damaged(sound), true},
                                                                 {"", false},
                                                                 {"regf", false},
                                                                 {std::string(10'000, 't'), false},
                                                                 {sound.substr(0, 5000), false},
                                                                 {without_sum, false}}) {
      disk.Put("HIVE", bytes);
      OneHive hive(disk);
      CAPTURE(bytes.size());
      const bool is_sound = bytes == sound;
      CHECK(hive.file.Load().ok() == readable);
      CHECK(hive.Text("H\\key", "v") == (readable ? "x" : "!2"));
      CHECK(hive.troubles.size() == (is_sound ? 0 : 1));
      CHECK(hive.file.Writable().ok() == is_sound);
      CHECK((hive.registry.TryOpen(kMachine, "H\\key", kKeyAllRights) == kRegOk) == is_sound);
      const RegStatus status = hive.registry.DeleteValue(kMachine, "H\\key", "v");
      CHECK((status == kRegOk) == is_sound);
      if (!is_sound) CHECK(hive.file.Save().ok());
      CHECK((disk.Content("HIVE") == bytes));
    }
    disk.MakeFolder("none");
    OneHive none(disk, "none");
    CHECK_FALSE(none.file.Load().ok());
    // One that becomes worse from one reading to the next is told of each time.
    disk.Put("HIVE", sound);
    OneHive worse(disk);
    std::size_t told = 0;
    for (const std::string& bytes : {sound, Unsaved(sound), Damaged(sound), std::string()}) {
      disk.Put("HIVE", bytes);
      for (int reading = 0; reading < 2; ++reading) {
        CHECK(worse.file.Load().ok() == !bytes.empty());
        CHECK(worse.troubles.size() == told);
        worse.file.Release();
      }
      ++told;
    }
  }

  TEST_CASE("bytes changed at random neither end the program nor keep it") {
    DiskBuilder disk;
    for (int i = 0; i < 30; ++i) {
      const std::string number = std::to_string(i);
      disk.Text("SOUND", "key" + number + "\\below", "value " + number, std::string(9, 'x'));
    }
    disk.Save();
    const std::string sound = disk.Content("SOUND");
    Dice dice(4711);
    for (int round = 0; round < 150; ++round) {
      std::string bytes = sound;
      for (std::size_t i = dice.Below(8) + 1; i > 0; --i) {
        bytes[4096 + dice.Below(bytes.size() - 4096)] = static_cast<char>(dice.Below(256));
      }
      disk.Put("HIVE", bytes);
      OneHive hive(disk);
      CHECK(CountKeys(hive.registry, "H") <= 62);
      NamesBelow(hive.registry, kMachine, "H\\key1\\below", true);
    }
  }

  TEST_CASE("a disk that is full leaves the old hive, and nothing else") {
    DiskBuilder disk;
    disk.Text("HIVE", "key", "v", "x").Save();
    const std::string before = disk.Content("HIVE");
    OneHive hive(disk);
    CHECK(hive.registry.DeleteValue(kMachine, "H\\key", "v") == kRegOk);
    {
      const SmallFiles full(4096);
      CHECK(hive.file.Save().code() == kDiskFull);
    }
    CHECK((disk.Content("HIVE") == before));
    CHECK_FALSE(disk.Has("HIVE.scourwell"));
    CHECK(hive.file.Save().ok());
    CHECK(disk.Content("HIVE") != before);
  }

  TEST_CASE("of several hives each that can be saved is saved") {
    DiskBuilder disk;
    disk.Windows().User("S-1", "Users\\Ann").Text(kSoftware, "key", "v", std::string(15'000, 'x'));
    disk.Text("Users/Ann/NTUSER.DAT", "key", "v", "x");
    const auto machine = disk.Open();
    CHECK(machine->registry().DeleteValue(kMachine, "SOFTWARE\\key", "v") == kRegOk);
    CHECK(machine->registry().DeleteValue(RootKey::Users, "S-1\\key", "v") == kRegOk);
    CHECK(machine->registry().CreateKey(kMachine, "SYSTEM\\new") == kRegOk);
    {
      const SmallFiles full(16'384);
      CHECK(machine->SaveRegistry().code() == kDiskFull);
    }
    REQUIRE(machine->unread().size() == 1);
    CHECK(machine->unread()[0].place == "C:\\WINDOWS\\system32\\config\\SOFTWARE");
    const auto again = disk.Open();
    CHECK(NamesBelow(again->registry(), kMachine, "SOFTWARE\\key", true) == "v ");
    CHECK(NamesBelow(again->registry(), RootKey::Users, "S-1\\key", true) == "");
    CHECK(again->registry().TryOpen(kMachine, "SYSTEM\\new", kKeyRead) == kRegOk);
  }

  TEST_CASE("a user's classes come before those of the machine, and each keeps its own") {
    DiskBuilder disk;
    disk.Windows().User("S-1", "Users\\Ann");
    const std::string own = "Users/Ann/AppData/Local/Microsoft/Windows/UsrClass.dat";
    disk.Text(kSoftware, "Classes\\both", "", "machine").Text(own, "both", "", "user");
    disk.Text(kSoftware, "Classes\\both\\m", "x", "1").Text(own, "both\\u", "x", "1");
    disk.Text(kSoftware, "Classes\\machine", "x", "1");
    disk.Text(kSoftware, "Classes\\both", "m", "1").Text(own, "both", "u", "1");
    const auto machine = disk.Open();
    Registry& registry = machine->registry();
    CHECK(NamesBelow(registry, kClasses, "") == "both machine ");
    machine->ActAs(&machine->users().front());
    CHECK(NamesBelow(registry, kClasses, "BOTH") == "m u ");
    CHECK(NamesBelow(registry, kUser, "Software\\Classes") == "both ");
    CHECK(NamesBelow(registry, RootKey::Users, "") == "S-1 S-1_Classes ");
    RegValue value;
    CHECK(registry.QueryValue(kClasses, "both", "", &value) == kRegOk);
    CHECK(TrimNull(value.data) == "user");
    CHECK(NamesBelow(registry, kClasses, "both", true) == " m u ");
    int visited = 0;
    CHECK(registry.EnumValues(kClasses, "both",
                              [&](const auto&, const auto&) { return ++visited < 2; }) == kRegOk);
    CHECK(visited == 2);
    machine->ShowUserOnly(true);
    CHECK(NamesBelow(registry, kClasses, "") == "both ");
    CHECK(NamesBelow(registry, kMachine, "") == "");
    CHECK(registry.TryOpen(kMachine, "SOFTWARE", kKeyRead) == kRegNotFound);
    machine->ShowUserOnly(false);
    CHECK(registry.CreateKey(kClasses, "fresh") == kRegOk);  // what is new is the machine's
    CHECK(NamesBelow(registry, kUser, "Software\\Classes") == "both ");
    CHECK(NamesBelow(registry, kMachine, "SOFTWARE\\Classes") == "both fresh machine ");
    for (const char* name : {"m", "U", ""}) {
      CHECK(registry.DeleteValue(kClasses, "both", name) == kRegOk);
    }
    CHECK(registry.DeleteValue(kClasses, "both", "m") == kRegNotFound);
    CHECK(registry.QueryValue(kClasses, "both", "", &value) == kRegOk);
    CHECK(TrimNull(value.data) == "machine");
    CHECK(registry.DeleteKeyCall(kClasses, "both\\u") == kRegOk);
    CHECK(registry.DeleteKeyCall(kClasses, "both\\m") == kRegOk);
    CHECK(registry.DeleteKeyCall(kUser, "") == kRegAccessDenied);
    CHECK(machine->SaveRegistry().ok());
    const auto again = disk.Open();
    CHECK(NamesBelow(again->registry(), kMachine, "SOFTWARE\\Classes\\both") == "");
    CHECK(NamesBelow(again->registry(), RootKey::Users, "S-1_Classes\\both") == "");
  }

  TEST_CASE("32-bit programs have a part of a 64-bit registry for themselves") {
    DiskBuilder disk;
    disk.Windows();
    disk.Text(kSoftware, "Wow6432Node\\Spy", "bits", "32").Text(kSoftware, "Spy", "bits", "64");
    disk.Key(kSoftware, "Classes\\CLSID\\{64}").Key(kSoftware, "Classes\\Wow6432Node\\CLSID\\{32}");
    disk.Key(kSoftware, "Classes\\.exe")
        .Key(kSoftware, "Microsoft\\Windows\\CurrentVersion\\Policies\\p");
    const auto machine = disk.Open();
    REQUIRE(machine->registry64());
    const auto bits = [&](Registry& registry, const std::string& path) {
      RegValue value;
      registry.QueryValue(kMachine, path, "bits", &value);
      return std::string(TrimNull(value.data));
    };
    CHECK(bits(machine->registry(), "SOFTWARE\\Spy") == "32");
    CHECK(bits(machine->registry(), "Software\\WOW6432Node\\Spy") == "32");
    CHECK(bits(*machine->registry64(), "SOFTWARE\\Spy") == "64");
    CHECK(NamesBelow(machine->registry(), kClasses, "CLSID") == "{32} ");
    CHECK(NamesBelow(*machine->registry64(), kClasses, "CLSID") == "{64} ");
    for (Registry* registry : {&machine->registry(), machine->registry64()}) {
      CHECK(registry->TryOpen(kClasses, ".EXE", kKeyRead) == kRegOk);
      CHECK(registry->TryOpen(kMachine, "Software\\Microsoft\\Windows\\CurrentVersion\\Policies\\p",
                              kKeyRead) == kRegOk);
    }
  }

  TEST_CASE("the current control set is the one that the machine chose") {
    DiskBuilder disk;
    disk.Windows().Number(kSystemHive, "Select", "Current", 2);
    disk.Key(kSystemHive, "ControlSet001\\old").Key(kSystemHive, "ControlSet002\\new");
    const auto machine = disk.Open();
    CHECK(NamesBelow(machine->registry(), kMachine, "System\\CurrentControlSet") == "new ");
    CHECK(NamesBelow(machine->registry(), kMachine, "System\\ControlSet001") == "old ");
    CHECK(NamesBelow(machine->registry(), kMachine, "SYSTEM") ==
          "ControlSet001 ControlSet002 CurrentControlSet Select ");
    RegCounts counts;
    CHECK(machine->registry().Count(kMachine, "SYSTEM", &counts) == kRegOk);
    CHECK(counts.keys == 4);
    DiskBuilder silent;
    silent.Key(kSoftware, kNtVersion).Key(kSystemHive, "ControlSet001\\first");
    CHECK(NamesBelow(silent.Open()->registry(), kMachine, "System\\CurrentControlSet") == "first ");
  }
}

}  // namespace scourwell::test
