// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "platform/registry.h"
#include "platform/win/unique_handle.h"

namespace scourwell {

// The registry calls in which the families of Windows differ; each answers with the system's code.
// Names hold no NUL: a call would take what stands before it.
class RegistryCalls {
 public:
  virtual ~RegistryCalls() = default;

  virtual LONG Open(HKEY root, const std::string& path, DWORD options, REGSAM rights,
                    KeyHandle* key) const = 0;
  virtual LONG Create(HKEY root, const std::string& path, REGSAM rights, KeyHandle* key) const = 0;
  // Windows 95, 98 and Me know no rights and nobody looks at classes.
  virtual LONG ReadTraits(HKEY, RegTraits*) const { return ERROR_SUCCESS; }
  virtual LONG CreateOfKind(HKEY root, const std::string& path, const std::string&, REGSAM rights,
                            KeyHandle* key) const {
    return Create(root, path, rights, key);
  }
  virtual LONG SetSecurity(HKEY, const std::string&) const { return ERROR_SUCCESS; }
  virtual LONG Count(HKEY key, RegCounts* counts) const = 0;
  virtual LONG Query(HKEY key, const std::string& name, RegValue* value) const = 0;
  virtual LONG Set(HKEY key, const std::string& name, const RegValue& value) const = 0;
  virtual LONG DeleteValue(HKEY key, const std::string& name) const = 0;
  virtual LONG DeleteKey(HKEY root, const std::string& path, REGSAM view) const = 0;
  // ERROR_MORE_DATA: a name beyond the limit.
  virtual LONG KeyAt(HKEY key, DWORD index, std::string* name) const = 0;
  // Name and data in one call: asked for by its name, a value with a NUL in it would be taken for
  // another one. ERROR_MORE_DATA: more than can be read.
  virtual LONG ValueAt(HKEY key, DWORD index, std::string* name, RegValue* value) const = 0;
};

// The calls of Windows NT, 2000, XP and later.
const RegistryCalls& NtRegistryCalls();
// The calls of Windows 95, 98 and Me.
const RegistryCalls& W9xRegistryCalls();
// Those of the Windows that runs.
const RegistryCalls& SystemRegistryCalls();

// Calls `read(bytes, &size)` with growing room until the data fits: systems announce too little,
// and a value may grow while it is read.
template <class Read>
LONG ReadGrowing(std::string* data, Read&& read) {
  constexpr DWORD kLargestData = 64u << 20;  // bytes; more is a damaged value
  constexpr int kTries = 12;
  data->assign(1024, '\0');
  for (int i = 0; i < kTries; ++i) {
    DWORD size = static_cast<DWORD>(data->size());
    const LONG status = read(reinterpret_cast<BYTE*>(data->data()), &size);
    if (status == ERROR_SUCCESS) {
      data->resize(size < data->size() ? size : data->size());
      return status;
    }
    if (status != ERROR_MORE_DATA || size > kLargestData) return status;
    data->resize(size > data->size() * 2 ? size : data->size() * 2);
  }
  return ERROR_MORE_DATA;
}

}  // namespace scourwell
