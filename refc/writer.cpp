// SPDX-License-Identifier: MIT
#include "refc/writer.h"

#include "definitions/reference_file.h"

namespace scourwell::refc {
namespace {

// Gathers small pieces into large ones.
class Output {
 public:
  explicit Output(const Put& put) : put_(put) {}
  ~Output() { put_(text_); }

  void Header(std::string_view section) {
    text_.append("[").append(section).append("]\r\n");
    Flush();
  }
  void Key(std::string_view number, std::string_view name, std::string_view plain) {
    text_.append(number).append(name).append("=");
    AppendScrambled(plain, &text_);
    text_.append("\r\n");
    Flush();
  }

 private:
  void Flush() {
    if (text_.size() < kPiece) return;
    put_(text_);
    text_.clear();
  }

  static constexpr std::size_t kPiece = 64 * 1024;
  const Put& put_;
  std::string text_;
};

void WriteRows(const DefinitionSet& set, std::size_t sequence, Output* out) {
  const Listed& listed = Catalogue()[sequence];
  std::size_t n = 0;
  for (const Row& row : set.rows[sequence]) {
    const std::string number = std::to_string(n++);
    for (std::size_t cell = 0; cell < listed.keys.size(); ++cell) {
      if (listed.keys[cell]) out->Key(number, listed.keys[cell], set.View(row, cell));
    }
  }
}

}  // namespace

void WriteReference(const DefinitionSet& set, const Put& put) {
  Output out(put);
  const std::span<const Listed> all = Catalogue();
  for (std::size_t which = 0; which < kReleaseValues.size(); ++which) {
    if (set.Release(which).empty()) continue;
    out.Header(kReleaseValues[which].section);
    out.Key("", kReleaseValues[which].key, set.Release(which));
  }
  std::string_view section;
  for (std::size_t sequence = 0; sequence < all.size(); ++sequence) {
    if (set.rows[sequence].empty()) continue;
    if (section != all[sequence].section) out.Header(section = all[sequence].section);
    WriteRows(set, sequence, &out);
  }
  bool counted = false;
  for (std::size_t sequence = 0; sequence < all.size(); ++sequence) {
    if (set.rows[sequence].empty() || !all[sequence].count_key) continue;
    if (!counted) out.Header("NTOT");
    counted = true;
    out.Key("", all[sequence].count_key, std::to_string(set.rows[sequence].size()));
  }
}

}  // namespace scourwell::refc
