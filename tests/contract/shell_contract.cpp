// SPDX-License-Identifier: MIT
#include <doctest/doctest.h>

#include "platform/shell.h"
#include "tests/contract/contract.h"
#include "text/paths.h"

namespace scourwell::test {

TEST_SUITE("contract_shell") {
  TEST_CASE("a shortcut is made once and says what it was made from") {
    const auto machine = NewContractMachine();
    Shell& shell = machine->shell();
    const std::string link = machine->folder() + "\\a b.lnk";
    const std::string target = machine->folder() + "\\not here.exe";
    std::string text = "(unchanged)";
    CHECK_FALSE(shell.ShortcutTarget(link, &text).ok());
    CHECK_FALSE(shell.ShortcutArguments(link, &text).ok());
    CHECK(text == "(unchanged)");
    REQUIRE(shell.CreateShortcut(link, target, "/x \"y z\" %1").ok());
    CHECK(shell.ShortcutTarget(link, &text).ok());
    CHECK(text == target);
    CHECK(shell.ShortcutArguments(link, &text).ok());
    CHECK(text == "/x \"y z\" %1");
    CHECK(shell.CreateShortcut(link, "C:\\other.exe", "").code() == kFileExists);
    CHECK(shell.ShortcutTarget(link, &text).ok());
    CHECK(text == target);
    CHECK_FALSE(shell.CreateShortcut(machine->folder() + "\\none\\x.lnk", target, "").ok());
  }

  TEST_CASE("a file that is no shortcut is refused") {
    const auto machine = NewContractMachine();
    const std::string link = machine->folder() + "\\bad.lnk";
    machine->MakeFile(link, "this is no shortcut");
    std::string text = "(unchanged)";
    CHECK_FALSE(machine->shell().ShortcutTarget(link, &text).ok());
    CHECK_FALSE(machine->shell().ShortcutArguments(link, &text).ok());
    CHECK(text == "(unchanged)");
  }

  TEST_CASE("a help file that is not there is refused") {
    const auto machine = NewContractMachine();
    CHECK(machine->shell().ShowHelp(machine->folder() + "\\none.chm", "index.html").code() ==
          kFileNotFound);
  }

  TEST_CASE("a program in our own folder is not found by its name alone") {
    const auto machine = NewContractMachine();
    const std::string own = machine->OwnPath();
    const std::string name(FileNamePart(own));
    for (const std::string& line : {name + " --version", "\"" + name + "\" --version"}) {
      CHECK(machine->shell().StartCommand(line).code() == kFileNotFound);
    }
  }

  TEST_CASE("a command line that names no program fails") {
    const auto machine = NewContractMachine();
    Shell& shell = machine->shell();
    const std::string missing = machine->folder() + "\\missing.exe";
    for (const std::string& line : {std::string(), missing, "\"" + missing + "\" /x"}) {
      CHECK_FALSE(shell.StartCommand(line).ok());
    }
  }
}

}  // namespace scourwell::test
