// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include "offline/beneath.h"
#include "platform/posix/clock_posix.h"
#include "platform/posix/terminal_posix.h"
#include "tests/helpers.h"
#include "tests/offline/temporary_folder.h"

#include <doctest/doctest.h>

namespace scourwell::test {
namespace {

// One of our streams leads elsewhere.
class Redirected {
 public:
  Redirected(int stream, const UniqueFd& to) : stream_(stream), kept_(dup(stream)) {
    dup2(to.get(), stream);
  }
  Redirected(const Redirected&) = delete;
  Redirected& operator=(const Redirected&) = delete;
  ~Redirected() { dup2(kept_.get(), stream_); }

 private:
  int stream_;
  UniqueFd kept_;
};

// A variable of our own has that text, or is not there.
class Variable {
 public:
  Variable(const char* name, const char* text) : name_(name) {
    if (const char* before = std::getenv(name)) before_ = before;
    text ? setenv(name, text, 1) : unsetenv(name);
  }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;
  ~Variable() { before_ ? setenv(name_, before_->c_str(), 1) : unsetenv(name_); }

 private:
  const char* name_;
  std::optional<std::string> before_;
};

}  // namespace

TEST_SUITE("terminal") {
  TEST_CASE("lines are read until there are no more, and an endless one in parts") {
    TerminalPosix terminal;
    const TemporaryFolder folder;
    const std::string input = folder.Put("input", "yes\n\n" + std::string(65'536, 'x') + "end");
    std::vector<std::string> lines;
    bool asks = true;
    {
      const Redirected redirected(STDIN_FILENO, UniqueFd(open(input.c_str(), O_RDONLY)));
      asks = terminal.AsksUser();
      while (const auto line = terminal.ReadLine()) lines.push_back(line->substr(0, 4));
    }
    CHECK_FALSE(asks);
    CHECK(Lines(lines) == "yes\n\nxxxx\nend\n");
  }

  TEST_CASE("what is written arrives, and a reader that has gone is told of") {
    TerminalPosix terminal;
    const TemporaryFolder folder;
    const std::string output = folder.Put("output");
    const std::string errors = folder.Put("errors");
    int ends[2] = {};
    REQUIRE(pipe(ends) == 0);
    close(ends[0]);
    bool shown = true;
    bool gone = false;
    {
      const Redirected to_file(STDOUT_FILENO, UniqueFd(open(output.c_str(), O_WRONLY)));
      const Redirected to_other(STDERR_FILENO, UniqueFd(open(errors.c_str(), O_WRONLY)));
      shown = terminal.ShowsOutput() || terminal.ShowsErrors() || terminal.Width() != 80;
      terminal.Write("a line\n");
      terminal.WriteError("an error\n");
      const Redirected to_nobody(STDOUT_FILENO, UniqueFd(ends[1]));
      gone = !terminal.Write("another");
    }
    CHECK(folder.Content("output") == "a line\n");
    CHECK(folder.Content("errors") == "an error\n");
    CHECK_FALSE(shown);
    CHECK(gone);
  }

  TEST_CASE("colours are for terminals that know them, and for whoever wants them") {
    const TerminalPosix terminal;
    for (const auto& [kind, plain, knows] :
         Rows<const char*, const char*, bool>{{"xterm", nullptr, true},
                                              {"xterm", "", true},
                                              {"xterm", "1", false},
                                              {"dumb", nullptr, false},
                                              {"", nullptr, false},
                                              {nullptr, nullptr, false}}) {
      const Variable term("TERM", kind);
      const Variable no_color("NO_COLOR", plain);
      CHECK(terminal.KnowsEscapes() == knows);
    }
  }

  TEST_CASE("a signal stops the scan; what whoever started us ignores stays ignored") {
    std::signal(SIGHUP, SIG_IGN);
    std::signal(SIGTERM, SIG_DFL);
    const TerminalPosix terminal;
    CHECK_FALSE(terminal.Interrupted());
    std::raise(SIGHUP);
    CHECK_FALSE(terminal.Interrupted());
    std::raise(SIGTERM);
    CHECK(terminal.Interrupted());
    const bool pipe_ignored = std::signal(SIGPIPE, SIG_DFL) == SIG_IGN;
    CHECK(pipe_ignored);
    for (const int signal : {SIGHUP, SIGTERM, SIGINT}) std::signal(signal, SIG_DFL);
  }
}

TEST_SUITE("clock") {
  TEST_CASE("times are told in the zone of the user") {
    const char* const before = std::getenv("TZ");
    const std::string kept = before ? before : "";
    setenv("TZ", "XYZ-3", 1);
    tzset();
    ClockPosix clock;
    const LocalTime time = clock.ToLocal(FileTime{116'444'736'001'230'000});  // 1970
    CHECK(clock.ShortDate(time) + " " + clock.TimeOfDay(time) == "1970-01-01 03:00:00");
    CHECK(time.millisecond == 123);
    before ? setenv("TZ", kept.c_str(), 1) : unsetenv("TZ");
    tzset();
  }
}

}  // namespace scourwell::test
