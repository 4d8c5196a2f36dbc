// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "results/removal_result.h"
#include "scan/finding.h"

namespace scourwell {

// What a program reads of a finding. Its words are the same in every language.
struct FindingRecord {
  FindingKind kind = FindingKind::File;
  std::string spy;
  std::string path;  // files, folders, cookies, processes
  std::string key;   // the registry, from the root's name on
  std::string value;
  bool view64 = false;
  std::string certainty;
  std::string source;
  std::string user;
  std::string state;  // what a removal made of it; empty where none tried
};

FindingRecord RecordOf(const Finding& finding, const std::optional<RemovalResult>& result);

// "file", "folder", "cookie", "key", "value", "process": the kinds in their order.
std::string_view KindName(FindingKind kind);
std::optional<FindingKind> FindKindName(std::string_view name);
// "removed", "gone", "at-restart", "refused" or "failed".
std::string_view StateName(RemovalState state);
std::optional<RemovalState> FindStateName(std::string_view name);

bool IsInRegistry(FindingKind kind);
// The path or the key with its value: where it is, in one text.
std::string PlaceOf(const FindingRecord& record);

inline constexpr std::size_t kKindCount = std::variant_size_v<FoundObject>;
using KindCounts = std::array<std::uint64_t, kKindCount>;

// A place that a scan could not look at, or at which a removal could not do something.
struct UnreadPlace {
  std::string place;
  std::string reason;
};

// What a scan says at its end.
struct ScanSummary {
  KindCounts counts{};
  std::string version;
  std::string definitions;
  std::uint32_t milliseconds = 0;
  bool finished = false;  // neither stopped nor broken off
  std::vector<UnreadPlace> unread;
  std::vector<UnreadPlace> failed;  // of a removal
};

// One line each, with its end.
std::string JsonLine(const FindingRecord& record);
std::string JsonLine(const ScanSummary& summary);
// The lines of a table for other programs: the first one names the columns.
std::string CsvHead();
std::string CsvLine(const FindingRecord& record);

}  // namespace scourwell
