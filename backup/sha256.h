// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace scourwell {

inline constexpr std::size_t kDigestSize = 32;

// The SHA-256 digest of bytes that come in parts.
class Sha256 {
 public:
  void Add(std::string_view bytes);
  // Once, as the last call: 32 bytes.
  std::string Finish();

 private:
  void Block(const unsigned char* bytes);

  std::array<std::uint32_t, 8> state_ = {0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a,
                                         0x510e527f, 0x9b05688c, 0x1f83d9ab, 0x5be0cd19};
  std::uint64_t size_ = 0;
  std::string rest_;
};

std::string Sha256Of(std::string_view bytes);
// HMAC: only who has the key can make the digest.
std::string KeyedDigest(std::string_view key, std::string_view bytes);

}  // namespace scourwell
