// SPDX-License-Identifier: MIT
#include "console/commands.h"
#include "console/merge.h"
#include "console/option_table.h"
#include "console/scan_command.h"
#include "text/escaped.h"

namespace scourwell {
namespace {

class NoReport : public ScanReport {
 public:
  void CreateMemoryLogFile(const std::vector<ProcessEntry>&) override {}
  void CreateRegistryScanLogFile() override {}
  void CreateCookieScanLogFile() override {}
  void CreateDriveScanLogFile() override {}
  void FinishScan() override {}
};

int Merge(const Options& options, Host& host) {
  Terminal& terminal = host.terminal();
  const auto say = [&](const std::string& text) {
    terminal.WriteError("scourwell: " + text + "\n");
  };
  if (!options.merge || options.html.empty() || options.words.empty()) {
    say("report wants --merge, the files and --html FILE; see scourwell report --help");
    return kUsage;
  }
  ConsolePump pump(terminal);
  NoReport none;
  std::string why;
  const std::unique_ptr<Target> target = host.Open(options, pump, none, &why);
  if (!target) return say(why), kIncomplete;
  Engine& engine = target->engine();
  std::vector<MergedReport::Input> inputs;
  for (const std::string& word : options.words) inputs.push_back({word, target->OwnPath(word)});
  MergedReport report(engine.ports().files, engine.language());
  Clock& clock = engine.ports().clock;
  const Outcome written = report.Write(
      inputs, {engine.Title(), engine.DefinitionsNumber(), clock.GeneralDate(clock.Now())},
      target->OwnPath(options.html));
  if (!written.ok())
    return say(ForShowing(options.html) + ": " + written.description()), kIncomplete;
  for (const UnreadPlace& input : report.incomplete()) {
    say(ForShowing(input.place) + ": " + ForShowing(input.reason));
  }
  if (terminal.Interrupted()) return kStopped;
  if (!report.incomplete().empty()) return kIncomplete;
  return report.rows() == 0 ? kNothingFound : kFound;
}

std::string VersionText(Host& host) { return "scourwell " + host.Version() + "\n"; }

}  // namespace

int RunConsole(const std::vector<std::string>& words, Host& host) {
  Terminal& terminal = host.terminal();
  Options options;
  std::string wrong = ParseOptions(words, &options);
  if (wrong.empty() && options.command && !options.help) wrong = host.Missing(options);
  if (!wrong.empty()) {
    const std::string command = options.command ? std::string(" ") + options.command->name : "";
    terminal.WriteError("scourwell" + command + ": " + ForShowing(wrong) + "; see scourwell" +
                        command + " --help\n");
    return kUsage;
  }
  if (options.help || options.version) {
    const bool written =
        terminal.Write(options.help ? HelpText(options.command) : VersionText(host));
    return written ? kNothingFound : kIncomplete;
  }
  switch (options.command->bit) {
    case kScan:
    case kRemove:
      return ScanCommand(host, options).Run();
    case kReport:
      return Merge(options, host);
    default:
      return KeptCommands(host, options).Run();
  }
}

}  // namespace scourwell
