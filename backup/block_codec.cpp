// SPDX-License-Identifier: MIT
#include "backup/block_codec.h"

#include <zlib.h>

#include "backup/byte_order.h"

namespace scourwell {
namespace {

constexpr int kLevel = 6;
constexpr std::size_t kHeader = 4;
constexpr std::uint32_t kPlainFlag = 0x80000000;

const Bytef* Raw(std::string_view bytes) { return reinterpret_cast<const Bytef*>(bytes.data()); }

}  // namespace

std::uint32_t Crc32(std::string_view bytes, std::uint32_t before) {
  return static_cast<std::uint32_t>(crc32(before, Raw(bytes), static_cast<uInt>(bytes.size())));
}

Outcome BlockPacker::Pack(std::string_view plain, std::string_view* stored) {
  const std::size_t room = kHeader + compressBound(static_cast<uLong>(plain.size()));
  if (buffer_.size() < room) buffer_.resize(room);
  uLongf packed = static_cast<uLongf>(buffer_.size() - kHeader);
  Bytef* const target = reinterpret_cast<Bytef*>(buffer_.data() + kHeader);
  const int status =
      compress2(target, &packed, Raw(plain), static_cast<uLong>(plain.size()), kLevel);
  if (status == Z_MEM_ERROR) return Outcome::Failed(kOutOfMemory);
  const bool shrunk = status == Z_OK && packed < plain.size();
  if (!shrunk) plain.copy(buffer_.data() + kHeader, plain.size());
  const std::size_t length = shrunk ? packed : plain.size();
  std::string header;
  PutNumber(&header, shrunk ? length : length | kPlainFlag, kHeader);
  header.copy(buffer_.data(), kHeader);
  *stored = std::string_view(buffer_).substr(0, kHeader + length);
  return {};
}

BlockHeader DecodeBlockHeader(std::string_view bytes) {
  const std::uint32_t number = NumberReader(bytes).Take32();
  return {number & ~kPlainFlag, (number & kPlainFlag) != 0};
}

Outcome ExpandBlock(const BlockHeader& header, std::string_view stored, std::size_t size,
                    std::string* buffer, std::string_view* plain) {
  if (header.plain) {
    *plain = stored;
    return stored.size() == size ? Outcome() : Outcome::Failed(kDeviceError);
  }
  if (buffer->size() < size) buffer->resize(size);
  uLongf expanded = static_cast<uLongf>(size);
  const int status = uncompress(reinterpret_cast<Bytef*>(buffer->data()), &expanded, Raw(stored),
                                static_cast<uLong>(stored.size()));
  if (status == Z_MEM_ERROR) return Outcome::Failed(kOutOfMemory);
  if (status != Z_OK || expanded != size) return Outcome::Failed(kDeviceError);
  *plain = std::string_view(*buffer).substr(0, size);
  return {};
}

}  // namespace scourwell
