// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "offline/beneath.h"
#include "offline/registry_file.h"
#include "platform/code_pages.h"
#include "platform/files.h"

namespace scourwell {

// A registry file of Windows 95, 98 and Me, read whole. Nobody can write them but those systems.
class CregFile : public RegistryFile {
 public:
  // Names and texts are bytes of the machine's own code page.
  CregFile(Files& files, std::string path, CodePages& code_pages)
      : files_(files), path_(std::move(path)), code_pages_(code_pages) {}

  // kTypeMismatch: the file is no registry file, or nothing of it can be read.
  Outcome Load();
  // True when only a part of it could be read.
  bool damaged() const { return damaged_; }
  const std::string& path() const { return path_; }

  Node Root() override { return keys_.size() > 1 ? kRoot : 0; }
  RegStatus EnumValues(Node key, const VisitValue& visit) override;
  RegStatus CountValues(Node key, std::uint32_t* count) override;

 private:
  class Reader;
  struct Value {
    std::string name;
    RegValue value;
  };
  struct Key {
    std::string name;
    std::vector<Node> children;
    std::vector<Value> values;
  };
  static constexpr Node kRoot = 1;

  RegStatus ReadChildren(Node key, std::vector<KeyNames::Child>* children) override;
  bool ReadCopy(const UniqueFd& copy);

  Files& files_;
  std::string path_;
  CodePages& code_pages_;
  std::vector<Key> keys_ = std::vector<Key>(1);  // the first is nobody's
  bool damaged_ = false;
};

}  // namespace scourwell
