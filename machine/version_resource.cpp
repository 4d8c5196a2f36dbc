// SPDX-License-Identifier: MIT
#include "machine/version_resource.h"

#include "text/folding.h"
#include "text/text.h"
#include "text/unicode.h"

namespace scourwell {
namespace {

constexpr std::size_t kAlignment = 4;
constexpr std::size_t kFixedSize = 52;
constexpr std::uint32_t kFixedSignature = 0xFEEF04BD;

std::size_t Aligned(std::size_t at) { return (at + kAlignment - 1) / kAlignment * kAlignment; }

}  // namespace

VersionResource::VersionResource(std::string_view block, const Versions& versions)
    : block_(block), versions_(versions) {
  if (!ReadRoot(2) && !ReadRoot(1)) return;
  translation_ = Translation();
  if (!translation_.empty()) table_ = Child(Child(root_, "StringFileInfo"), translation_);
}

bool VersionResource::ReadRoot(std::size_t character) {
  character_ = character;
  Node root;
  if (!ReadNode(0, block_.size(), &root) || !KeyIs(root, "VS_VERSION_INFO")) return false;
  root_ = root;
  return true;
}

// Little-endian; the caller has checked that it lies inside the block.
std::uint32_t VersionResource::Number(std::size_t at, std::size_t bytes) const {
  std::uint32_t value = 0;
  for (std::size_t i = bytes; i-- > 0;) {
    value = value << 8 | static_cast<unsigned char>(block_[at + i]);
  }
  return value;
}

// The first NUL from `at` on; without one, behind the last whole character before `end`.
std::size_t VersionResource::NulOrEnd(std::size_t at, std::size_t end) const {
  while (at + character_ <= end && Character(at) != 0) at += character_;
  return at;
}

bool VersionResource::ReadNode(std::size_t at, std::size_t limit, Node* node) const {
  const bool wide = character_ == 2;
  const std::size_t header = wide ? 6 : 4;  // the ANSI form does not tell texts from bytes
  if (at + header > limit) return false;
  const std::size_t length = Number(at, 2);
  node->end = at + length;
  if (node->end > limit) {
    // Some tools count the last child's padding into its length, but not into its parent's.
    if (node->end - limit >= kAlignment) return false;
    node->end = limit;
  }
  node->next = Aligned(at + length);
  node->key = at + header;
  node->key_end = NulOrEnd(node->key, node->end);
  // This also refuses lengths too small for a header, so that the next sibling lies further on.
  if (node->key_end + character_ > node->end) return false;
  node->value = Aligned(node->key_end + character_);
  node->value_size = Number(at + 2, 2);
  if (wide && Number(at + 4, 2) != 0) node->value_size *= 2;
  node->children = Aligned(node->value + node->value_size);
  return true;
}

bool VersionResource::KeyIs(const Node& node, std::string_view name) const {
  if (node.key_end - node.key != name.size() * character_) return false;
  for (std::size_t i = 0; i < name.size(); ++i) {
    if (Folding::Of(Character(node.key + i * character_)) !=
        Folding::Of(static_cast<unsigned char>(name[i]))) {
      return false;
    }
  }
  return true;
}

std::optional<VersionResource::Node> VersionResource::Child(const std::optional<Node>& parent,
                                                            std::string_view name) const {
  if (!parent) return {};
  Node child;
  for (std::size_t at = parent->children; ReadNode(at, parent->end, &child); at = child.next) {
    if (KeyIs(child, name)) return child;
  }
  return {};
}

std::string VersionResource::Translation() const {
  const std::optional<Node> list = Child(Child(root_, "VarFileInfo"), "Translation");
  if (!list || list->value_size < 4 || list->value + 4 > list->end) return {};
  return Hex(Number(list->value, 2), 4) + Hex(Number(list->value + 2, 2), 4);
}

std::optional<FixedFileInfo> VersionResource::Fixed() const {
  if (!root_ || root_->value_size < kFixedSize || root_->value + kFixedSize > root_->end) return {};
  const auto field = [&](std::size_t number) { return Number(root_->value + number * 4, 4); };
  if (field(0) != kFixedSignature) return {};
  FixedFileInfo info;
  info.file_version_high = field(2);
  info.file_version_low = field(3);
  info.product_version_high = field(4);
  info.product_version_low = field(5);
  info.flags = field(7);
  info.operating_system = field(8);
  info.type = field(9);
  info.subtype = field(10);
  return info;
}

std::optional<std::string> VersionResource::Text(VersionField field) const {
  const std::optional<Node> node = Child(table_, kVersionFieldNames[field]);
  if (!node) return {};
  if (node->value_size == 0) return std::string();
  // Tools count a value's length in bytes or in characters; its NUL and the node's end do not lie.
  const std::size_t end = NulOrEnd(node->value, node->end);
  std::u16string text;
  text.reserve((end - node->value) / character_);
  for (std::size_t at = node->value; at < end; at += character_) {
    text += static_cast<char16_t>(Character(at));
  }
  return character_ == 2 ? FromUtf16(text)
                         : versions_.FromAnsi(std::string(text.begin(), text.end()));
}

Outcome ReadFixedVersion(Versions& versions, const std::string& path, FixedFileInfo* info) {
  std::string block;
  if (Outcome read = versions.ReadBlock(path, &block); !read.ok()) return read;
  const std::optional<FixedFileInfo> fixed = VersionResource(block, versions).Fixed();
  if (!fixed) return Outcome::Failed(kFileNotFound);
  *info = *fixed;
  return {};
}

}  // namespace scourwell
