// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace scourwell {

enum class RootKey {
  ClassesRoot,
  CurrentUser,
  LocalMachine,
  Users,
  PerformanceData,
  CurrentConfig,
  DynData,
};

// The system's registry status codes.
using RegStatus = std::int32_t;
enum : RegStatus {
  kRegOk = 0,
  kRegNotFound = 2,
  kRegAccessDenied = 5,
  kRegInvalidParameter = 87,
  kRegBadPath = 161,
};

// The system's value types.
enum RegType : std::uint32_t {
  kRegNone = 0,
  kRegText = 1,
  kRegExpandText = 2,
  kRegBinary = 3,
  kRegDword = 4,
  kRegDwordBigEndian = 5,
  kRegLink = 6,
  kRegMultiText = 7,
};

// Access masks, with the system's own bits.
enum : std::uint32_t {
  kKeyRead = 0x20019,
  // query, set, create, enumerate, notify and link
  kKeyAllRights = 0x3F,
};

// Types whose data the system turns from one form of text into the other.
constexpr bool IsTextType(std::uint32_t type) {
  return type == kRegText || type == kRegExpandText || type == kRegMultiText;
}

struct RegValue {
  std::uint32_t type = kRegNone;
  // The text of a text type, with or without NULs as it is stored; the bytes of any other.
  std::string data;
  // A byte behind the last whole character: the NT family stores any number of bytes.
  std::optional<char> half_character = {};
};

// What a key is besides what lies in it; empty where the system knows nothing of it.
struct RegTraits {
  std::string kind;      // its class
  std::string security;  // who may do what, as the system says it: bytes for SetKeySecurity
};

// What lies right below a key.
struct RegCounts {
  std::uint32_t keys = 0;
  std::uint32_t values = 0;
};

// The registry as the system offers it, one call a method and no policy. Key paths carry no
// leading "\"; the empty path is the root itself. Names compare without regard to case. A key or a
// value whose name holds a NUL can be listed only: by its name it gives kRegInvalidParameter.
class Registry {
 public:
  // Return false to end the enumeration.
  using VisitKey = std::function<bool(const std::string& name)>;
  using VisitValue = std::function<bool(const std::string& name, const RegValue& value)>;

  virtual ~Registry() = default;

  // kRegOk when the key opens with these rights; it is closed again at once.
  virtual RegStatus TryOpen(RootKey root, const std::string& path, std::uint32_t rights) = 0;
  // What an enumeration will visit, about: the system also counts names too long to be read.
  virtual RegStatus Count(RootKey root, const std::string& path, RegCounts* counts) = 0;
  // kRegNotFound leaves *value as it was. An empty name is the key's unnamed value.
  virtual RegStatus QueryValue(RootKey root, const std::string& path, const std::string& name,
                               RegValue* value) = 0;
  // Makes the key and those on the way to it; one that is there already is success.
  virtual RegStatus CreateKey(RootKey root, const std::string& path) = 0;
  virtual RegStatus ReadTraits(RootKey, const std::string&, RegTraits*) { return kRegOk; }
  // CreateKey with a class, which only a new key gets.
  virtual RegStatus CreateKeyOfKind(RootKey root, const std::string& path, const std::string&) {
    return CreateKey(root, path);
  }
  // What the system knows of rights; bytes that are no descriptor are refused.
  virtual RegStatus SetKeySecurity(RootKey, const std::string&, const std::string&) {
    return kRegOk;
  }
  // Creates the key when it is missing. `data` is stored as it is, without an added NUL.
  virtual RegStatus SetValue(RootKey root, const std::string& path, const std::string& name,
                             const RegValue& value) = 0;
  virtual RegStatus DeleteValue(RootKey root, const std::string& path, const std::string& name) = 0;
  // Whether the key at the end of the path leads to another one, which every other call but
  // DeleteKeyCall would act on. Only the NT family has such keys.
  virtual RegStatus IsLink(RootKey root, const std::string& path, bool* is_link) = 0;
  // The system's own call: on the NT family a key with subkeys gives kRegAccessDenied, on
  // Windows 95, 98 and Me the whole subtree goes. Of a link the link itself goes.
  virtual RegStatus DeleteKeyCall(RootKey root, const std::string& path) = 0;
  // Names come in the system's order. The key must not be changed during a visit.
  virtual RegStatus EnumKeys(RootKey root, const std::string& path, const VisitKey& visit) = 0;
  // Every value with its own data, also those that no name of the code page leads to: "?" or a
  // similar letter stands for what it lacks. Data beyond reason is left out and makes the result a
  // failure.
  virtual RegStatus EnumValues(RootKey root, const std::string& path, const VisitValue& visit) = 0;
};

}  // namespace scourwell
