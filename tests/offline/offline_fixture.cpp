// SPDX-License-Identifier: MIT

// The contract tests run on folders of this machine; what nothing here implements is the fake
// one's.
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "offline/disk_name.h"
#include "offline/hive_file.h"
#include "offline/offline_registry.h"
#include "offline/posix_files.h"
#include "tests/contract/contract.h"
#include "tests/fake/fake_machine.h"
#include "tests/offline/make_hive.h"
#include "tests/offline/temporary_folder.h"
#include "text/paths.h"

namespace scourwell::test {
namespace {

class OfflineContractMachine : public ContractMachine {
 public:
  OfflineContractMachine() {
    disk_.MakeFolder("contract");
    disk_.Put("NTUSER.DAT", EmptyHive());
    registry_.ActAs("me");
    static_cast<void>(registry_.CreateKey(RootKey::CurrentUser, key()));
  }

  Files& files() override { return files_; }
  Registry& registry() override { return registry_; }
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
  void MakeFolder(const std::string& path) override { disk_.MakeFolder(Below(path)); }
  void MakeFile(const std::string& path, const std::string& content) override {
    if (const std::string below = Below(path); !below.empty()) disk_.Put(below, content);
  }
  bool MakeSecondName(const std::string& name, const std::string& path) override {
    return link((disk_.path() + "/" + Below(path)).c_str(),
                (disk_.path() + "/" + Below(name)).c_str()) == 0;
  }
  // As Wine keeps them.
  void SetAttributes(const std::string& path, std::uint32_t attributes) override {
    const std::string file = disk_.path() + "/" + Below(path);
    struct stat facts = {};
    stat(file.c_str(), &facts);
    const bool fixed = (attributes & kReadOnly) && !S_ISDIR(facts.st_mode);
    chmod(file.c_str(), 0755);
    const std::string text = "0x" + Hex(attributes, 1);
    setxattr(file.c_str(), "user.DOSATTRIB", text.data(), text.size(), 0);
    chmod(file.c_str(), fixed ? 0444 : 0755);
  }
  bool makes_half_pairs() override { return false; }
  bool MakeOddValues(const std::string&, const std::string&) override { return false; }
  bool MakeKeyLink(const std::string&, const std::string&) override { return false; }
  void SetEnvironment(const std::string&, const std::string&) override {}
  std::string OwnPath() override { return {}; }
  std::string DeletedAtReboot() override { return {}; }
  void Post(std::function<void()>) override {}

 private:
  // Empty for what no disk here can hold.
  static std::string Below(std::string_view path) {
    std::string below;
    for (path.remove_prefix(RootSize(path)); !path.empty();) {
      const auto name = ToDiskName(TakePart(&path));
      if (!name) return {};
      below += (below.empty() ? "" : "/") + *name;
    }
    return below;
  }

  TemporaryFolder disk_;
  PosixFiles files_{{{'C', disk_.path()}}};
  HiveFile hive_{files_, "C:\\NTUSER.DAT", {}};
  std::vector<RegistryMount> mounts_ = {{RootKey::Users, "me", &hive_, {}}};
  OfflineRegistry registry_{mounts_, OfflineRegistry::View::Only};
  FakeMachine m_;
};

}  // namespace

std::unique_ptr<ContractMachine> NewContractMachine() {
  return std::make_unique<OfflineContractMachine>();
}

}  // namespace scourwell::test
