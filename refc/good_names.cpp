// SPDX-License-Identifier: MIT
#include "refc/good_names.h"

#include <algorithm>

#include "text/paths.h"
#include "text/text.h"

namespace scourwell::refc {
namespace {

// The lists in the order of GoodList.
const char* const kTexts[kGoodLists] = {kGoodFiles, kGoodFolders,  kGoodRunValues, kGoodSites,
                                        kGoodKeys,  kGoodClassIds, kGoodMakers};

std::vector<std::string_view> Split(std::string_view text) {
  std::vector<std::string_view> names;
  for (std::size_t end = 0; !text.empty(); text.remove_prefix(end + 1)) {
    end = text.find('\n');
    names.push_back(text.substr(0, end));
  }
  return names;
}

}  // namespace

const GoodNames& GoodNames::Get() {
  static const GoodNames names;
  return names;
}

GoodNames::GoodNames() {
  for (std::size_t i = 0; i < kGoodLists; ++i) {
    lists_[i].names = Split(kTexts[i]);
    std::sort(lists_[i].names.begin(), lists_[i].names.end(), NoCaseLess());
    for (const std::string_view name : lists_[i].names) {
      lists_[i].folded.append(Upper(name)).append("\n");
    }
  }
}

bool GoodNames::Has(GoodList list, std::string_view name) const {
  const auto& names = Of(list).names;
  return std::binary_search(names.begin(), names.end(), name, NoCaseLess());
}

std::string_view GoodNames::Holding(GoodList list, std::string_view part) const {
  const struct Names& of = Of(list);
  const std::size_t at = of.folded.find(part);
  if (at == std::string::npos) return {};
  return of.names[static_cast<std::size_t>(
      std::count(of.folded.begin(), of.folded.begin() + static_cast<std::ptrdiff_t>(at), '\n'))];
}

std::string_view GoodNames::KeyAtOrBelow(std::string_view key) const {
  // Not all that lies below a key follows it at once, but something with this beginning does.
  const auto& names = Of(GoodList::Keys).names;
  for (const std::string& beginning : {std::string(key), std::string(key) + "\\"}) {
    const auto name = std::lower_bound(names.begin(), names.end(), beginning, NoCaseLess());
    if (name == names.end() || !StartsWithNoCase(*name, beginning)) {
      continue;
    }
    if (EndsInSeparator(beginning) || name->size() == key.size()) return *name;
  }
  return {};
}

}  // namespace scourwell::refc
