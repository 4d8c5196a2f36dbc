// SPDX-License-Identifier: MIT
#include "machine/reg_script_reader.h"

#include "machine/reg_script.h"
#include "tests/support.h"

namespace scourwell::test {
namespace {

std::string Bytes(std::string_view data) {
  std::string text;
  for (const char c : data) text += Hex(static_cast<unsigned char>(c), 2);
  return text;
}

// "key", "key|name=type:bytes", "key|name=-" and "?line", one a line.
std::string Told(const ScriptContent& content) {
  std::string text;
  for (const ScriptKey& key : content.keys) {
    text += (key.erased ? "-" : "") + key.path + "\n";
    for (const ScriptValue& value : key.values) {
      text += " " + value.name + "=";
      text += value.erased ? "-" : std::to_string(value.value.type) + ":" + Bytes(value.value.data);
      text += "\n";
    }
  }
  for (const std::string& line : content.refused) text += "?" + line + "\n";
  return text;
}

std::string Read(const std::string& lines) {
  FakeCodePages pages;
  ScriptContent content;
  REQUIRE(
      ReadRegScript("REGEDIT4\r\n\r\n[HKEY_CURRENT_USER\\k]\r\n" + lines, pages, &content).ok());
  const std::string told = Told(content);
  constexpr std::string_view kFirst = "HKEY_CURRENT_USER\\k\n";
  return told.starts_with(kFirst) ? told.substr(kFirst.size()) : "(no key) " + told;
}

}  // namespace

TEST_SUITE("reg_script_reader") {
  TEST_CASE("whatever the writer writes is read as it was, in either form") {
    for (const ScriptReader form : {ScriptReader::Ansi, ScriptReader::Unicode}) {
      FakeCodePages pages;
      RegScript script(pages, form);
      std::vector<std::pair<std::string, RegValue>> values;
      for (std::uint32_t type = 0; type < 13; ++type) {
        for (const std::string& data :
             {std::string(), std::string("a"), std::string("abcd"), std::string("a\\\"b\0", 5),
              std::string("x\r\ny\0z\0\0", 8), std::string(400, 'q')}) {
          values.push_back({"n" + std::to_string(values.size()), {type, data}});
        }
      }
      values.push_back({"", {kRegText, std::string("unnamed\0", 8)}});
      values.push_back({"q\"\\ = ;", {0x89ABCDEF, "\x80\xFF"}});
      values.push_back({"\u00FC", {kRegMultiText, std::string("\u00FC\0\0", 4)}});
      if (form == ScriptReader::Unicode) {
        values.push_back({"\u0141\u8868", {kRegExpandText, "\u0141", '\x7F'}});
      }
      const std::string key = "HKEY_LOCAL_MACHINE\\a]b [c] ; d";
      REQUIRE(script.AddKey(key));
      for (const auto& [name, value] : values) REQUIRE(script.AddValue(name, value));
      for (const bool marked : {false, true}) {
        const std::string bytes = script.Bytes(marked);
        CHECK(BearsScriptMark(bytes.substr(0, 300)) == marked);
        ScriptContent content;
        REQUIRE(ReadRegScript(bytes, pages, &content).ok());
        CHECK(Lines(content.refused) == "");
        REQUIRE(content.keys.size() == 1);
        CHECK(content.keys[0].path == key);
        REQUIRE(content.keys[0].values.size() == values.size());
        for (std::size_t i = 0; i < values.size(); ++i) {
          const ScriptValue& read = content.keys[0].values[i];
          CAPTURE(i);
          CHECK(read.name == values[i].first);
          CHECK(read.value.type == values[i].second.type);
          CHECK(Bytes(read.value.data) == Bytes(values[i].second.data));
          CHECK(read.value.half_character == values[i].second.half_character);
        }
      }
    }
  }

  TEST_CASE("each line means what it says, or is refused") {
    for (const auto& [lines, told] : Rows<std::string, std::string>{
             {"\"n\"=dword:1\r\n", " n=4:01000000\n"},
             {"\"n\"=dword:0000000aF\r\n", "?\"n\"=dword:0000000aF\n"},
             {"\"n\"=dword:\n", "?\"n\"=dword:\n"},
             {" \t@ = \"a\\\\b\" ; why\n", " =1:615C6200\n"},
             {"@=\"a\" \"b\"\n", "?@=\"a\" \"b\"\n"},
             {"\"a=b\"=-\n", " a=b=-\n"},
             {"\"open\n\"=\"x\"\n", "?\"open\n?\"=\"x\"\n"},
             {"\"a\\n\"=\"x\"\n", "?\"a\\n\"=\"x\"\n"},
             {"\"n\"=HEX:0a,\\\r\n  fF,1\r\n", " n=3:0AFF01\n"},
             {"\"n\"=hex:0a,\\\r\n [HKEY_LOCAL_MACHINE\\x]\n\"m\"=hex:00\n",
              " m=3:00\n?\"n\"=hex:0a,\\\n"},
             {"\"n\"=hex:0a,gg,\\\r\n  \"m\"=\"x\"\n", "?\"n\"=hex:0a,gg,\\\n"},
             {"\"n\"=hex:0a,\\", " n=3:0A\n"},
             {"\"n\"=hex(:00\n", "?\"n\"=hex(:00\n"},
             {"\"n\"=hex(123456789):00\n", "?\"n\"=hex(123456789):00\n"},
             {"\"n\"=hex(7):61,00,00\n", " n=7:610000\n"},
             {"\"n\"=hex(b):00 , 01,\n", " n=11:0001\n"},
             {"\"n\"=123\n", "?\"n\"=123\n"},
             {"n=\"x\"\n", "?n=\"x\"\n"},
             {";[HKEY_USERS]\n\n", ""},
             {"[-HKEY_USERS\\a]\n\"x\"=\"y\"\n", "-HKEY_USERS\\a\n?\"x\"=\"y\"\n"},
             {"[HKEY_USERS\\a]\n@=-\n", "HKEY_USERS\\a\n =-\n"},
             {"[HKEY_USERS\n\"x\"=\"y\"\n", "?[HKEY_USERS\n?\"x\"=\"y\"\n"},
             {"[HKEY_USERS\\a] x\n@=\"\"\n", "?[HKEY_USERS\\a] x\n?@=\"\"\n"},
             {"[]\n", "?[]\n"},
             {std::string("[a\0b]\n", 6), std::string("?[a\0b]\n", 7)},
         }) {
      CAPTURE(lines);
      CHECK(Read(lines) == told);
    }
    std::string many;
    for (int i = 0; i < 5000; ++i) many += "nonsense\n";
    const std::string told = Read(many + std::string(100'000, 'x'));
    CHECK((std::ranges::count(told, '\n') == 100));
  }

  TEST_CASE("other files are no scripts") {
    FakeCodePages pages;
    ScriptContent content;
    for (const std::string& bytes :
         {std::string(), std::string("REGEDIT"), std::string("REGEDIT5\n[HKEY_USERS\\a]\n"),
          std::string("\xFF\xFER\0E\0G\0", 8), std::string("MZ\0\0", 4),
          std::string("Windows Registry Editor Version 5.00\r\n[HKEY_USERS\\a]\n")}) {
      CAPTURE(bytes);
      CHECK(ReadRegScript(bytes, pages, &content).code() == kTypeMismatch);
    }
    CHECK(content.keys.empty());
  }
}

}  // namespace scourwell::test
