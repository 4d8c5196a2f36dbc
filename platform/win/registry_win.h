#pragma once

#include <windows.h>

#include "platform/registry.h"

namespace scourwell {

class RegistryWin : public Registry {
 public:
  // The system's handle of a root.
  static HKEY Handle(RootKey root);

  RegStatus TryOpen(RootKey root, const std::string& path, std::uint32_t rights) override;
  RegStatus QueryValue(RootKey root, const std::string& path, const std::string& name,
                       RegValue* value) override;
  RegStatus SetValue(RootKey root, const std::string& path, const std::string& name,
                     const RegValue& value) override;
  RegStatus DeleteValue(RootKey root, const std::string& path, const std::string& name) override;
  RegStatus DeleteKeyCall(RootKey root, const std::string& path) override;
  RegStatus EnumKeys(RootKey root, const std::string& path, const VisitKey& visit) override;
  RegStatus EnumValues(RootKey root, const std::string& path, const VisitValue& visit) override;
};

}  // namespace scourwell
