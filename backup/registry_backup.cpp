// SPDX-License-Identifier: MIT
#include "backup/registry_backup.h"

#include "machine/cregister.h"
#include "machine/file_utils.h"
#include "scan/finding_texts.h"
#include "text/caption_ids.h"
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

void RegistryBackup::Add(const FoundObject& object) {
  std::visit(Overloaded{
                 [&](const FoundKey& key) { AddKey(key); },
                 [&](const FoundValue& value) { AddValue(value); },
                 [](const FoundFile&) {},
                 [](const FoundFolder&) {},
                 [](const FoundCookie&) {},
                 [](const FoundProcess&) {},
             },
             object);
}

// The texts are imported into the 32-bit view: only the export knows of the other one.
void RegistryBackup::AddKey(const FoundKey& key) {
  const std::string full_path = FullKeyPath(key.place);
  if (!CanStandInScript(full_path)) return Note(false, full_path);
  if (!key.view64) keys_.AddKey(full_path);
  Registry* registry = RegistryOf(key.view64);
  if (!registry) return LeaveOut(PlaceText(key), "unknown root");
  const RegStatus opened = registry->TryOpen(key.place.root, key.place.path, kKeyRead);
  if (opened == kRegOk) {
    return ExportKey(full_path, *registry, key.place, 0, ExportOf(key.view64));
  }
  if (opened != kRegNotFound) LeaveOut(PlaceText(key), "it cannot be read");
}

void RegistryBackup::AddValue(const FoundValue& value) {
  const std::string full_path = FullKeyPath(value.key);
  if (!CanStandInScript(full_path) || !CanStandInScript(value.name)) return Note(false, full_path);
  if (!value.view64 && CanStandInScript(value.data) && values_.AddKey(full_path)) {
    // The export brings data that no quoted text can hold.
    values_.AddValue(value.name, {kRegText, value.data + '\0'});
  }
  if (Registry* registry = RegistryOf(value.view64)) return ExportValue(value, registry);
  LeaveOut(PlaceText(value), "unknown root");
}

void RegistryBackup::ExportValue(const FoundValue& found, Registry* registry) {
  const RegistryPlace& place = found.key;
  // The row may spell the name in capitals: the script brings it back as it stands.
  std::string true_name = found.name;
  static_cast<void>(
      registry->EnumValues(place.root, place.path, [&](const std::string& each, const RegValue&) {
        if (!EqualsNoCase(each, found.name)) return true;
        true_name = each;
        return false;
      }));
  RegValue value;
  const RegStatus status = registry->QueryValue(place.root, place.path, found.name, &value);
  const std::string full_path = FullKeyPath(place);
  RegScript* script = ExportOf(found.view64);
  if (status == kRegOk) {
    Note(script->AddKey(full_path) && script->AddValue(true_name, value), full_path);
  } else if (status != kRegNotFound) {
    LeaveOut(PlaceText(found), "it cannot be read");
  }
}

void RegistryBackup::LeaveOut(const std::string& place, const char* why) {
  left_out_.push_back({place, Outcome::Failed(kPathFileAccess, why)});
}

void RegistryBackup::ExportKey(const std::string& full_path, Registry& registry,
                               const RegistryPlace& place, unsigned depth, RegScript* script) {
  static_cast<void>(pump_.Next());
  // What lies behind a link is not removed, and a script cannot make the link itself again.
  bool is_link = false;
  static_cast<void>(registry.IsLink(place.root, place.path, &is_link));
  if (is_link) {
    notes_.push_back(
        {full_path,
         Outcome::Failed(kPathFileAccess, "A link is not stored").Because(Caption::ReasonLink)});
    return;
  }
  if (!script->AddKey(full_path)) return Note(false, full_path);
  RecordTraits(full_path, registry, place);
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
  if (read != kRegOk || listed != kRegOk) LeaveOut(full_path, "it cannot be read");
  for (const std::string& name : names) {
    if (depth >= kDeepest) return Note(false, full_path);
    ExportKey(full_path + "\\" + name, registry, {place.root, place.path + "\\" + name}, depth + 1,
              script);
  }
}

void RegistryBackup::RecordTraits(const std::string& full_path, Registry& registry,
                                  const RegistryPlace& place) {
  RegTraits traits;
  const RegStatus read = registry.ReadTraits(place.root, place.path, &traits);
  KeyRecords& records = &registry == registry64_ ? records64_ : records_;
  if (read == kRegOk && records.Add(full_path, traits)) return;
  notes_.push_back({full_path, Outcome::Failed(kPathFileAccess, "Its rights are not stored")
                                   .Because(Caption::ReasonRightsNotKept)});
}

void RegistryBackup::Note(bool held, const std::string& full_path) {
  if (!held) LeaveOut(full_path, "a script cannot hold what is in it");
}

}  // namespace scourwell
