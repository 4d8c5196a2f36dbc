// SPDX-License-Identifier: MIT
#include "platform/win/registry_calls.h"

#include <cstring>
#include <vector>

#include "platform/win/late_bind.h"
#include "platform/win/native_text.h"
#include "platform/win/nt/descriptor_check.h"

namespace scourwell {
namespace {

constexpr DWORD kLongestKeyName = 256;      // with its NUL
constexpr DWORD kLongestValueName = 16384;  // with its NUL
constexpr SECURITY_INFORMATION kOwnerGroupAndRights =
    OWNER_SECURITY_INFORMATION | GROUP_SECURITY_INFORMATION | DACL_SECURITY_INFORMATION;

// From bytes as stored: texts are kept in UTF-16.
RegValue ToValue(DWORD type, std::string_view bytes) {
  RegValue value;
  value.type = type;
  if (!IsTextType(type)) {
    value.data = bytes;
    return value;
  }
  std::wstring wide(bytes.size() / sizeof(wchar_t), L'\0');
  std::memcpy(wide.data(), bytes.data(), wide.size() * sizeof(wchar_t));
  value.data = FromWide(wide);
  if (bytes.size() % sizeof(wchar_t) != 0) value.half_character = bytes.back();
  return value;
}

std::string ToBytes(const RegValue& value) {
  if (!IsTextType(value.type)) return value.data;
  const std::wstring wide = Wide(value.data);
  std::string bytes(reinterpret_cast<const char*>(wide.data()), wide.size() * sizeof(wchar_t));
  if (value.half_character) bytes += *value.half_character;
  return bytes;
}

class NtCalls : public RegistryCalls {
 public:
  LONG Open(HKEY root, const std::string& path, DWORD options, REGSAM rights,
            KeyHandle* key) const override {
    HKEY opened = nullptr;
    const LONG status = RegOpenKeyExW(root, Wide(path).c_str(), options, rights, &opened);
    if (status == ERROR_SUCCESS) key->Reset(opened);
    return status;
  }

  LONG Create(HKEY root, const std::string& path, REGSAM rights, KeyHandle* key) const override {
    return CreateOfKind(root, path, {}, rights, key);
  }

  // Below a key that ends with the session there are only such keys.
  LONG CreateOfKind(HKEY root, const std::string& path, const std::string& kind, REGSAM rights,
                    KeyHandle* key) const override {
    HKEY created = nullptr;
    std::wstring wide = Wide(kind);
    LONG status = ERROR_SUCCESS;
    for (const DWORD option : {REG_OPTION_NON_VOLATILE, REG_OPTION_VOLATILE}) {
      status = RegCreateKeyExW(root, Wide(path).c_str(), 0, kind.empty() ? nullptr : wide.data(),
                               option, rights, nullptr, &created, nullptr);
      if (status != ERROR_CHILD_MUST_BE_VOLATILE) break;
    }
    if (status == ERROR_SUCCESS) key->Reset(created);
    return status;
  }

  LONG ReadTraits(HKEY key, RegTraits* traits) const override {
    std::vector<wchar_t>& wide = NameBuffer();
    DWORD length = kLongestValueName;
    LONG status = RegQueryInfoKeyW(key, wide.data(), &length, nullptr, nullptr, nullptr, nullptr,
                                   nullptr, nullptr, nullptr, nullptr, nullptr);
    if (status != ERROR_SUCCESS) return status;
    traits->kind = FromWide({wide.data(), length});
    DWORD size = 0;
    status = RegGetKeySecurity(key, kOwnerGroupAndRights, nullptr, &size);
    if (status != ERROR_INSUFFICIENT_BUFFER) return status;
    std::string bytes(size, '\0');
    status = RegGetKeySecurity(key, kOwnerGroupAndRights, bytes.data(), &size);
    if (status == ERROR_SUCCESS) traits->security = std::move(bytes);
    return status;
  }

