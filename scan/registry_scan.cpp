// SPDX-License-Identifier: MIT
#include "scan/registry_scan.h"

#include <utility>
#include <vector>

#include "machine/cregister.h"
#include "machine/registry_place.h"
#include "machine/registry_views.h"
#include "text/paths.h"
#include "text/text.h"

namespace scourwell {

enum class Walker { Values, Subkeys };

struct RegistryWalk {
  RootKey root;
  const char* key;
  Walker walker;
};

namespace {

constexpr RegistryWalk kQuickWalks[] = {
    {RootKey::CurrentUser, "Software\\Microsoft\\Windows\\CurrentVersion\\run", Walker::Values},
    {RootKey::LocalMachine, "Software\\Microsoft\\Internet Explorer\\Main", Walker::Values},
    {RootKey::CurrentUser, "Software\\Microsoft\\Internet Explorer\\Main", Walker::Values},
    {RootKey::LocalMachine, "Software\\Microsoft\\Internet Explorer\\Search", Walker::Values},
    {RootKey::CurrentUser, "Software\\Microsoft\\Internet Explorer\\Search", Walker::Values},
    {RootKey::LocalMachine, "Software\\Microsoft\\Internet Explorer", Walker::Values},
    {RootKey::CurrentUser, "Software\\Microsoft\\Internet Explorer", Walker::Values},
    {RootKey::Users, ".Default\\Software\\Microsoft\\Internet Explorer", Walker::Values},
    {RootKey::Users, ".Default\\Software\\Microsoft\\Internet Explorer\\Main", Walker::Values},
    {RootKey::Users, ".Default\\Software\\Microsoft\\Internet Explorer\\Search", Walker::Values},
    {RootKey::LocalMachine, "Software\\Microsoft\\Internet Explorer\\Extensions", Walker::Subkeys},
    {RootKey::LocalMachine, "Software\\Microsoft\\Windows\\CurrentVersion\\SharedDLLs",
     Walker::Values},
    // A machine-wide key, looked up under the classes root on purpose.
    {RootKey::ClassesRoot,
     "Software\\Microsoft\\Windows\\Currentversion\\internet settings\\user agent\\post platform",
     Walker::Subkeys},
};

constexpr char kProviders[] =
    "SYSTEM\\CurrentControlSet\\Services\\WinSock2\\Parameters\\Protocol_Catalog9\\"
    "Catalog_Entries";

constexpr RegistryWalk kDeepWalks[] = {
    {RootKey::LocalMachine, "Software\\Microsoft\\Windows\\CurrentVersion\\moduleusage",
     Walker::Subkeys},
    {RootKey::ClassesRoot, "CLSID", Walker::Subkeys},
    {RootKey::LocalMachine, kProviders, Walker::Subkeys},
    {RootKey::LocalMachine, kProviders, Walker::Subkeys},  // twice on purpose
    {RootKey::LocalMachine, kProviders, Walker::Values},
};

constexpr char kClassKey[] = "CLSID";
constexpr unsigned kDeepest = 512;  // levels that the system allows

std::string FullPath(RootKey root, const std::string& path) { return FullKeyPath({root, path}); }

bool IsBelowClasses(std::string_view path) { return StartsWithNoCase(path, kClassKey); }

// The hive that a text names anywhere, tested in this order.
std::optional<RootKey> HiveIn(std::string_view text) {
  for (const RootKey root :
       {RootKey::CurrentUser, RootKey::ClassesRoot, RootKey::LocalMachine, RootKey::Users}) {
    if (FindNoCase(text, NameFromRoot(root)) != std::string_view::npos) return root;
  }
  return std::nullopt;
}

// A key that is not there is no failure.
Outcome Refusal(RegStatus status, RootKey root, const std::string& path) {
  if (status != kRegAccessDenied) return {};
  return Outcome::OfRegistry(status).With("Key: ", FullPath(root, path));
}

const RegistryPlace& KeyOf(const FoundKey& key) { return key.place; }
const RegistryPlace& KeyOf(const FoundValue& value) { return value.key; }

}  // namespace

std::string ComparableData(const RegValue& value) {
  const std::string text = ValueToText(value);
  switch (value.type) {
    case kRegBinary:
      return "hex:" + text;
    case kRegDword:
      return "dword:" + text.substr(2);
    default:
      return ReplaceAll(text, "\\", "\\\\");
  }
}

RegistryScan::RegistryScan(Registry& registry, Pump& pump, ErrorLog& log, FindingSink& sink,
                           ScanProgress& progress, DefinitionLists& lists, ListLoader& loader,
                           RegistryView view)
    : registry_(registry),
      pump_(pump),
      log_(log),
      sink_(sink),
      progress_(progress),
      lists_(lists),
      loader_(loader),
      index_(lists.key_parts, &KeyPart::part),
      view_(view) {}

// Only the machine's software and the classes are different ones in the 64-bit view.
bool RegistryScan::IsSeen(RootKey root, std::string_view path) const {
  constexpr std::string_view kSoftware = "Software\\";
  return !view_.is_64 || root == RootKey::ClassesRoot ||
         (root == RootKey::LocalMachine && StartsWithNoCase(path, kSoftware));
}

template <class Found>
void RegistryScan::Report(Found found, const Evidence& evidence) {
  // What the first pass has seen in a shared key is the same thing.
  if (view_.is_64 && view_.shares && IsSharedByViews(FullKeyPath(KeyOf(found))) &&
      sink_.Contains(found)) {
    return;
  }
  found.view64 = view_.is_64;
  ReportOnce(sink_, std::move(found), evidence);
}

// The first key part that occurs in the examined text names the spy; `found` says what of.
template <class Found>
bool RegistryScan::CheckMatching(std::string_view examined, Found&& found) {
  const auto row = index_.FirstRowIn(examined);
  if (!row) return false;
  const KeyPart& definition = lists_.key_parts[*row];
  Report(found(), {definition.spy, Certainty::Part, definition.source});
  return true;
}

void RegistryScan::QuickPass() {
  log_.Trap("QuickRegistryScan", [&] {
    LoadNamedKeys();
    Measure(kQuickWalks, lists_.keys.size() + lists_.values.size());
    CheckNamedKeys();
    WalkAll(kQuickWalks);
    CheckNamedValues();
  });
}

void RegistryScan::DeepPass() {
  log_.Trap("DeepRegistryScan", [&] {
    Measure(kDeepWalks, 0);
    WalkAll(kDeepWalks);
  });
}

// The steps of a pass: its rows and, of each walk, what lies right below its key. The system knows
// that number; what lies deeper belongs to its step.
void RegistryScan::Measure(std::span<const RegistryWalk> walks, std::size_t rows) {
  std::uint32_t total = static_cast<std::uint32_t>(rows);
  sizes_.clear();
  for (const RegistryWalk& walk : walks) {
    RegCounts counts;
    if (IsSeen(walk.root, walk.key)) registry_.Count(walk.root, walk.key, &counts);
    sizes_.push_back(walk.walker == Walker::Values ? counts.values : counts.keys);
    total += sizes_.back();
  }
  progress_.phase.Begin(total);
}

void RegistryScan::WalkAll(std::span<const RegistryWalk> walks) {
  for (std::size_t i = 0; i < walks.size(); ++i) {
    if (!pump_.Next()) return;
    progress_.phase.BeginPortion(sizes_[i]);
    if (IsSeen(walks[i].root, walks[i].key)) Walk(walks[i]);
    if (!pump_.closing()) progress_.phase.EndPortion();
  }
}

void RegistryScan::Walk(const RegistryWalk& walk) {
  progress_.lblScan = FullPath(walk.root, walk.key);
  if (walk.walker == Walker::Values) {
    WalkValues(walk.root, walk.key, true);
  } else {
    WalkKeys(walk.root, walk.key, 0);
  }
}

void RegistryScan::LoadNamedKeys() {
  lists_.keys.Clear();
  loader_.Load(kUpdateRegistryKList);
  loader_.Load(kUpdateRegistryKOList);
}

void RegistryScan::CheckNamedKeys() {
  progress_.phase.BeginPortion(static_cast<std::uint32_t>(lists_.keys.size()));
  for (const NamedKey& key : lists_.keys) {
    if (!pump_.Next()) break;
    CheckRegistryKType(key);
    progress_.phase.Step();
  }
  lists_.keys.Clear();
  if (!pump_.closing()) progress_.phase.EndPortion();
}

// Those who may not change a key may read it all the same. One that they may not even read makes a
// record: the scan has not seen everything.
void RegistryScan::CheckRegistryKType(const NamedKey& definition) {
  log_.Trap("CheckRegistryKType", [&]() -> Outcome {
    const auto root = HiveIn(FirstPart(definition.path));
    const std::string path = CRegister::SplitKeyPath(BehindFirstPart(definition.path));
    if (!root || path.empty() || !IsSeen(*root, path)) return {};  // a whole hive is no signature
    progress_.lblScan = definition.path;
    ++progress_.scanned_keys;
    RegStatus opened = registry_.TryOpen(*root, path, kKeyAllRights);
    if (opened == kRegAccessDenied) opened = registry_.TryOpen(*root, path, kKeyRead);
    if (opened == kRegOk) {
      Report(FoundKey{{*root, path}}, {definition.spy, Certainty::Place, definition.source});
    }
    return Refusal(opened, *root, path);
  });
}

void RegistryScan::CheckNamedValues() {
  progress_.phase.BeginPortion(static_cast<std::uint32_t>(lists_.values.size()));
  for (const NamedValue& value : lists_.values) {
    if (!pump_.Next()) return;
    CheckNamedValue(value);
    progress_.phase.Step();
  }
  progress_.phase.EndPortion();
}

// Values that a definition names are shown below their key in capitals.
void RegistryScan::CheckNamedValue(const NamedValue& definition) {
  const std::string key = Upper(definition.key);
  const auto root = HiveIn(FirstPart(key));
  if (!root || !HoldsSeparator(key)) return;
  progress_.lblScan = key;
  RegValue value;
  const std::string path = CRegister::SplitKeyPath(BehindFirstPart(key));
  const std::string name(definition.name);
  if (!IsSeen(*root, path)) return;
  if (registry_.QueryValue(*root, path, name, &value) != kRegOk) return;
  Report(FoundValue{{*root, path}, name, ValueToText(value)},
         {definition.spy, Certainty::Place, definition.source});
}

void RegistryScan::WalkValues(RootKey root, const std::string& path, bool steps) {
  log_.Trap("WalkRegistryValues", [&]() -> Outcome {
    if (pump_.closing()) return {};
    const auto visit = [&](const std::string& name, const RegValue& value) {
      if (!pump_.Next()) return false;
      CheckValue(root, path, name, value);
      if (steps) progress_.phase.Step();
      return true;
    };
    return Refusal(registry_.EnumValues(root, path, visit), root, path);
  });
}

void RegistryScan::CheckValue(RootKey root, const std::string& path, const std::string& name,
                              const RegValue& value) {
  const auto found = [&] { return FoundValue{{root, path}, name, ValueToText(value)}; };
  const std::string data = ComparableData(value);
  CheckMatching(AddPathToFileName(FullPath(root, path), name), found);
  CheckMatching(data, found);
  const std::size_t brace = data.find('}');
  if (IsBelowClasses(path) && brace != std::string::npos) {
    CheckMatching(data.substr(0, brace + 1), [&] { return FoundKey{{root, path}}; });
  }
}

void RegistryScan::WalkKeys(RootKey root, const std::string& path, unsigned depth) {
  if (depth >= kDeepest || pump_.closing()) return;
  registry_.EnumKeys(root, path, [&](const std::string& name) {
    if (!pump_.Next()) return false;
    const std::string below = path.empty() ? name : path + "\\" + name;
    ShowKey(root, below);
    // A key that is found takes its values along.
    if (!CheckMatching(FullPath(root, below), [&] { return FoundKey{{root, below}}; })) {
      WalkValues(root, below, false);
    }
    WalkKeys(root, below, depth + 1);
    ++progress_.scanned_keys;
    if (depth == 0) progress_.phase.Step();
    return !pump_.closing();
  });
}

void RegistryScan::ShowKey(RootKey root, const std::string& path) {
  progress_.lblScan = IsBelowClasses(path) && path.size() > sizeof kClassKey
                          ? path.substr(sizeof kClassKey)
                          : FullPath(root, path);
}

}  // namespace scourwell
