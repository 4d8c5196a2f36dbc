// SPDX-License-Identifier: MIT
#include "text/unicode.h"

#include "platform/code_pages.h"
#include "tests/support.h"
#include "text/escaped.h"
#include "text/windows_1252.h"

namespace scourwell::test {
namespace {

// Any 16-bit units, with many halves of pairs among them.
std::u16string RandomUnits(Dice& dice) {
  std::u16string units;
  for (std::size_t left = dice.Below(12); left > 0; --left) {
    constexpr char16_t kFirst[] = {0, 0x80, 0x800, 0xD800, 0xDC00, 0xFFF0};
    units += static_cast<char16_t>(kFirst[dice.Below(6)] + dice.Below(16));
  }
  return units;
}

std::string RandomBytes(Dice& dice) {
  std::string bytes;
  for (std::size_t left = dice.Below(8); left > 0; --left) {
    constexpr unsigned char kFirst[] = {0x20, 0x80, 0xBF, 0xC0, 0xE0, 0xED, 0xF0, 0xF4};
    bytes += static_cast<char>(kFirst[dice.Below(8)] + dice.Below(4));
  }
  return bytes;
}

}  // namespace

TEST_SUITE("unicode") {
  TEST_CASE("every name goes to UTF-8 and back unchanged") {
    Dice dice(3);
    for (int round = 0; round < 20'000; ++round) {
      const std::u16string units = RandomUnits(dice);
      const std::string text = FromUtf16(units);
      REQUIRE(ToUtf16(text) == units);
      REQUIRE(IsWellFormed(text));
    }
    CHECK(FromUtf16(u"\U0001F600\xD83D") == "\U0001F600\xED\xA0\xBD");
  }

  TEST_CASE("any bytes are walked to their end, and what is no character stays as it is") {
    Dice dice(4);
    for (int round = 0; round < 20'000; ++round) {
      const std::string bytes = RandomBytes(dice);
      std::string again;
      for (std::size_t at = 0; at < bytes.size();) AppendCode(NextCode(bytes, &at), &again);
      REQUIRE(again == bytes);
      const std::size_t most = dice.Below(9);
      const std::string_view cut = WholeCharacters(bytes, most);
      REQUIRE(cut.size() <= most);
      if (IsWellFormed(bytes)) REQUIRE(IsWellFormed(cut));
    }
    for (const char* wrong : {"\x80", "\xC0\x80", "\xE0\x80\x80", "\xF4\x90\x80\x80", "\xE8\xA1"}) {
      CHECK_FALSE(IsWellFormed(wrong));
      for (const char16_t unit : ToUtf16(wrong)) CHECK(unit == 0xFFFD);
    }
    CHECK(ToUtf16("a\xFF"
                  "b") == u"a\uFFFDb");
  }
}

TEST_SUITE("escaped") {
  TEST_CASE("what a code page lacks is spelled, and read back exactly") {
    FakeCodePages pages;
    for (const auto& [text, bytes] : Rows<std::string, std::string>{
             {"plain <U>", "plain <U>"},
             {"\u00FC\u20AC", "\xFC\x80"},
             {"C:\\\u0141\u00F3dka",
              "C:\\<U+0141>\xF3"
              "dka"},
             {"\U0001F600", "<U+1F600>"},
             {"half \xED\xA0\x80", "half <U+D800>"},
             {"<U+0141>", "<U+003C>U+0141>"},
             {"<U+\u0141<U+", "<U+003C>U+<U+0141><U+003C>U+"},
         }) {
      CAPTURE(text);
      CHECK(pages.ToFile(text) == bytes);
      CHECK(pages.FromFile(bytes) == text);
    }
    for (const char* other :
         {"<U+>", "<U+12>", "<U+12345678>", "<U+00e4>", "<U+110200>", "<U+0041"}) {
      CHECK(pages.FromFile(other) == other);
    }
    pages.system = 1250;
    CHECK(pages.ToFile("\u0142\u0416") == "\xB3<U+0416>");
    Dice dice(5);
    for (int round = 0; round < 5'000; ++round) {
      const std::string text = FromUtf16(RandomUnits(dice)) + (dice.Chance(3) ? "<U+" : "");
      REQUIRE(pages.FromFile(pages.ToFile(text)) == text);
    }
  }

  TEST_CASE("half of a pair is spelled even where it has bytes of its own") {
    // Alone it goes through, beside anything else it does not.
    class HalvesAlone : public FakeCodePages {
     public:
      std::optional<std::string> Encode(std::string_view text) override {
        if (text == "\xED\xA0\x80") return "\x80";
        return FakeCodePages::Encode(text);
      }
    } pages;
    CHECK(pages.Spelled("a\xED\xA0\x80") == "a<U+D800>");
  }

  TEST_CASE("nothing that is shown can hide, turn round or end a line") {
    CHECK(ForShowing("C:\\\u0141\u8868\U0001F600 x") == "C:\\\u0141\u8868\U0001F600 x");
    CHECK(ForShowing("a\u202Eexe.b\r\n\t\x7F") == "a<U+202E>exe.b<U+000D><U+000A><U+0009><U+007F>");
    CHECK(ForShowing("\u200B\u00A0\u2066\uFEFF\xED\xA0\x80\xFF") ==
          "<U+200B><U+00A0><U+2066><U+FEFF><U+D800><U+1100FF>");
    CHECK(ForShowing("<U+202E>") == "<U+003C>U+202E>");
    CHECK(LinesForShowing("a\r\n\tb\u202E") == "a\r\n\tb<U+202E>");
  }

  TEST_CASE("a message breaks words that a box would cut off, paths after a separator") {
    const std::string fits(40, 'x');
    CHECK(MessageForShowing("a " + fits + " b\n" + fits) == "a " + fits + " b\n" + fits);
    CHECK(MessageForShowing(fits + fits + "y.exe b") == fits + "\r\n" + fits + "\r\ny.exe b");
    CHECK(MessageForShowing("C:\\a\\" + fits + ".exe") == "C:\\a\\\r\n" + fits + "\r\n.exe");
    CHECK(MessageForShowing("C:\\my files\\" + fits) == "C:\\my files\\\r\n" + fits);
    CHECK(MessageForShowing("C:\\a " + fits + "y") == "C:\\a " + fits + "\r\ny");
    std::string japanese;
    for (int i = 0; i < 60; ++i) japanese += "\u8868";
    CHECK(MessageForShowing(japanese) == japanese);
  }

  TEST_CASE("code page 1252 holds its letters and no similar ones") {
    std::string all;
    for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
    CHECK(To1252(From1252(all)) == all);
    for (const char* lacking : {"\u0141", "\uFF57", "\u2215", "\U0001F600"})
      CHECK(To1252(lacking) == std::nullopt);
  }
}

}  // namespace scourwell::test
