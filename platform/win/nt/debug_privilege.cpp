// SPDX-License-Identifier: MIT
#include "platform/win/nt/debug_privilege.h"

#include "platform/win/late_bind.h"

namespace scourwell {
namespace {

// Windows 95, 98 and Me only export them.
struct TokenCalls {
  using OpenToken = BOOL(WINAPI*)(HANDLE, DWORD, HANDLE*);
  using Lookup = BOOL(WINAPI*)(LPCWSTR, LPCWSTR, LUID*);
  using Adjust = BOOL(WINAPI*)(HANDLE, BOOL, TOKEN_PRIVILEGES*, DWORD, TOKEN_PRIVILEGES*, DWORD*);

  OpenToken open = LateBind<OpenToken>("advapi32.dll", "OpenProcessToken");
  Lookup lookup = LateBind<Lookup>("advapi32.dll", "LookupPrivilegeValueW");
  Adjust adjust = LateBind<Adjust>("advapi32.dll", "AdjustTokenPrivileges");
};

const TokenCalls& Calls() {
  static const TokenCalls calls;
  return calls;
}

}  // namespace

DebugPrivilege::DebugPrivilege() {
  const TokenCalls& calls = Calls();
  TOKEN_PRIVILEGES wanted = {1, {{{}, SE_PRIVILEGE_ENABLED}}};
  HANDLE token = nullptr;
  if (!calls.open || !calls.lookup || !calls.adjust ||
      !calls.lookup(nullptr, L"SeDebugPrivilege", &wanted.Privileges[0].Luid) ||
      !calls.open(GetCurrentProcess(), TOKEN_ADJUST_PRIVILEGES | TOKEN_QUERY, &token)) {
    return;
  }
  token_.Reset(token);
  DWORD size = 0;
  if (!calls.adjust(token, FALSE, &wanted, sizeof before_, &before_, &size)) {
    token_.Reset(nullptr);
  }
}

DebugPrivilege::~DebugPrivilege() {
  if (!token_ || before_.PrivilegeCount == 0) return;  // it was on already, or is not to be had
  const DWORD error = GetLastError();
  Calls().adjust(token_.get(), FALSE, &before_, 0, nullptr, nullptr);
  SetLastError(error);
}

}  // namespace scourwell
