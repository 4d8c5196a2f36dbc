// SPDX-License-Identifier: MIT
#include "shell/small_bitmap.h"

#include <algorithm>
#include <cstdint>

namespace scourwell {
namespace {

constexpr std::uint32_t kLongestSide = 256;  // pixels
constexpr std::size_t kFileHeader = 14;
constexpr std::uint32_t kOldHeader = 12;  // sizes of 16 bits, colours of three bytes
constexpr std::uint32_t kInfoHeader = 40;
constexpr std::uint32_t kHeaders[] = {kOldHeader, kInfoHeader, 52, 56, 64, 108, 124};
constexpr std::uint32_t kDepths[] = {1, 4, 8, 16, 24, 32};
constexpr std::size_t kMasks = 12;  // bytes, behind a header that has no room for them

// How the pixels are written.
enum Packing : std::uint32_t { kPlain = 0, kRuns8 = 1, kRuns4 = 2, kMasked = 3 };

std::uint32_t Number(std::string_view content, std::size_t at, std::size_t bytes) {
  std::uint32_t value = 0;
  for (std::size_t i = bytes; i-- > 0;) {
    value = value << 8 | static_cast<unsigned char>(content[at + i]);
  }
  return value;
}

struct Header {
  std::uint32_t size = 0;
  std::uint32_t width = 0;
  std::uint32_t height = 0;
  std::uint32_t depth = 0;
  std::uint32_t packing = kPlain;
  std::uint32_t colours = 0;  // 0: as many as the depth allows
  bool from_top = false;
};

// Of a content that holds it.
Header HeaderOf(std::string_view content, std::uint32_t size) {
  Header header;
  header.size = size;
  if (size == kOldHeader) {
    header.width = Number(content, 18, 2);
    header.height = Number(content, 20, 2);
    header.depth = Number(content, 24, 2);
    return header;
  }
  header.width = Number(content, 18, 4);
  header.height = Number(content, 22, 4);
  header.from_top = (header.height & 0x80000000) != 0;
  if (header.from_top) header.height = 0 - header.height;
  header.depth = Number(content, 28, 2);
  header.packing = Number(content, 30, 4);
  header.colours = Number(content, 46, 4);
  return header;
}

bool MakesSense(const Header& header) {
  if (header.width < 1 || header.width > kLongestSide || header.height < 1 ||
      header.height > kLongestSide ||
      std::find(std::begin(kDepths), std::end(kDepths), header.depth) == std::end(kDepths)) {
    return false;
  }
  switch (header.packing) {
    case kPlain:
      return true;
    case kRuns8:
      return header.depth == 8 && !header.from_top;
    case kRuns4:
      return header.depth == 4 && !header.from_top;
    case kMasked:
      return header.depth == 16 || header.depth == 32;
    default:
      return false;
  }
}

// Runs of one colour, of single pixels and of nothing: none may leave its line, nor the picture,
// and the end must be told.
bool RunsStayInside(std::string_view pixels, const Header& header) {
  std::uint32_t x = 0;
  std::uint32_t y = 0;
  const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(pixels[at]); };
  for (std::size_t at = 0; at + 2 <= pixels.size();) {
    const unsigned count = byte(at);
    const unsigned what = byte(at + 1);
    at += 2;
    if (count == 0 && what == 1) return true;
    if (count == 0 && what == 0) {
      x = 0;
      ++y;
      continue;
    }
    if (count == 0 && what == 2) {
      if (at + 2 > pixels.size()) return false;
      x += byte(at);
      y += byte(at + 1);
      at += 2;
      if (x > header.width || y >= header.height) return false;
      continue;
    }
    x += count == 0 ? what : count;
    if (x > header.width || y >= header.height) return false;
    if (count == 0) at += (what * header.depth + 15) / 16 * 2;  // single ones end on even bytes
  }
  return false;
}

}  // namespace

bool IsSmallBitmap(std::string_view content) {
  if (content.size() < kFileHeader + kOldHeader || !content.starts_with("BM")) return false;
  const std::uint32_t size = Number(content, kFileHeader, 4);
  if (std::find(std::begin(kHeaders), std::end(kHeaders), size) == std::end(kHeaders)) return false;
  if (content.size() < kFileHeader + size) return false;
  const Header header = HeaderOf(content, size);
  if (!MakesSense(header)) return false;
  const std::uint32_t most = header.depth <= 8 ? 1u << header.depth : 0;
  const std::uint32_t colours = header.colours == 0 ? most : header.colours;
  const bool masks = header.packing == kMasked && size == kInfoHeader;
  const std::size_t table = kFileHeader + size + (masks ? kMasks : 0);
  const std::size_t pixels = Number(content, 10, 4);
  if (colours > most || pixels < table + (size == kOldHeader ? 3 : 4) * colours ||
      pixels > content.size()) {
    return false;
  }
  if (header.packing == kRuns8 || header.packing == kRuns4) {
    return RunsStayInside(content.substr(pixels), header);
  }
  const std::uint32_t line = (header.width * header.depth + 31) / 32 * 4;
  return content.size() - pixels >= line * header.height;
}

}  // namespace scourwell
