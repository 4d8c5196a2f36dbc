// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "platform/clock.h"
#include "platform/code_pages.h"
#include "platform/files.h"
#include "platform/processes.h"
#include "platform/profiles.h"
#include "platform/pump.h"
#include "platform/registry.h"
#include "platform/shell.h"
#include "platform/system.h"
#include "platform/versions.h"

namespace scourwell::test {

inline constexpr int kUserFiles = 26;  // the shell's number of the folder of a user's program data

// The machine that a contract test runs on: the fake one or the real one. A new one is made for
// every test case; its folder and its key exist and are empty.
class ContractMachine {
 public:
  virtual ~ContractMachine() = default;

  virtual Files& files() = 0;
  virtual Registry& registry() = 0;
  virtual Profiles& profiles() = 0;
  virtual Clock& clock() = 0;
  virtual Shell& shell() = 0;
  virtual CodePages& code_pages() = 0;
  virtual System& system() = 0;
  virtual Processes& processes() = 0;
  virtual Versions& versions() = 0;
  virtual Pump& pump() = 0;

  // E.g. "C:\contract": an absolute path of at most 40 characters that does not end in "\".
  virtual std::string folder() = 0;
  // False on Windows 95, 98 and Me, where names are those of one code page, and of 8.3 beyond it.
  virtual bool holds_any_name() = 0;
  // False where the registry takes no name with half of a surrogate pair.
  virtual bool makes_half_pairs() { return holds_any_name(); }
  // A path below HKEY_CURRENT_USER, without "\" at either end.
  virtual std::string key() = 0;

  // Made without help of the ports under test. The parent folder exists.
  virtual void MakeFolder(const std::string& path) = 0;
  virtual void MakeFile(const std::string& path, const std::string& content) = 0;
  // Another name of a file. False where files have but one.
  virtual bool MakeSecondName(const std::string& name, const std::string& path) = 0;
  // Some of kReadOnly, kHidden and kSystem, and no others of these.
  virtual void SetAttributes(const std::string& path, std::uint32_t attributes) = 0;
  // In key(): a text value whose name is one character that no code page has, and one whose name is
  // `name` with a NUL in it. False where the system has no such names.
  virtual bool MakeOddValues(const std::string& name, const std::string& data) = 0;
  // A key that leads to another, both below HKEY_CURRENT_USER. False where there are no such keys.
  virtual bool MakeKeyLink(const std::string& path, const std::string& target) = 0;
  virtual void SetEnvironment(const std::string& name, const std::string& value) = 0;
  // The path of the program that runs the tests.
  virtual std::string OwnPath() = 0;
  // What goes at the next start of folder(), one path a line.
  virtual std::string DeletedAtReboot() = 0;
  // A message of the user: its call comes when messages are let through.
  virtual void Post(std::function<void()> call) = 0;
};

class QuietPump : public Pump {
 protected:
  void YieldNow() override {}
};

// Defined once per program: tests/contract/fake_fixture.cpp or the real machine's own.
std::unique_ptr<ContractMachine> NewContractMachine();

}  // namespace scourwell::test
