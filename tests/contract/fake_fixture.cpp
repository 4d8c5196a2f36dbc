// SPDX-License-Identifier: MIT
#include "platform/shell.h"
#include "tests/contract/contract.h"
#include "tests/fake/fake_machine.h"
#include "tests/fake/version_block.h"

namespace scourwell::test {
namespace {

class FakeContractMachine : public ContractMachine {
 public:
  FakeContractMachine() {
    m_.Folder(folder());
    m_.registry.Make(RootKey::CurrentUser, key());
    for (const char* each : {"C:\\WINDOWS\\system32", "C:\\Temp", "C:\\Users\\me"}) m_.Folder(each);
    m_.system.shell_folders[kUserFiles] = "C:\\Users\\me";
    m_.File("C:\\WINDOWS\\system32\\kernel32.dll");
    VersionBlock version;
    version.fixed.file_version_high = 0x50001;
    m_.versions.blocks["C:\\WINDOWS\\system32\\kernel32.dll"] =
        version.Text("OriginalFilename", "kernel32.dll").Make();
    m_.processes.running = {{"C:\\WINDOWS\\explorer.exe", 8},
                            {OwnPath(), m_.system.OwnProcessId()}};
  }
  Files& files() override { return m_.files; }
  Registry& registry() override { return m_.registry; }
  Profiles& profiles() override { return m_.profiles; }
  Clock& clock() override { return m_.clock; }
  Shell& shell() override { return m_.shell; }
  CodePages& code_pages() override { return m_.code_pages; }
  System& system() override { return m_.system; }
  Processes& processes() override { return m_.processes; }
  Versions& versions() override { return m_.versions; }
  Pump& pump() override { return m_.pump; }
  std::string folder() override { return "C:\\contract"; }
  bool holds_any_name() override { return true; }
  std::string key() override { return "Software\\Contract"; }
  void MakeFolder(const std::string& path) override { m_.Folder(path); }
  void MakeFile(const std::string& path, const std::string& content) override {
    m_.File(path, content);
  }
  void SetAttributes(const std::string& path, std::uint32_t attributes) override {
    Node& node = *m_.files.Find(path);
    node.attributes =
        (node.attributes & ~std::uint32_t{kReadOnly | kHidden | kSystem}) | attributes;
  }
  bool MakeOddValues(const std::string& name, const std::string& data) override {
    Key& key = m_.registry.Make(RootKey::CurrentUser, this->key());
    key.Value("\uF8FF", data);
    key.Value(name, data);
    return true;
  }
  bool MakeSecondName(const std::string&, const std::string&) override { return false; }
  bool MakeKeyLink(const std::string& path, const std::string& target) override {
    m_.registry.Link(RootKey::CurrentUser, path, target);
    return true;
  }
  void SetEnvironment(const std::string& name, const std::string& value) override {
    m_.system.environment[name] = value;
  }
  std::string OwnPath() override { return "C:\\contract_tests.exe"; }
  std::string DeletedAtReboot() override {
    std::string paths;
    for (const std::string& line : m_.system.journal) paths += line.substr(sizeof "Delete") + "\n";
    return paths;
  }
  void Post(std::function<void()> call) override { m_.pump.on_yield = std::move(call); }

 private:
  FakeMachine m_;
};

}  // namespace

std::unique_ptr<ContractMachine> NewContractMachine() {
  return std::make_unique<FakeContractMachine>();
}

}  // namespace scourwell::test
