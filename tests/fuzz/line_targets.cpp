// SPDX-License-Identifier: MIT
#include "scan/name_pattern.h"
#include "shell/command_line.h"
#include "tests/fuzz/targets.h"
#include "tests/removal_support.h"
#include "tools/program_of.h"
#include "tools/stored_value.h"
#include "tools/win_ini_line.h"

namespace scourwell::test {
namespace {

std::vector<std::string> StoredSeeds() {
  return {"plain", "hex(3):00FF10", "hex(1):610062.63",
          TextOfTree({{"", {{"v", {kRegText, std::string("x\0", 2)}}}}, {"sub", {}}})};
}

void RunStored(std::string_view bytes) {
  const RegValue value = ValueOfText(bytes);
  const RegValue again = ValueOfText(TextOfValue(value));
  Demand(again.type == value.type && again.data == value.data &&
             again.half_character == value.half_character,
         "a stored value comes back");
  const StoredTree tree = TreeOfText(bytes);
  Demand(TextOfTree(TreeOfText(TextOfTree(tree))) == TextOfTree(tree), "a stored key comes back");
}

std::vector<std::string> CommandSeeds() {
  return {"\"C:\\My Files\\a b.exe\" /x", "rundll32 C:\\bar.dll,Start", "%Root%\\a -s",
          "C:\\My Files\\a b.exe", "/startup"};
}

void RunCommand(std::string_view bytes) {
  Bench b;
  b.m.File("C:\\My Files\\a b.exe");
  b.m.system.environment["Root"] = "C:\\My Files";
  SystemFolders folders;
  folders.windows = "C:\\WINDOWS";
  folders.system = "C:\\WINDOWS\\system32";
  const ProgramOf program = FindProgram(bytes, b.m.files, folders, b.m.system);
  Demand(!program.exists || b.m.Has(program.path), "a program that exists is there");
  const CommandLine line = ParseCommandLine(bytes);
  Demand((line.kind == CommandLine::Kind::ScanPath) != line.path.empty(),
         "a path is given exactly when one is to be scanned");
}

std::vector<std::string> WinIniSeeds() {
  return {"a, b  a,\"c d\"", "a, tw tw \"x", "C:\\a.exe C:\\b.exe,c"};
}

void RunWinIni(std::string_view bytes) {
  const std::string original = WinIniLine(bytes).text();
  Demand(original == bytes, "a line is kept as it stands");
  const std::vector<std::string> programs = WinIniLine(bytes).programs();
  for (std::size_t i = 0; i < programs.size() && i < 8; ++i) {
    const std::string without = WithoutProgram(bytes, programs[i]);
    Demand(WinIniLine(without).programs().size() + 1 == programs.size(), "one program goes");
    const auto back = WinIniLine(WithProgram(without, programs[i], original)).programs();
    Demand(back == programs, "a program returns to its place");
    Demand(WinIniLine(WithProgram(bytes, "new", "")).programs().size() == programs.size() + 1,
           "a new program swallows none and is swallowed by none");
  }
}

std::vector<std::string> PathSeeds() {
  return {"C:\\WINDOWS\\explorer.exe",     "c:\\windows\\.\\system32\\..\\explorer.exe",
          "\\\\?\\C:\\App\\Scourwell.exe", "C:/App/Scourwell.exe",
          "C:\\WINDOWS\\explorer.exe ",    "C:\\WINDOWS\\explorer.exe::$DATA",
          "C:\\APP\\SCOURW~1.EXE"};
}

void RunPath(std::string_view bytes) {
  Remover r;
  r.m.File("C:\\WINDOWS\\explorer.exe", "x");
  r.m.File("C:\\App\\Scourwell.exe", "x");
  r.RemoveOne(FoundFile{std::string(bytes)});
  r.RemoveOne(FoundFolder{std::string(bytes)});
  Demand(r.m.Has("C:\\WINDOWS\\explorer.exe") && r.m.Has("C:\\App\\Scourwell.exe"),
         "what is protected stays under every spelling");
}

std::vector<std::string> PatternSeeds() {
  return {"evil*.exe\nevilbar.exe", "a?c\nabc", "bad\\*.dll\nx.dll", "*.*\nname", "a. .\na"};
}

// The pattern, a line break, and a name.
void RunPattern(std::string_view bytes) {
  const std::size_t end = std::min(bytes.find('\n'), bytes.size());
  const std::string pattern = NormalizeSignature(bytes.substr(0, end));
  Demand(NormalizeSignature(pattern) == pattern, "a normal form stays as it is");
  const PatternKind kind = ClassifyPattern(pattern);
  if (kind != PatternKind::Name && kind != PatternKind::Wildcard) return;
  const std::string folded = Upper(pattern);
  const std::string name = Upper(bytes.substr(std::min(end + 1, bytes.size())));
  Demand(!MayMatch(folded, name) || name.find(RequiredLiteral(folded)) != name.npos,
         "whatever matches holds the literal");
  if (kind == PatternKind::Name) Demand(MayMatch(folded, folded), "a name matches itself");
}

constexpr FuzzTarget kTargets[] = {
    {"stored_value", StoredSeeds, RunStored}, {"command", CommandSeeds, RunCommand},
    {"win_ini_line", WinIniSeeds, RunWinIni}, {"path", PathSeeds, RunPath},
    {"pattern", PatternSeeds, RunPattern},
};

}  // namespace

std::span<const FuzzTarget> LineTargets() { return kTargets; }

}  // namespace scourwell::test
