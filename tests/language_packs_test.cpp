// SPDX-License-Identifier: MIT

// Every pack in lang/ is checked, and the checker is checked with packs that are wrong.
#include <doctest/doctest.h>

#include <cstdio>
#include <filesystem>

#include "engine/caption_table.h"
#include "shell/language_list.h"
#include "shell/small_bitmap.h"
#include "tests/helpers.h"
#include "tests/pack_check.h"
#include "text/text.h"
#include "widgets/access_keys.h"

namespace scourwell::test {
namespace {

constexpr char kPacks[] = SCOURWELL_SOURCE_DIR "/lang";

std::string ContentOf(const std::string& path) {
  std::string content(1 << 20, '\0');
  std::FILE* file = std::fopen(path.c_str(), "rb");
  if (!file) return {};
  content.resize(std::fread(content.data(), 1, content.size(), file));
  std::fclose(file);
  return content;
}

// A good pack with the English texts.
std::string GoodPack() {
  std::string text =
      "; Scourwell language pack: X (ANSI code page 1252).\r\n"
      "; \"#\" inside a message stands for a line break.\r\n"
      "[Language Pack]\r\nCodePage=1252\r\n[Adware Language Pack]\r\n";
  for (std::size_t i = 0; i < kCaptionCount; ++i) {
    text += std::to_string(NumberOf(kCaptions[i].caption)) + "=" +
            std::string(TrimBlanks(kCaptions[i].text)) + "\r\n";
  }
  return text;
}

// With the text of one number replaced.
std::string With(int number, const std::string& text, std::string pack = GoodPack()) {
  const std::size_t at = pack.find("\n" + std::to_string(number) + "=") + 1;
  const std::size_t value = pack.find('=', at) + 1;
  return pack.replace(value, pack.find('\r', value) - value, text);
}

}  // namespace

TEST_SUITE("language_packs") {
  TEST_CASE("the packs are good, and the English one holds the table's texts") {
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(kPacks)) {
      if (entry.path().extension() != ".ini") continue;
      ++count;
      CHECK(FaultsOfPack(entry.path().filename().string(), ContentOf(entry.path().string())) == "");
      const std::filesystem::path picture =
          std::filesystem::path(entry.path()).replace_extension("bmp");
      CHECK_MESSAGE(IsSmallBitmap(ContentOf(picture.string())), picture);
    }
    CHECK(count >= 10);
    CHECK(ContentOf(kPacks + std::string("/English.ini")) ==
          ReplaceAll(GoodPack(), "pack: X", "pack: English"));
  }

  TEST_CASE("a wrong text is named") {
    const Rows<int, std::string, std::string> kWrong{
        {1502, "", "empty"},
        {1502, "Details ", "blanks or quotes at its ends would be lost"},
        {1502, "\"Details\"", "blanks or quotes at its ends would be lost"},
        {1502, "50 %", "other place holders"},
        {1502, "a|b", "a \"|\" too many"},
        {1502, std::string(23, 'x'), "longer than the 22 columns that have room"},
        {1847, std::string(69, 'x'), "longer than the 68 columns that have room"},
        {1534, "one#two", "other line breaks"},
        {1756, "Scans", "\":\" at the end differs"},
        {1767, "Loading", "\"...\" at the end differs"},
        {17003, "It could not start:", "the program's name is lost"},
        {1700, "R&D", "an access key that nothing shows"},
        {17022, "Folder:", "no usable access key"},
        {17022, "Folder&:", "no usable access key"},
        {17022, "&\xDC:", "no usable access key"},
        {17113, "Log files|*.txt|", "other file patterns"},
        {17239, "entry|entries|many", "more forms than the rule of the pack has"},
        {17239, "entry|", "a form is not clean"},

        {17246, "P (*.exe)|*.exe|All (*.txt)|*.txt", "other file patterns"},
    };
    for (const auto& [number, text, fault] : kWrong) {
      CHECK(FaultsOfPack("X.ini", With(number, text)) ==
            "X.ini: " + std::to_string(number) + ": " + fault + "\n");
    }
    CHECK(FaultsOfPack("X.ini", With(17499, "Latin")).ends_with("17499: no rule of counting\n"));
    // What the program would cut.
    CHECK(FaultsOfPack("X.ini", With(1847, std::string(500, 'x')))
              .starts_with("X.ini: 1847: longer than 499 bytes\n"));
  }

