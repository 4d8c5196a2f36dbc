#include "definitions/list_loader.h"

#include <algorithm>

namespace scourwell {

void ListLoader::Load(const Loader& loader) {
  if (loader.clears_first) {
    for (const Sequence& sequence : loader.sequences) (lists_.*sequence.list).Clear();
  }
  int bar = 0;
  for (const Sequence& sequence : loader.sequences) {
    bar = static_cast<int>(
        std::min<std::int64_t>(std::int64_t{bar} + std::max(0, CountOf(sequence)), INT32_MAX));
  }
  progress_.Begin(bar);
  checks_.BeginList();
  for (const Sequence& sequence : loader.sequences) {
    if (pump_.closing()) break;
    if (!log_.TrapOutcome(loader.name, [&] { return ReadSequence(sequence, &bar); }).ok()) continue;
  }
  progress_.End();
}

int ListLoader::CountOf(const Sequence& sequence) {
  return LeadingNumber(reference_.updateListfromINI("NTOT", sequence.count_key));
}

Outcome ListLoader::ReadSequence(const Sequence& sequence, int* bar_left) {
  int n = 0;
  try {
    for (; n < kMostEntries; ++n) {
      if (!pump_.Next()) return {};
      if (!ReadEntry(sequence, n)) break;
      if (*bar_left > 0) {
        --*bar_left;
        progress_.Advance();
      }
    }
  } catch (const std::bad_alloc&) {
    return Outcome::Failed(kOutOfMemory).With("I: ", std::to_string(n));
  }
  return CheckCount(sequence, n);
}

// False at the end of the sequence: some key of the entry is absent or empty.
bool ListLoader::ReadEntry(const Sequence& sequence, int n) {
  const std::string number = std::to_string(n);
  const std::string name =
      reference_.updateListfromINI(sequence.section, number + sequence.name_key);
  if (name.empty()) return false;
  const std::string value =
      reference_.updateListfromINI(sequence.section, number + sequence.value_key);
  if (value.empty()) return false;
  std::string value2;
  if (sequence.value2_key) {
    value2 = reference_.updateListfromINI(sequence.section, number + sequence.value2_key);
    if (value2.empty()) return false;
  }
  Deliver(sequence, name, value, value2);
  return true;
}

void ListLoader::Deliver(const Sequence& sequence, const std::string& name,
                         const std::string& value, const std::string& value2) {
  switch (sequence.target) {
    case EntryTarget::Row:
      FillListBox(lists_.*sequence.list, sequence.type, name, value);
      return;
    case EntryTarget::KeyRow:
      FillListBoxRegistrySType(lists_.*sequence.list, value, name);
      return;
    case EntryTarget::ValueRow:
      FillListBoxRegistryVType(lists_.*sequence.list, value, name, value2);
      return;
    case EntryTarget::ChecksumRow:
      FillListBox(lists_.*sequence.list, name, value, value2);
      return;
    case EntryTarget::Process:
      checks_.CheckProcess(name, value);
      return;
    case EntryTarget::DirectFile:
    case EntryTarget::DirectFolder:
      break;
  }
  const std::string path = ExpandFolderToken(value, folders_).value_or("");
  if (path.empty()) return;
  if (sequence.target == EntryTarget::DirectFile) {
    checks_.CheckFile(name, path);
  } else {
    checks_.CheckFolder(name, path);
  }
}

// A count that differs from what was read betrays a damaged file; it is put on record once.
Outcome ListLoader::CheckCount(const Sequence& sequence, int entries) {
  if (reported_generation_ != reference_.generation()) reported_.clear();
  reported_generation_ = reference_.generation();
  const std::string count = reference_.updateListfromINI("NTOT", sequence.count_key);
  if (count.empty() || LeadingNumber(count) == entries) return {};
  if (!reported_.insert(sequence.count_key).second) return {};
  return Outcome::Failed(kPastEndOfFile, std::string("The definitions announce ") + count +
                                             " entries of " + sequence.name_key + ", " +
                                             std::to_string(entries) + " were read")
      .With("I: ", std::to_string(entries));
}

WithdrawnValues ListLoader::Withdrawn() {
  WithdrawnValues values;
  for (int n = 0; n < kMostNames; ++n) {
    std::string value = reference_.updateListfromINI("REMO", std::to_string(n) + "REMENT");
    if (value.empty()) break;
    values.insert(std::move(value));
  }
  return values;
}

void ListLoader::removeFromList() {
  std::size_t row = 0;  // that is compared
  const auto remove = [&] {
    const WithdrawnValues withdrawn = Withdrawn();
    if (withdrawn.empty()) return;
    lists_.lstSearch.Retain([&](const SignatureRow& signature) {
      ++row;
      return !withdrawn.contains(signature.sub2);
    });
  };
  log_.Trap("removeFromList", [&]() -> Outcome {
    try {
      remove();
    } catch (const std::bad_alloc&) {
      return Outcome::Failed(kOutOfMemory).With("J: ", std::to_string(row));
    }
    return {};
  });
}

}  // namespace scourwell
