// SPDX-License-Identifier: MIT
#include "platform/win/nt/device_path.h"

#include <windows.h>

#include "platform/win/native_text.h"
#include "text/paths.h"
#include "text/text.h"

namespace scourwell {
namespace {

// Behind the device come the redirector and the letter by which the share was asked for, if any,
// each behind a ";".
std::string SharePathOf(std::string_view device_path) {
  for (const char* device : {"\\Device\\LanmanRedirector\\", "\\Device\\Mup\\"}) {
    const std::size_t size = PrefixNoCase(device_path, device);
    if (size == device_path.npos) continue;
    std::string_view rest = device_path.substr(size);
    while (rest.starts_with(';')) TakePart(&rest);
    return "\\\\" + std::string(rest);
  }
  return {};
}

}  // namespace

std::string DosPathOf(const std::string& device_path) {
  if (std::string plain = PlainImagePath(device_path, {}); IsAbsolutePath(plain)) return plain;
  if (std::string path = SharePathOf(device_path); !path.empty()) return path;
  const DWORD present = GetLogicalDrives();
  for (wchar_t letter = L'A'; letter <= L'Z'; ++letter) {
    if (!(present >> (letter - L'A') & 1)) continue;
    const wchar_t drive[] = {letter, L':', 0};
    wchar_t target[MAX_PATH] = L"";
    if (QueryDosDeviceW(drive, target, MAX_PATH) == 0) continue;
    const std::string device = FromWide(target);
    const std::size_t size = PrefixNoCase(device_path, device);
    if (size == device_path.npos || device.empty()) continue;
    if (device_path.substr(size, 1) == "\\") return FromWide(drive) + device_path.substr(size);
  }
  return {};
}

}  // namespace scourwell
