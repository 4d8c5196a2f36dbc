// SPDX-License-Identifier: MIT
#include "scan/finding_texts.h"

#include <iterator>

#include "text/paths.h"

namespace scourwell {
namespace {

struct KindRow {
  std::string_view word;
  Caption caption;
  int icon;
};

// The rows in the order of FindingKind.
constexpr KindRow kKinds[] = {
    {"Spy File", Caption::KindFile, 3},
    {"Spy Folder", Caption::KindFolder, 4},
    {"Spy Cookie", Caption::KindCookie, 3},
    {"Spy Registry Key", Caption::KindRegistryKey, 5},
    {"Spy Registry Value", Caption::KindRegistryValue, 5},
    {"Memory Process", Caption::KindProcess, 9},
};
static_assert(std::size(kKinds) == std::variant_size_v<FoundObject>);

const KindRow& RowOf(FindingKind kind) { return kKinds[static_cast<std::size_t>(kind)]; }

struct Level {
  std::string_view word;
  Caption caption;
};

// In the order of Certainty.
constexpr Level kHigh = {"high", Caption::CertaintyHigh};
constexpr Level kMedium = {"medium", Caption::CertaintyMedium};
constexpr Level kLow = {"low", Caption::CertaintyLow};
constexpr Level kLevels[] = {kHigh, kMedium, kMedium, kLow, kLow, kLow, kLow};

const Level& LevelOf(Certainty certainty) { return kLevels[static_cast<std::size_t>(certainty)]; }

std::string InView(std::string place, bool view64) {
  if (view64) place += kView64;
  return place;
}

}  // namespace

std::string_view KindWord(FindingKind kind) { return RowOf(kind).word; }

std::optional<FindingKind> KindOfWord(std::string_view word) {
  for (std::size_t i = 0; i < std::size(kKinds); ++i) {
    if (kKinds[i].word == word) return static_cast<FindingKind>(i);
  }
  return std::nullopt;
}

std::string KindText(const Captions& captions, FindingKind kind) {
  return captions.Text(RowOf(kind).caption);
}

std::vector<std::string> KindTexts(const Captions& captions) {
  std::vector<std::string> texts;
  for (const KindRow& kind : kKinds) texts.push_back(captions.Text(kind.caption));
  return texts;
}

std::string_view CertaintyWord(Certainty certainty) { return LevelOf(certainty).word; }

std::string CertaintyText(const Captions& captions, Certainty certainty) {
  return captions.Text(LevelOf(certainty).caption);
}

std::string_view SourceWord(DefinitionSource source) {
  switch (source) {
    case DefinitionSource::BuiltIn:
      return "built-in";
    case DefinitionSource::Setting:
      return "setting";
    case DefinitionSource::File:
      break;
  }
  return "file";
}

int KindIcon(FindingKind kind) { return RowOf(kind).icon; }

std::string PlaceText(const FoundObject& object) {
  return std::visit(
      Overloaded{
          [](const FoundFile& file) { return file.path; },
          [](const FoundFolder& folder) { return folder.path; },
          [](const FoundCookie& cookie) { return cookie.path; },
          [](const FoundKey& key) { return InView(FullKeyPath(key.place), key.view64); },
          [](const FoundValue& value) {
            return InView(AddPathToFileName(FullKeyPath(value.key), value.name), value.view64);
          },
          [](const FoundProcess& process) { return process.image; },
      },
      object);
}

std::string TipText(const Finding& finding, const SpyCategories& categories) {
  const FoundObject& object = finding.object;
  std::string text = PlaceText(object);
  if (const auto* key = std::get_if<FoundKey>(&object)) text = FullKeyPath(key->place);
  if (const auto* value = std::get_if<FoundValue>(&object)) text = FullKeyPath(value->key);
  const std::string_view category =
      categories.Of(finding.spy, std::holds_alternative<FoundCookie>(object));
  if (category.empty()) return text;
  text.append(" - ").append(category);
  const std::string_view says = categories.TextOf(category);
  return says.empty() ? text : text.append(": ").append(says);
}

}  // namespace scourwell
