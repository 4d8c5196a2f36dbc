// SPDX-License-Identifier: MIT
#include "tools/entry_manager.h"

#include <algorithm>

#include "machine/registry_place.h"
#include "text/paths.h"
#include "tools/stored_value.h"

namespace scourwell {
namespace {

// In the order of EntryStatus.
constexpr Caption kStatusCaptions[] = {Caption::StatusEnabled, Caption::StatusDisabled,
                                       Caption::StatusRemove};

}  // namespace

void EntryManager::Form_Load() { Read(&EntryTable::Fill); }

void EntryManager::Refresh() { Read(&EntryTable::Refresh); }

void EntryManager::Read(void (EntryTable::*fill)(std::vector<Outcome>*)) {
  Trap("Form_Load", [&](std::vector<Outcome>* failures) {
    needs_.spies.Refresh();
    (table_.*fill)(failures);
    Tell(true);
  });
}

void EntryManager::cmdDisable_Click(std::size_t row) {
  Trap("cmdDisable_Click", [&](auto*) {
    table_.ToggleDisabled(row);
    Tell(false);
  });
}

void EntryManager::cmdRemove_Click(std::size_t row) {
  Trap("cmdRemove_Click", [&](auto*) {
    table_.MarkRemove(row);
    Tell(false);
  });
}

bool EntryManager::ApplyNow() {
  return Trap("ApplyNow", [&](std::vector<Outcome>* failures) {
    table_.Apply(failures);
    Tell(true);
  });
}

void EntryManager::ResetAll() {
  Trap("keyResetAll", [&](auto*) {
    table_.ResetAll();
    Tell(false);
  });
}

bool EntryManager::SaveProfile(const std::string& path) {
  return Trap("SaveDisabledItems", [&](std::vector<Outcome>* failures) {
    Outcome saved = table_.SaveTo(path);
    if (!saved.ok()) failures->push_back(std::move(saved).With("File: ", path));
  });
}

bool EntryManager::LoadProfile(const std::string& path) {
  return Trap("LoadDisabledItems", [&](std::vector<Outcome>* failures) {
    Outcome loaded = table_.LoadFrom(path);
    if (!loaded.ok()) failures->push_back(std::move(loaded));
    Tell(true);
  });
}

std::size_t EntryManager::disabled_count() const {
  std::size_t count = 0;
  for (std::size_t row = 0; row < table_.size(); ++row) {
    if (table_[row].status == EntryStatus::Disabled) ++count;
  }
  return count;
}

std::string EntryManager::KeyOf(std::size_t row) const {
  const Entry& entry = table_[row];
  if (!entry.place) return {};
  const std::string key = std::string(NameFromRoot(entry.place->root)) + "\\" + entry.place->path;
  switch (entry.place->kind) {
    case LocationKind::Value:
      return key;
    case LocationKind::Key:
      return entry.present ? key + "\\" + entry.name : key;
    default:
      return {};
  }
}

std::string EntryManager::NotedName(const Outcome& failure) {
  const std::size_t label = failure.notes().find(": ");
  return label == std::string::npos ? "" : failure.notes().substr(label + 2) + ": ";
}

// A place may hold two entries of one name, and a NUL stands in no label.
std::string EntryManager::Identity(std::size_t row) const {
  const Entry& entry = table_[row];
  return (entry.place ? entry.place->label : entry.record.fields[ProfileRecord::kLocation]) + '\0' +
         entry.name + '\0' + entry.command;
}

std::vector<std::string> EntryManager::Removals() const {
  std::vector<std::string> names;
  for (std::size_t row = 0; row < table_.size(); ++row) {
    if (table_[row].status == EntryStatus::Remove) names.push_back(Cell(row, 0));
  }
  return names;
}

std::vector<Finding> EntryManager::RemovedObjects() const {
  std::vector<Finding> objects;
  for (std::size_t row = 0; row < table_.size(); ++row) {
    const Entry& entry = table_[row];
    if (entry.status != EntryStatus::Remove || !entry.place || !entry.present) continue;
    const StartupLocation& place = *entry.place;
    const std::string name = Cell(row, 0);
    if (place.kind == LocationKind::Value) {
      objects.push_back(
          {name,
           FoundValue{
               {place.root, place.path}, entry.name, ShownValue(entry.command), place.view64}});
    } else if (place.kind == LocationKind::Key) {
      objects.push_back(
          {name, FoundKey{{place.root, AddPathToFileName(place.path, entry.name)}, place.view64}});
    } else if (place.kind == LocationKind::Shortcut) {
      objects.push_back({name, FoundFile{needs_.locations.ShortcutPath(place, entry.name)}});
    }
  }
  return objects;
}

std::string EntryManager::Details(std::size_t row) const {
  std::string text;
  for (int column = 0; column < columns(); ++column) {
    text += Text(Captions()[static_cast<std::size_t>(column)]) + ": " + Cell(row, column) + "\r\n";
  }
  return text + "\r\n" + KeyOf(row) + "\r\n";
}

std::string EntryManager::StatusText(const Entry& entry) const {
  const std::string text = Text(kStatusCaptions[static_cast<std::size_t>(entry.status)]);
  return HasMark(entry) ? text + " " + Text(Caption::StatusPending) : text;
}

std::vector<std::string> EntryManager::MarkTexts() const {
  std::vector<std::string> texts;
  for (const Caption status : kStatusCaptions) {
    texts.push_back(Text(status) + " " + Text(Caption::StatusPending));
  }
  return texts;
}

void EntryManager::Tell(bool facts) {
  rows_.resize(table_.size());
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    if (facts) rows_[i].facts = FactsOf(table_[i]);
    rows_[i].cells = CellsOf(table_[i], rows_[i].facts);
  }
}

}  // namespace scourwell
