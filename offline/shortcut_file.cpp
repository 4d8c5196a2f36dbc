// SPDX-License-Identifier: MIT
#include "offline/shortcut_file.h"

#include <algorithm>

#include "offline/little_endian.h"
#include "text/paths.h"
#include "text/text.h"
#include "text/unicode.h"

namespace scourwell {
namespace {

constexpr std::size_t kHeader = 0x4C;
constexpr std::size_t kFlagsAt = 0x14;
enum : std::uint32_t {
  kHasItemList = 1,
  kHasPlace = 2,
  kHasName = 4,
  kHasRelativePath = 8,
  kHasFolder = 0x10,
  kHasArguments = 0x20,
  kIsWide = 0x80,
};
constexpr std::uint32_t kLocalPlace = 1;
constexpr std::size_t kWidePlaceHeader = 0x24;

std::string_view From(std::string_view bytes, std::size_t at) {
  return bytes.substr(std::min(at, bytes.size()));
}

std::string WideText(std::string_view bytes) {
  std::u16string units = UnitsOf(bytes);
  return FromUtf16(units.substr(0, units.find(u'\0')));
}

std::string NarrowText(std::string_view bytes, CodePages& pages) {
  return pages.FromFile(TrimNull(bytes));
}

// A place on a drive: its beginning and its end are two texts, each in one or two forms.
std::string PlaceOf(std::string_view place, CodePages& pages) {
  if (!(DwordAt(place, 8) & kLocalPlace)) return {};
  const auto text = [&](std::size_t narrow, std::size_t wide) {
    const std::size_t at = DwordAt(place, wide);
    if (DwordAt(place, 4) >= kWidePlaceHeader && at != 0) return WideText(From(place, at));
    const std::size_t narrow_at = DwordAt(place, narrow);
    return narrow_at == 0 ? std::string() : NarrowText(From(place, narrow_at), pages);
  };
  std::string path = text(16, 28);
  const std::string end = text(24, 32);
  if (!end.empty()) path = AddPathToFileName(path, end);
  return path;
}

}  // namespace

std::optional<ShortcutFile> ReadShortcut(std::string_view bytes, CodePages& code_pages) {
  if (bytes.size() < kHeader || DwordAt(bytes, 0) != kHeader) return {};
  ShortcutFile shortcut;
  const std::uint32_t flags = DwordAt(bytes, kFlagsAt);
  std::string_view rest = bytes.substr(kHeader);
  if (flags & kHasItemList) rest = From(rest, 2 + std::size_t{WordAt(rest, 0)});
  if (flags & kHasPlace) {
    const std::size_t size = DwordAt(rest, 0);
    shortcut.target = PlaceOf(rest.substr(0, size), code_pages);
    rest = From(rest, size);
  }
  for (const std::uint32_t text : {kHasName, kHasRelativePath, kHasFolder, kHasArguments}) {
    if (!(flags & text)) continue;
    const std::size_t size = std::size_t{WordAt(rest, 0)} * (flags & kIsWide ? 2 : 1);
    const std::string_view content = From(rest, 2).substr(0, size);
    if (text == kHasArguments) {
      shortcut.arguments = flags & kIsWide ? WideText(content) : NarrowText(content, code_pages);
    }
    rest = From(rest, 2 + size);
  }
  return shortcut;
}

}  // namespace scourwell
