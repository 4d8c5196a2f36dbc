#include "backup/registry_backup.h"

#include "platform/file_utils.h"
#include "platform/reg_script.h"
#include "platform/registry_access.h"
#include "platform/text.h"

namespace scourwell {
namespace {

constexpr unsigned kDeepest = 512;  // the system's own limit of levels

std::string KeyLine(std::string_view full_path) {
  return "\r\n[" + std::string(full_path) + "]\r\n";
}

}  // namespace

bool SplitRegistryPlace(std::string_view full_path, RegistryPlace* place) {
  const std::size_t slash = full_path.find('\\');
  const auto root = RootFromName(full_path.substr(0, slash));
  if (!root || NameFromRoot(*root).empty()) return false;
  place->root = *root;
  place->path = slash == full_path.npos ? "" : CRegister::SplitKeyPath(full_path.substr(slash));
  return true;
}

RegistryBackup::RegistryBackup(Registry& registry, Registry* registry64, Pump& pump)
    : registry_(registry),
      registry64_(registry64),
      pump_(pump),
      keys_(kRegScriptHeader),
      values_(kRegScriptHeader) {}

void RegistryBackup::Add(const Detection& row) {
  const std::string& key = row.tool_tip;
  if (row.kind != kSpyRegistryKey && row.kind != kSpyRegistryValue) return;
  if (!Fits(key, key)) return;
  const std::string_view name = ValueName(row);
  const bool is_value = row.kind == kSpyRegistryValue;
  if (is_value && !Fits(name, key)) return;
  if (row.view64) {
    // The texts are imported into the 32-bit view: only the export knows of the other one.
  } else if (!is_value) {
    keys_ += KeyLine(key);
  } else if (CanStandInScript(row.tag)) {
    // The export brings data that no quoted text can hold.
    values_ += KeyLine(key) + ValueNameForScript(name) + "=" + QuotedForScript(row.tag) + "\r\n";
  }
  Export(row);
}

void RegistryBackup::Export(const Detection& row) {
  Registry* registry = row.view64 ? registry64_ : &registry_;
  std::string* script = row.view64 ? &exported64_ : &exported_;
  RegistryPlace place;
  if (!registry || !SplitRegistryPlace(row.tool_tip, &place)) {
    left_out_.push_back(row.details + ": unknown root");
    return;
  }
  if (script->empty()) *script = kRegScriptHeader;
  if (row.kind == kSpyRegistryValue) return ExportValue(row, *registry, place, script);
  const RegStatus opened = registry->TryOpen(place.root, place.path, kKeyRead);
  if (opened == kRegOk) return ExportKey(row.tool_tip, *registry, place, 0, script);
  if (opened != kRegNotFound) left_out_.push_back(row.details + ": it cannot be read");
}

void RegistryBackup::ExportValue(const Detection& row, Registry& registry,
                                 const RegistryPlace& place, std::string* script) {
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
    *script += KeyLine(row.tool_tip) + ValueLineForScript(true_name, value);
  } else if (status != kRegNotFound) {
    left_out_.push_back(row.details + ": it cannot be read");
  }
}

void RegistryBackup::ExportKey(const std::string& full_path, Registry& registry,
                               const RegistryPlace& place, unsigned depth, std::string* script) {
  static_cast<void>(pump_.Next());
  // What lies behind a link is not removed, and a script cannot make the link itself again.
  bool is_link = false;
  static_cast<void>(registry.IsLink(place.root, place.path, &is_link));
  if (is_link) return;
  *script += KeyLine(full_path);
  const RegStatus read = registry.EnumValues(
      place.root, place.path, [&](const std::string& name, const RegValue& value) {
        if (Fits(name, full_path) && IsTrueName(name, value, registry, place, full_path)) {
          *script += ValueLineForScript(name, value);
        }
        return true;
      });
  std::vector<std::string> names;
  const RegStatus listed = registry.EnumKeys(place.root, place.path, [&](const std::string& name) {
    names.push_back(name);
    return true;
  });
  if (read != kRegOk || listed != kRegOk) left_out_.push_back(full_path + ": it cannot be read");
  for (const std::string& name : names) {
    if (!Fits(name, full_path) || depth >= kDeepest) continue;
    ExportKey(full_path + "\\" + name, registry, {place.root, place.path + "\\" + name}, depth + 1,
              script);
  }
}

// A name that the code page cannot hold comes back as another one, which may be that of a
// neighbour.
bool RegistryBackup::IsTrueName(const std::string& name, const RegValue& value, Registry& registry,
                                const RegistryPlace& place, const std::string& full_path) {
  if (!IsLossy(name)) return true;
  RegValue found;
  if (registry.QueryValue(place.root, place.path, name, &found) == kRegOk &&
      found.type == value.type && found.data == value.data) {
    return true;
  }
  left_out_.push_back(full_path + ": a name in it cannot be spelled");
  return false;
}

bool RegistryBackup::Fits(std::string_view name, const std::string& full_path) {
  if (CanStandInScript(name)) return true;
  left_out_.push_back(full_path + ": a name in it holds a line break");
  return false;
}

}  // namespace scourwell
