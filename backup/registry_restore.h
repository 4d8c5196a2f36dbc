// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "backup/item_report.h"
#include "backup/key_records.h"
#include "guard/key_remover.h"
#include "machine/reg_script.h"
#include "machine/reg_script_reader.h"
#include "machine/registry_place.h"

namespace scourwell {

// How an item of a backup compares with what lies on the machine.
enum class ItemState : std::uint8_t { Missing, Same, Different };

// One key or value that the scripts of a backup bring.
struct RegistryItem {
  RegistryPlace place;
  bool view64 = false;
  bool is_value = false;
  std::string name;
  RegValue value;
  std::uint32_t scripts = 0;  // a bit for each script that names it
  Outcome refused;            // why it must not be restored
};

// Brings back what registry scripts say, through the registry itself: an archive is only a file
// that somebody made, so every line is judged, and a line counts as restored once it reads so.
class RegistryRestore {
 public:
  static constexpr std::size_t kMostScripts = 32;

  // `registry64`: the 64-bit view; null where there is only one. `foreign`: the scripts come from
  // another machine.
  RegistryRestore(Registry& registry, Registry* registry64, CodePages& code_pages, ErrorLog& log,
                  bool foreign);

  // Reads one script more; what it says of a value overrides the scripts before. Lines that cannot
  // be used are listed in left_out().
  Outcome AddScript(const std::string& name, std::string_view bytes);

  // What the scripts of our own archives cannot say of their keys.
  void AddRecords(std::string_view bytes, bool view64);

  const std::vector<RegistryItem>& items() const { return items_; }
  const std::vector<std::string>& left_out() const { return left_out_; }
  ItemState StateOf(const RegistryItem& item);

  // What the registry editor may be told of a script: its judged items among those in `chosen`,
  // apart from names that could break a line.
  RegScript ForEditor(std::size_t script, const std::vector<bool>& chosen, ScriptReader reader);
  // Makes the missing keys of what is chosen with the classes that they had. Before anything else
  // is restored.
  void MakeKeys(const std::vector<bool>& chosen);
  // Gives those keys the rights that they had, and lists those that are back without something. The
  // last call.
  std::vector<ItemReport> FinishKeys();
  // Writes an item unless it is there already, and reads it back.
  Outcome Restore(const RegistryItem& item);

 private:
  struct RecordedKey {
    RegistryPlace place;
    bool view64 = false;
    RegTraits traits;
    bool made = false;
    Outcome why = {};  // it was not
  };
  Outcome Finish(const RecordedKey& key);

  void Add(const ScriptKey& key, bool view64, std::uint32_t script);
  RegistryItem& ItemFor(RegistryItem item);
  Outcome Judge(const RegistryItem& item);
  Registry* RegistryOf(bool view64) { return view64 ? registry64_ : &registry_; }
  bool Reads(const RegistryItem& item);

  Registry& registry_;
  Registry* registry64_;
  CodePages& code_pages_;
  KeyRemover keys_;
  KeyRemover keys64_;
  bool foreign_;
  std::size_t scripts_ = 0;
  std::vector<RegistryItem> items_;
  std::vector<std::string> left_out_;
  std::vector<RecordedKey> recorded_;
  std::unordered_map<std::string, std::size_t> places_;  // of items, by view, key and name
};

// The scripts of a backup are named after it.
inline constexpr char kKeysEnding[] = "key.reg";
inline constexpr char kValuesEnding[] = "val.reg";
inline constexpr char kExportedEnding[] = "export.reg";
inline constexpr char kExported64Ending[] = "export64.reg";
inline constexpr const char* kScriptEndings[] = {kKeysEnding, kValuesEnding, kExportedEnding,
                                                 kExported64Ending};

// True for a name that we give to scripts.
bool IsOwnScript(std::string_view name);
// True for a script that belongs to the 64-bit view, by its name.
bool IsScriptOf64(std::string_view name);

}  // namespace scourwell
