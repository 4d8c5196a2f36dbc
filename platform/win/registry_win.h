// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win/registry_calls.h"

namespace scourwell {

class RegistryWin : public Registry {
 public:
  // The view that 32-bit programs see, or with kView64 the one of 64-bit programs.
  static constexpr REGSAM kView64 = 0x0100;
  explicit RegistryWin(REGSAM view = 0, const RegistryCalls& calls = SystemRegistryCalls())
      : view_(view), calls_(calls) {}
  // True when there are two views: this program runs on a 64-bit Windows.
  static bool HasTwoViews();

  // The system's handle of a root.
  static HKEY Handle(RootKey root);

  RegStatus TryOpen(RootKey root, const std::string& path, std::uint32_t rights) override;
  RegStatus Count(RootKey root, const std::string& path, RegCounts* counts) override;
  RegStatus QueryValue(RootKey root, const std::string& path, const std::string& name,
                       RegValue* value) override;
  RegStatus CreateKey(RootKey root, const std::string& path) override;
  RegStatus ReadTraits(RootKey root, const std::string& path, RegTraits* traits) override;
  RegStatus CreateKeyOfKind(RootKey root, const std::string& path,
                            const std::string& kind) override;
  RegStatus SetKeySecurity(RootKey root, const std::string& path,
                           const std::string& descriptor) override;
  RegStatus SetValue(RootKey root, const std::string& path, const std::string& name,
                     const RegValue& value) override;
  RegStatus DeleteValue(RootKey root, const std::string& path, const std::string& name) override;
  RegStatus IsLink(RootKey root, const std::string& path, bool* is_link) override;
  RegStatus DeleteKeyCall(RootKey root, const std::string& path) override;
  RegStatus EnumKeys(RootKey root, const std::string& path, const VisitKey& visit) override;
  RegStatus EnumValues(RootKey root, const std::string& path, const VisitValue& visit) override;

 private:
  LONG Open(RootKey root, const std::string& path, REGSAM rights, KeyHandle* key) const;
  LONG OpenLink(RootKey root, const std::string& path, REGSAM rights, KeyHandle* key) const;
  LONG Create(RootKey root, const std::string& path, KeyHandle* key) const;

  REGSAM view_;
  const RegistryCalls& calls_;
};

}  // namespace scourwell
