// SPDX-License-Identifier: MIT
#include "scan/literal_index.h"

#include <algorithm>
#include <unordered_map>

namespace scourwell {

void LiteralIndex::Add(std::uint32_t id, std::string_view literal) {
  pending_.push_back({id, std::string(literal)});
}

void LiteralIndex::Freeze() {
  // How many literals hold each run: the rarest one files a literal best.
  std::unordered_map<std::uint64_t, std::uint32_t> counts;
  const auto key = [](std::string_view run) { return std::uint64_t{Pack(run)} << 3 | run.size(); };
  const auto for_runs = [](const Pending& pending, auto&& visit) {
    const std::size_t size = std::min(kRun, pending.literal.size());
    for (std::size_t at = 0; at + size <= pending.literal.size(); ++at) {
      visit(std::string_view(pending.literal).substr(at, size));
    }
  };
  for (const Pending& pending : pending_) {
    for_runs(pending, [&](std::string_view run) { ++counts[key(run)]; });
  }

  std::size_t capacity = 64;
  while (capacity < pending_.size() * 2) capacity *= 2;
  slots_.assign(capacity, {});
  filter_.assign(kFilterBits / 32, 0);
  entries_.reserve(pending_.size());
  for (const Pending& pending : pending_) {
    std::string_view best;
    std::uint32_t fewest = kEnd;
    for_runs(pending, [&](std::string_view run) {
      const std::uint32_t count = counts[key(run)];
      if (count >= fewest) return;
      fewest = count;
      best = run;
    });
    const std::uint32_t run = Pack(best);
    Slot& slot = slots_[SlotOf(run, best.size())];
    const auto offset = static_cast<std::uint32_t>(best.data() - pending.literal.data());
    entries_.push_back({pending.id, slot.size ? slot.first : kEnd, offset});
    slot = {run, static_cast<std::uint32_t>(entries_.size() - 1),
            static_cast<std::uint8_t>(best.size())};
    const std::uint32_t bit = Hash(run, best.size()) % kFilterBits;
    filter_[bit / 32] |= 1u << bit % 32;
    in_use_[best.size()] = true;
  }
  pending_ = {};
}

std::size_t LiteralIndex::SlotOf(std::uint32_t run, std::size_t size) const {
  const std::size_t mask = slots_.size() - 1;
  std::size_t at = Hash(run, size) & mask;
  while (slots_[at].size != 0 && (slots_[at].run != run || slots_[at].size != size)) {
    at = (at + 1) & mask;
  }
  return at;
}

}  // namespace scourwell
