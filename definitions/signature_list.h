#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace scourwell {

// Row texts, as stored: trimmed and upper-cased.
inline constexpr std::string_view kRowSpyFile = "SPY FILE";
inline constexpr std::string_view kRowSpyFolder = "SPY FOLDER";
inline constexpr std::string_view kRowSpyCookie = "SPY COOKIE";

// One row of a signature list. The views stay valid until the list changes.
struct SignatureRow {
  std::string_view text;
  std::string_view sub1;
  std::string_view sub2;
};

// A list of signature rows in insertion order; duplicates are kept. The characters lie in one
// block, so that a hundred thousand rows cost little more than their texts.
class SignatureList {
 public:
  std::size_t size() const { return rows_.size(); }
  bool empty() const { return rows_.empty(); }
  SignatureRow operator[](std::size_t index) const;

  // A text or sub-item longer than 65,535 bytes is cut there.
  void Add(std::string_view text, std::string_view sub1, std::string_view sub2);
  void Clear();

  // Keeps the rows that `keep(row)` says yes to, in their order.
  template <class Keep>
  void Retain(Keep&& keep) {
    std::size_t kept = 0;
    for (std::size_t i = 0; i < rows_.size(); ++i) {
      if (keep((*this)[i])) rows_[kept++] = rows_[i];
    }
    rows_.resize(kept);
  }

 private:
  struct Span {
    std::uint32_t begin = 0;
    std::uint16_t size = 0;
  };
  struct Row {
    Span text;
    Span sub1;
    Span sub2;
  };

  Span Store(std::string_view text);
  std::string_view View(Span span) const {
    return std::string_view(pool_).substr(span.begin, span.size);
  }

  std::string pool_;
  std::vector<Row> rows_;
};

// Adds a typed row: text = the type, trimmed and upper-cased.
void FillListBox(SignatureList& list, std::string_view type, std::string_view name,
                 std::string_view value);
// Adds a registry key row: text = the key path, trimmed and upper-cased.
void FillListBoxRegistrySType(SignatureList& list, std::string_view key_path,
                              std::string_view name);
// Adds a registry value row. The value name comes before the spy name, unlike everywhere else.
void FillListBoxRegistryVType(SignatureList& list, std::string_view key_path, std::string_view name,
                              std::string_view value_name);

// The lists that a scan works with.
struct SignatureLists {
  SignatureList lstSearch;      // the working list of the current pass
  SignatureList lstRegistry;    // registry values
  SignatureList lstRegKSearch;  // named registry keys
  SignatureList lstCESearch;    // company, by equality
  SignatureList lstCWSearch;    // company, by containment
  SignatureList lstOFNSearch;   // original file name
  SignatureList lstIFNSearch;   // internal file name
  SignatureList lstPNSearch;    // product name
  SignatureList lstFDSearch;    // file description
  SignatureList lstFCSSearch;   // file size and content checksum
};

}  // namespace scourwell
