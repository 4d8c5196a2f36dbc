// SPDX-License-Identifier: MIT
#include "machine/counting.h"

#include <doctest/doctest.h>

#include <map>

#include "machine/reasons.h"
#include "tests/helpers.h"

namespace scourwell::test {
namespace {

class Pack : public Captions {
 public:
  std::map<Caption, std::string> texts;
  std::string Text(Caption caption) const override {
    const auto found = texts.find(caption);
    return found == texts.end() ? "" : found->second;
  }
};

// The numbers below a hundred, and some above, that have the first form, then those of the second.
std::string Forms(const std::string& rule) {
  Pack pack;
  pack.texts = {{Caption::PluralRule, rule}, {Caption::Entries, "one|few|many"}};
  std::string one = "one:";
  std::string few = "; few:";
  for (const std::uint64_t count : {0, 1, 2, 4, 5, 11, 12, 14, 21, 22, 25, 101, 102, 111, 112}) {
    const std::string form = FormFor(pack, count, Caption::Entries);
    if (form == "one") one += " " + std::to_string(count);
    if (form == "few") few += " " + std::to_string(count);
  }
  return one + few;
}

}  // namespace

TEST_SUITE("counting") {
  TEST_CASE("every rule knows which form a number takes") {
    CHECK(Forms("English") == "one: 1; few: 0 2 4 5 11 12 14 21 22 25 101 102 111 112");
    CHECK(Forms("French") == "one: 0 1; few: 2 4 5 11 12 14 21 22 25 101 102 111 112");
    CHECK(Forms("Polish") == "one: 1; few: 2 4 22 102");
    CHECK(Forms("Russian") == "one: 1 21 101; few: 2 4 22 102");
    CHECK(Forms("of nobody") == Forms("English"));
  }

  TEST_CASE("a caption may have fewer forms than its rule, or empty ones") {
    const Rows<std::string, std::uint64_t, std::string> kRows{
        {"shown", 1, "1 shown"}, {"a|b", 1, "1 a"}, {"a|b", 5, "5 b"}, {"a|b|c", 5, "5 c"},
        {"a|b|c", 2, "2 b"},     {"|b", 1, "1 "},   {"a|", 9, "9 "},   {"", 3, "3 "}};
    for (const auto& [text, count, told] : kRows) {
      Pack pack;
      pack.texts = {{Caption::PluralRule, "Polish"}, {Caption::Entries, text}};
      CHECK_MESSAGE(CountedText(pack, count, Caption::Entries) == told, text);
    }
  }

  TEST_CASE("sizes are rounded up, in units that keep them short") {
    const Rows<std::uint64_t, std::string> kRows{
        {0, "0 <17473>"},
        {1, "1 <17473>"},
        {1024, "1 <17473>"},
        {1025, "2 <17473>"},
        {9999 * 1024, "9999 <17473>"},
        {9999 * 1024 + 1, "10 <17474>"},
        {std::uint64_t{10000} << 20, "10 <17475>"},
        {~std::uint64_t{0}, "17179869184 <17475>"},
    };
    for (const auto& [bytes, text] : kRows) CHECK(SizeText(NumberCaptions(), bytes) == text);
  }

  TEST_CASE("reasons are told in the user's language, and the system's messages as they come") {
    const NumberCaptions captions;
    const Rows<Outcome, std::string> kRows{
        {Outcome(), ""},
        {Outcome::Failed(kDiskFull), "<17462>"},
        {Outcome::Failed(kPermissionDenied, "English"), "<2006>"},
        {Outcome::Failed(kPermissionDenied, "English").Because(Caption::ReasonProtected),
         "<17468>"},
        {Outcome::Failed(ErrorCode::System(1450), "Zu wenig."), "Zu wenig."},
        {Outcome::Failed(ErrorCode::System(1450)), "<17001> 1450"},
        {Outcome::Failed(ErrorCode::Registry(87), "English"), "<17001> 87"},
        {Outcome::Failed(ErrorCode::Component(-5), "English"), "<17001> -5"},
        {Outcome().Because(Caption::ReasonProtected), ""},
    };
    for (const auto& [outcome, text] : kRows) CHECK(ReasonText(captions, outcome) == text);
    // None of the classic numbers is told as a bare number.
    for (std::int32_t number = 1; number < 100; ++number) {
      const Outcome failed = Outcome::Failed(static_cast<ErrorNumber>(number));
      if (failed.description().starts_with("System error")) continue;
      CHECK(!ReasonText(captions, failed).starts_with("<17001>"));
    }
  }
}

}  // namespace scourwell::test
