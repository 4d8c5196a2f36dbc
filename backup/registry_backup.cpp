#include "backup/registry_backup.h"

#include "machine/cregister.h"
#include "machine/file_utils.h"
#include "text/paths.h"
#include "text/text.h"

namespace scourwell {
namespace {

constexpr unsigned kDeepest = 512;  // the system's own limit of levels

}  // namespace

RegistryBackup::RegistryBackup(Registry& registry, Registry* registry64, Pump& pump,
                               CodePages& code_pages, ScriptReader reader)
    : registry_(registry),
      registry64_(registry64),
      pump_(pump),
      keys_(code_pages, reader),
      values_(code_pages, reader),
      exported_(code_pages, reader),
      exported64_(code_pages, reader) {}

void RegistryBackup::Add(const Detection& row) {
  const std::string& key = row.tool_tip;
  if (row.kind != kSpyRegistryKey && row.kind != kSpyRegistryValue) return;
  const std::string name(ValueName(row));
  const bool is_value = row.kind == kSpyRegistryValue;
  if (!CanStandInScript(key) || (is_value && !CanStandInScript(name))) return Note(false, key);
  if (row.view64) {
    // The texts are imported into the 32-bit view: only the export knows of the other one.
  } else if (!is_value) {
    keys_.AddKey(key);
  } else if (CanStandInScript(row.tag) && values_.AddKey(key)) {
    // The export brings data that no quoted text can hold.
    values_.AddValue(name, {kRegText, row.tag + '\0'});
  }
  Export(row);
}

void RegistryBackup::Export(const Detection& row) {
  Registry* registry = row.view64 ? registry64_ : &registry_;
  RegScript* script = row.view64 ? &exported64_ : &exported_;
  RegistryPlace place;
  if (!registry || !SplitRegistryPlace(row.tool_tip, &place)) {
    left_out_.push_back(row.details + ": unknown root");
    return;
  }
  if (row.kind == kSpyRegistryValue) return ExportValue(row, *registry, place, script);
  const RegStatus opened = registry->TryOpen(place.root, place.path, kKeyRead);
  if (opened == kRegOk) return ExportKey(row.tool_tip, *registry, place, 0, script);
  if (opened != kRegNotFound) left_out_.push_back(row.details + ": it cannot be read");
}

void RegistryBackup::ExportValue(const Detection& row, Registry& registry,
                                 const RegistryPlace& place, RegScript* script) {
  const std::string name(ValueName(row));
  // The row may spell the name in capitals: the script brings it back as it stands.
  std::string true_name = name;
  static_cast<void>(
      registry.EnumValues(place.root, place.path, [&](const std::string& each, const RegValue&) {
        if (!EqualsNoCase(each, name)) return true;
        true_name = each;
        return false;
      }));
  RegValue value;
  const RegStatus status = registry.QueryValue(place.root, place.path, name, &value);
  if (status == kRegOk) {
    Note(script->AddKey(row.tool_tip) && script->AddValue(true_name, value), row.tool_tip);
  } else if (status != kRegNotFound) {
    left_out_.push_back(row.details + ": it cannot be read");
  }
}

void RegistryBackup::ExportKey(const std::string& full_path, Registry& registry,
                               const RegistryPlace& place, unsigned depth, RegScript* script) {
  static_cast<void>(pump_.Next());
  // What lies behind a link is not removed, and a script cannot make the link itself again.
  bool is_link = false;
  static_cast<void>(registry.IsLink(place.root, place.path, &is_link));
  if (is_link) return;
  if (!script->AddKey(full_path)) return Note(false, full_path);
  const RegStatus read = registry.EnumValues(place.root, place.path,
                                             [&](const std::string& name, const RegValue& value) {
                                               Note(script->AddValue(name, value), full_path);
                                               return true;
                                             });
  std::vector<std::string> names;
  const RegStatus listed = registry.EnumKeys(place.root, place.path, [&](const std::string& name) {
    names.push_back(name);
    return true;
  });
  if (read != kRegOk || listed != kRegOk) left_out_.push_back(full_path + ": it cannot be read");
  for (const std::string& name : names) {
    if (depth >= kDeepest) return Note(false, full_path);
    ExportKey(full_path + "\\" + name, registry, {place.root, place.path + "\\" + name}, depth + 1,
              script);
  }
}

void RegistryBackup::Note(bool held, const std::string& full_path) {
  if (!held) left_out_.push_back(full_path + ": a script cannot hold what is in it");
}

}  // namespace scourwell