  TEST_CASE("letters of other code pages are counted, compared and named as such") {
    const auto faults = [](const std::string& page, int number, const std::string& text) {
      return FaultsOfPack("X.ini", ReplaceAll(With(number, text), "1252", page));
    };
    const std::string exit = "\xC2\xFB\xF5\xEE\xE4";       // of 1251
    const std::string signs = "\x83\x7C\x83\x62\x83\x76";  // of 932, with a bar and a letter in it
    CHECK(faults("1251", 17013, "&" + exit) == "");
    CHECK(faults("1251", 1502, std::string(22, '\xD9')) == "");
    CHECK(faults("932", 1502, ReplaceAll("11111111111", "1", signs.substr(0, 2))) == "");
    CHECK(faults("932", 17013, signs + "(&X)") == "");
    CHECK(faults("932", 17016, signs + "(&N) >") == "");
    CHECK(faults("932", 1842, signs) == "");
    const Rows<std::string, int, std::string, std::string> kWrong{
        {"1251", 1502, std::string(23, '\xD9'), "longer than the 22 columns that have room"},
        {"1251", 17022, "&\xDC" + exit + ":", "no usable access key"},
        {"932", 1502, ReplaceAll("111111111111", "1", signs.substr(0, 2)),
         "longer than the 22 columns that have room"},
        {"932", 17022, "&" + signs + ":", "no usable access key"},
        {"932", 17013, "(&X)" + signs, "the access key does not stand behind it"},
    };
    for (const auto& [page, number, text, fault] : kWrong) {
      CHECK(faults(page, number, text) == "X.ini: " + std::to_string(number) + ": " + fault + "\n");
    }
    // The key that a button gets takes room too.
    CHECK(faults("932", 1803, signs + signs + signs + signs) ==
          "X.ini: the buttons have no room in: results, upper buttons, 457 pixels\n");
    // Small and capital letters are the same key.
    const std::string twice = With(17012, "\xEF&\xE2...", With(17013, "&" + exit));
    CHECK(FaultsOfPack("X.ini", ReplaceAll(twice, "1252", "1251")) ==
          "X.ini: 17013: its key is that of 17012 in: Scan menu\n");
  }

  TEST_CASE("captions without a key get one that can be typed") {
    AccessKeys keys({"&\xD0\x9E", "&B"});
    CHECK(keys.Add("\xD0\xBE\xD0\xA2") == "\xD0\xBE&\xD0\xA2");
    CHECK(keys.Add("\xD1\x82\xD1\x8C") == "\xD1\x82\xD1\x8C");
    CHECK(keys.Add("\xC3\x84r") == "\xC3\x84&r");
    CHECK(keys.Add("\xE8\xA1\xA8...") == "\xE8\xA1\xA8(&A)...");
    CHECK(keys.Add("\xE8\xA1\xA8:") == "\xE8\xA1\xA8(&C):");
    // Bytes that are no UTF-8.
    CHECK(keys.Add("\xE4\xD0") == "\xE4\xD0");
  }

  TEST_CASE("captions that stand together need keys and room of their own") {
    CHECK(FaultsOfPack("X.ini", With(17013, "&Finish")) ==
          "X.ini: 17013: its key is that of 17012 in: Scan menu\n");
    // The keys that a window gives by itself count as well.
    CHECK(FaultsOfPack("X.ini", With(17017, "&Continue")) ==
          "X.ini: 17017: its key is that of 1803 in: results\n");
    CHECK(FaultsOfPack("X.ini", With(1842, "\xC4")) ==
          "X.ini: 1842: no letter is left for a key in: results\n");
    CHECK(FaultsOfPack("X.ini", ReplaceAll(With(1803, "Check all the components"), "Exclude\r",
                                           "Exclude them all\r")) ==
          "X.ini: the buttons have no room in: results, upper buttons, 478 pixels\n");
  }

  TEST_CASE("a wrong file is named") {
    const std::string good = GoodPack();
    CHECK(FaultsOfPack("X.ini", good) == "");
    const Rows<std::string, std::string, std::string> kWrong{
        {"1404=Creation Date\r\n", "", "1404: missing"},
        {"1404=Creation Date\r\n", "1404=Date\r\n1404=Date\r\n", "1404: there twice"},
        {"1400=", "1399=x\r\n1400=", "1399: no such caption"},
        {"1404=Creation Date\r\n1405=Name\r\n", "1405=Name\r\n1404=Date\r\n", "1404: out of order"},
        {"413=", "; remark\r\n413=", "line 6: no caption"},
        {"Enabled\r\n", "Enabled\n", "line 6: wrong line end"},
        {"Enabled\r\n", "Da\x81te\r\n", "line 6: a byte that code page 1252 lacks"},
        {"Enabled\r\n", "D\xC3\xA4te\r\n", "line 6: looks like UTF-8"},
        {"Enabled\r\n", "\xE6\x9C\x89\r\n", "line 6: looks like UTF-8"},
        {"Enabled\r\n", "Enabled\t.\r\n", "line 6: a control character"},
        {"page 1252", "page 1250",
         "line 1: not \"; Scourwell language pack: X (ANSI code page 1252).\""},
        {"pack: X", "pack: Y",
         "line 1: not \"; Scourwell language pack: X (ANSI code page 1252).\""},
        {"[Language Pack]", "[Language]", "line 3: not \"[Language Pack]\""},
    };
    for (const auto& [from, to, fault] : kWrong) {
      std::string pack = good;
      REQUIRE(pack.find(from) != pack.npos);
      pack.replace(pack.find(from), from.size(), to);
      CHECK(FaultsOfPack("X.ini", pack) == "X.ini: " + fault + "\n");
    }
    CHECK(FaultsOfPack("X.ini", ReplaceAll(good, "1252", "1299")) ==
          "X.ini: unknown code page 1299\n");
    CHECK(FaultsOfPack("X.ini", "").starts_with("X.ini: line 1: not \""));
  }
}

}  // namespace scourwell::test
