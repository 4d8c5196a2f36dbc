// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "definitions/definition_list.h"
#include "platform/pump.h"
#include "scan/folded_entry.h"
#include "scan/literal_index.h"

namespace scourwell {

// The searched rows of one pass, frozen, so that one listing of a folder serves them all.
//
// An exact name is answered by the listing itself, by long and by 8.3 name. A row with wildcards
// or a relative path is only nominated here; whoever uses the index asks the system's own listing
// before it believes a match. The list must outlive the index and stay unchanged.
class SignatureIndex {
 public:
  // Filing a hundred thousand rows takes long enough to yield to `pump`, if there is one; what is
  // closing meanwhile gets an index of a part of the rows.
  explicit SignatureIndex(const DefinitionList<SearchedName>& list, Pump* pump = nullptr);

  struct Nomination {
    std::uint32_t row;
    bool certain;  // false: the system's listing must confirm it
  };

  // Appends the rows that this entry of a folder may answer, in no order, possibly repeated.
  // File rows are answered by files and folder rows by folders, relative rows by the folder that
  // their path begins with.
  void Nominate(const FoldedEntry& entry, std::vector<Nomination>* nominations) const;

  const SearchedName& Row(std::uint32_t row) const { return list_[row]; }
  bool IsFolderRow(std::uint32_t row) const { return list_[row].item == DiskItem::Folder; }

  // Rows that can never be looked for, and the first such signature.
  std::size_t unusable() const { return unusable_; }
  const std::string& first_unusable() const { return first_unusable_; }

 private:
  // Rows under one folded name, as chains through next_.
  class NameTable {
   public:
    void Reserve(std::size_t names);
    void Add(const FoldedName& name, std::uint32_t row);
    template <class Visit>
    void Find(const FoldedName& name, Visit&& visit) const {
      if (entries_.empty()) return;
      for (std::uint32_t e = slots_[SlotOf(name)]; e != 0; e = entries_[e - 1].next) {
        visit(entries_[e - 1].row);
      }
    }

   private:
    struct Entry {
      std::uint32_t name_begin;
      std::uint32_t name_size;
      std::uint32_t row;
      std::uint32_t next;
    };
    std::size_t SlotOf(const FoldedName& name) const;

    std::string names_;
    std::vector<Entry> entries_;
    std::vector<std::uint32_t> slots_;  // 0, or an index into entries_ plus 1
  };

  void File(std::uint32_t row, std::string_view signature);
  void NominateName(const FoldedName& name, bool folder, bool link,
                    std::vector<Nomination>* nominations) const;

  const DefinitionList<SearchedName>& list_;
  NameTable names_;
  NameTable first_parts_;
  LiteralIndex wildcards_;
  std::vector<std::uint32_t> anything_;  // wildcard rows without any literal
  std::vector<std::string> patterns_;    // folded wildcard patterns
  std::vector<std::uint32_t> pattern_rows_;
  std::size_t unusable_ = 0;
  std::string first_unusable_;
};

}  // namespace scourwell