  // A foreign owner needs a privilege that not everybody who may write the rights has.
  LONG SetSecurity(HKEY key, const std::string& descriptor) const override {
    if (!IsDescriptor(descriptor)) return ERROR_INVALID_SECURITY_DESCR;
    std::string bytes = descriptor;
    const LONG status = RegSetKeySecurity(key, kOwnerGroupAndRights, bytes.data());
    return status == ERROR_SUCCESS
               ? status
               : RegSetKeySecurity(key, DACL_SECURITY_INFORMATION, bytes.data());
  }

  LONG Count(HKEY key, RegCounts* counts) const override {
    DWORD keys = 0;
    DWORD values = 0;
    const LONG status = RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, &keys, nullptr, nullptr,
                                         &values, nullptr, nullptr, nullptr, nullptr);
    if (status == ERROR_SUCCESS) *counts = {keys, values};
    return status;
  }

  LONG Query(HKEY key, const std::string& name, RegValue* value) const override {
    const std::wstring wide = Wide(name);
    DWORD type = 0;
    std::string data;
    const LONG status = ReadGrowing(&data, [&](BYTE* bytes, DWORD* size) {
      return RegQueryValueExW(key, wide.c_str(), nullptr, &type, bytes, size);
    });
    if (status == ERROR_SUCCESS) *value = ToValue(type, data);
    return status;
  }

  LONG Set(HKEY key, const std::string& name, const RegValue& value) const override {
    std::string bytes = ToBytes(value);
    const DWORD size = static_cast<DWORD>(bytes.size());
    // To a text with an uncounted NUL behind it the system would add that NUL.
    bytes.append(sizeof(wchar_t), '\xFF');
    return RegSetValueExW(key, Wide(name).c_str(), 0, value.type,
                          reinterpret_cast<const BYTE*>(bytes.data()), size);
  }

  LONG DeleteValue(HKEY key, const std::string& name) const override {
    return RegDeleteValueW(key, Wide(name).c_str());
  }

  LONG DeleteKey(HKEY root, const std::string& path, REGSAM view) const override {
    if (view == 0) return RegDeleteKeyW(root, Wide(path).c_str());
    // Only a 64-bit Windows has a second view, and each of them has this call.
    using DeleteKeyEx = LONG(WINAPI*)(HKEY, LPCWSTR, REGSAM, DWORD);
    static const auto delete_key = LateBind<DeleteKeyEx>("advapi32.dll", "RegDeleteKeyExW");
    return delete_key ? delete_key(root, Wide(path).c_str(), view, 0) : ERROR_CALL_NOT_IMPLEMENTED;
  }

  LONG KeyAt(HKEY key, DWORD index, std::string* name) const override {
    wchar_t wide[kLongestKeyName];
    DWORD length = kLongestKeyName;
    const LONG status =
        RegEnumKeyExW(key, index, wide, &length, nullptr, nullptr, nullptr, nullptr);
    if (status == ERROR_SUCCESS) *name = FromWide({wide, length});
    return status;
  }

  LONG ValueAt(HKEY key, DWORD index, std::string* name, RegValue* value) const override {
    std::vector<wchar_t>& wide = NameBuffer();
    DWORD length = 0;
    DWORD type = 0;
    std::string data;
    const LONG status = ReadGrowing(&data, [&](BYTE* bytes, DWORD* size) {
      length = kLongestValueName;
      return RegEnumValueW(key, index, wide.data(), &length, nullptr, &type, bytes, size);
    });
    if (status != ERROR_SUCCESS) return status;
    *name = FromWide({wide.data(), length});
    *value = ToValue(type, data);
    return status;
  }

 private:
  // The program has one thread.
  static std::vector<wchar_t>& NameBuffer() {
    static std::vector<wchar_t> buffer(kLongestValueName);
    return buffer;
  }
};

}  // namespace

const RegistryCalls& NtRegistryCalls() {
  static const NtCalls calls;
  return calls;
}

}  // namespace scourwell
