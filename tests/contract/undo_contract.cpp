// SPDX-License-Identifier: MIT

// What a backup writes of a registry comes back from it as it was, on every system.
#include <doctest/doctest.h>

#include <algorithm>

#include "backup/registry_backup.h"
#include "backup/registry_restore.h"
#include "platform/security_descriptor.h"
#include "tests/contract/contract.h"
#include "tests/helpers.h"

namespace scourwell::test {
namespace {

struct OnRegistry {
  std::unique_ptr<ContractMachine> machine = NewContractMachine();
  Registry& registry = machine->registry();
  ErrorLog log{machine->files(), machine->clock(), machine->code_pages(),
               machine->folder() + "\\errors.txt"};
  QuietPump pump;
  std::string key = machine->key() + "\\undo";

  void Set(const std::string& below, const std::string& name, const RegValue& value) {
    CHECK(registry.SetValue(RootKey::CurrentUser, key + below, name, value) == kRegOk);
  }
  // Every key and value with its type and bytes, in the order of their names.
  std::string Snapshot(const std::string& path) {
    std::vector<std::string> lines;
    std::vector<std::string> names;
    registry.EnumValues(
        RootKey::CurrentUser, path, [&](const std::string& name, const auto& value) {
          std::string line = path + "|" + name + "|" + std::to_string(value.type) + "|";
          for (const char c : value.data) line += Hex(static_cast<unsigned char>(c), 2);
          if (value.half_character) line += std::string("|") + *value.half_character;
          lines.push_back(line);
          return true;
        });
    registry.EnumKeys(RootKey::CurrentUser, path, [&](const std::string& name) {
      names.push_back(name);
      return true;
    });
    for (const std::string& name : names) {
      lines.push_back(path + "\\" + name + "\n" + Snapshot(path + "\\" + name));
    }
    std::sort(lines.begin(), lines.end());
    return Lines(lines);
  }
};

}  // namespace

TEST_SUITE("contract_undo") {
  TEST_CASE("a registry key of every type comes back byte for byte") {
    OnRegistry r;
    int number = 0;
    for (std::uint32_t type = 0; type < 12; ++type) {
      for (const std::string& data :
           {std::string("text\0", 5), std::string("C:\\a \"b\"\0", 9), std::string("1234"),
            std::string("one\0two\0\0", 9), std::string(300, 'x') + '\0'}) {
        r.Set("", "value " + std::to_string(number++), {type, data});
      }
    }
    r.Set("", "", {kRegText, std::string("unnamed\0", 8)});
    r.Set("\\a]b [c]\\deep", "q\"\\=;]", {kRegBinary, std::string("\0\xFF\x80", 3)});
    r.Set("\\empty\\below", "v", {kRegMultiText, std::string("a\0b\0\0", 5)});
    if (r.machine->holds_any_name()) {
      r.Set("\\\u8868", "\u0141\U0001F600", {kRegExpandText, std::string("%\u0141%\0", 5)});
    }
    const std::string before = r.Snapshot(r.key);
    RegistryBackup backup(r.registry, nullptr, r.pump, r.machine->code_pages(),
                          ScriptReader::Unicode);
    backup.Add(FoundKey{{RootKey::CurrentUser, r.key}});
    CHECK(backup.left_out().empty());
    KeyRemover remover(r.registry, r.log, [] {});
    REQUIRE(remover.DeleteKey(RootKey::CurrentUser, r.key) == kRegOk);
    CHECK(r.Snapshot(r.key) == "");
    RegistryRestore restore(r.registry, nullptr, r.machine->code_pages(), r.log, true);
    REQUIRE(restore.AddScript("xkey.reg", backup.keys().Bytes()).ok());
    REQUIRE(restore.AddScript("xexport.reg", backup.exported().Bytes()).ok());
    CHECK(Lines(restore.left_out()) == "");
    for (const RegistryItem& item : restore.items()) {
      CAPTURE(item.name);
      CHECK(restore.StateOf(item) == ItemState::Missing);
      CHECK(restore.Restore(item).ok());
    }
    CHECK((r.Snapshot(r.key) == before));
    for (const RegistryItem& item : restore.items()) {
      CHECK(restore.StateOf(item) == ItemState::Same);
    }
  }

  TEST_CASE("class and rights of a key come back with it, and a key that is there keeps its own") {
    OnRegistry r;
    const std::string sub = r.key + "\\sub";
    RegStatus made = r.registry.CreateKeyOfKind(RootKey::CurrentUser, r.key, "Kind \u00E4");
    CHECK(made == kRegOk);
    r.Set("\\sub", "v", {kRegText, std::string("x\0", 2)});
    r.Set("\\other", "v", {kRegText, std::string("x\0", 2)});
    CHECK(r.registry.SetKeySecurity(RootKey::CurrentUser, sub, ClosedDescriptor()) == kRegOk);
    const auto traits = [&](const std::string& path) {
      RegTraits read;
      CHECK(r.registry.ReadTraits(RootKey::CurrentUser, path, &read) == kRegOk);
      return read.kind + "|" + read.security;
    };
    const std::string before =
        traits(r.key) + "\n" + traits(sub) + "\n" + traits(r.key + "\\other");
    RegistryBackup backup(r.registry, nullptr, r.pump, r.machine->code_pages(),
                          ScriptReader::Unicode);
    backup.Add(FoundKey{{RootKey::CurrentUser, r.key}});
    CHECK(backup.notes().empty());
    KeyRemover remover(r.registry, r.log, [] {});
    REQUIRE(remover.DeleteKey(RootKey::CurrentUser, r.key) == kRegOk);
    RegistryRestore restore(r.registry, nullptr, r.machine->code_pages(), r.log, false);
    REQUIRE(restore.AddScript("xexport.reg", backup.exported().Bytes()).ok());
    restore.AddRecords(backup.key_records(), false);
    for (int again = 0; again < 2; ++again) {
      restore.MakeKeys(std::vector<bool>(restore.items().size(), true));
      for (const RegistryItem& item : restore.items()) CHECK(restore.Restore(item).ok());
      CHECK(restore.FinishKeys().empty());
      CHECK((traits(r.key) + "\n" + traits(sub) + "\n" + traits(r.key + "\\other") == before));
    }
    // What another has made meanwhile is another's.
    REQUIRE(remover.DeleteKey(RootKey::CurrentUser, r.key) == kRegOk);
    r.Set("\\sub", "v", {kRegText, std::string("x\0", 2)});
    const std::string others = traits(sub);
    RegistryRestore second(r.registry, nullptr, r.machine->code_pages(), r.log, false);
    REQUIRE(second.AddScript("xexport.reg", backup.exported().Bytes()).ok());
    second.AddRecords(backup.key_records(), false);
    second.MakeKeys(std::vector<bool>(second.items().size(), true));
    CHECK(second.FinishKeys().empty());
    CHECK((traits(sub) == others));
  }

  TEST_CASE("nothing is written behind a link that came since the script was judged") {
    OnRegistry r;
    RegistryRestore restore(r.registry, nullptr, r.machine->code_pages(), r.log, false);
    const std::string script = "REGEDIT4\r\n[HKEY_CURRENT_USER\\" + r.key + "\\way]\r\n";
    REQUIRE(restore.AddScript("x.reg", script + "\"v\"=\"evil\"\r\n").ok());
    r.Set("\\dear", "v", {kRegText, std::string("dear\0", 5)});
    if (!r.machine->MakeKeyLink(r.key + "\\way", r.key + "\\dear")) return;
    REQUIRE(restore.items().size() == 1);
    CHECK(restore.Restore(restore.items()[0]).code() == kPermissionDenied);
    RegValue value;
    CHECK(r.registry.QueryValue(RootKey::CurrentUser, r.key + "\\dear", "v", &value) == kRegOk);
    CHECK(TrimNull(value.data) == "dear");
  }
}

}  // namespace scourwell::test
