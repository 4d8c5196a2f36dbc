// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "backup/item_report.h"
#include "backup/key_records.h"
#include "machine/reg_script.h"
#include "machine/registry_place.h"
#include "platform/pump.h"
#include "platform/registry.h"
#include "scan/finding.h"

namespace scourwell {

// Collects the registry scripts of a backup. Two of them hold what the rows of the 32-bit view say:
// the keys by name, and the values as texts. The exports hold what really lies in the registry:
// every checked key with its subkeys and every checked value, in their true types.
class RegistryBackup {
 public:
  // `registry64`: the 64-bit view; null where there is only one.
  RegistryBackup(Registry& registry, Registry* registry64, Pump& pump, CodePages& code_pages,
                 ScriptReader reader);

  // Rows of other kinds are passed over.
  void Add(const FoundObject& object);

  const RegScript& keys() const { return keys_; }
  const RegScript& values() const { return values_; }
  // Empty when nothing was checked in that view.
  const RegScript& exported() const { return exported_; }
  const RegScript& exported64() const { return exported64_; }
  // What those two cannot say of the keys that are stored whole.
  const std::string& key_records() const { return records_.bytes(); }
  const std::string& key_records64() const { return records64_.bytes(); }
  // What is stored apart from something that is not worth a failure.
  const std::vector<ItemReport>& notes() const { return notes_; }
  // What no script can hold, or could not be read.
  const std::vector<ItemReport>& left_out() const { return left_out_; }

 private:
  void AddKey(const FoundKey& key);
  void AddValue(const FoundValue& value);
  void ExportKey(const std::string& full_path, Registry& registry, const RegistryPlace& place,
                 unsigned depth, RegScript* script);
  void RecordTraits(const std::string& full_path, Registry& registry, const RegistryPlace& place);
  void ExportValue(const FoundValue& found, Registry* registry);
  void LeaveOut(const std::string& place, const char* why);
  Registry* RegistryOf(bool view64) { return view64 ? registry64_ : &registry_; }
  RegScript* ExportOf(bool view64) { return view64 ? &exported64_ : &exported_; }
  void Note(bool held, const std::string& full_path);

  Registry& registry_;
  Registry* registry64_;
  Pump& pump_;
  RegScript keys_;
  RegScript values_;
  RegScript exported_;
  RegScript exported64_;
  KeyRecords records_;
  KeyRecords records64_;
  std::vector<ItemReport> notes_;
  std::vector<ItemReport> left_out_;
};

}  // namespace scourwell
