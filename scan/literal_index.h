// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace scourwell {

// Finds, among many literals at once, those that may occur in a text. Each literal is filed under
// one of its own runs of four characters (fewer where the literal is shorter), the rarest among
// all literals; a text is cut into such runs and each is looked up. The index proposes, the
// caller checks: it says yes too often, never too seldom.
//
// For example, of the literals
//     1 "TOOLBAR"    2 "TOOLBOX"    3 "BAR.EXE"
// the runs "TOOL" and "OOLB" stand in two, all others in one. Each literal goes under the first of
// its rarest runs: 1 under "OLBA", 2 under "OLBO", 3 under "BAR.". The text "MYTOOLBAR.DLL" is cut
// into "MYTO", "YTOO", "TOOL", "OOLB", "OLBA", "LBAR", "BAR.", "AR.D" and so on. Nothing lies under
// "TOOL" and "OOLB", although they begin two literals; "OLBA" proposes 1, which the caller finds in
// the text, and "BAR." proposes 3, which it does not. Nobody ever looks at 2.
//
// A filter of one bit for each hashed run answers for nearly all runs of a foreign text. Literals
// and texts must be folded by the caller.
class LiteralIndex {
 public:
  // `literal` must not be empty. All literals are added before Freeze.
  void Add(std::uint32_t id, std::string_view literal);
  void Freeze();

  // Calls `visit(id)` for every literal whose run occurs in the text, once per occurrence.
  template <class Visit>
  void Propose(std::string_view text, Visit&& visit) const {
    ProposeAt(text, [&](std::uint32_t id, std::size_t) { visit(id); });
  }
  // Calls `visit(id, at)`: the literal can only begin at `at`, so that checking it costs no look at
  // the rest of the text.
  template <class Visit>
  void ProposeAt(std::string_view text, Visit&& visit) const {
    for (std::size_t size = 1; size <= kRun; ++size) {
      if (!in_use_[size]) continue;
      const std::uint32_t mask = 0xFFFFFFFFu >> 8 * (kRun - size);
      std::uint32_t run = Pack(text.substr(0, size - 1));
      for (std::size_t at = 0; at + size <= text.size(); ++at) {
        run = (run << 8 | static_cast<unsigned char>(text[at + size - 1])) & mask;
        if (!MayHold(run, size)) continue;
        for (std::uint32_t e = First(run, size); e != kEnd; e = entries_[e].next) {
          if (entries_[e].offset <= at) visit(entries_[e].id, at - entries_[e].offset);
        }
      }
    }
  }

  bool empty() const { return entries_.empty(); }

 private:
  static constexpr std::size_t kRun = 4;
  static constexpr std::uint32_t kEnd = 0xFFFFFFFF;

  struct Entry {
    std::uint32_t id;
    std::uint32_t next;
    std::uint32_t offset;  // of the run in the literal
  };
  struct Slot {
    std::uint32_t run = 0;
    std::uint32_t first = kEnd;
    std::uint8_t size = 0;  // 0: the slot is free
  };
  struct Pending {
    std::uint32_t id;
    std::string literal;
  };

  static std::uint32_t Pack(std::string_view run) {
    std::uint32_t packed = 0;
    for (const char c : run) packed = packed << 8 | static_cast<unsigned char>(c);
    return packed;
  }
  static std::uint32_t Hash(std::uint32_t run, std::size_t size) {
    std::uint32_t hash = (run + static_cast<std::uint32_t>(size)) * 2654435761u;
    return hash ^ hash >> 15;
  }
  bool MayHold(std::uint32_t run, std::size_t size) const {
    const std::uint32_t bit = Hash(run, size) % kFilterBits;
    return (filter_[bit / 32] >> bit % 32 & 1) != 0;
  }
  std::size_t SlotOf(std::uint32_t run, std::size_t size) const;
  std::uint32_t First(std::uint32_t run, std::size_t size) const {
    return slots_[SlotOf(run, size)].first;
  }

  static constexpr std::uint32_t kFilterBits = 1u << 17;

  std::vector<Pending> pending_;
  std::vector<Entry> entries_;
  std::vector<Slot> slots_;
  std::vector<std::uint32_t> filter_;
  std::array<bool, kRun + 1> in_use_{};
};

}  // namespace scourwell
