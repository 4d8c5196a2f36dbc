#include "backup/registry_backup.h"
#include "platform/reg_script.h"
#include "tests/support.h"

namespace scourwell::test {

TEST_SUITE("registry_backup") {
  TEST_CASE("a value line brings back the same bytes of the same type") {
    struct Row {
      const char* name;
      RegValue value;
      const char* line;
    };
    for (const Row& row : {
             Row{"n",
                 {kRegText, std::string("te\\xt \"q\"\0", 10)},
                 "\"n\"=\"te\\\\xt \\\"q\\\"\""},
             {"", {kRegText, std::string("\0", 1)}, "@=\"\""},
             {"n", {kRegText, ""}, "\"n\"=hex(1):"},
             {"n", {kRegText, "ab"}, "\"n\"=hex(1):61,62"},
             {"n", {kRegText, std::string("a\r\nb\0", 5)}, "\"n\"=hex(1):61,0d,0a,62,00"},
             {"n", {kRegText, std::string("a\0b\0", 4)}, "\"n\"=hex(1):61,00,62,00"},
             {"a\\b\"c",
              {kRegDword, std::string("\x34\x12\xFF\0", 4)},
              "\"a\\\\b\\\"c\"=dword:00ff1234"},
             {"n", {kRegDword, "ab"}, "\"n\"=hex(4):61,62"},
             {"n", {kRegBinary, ""}, "\"n\"=hex:"},
             {"n", {kRegBinary, "\xFF\x01"}, "\"n\"=hex:ff,01"},
             {"n", {kRegExpandText, std::string("%a%\0", 4)}, "\"n\"=hex(2):25,61,25,00"},
             {"n", {kRegNone, "a"}, "\"n\"=hex(0):61"},
             {"n", {0x10001, "a"}, "\"n\"=hex(10001):61"},
         }) {
      CAPTURE(std::string(row.line));
      CHECK(ValueLineForScript(row.name, row.value) == std::string(row.line) + "\r\n");
    }
    const std::string lines = ValueLineForScript("long", {kRegBinary, std::string(100, 'a')});
    CHECK(lines.find(",\\\r\n  61,") != std::string::npos);
    for (std::size_t at = 0, end; (end = lines.find("\r\n", at)) != lines.npos; at = end + 2) {
      CHECK(end - at <= 80);
    }
  }

  TEST_CASE("the scripts hold what the rows say and what the registry holds") {
    Bench b;
    FakeRegistry other;
    b.m.registry.Make(RootKey::LocalMachine, "Software\\Evil")
        .Value("", std::string("d\0", 2))
        .Value("n", std::string("\1\0\0\0", 4), kRegDword);
    b.m.registry.Make(RootKey::LocalMachine, "Software\\Evil\\[sub]\\deep").Value("b", "x", 3);
    b.m.registry.Make(RootKey::LocalMachine, "Software\\Evil\\bad\r\nname");
    b.m.registry.Make(RootKey::LocalMachine, "Software\\Evil").unspellable = {
        {"?", {kRegText, std::string("x\0", 2)}}};
    b.m.registry.Make(RootKey::CurrentUser, "Run").Value("Evil", "%x%", kRegExpandText);
    other.Make(RootKey::LocalMachine, "Software\\Evil64");
    RegistryBackup backup(b.m.registry, &other, b.m.pump);
    const auto add = [&](std::string_view kind, const std::string& key,
                         const std::string& more = {}, const std::string& tag = {},
                         bool view64 = false) {
      backup.Add({std::string(kind), key + more, "spy", 0, key, tag, view64});
    };
    add(kSpyRegistryKey, "HKEY_LOCAL_MACHINE\\Software\\Evil");
    add(kSpyRegistryValue, "HKEY_CURRENT_USER\\Run", "\\EVIL", "%x%\\a");
    add(kSpyRegistryKey, "HKEY_LOCAL_MACHINE\\Software\\Evil64", " (64-bit)", "", true);
    add(kSpyRegistryKey, "HKEY_LOCAL_MACHINE\\None");
    add(kSpyFile, "C:\\x");
    CHECK(backup.keys() ==
          "REGEDIT4\r\n\r\n[HKEY_LOCAL_MACHINE\\Software\\Evil]\r\n"
          "\r\n[HKEY_LOCAL_MACHINE\\None]\r\n");
    CHECK(backup.values() ==
          "REGEDIT4\r\n\r\n[HKEY_CURRENT_USER\\Run]\r\n\"EVIL\"=\"%x%\\\\a\"\r\n");
    CHECK(backup.exported() ==
          "REGEDIT4\r\n\r\n[HKEY_LOCAL_MACHINE\\Software\\Evil]\r\n@=\"d\"\r\n\"n\"=dword:"
          "00000001\r\n"
          "\r\n[HKEY_LOCAL_MACHINE\\Software\\Evil\\[sub]]\r\n"
          "\r\n[HKEY_LOCAL_MACHINE\\Software\\Evil\\[sub]\\deep]\r\n\"b\"=hex:78\r\n"
          "\r\n[HKEY_CURRENT_USER\\Run]\r\n\"Evil\"=hex(2):25,78,25\r\n");
    CHECK(backup.exported64() == "REGEDIT4\r\n\r\n[HKEY_LOCAL_MACHINE\\Software\\Evil64]\r\n");
    const std::string evil = "HKEY_LOCAL_MACHINE\\Software\\Evil: a name in it ";
    CHECK(Lines(backup.left_out()) == evil + "cannot be spelled\n" + evil + "holds a line break\n");
  }

  TEST_CASE("a backup does not follow links, nor fail for them") {
    Bench b;
    b.m.registry.Make(RootKey::LocalMachine, "Evil").Value("v", "x");
    b.m.registry.Link(RootKey::LocalMachine, "Evil\\way", "Evil");
    RegistryBackup backup(b.m.registry, nullptr, b.m.pump);
    const std::string key = "HKEY_LOCAL_MACHINE\\Evil";
    backup.Add({std::string(kSpyRegistryKey), key, "spy", 0, key, ""});
    CHECK(backup.exported() == "REGEDIT4\r\n\r\n[" + key + "]\r\n\"v\"=hex(1):78\r\n");
    CHECK(backup.left_out().empty());
  }
}

}  // namespace scourwell::test
