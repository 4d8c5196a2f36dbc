// SPDX-License-Identifier: MIT
#include "definitions/definitions_exchange.h"

#include <algorithm>
#include <charconv>
#include <vector>

#include "machine/file_utils.h"
#include "text/text.h"

namespace scourwell {
namespace {

constexpr char kFormerName[] = "update.old";
constexpr char kCounts[] = "NTOT";

std::string ValueOf(const IniText& definitions, std::string_view section, std::string_view key) {
  const auto raw = definitions.Find(section, key);
  return raw ? PlainValue(*raw).value_or("") : std::string();
}

bool HasEntry(const IniText& definitions, const Sequence& sequence, const std::string& number) {
  return std::all_of(sequence.keys.begin(), sequence.keys.end(), [&](const char* key) {
    return !key || !ValueOf(definitions, sequence.section, number + key).empty();
  });
}

// "1-1-0-0"; empty for any other form.
std::vector<unsigned> NumbersOf(std::string_view release) {
  const std::string_view text = TrimBlanks(release);
  std::vector<unsigned> numbers;
  const char* at = text.data();
  const char* const end = at + text.size();
  while (at != end) {
    const auto [next, error] = std::from_chars(at, end, numbers.emplace_back());
    if (error != std::errc()) return {};
    if (next == end) return numbers;
    if (*next != '-' && *next != '.') return {};
    at = next + 1;
  }
  return {};
}

}  // namespace

EntryCount CountEntries(const IniText& definitions) {
  EntryCount all;
  for (const Sequence& sequence : Catalogue()) {
    int n = 0;
    while (n < sequence.most && HasEntry(definitions, sequence, std::to_string(n))) ++n;
    all.entries += static_cast<std::size_t>(n);
    if (!sequence.count_key) continue;
    const std::string count = ValueOf(definitions, kCounts, sequence.count_key);
    all.announced &= count.empty() ? n == 0 : TrimBlanks(count) == std::to_string(n);
  }
  return all;
}

bool IsOlderRelease(std::string_view number, std::string_view than) {
  const std::vector<unsigned> one = NumbersOf(number);
  const std::vector<unsigned> other = NumbersOf(than);
  return !one.empty() && !other.empty() && one < other;
}

std::optional<Caption> DefinitionsExchange::Examine(const std::string& path,
                                                    DefinitionsOffer* offer) {
  *offer = {};
  offer->path = path;
  const Outcome read = log_.TrapOutcome("LoadDefinitions", [&]() -> Outcome {
    return files_.Read(path, ReferenceFile::kLargest, &offer->content).With("File: ", path);
  });
  if (read.code() == kOutOfMemory) return Caption::DefinitionsTooLarge;
  if (!read.ok()) return Caption::DefinitionsUnreadable;
  if (offer->content.empty()) return Caption::DefinitionsEmpty;
  const IniText definitions(offer->content);
  const EntryCount count = CountEntries(definitions);
  if (count.entries == 0) return Caption::DefinitionsNoForm;
  for (std::size_t i = 0; i < offer->release.size(); ++i) {
    const ReleaseValue& value = kReleaseValues[i];
    offer->release[i] = ValueOf(definitions, value.section, value.key);
  }
  if (TrimBlanks(offer->release[0]).empty()) return Caption::DefinitionsNoNumber;
  if (!count.announced) return Caption::DefinitionsDamaged;
  offer->entries = count.entries;
  offer->older = IsOlderRelease(offer->release[0], NumberInUse());
  return std::nullopt;
}

std::string DefinitionsExchange::Describe(const DefinitionsOffer& offer) {
  const std::string in_use = NumberInUse();
  return WithShortLines(
      ReleaseLines(captions_, offer.release) + captions_.Text(Caption::AboutEntries) + " " +
      std::to_string(offer.entries) + "\r\n" + captions_.Text(Caption::DefinitionsInUse) + " " +
      (in_use.empty() ? captions_.Text(Caption::NoComponents) : in_use));
}

std::optional<std::size_t> DefinitionsExchange::EntriesInUse() {
  std::string content;
  if (!files_.Read(PathInUse(), ReferenceFile::kLargest, &content).ok()) return std::nullopt;
  return CountEntries(IniText(std::move(content))).entries;
}

Outcome DefinitionsExchange::Take(const DefinitionsOffer& offer) {
  return log_.TrapOutcome("LoadDefinitions", [&]() -> Outcome {
    const std::string target = PathInUse();
    // The file in use cannot become its own former one.
    if (EqualsNoCase(target, offer.path)) return {};
    return Exchange(offer, target);
  });
}

// The former file is the last to change, and goes back with everything else.
Outcome DefinitionsExchange::Exchange(const DefinitionsOffer& offer, const std::string& target) {
  const std::string former = FormerPath();
  std::string old;
  Outcome read = files_.Read(target, ReferenceFile::kLargest, &old);
  const bool any = read.ok();
  if (!any && read.code() != kFileNotFound && read.code() != kPathNotFound) {
    return std::move(read).With("File: ", target);
  }
  if (Outcome written = Write(target, offer.content); !written.ok()) {
    if (any) static_cast<void>(files_.Replace(target, old));
    return written;
  }
  if (!any) return {};
  Outcome kept = Write(former, old);
  // Without a way back there is none forward.
  if (!kept.ok()) static_cast<void>(files_.Replace(target, old));
  return kept;
}

// A file is what reads back as written.
Outcome DefinitionsExchange::Write(const std::string& path, const std::string& content) {
  Outcome written = files_.Replace(path, content);
  std::string back;
  if (written.ok()) written = files_.Read(path, ReferenceFile::kLargest, &back);
  if (written.ok() && back != content) {
    written = Outcome::Failed(kDeviceError, "The file does not read back as it was written");
  }
  return written.ok() ? Outcome() : std::move(written).With("File: ", path);
}

std::string DefinitionsExchange::FormerPath() {
  return AddPathToFileName(FolderPart(PathInUse()), kFormerName);
}

std::string DefinitionsExchange::FormerFound() {
  std::string path = FormerPath();
  return FileExists(files_, path) ? path : std::string();
}

std::string DefinitionsExchange::NumberInUse() {
  return std::string(
      TrimBlanks(reference_.updateListfromINI(kReleaseValues[0].section, kReleaseValues[0].key)));
}

// Where the file was found; without one, where it is looked for first.
std::string DefinitionsExchange::PathInUse() {
  static_cast<void>(NumberInUse());
  const std::string found = reference_.path();
  return found.empty() ? AddPathToFileName(settings_.DefinitionsFolder, kReferenceName) : found;
}

}  // namespace scourwell
