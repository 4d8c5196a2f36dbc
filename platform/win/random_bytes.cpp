// SPDX-License-Identifier: MIT
#include "platform/win/random_bytes.h"

#include <windows.h>

#include "platform/win/late_bind.h"

namespace scourwell {

// The oldest Windows have no source. Nobody else works on such a machine at the same time, so that
// the moment will do.
std::string RandomBytes(std::size_t count) {
  using Generate = BOOLEAN(WINAPI*)(void*, ULONG);
  using Acquire = BOOL(WINAPI*)(ULONG_PTR*, const char*, const char*, DWORD, DWORD);
  using Fill = BOOL(WINAPI*)(ULONG_PTR, DWORD, BYTE*);
  constexpr DWORD kAnyProvider = 1;           // PROV_RSA_FULL
  constexpr DWORD kWithoutKeys = 0xF0000000;  // CRYPT_VERIFYCONTEXT
  std::string bytes(count, '\0');
  const auto size = static_cast<DWORD>(count);
  if (const auto generate = LateBind<Generate>("advapi32.dll", "SystemFunction036")) {
    if (generate(bytes.data(), size)) return bytes;
  }
  ULONG_PTR provider = 0;
  const auto acquire = LateBind<Acquire>("advapi32.dll", "CryptAcquireContextA");
  const auto fill = LateBind<Fill>("advapi32.dll", "CryptGenRandom");
  if (acquire && fill && acquire(&provider, nullptr, nullptr, kAnyProvider, kWithoutKeys)) {
    if (fill(provider, size, reinterpret_cast<BYTE*>(bytes.data()))) return bytes;
  }
  LARGE_INTEGER counter = {};
  for (char& c : bytes) {
    Sleep(1);
    QueryPerformanceCounter(&counter);
    c = static_cast<char>(counter.LowPart ^ counter.LowPart >> 8 ^ GetTickCount());
  }
  return bytes;
}

}  // namespace scourwell
