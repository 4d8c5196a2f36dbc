// SPDX-License-Identifier: MIT
#include "platform/win/nt/restricted_start.h"

#include "platform/win/late_bind.h"
#include "platform/win/unique_handle.h"

namespace scourwell {
namespace {

constexpr DWORD kWithoutPrivileges = 1;
constexpr int kIntegrityLevel = 25;  // a kind of information about a token, from Vista on
constexpr DWORD kIsIntegrity = 0x20;

// An identifier as it lies in memory.
struct Identifier {
  BYTE revision;
  BYTE parts;
  BYTE authority[6];
  DWORD part[2];
};
constexpr Identifier kAdministrators = {1, 2, {0, 0, 0, 0, 0, 5}, {32, 544}};
constexpr Identifier kPowerUsers = {1, 2, {0, 0, 0, 0, 0, 5}, {32, 547}};
constexpr Identifier kMediumIntegrity = {1, 1, {0, 0, 0, 0, 0, 16}, {0x2000, 0}};

void* Sid(const Identifier& identifier) { return const_cast<Identifier*>(&identifier); }

using Restrict = BOOL(WINAPI*)(HANDLE, DWORD, DWORD, SID_AND_ATTRIBUTES*, DWORD, void*, DWORD,
                               void*, HANDLE*);
using StartAs = BOOL(WINAPI*)(HANDLE, LPCWSTR, LPWSTR, void*, void*, BOOL, DWORD, void*, LPCWSTR,
                              STARTUPINFOW*, PROCESS_INFORMATION*);
using SetInformation = BOOL(WINAPI*)(HANDLE, int, void*, DWORD);

// With the rank of an administrator's process it could still steer our windows. Older systems have
// no ranks and refuse.
void LowerRank(HANDLE token) {
  if (const auto set = LateBind<SetInformation>("advapi32.dll", "SetTokenInformation")) {
    SID_AND_ATTRIBUTES label = {Sid(kMediumIntegrity), kIsIntegrity};
    set(token, kIntegrityLevel, &label, sizeof label + sizeof kMediumIntegrity);
  }
}

}  // namespace

bool StartRestricted(const wchar_t* program, wchar_t* command_line, STARTUPINFOW* startup,
                     PROCESS_INFORMATION* process) {
  const auto restrict = LateBind<Restrict>("advapi32.dll", "CreateRestrictedToken");
  const auto start = LateBind<StartAs>("advapi32.dll", "CreateProcessAsUserW");
  if (!restrict || !start) {
    return CreateProcessW(program, command_line, nullptr, nullptr, TRUE, NORMAL_PRIORITY_CLASS,
                          nullptr, nullptr, startup, process) != FALSE;
  }
  HANDLE own = nullptr;
  constexpr DWORD kRights =
      TOKEN_DUPLICATE | TOKEN_ASSIGN_PRIMARY | TOKEN_QUERY | TOKEN_ADJUST_DEFAULT;
  if (!OpenProcessToken(GetCurrentProcess(), kRights, &own)) return false;
  const KernelHandle owned(own);
  SID_AND_ATTRIBUTES denied[] = {{Sid(kAdministrators), 0}, {Sid(kPowerUsers), 0}};
  HANDLE token = nullptr;
  if (!restrict(own, kWithoutPrivileges, 2, denied, 0, nullptr, 0, nullptr, &token)) return false;
  const KernelHandle restricted(token);
  LowerRank(token);
  return start(token, program, command_line, nullptr, nullptr, TRUE, NORMAL_PRIORITY_CLASS, nullptr,
               nullptr, startup, process) != FALSE;
}

}  // namespace scourwell
