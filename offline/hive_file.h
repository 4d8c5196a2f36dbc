// SPDX-License-Identifier: MIT
#pragma once

#include <hivex.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "offline/beneath.h"
#include "offline/posix_files.h"
#include "offline/registry_file.h"

namespace scourwell {

// A registry file of the NT family. It is read from a copy of our own, since the library maps what
// it reads and a bad disk would end us; changes go into memory until they are saved. There can be
// hundreds of them: each is read when it is first asked for.
class HiveFile : public RegistryFile {
 public:
  // What keeps a hive from being written, and results from being complete.
  enum class Health { Sound, Unsaved, Damaged, Unreadable };
  // Hears of a file that cannot be read, or not be trusted, and why: once, and again when it is
  // found to be worse.
  using OnTrouble = std::function<void(const std::string& path, const std::string& reason)>;

  HiveFile(PosixFiles& files, std::string path, OnTrouble on_trouble)
      : files_(files), path_(std::move(path)), on_trouble_(std::move(on_trouble)) {}

  // Reads it, unless that was tried before. kTypeMismatch: the file is no hive, or nothing of it
  // can be read.
  Outcome Load();
  // Gives the memory back, unless something was changed.
  void Release();

  Health health() const { return health_; }
  const std::string& path() const { return path_; }

  Node Root() override;
  RegStatus EnumValues(Node key, const VisitValue& visit) override;
  RegStatus CountValues(Node key, std::uint32_t* count) override;
  Outcome Writable() override;
  RegStatus AddKey(Node parent, const std::string& name) override;
  RegStatus DeleteKey(Node key) override;
  RegStatus SetValue(Node key, const std::string& name, const RegValue& value) override;
  RegStatus DeleteValue(Node key, const std::string& name) override;
  bool changed() const override { return changed_; }

  // Writes the changed hive beside its place, reads it back, and only then lets it take its place.
  Outcome Save();

 private:
  struct CloseHive {
    void operator()(hive_h* hive) const { hivex_close(hive); }
  };
  struct Stored {
    std::string name;
    std::uint32_t type = 0;
    std::string bytes;
  };

  Outcome ReadCopy();
  void TellTrouble();
  RegStatus ReadChildren(Node key, std::vector<KeyNames::Child>* children) override;
  std::optional<std::string> NameOfKey(Node key);
  std::optional<std::string> NameOfValue(hive_value_h value);
  std::optional<std::string> RawName(std::size_t cell, std::size_t at_length, std::size_t at_flags,
                                     unsigned narrow_flag, std::size_t at_name);
  bool ReadStored(hive_value_h value, Stored* stored);
  RegStatus ReadAll(Node key, std::vector<Stored>* values);
  RegStatus WriteAll(Node key, const std::vector<Stored>& values);
  bool BeginChange();

  PosixFiles& files_;
  std::string path_;
  OnTrouble on_trouble_;
  std::optional<Outcome> loaded_;  // none until it was tried
  Health told_ = Health::Sound;
  UniqueFd copy_;
  std::unique_ptr<hive_h, CloseHive> hive_;
  Health health_ = Health::Sound;
  bool long_values_ = false;  // the version stores values of any length in one piece
  bool in_memory_ = false;
  bool changed_ = false;
};

}  // namespace scourwell
