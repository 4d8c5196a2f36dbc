// SPDX-License-Identifier: MIT
#include "tools/bho_manager.h"

#include "machine/cregister.h"
#include "machine/file_utils.h"
#include "machine/registry_place.h"
#include "text/text.h"
#include "tools/stored_value.h"

namespace scourwell {
namespace {

using Fields = ProfileRecord;

constexpr Caption kHelperColumns[] = {
    Caption::ColumnName, Caption::ColumnStatus,  Caption::ColumnClass,   Caption::ColumnFilePath,
    Caption::ColumnFile, Caption::ColumnCompany, Caption::ColumnKnownAs, Caption::ColumnLocation};

ProfileRecord DescribeHelper(const Entry& entry) {
  return {
      {entry.name, "Disabled", entry.place->label, "All Users", "Browser starts", entry.command}};
}

}  // namespace

BhoManager::BhoManager(const Needs& needs)
    : EntryManager(needs, HelperPlaces(),
                   AddPathToFileName(needs.locations.needs().folders.application, "BHOProf.pro"),
                   DescribeHelper, "BHO ") {}

std::span<const Caption> BhoManager::ColumnCaptions() { return kHelperColumns; }

// A helper's class may be missing: then it has neither name nor file.
BhoManager::Class BhoManager::ClassOf(const Entry& entry) const {
  const StartupLocations::Needs& machine = needs_.locations.needs();
  if (!entry.place || HoldsSeparator(entry.name)) return {{}, {}, true};
  if (entry.place->view64 && !machine.registry64) return {{}, {}, true};
  Registry& registry = entry.place->view64 ? *machine.registry64 : machine.registry;
  CRegister access(registry);
  const std::string key = "CLSID\\" + entry.name;
  return {access.QueryString(RootKey::ClassesRoot, key, ""),
          access.QueryString(RootKey::ClassesRoot, key + "\\InprocServer32", ""),
          registry.TryOpen(RootKey::ClassesRoot, key, kKeyRead) == kRegNotFound};
}

FileFacts BhoManager::FactsOf(const Entry& entry) const {
  FileFacts facts = needs_.facts.OfFile(ClassOf(entry).file);
  if (!entry.place) return facts;
  const std::string helper =
      std::string(NameFromRoot(entry.place->root)) + "\\" + entry.place->path + "\\" + entry.name;
  for (const std::string& key : {helper, "HKEY_CLASSES_ROOT\\CLSID\\" + entry.name}) {
    std::string spy = needs_.spies.OfKey(key);
    if (!spy.empty()) facts.spy = std::move(spy);
  }
  return facts;
}

// The class has the name; without one there, the helper's own key or the file gives it.
std::string BhoManager::NameOf(const Entry& entry, const FileFacts& facts) const {
  const Class named = ClassOf(entry);
  std::string name = named.name;
  for (const StoredKey& key : TreeOfText(entry.command)) {
    for (const auto& [value_name, value] : key.values) {
      const bool own = key.path.empty() && value_name.empty() && value.type == kRegText;
      if (own && name.empty()) name = TrimNull(value.data);
    }
  }
  if (name.empty()) name = FileNamePart(facts.path);
  if (named.missing) return name + (name.empty() ? "" : " ") + Text(Caption::NoSuchClass);
  return name.empty() ? entry.name : name;
}

std::vector<std::string> BhoManager::CellsOf(const Entry& entry, const FileFacts& facts) const {
  std::vector<std::string> cells(kColumns);
  cells[kName] = NameOf(entry, facts);
  cells[kStatus] = StatusText(entry);
  cells[kClass] = entry.name;
  cells[kFile] = facts.path;
  cells[kFound] = FoundText(facts);
  cells[kCompany] = facts.company;
  cells[kSpy] = facts.spy;
  cells[kLocation] = entry.place ? Text(entry.place->view64 ? Caption::LocationWideHelpers
                                                            : Caption::LocationHelpers)
                                 : entry.record.fields[Fields::kLocation];
  return cells;
}

std::string BhoManager::Details(std::size_t row) const {
  std::string text = EntryManager::Details(row);
  for (const StoredKey& key : TreeOfText(entry(row).command)) {
    for (const auto& [name, value] : key.values) {
      text += key.path + (key.path.empty() ? "" : "\\") +
              (name.empty() ? Text(Caption::DefaultValue) : name) + " = " + ValueToText(value) +
              "\r\n";
    }
  }
  return text;
}

}  // namespace scourwell
