// SPDX-License-Identifier: MIT
#include "text/ini_text.h"

#include "machine/watched_file.h"
#include "tests/support.h"

namespace scourwell::test {
namespace {

std::string Value(std::string content, std::string_view section, std::string_view key) {
  return std::string(IniText(std::move(content)).Find(section, key).value_or("(none)"));
}

}  // namespace

TEST_SUITE("ini_text") {
  TEST_CASE("look-ups follow the system's rules") {
    struct Row {
      const char* content;
      const char* value;  // of key "k" in section "s"
    };
    constexpr Row kRows[] = {
        {"[s]\r\nk=1\r\nk=2\r\n", "1"},
        {"[s]\nk=1\n[s]\nk=2", "1"},
        {"[s]\nj=1\n[t]\nk=3\n[s]\nk=2", "(none)"},
        {"[t]\nk=1\n[S]\nK=2", "2"},
        {"k=0\n[s]\nk=1", "1"},
        {"s=0\n[s]\nk=1", "1"},
        {"\t[ s ] ; x\n  k \t=  a b  \r\n", "a b"},
        {"[s]\rk=1\r[t]\rk=2\r", "1"},
        {"[s]\nk=\" quoted \"", " quoted "},
        {"[s]\nk='q'", "q"},
        {"[s]\nk=\"\"q\"\"", "\"q\""},
        {"[s]\nk=\"", "\""},
        {"[s]\nk=\"mixed'", "\"mixed'"},
        {"[s]\nk=a=b=c", "a=b=c"},
        {"[s]\n;k=1\n ; k=2\nk=3", "3"},
        {"[s]\nk=1;no comment", "1;no comment"},
        {"[s]\nk\nk x\nk=2", "2"},
        {"[s]\nk=", ""},
        {"[s]\n=1\nk=2", "2"},
        {"[s\nk=1", "(none)"},
        {"[s]\n[k=1\nk=2", "2"},
        {"[s]k=1\nk=2", "2"},
        {"", "(none)"},
        {"\r\n\n\r", "(none)"},
    };
    for (const Row& row : kRows) {
      CAPTURE(std::string(row.content));
      CHECK(Value(row.content, "s", "k") == row.value);
    }
    CHECK(Value(std::string("[s]\nk=a\0b\nj\0=1\n", 16), "s", "k") == std::string("a\0b", 3));
    CHECK(Value("[]\n=1", "", "") == "1");
    CHECK(Value("[s]\n;k=1", "s", ";k") == "(none)");
    CHECK(Value("[a]b]\nk=1", "a]b", "k") == "1");
    CHECK_FALSE(IniText().Find("s", "k"));

    const IniText two("[a]\nk=1\n[b]\nk=2\n[A]\nj=3");
    std::string values;
    for (const char* section : {"b", "a", "B", "a"}) values += two.Find(section, "k").value_or("");
    CHECK(values == "2121");
    CHECK_FALSE(two.Find("a", "j"));
  }

  TEST_CASE("any bytes are accepted") {
    Dice dice(3);
    for (int round = 0; round < 3000; ++round) {
      std::string content;
      for (std::size_t left = dice.Below(200); left > 0; --left) {
        content += dice.Chance(2) ? dice.Pick(std::string_view("[]=;\"' \t\r\nks\0", 13))
                                  : static_cast<char>(dice.Below(256));
      }
      const IniText text("[first]\nk=v\n" + content);
      REQUIRE(text.Find("first", "k").value_or("") == "v");
      static_cast<void>(text.Find("s", "k"));
      static_cast<void>(text.Find("", ""));
    }
  }
}

TEST_SUITE("watched_file") {
  TEST_CASE("changes, losses and returns are each handed over once") {
    FakeMachine m;
    WatchedFile watched(m.files, m.clock, 4);
    const auto look = [&] {
      std::string events;
      const Outcome outcome = watched.Refresh(
          "C:\\1\\f", "C:\\2\\f",
          [&](std::optional<std::string> content) { events += content.value_or("(none)"); });
      return events + (outcome.ok() ? "" : " " + std::to_string(outcome.code().number()));
    };
    CHECK(look() == "(none) 53");
    CHECK(look() == "");
    m.File("C:\\2\\f", "x");
    CHECK(look() == "x");
    CHECK(watched.path() == "C:\\2\\f");
    CHECK(look() == "");
    m.File("C:\\2\\f", "y").Times(1, 1);  // of the same size, written at another time
    CHECK(look() == "y");
    m.File("C:\\2\\f", "yy").Times(1, 1);  // of another size, written at the same time
    CHECK(look() == "yy");
    m.File("C:\\2\\f", "large");
    CHECK(look() == "(none) 7");
    m.File("C:\\2\\f", "long");
    CHECK(look() == "long");
    m.Folder("C:\\1\\f");  // a folder is no file
    CHECK(look() == "");
    m.files.Remove("C:\\1\\f");
    m.File("C:\\1\\f", "first");
    m.File("C:\\1\\f", "1st");
    CHECK(look() == "1st");
    CHECK(watched.path() == "C:\\1\\f");
    m.files.Remove("C:\\1\\f");
    CHECK(look() == "long");
    m.files.Remove("C:\\2\\f");
    CHECK(look() == "(none) 53");
    CHECK(look() == "");
    m.File("C:\\2\\f", "back").Times(1, 1);
    CHECK(look() == "back");
  }

  TEST_CASE("other paths are looked at in the same instant") {
    FakeMachine m;
    m.clock.frozen = true;
    m.File("C:\\a", "a");
    m.File("C:\\b", "b");
    WatchedFile watched(m.files, m.clock, 4);
    std::string content;
    const auto take = [&](std::optional<std::string> news) { content = news.value_or("(none)"); };
    for (const auto& [first, second, read] : Rows<const char*, const char*, const char*>{
             {"C:\\none", "C:\\a", "a"}, {"C:\\none", "C:\\b", "b"}, {"C:\\a", "C:\\b", "a"}}) {
      REQUIRE(watched.Refresh(first, second, take).ok());
      CHECK(content == read);
    }
  }

  TEST_CASE("an unreadable file is reported once and tried again") {
    FakeMachine m;
    WatchedFile watched(m.files, m.clock, 100);
    m.File("C:\\f", "x").Locked();
    std::string content = "old";
    const auto look = [&] {
      return watched.Refresh("C:\\f", "", [&](auto news) { content = news.value_or("(none)"); })
          .code();
    };
    CHECK(look() == kPermissionDenied);
    CHECK(content == "(none)");
    CHECK(look() == kNoError);
    m.files.Find("C:\\f")->locked = false;
    CHECK(look() == kNoError);
    CHECK(content == "x");
  }

  TEST_CASE("the disk is asked once a tick") {
    FakeMachine m;
    m.clock.frozen = true;
    m.File("C:\\f");
    WatchedFile watched(m.files, m.clock, 100);
    const auto look = [&](const char* path) {
      static_cast<void>(watched.Refresh(path, "", [](auto) {}));
      return m.files.Count("Stat");
    };
    for (int i = 0; i < 5; ++i) CHECK(look("C:\\f") == 1);
    CHECK(look("C:\\g") == 2);  // another question
    CHECK(look("C:\\g") == 2);
    ++m.clock.ticks;
    CHECK(look("C:\\g") == 3);
  }
}

}  // namespace scourwell::test
