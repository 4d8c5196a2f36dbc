// SPDX-License-Identifier: MIT
#include "backup/archive_places.h"

#include <charconv>

#include "backup/sha256.h"
#include "text/paths.h"
#include "text/text.h"

namespace scourwell {
namespace {

constexpr const char* kSection = kMarkSection;
constexpr char kPlaces[] = "Elsewhere";
// No file name holds these.
constexpr char kField = '|';
constexpr char kRecord = '?';

std::string_view Take(std::string_view* text, char end) {
  const std::size_t at = std::min(text->find(end), text->size());
  const std::string_view part = text->substr(0, at);
  text->remove_prefix(std::min(at + 1, text->size()));
  return part;
}

std::uint64_t Number(std::string_view text) {
  std::uint64_t number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

}  // namespace

std::vector<ArchivePlace> ArchivePlaces::All() {
  std::vector<ArchivePlace> places;
  const std::string text = kept_.Get(kSection, kPlaces);
  for (std::string_view rest = text; !rest.empty();) {
    std::string_view record = Take(&rest, kRecord);
    ArchivePlace place;
    place.key = Take(&record, kField);
    place.folder = kept_.FolderOf(std::string(Take(&record, kField)));
    place.size = Number(Take(&record, kField));
    place.modified = Number(Take(&record, kField));
    if (IsPossibleName(place.key) && IsAbsolutePath(place.folder)) places.push_back(place);
  }
  return places;
}

std::optional<ArchivePlace> ArchivePlaces::Find(const std::string& key) {
  for (ArchivePlace& place : All()) {
    if (EqualsNoCase(place.key, key)) return std::move(place);
  }
  return std::nullopt;
}

Outcome ArchivePlaces::Remember(const ArchivePlace& place) {
  std::vector<ArchivePlace> places = All();
  std::erase_if(places, [&](const auto& each) { return EqualsNoCase(each.key, place.key); });
  places.push_back(place);
  return Store(places);
}

Outcome ArchivePlaces::Forget(const std::string& key) {
  std::vector<ArchivePlace> places = All();
  const auto gone =
      std::erase_if(places, [&](const auto& each) { return EqualsNoCase(each.key, key); });
  return gone ? Store(places) : Outcome();
}

Outcome ArchivePlaces::Store(const std::vector<ArchivePlace>& places) {
  std::string text;
  for (const ArchivePlace& place : places) {
    if (!text.empty()) text += kRecord;
    text += place.key + kField + kept_.WrittenFolder(place.folder) + kField +
            std::to_string(place.size) + kField + std::to_string(place.modified);
  }
  return kept_.Set(kSection, kPlaces, text);
}

std::string KeyOfMachine(KeptTexts& kept, System& system) {
  const std::string known = kept.Get(kSection, kMarkKey);
  if (known.size() == 2 * kDigestSize) return known;
  const std::string bytes = system.RandomBytes(kDigestSize);
  std::string key;
  for (const char c : bytes) key += Hex(static_cast<unsigned char>(c), 2);
  return !key.empty() && kept.Set(kSection, kMarkKey, key).ok() ? key : std::string();
}

}  // namespace scourwell
