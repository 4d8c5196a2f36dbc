// SPDX-License-Identifier: MIT
#include "text/text.h"

#include "machine/version_texts.h"
#include "platform/outcome.h"
#include "platform/versions.h"
#include "tests/support.h"
#include "text/paths.h"
#include "text/shortened.h"
#include "text/unicode.h"

namespace scourwell::test {

TEST_SUITE("text") {
  TEST_CASE("case is folded letter by letter, in every script") {
    CHECK(Upper("az09_ \u00E4\u00FF\u0142\u017E\u0436\u03C9\u1E3F") ==
          "AZ09_ \u00C4\u0178\u0141\u017D\u0416\u03A9\u1E3E");
    // Sharp s has no letter above it; the dotless i must not become an ASCII one; 16-bit units
    // only.
    for (const char* own :
         {"\u00F7\u00DF\u00D7", "\u0131\u017F\u212A", "\U00010428", "\u8868\uFF0E"}) {
      CHECK(Upper(own) == own);
    }
    CHECK(EqualsNoCase("Caf\u00E9", "CAF\u00C9"));
    CHECK(EqualsNoCase("\u2C65", "\u023A"));  // three bytes and two
    CHECK_FALSE(EqualsNoCase("abc", "abcd"));
    CHECK_FALSE(EqualsNoCase("\u0141", "L"));
    CHECK(CompareNoCase("abc", "ABD") < 0);
    CHECK(CompareNoCase("\u00E9", "z") > 0);
    CHECK(CompareNoCase("ab", "ABC") < 0);
    CHECK(CompareNoCase("ABC", "ab") > 0);
    CHECK(NoCaseHash()("Caf\u00E9\u2C65") == NoCaseHash()("cAF\u00C9\u023A"));
    CHECK(PrefixNoCase("\u023Ab", "\u2C65") == 2);
    CHECK(PrefixNoCase("ab", "abc") == std::string_view::npos);
    CHECK(EndsWithNoCase("x\u2C65", "\u023A"));
  }

  TEST_CASE("parts are found without case") {
    CHECK(FindNoCase("a/StartUp", "/STARTUP") == 1);
    CHECK(FindNoCase("abcabc", "ABC", 1) == 3);
    CHECK(FindNoCase("abc", "abcd") == std::string_view::npos);
    CHECK(FindNoCase("abc", "", 2) == 2);
    CHECK(FindNoCase("\u8868\u2C65x", "\u023AX") == 3);
    CHECK(ReplaceAll("aXbXX", "X", "XY") == "aXYbXYXY");
    CHECK(ReplaceAll("aXb", "x", "-") == "aXb");
    CHECK(ReplaceAll("a", "", "-") == "a");
  }

  TEST_CASE("blanks and NULs are trimmed, other white space is not") {
    CHECK(TrimBlanks("  a b ") == "a b");
    CHECK(TrimBlanks("\ta\n") == "\ta\n");
    CHECK(TrimBlanks("   ") == "");
    CHECK(TrimNull(std::string_view("ab\0cd", 5)) == "ab");
    CHECK(TrimNull("ab") == "ab");
  }

  TEST_CASE("separators at the end go, but a root keeps its own") {
    for (const auto& [path, bare] : Rows<const char*, const char*>{{"C:\\", "C:\\"},
                                                                   {"C:\\\\", "C:\\"},
                                                                   {"C:\\a\\\\", "C:\\a"},
                                                                   {"C:\\a", "C:\\a"},
                                                                   {"", ""}}) {
      CHECK(WithoutEndSeparators(path) == bare);
    }
    for (const char* path : {"", "C:", "C:x", "C;\\x", "1:\\x", "\\x", "x\\y"}) {
      CAPTURE(std::string(path));
      CHECK_FALSE(IsAbsolutePath(path));
    }
  }

  TEST_CASE("leading numbers") {
    for (const auto& [text, number] : {std::pair{"  -7x", -7},
                                       {"+3", 3},
                                       {"", 0},
                                       {"- 5", 0},
                                       {"1 2", 1},
                                       {"99999999999999999999999", INT32_MAX},
                                       {"-99999999999999999999", INT32_MIN},
                                       {"2147483647", INT32_MAX},
                                       {"\t1", 0}}) {
      CAPTURE(std::string(text));
      CHECK(LeadingNumber(text) == number);
    }
  }

  TEST_CASE("numbers as text") {
    CHECK(Padded(7, 2) == "07");
    CHECK(Padded(123, 2) == "123");
    CHECK(Hex(0xA, 2) == "0A");
    CHECK(Hex(0xFFFFFFFF, 8) == "FFFFFFFF");
    CHECK(Kilobytes(0) == "0");
    CHECK(Kilobytes(1024) == "1");
    CHECK(Kilobytes(1) == "0.0009765625");
    CHECK(Kilobytes(1536) == "1.5");
    CHECK(Kilobytes(123456789) == "120563.270507812");
    CHECK(OperatingSystemText(0x40001) == "Unknown");
  }
}

TEST_SUITE("paths") {
  TEST_CASE("a device has many names, a file beside it none of them") {
    for (const char* device : {"con", "NUL.txt", "aux.tar.gz", "PRN .x", "com1", "LPT0.log",
                               "clock$", "COM\xC2\xB2", "conout$"}) {
      CAPTURE(std::string(device));
      CHECK(IsDeviceName(device));
    }
    for (const char* file : {"cone", "xnul", "com", "com10", "COMx", "a.nul", "lpt", ".con"}) {
      CAPTURE(std::string(file));
      CHECK_FALSE(IsDeviceName(file));
    }
  }
}

TEST_SUITE("outcome") {
  TEST_CASE("failures carry number, description and notes") {
    CHECK(Outcome().ok());
    const Outcome failed = Outcome::Failed(kFileNotFound).With("sPath: ", "C:\\x").With("I: ", "3");
    CHECK_FALSE(failed.ok());
    CHECK(failed.description() == "File not found");
    CHECK(failed.notes() == ", sPath: C:\\x, I: 3");
    CHECK(Outcome().With("a: ", "b").notes() == "");
    CHECK(Outcome::Failed(kPermissionDenied, "own words").description() == "own words");
    CHECK(DescribeError(ErrorCode::System(1450)) == "System error 1450");
    CHECK(DescribeError(kDiskFull) == "Disk full");
  }

  TEST_CASE("the same number of another space is another error") {
    const ErrorCode handle = ErrorCode::System(6);
    CHECK(handle != kOverflow);
    CHECK(handle != ErrorCode::Registry(6));
    CHECK(ErrorCode::Component(6) != ErrorCode::Registry(6));
    CHECK(handle == ErrorCode::System(6));
    CHECK(Outcome::Failed(handle).description() == "System error 6");
    CHECK(Outcome::OfRegistry(kRegOk).ok());
    CHECK(Outcome::OfRegistry(kRegAccessDenied).code() == kPermissionDenied);
    const Outcome gone = Outcome::OfRegistry(53);
    CHECK(gone.code() != kFileNotFound);
    CHECK(gone.description() == "System error 53");
  }

  TEST_CASE("a path that is too long keeps the ending of its name") {
    const auto shortened = [](std::string_view path, std::size_t letters) {
      return ShortenedPath(path, [&](const std::string& text) {
        std::size_t count = 0;
        for (std::size_t at = 0; at < text.size(); ++count) {
          CHECK(NextCode(text, &at) < kStrayByte);  // no letter is cut in two
        }
        return count <= letters;
      });
    };
    const std::string path = "C:\\Program Files\\Renamed\\spy.exe";
    CHECK(shortened(path, path.size()) == path);
    CHECK(shortened(path, path.size() - 1) == "C:\\Program Files\\Ren...\\spy.exe");
    CHECK(shortened(path, 11) == "...\\spy.exe");
    CHECK(shortened(path, 10) == "spy.exe");
    CHECK(shortened(path, 6) == "...spy.exe");  // nothing shorter tells what it is
    CHECK(shortened("C:\\f\\readme.txt_________________.exe", 22) == "readme.tx...______.exe");
    CHECK(shortened("readme.txt_________________.exe", 20) == "readme....______.exe");
    for (std::size_t letters = 8; letters < 18; ++letters) {
      shortened("\u8868\u8868\u8868\u8868\u8868\u8868\u8868\u8868\\\u8868\u8868.exe", letters);
      shortened(
          "a."
          "\u8868\u8868\u8868\u8868\u8868\u8868\u8868\u8868\u8868\u8868\u8868\u8868\u8868\u8868"
          "\u8868\u8868",
          letters);
    }
    CHECK(shortened("C:\\\u8868\u8868\u8868\\\u8868\u8868\u8868\u8868.exe", 14) ==
          "C:...\\\u8868\u8868\u8868\u8868.exe");
  }

  TEST_CASE("a path that is shown tells what it hides") {
    std::size_t longest = 0;
    const auto shortened = [&](std::string_view path, std::size_t room) {
      return ShortenedPath(path, [&, room](const std::string& text) {
        longest = std::max(longest, text.size());
        return text.size() <= room;
      });
    };
    CHECK(shortened("C:\\photo\u202Egpj.exe", 40) == "C:\\photo<U+202E>gpj.exe");
    CHECK(shortened("C:\\photo\u202Egpj.exe", 18) == "photo...2E>gpj.exe");
    // A standard value, and one of the registry of 64 bits.
    CHECK(shortened("HKLM\\Software\\Run\\", 12) == "HKLM...\\Run\\");
    CHECK(shortened("HKLM\\Software\\Run\\ (64)", 15) == "HK...\\Run\\ (64)");
    CHECK(shortened("HKLM\\Software\\Run\\\\", 5) == "Run\\\\");
    CHECK(shortened("\\\\", 1) == "...\\\\");
    longest = 0;
    const std::string path = "C:\\f\\" + std::string(32'000, 'a') + ".exe";
    CHECK(shortened(path, 30'000).ends_with("aaa...aaaaaa.exe"));
    CHECK(longest <= 2000);  // Windows 95 calls a text that is too long to measure one of no width
  }
}

TEST_SUITE("error_log") {
  TEST_CASE("a record is three quoted fields whose first begins with a line break") {
    Bench b;
    b.log.LogProcError(kFileNotFound, "File not found", "Timer1_Timer");
    const std::string record =
        "\"\r\nDate: 3/5/2004\",\"Time: 12:00:00 PM\",\"Error Description: File not found, "
        "Error Number: 53, Method: Timer1_Timer\"\r\n";
    CHECK(b.m.Content(kErrorLog) == record);
    b.log.LogError("plain");
    CHECK(b.m.Content(kErrorLog) ==
          record + "\"\r\nDate: 3/5/2004\",\"Time: 12:00:00 PM\",\"plain\"\r\n");
  }

  TEST_CASE("a procedure's edge records failures and exceptions, not successes") {
    Bench b;
    CHECK(b.log.TrapOutcome("fine", [] {}).ok());
    CHECK(b.m.Has(kErrorLog) == false);
    CHECK(
        b.log.TrapOutcome("a", [] { return Outcome::Failed(kDiskFull).With("I: ", "1"); }).code() ==
        kDiskFull);
    CHECK(b.log.TrapOutcome("b", []() -> Outcome { throw std::bad_alloc(); }).code() ==
          kOutOfMemory);
    CHECK(b.log.TrapOutcome("c", [] { throw std::out_of_range("text"); }).code() == kInvalidCall);
    CHECK(b.m.Errors() ==
          "Error Description: Disk full, Error Number: 61, Method: a, I: 1\n"
          "Error Description: Out of memory, Error Number: 7, Method: b\n"
          "Error Description: text, Error Number: 5, Method: c\n");
  }

  TEST_CASE("a log that cannot be written does no harm") {
    Bench b;
    b.m.Folder(kAppFolder).Refuses();
    b.log.LogError("lost");
    CHECK_FALSE(b.m.Has(kErrorLog));
  }

  TEST_CASE("only a log above a million bytes goes at start-up") {
    Bench b;
    b.m.File(kErrorLog, std::string(1'000'000, 'x'));
    b.log.deleteLogFile();
    CHECK(b.m.Has(kErrorLog));
    b.m.File(kErrorLog, std::string(1'000'001, 'x'));
    b.log.deleteLogFile();
    CHECK_FALSE(b.m.Has(kErrorLog));
    b.log.deleteLogFile();  // without one: no record
    CHECK_FALSE(b.m.Has(kErrorLog));
  }
}

}  // namespace scourwell::test
