// SPDX-License-Identifier: MIT
#include "platform/win/nt/native_path.h"

#include <windows.h>

#include <algorithm>

#include "platform/win/late_bind.h"
#include "platform/win/native_text.h"
#include "text/paths.h"

namespace scourwell {
namespace {

constexpr std::size_t kLongestNativePath = 32'760;  // characters; the system's limit is 32,767

struct RedirectionCalls {
  using Disable = BOOL(WINAPI*)(void**);
  using Revert = BOOL(WINAPI*)(void*);

  Disable disable = LateBind<Disable>("kernel32.dll", "Wow64DisableWow64FsRedirection");
  Revert revert = LateBind<Revert>("kernel32.dll", "Wow64RevertWow64FsRedirection");
};

const RedirectionCalls& Redirection() {
  static const RedirectionCalls calls;
  return calls;
}

// Every part behind the root, with one backslash between them. False at a part that leads
// elsewhere.
bool AppendParts(std::string_view rest, std::string* path) {
  while (!rest.empty()) {
    const std::size_t left = rest.size();
    const std::string_view part = TakeTypedPart(&rest);
    if (part == "." || part == "..") return false;
    path->append(part);
    if (part.size() < left) *path += kSeparator;
  }
  return true;
}

}  // namespace

std::optional<std::wstring> NativePath(std::string_view path) {
  if (!IsAbsolutePath(path) || path.find('\0') != path.npos) return std::nullopt;
  const bool on_server = path.starts_with("\\\\");
  std::string native = on_server ? "\\\\?\\UNC\\" : "\\\\?\\" + std::string(path.substr(0, 3));
  if (!AppendParts(path.substr(on_server ? 2 : 3), &native)) return std::nullopt;
  std::wstring wide = Wide(native);
  if (wide.size() > kLongestNativePath) return std::nullopt;
  return wide;
}

std::string WithoutNativePrefix(const std::string& native) {
  constexpr std::string_view kOnServer = "\\\\?\\UNC\\";
  constexpr std::string_view kOnDrive = "\\\\?\\";
  if (native.starts_with(kOnServer)) return "\\\\" + native.substr(kOnServer.size());
  return native.starts_with(kOnDrive) ? native.substr(kOnDrive.size()) : native;
}

TrueNames::TrueNames() {
  const RedirectionCalls& calls = Redirection();
  switched_ = calls.disable && calls.revert && calls.disable(&before_);
}

TrueNames::~TrueNames() {
  if (!switched_) return;
  const DWORD error = GetLastError();
  Redirection().revert(before_);
  SetLastError(error);
}

}  // namespace scourwell
