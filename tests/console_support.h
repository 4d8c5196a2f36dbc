// SPDX-License-Identifier: MIT
#pragma once

#include <deque>

#include "console/json_text.h"
#include "console/target.h"
#include "tests/app_support.h"

namespace scourwell::test {

// Somebody at a console, or a pipe.
class FakeTerminal : public Terminal {
 public:
  std::string out;
  std::string err;
  std::deque<std::string> answers;
  bool shown = false;                         // there is a user, who sees everything
  std::size_t closes_at = std::string::npos;  // bytes that the reader takes
  std::size_t interrupted_at = 0;             // the question for it that says yes; 0: none
  mutable std::size_t asked = 0;

  bool Write(std::string_view text) override {
    if (out.size() + text.size() > closes_at) return false;
    out += text;
    return true;
  }
  void WriteError(std::string_view text) override { err += text; }
  std::optional<std::string> ReadLine() override {
    if (answers.empty()) return std::nullopt;
    std::string answer = answers.front();
    answers.pop_front();
    return answer;
  }
  bool ShowsOutput() const override { return shown; }
  bool ShowsErrors() const override { return shown; }
  bool AsksUser() const override { return shown; }
  bool KnowsEscapes() const override { return true; }
  int Width() const override { return 60; }
  bool Interrupted() const override { return interrupted_at != 0 && ++asked >= interrupted_at; }
};

// The fake machine as what a command works on.
class FakeTarget : public Target {
 public:
  FakeTarget(FakeMachine& m, Pump& pump, ScanReport& report)
      : engine_({m.files, m.registry, nullptr, m.profiles, m.clock, m.system, m.shell, m.versions,
                 m.processes, pump, m.code_pages},
                kAppFolder, {1, 2, 3}, report) {}

  Engine& engine() override { return engine_; }
  bool Scan(const ScanScope& scope, const std::vector<std::string>& paths) override {
    engine_.RunSession([&](ScanSession& session) {
      if (paths.empty()) {
        session.StartScan(scope);
      } else {
        session.ScanFolders(paths);
      }
    });
    return engine_.session().finished();
  }
  std::string ScannedPath(const std::string& path) override { return path; }
  std::string OwnPath(const std::string& path) override { return path; }
  std::string WhyNoRemoval() const override { return why_no_removal; }

  std::string why_no_removal;

 private:
  Engine engine_;
};

// The console program on the fake machine.
struct ConsoleBench : Host {
  ConsoleBench() { m.clock.frozen = false; }

  FakeMachine m;
  FakeTerminal console;
  Definitions definitions;
  std::string why_no_target;
  std::string why_no_removal;

  Terminal& terminal() override { return console; }
  std::string Version() const override { return "1.2.3"; }
  std::unique_ptr<Target> Open(const Options&, Pump& pump, ScanReport& report,
                               std::string* why) override {
    if (!(*why = why_no_target).empty()) return nullptr;
    auto target = std::make_unique<FakeTarget>(m, pump, report);
    target->why_no_removal = why_no_removal;
    target->engine().LoadSettings();
    return target;
  }

  // A file that the definitions name, wherever it lies.
  void Plant(const std::string& path) {
    m.File(path);
    definitions.Entry("SAFI", {"SAFIT", "SAFIS"}, {"Evil", path.substr(path.rfind('\\') + 1)});
    m.File("C:\\App\\Ini\\update.ref", definitions.Text());
  }
  int Run(const std::vector<std::string>& words) {
    console.out.clear();
    console.err.clear();
    return RunConsole(words, *this);
  }
};

}  // namespace scourwell::test
