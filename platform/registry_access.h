#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/captions.h"
#include "platform/error_log.h"
#include "platform/registry.h"
#include "platform/shell.h"

namespace scourwell {

// "HKEY_CURRENT_USER" and the six others; none for an unknown name. Compared without case.
std::optional<RootKey> RootFromName(std::string_view name);
// The full name of the four classic roots; empty for the three others.
std::string_view NameFromRoot(RootKey root);

// Value data as text: types 1, 2 and 7 cut at the first NUL; 3, 5 and 6 as "0A FF"; 4 as
// "0x000000FF" (a value of fewer than four bytes is filled up with zeros); any other type
// "Temporary unsupported".
std::string ValueToText(const RegValue& value);

// Shared registry procedures. Key paths may begin and end with one "\".
class RegistryAccess {
 public:
  RegistryAccess(Registry& registry, ErrorLog& log, const Captions& captions, Shell& shell)
      : registry_(registry), log_(log), captions_(captions), shell_(shell) {}

  // Deletes a key with everything below it, deepest first. Tells the user when access is denied.
  // Links go as links; what lies behind one that is not Windows' own is out of reach.
  RegStatus DeleteKey(RootKey root, std::string_view path);
  RegStatus DeleteValue(RootKey root, std::string_view path, const std::string& name);
  // True when the key, or one on the way to it, is a link that is not Windows' own.
  bool LeadsAside(RootKey root, std::string_view path);
  // True when that is so, or a key below it is a link.
  bool HasLinks(RootKey root, std::string_view path);
  std::uint32_t SubkeyCount(RootKey root, std::string_view path);
  // Empty when there is no subkey of that index.
  std::string SubkeyName(RootKey root, std::string_view path, std::uint32_t index);
  // A string value, cut at the first NUL; empty when absent.
  std::string ReadString(RootKey root, std::string_view path, const std::string& name);
  // Calls the library's "DllRegisterServer" or "DllUnregisterServer".
  Outcome SelfRegister(const std::string& library, bool register_it);

 private:
  bool IsLink(RootKey root, const std::string& path);
  bool HoldsLink(RootKey root, const std::string& path, unsigned depth);
  RegStatus DeleteTree(RootKey root, const std::string& path, unsigned depth, std::string* link);

  Registry& registry_;
  ErrorLog& log_;
  const Captions& captions_;
  Shell& shell_;
};

// One string value or key at a time.
class CRegister {
 public:
  explicit CRegister(Registry& registry) : registry_(registry) {}

  // With a value name: deletes that value ("*" is the unnamed one). Without: deletes the key.
  void DeleteEntry(RootKey root, std::string_view path, const std::string& name, RegStatus* status);
  std::string QueryString(RootKey root, std::string_view path, const std::string& name);
  // Writes a text without a terminating NUL; the key is created when missing.
  RegStatus SetString(RootKey root, std::string_view path, const std::string& name,
                      const std::string& text);
  // Strips one leading and one trailing "\".
  static std::string SplitKeyPath(std::string_view path);

 private:
  Registry& registry_;
};

}  // namespace scourwell
