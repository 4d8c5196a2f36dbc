// SPDX-License-Identifier: MIT
#include "platform/win/registry_win.h"

#include "platform/win/family.h"
#include "platform/win/late_bind.h"

namespace scourwell {
namespace {

// The usual call takes a path, and would follow a link at its end.
RegStatus DeleteOpenKey(HKEY key) {
  using NtDeleteKey = LONG(WINAPI*)(HANDLE);
  using ToDosError = ULONG(WINAPI*)(LONG);
  const auto delete_key = LateBind<NtDeleteKey>("ntdll.dll", "NtDeleteKey");
  const auto to_dos_error = LateBind<ToDosError>("ntdll.dll", "RtlNtStatusToDosError");
  if (!delete_key || !to_dos_error) return kRegAccessDenied;
  return static_cast<RegStatus>(to_dos_error(delete_key(key)));
}

// A call would take what stands before the NUL, which may be the name of another key or value.
bool HasNul(const std::string& name) { return name.find('\0') != name.npos; }

}  // namespace

const RegistryCalls& SystemRegistryCalls() {
  return HasWideCalls() ? NtRegistryCalls() : W9xRegistryCalls();
}

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

LONG RegistryWin::Open(RootKey root, const std::string& path, REGSAM rights, KeyHandle* key) const {
  if (HasNul(path)) return kRegInvalidParameter;
  return calls_.Open(Handle(root), path, 0, rights | view_, key);
}

// A link as the key it is, not what it leads to.
LONG RegistryWin::OpenLink(RootKey root, const std::string& path, REGSAM rights,
                           KeyHandle* key) const {
  if (HasNul(path)) return kRegInvalidParameter;
  return calls_.Open(Handle(root), path, REG_OPTION_OPEN_LINK, rights | view_, key);
}

LONG RegistryWin::Create(RootKey root, const std::string& path, KeyHandle* key) const {
  if (HasNul(path)) return kRegInvalidParameter;
  return calls_.Create(Handle(root), path, KEY_ALL_ACCESS | view_, key);
}

RegStatus RegistryWin::TryOpen(RootKey root, const std::string& path, std::uint32_t rights) {
  KeyHandle key;
  return Open(root, path, rights, &key);
}

RegStatus RegistryWin::Count(RootKey root, const std::string& path, RegCounts* counts) {
  KeyHandle key;
  if (const RegStatus status = Open(root, path, KEY_QUERY_VALUE, &key)) return status;
  return calls_.Count(key.get(), counts);
}

RegStatus RegistryWin::QueryValue(RootKey root, const std::string& path, const std::string& name,
                                  RegValue* value) {
  if (HasNul(name)) return kRegInvalidParameter;
  KeyHandle key;
  const RegStatus status = Open(root, path, KEY_QUERY_VALUE, &key);
  return status == kRegOk ? calls_.Query(key.get(), name, value) : status;
}

RegStatus RegistryWin::CreateKey(RootKey root, const std::string& path) {
  KeyHandle key;
  return Create(root, path, &key);
}

RegStatus RegistryWin::ReadTraits(RootKey root, const std::string& path, RegTraits* traits) {
  KeyHandle key;
  const RegStatus status = Open(root, path, KEY_READ, &key);
  return status == kRegOk ? calls_.ReadTraits(key.get(), traits) : status;
}

RegStatus RegistryWin::CreateKeyOfKind(RootKey root, const std::string& path,
                                       const std::string& kind) {
  if (HasNul(path) || HasNul(kind)) return kRegInvalidParameter;
  KeyHandle key;
  return calls_.CreateOfKind(Handle(root), path, kind, KEY_ALL_ACCESS | view_, &key);
}

RegStatus RegistryWin::SetKeySecurity(RootKey root, const std::string& path,
                                      const std::string& descriptor) {
  KeyHandle key;
  RegStatus status = Open(root, path, WRITE_DAC | WRITE_OWNER, &key);
  if (status == kRegAccessDenied) status = Open(root, path, WRITE_DAC, &key);
  return status == kRegOk ? calls_.SetSecurity(key.get(), descriptor) : status;
}

RegStatus RegistryWin::SetValue(RootKey root, const std::string& path, const std::string& name,
                                const RegValue& value) {
  if (HasNul(name)) return kRegInvalidParameter;
  KeyHandle key;
  if (const RegStatus status = Create(root, path, &key)) return status;
  return calls_.Set(key.get(), name, value);
}

RegStatus RegistryWin::DeleteValue(RootKey root, const std::string& path, const std::string& name) {
  if (HasNul(name)) return kRegInvalidParameter;
  KeyHandle key;
  const RegStatus status = Open(root, path, KEY_SET_VALUE, &key);
  return status == kRegOk ? calls_.DeleteValue(key.get(), name) : status;
}

RegStatus RegistryWin::IsLink(RootKey root, const std::string& path, bool* is_link) {
  *is_link = false;
  if (HasNul(path)) return kRegInvalidParameter;
  KeyHandle key;
  // Not by the version, of which a program in a compatibility mode is lied to: links are there.
  if (!HasWideCalls()) return Open(root, path, KEY_QUERY_VALUE, &key);
  const RegStatus status = OpenLink(root, path, KEY_QUERY_VALUE, &key);
  if (status == ERROR_INVALID_PARAMETER) return kRegOk;  // the option is unknown
  if (status != kRegOk) return status;
  RegValue value;
  const LONG found = calls_.Query(key.get(), "SymbolicLinkValue", &value);
  if (found == ERROR_FILE_NOT_FOUND) return kRegOk;
  *is_link = found == ERROR_SUCCESS && value.type == REG_LINK;
  return found;
}

RegStatus RegistryWin::DeleteKeyCall(RootKey root, const std::string& path) {
  if (HasNul(path)) return kRegInvalidParameter;
  bool is_link = false;
  const RegStatus known = IsLink(root, path, &is_link);
  if (is_link || known == kRegAccessDenied) {
    KeyHandle key;
    const RegStatus opened = OpenLink(root, path, DELETE, &key);
    return opened == kRegOk ? DeleteOpenKey(key.get()) : opened;
  }
  if (known != kRegOk) return known;
  return calls_.DeleteKey(Handle(root), path, view_);
}

bool RegistryWin::HasTwoViews() {
  using IsWow64 = BOOL(WINAPI*)(HANDLE, BOOL*);
  const auto is_wow64 = LateBind<IsWow64>("kernel32.dll", "IsWow64Process");
  BOOL emulated = FALSE;
  return is_wow64 && is_wow64(GetCurrentProcess(), &emulated) && emulated;
}

RegStatus RegistryWin::EnumKeys(RootKey root, const std::string& path, const VisitKey& visit) {
  KeyHandle key;
  const RegStatus status = Open(root, path, KEY_ENUMERATE_SUB_KEYS, &key);
  if (status != kRegOk) return status;
  std::string name;
  for (DWORD index = 0;; ++index) {
    const LONG next = calls_.KeyAt(key.get(), index, &name);
    if (next == ERROR_NO_MORE_ITEMS) return kRegOk;
    if (next == ERROR_MORE_DATA) continue;  // a name beyond the limit
    if (next != ERROR_SUCCESS) return next;
    if (!visit(name)) return kRegOk;
  }
}

RegStatus RegistryWin::EnumValues(RootKey root, const std::string& path, const VisitValue& visit) {
  KeyHandle key;
  const RegStatus status = Open(root, path, KEY_QUERY_VALUE, &key);
  if (status != kRegOk) return status;
  RegStatus result = kRegOk;
  for (DWORD index = 0;; ++index) {
    std::string name;
    RegValue value;
    const RegStatus next = calls_.ValueAt(key.get(), index, &name, &value);
    if (next == ERROR_NO_MORE_ITEMS) return result;
    if (next != kRegOk && next != ERROR_MORE_DATA) return next;
    result = result == kRegOk ? next : result;  // what is too large does not hide the others
    if (next == kRegOk && !visit(name, value)) return result;
  }
}

}  // namespace scourwell
