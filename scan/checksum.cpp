// SPDX-License-Identifier: MIT
#include "scan/checksum.h"

#include <cstring>

namespace scourwell {
namespace {

// Four bytes at a time: the sum of a large file is bound by the processor of an old machine.
std::uint8_t ExclusiveOr(std::string_view bytes) {
  std::uint32_t sum = 0;
  std::size_t at = 0;
  for (; at + sizeof sum <= bytes.size(); at += sizeof sum) {
    std::uint32_t four;
    std::memcpy(&four, bytes.data() + at, sizeof four);
    sum ^= four;
  }
  sum ^= sum >> 16;
  sum ^= sum >> 8;
  for (; at < bytes.size(); ++at) sum ^= static_cast<unsigned char>(bytes[at]);
  return static_cast<std::uint8_t>(sum);
}

}  // namespace

Outcome GetFileCheckSum(Files& files, Pump& pump, const std::string& path,
                        std::optional<std::uint8_t>* checksum) {
  checksum->reset();
  std::uint8_t sum = 0;
  Outcome read = files.ReadBlocks(path, [&](std::string_view block) {
    sum ^= ExclusiveOr(block);
    return pump.Next();
  });
  if (read.ok() && !pump.closing()) *checksum = sum;
  return read;
}

}  // namespace scourwell
