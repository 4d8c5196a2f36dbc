// SPDX-License-Identifier: MIT
#include "console/text_store.h"

#include <string_view>

namespace scourwell {
namespace {

constexpr std::uint64_t kLargest = 1u << 20;
constexpr std::string_view kReserved = "\t\r\n";

}  // namespace

void TextStore::Load() {
  if (loaded_) return;
  loaded_ = true;
  std::string content;
  if (!files_.Read(path_, kLargest, &content).ok()) return;
  for (std::size_t begin = 0; begin < content.size();) {
    const std::size_t end = std::min(content.find('\n', begin), content.size());
    const std::string line = content.substr(begin, end - begin);
    begin = end + 1;
    const std::size_t first = line.find('\t');
    const std::size_t second = first == line.npos ? first : line.find('\t', first + 1);
    if (second == line.npos) continue;
    texts_[{line.substr(0, first), line.substr(first + 1, second - first - 1)}] =
        line.substr(second + 1);
  }
}

std::string TextStore::Get(const std::string& section, const std::string& key) {
  Load();
  const auto found = texts_.find({section, key});
  return found == texts_.end() ? std::string() : found->second;
}

Outcome TextStore::Set(const std::string& section, const std::string& key,
                       const std::string& text) {
  if ((section + key + text).find_first_of(kReserved) != std::string::npos) {
    return Outcome::Failed(kBadFileName, "This text cannot be kept");
  }
  Load();
  texts_[{section, key}] = text;
  std::string content;
  for (const auto& [name, kept] : texts_) {
    content += name.first + "\t" + name.second + "\t" + kept + "\n";
  }
  return files_.Replace(path_, content);
}

}  // namespace scourwell
