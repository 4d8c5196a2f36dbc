#include "platform/win/registry_win.h"

#include <algorithm>
#include <vector>

#include "platform/win/late_bind.h"
#include "platform/win/unique_handle.h"

namespace scourwell {
namespace {

constexpr DWORD kLongestKeyName = 256;      // with its NUL; key names have at most 255 characters
constexpr DWORD kLongestValueName = 32768;  // with its NUL; 16383 characters of two bytes
constexpr DWORD kLargestData = 64u << 20;   // bytes; more is a damaged value
constexpr int kGrowthTries = 8;             // a value that grows while it is read

RegStatus Open(RootKey root, const std::string& path, REGSAM rights, KeyHandle* key) {
  HKEY opened = nullptr;
  const LONG status = RegOpenKeyExA(RegistryWin::Handle(root), path.c_str(), 0, rights, &opened);
  if (status == ERROR_SUCCESS) key->Reset(opened);
  return status;
}

// A link as the key it is, not what it leads to.
RegStatus OpenLink(RootKey root, const std::string& path, REGSAM rights, KeyHandle* key) {
  HKEY opened = nullptr;
  const LONG status =
      RegOpenKeyExA(RegistryWin::Handle(root), path.c_str(), REG_OPTION_OPEN_LINK, rights, &opened);
  if (status == ERROR_SUCCESS) key->Reset(opened);
  return status;
}

// The usual call takes a path, and would follow a link at its end.
RegStatus DeleteOpenKey(HKEY key) {
  using NtDeleteKey = LONG(WINAPI*)(HANDLE);
  using ToDosError = ULONG(WINAPI*)(LONG);
  const auto delete_key = LateBind<NtDeleteKey>("ntdll.dll", "NtDeleteKey");
  const auto to_dos_error = LateBind<ToDosError>("ntdll.dll", "RtlNtStatusToDosError");
  if (!delete_key || !to_dos_error) return kRegAccessDenied;
  return static_cast<RegStatus>(to_dos_error(delete_key(key)));
}

RegStatus Create(RootKey root, const std::string& path, REGSAM view, KeyHandle* key) {
  HKEY created = nullptr;
  const LONG status =
      RegCreateKeyExA(RegistryWin::Handle(root), path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                      KEY_ALL_ACCESS | view, nullptr, &created, nullptr);
  if (status == ERROR_SUCCESS) key->Reset(created);
  return status;
}

// A call would take what stands before the NUL, which may be another value's name.
bool HasNul(const std::string& name) { return name.find('\0') != name.npos; }

const BYTE* Bytes(const std::string& text) { return reinterpret_cast<const BYTE*>(text.data()); }
BYTE* Bytes(std::string& text) { return reinterpret_cast<BYTE*>(text.data()); }

// Data of which `size` bytes were announced; some systems announce too few.
RegStatus ReadData(HKEY key, const char* name, RegValue* value) {
  std::string data(64, '\0');
  for (int i = 0; i < kGrowthTries; ++i) {
    DWORD type = 0;
    DWORD size = static_cast<DWORD>(data.size());
    const LONG status = RegQueryValueExA(key, name, nullptr, &type, Bytes(data), &size);
    if (status == ERROR_SUCCESS) {
      data.resize(std::min<std::size_t>(size, data.size()));
      *value = {type, std::move(data)};
      return kRegOk;
    }
    if (status != ERROR_MORE_DATA) return status;
    if (size > kLargestData) return ERROR_MORE_DATA;
    data.resize(std::max<std::size_t>(size, data.size() * 2));
  }
  return ERROR_MORE_DATA;
}

// Name and data in one call: asked for by its name, a value that the code page cannot spell is not
// found, and one with a NUL in its name is taken for another.
RegStatus ReadValueAt(HKEY key, DWORD index, std::vector<char>& spelt, std::string* name,
                      RegValue* value) {
  std::string data(1024, '\0');
  for (int i = 0; i < kGrowthTries; ++i) {
    DWORD type = 0;
    DWORD length = static_cast<DWORD>(spelt.size());
    DWORD size = static_cast<DWORD>(data.size());
    const LONG status =
        RegEnumValueA(key, index, spelt.data(), &length, nullptr, &type, Bytes(data), &size);
    if (status == ERROR_SUCCESS) {
      data.resize(std::min<std::size_t>(size, data.size()));
      name->assign(spelt.data(), std::min<std::size_t>(length, spelt.size()));
      *value = {type, std::move(data)};
      return kRegOk;
    }
    if (status != ERROR_MORE_DATA) return status;
    if (size > kLargestData) return ERROR_MORE_DATA;
    data.resize(std::max<std::size_t>(size, data.size() * 2));
  }
  return ERROR_MORE_DATA;
}

}  // namespace

HKEY RegistryWin::Handle(RootKey root) {
  switch (root) {
    case RootKey::ClassesRoot:
      return HKEY_CLASSES_ROOT;
    case RootKey::CurrentUser:
      return HKEY_CURRENT_USER;
    case RootKey::LocalMachine:
      return HKEY_LOCAL_MACHINE;
    case RootKey::Users:
      return HKEY_USERS;
    case RootKey::PerformanceData:
      return HKEY_PERFORMANCE_DATA;
    case RootKey::CurrentConfig:
      return HKEY_CURRENT_CONFIG;
    case RootKey::DynData:
      return HKEY_DYN_DATA;
  }
  return nullptr;
}

RegStatus RegistryWin::TryOpen(RootKey root, const std::string& path, std::uint32_t rights) {
  KeyHandle key;
  return Open(root, path, rights | view_, &key);
}

RegStatus RegistryWin::Count(RootKey root, const std::string& path, RegCounts* counts) {
  KeyHandle key;
  if (const RegStatus status = Open(root, path, KEY_QUERY_VALUE | view_, &key)) return status;
  DWORD keys = 0;
  DWORD values = 0;
  const LONG status = RegQueryInfoKeyA(key.get(), nullptr, nullptr, nullptr, &keys, nullptr,
                                       nullptr, &values, nullptr, nullptr, nullptr, nullptr);
  if (status == ERROR_SUCCESS) *counts = {keys, values};
  return status;
}

RegStatus RegistryWin::QueryValue(RootKey root, const std::string& path, const std::string& name,
                                  RegValue* value) {
  if (HasNul(name)) return kRegInvalidParameter;
  KeyHandle key;
  const RegStatus status = Open(root, path, KEY_QUERY_VALUE | view_, &key);
  return status == kRegOk ? ReadData(key.get(), name.c_str(), value) : status;
}

RegStatus RegistryWin::CreateKey(RootKey root, const std::string& path) {
  KeyHandle key;
  return Create(root, path, view_, &key);
}

RegStatus RegistryWin::SetValue(RootKey root, const std::string& path, const std::string& name,
                                const RegValue& value) {
  if (HasNul(name)) return kRegInvalidParameter;
  KeyHandle key;
  if (const RegStatus status = Create(root, path, view_, &key)) return status;
  return RegSetValueExA(key.get(), name.c_str(), 0, value.type, Bytes(value.data),
                        static_cast<DWORD>(value.data.size()));
}

RegStatus RegistryWin::DeleteValue(RootKey root, const std::string& path, const std::string& name) {
  if (HasNul(name)) return kRegInvalidParameter;
  KeyHandle key;
  const RegStatus status = Open(root, path, KEY_SET_VALUE | view_, &key);
  return status == kRegOk ? RegDeleteValueA(key.get(), name.c_str()) : status;
}

RegStatus RegistryWin::IsLink(RootKey root, const std::string& path, bool* is_link) {
  *is_link = false;
  KeyHandle key;
  const bool has_links = (GetVersion() & 0x8000'0000u) == 0;
  if (!has_links) return Open(root, path, KEY_QUERY_VALUE, &key);
  const RegStatus status = OpenLink(root, path, KEY_QUERY_VALUE | view_, &key);
  if (status == ERROR_INVALID_PARAMETER) return kRegOk;  // the option is unknown
  if (status != kRegOk) return status;
  DWORD type = 0;
  const LONG found =
      RegQueryValueExA(key.get(), "SymbolicLinkValue", nullptr, &type, nullptr, nullptr);
  if (found == ERROR_FILE_NOT_FOUND) return kRegOk;
  *is_link = found == ERROR_SUCCESS && type == REG_LINK;
  return found;
}

RegStatus RegistryWin::DeleteKeyCall(RootKey root, const std::string& path) {
  bool is_link = false;
  const RegStatus known = IsLink(root, path, &is_link);
  if (is_link || known == kRegAccessDenied) {
    KeyHandle key;
    const RegStatus opened = OpenLink(root, path, DELETE | view_, &key);
    return opened == kRegOk ? DeleteOpenKey(key.get()) : opened;
  }
  if (known != kRegOk) return known;
  if (view_ == 0) return RegDeleteKeyA(Handle(root), path.c_str());
  // Only a 64-bit Windows has a second view, and each of them has this call.
  using DeleteKeyEx = LONG(WINAPI*)(HKEY, LPCSTR, REGSAM, DWORD);
  const auto delete_key = LateBind<DeleteKeyEx>("advapi32.dll", "RegDeleteKeyExA");
  return delete_key ? delete_key(Handle(root), path.c_str(), view_, 0) : ERROR_CALL_NOT_IMPLEMENTED;
}

bool RegistryWin::HasTwoViews() {
  using IsWow64 = BOOL(WINAPI*)(HANDLE, BOOL*);
  const auto is_wow64 = LateBind<IsWow64>("kernel32.dll", "IsWow64Process");
  BOOL emulated = FALSE;
  return is_wow64 && is_wow64(GetCurrentProcess(), &emulated) && emulated;
}

RegStatus RegistryWin::EnumKeys(RootKey root, const std::string& path, const VisitKey& visit) {
  KeyHandle key;
  const RegStatus status = Open(root, path, KEY_ENUMERATE_SUB_KEYS | view_, &key);
  if (status != kRegOk) return status;
  char name[kLongestKeyName];
  for (DWORD index = 0;; ++index) {
    const LONG next = RegEnumKeyA(key.get(), index, name, sizeof name);
    if (next == ERROR_NO_MORE_ITEMS) return kRegOk;
    if (next == ERROR_MORE_DATA) continue;  // a name beyond the limit
    if (next != ERROR_SUCCESS) return next;
    if (!visit(name)) return kRegOk;
  }
}

RegStatus RegistryWin::EnumValues(RootKey root, const std::string& path, const VisitValue& visit) {
  KeyHandle key;
  const RegStatus status = Open(root, path, KEY_QUERY_VALUE | view_, &key);
  if (status != kRegOk) return status;
  std::vector<char> spelt(kLongestValueName);
  RegStatus result = kRegOk;
  for (DWORD index = 0;; ++index) {
    std::string name;
    RegValue value;
    const RegStatus next = ReadValueAt(key.get(), index, spelt, &name, &value);
    if (next == ERROR_NO_MORE_ITEMS) return result;
    if (next != kRegOk && next != ERROR_MORE_DATA) return next;
    result = result == kRegOk ? next : result;  // what is too large does not hide the others
    if (next == kRegOk && !visit(name, value)) return result;
  }
}

}  // namespace scourwell
