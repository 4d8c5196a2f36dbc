// SPDX-License-Identifier: MIT
#include <doctest/doctest.h>

#include <algorithm>
#include <vector>

#include "tests/contract/contract.h"
#include "text/escaped.h"
#include "text/text.h"
#include "text/unicode.h"

namespace scourwell::test {
namespace {

constexpr RootKey kUser = RootKey::CurrentUser;

struct InRegistry {
  std::unique_ptr<ContractMachine> machine = NewContractMachine();
  Registry& registry = machine->registry();
  std::string root = machine->key();

  RegStatus Set(const std::string& path, const std::string& name, const std::string& data,
                std::uint32_t type = kRegBinary) {
    return registry.SetValue(kUser, root + path, name, {type, data});
  }
  std::string Get(const std::string& path, const std::string& name) {
    RegValue value{99, "(none)"};
    const RegStatus status = registry.QueryValue(kUser, root + path, name, &value);
    if (value.type == kRegText) value.data = TrimNull(value.data);
    return value.data + (status ? std::to_string(status) : "");
  }
  std::string Keys(const std::string& path) {
    std::vector<std::string> names;
    const RegStatus status = registry.EnumKeys(kUser, root + path, [&](const std::string& name) {
      names.push_back(name);
      return true;
    });
    return Sorted(status, names);
  }
  std::string Values(const std::string& path) {
    std::vector<std::string> names;
    const RegStatus status = registry.EnumValues(
        kUser, root + path, [&](const std::string& name, const RegValue& value) {
          names.push_back(name + "=" + std::to_string(value.type) + value.data.substr(0, 1));
          return true;
        });
    return Sorted(status, names);
  }
  static std::string Sorted(RegStatus status, std::vector<std::string>& names) {
    std::sort(names.begin(), names.end());
    std::string text = status ? "!" + std::to_string(status) : "";
    for (const std::string& name : names) text += name + " ";
    return text;
  }
};

}  // namespace

TEST_SUITE("contract_registry") {
  TEST_CASE("values keep their type and bytes") {
    InRegistry r;
    const std::string bytes("\0\1\xFF\0", 4);
    CHECK(r.Set("\\new\\deep", "Data", bytes) == kRegOk);
    CHECK(r.Get("\\NEW\\deep", "DATA") == bytes);
    CHECK(r.Set("", "", "unnamed", kRegText) == kRegOk);
    CHECK(r.Get("", "") == "unnamed");
    CHECK(r.Set("", "text", "one", kRegText) == kRegOk);
    CHECK(r.Set("", "TEXT", "two", kRegText) == kRegOk);
    CHECK(r.Get("", "text") == "two");
    CHECK(r.Set("", "odd", "x", 8) == kRegOk);
    CHECK(r.Set("", "large", std::string(70'000, 'l')) == kRegOk);
    CHECK(r.Get("", "large").size() == 70'000);
    CHECK(r.Values("") == "=1u large=3l odd=8x text=1t ");
    CHECK(r.Get("", "none") == "(none)2");
    CHECK(r.Get("\\none", "text") == "(none)2");
  }

  TEST_CASE("values are deleted") {
    InRegistry r;
    r.Set("", "a", "1");
    r.Set("", "", "2");
    CHECK(r.registry.DeleteValue(kUser, r.root, "A") == kRegOk);
    CHECK(r.registry.DeleteValue(kUser, r.root, "a") == kRegNotFound);
    CHECK(r.registry.DeleteValue(kUser, r.root, "") == kRegOk);
    CHECK(r.registry.DeleteValue(kUser, r.root + "\\none", "a") == kRegNotFound);
    CHECK(r.Values("") == "");
  }

  TEST_CASE("a key is made with those above it, and one that is there stays as it is") {
    InRegistry r;
    CHECK(r.registry.CreateKey(kUser, r.root + "\\a\\b") == kRegOk);
    CHECK(r.Keys("\\a") == "b ");
    CHECK(r.Values("\\a\\b") == "");
    r.Set("\\a\\b", "v", "1");
    CHECK(r.registry.CreateKey(kUser, r.root + "\\A\\B") == kRegOk);
    CHECK(r.Values("\\a\\b") == "v=31 ");
  }

  TEST_CASE("keys are opened and enumerated") {
    InRegistry r;
    for (const char* path : {"\\b", "\\A", "\\b\\deep", "\\c"}) r.Set(path, "v", "1");
    CHECK(r.Keys("") == "A b c ");
    CHECK(r.Keys("\\") == "A b c ");
    CHECK(r.Keys("\\B") == "deep ");
    CHECK(r.Keys("\\c") == "");
    CHECK(r.Keys("\\none") == "!2");
    CHECK(r.Values("\\none") == "!2");
    r.Set("\\b", "w", "2");
    RegCounts counts;
    CHECK(r.registry.Count(kUser, r.root, &counts) == kRegOk);
    CHECK((counts.keys == 3 && counts.values == 0));
    CHECK(r.registry.Count(kUser, r.root + "\\none", &counts) == kRegNotFound);
    CHECK(counts.keys == 3);  // as it was
    CHECK(r.registry.Count(kUser, r.root + "\\B", &counts) == kRegOk);
    CHECK((counts.keys == 1 && counts.values == 2));
    int visits = 0;
    CHECK(r.registry.EnumKeys(kUser, r.root, [&](const std::string&) { return ++visits < 2; }) ==
          kRegOk);
    CHECK(visits == 2);
    for (const std::uint32_t rights : {std::uint32_t{kKeyRead}, std::uint32_t{kKeyAllRights}}) {
      CHECK(r.registry.TryOpen(kUser, r.root + "\\b\\deep", rights) == kRegOk);
      CHECK(r.registry.TryOpen(kUser, r.root + "\\b\\none", rights) == kRegNotFound);
    }
    CHECK(r.registry.TryOpen(kUser, "", kKeyRead) == kRegOk);
  }

  TEST_CASE("a key with subkeys stays whole or goes whole") {
    InRegistry r;
    // Wine as Windows 98 needs each name to be shorter than the one before it.
    r.Set("\\tree\\long", "v", "1");
    r.Set("\\tree\\two", "v", "1");
    CHECK(r.registry.DeleteKeyCall(kUser, r.root + "\\none") == kRegNotFound);
    const RegStatus status = r.registry.DeleteKeyCall(kUser, r.root + "\\tree");
    if (status == kRegAccessDenied) {
      CHECK(r.Keys("\\tree") == "long two ");
      CHECK(r.registry.DeleteKeyCall(kUser, r.root + "\\tree\\long") == kRegOk);
      CHECK(r.registry.DeleteKeyCall(kUser, r.root + "\\TREE\\two") == kRegOk);
      CHECK(r.registry.DeleteKeyCall(kUser, r.root + "\\tree") == kRegOk);
    } else {
      CHECK(status == kRegOk);
    }
    CHECK(r.Keys("") == "");
  }

  TEST_CASE("a key whose path holds a NUL is not the one that is called what stands before it") {
    InRegistry r;
    r.Set("\\plain", "v", "1");
    const std::string path = r.root + std::string("\\plain\0hidden", 13);
    bool link = false;
    RegCounts counts;
    CHECK(r.registry.DeleteKeyCall(kUser, path) == kRegInvalidParameter);
    CHECK(r.registry.IsLink(kUser, path, &link) == kRegInvalidParameter);
    CHECK(r.registry.TryOpen(kUser, path, kKeyRead) == kRegInvalidParameter);
    CHECK(r.registry.Count(kUser, path, &counts) == kRegInvalidParameter);
    CHECK(r.registry.CreateKey(kUser, path) == kRegInvalidParameter);
    CHECK(r.registry.DeleteValue(kUser, path, "v") == kRegInvalidParameter);
    CHECK(r.Values("\\plain") == "v=31 ");
    CHECK(r.Keys("") == "plain ");
  }

  TEST_CASE("every value is listed with its own data, whatever it is called") {
    InRegistry r;
    const std::string hidden("name\0hidden", 11);
    r.Set("", "large", std::string(70'000, 'l'));
    r.Set("", "name", std::string("good\0", 5), kRegText);
    if (!r.machine->MakeOddValues(hidden, std::string("bad\0", 4))) return;
    // What a code page lacks stands there as "?", which leads nowhere.
    const bool spelled = r.machine->holds_any_name();
    const std::string odd = spelled ? "\uF8FF" : "?";
    const std::string rest = "large=3l " + hidden + "=1b name=1g ";
    CHECK(r.Values("") == (spelled ? rest + odd + "=1b " : odd + "=1b " + rest));
    RegValue value;
    CHECK((r.registry.QueryValue(kUser, r.root, odd, &value) == kRegOk) == spelled);
    CHECK(r.registry.QueryValue(kUser, r.root, hidden, &value) != kRegOk);
    CHECK(r.registry.DeleteValue(kUser, r.root, hidden) != kRegOk);
    CHECK((r.registry.DeleteValue(kUser, r.root, odd) == kRegOk) == spelled);
    CHECK(r.registry.SetValue(kUser, r.root, hidden, {kRegText, "x"}) != kRegOk);
    CHECK(r.Get("", "name") == "good");
  }

  TEST_CASE("names and texts of every script go there and back") {
    InRegistry r;
    const std::string stray = "half \xED\xA0\x80";  // of a surrogate pair
    for (const char* name :
         {"z\u00FCrich", "\u0141\u00F3dka", "\u8868\u30BD", "\U0001F600", stray.c_str()}) {
      CAPTURE(std::string(name));
      const RegStatus made =
          r.Set("\\" + std::string(name), name, name + std::string(1, '\0'), kRegText);
      const bool possible =
          name == stray ? r.machine->makes_half_pairs() : r.machine->holds_any_name();
      if (!possible && made != kRegOk) continue;
      REQUIRE(made == kRegOk);
      CHECK(r.Get("\\" + std::string(name), name) == name);
      CHECK(r.Keys("") == std::string(name) + " ");
      CHECK(r.Values("\\" + std::string(name)).starts_with(std::string(name) + "=1"));
      CHECK(r.registry.DeleteKeyCall(kUser, r.root + "\\" + name) == kRegOk);
    }
    CHECK(r.Keys("") == "");
  }

  TEST_CASE("a text of an odd number of bytes stays as it is") {
    InRegistry r;
    RegValue value{kRegExpandText, "%x%\u00E9"};
    if (r.machine->holds_any_name()) value.half_character = 'x';
    REQUIRE(r.registry.SetValue(kUser, r.root, "odd", value) == kRegOk);
    RegValue back;
    REQUIRE(r.registry.QueryValue(kUser, r.root, "odd", &back) == kRegOk);
    CHECK(back.data.starts_with(value.data));
    CHECK(back.half_character == value.half_character);
  }

  TEST_CASE("a link is read through, and goes alone") {
    InRegistry r;
    r.Set("\\kept", "v", "1");
    if (!r.machine->MakeKeyLink(r.root + "\\link", r.root + "\\kept")) return;
    const auto is_link = [&](const std::string& path) {
      bool link = false;
      const RegStatus status = r.registry.IsLink(kUser, r.root + path, &link);
      return std::to_string(status) + (link ? " link" : "");
    };
    CHECK(r.Values("\\link") == "v=31 ");
    CHECK(is_link("\\link") == "0 link");
    CHECK(is_link("\\kept") == "0");
    CHECK(is_link("\\none") == "2");
    CHECK(r.registry.DeleteKeyCall(kUser, r.root + "\\link") == kRegOk);
    CHECK(r.Keys("") == "kept ");
    CHECK(r.Values("\\kept") == "v=31 ");
  }
}

TEST_SUITE("contract_profiles") {
  TEST_CASE("keys are written, read and deleted without touching the others") {
    const auto machine = NewContractMachine();
    Profiles& profiles = machine->profiles();
    const std::string file = machine->folder() + "\\test.ini";
    CHECK(profiles.ReadProfile("S", "k", file) == "");
    CHECK(profiles.WriteProfile("S", "k", "one", file).ok());
    CHECK(profiles.WriteProfile("S", "other", "C:\\x=y", file).ok());
    CHECK(profiles.WriteProfile("T", "k", "two", file).ok());
    CHECK(profiles.WriteProfile("s", "K", "three", file).ok());
    CHECK(profiles.ReadProfile("S", "K", file) == "three");
    CHECK(profiles.ReadProfile("t", "k", file) == "two");
    CHECK(profiles.ReadProfile("S", "other", file) == "C:\\x=y");
    CHECK(profiles.WriteProfile("S", "k", std::nullopt, file).ok());
    CHECK(profiles.ReadProfile("S", "k", file) == "");
    CHECK(profiles.ReadProfile("S", "other", file) == "C:\\x=y");
    CHECK_FALSE(profiles.WriteProfile("S", "k", "x", machine->folder() + "\\none\\x.ini").ok());
  }

  TEST_CASE("a file of other hands is read by the usual rules") {
    const auto machine = NewContractMachine();
    const std::string file = machine->folder() + "\\test.ini";
    machine->MakeFile(file,
                      "k=0\r\n[S]\r\n;k=1\r\n  k =  \"quoted text\"  \r\nk=3\r\n[S]\r\nj=4\r\n");
    CHECK(machine->profiles().ReadProfile("S", "k", file) == "quoted text");
    CHECK(machine->profiles().ReadProfile("S", "none", file) == "");
    CHECK(machine->profiles().ReadProfile("S", "j", file) == "");
  }
}

TEST_SUITE("contract_code_pages") {
  TEST_CASE("bytes of a code page become text, and go back where they fit") {
    const auto machine = NewContractMachine();
    CodePages& pages = machine->code_pages();
    CHECK(pages.System() >= 437);
    std::string text;
    REQUIRE(pages.Decode(1250, "\xBF\xF3\xB3w, \xC6ma", &text).ok());
    CHECK(text == "\u017C\u00F3\u0142w, \u0106ma");
    const std::string plain("A=1\r\n\0;", 7);
    CHECK(pages.Decode(1250, plain, &text).ok());
    CHECK(text == plain);
    CHECK(pages.Encode(plain) == plain);
    if (pages.System() != 65001) CHECK(pages.Encode("\U0001F600") == std::nullopt);
    if (pages.System() == 1252) {
      CHECK(pages.Encode("z\u00F3\u20AC") == "z\xF3\x80");
      CHECK(pages.Encode("\u0142") == std::nullopt);  // its nearest letter is another one
    }
    // One that is not installed leaves the text alone.
    CHECK_FALSE(pages.Decode(12345, "x", &text).ok());
    CHECK(text == plain);
    CHECK(pages.Decode(1250, "", &text).ok());
    CHECK(text.empty());
  }

  TEST_CASE("what goes into a file comes back, halves of pairs and bytes of no character too") {
    const auto machine = NewContractMachine();
    CodePages& pages = machine->code_pages();
    for (const std::string& written :
         {FromUtf16(u"\xDC81.exe"), FromUtf16(u"\xDC81\xDC40"), FromUtf16(u"\x8868\xDC81"),
          FromUtf16(u"\xE4\xDCC4\xDCA4"), FromUtf16(u"\U0001F600\xDCFF"),
          FromUtf16(u"\xDCF0\xDC9F\xDC98\xDC80"), FromUtf16(u"\x0421\xD83D<U+")}) {
      CAPTURE(ForShowing(written));
      CHECK(pages.FromFile(pages.ToFile(written)) == written);
      std::string back = written;
      if (const auto bytes = pages.Encode(written)) {
        CHECK(pages.Decode(pages.System(), *bytes, &back).ok());
      }
      CHECK(back == written);
    }
    for (const char* bytes : {"\x81", "z\x81\x81 \xFD", "\xE8\xA1", "\xC3\xA4\xFF"}) {
      std::string text;
      CHECK(pages.Decode(pages.System(), bytes, &text).ok());
      CHECK(pages.Encode(text) == bytes);
    }
  }
}

TEST_SUITE("contract_clock") {
  TEST_CASE("times are plausible") {
    const auto machine = NewContractMachine();
    Clock& clock = machine->clock();
    const std::uint32_t first = clock.Ticks();
    CHECK(clock.Ticks() - first < 60'000);
    const LocalTime now = clock.Now();
    CHECK(now.year >= 2004);
    CHECK((now.month >= 1 && now.month <= 12 && now.day >= 1 && now.day <= 31));
    CHECK((now.hour >= 0 && now.hour < 24 && now.minute < 60 && now.second < 60));
    // Noon of 15 June 2003, UTC: the same day everywhere but at the date line.
    const LocalTime local = clock.ToLocal(127'001'520'000'000'000);
    CHECK((local.year == 2003 && local.month == 6 && (local.day == 15 || local.day == 16)));
    CHECK(local.second == 0);
    const std::string date = clock.ShortDate({2004, 3, 25, 13, 14, 15, 0});
    CHECK(date.find("25") != std::string::npos);
    CHECK(date.find("04") != std::string::npos);
    const std::string time = clock.TimeOfDay({2004, 3, 25, 13, 14, 15, 0});
    CHECK(time.find("14") != std::string::npos);
    CHECK(clock.GeneralDate({2004, 3, 25, 13, 14, 15, 0}) == date + " " + time);
  }
}

}  // namespace scourwell::test
