// SPDX-License-Identifier: MIT
#include "definitions/definition_list.h"

namespace scourwell {
namespace {

// Blocks double between these sizes: a short list stays small.
constexpr std::size_t kFirstBlock = 512;
constexpr std::size_t kLargestBlock = 64 * 1024;

}  // namespace

std::string_view TextPool::Keep(std::string_view text) {
  if (text.empty()) return {};
  if (blocks_.empty() || size_ - used_ < text.size()) {
    const std::size_t next = blocks_.empty() ? kFirstBlock : std::min(size_ * 2, kLargestBlock);
    const std::size_t size = std::max(next, text.size());
    blocks_.push_back(std::make_unique_for_overwrite<char[]>(size));
    size_ = size;
    used_ = 0;
  }
  char* const begin = blocks_.back().get() + used_;
  text.copy(begin, text.size());
  used_ += text.size();
  return {begin, text.size()};
}

}  // namespace scourwell
