// SPDX-License-Identifier: MIT
#include "offline/little_endian.h"
#include "tests/helpers.h"
#include "tests/offline/disk_builder.h"

namespace scourwell::test {
namespace {

constexpr char kSystem[] = "WINDOWS/SYSTEM.DAT";
constexpr std::size_t kKeys = 64;  // where the first key's entry begins, the root's
constexpr std::size_t kEntry = 28;
constexpr std::size_t kFirstChild = 16;
constexpr std::size_t kNext = 20;

// A disk of Windows 98, whose registry files are made from dicts as demo/registry_files.py has
// them. V is the entry of a key's values.
struct W9xDisk : TemporaryFolder {
  W9xDisk() { Put("WINDOWS/WIN.COM"); }

  void PutFile(const std::string& name, const std::string& tree,
               const std::string& page = "cp1252") {
    Put(name);
    const std::string command = "cd '" + std::string(SCOURWELL_SOURCE_DIR) +
                                "/demo' && python3 -B - <<'END'\n"
                                "from registry_files import VALUES as V, creg\n"
                                "open('" +
                                path() + "/" + name + "', 'wb').write(creg(" + tree + ", '" + page +
                                "'))\nEND\n";
    REQUIRE(std::system(command.c_str()) == 0);
  }
  // With the users of that list.
  void PutMachine(const std::string& profiles) {
    PutFile(kSystem, "{'Software': {'Microsoft': {'Windows': {'CurrentVersion': {'ProfileList': " +
                         profiles + "}}}}}");
  }
  std::unique_ptr<OfflineMachine> Open() const {
    std::unique_ptr<OfflineMachine> machine;
    const Outcome opened = OfflineMachine::Open({{'C', path()}}, "", &machine);
    REQUIRE_MESSAGE(opened.ok(), opened.description());
    return machine;
  }
};

void PutNumber(std::string* bytes, std::size_t at, std::uint32_t number, unsigned size = 4) {
  for (unsigned i = 0; i < size; ++i) (*bytes)[at + i] = static_cast<char>(number >> (8 * i));
}

std::string UsersOf(OfflineMachine& machine) {
  std::string users;
  for (const OfflineUser& user : machine.users()) users += user.name + "|" + user.profile + "\n";
  return users;
}

}  // namespace

TEST_SUITE("offline_w9x") {
  TEST_CASE("names and texts are those of the machine's own code page, bytes stay what they are") {
    W9xDisk disk;
    disk.PutFile(
        kSystem,
        "{'System': {'CurrentControlSet': {'Control': {'Nls': {'Codepage': {V: [('ACP', 1, "
        "'1251')]}}}}}, 'Software': {'Microsoft': {'Windows': {'CurrentVersion': "
        "{'ProfileList': {'\u0436': {V: [('ProfileImagePath', 1, "
        "'C:\\\\WINDOWS\\\\Profiles\\\\\u0436')]}}}}}}}",
        "cp1251");
    disk.PutFile("WINDOWS/Profiles/\u0436/USER.DAT",
                 "{'any': {'Software': {'\u0436': {V: [('\u0416', 1, '\u0436'), ('bytes', 3, "
                 "b'\\xE6\\0')]}}}}",
                 "cp1251");
    disk.PutFile("WINDOWS/USER.DAT", "{}");
    const auto machine = disk.Open();
    CHECK(machine->unread().empty());
    CHECK(UsersOf(*machine) == ".Default|C:\\WINDOWS\n\u0436|C:\\WINDOWS\\Profiles\\\u0436\n");
    machine->ActAs(&machine->users().back());
    Registry& registry = machine->registry();
    CHECK(NamesBelow(registry, RootKey::CurrentUser, "Software") == "\u0436 ");
    RegValue value;
    CHECK(registry.QueryValue(RootKey::CurrentUser, "Software\\\u0436", "\u0416", &value) ==
          kRegOk);
    CHECK(TrimNull(value.data) == "\u0436");
    CHECK(registry.QueryValue(RootKey::CurrentUser, "Software\\\u0436", "bytes", &value) == kRegOk);
    CHECK(value.data == std::string("\xE6\0", 2));
  }

  TEST_CASE("classes may have a file of their own, in which they begin at any of three keys") {
    W9xDisk disk;
    disk.PutFile(kSystem, "{'Software': {'Classes': {'.machine': {}}}}");
    const auto classes = [&] {
      return NamesBelow(disk.Open()->registry(), RootKey::ClassesRoot, "");
    };
    CHECK(classes() == ".machine ");
    for (const char* tree :
         {"{'Software': {'Classes': {'.own': {}}}}", "{'Classes': {'.own': {}}}", "{'.own': {}}"}) {
      CAPTURE(std::string(tree));
      disk.PutFile("WINDOWS/CLASSES.DAT", tree);
      CHECK(classes() == ".own ");
    }
    disk.Put("WINDOWS/CLASSES.DAT", "a text");
    CHECK(classes() == ".machine ");
    const auto machine = disk.Open();
    REQUIRE(machine->unread().size() == 2);  // nor is there a USER.DAT
    CHECK(machine->unread()[0].place == "C:\\WINDOWS\\CLASSES.DAT");
  }

  TEST_CASE("a user is one whose profile is there, and has what is below the first key of a file") {
    W9xDisk disk;
    disk.PutFile("WINDOWS/USER.DAT", "{'.Default': {'Software': {'default': {}}}}");
    disk.PutMachine(
        "{'ann': {}, 'bob': {V: [('ProfileImagePath', 1, 'C:\\\\Elsewhere')]}, 'gone': {}, "
        "'empty': {}, 'broken': {}}");
    disk.PutFile("WINDOWS/Profiles/ann/USER.DAT", "{'x': {'Software': {'ann': {}}}, 'y': {}}");
    disk.PutFile("WINDOWS/Profiles/empty/USER.DAT", "{}");
    disk.Put("WINDOWS/Profiles/broken/USER.DAT", "a text");
    disk.Put("WINDOWS/Profiles/gone");
    disk.MakeFolder("Elsewhere");
    const auto machine = disk.Open();
    CHECK(UsersOf(*machine) ==
          ".Default|C:\\WINDOWS\nann|C:\\WINDOWS\\Profiles\\ann\nbob|C:\\Elsewhere\n"
          "empty|C:\\WINDOWS\\Profiles\\empty\nbroken|C:\\WINDOWS\\Profiles\\broken\n");
    REQUIRE(machine->unread().size() == 1);
    CHECK(machine->unread()[0].place == "C:\\WINDOWS\\Profiles\\broken\\USER.DAT");
    std::string keys;
    for (const OfflineUser& user : machine->users()) {
      machine->ActAs(&user);
      keys += NamesBelow(machine->registry(), RootKey::CurrentUser, "Software") + "|";
    }
    CHECK(keys == "default |ann |!2 |!2 |!2 |");
    CHECK(NamesBelow(machine->registry(), RootKey::Users, "") == ".Default ann ");
  }

  TEST_CASE("what leads to a key twice, or out of the file, is cut off; the rest is read") {
    W9xDisk disk;
    disk.Put("WINDOWS/USER.DAT");
    disk.PutFile(kSystem, "{'a': {'below': {}}, 'b': {'x': {V: [('v', 4, 7)]}}, 'c': {}}");
    const std::string sound = disk.Content(kSystem);
    const auto entry = [](std::size_t number) { return kKeys + number * kEntry; };
    // The keys by their entries: the root, a, below, b, x, c.
    for (const auto& [at, to, names, below_b] :
         Rows<std::size_t, std::size_t, const char*, const char*>{
             {entry(3) + kNext, entry(5) - 32, "a b c ", "x "},
             {entry(3) + kNext, entry(3) - 32, "a b ", "x "},
             {entry(3) + kNext, entry(1) - 32, "a b ", "x "},
             {entry(4) + kFirstChild, entry(1) - 32, "a b c ", "x "},
             {entry(3) + kFirstChild, sound.size() - 32, "a b c ", ""},
             {entry(3) + kFirstChild, 0x7FFFFFF0, "a b c ", ""}}) {
      CAPTURE(at);
      CAPTURE(to);
      std::string bytes = sound;
      PutNumber(&bytes, at, static_cast<std::uint32_t>(to));
      disk.Put(kSystem, bytes);
      const auto machine = disk.Open();
      Registry& registry = machine->registry();
      CHECK(NamesBelow(registry, RootKey::LocalMachine, "") == names);
      CHECK(NamesBelow(registry, RootKey::LocalMachine, "b") == below_b);
      CHECK(machine->unread().size() == (bytes == sound ? 1 : 2));
    }
    std::string miscounted = sound;
    PutNumber(&miscounted, 16, WordAt(sound, 16) + 3u, 2);
    disk.Put(kSystem, miscounted);
    const auto machine = disk.Open();
    RegValue value;
    CHECK(machine->registry().QueryValue(RootKey::LocalMachine, "b\\x", "v", &value) == kRegOk);
    CHECK(DwordAt(value.data, 0) == 7);
    CHECK(machine->unread().size() == 2);
  }
}

}  // namespace scourwell::test
