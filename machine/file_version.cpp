// SPDX-License-Identifier: MIT
#include "machine/file_version.h"

#include <algorithm>

#include "text/unicode.h"

namespace scourwell {
namespace {

constexpr std::size_t kNowhere = std::string_view::npos;
constexpr std::size_t kLongestNode = 0xFFFF;
// A field of a version resource as it lies among the bytes of a file, in characters of one or two
// bytes.
struct Place {
  std::size_t character = 2;
  std::size_t section = kNowhere;
  std::size_t field = kNowhere;  // its name
  std::size_t begin = kNowhere;  // behind its name
  std::size_t end = kNowhere;    // the name of the next field

  bool complete() const { return end != kNowhere; }
};

std::string Spelled(std::string_view text, std::size_t character) {
  std::string result;
  for (const char c : text) result.append(1, c).append(character - 1, '\0');
  return result;
}

std::uint32_t UnitAt(std::string_view content, std::size_t at, std::size_t size) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(content[i]); };
  return size == 1 ? byte(at) : byte(at) | static_cast<std::uint32_t>(byte(at + 1)) << 8;
}

std::size_t HeaderSize(const Place& place) { return place.character == 2 ? 6 : 4; }

// The length that the header before the field's name announces, if its node ends where that of
// the next field begins; else 0.
std::size_t NodeLength(std::string_view content, const Place& place) {
  if (!place.complete() || place.field < HeaderSize(place)) return 0;
  const std::size_t length = UnitAt(content, place.field - HeaderSize(place), 2);
  return (length + 3) / 4 * 4 == place.end - place.field ? length : 0;
}

// Programs that show version texts hold these names among their own strings: the first place that
// is a node of a resource is taken, and only without one the first place of all.
Place Find(std::string_view content, std::string_view field, std::string_view next,
           std::size_t character) {
  Place place;
  place.character = character;
  place.section = content.find(Spelled("StringFileInfo", character));
  if (place.section == kNowhere) return place;
  const std::string name = Spelled(field, character);
  const std::string next_name = Spelled(next, character);
  std::size_t from = place.section;
  std::size_t end = 0;
  for (Place candidate = place;;) {
    candidate.field = content.find(name, from);
    if (candidate.field == kNowhere) return place;
    candidate.begin = from = candidate.field + name.size();
    if (end < from) end = content.find(next_name, from);
    candidate.end = end;
    const bool is_node = NodeLength(content, candidate) != 0;
    if (is_node || place.field == kNowhere) place = candidate;
    if (is_node || end == kNowhere) return place;
  }
}

// Where the value may end at most. The next name is preceded by a header, whose bytes can look
// like text.
std::size_t Limit(std::string_view content, const Place& place) {
  const std::size_t limit = std::min(place.end, place.begin + kLongestNode);
  const std::size_t length = NodeLength(content, place);
  if (length == 0) return limit;
  return std::clamp(place.field - HeaderSize(place) + length, place.begin, limit);
}

std::u16string Value(std::string_view content, const Place& place) {
  const auto is_blank = [](char16_t c) { return c <= ' ' || c == 0x7F; };
  const std::size_t limit = Limit(content, place);
  std::u16string text;
  for (std::size_t at = place.begin; at + place.character <= limit; at += place.character) {
    const auto c = static_cast<char16_t>(UnitAt(content, at, place.character));
    if (text.empty() && is_blank(c)) continue;
    if (c == 0) break;
    text += c;
  }
  while (!text.empty() && is_blank(text.back())) text.pop_back();
  return text;
}

// Counted from 1; 0 is nowhere.
std::string Shown(std::size_t position) {
  return std::to_string(position == kNowhere ? 0 : position + 1);
}

}  // namespace

std::array<std::string, kVersionFields> FileVersion::GetVerHeader(const std::string& path) {
  std::array<std::string, kVersionFields> texts;
  log_.Trap("GetVerHeader", [&] {
    DirEntry entry;
    if (!files_.Stat(path, &entry).ok() || entry.IsFolder()) {
      texts.fill("The file \"" + path + "\" doesn't exist.");
      return;
    }
    texts.fill(captions_.Text(Caption::NotAvailable));
    std::string block;
    if (!versions_.ReadBlock(path, &block).ok()) return;
    const VersionResource resource(block, versions_);
    for (std::size_t field = 0; field < kVersionFields; ++field) {
      std::optional<std::string> text = resource.Text(static_cast<VersionField>(field));
      if (text) texts[field] = std::move(*text);
    }
  });
  return texts;
}

std::string FileVersion::GetFileDescription(const std::string& path) {
  return ReadDirectly("GetFileDescription", "FileDescription", "FileVersion", path);
}

std::string FileVersion::GetProductName(const std::string& path) {
  return ReadDirectly("GetProductName", "ProductName", "ProductVersion", path);
}

std::string FileVersion::ReadDirectly(const char* method, std::string_view field,
                                      std::string_view next, const std::string& path) {
  std::string text;
  log_.Trap(method, [&]() -> Outcome {
    Place place;
    std::string content;
    Outcome outcome = Load(path, &content);
    if (outcome.ok()) {
      place = Find(content, field, next, 2);
      if (const Place narrow = Find(content, field, next, 1);
          !place.complete() && (narrow.complete() || place.field == kNowhere)) {
        place = narrow;
      }
      if (place.complete()) {
        const std::u16string value = Value(content, place);
        text = place.character == 2 ? FromUtf16(value)
                                    : versions_.FromAnsi(std::string(value.begin(), value.end()));
        return {};
      }
      if (place.field == kNowhere) return {};
      outcome = Outcome::Failed(kInvalidCall, "The version information has no end");
    }
    return std::move(outcome)
        .With("strFile: ", path)
        .With("pos: ", Shown(place.section))
        .With("StartPos: ", Shown(place.begin))
        .With("EndPos: ", Shown(place.end));
  });
  return text;
}

Outcome FileVersion::Load(const std::string& path, std::string* content) {
  DirEntry entry;
  if (Outcome found = files_.Stat(path, &entry); !found.ok()) return found;
  content->reserve(static_cast<std::size_t>(std::min<std::uint64_t>(entry.size, kMostLoaded)));
  return files_.ReadBlocks(path, [&](std::string_view block) {
    content->append(block);
    return content->size() < kMostLoaded;
  });
}

}  // namespace scourwell
