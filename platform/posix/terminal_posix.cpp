// SPDX-License-Identifier: MIT
#include "platform/posix/terminal_posix.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>

namespace scourwell {
namespace {

constexpr std::size_t kLongestLine = 64 * 1024;

volatile std::sig_atomic_t interrupted = 0;

extern "C" void NoteSignal(int) { interrupted = 1; }

bool WriteAll(int stream, std::string_view text) {
  while (!text.empty()) {
    const ssize_t written = ::write(stream, text.data(), text.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    text.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

}  // namespace

TerminalPosix::TerminalPosix() {
  struct sigaction action = {};
  action.sa_handler = NoteSignal;  // no SA_RESTART: a question that waits for an answer ends, too
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    struct sigaction before = {};
    sigaction(signal, nullptr, &before);
    if (before.sa_handler != SIG_IGN) sigaction(signal, &action, nullptr);
  }
  action.sa_handler = SIG_IGN;
  sigaction(SIGPIPE, &action, nullptr);
}

bool TerminalPosix::Write(std::string_view text) { return WriteAll(STDOUT_FILENO, text); }

void TerminalPosix::WriteError(std::string_view text) { WriteAll(STDERR_FILENO, text); }

std::optional<std::string> TerminalPosix::ReadLine() {
  std::string line;
  for (char c = 0; line.size() < kLongestLine;) {
    if (::read(STDIN_FILENO, &c, 1) != 1) {
      if (line.empty()) return std::nullopt;
      break;
    }
    if (c == '\n') break;
    line += c;
  }
  return line;
}

bool TerminalPosix::ShowsOutput() const { return isatty(STDOUT_FILENO) != 0; }
bool TerminalPosix::ShowsErrors() const { return isatty(STDERR_FILENO) != 0; }
bool TerminalPosix::AsksUser() const { return isatty(STDIN_FILENO) != 0; }

bool TerminalPosix::KnowsEscapes() const {
  const char* kind = std::getenv("TERM");
  const char* plain = std::getenv("NO_COLOR");
  return kind && *kind && std::strcmp(kind, "dumb") != 0 && !(plain && *plain);
}

int TerminalPosix::Width() const {
  winsize size = {};
  if (ioctl(STDERR_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return 80;
  return size.ws_col;
}

bool TerminalPosix::Interrupted() const { return interrupted != 0; }

}  // namespace scourwell
