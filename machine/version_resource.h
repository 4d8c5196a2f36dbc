// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/versions.h"

namespace scourwell {

// The texts of a version resource, in the order in which they are asked for.
enum VersionField : std::size_t {
  kCompanyName,
  kFileDescription,
  kFileVersion,
  kInternalName,
  kLegalCopyright,
  kOriginalFileName,
  kProductName,
  kProductVersion,
  kComments,
  kLegalTrademarks,
  kPrivateBuild,
  kSpecialBuild,
};
inline constexpr std::size_t kVersionFields = 12;
inline constexpr std::array<std::string_view, kVersionFields> kVersionFieldNames = {
    "CompanyName",    "FileDescription",  "FileVersion",  "InternalName",
    "LegalCopyright", "OriginalFileName", "ProductName",  "ProductVersion",
    "Comments",       "LegalTrademarks",  "PrivateBuild", "SpecialBuild"};

// Reads the block of a version resource: a tree of nodes, each with its length, a key and a value
// or children. Every length is checked against the node around it before it is followed; what
// does not fit is not there. Two forms exist, in UTF-16 and, from 16-bit files and systems, in
// ANSI characters; both are read.
class VersionResource {
 public:
  // Both must outlive the reader.
  VersionResource(std::string_view block, const Versions& versions);

  // No value when the block has no sound fixed part.
  std::optional<FixedFileInfo> Fixed() const;
  // Language and code page of the first translation, e.g. "040904E4"; empty without one.
  const std::string& translation() const { return translation_; }
  // The text in the first translation's table; keys compare without case.
  std::optional<std::string> Text(VersionField field) const;

 private:
  struct Node {
    std::size_t key = 0;
    std::size_t key_end = 0;  // at the NUL behind it
    std::size_t value = 0;
    std::size_t value_size = 0;  // as announced, in bytes
    std::size_t children = 0;
    std::size_t end = 0;   // behind the node
    std::size_t next = 0;  // where its next sibling would begin
  };

  std::uint32_t Number(std::size_t at, std::size_t bytes) const;
  std::uint32_t Character(std::size_t at) const { return Number(at, character_); }
  std::size_t NulOrEnd(std::size_t at, std::size_t end) const;
  bool ReadRoot(std::size_t character);
  bool ReadNode(std::size_t at, std::size_t limit, Node* node) const;
  bool KeyIs(const Node& node, std::string_view name) const;
  std::optional<Node> Child(const std::optional<Node>& parent, std::string_view name) const;
  std::string Translation() const;

  std::string_view block_;
  const Versions& versions_;
  std::size_t character_ = 2;  // bytes of one
  std::optional<Node> root_;
  std::string translation_;
  std::optional<Node> table_;  // the strings of the first translation
};

// The fixed part of a file's resource. kFileNotFound: no such file, no resource, or no sound fixed
// part in it.
Outcome ReadFixedVersion(Versions& versions, const std::string& path, FixedFileInfo* info);

}  // namespace scourwell
