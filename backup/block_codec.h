// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/outcome.h"

namespace scourwell {

// Continues the CRC-32 of what stood before.
std::uint32_t Crc32(std::string_view bytes, std::uint32_t before = 0);

// Makes stored blocks; the buffers serve all blocks of an archive.
class BlockPacker {
 public:
  // `plain` holds 1 to kArchiveBlock bytes. *stored, the block with its header, is valid until
  // the next call.
  Outcome Pack(std::string_view plain, std::string_view* stored);

 private:
  std::string buffer_;
};

// What the header of a stored block says.
struct BlockHeader {
  std::uint32_t length = 0;  // of what follows, in bytes
  bool plain = false;        // not compressed
};
BlockHeader DecodeBlockHeader(std::string_view bytes);

// `stored` follows the header; `size` is what it must expand to. kDeviceError: it does not.
// *plain points into one of the two buffers.
Outcome ExpandBlock(const BlockHeader& header, std::string_view stored, std::size_t size,
                    std::string* buffer, std::string_view* plain);

}  // namespace scourwell
