// SPDX-License-Identifier: MIT
#include "backup/registry_restore.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "guard/protected_keys.h"
#include "text/paths.h"
#include "text/text.h"

namespace scourwell {
namespace {

constexpr char kLinkValue[] = "SymbolicLinkValue";

// The registry takes several separators as one.
std::string PlainKeyPath(std::string_view path) {
  std::string plain;
  while (!path.empty()) {
    const std::string_view part = TakePart(&path);
    if (part.empty()) continue;
    if (!plain.empty()) plain += kSeparator;
    plain += part;
  }
  return plain;
}

bool SameBytes(const RegValue& a, const RegValue& b) {
  return a.type == b.type && a.data == b.data && a.half_character == b.half_character;
}

// Windows 95, 98 and Me end each text with a NUL, whatever was given to them.
bool SameText(const RegValue& a, const RegValue& b) {
  return a.type == b.type && (a.type == kRegText || a.type == kRegExpandText) &&
         TrimNull(a.data) == TrimNull(b.data) && !a.half_character && !b.half_character &&
         a.data.size() + 1 >= b.data.size() && b.data.size() + 1 >= a.data.size();
}

// These keys are protected with all that lies below them.
bool IsInProtectedKey(const std::string& full_path) { return IsProtectedKey(full_path + "\\ "); }

}  // namespace

bool IsScriptOf64(std::string_view name) { return EndsWithNoCase(name, kExported64Ending); }

bool IsOwnScript(std::string_view name) {
  return std::ranges::any_of(kScriptEndings, [&](const char* ending) {
    return name.size() > std::string_view(ending).size() && EndsWithNoCase(name, ending);
  });
}

RegistryRestore::RegistryRestore(Registry& registry, Registry* registry64, CodePages& code_pages,
                                 ErrorLog& log, bool foreign)
    : registry_(registry),
      registry64_(registry64),
      code_pages_(code_pages),
      keys_(registry, log, [] {}),
      keys64_(registry64 ? *registry64 : registry, log, [] {}),
      foreign_(foreign) {}

Outcome RegistryRestore::AddScript(const std::string& name, std::string_view bytes) {
  if (scripts_ == kMostScripts) {
    return Outcome::Failed(kOverflow, "The archive holds too many scripts");
  }
  ScriptContent content;
  if (Outcome read = ReadRegScript(bytes, code_pages_, &content); !read.ok()) return read;
  const std::uint32_t bit = 1u << scripts_++;
  for (const ScriptKey& key : content.keys) Add(key, IsScriptOf64(name), bit);
  for (std::string& line : content.refused) left_out_.push_back(name + ": " + std::move(line));
  return {};
}

void RegistryRestore::Add(const ScriptKey& key, bool view64, std::uint32_t script) {
  RegistryItem item;
  item.view64 = view64;
  item.scripts = script;
  if (key.erased) return left_out_.push_back("[-" + key.path + "]");
  if (!SplitRegistryPlace(PlainKeyPath(key.path), &item.place)) {
    return left_out_.push_back("[" + key.path + "]");
  }
  if (key.values.empty()) ItemFor(item).scripts |= script;
  item.is_value = true;
  for (const ScriptValue& value : key.values) {
    if (value.erased) {
      left_out_.push_back("[" + key.path + "] " + ValueNameForScript(value.name) + "=-");
      continue;
    }
    item.name = value.name;
    RegistryItem& kept = ItemFor(item);
    kept.scripts |= script;
    kept.value = value.value;
  }
}

// The item of that place: the one that is there, or this one, judged.
RegistryItem& RegistryRestore::ItemFor(RegistryItem item) {
  std::string id = Upper(FullKeyPath(item.place));
  id += item.view64 ? '\1' : '\2';
  if (item.is_value) id += '\n' + Upper(item.name);
  const auto [at, added] = places_.try_emplace(std::move(id), items_.size());
  if (added) {
    item.refused = Judge(item);
    items_.push_back(std::move(item));
  }
  return items_[at->second];
}

Outcome RegistryRestore::Judge(const RegistryItem& item) {
  const std::string full_path = FullKeyPath(item.place);
  const auto refused = [](const char* why) { return Outcome::Failed(kPermissionDenied, why); };
  if (!RegistryOf(item.view64)) return refused("This Windows has no 64-bit registry");
  if (item.place.path.empty()) return refused("It is protected: a root of the registry");
  if (item.is_value && EqualsNoCase(item.name, kLinkValue)) {
    return refused("A link in the registry is not restored");
  }
  if ((item.is_value && IsProtectedValue(full_path, item.name)) ||
      (foreign_ && IsInProtectedKey(full_path))) {
    return refused("It is protected: Windows needs it");
  }
  KeyRemover& keys = item.view64 ? keys64_ : keys_;
  if (keys.LeadsAside(item.place.root, item.place.path)) {
    return refused("A link in the registry is not followed");
  }
  return {};
}

ItemState RegistryRestore::StateOf(const RegistryItem& item) {
  Registry* registry = RegistryOf(item.view64);
  if (!registry) return ItemState::Missing;
  const auto& [root, path] = item.place;
  if (!item.is_value) {
    const bool missing = registry->TryOpen(root, path, kKeyRead) == kRegNotFound;
    return missing ? ItemState::Missing : ItemState::Same;
  }
  RegValue there;
  if (registry->QueryValue(root, path, item.name, &there) != kRegOk) return ItemState::Missing;
  return SameBytes(there, item.value) ? ItemState::Same : ItemState::Different;
}

RegScript RegistryRestore::ForEditor(std::size_t script, const std::vector<bool>& chosen,
                                     ScriptReader reader) {
  RegScript text(code_pages_, reader);
  const RegistryItem* above = nullptr;
  for (std::size_t i = 0; i < items_.size(); ++i) {
    const RegistryItem& item = items_[i];
    const std::string full_path = FullKeyPath(item.place);
    if (!chosen[i] || !item.refused.ok() || !(item.scripts >> script & 1)) continue;
    if (full_path.find_first_of("[]") != full_path.npos) continue;
    const bool same_key = above && FullKeyPath(above->place) == full_path;
    if (!same_key && !text.AddKey(full_path)) continue;
    above = &item;
    // What the form cannot hold is written later, without the editor.
    if (item.is_value) static_cast<void>(text.AddValue(item.name, item.value));
  }
  return text;
}

void RegistryRestore::AddRecords(std::string_view bytes, bool view64) {
  for (KeyRecord& record : ReadKeyRecords(bytes)) {
    RecordedKey key{{}, view64, std::move(record.traits)};
    if (SplitRegistryPlace(record.path, &key.place)) recorded_.push_back(std::move(key));
  }
}

// Keys that are there keep what they are: they may be another's by now.
void RegistryRestore::MakeKeys(const std::vector<bool>& chosen) {
  const auto id = [](const RegistryPlace& place, bool view64) {
    return Upper(FullKeyPath(place)) + (view64 ? '\1' : '\2');
  };
  std::unordered_set<std::string> wanted;
  for (std::size_t i = 0; i < items_.size(); ++i) {
    if (chosen[i] && items_[i].refused.ok()) wanted.insert(id(items_[i].place, items_[i].view64));
  }
  for (RecordedKey& key : recorded_) {
    RegistryItem item;
    item.place = key.place;
    item.view64 = key.view64;
    if (!wanted.contains(id(key.place, key.view64))) continue;
    if (Outcome judged = Judge(item); !judged.ok()) {
      key.why = std::move(judged);
      continue;
    }
    Registry& registry = *RegistryOf(key.view64);
    RegStatus status = registry.TryOpen(key.place.root, key.place.path, kKeyRead);
    if (status == kRegOk) continue;
    if (status == kRegNotFound) {
      status = registry.CreateKeyOfKind(key.place.root, key.place.path, key.traits.kind);
    }
    key.made = status == kRegOk;
    if (!key.made) key.why = Outcome::OfRegistry(status);
  }
}

// The deepest first: afterwards a key may deny the way to those below it.
std::vector<ItemReport> RegistryRestore::FinishKeys() {
  std::vector<ItemReport> unfinished;
  for (auto key = recorded_.rbegin(); key != recorded_.rend(); ++key) {
    Outcome done = Finish(*key);
    if (!done.ok()) unfinished.push_back({FullKeyPath(key->place), std::move(done)});
  }
  return unfinished;
}

Outcome RegistryRestore::Finish(const RecordedKey& key) {
  const auto& [root, path] = key.place;
  Registry* registry = RegistryOf(key.view64);
  if (!key.why.ok()) {
    // One that is not there at all is no half success: what was to lie in it is told of.
    const bool there = registry && registry->TryOpen(root, path, kKeyRead) == kRegOk;
    return there ? key.why : Outcome();
  }
  if (!key.made || key.traits.security.empty()) return {};
  RegistryItem item;
  item.place = key.place;
  item.view64 = key.view64;
  if (Outcome judged = Judge(item); !judged.ok()) return judged;
  const RegStatus status = registry->SetKeySecurity(root, path, key.traits.security);
  return status == kRegOk ? Outcome() : Outcome::OfRegistry(status);
}

// The link may have come since the script was judged.
Outcome RegistryRestore::Restore(const RegistryItem& item) {
  if (StateOf(item) == ItemState::Same) return {};
  if (Outcome judged = Judge(item); !judged.ok()) return judged;
  Registry& registry = *RegistryOf(item.view64);
  const auto& [root, path] = item.place;
  const RegStatus status = item.is_value ? registry.SetValue(root, path, item.name, item.value)
                                         : registry.CreateKey(root, path);
  if (status != kRegOk) return Outcome::OfRegistry(status);
  return Reads(item) ? Outcome()
                     : Outcome::Failed(kDeviceError, "The registry does not read as restored");
}

bool RegistryRestore::Reads(const RegistryItem& item) {
  if (StateOf(item) == ItemState::Same) return true;
  RegValue there;
  const auto& [root, path] = item.place;
  return item.is_value &&
         RegistryOf(item.view64)->QueryValue(root, path, item.name, &there) == kRegOk &&
         SameText(there, item.value);
}

}  // namespace scourwell
