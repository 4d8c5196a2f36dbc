// SPDX-License-Identifier: MIT
#include "backup/registry_backup.h"
#include "machine/reg_script.h"
#include "tests/support.h"
#include "text/unicode.h"

namespace scourwell::test {
namespace {

// The script's one line, behind the header.
std::string Line(std::string_view name, const RegValue& value) {
  FakeCodePages code_pages;
  RegScript script(code_pages, ScriptReader::Ansi);
  REQUIRE(script.AddValue(name, value));
  return script.Bytes().substr(script.Bytes().find('\n') + 1);
}

}  // namespace

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
      CHECK(Line(row.name, row.value) == std::string(row.line) + "\r\n");
    }
    for (const char* name : {"l", "lo", "lon"}) {
      const std::string lines = Line(name, {kRegBinary, std::string(100, 'a')});
      CHECK(lines.find(",\\\r\n  61,") != std::string::npos);
      for (std::size_t at = 0, end; (end = lines.find("\r\n", at)) != lines.npos; at = end + 2) {
        CHECK(end - at <= 78);
      }
    }
  }

  TEST_CASE("a script is in Unicode where it must be and may be") {
    FakeCodePages pages;
    const auto made = [&](ScriptReader reader, const std::string& name, const RegValue& value) {
      RegScript script(pages, reader);
      if (!script.AddKey("HKEY_CURRENT_USER\\k") || !script.AddValue(name, value))
        return std::string("no");
      const std::string bytes = script.Bytes();
      if (!bytes.starts_with("\xFF\xFE")) return bytes.substr(bytes.find("k]") + 4);
      std::u16string units;
      for (std::size_t i = 2; i + 1 < bytes.size(); i += 2) {
        units += static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) |
                                       static_cast<unsigned char>(bytes[i + 1]) << 8);
      }
      const std::string text = FromUtf16(units);
      CHECK(text.starts_with("Windows Registry Editor Version 5.00\r\n\r\n["));
      return "5.00 " + text.substr(text.find("k]") + 4);
    };
    const RegValue plain{kRegExpandText, std::string("a\0", 2)};
    const RegValue odd{kRegExpandText, "a", 'x'};
    constexpr auto kAnsi = ScriptReader::Ansi;
    constexpr auto kUnicode = ScriptReader::Unicode;
    CHECK(made(kUnicode, "n", plain) == "\"n\"=hex(2):61,00\r\n");
    CHECK(made(kUnicode, "\u0141", plain) == "5.00 \"\u0141\"=hex(2):61,00,00,00\r\n");
    CHECK(made(kUnicode, "n", odd) == "5.00 \"n\"=hex(2):61,00,78\r\n");
    CHECK(made(kUnicode, "n", {kRegText, std::string("\u00FC\0", 3)}) ==
          "5.00 \"n\"=\"\u00FC\"\r\n");
    CHECK(made(kAnsi, "\u00FC", {kRegText, "\u00FC"}) == "\"\xFC\"=hex(1):fc\r\n");
    CHECK(made(kAnsi, "\u0141", plain) == "no");
    CHECK(made(kAnsi, "n", {kRegText, "\u0141"}) == "no");
    CHECK(made(kAnsi, "n", odd) == "no");
  }

  TEST_CASE("the scripts hold what the rows say and what the registry holds") {
    Bench b;
    FakeRegistry other;
    b.m.registry.Make(RootKey::LocalMachine, "Software\\Evil")
        .Value("", std::string("d\0", 2))
        .Value("n", std::string("\1\0\0\0", 4), kRegDword);
    b.m.registry.Make(RootKey::LocalMachine, "Software\\Evil\\[sub]\\deep").Value("b", "x", 3);
    b.m.registry.Make(RootKey::LocalMachine, "Software\\Evil\\bad\r\nname");
    b.m.registry.Make(RootKey::CurrentUser, "Run").Value("Evil", "%x%", kRegExpandText);
    other.Make(RootKey::LocalMachine, "Software\\Evil64");
    RegistryBackup backup(b.m.registry, &other, b.m.pump, b.m.code_pages, ScriptReader::Unicode);
    backup.Add(KeyAt("HKEY_LOCAL_MACHINE\\Software\\Evil"));
    backup.Add(ValueAt("HKEY_CURRENT_USER\\Run", "EVIL", "%x%\\a"));
    backup.Add(KeyAt("HKEY_LOCAL_MACHINE\\Software\\Evil64", true));
    backup.Add(KeyAt("HKEY_LOCAL_MACHINE\\None"));
    backup.Add(FoundFile{"C:\\x"});
    CHECK(backup.keys().Bytes() ==
          "REGEDIT4\r\n\r\n[HKEY_LOCAL_MACHINE\\Software\\Evil]\r\n"
          "\r\n[HKEY_LOCAL_MACHINE\\None]\r\n");
    CHECK(backup.values().Bytes() ==
          "REGEDIT4\r\n\r\n[HKEY_CURRENT_USER\\Run]\r\n\"EVIL\"=\"%x%\\\\a\"\r\n");
    CHECK(backup.exported().Bytes() ==
          "REGEDIT4\r\n\r\n[HKEY_LOCAL_MACHINE\\Software\\Evil]\r\n@=\"d\"\r\n\"n\"=dword:"
          "00000001\r\n"
          "\r\n[HKEY_LOCAL_MACHINE\\Software\\Evil\\[sub]]\r\n"
          "\r\n[HKEY_LOCAL_MACHINE\\Software\\Evil\\[sub]\\deep]\r\n\"b\"=hex:78\r\n"
          "\r\n[HKEY_CURRENT_USER\\Run]\r\n\"Evil\"=hex(2):25,78,25\r\n");
    CHECK(backup.exported64().Bytes() ==
          "REGEDIT4\r\n\r\n[HKEY_LOCAL_MACHINE\\Software\\Evil64]\r\n");
    REQUIRE(backup.left_out().size() == 1);
    CHECK(backup.left_out()[0].path == "HKEY_LOCAL_MACHINE\\Software\\Evil\\bad\r\nname");
    CHECK(backup.left_out()[0].why.description() == "a script cannot hold what is in it");
  }

  TEST_CASE("a backup does not follow links, nor fail for them") {
    Bench b;
    b.m.registry.Make(RootKey::LocalMachine, "Evil").Value("v", "x");
    b.m.registry.Link(RootKey::LocalMachine, "Evil\\way", "Evil");
    RegistryBackup backup(b.m.registry, nullptr, b.m.pump, b.m.code_pages, ScriptReader::Unicode);
    const std::string key = "HKEY_LOCAL_MACHINE\\Evil";
    backup.Add(KeyAt(key));
    CHECK(backup.exported().Bytes() == "REGEDIT4\r\n\r\n[" + key + "]\r\n\"v\"=hex(1):78\r\n");
    CHECK(backup.left_out().empty());
    REQUIRE(backup.notes().size() == 1);
    CHECK(backup.notes()[0].path == key + "\\way");
  }
}

}  // namespace scourwell::test
