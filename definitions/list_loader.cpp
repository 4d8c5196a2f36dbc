// SPDX-License-Identifier: MIT
#include "definitions/list_loader.h"

#include <algorithm>
#include <unordered_set>

namespace scourwell {

std::optional<EntryTexts> ReadEntry(ReferenceFile& reference, const Sequence& sequence, int n) {
  const std::string number = std::to_string(n);
  EntryTexts texts;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    if (!sequence.keys[i]) continue;
    texts[i] = reference.updateListfromINI(sequence.section, number + sequence.keys[i]);
    if (texts[i].empty()) return std::nullopt;
  }
  return texts;
}

void ListLoader::Load(const Loader& loader) {
  for (const Sequence& sequence : loader.sequences) ForgetBeforeLoading(sequence.kind, &lists_);
  int bar = 0;
  for (const Sequence& sequence : loader.sequences) {
    bar = static_cast<int>(
        std::min<std::int64_t>(std::int64_t{bar} + std::max(0, CountOf(sequence)), INT32_MAX));
  }
  progress_.Begin(bar);
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
    for (; n < sequence.most; ++n) {
      if (!pump_.Next()) return {};
      const auto entry = ReadEntry(reference_, sequence, n);
      if (!entry) break;
      const auto& [spy, value, second] = *entry;
      AddDefinition(sequence.kind, {spy, value, second}, folders_, &lists_);
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

// A count that differs from what was read betrays a damaged file; it is put on record once.
Outcome ListLoader::CheckCount(const Sequence& sequence, int entries) {
  if (reported_generation_ != reference_.generation()) reported_.clear();
  reported_generation_ = reference_.generation();
  const std::string count = reference_.updateListfromINI("NTOT", sequence.count_key);
  if (count.empty() || LeadingNumber(count) == entries) return {};
  if (!reported_.insert(sequence.count_key).second) return {};
  return Outcome::Failed(kPastEndOfFile, std::string("The definitions announce ") + count +
                                             " entries of " + sequence.keys[0] + ", " +
                                             std::to_string(entries) + " were read")
      .With("I: ", std::to_string(entries));
}

void ListLoader::removeFromList() {
  std::size_t row = 0;  // that is compared
  const auto remove = [&] {
    const Sequence& sequence = kRemoveFromList.sequences[0];
    std::unordered_set<std::string, NoCaseHash, NoCaseEqual> withdrawn;
    for (int n = 0; n < sequence.most; ++n) {
      auto entry = ReadEntry(reference_, sequence, n);
      if (!entry) break;
      withdrawn.insert(std::move((*entry)[1]));
    }
    if (withdrawn.empty()) return;
    const auto prune = [&](auto& list, auto name) {
      list.Remove([&](const auto& definition) {
        ++row;
        return withdrawn.find(definition.*name) != withdrawn.end();
      });
    };
    prune(lists_.searched, &SearchedName::name);
    prune(lists_.cookies, &CookieFragment::fragment);
    prune(lists_.processes, &ProcessName::name);
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
