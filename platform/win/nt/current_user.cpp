// SPDX-License-Identifier: MIT
#include "platform/win/current_user.h"

#include <windows.h>

#include "platform/win/late_bind.h"
#include "platform/win/unique_handle.h"

namespace scourwell {
namespace {

std::string TextOf(const SID& sid) {
  std::uint64_t authority = 0;
  for (const BYTE byte : sid.IdentifierAuthority.Value) authority = authority << 8 | byte;
  std::string text = "S-" + std::to_string(sid.Revision) + "-" + std::to_string(authority);
  for (int i = 0; i < sid.SubAuthorityCount; ++i) {
    text += "-" + std::to_string(sid.SubAuthority[i]);
  }
  return text;
}

}  // namespace

std::string CurrentUser() {
  using Open = BOOL(WINAPI*)(HANDLE, DWORD, HANDLE*);
  using Ask = BOOL(WINAPI*)(HANDLE, TOKEN_INFORMATION_CLASS, void*, DWORD, DWORD*);
  const Open open = LateBind<Open>("advapi32.dll", "OpenProcessToken");
  const Ask ask = LateBind<Ask>("advapi32.dll", "GetTokenInformation");
  HANDLE opened = nullptr;
  if (!open || !ask || !open(GetCurrentProcess(), TOKEN_QUERY, &opened)) return {};
  const KernelHandle token(opened);
  struct {
    TOKEN_USER user;
    BYTE sid[SECURITY_MAX_SID_SIZE];
  } answer = {};
  DWORD size = 0;
  if (!ask(token.get(), TokenUser, &answer, sizeof answer, &size)) return {};
  return TextOf(*static_cast<const SID*>(answer.user.User.Sid));
}

}  // namespace scourwell
