// SPDX-License-Identifier: MIT
#include "console/option_table.h"

namespace scourwell {
namespace {

using O = Options;

constexpr unsigned kEvery = 0xFF;
constexpr unsigned kScans = kScan | kRemove;
constexpr unsigned kOnMachine = kScans | kRestore | kBackups | kStartup | kIgnore | kDefinitions;

constexpr Command kCommands[] = {
    {"scan", kScan, "scan [OPTION...] [PATH...]",
     "Looks for spyware and says what there is; changes nothing without --remove."},
    {"remove", kRemove, "remove [OPTION...] [PATH...]",
     "Scans, stores what was found in a backup, and removes it: scan --remove."},
    {"restore", kRestore, "restore [OPTION...] BACKUP", "Brings back what a backup holds."},
    {"backups", kBackups, "backups [OPTION...] [BACKUP...]",
     "Lists the backups, or what is in some of them; --delete deletes them."},
    {"ignore", kIgnore, "ignore [OPTION...] [KIND SPY PLACE]",
     "Lists what is never shown; --add and --remove change the list."},
    {"startup", kStartup, "startup [OPTION...] [NAME...]",
     "Lists the programs that start with Windows; --disable and --enable change that."},
    {"report", kReport, "report --merge FILE... --html FILE",
     "Makes one page of the JSON lines of many scans."},
    {"definitions", kDefinitions, "definitions [OPTION...]",
     "Says which definitions a scan would use."},
};

// In the order of --help.
constexpr OptionRow kRows[] = {
    {"format", "text|csv|json", kScans, &O::format, "how to print what is found (text)"},
    {"report", "FILE.html", kScans, &O::report, "write a page of it, too"},
    {"quiet", nullptr, kScans, &O::quiet, "show no progress"},
    {"remove", nullptr, kScan, &O::remove, "store and then remove what was found"},
    {"only", "KIND,SPY,PATH", kScans, &O::only, "of that, remove only these (can be repeated)"},
    {"yes", nullptr, kScans | kRestore | kBackups, &O::yes, "do not ask"},
    {"memory", nullptr, kScans, &O::memory, "running programs"},
    {"registry", nullptr, kScans, &O::registry, "the registry: where spyware is at home"},
    {"deep-registry", nullptr, kScans, &O::deep_registry,
     "the registry: all classes and providers"},
    {"cookies", nullptr, kScans, &O::cookies, "cookies of the browser"},
    {"files", nullptr, kScans, &O::files, "files and folders of the drives"},
    {"spyware", nullptr, kScans, &O::spyware, "look for spyware and adware"},
    {"dialers", nullptr, kScans, &O::dialers, "look for dialers"},
    {"keyloggers", nullptr, kScans, &O::keyloggers, "look for keyloggers"},
    {"trojans", nullptr, kScans, &O::trojans, "look for trojans"},
    {"hijackers", nullptr, kScans, &O::hijackers, "look for browser hijackers"},
    {"advanced", nullptr, kScans, &O::advanced,
     "know programs by version texts and checksums, too"},
    {"all-cookies", nullptr, kScans, &O::all_cookies, "list every cookie, known or not"},
    {"delete-at-restart", nullptr, kScans, &O::at_restart, "what is in use goes at the next start"},
    {"registry-editor", nullptr, kScans, &O::registry_editor,
     "remove keys and values through the registry editor"},
    {"windows", "FOLDER", kOnMachine, &O::windows,
     "the mounted disk of a Windows that does not run (Linux)"},
    {"drive", "LETTER=FOLDER", kOnMachine, &O::drives,
     "one drive of it; repeat it for several (Linux)"},
    {"windows-folder", "PATH", kOnMachine, &O::windows_folder,
     "which Windows of the disk, when it has several: C:\\WINDOWS"},
    {"definitions", "FILE", kScans | kDefinitions, &O::definitions,
     "the definitions file to be used"},
    {"backup-folder", "FOLDER", kScans | kRestore | kBackups, &O::backup_folder,
     "where backups lie"},
    {"backup", "NAME", kScans, &O::backup_name, "the name of the backup (date and time)"},
    {"delete", nullptr, kBackups, &O::erase, "delete these backups"},
    {"add", nullptr, kIgnore, &O::add, "never show this again"},
    {"remove", nullptr, kIgnore, &O::take_out, "show it again"},
    {"disable", nullptr, kStartup, &O::disable, "keep these from starting"},
    {"enable", nullptr, kStartup, &O::enable, "let them start again"},
    {"merge", nullptr, kReport, &O::merge, "one page of these files"},
    {"html", "FILE", kReport, &O::html, "the page to be written"},
    {"help", nullptr, kEvery, &O::help, "say this"},
    {"version", nullptr, 0, &O::version, "say which program this is"},
};

}  // namespace

std::span<const Command> Commands() { return kCommands; }
std::span<const OptionRow> OptionRows() { return kRows; }

}  // namespace scourwell
