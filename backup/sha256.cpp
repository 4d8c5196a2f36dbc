// SPDX-License-Identifier: MIT
#include "backup/sha256.h"

#include <bit>

namespace scourwell {
namespace {

constexpr std::size_t kBlock = 64;

// The fractions of the cube roots of the first 64 primes.
constexpr std::uint32_t kRounds[64] = {
    0x428a2f98, 0x71374491, 0xb5c0fbcf, 0xe9b5dba5, 0x3956c25b, 0x59f111f1, 0x923f82a4, 0xab1c5ed5,
    0xd807aa98, 0x12835b01, 0x243185be, 0x550c7dc3, 0x72be5d74, 0x80deb1fe, 0x9bdc06a7, 0xc19bf174,
    0xe49b69c1, 0xefbe4786, 0x0fc19dc6, 0x240ca1cc, 0x2de92c6f, 0x4a7484aa, 0x5cb0a9dc, 0x76f988da,
    0x983e5152, 0xa831c66d, 0xb00327c8, 0xbf597fc7, 0xc6e00bf3, 0xd5a79147, 0x06ca6351, 0x14292967,
    0x27b70a85, 0x2e1b2138, 0x4d2c6dfc, 0x53380d13, 0x650a7354, 0x766a0abb, 0x81c2c92e, 0x92722c85,
    0xa2bfe8a1, 0xa81a664b, 0xc24b8b70, 0xc76c51a3, 0xd192e819, 0xd6990624, 0xf40e3585, 0x106aa070,
    0x19a4c116, 0x1e376c08, 0x2748774c, 0x34b0bcb5, 0x391c0cb3, 0x4ed8aa4a, 0x5b9cca4f, 0x682e6ff3,
    0x748f82ee, 0x78a5636f, 0x84c87814, 0x8cc70208, 0x90befffa, 0xa4506ceb, 0xbef9a3f7, 0xc67178f2};

std::uint32_t BigEndian(const unsigned char* bytes) {
  return static_cast<std::uint32_t>(bytes[0]) << 24 | static_cast<std::uint32_t>(bytes[1]) << 16 |
         static_cast<std::uint32_t>(bytes[2]) << 8 | bytes[3];
}

}  // namespace

void Sha256::Block(const unsigned char* bytes) {
  std::uint32_t w[64];
  for (unsigned i = 0; i < 16; ++i) w[i] = BigEndian(bytes + 4 * i);
  for (unsigned i = 16; i < 64; ++i) {
    const std::uint32_t a = std::rotr(w[i - 15], 7) ^ std::rotr(w[i - 15], 18) ^ (w[i - 15] >> 3);
    const std::uint32_t b = std::rotr(w[i - 2], 17) ^ std::rotr(w[i - 2], 19) ^ (w[i - 2] >> 10);
    w[i] = w[i - 16] + a + w[i - 7] + b;
  }
  auto s = state_;
  for (unsigned i = 0; i < 64; ++i) {
    const std::uint32_t e = std::rotr(s[4], 6) ^ std::rotr(s[4], 11) ^ std::rotr(s[4], 25);
    const std::uint32_t choice = (s[4] & s[5]) ^ (~s[4] & s[6]);
    const std::uint32_t first = s[7] + e + choice + kRounds[i] + w[i];
    const std::uint32_t a = std::rotr(s[0], 2) ^ std::rotr(s[0], 13) ^ std::rotr(s[0], 22);
    const std::uint32_t majority = (s[0] & s[1]) ^ (s[0] & s[2]) ^ (s[1] & s[2]);
    s = {first + a + majority, s[0], s[1], s[2], s[3] + first, s[4], s[5], s[6]};
  }
  for (unsigned i = 0; i < 8; ++i) state_[i] += s[i];
}

void Sha256::Add(std::string_view bytes) {
  size_ += bytes.size();
  if (!rest_.empty()) {
    const std::string_view fill = bytes.substr(0, kBlock - rest_.size());
    rest_ += fill;
    bytes.remove_prefix(fill.size());
    if (rest_.size() < kBlock) return;
    Block(reinterpret_cast<const unsigned char*>(rest_.data()));
    rest_.clear();
  }
  for (; bytes.size() >= kBlock; bytes.remove_prefix(kBlock)) {
    Block(reinterpret_cast<const unsigned char*>(bytes.data()));
  }
  rest_ = bytes;
}

std::string Sha256::Finish() {
  const std::uint64_t bits = size_ * 8;
  std::string end(1, '\x80');
  while ((size_ + end.size()) % kBlock != kBlock - 8) end += '\0';
  for (unsigned i = 64; i > 0; i -= 8) end += static_cast<char>(bits >> (i - 8) & 0xFF);
  Add(end);
  std::string digest;
  for (const std::uint32_t word : state_) {
    for (unsigned i = 32; i > 0; i -= 8) digest += static_cast<char>(word >> (i - 8) & 0xFF);
  }
  return digest;
}

std::string Sha256Of(std::string_view bytes) {
  Sha256 sum;
  sum.Add(bytes);
  return sum.Finish();
}

std::string KeyedDigest(std::string_view key, std::string_view bytes) {
  std::string block = key.size() > kBlock ? Sha256Of(key) : std::string(key);
  block.resize(kBlock, '\0');
  const auto padded = [&](char with) {
    std::string pad = block;
    for (char& c : pad) c = static_cast<char>(c ^ with);
    return pad;
  };
  return Sha256Of(padded(0x5C) + Sha256Of(padded(0x36).append(bytes)));
}

}  // namespace scourwell
