#include "definitions/signature_list.h"

#include "text/text.h"

namespace scourwell {
namespace {

constexpr std::size_t kLongestText = 0xFFFF;

}  // namespace

SignatureRow SignatureList::operator[](std::size_t index) const {
  const Row& row = rows_[index];
  return {View(row.text), View(row.sub1), View(row.sub2)};
}

SignatureList::Span SignatureList::Store(std::string_view text) {
  text = text.substr(0, kLongestText);
  const Span span{static_cast<std::uint32_t>(pool_.size()),
                  static_cast<std::uint16_t>(text.size())};
  pool_.append(text);
  return span;
}

void SignatureList::Add(std::string_view text, std::string_view sub1, std::string_view sub2) {
  // Neighbouring rows mostly share their type and often their spy name.
  Row row;
  const Row* last = rows_.empty() ? nullptr : &rows_.back();
  row.text = last && View(last->text) == text ? last->text : Store(text);
  row.sub1 = last && View(last->sub1) == sub1 ? last->sub1 : Store(sub1);
  row.sub2 = Store(sub2);
  rows_.push_back(row);
}

void SignatureList::Clear() {
  rows_ = {};
  pool_ = {};
}

void FillListBox(SignatureList& list, std::string_view type, std::string_view name,
                 std::string_view value) {
  list.Add(Upper(TrimBlanks(type)), name, value);
}

void FillListBoxRegistrySType(SignatureList& list, std::string_view key_path,
                              std::string_view name) {
  list.Add(Upper(TrimBlanks(key_path)), name, {});
}

void FillListBoxRegistryVType(SignatureList& list, std::string_view key_path, std::string_view name,
                              std::string_view value_name) {
  list.Add(Upper(TrimBlanks(key_path)), value_name, name);
}

}  // namespace scourwell
