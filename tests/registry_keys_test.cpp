// SPDX-License-Identifier: MIT
#include "guard/key_remover.h"
#include "machine/cregister.h"
#include "machine/registry_place.h"

#include "tests/support.h"

namespace scourwell::test {
namespace {

constexpr RootKey kUser = RootKey::CurrentUser;

struct Access : Bench {
  KeyRemover keys{m.registry, log, [this] { m.shell.Message("denied", ""); }};
};

}  // namespace

TEST_SUITE("registry_keys") {
  TEST_CASE("roots and their names") {
    CHECK(RootFromName("hkey_current_user") == RootKey::CurrentUser);
    CHECK(RootFromName("HKEY_DYN_DATA") == RootKey::DynData);
    CHECK_FALSE(RootFromName("HKCU"));
    CHECK_FALSE(RootFromName(""));
    CHECK(NameFromRoot(RootKey::LocalMachine) == "HKEY_LOCAL_MACHINE");
    CHECK(NameFromRoot(RootKey::PerformanceData) == "");
  }

  TEST_CASE("value data as text") {
    for (const auto& [type, data, text] : Rows<std::uint32_t, std::string, const char*>{
             {1, "abc", "abc"},
             {1, std::string("ab\0cd\0", 6), "ab"},
             {2, "%x%", "%x%"},
             {7, std::string("a\0b\0\0", 5), "a"},
             {3, std::string("\x0A\xFF\0", 3), "0A FF 00"},
             {3, "", ""},
             {5, std::string("\0\1", 2), "00 01"},
             {6, "A", "41"},
             {4, std::string("\xFF\0\0\0", 4), "0x000000FF"},
             {4, "\x01\x02", "0x00000201"},
             {4, "\x01\x02\x03\x04\x05", "0x04030201"},
             {4, "", "0x00000000"},
             {0, "abc", "Temporary unsupported"},
             {11, "12345678", "Temporary unsupported"}}) {
      CAPTURE(type);
      CHECK(ValueToText({type, data}) == text);
    }
  }

  TEST_CASE("a key goes with everything below it, deepest first") {
    Access a;
    for (const char* path : {"Spy\\a\\x", "Spy\\a\\y", "Spy\\b", "Other"}) {
      a.m.registry.Make(kUser, path);
    }
    SUBCASE("where the system's call takes single keys only") {
      CHECK(a.keys.DeleteKey(kUser, "\\Spy\\") == kRegOk);
      // A key with others below it is refused at first.
      CHECK(Lines(a.m.registry.journal) ==
            "DeleteKey Spy\nDeleteKey Spy\\b\nDeleteKey Spy\\a\nDeleteKey Spy\\a\\y\n"
            "DeleteKey Spy\\a\\x\nDeleteKey Spy\\a\nDeleteKey Spy\n");
    }
    SUBCASE("where it takes whole trees") {
      a.m.registry.deletes_trees = true;
      CHECK(a.keys.DeleteKey(kUser, "Spy") == kRegOk);
      CHECK(Lines(a.m.registry.journal) == "DeleteKey Spy\n");
    }
    CHECK(a.m.registry.Find(kUser, "Spy") == nullptr);
    CHECK(a.m.registry.Find(kUser, "Other") != nullptr);
    CHECK(a.m.shell.journal.empty());
    CHECK(a.keys.DeleteKey(kUser, "Spy") == kRegNotFound);
  }

  TEST_CASE("a denied key stops the deletion and is told once") {
    Access a;
    a.m.registry.Make(kUser, "Spy\\left");
    a.m.registry.Make(kUser, "Spy\\a\\x").Denied();
    a.m.registry.Make(kUser, "Spy\\b");
    CHECK(a.keys.DeleteKey(kUser, "Spy") == kRegAccessDenied);
    CHECK(Lines(a.m.shell.journal) == "Message denied/\n");
    CHECK(a.m.registry.Find(kUser, "Spy\\a\\x") != nullptr);
    CHECK(a.m.registry.Find(kUser, "Spy\\left") != nullptr);
  }

  TEST_CASE("a root is never deleted") {
    Access a;
    a.m.registry.Make(kUser, "Software");
    for (const char* path : {"", "\\"}) {
      CHECK(a.keys.DeleteKey(kUser, path) == kRegInvalidParameter);
      RegStatus status = kRegOk;
      CRegister(a.m.registry).DeleteEntry(kUser, path, "", &status);
      CHECK(status == kRegInvalidParameter);
    }
    CHECK(a.m.registry.journal.empty());
  }

  TEST_CASE("subkeys and values") {
    Access a;
    a.m.registry.Make(kUser, "K\\one").Value("n", "1");
    a.m.registry.Make(kUser, "K\\two");
    a.m.registry.Make(kUser, "K")
        .Value("text", std::string("a\0b", 3))
        .Value("bin", "x", 3)
        .Value("", "unnamed");
    CRegister reg(a.m.registry);
    CHECK(reg.QueryString(kUser, "\\K\\", "TEXT") == "a");
    CHECK(reg.QueryString(kUser, "K", "bin") == "");
    CHECK(reg.QueryString(kUser, "K", "none") == "");
    CHECK(a.keys.DeleteValue(kUser, "\\K", "bin") == kRegOk);
    CHECK(a.keys.DeleteValue(kUser, "\\K", "bin") == kRegNotFound);
    RegStatus status = kRegNotFound;
    reg.DeleteEntry(kUser, "\\K", "*", &status);
    CHECK(status == kRegOk);
    CHECK(a.m.registry.Text(kUser, "K", "") == "(none)");
    reg.DeleteEntry(kUser, "\\K\\one", "", &status);
    CHECK(status == kRegOk);
    CHECK(a.m.registry.Find(kUser, "K\\one") == nullptr);
    CHECK(a.m.registry.Find(kUser, "K\\two") != nullptr);
    CHECK(reg.SetString(kUser, "\\New\\Key\\", "v", "t") == kRegOk);
    CHECK(a.m.registry.Text(kUser, "New\\Key", "v") == "t");
    CHECK(CRegister::SplitKeyPath("\\\\a\\\\") == "\\a\\");
  }

  TEST_CASE("what lies behind a link stays, and the link goes when it can") {
    Access a;
    FakeRegistry& registry = a.m.registry;
    registry.Make(kUser, "Precious\\a\\b").Value("v", "x");
    Key& link = registry.Link(kUser, "Spy\\way", "Precious").Denied();
    CHECK(a.keys.DeleteKey(kUser, "Spy") == kRegAccessDenied);
    CHECK(a.m.Errors().find("Key: Spy\\way") != std::string::npos);
    CHECK(a.keys.DeleteKey(kUser, "Spy\\way\\a") == kRegAccessDenied);
    CHECK(a.keys.DeleteValue(kUser, "Spy\\way\\a\\b", "v") == kRegAccessDenied);
    CHECK(a.keys.HasLinks(kUser, "Spy"));
    CHECK_FALSE(a.keys.HasLinks(kUser, "Precious"));
    std::string deep = "Deep";
    for (int i = 0; i < 513; ++i) deep += "\\k";  // beyond what the system allows, nobody looks
    registry.Make(kUser, deep);
    CHECK(a.keys.HasLinks(kUser, "Deep"));
    link.denied = false;
    CHECK(a.keys.DeleteKey(kUser, "Spy") == kRegOk);
    CHECK(registry.Text(kUser, "Precious\\a\\b", "v") == "x");
    // A key that does not tell whether it is one counts as one.
    registry.Make(kUser, "Spy\\plain");
    Faults faults;
    faults.Plan(Faults::Kind::OneCall, 1);
    registry.port_faults = &faults;
    CHECK(a.keys.DeleteKey(kUser, "Spy\\plain") == kRegAccessDenied);
    registry.port_faults = nullptr;
    CHECK(registry.Find(kUser, "Spy\\plain"));
    // Windows' own link is a way like any other.
    registry.Make(RootKey::LocalMachine, "SYSTEM\\ControlSet001\\Services\\Evil");
    registry.Link(RootKey::LocalMachine, "SYSTEM\\CurrentControlSet", "SYSTEM\\ControlSet001");
    CHECK(a.keys.DeleteKey(RootKey::LocalMachine, "SYSTEM\\CurrentControlSet\\Services\\Evil") ==
          kRegOk);
    CHECK_FALSE(registry.Find(RootKey::LocalMachine, "SYSTEM\\ControlSet001\\Services\\Evil"));
  }
}

}  // namespace scourwell::test
