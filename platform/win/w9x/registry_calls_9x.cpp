// SPDX-License-Identifier: MIT
#include "platform/win/native_text.h"
#include "platform/win/registry_calls.h"

namespace scourwell {
namespace {

constexpr DWORD kLongestKeyName = 256;    // with its NUL
constexpr DWORD kLongestValueName = 512;  // with its NUL; names have at most 255 characters

// A key or name that the code page cannot spell is not there.
constexpr LONG kNoSuchName = ERROR_FILE_NOT_FOUND;

RegValue ToValue(DWORD type, std::string data) {
  RegValue value;
  value.type = type;
  value.data = IsTextType(type) ? FromNarrow(data) : std::move(data);
  return value;
}

class W9xCalls : public RegistryCalls {
 public:
  LONG Open(HKEY root, const std::string& path, DWORD options, REGSAM rights,
            KeyHandle* key) const override {
    const std::optional<std::string> narrow = ExactNarrow(path);
    if (!narrow) return kNoSuchName;
    HKEY opened = nullptr;
    const LONG status = RegOpenKeyExA(root, narrow->c_str(), options, rights, &opened);
    if (status == ERROR_SUCCESS) key->Reset(opened);
    return status;
  }

  LONG Create(HKEY root, const std::string& path, REGSAM rights, KeyHandle* key) const override {
    const std::optional<std::string> narrow = ExactNarrow(path);
    if (!narrow) return ERROR_INVALID_PARAMETER;
    HKEY created = nullptr;
    const LONG status = RegCreateKeyExA(root, narrow->c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                                        rights, nullptr, &created, nullptr);
    if (status == ERROR_SUCCESS) key->Reset(created);
    return status;
  }

  LONG Count(HKEY key, RegCounts* counts) const override {
    DWORD keys = 0;
    DWORD values = 0;
    const LONG status = RegQueryInfoKeyA(key, nullptr, nullptr, nullptr, &keys, nullptr, nullptr,
                                         &values, nullptr, nullptr, nullptr, nullptr);
    if (status == ERROR_SUCCESS) *counts = {keys, values};
    return status;
  }

  LONG Query(HKEY key, const std::string& name, RegValue* value) const override {
    const std::optional<std::string> narrow = ExactNarrow(name);
    if (!narrow) return kNoSuchName;
    DWORD type = 0;
    std::string data;
    const LONG status = ReadGrowing(&data, [&](BYTE* bytes, DWORD* size) {
      return RegQueryValueExA(key, narrow->c_str(), nullptr, &type, bytes, size);
    });
    if (status == ERROR_SUCCESS) *value = ToValue(type, std::move(data));
    return status;
  }

  LONG Set(HKEY key, const std::string& name, const RegValue& value) const override {
    const std::optional<std::string> narrow = ExactNarrow(name);
    const std::optional<std::string> data =
        IsTextType(value.type) ? ExactNarrow(value.data) : value.data;
    if (!narrow || !data) return ERROR_INVALID_PARAMETER;
    // A text ends at its first NUL here, whatever size is told.
    return RegSetValueExA(key, narrow->c_str(), 0, value.type,
                          reinterpret_cast<const BYTE*>(data->c_str()),
                          static_cast<DWORD>(data->size()));
  }

  LONG DeleteValue(HKEY key, const std::string& name) const override {
    const std::optional<std::string> narrow = ExactNarrow(name);
    return narrow ? RegDeleteValueA(key, narrow->c_str()) : kNoSuchName;
  }

  // There is one view only.
  LONG DeleteKey(HKEY root, const std::string& path, REGSAM) const override {
    const std::optional<std::string> narrow = ExactNarrow(path);
    return narrow ? RegDeleteKeyA(root, narrow->c_str()) : kNoSuchName;
  }

  LONG KeyAt(HKEY key, DWORD index, std::string* name) const override {
    char narrow[kLongestKeyName];
    const LONG status = RegEnumKeyA(key, index, narrow, sizeof narrow);
    if (status == ERROR_SUCCESS) *name = FromNarrow(narrow);
    return status;
  }

  LONG ValueAt(HKEY key, DWORD index, std::string* name, RegValue* value) const override {
    char narrow[kLongestValueName];
    DWORD length = 0;
    DWORD type = 0;
    std::string data;
    const LONG status = ReadGrowing(&data, [&](BYTE* bytes, DWORD* size) {
      length = sizeof narrow;
      return RegEnumValueA(key, index, narrow, &length, nullptr, &type, bytes, size);
    });
    if (status != ERROR_SUCCESS) return status;
    *name = FromNarrow({narrow, length});
    *value = ToValue(type, std::move(data));
    return status;
  }
};

}  // namespace

const RegistryCalls& W9xRegistryCalls() {
  static const W9xCalls calls;
  return calls;
}

}  // namespace scourwell
