// SPDX-License-Identifier: MIT
#include "console/records.h"

#include <algorithm>

#include "console/json_text.h"
#include "scan/finding_texts.h"
#include "text/escaped.h"
#include "text/paths.h"
#include "text/text.h"

namespace scourwell {
namespace {

constexpr std::string_view kKinds[] = {"file", "folder", "cookie", "key", "value", "process"};
static_assert(std::size(kKinds) == kKindCount);

constexpr std::string_view kStates[] = {"removed", "gone", "at-restart", "refused", "failed"};

void Place(const FoundFile& file, FindingRecord* record) { record->path = file.path; }
void Place(const FoundFolder& folder, FindingRecord* record) { record->path = folder.path; }
void Place(const FoundCookie& cookie, FindingRecord* record) { record->path = cookie.path; }
void Place(const FoundProcess& process, FindingRecord* record) { record->path = process.image; }
void Place(const FoundKey& key, FindingRecord* record) {
  record->key = FullKeyPath(key.place);
  record->view64 = key.view64;
}
void Place(const FoundValue& value, FindingRecord* record) {
  record->key = FullKeyPath(value.key);
  record->value = value.name;
  record->view64 = value.view64;
}

void AddField(std::string_view name, std::string_view text, std::string* json) {
  json->append(", \"").append(name).append("\": ").append(JsonText(text));
}

void AddPlaces(std::string_view name, const std::vector<UnreadPlace>& places, std::string* json) {
  json->append(", \"").append(name).append("\": [");
  for (const UnreadPlace& each : places) {
    if (&each != places.data()) json->append(", ");
    json->append("{\"place\": ").append(JsonText(each.place));
    json->append(", \"reason\": ").append(JsonText(each.reason)).append("}");
  }
  json->append("]");
}

// A table program takes a cell that begins like a formula for one.
std::string Cell(std::string_view text) {
  const bool formula = !text.empty() && std::string_view("=+-@\t\r").find(text[0]) != text.npos;
  return "\"" + std::string(formula ? "'" : "") + ReplaceAll(ForShowing(text), "\"", "\"\"") + "\"";
}

std::string_view ViewName(const FindingRecord& record) {
  if (!IsInRegistry(record.kind)) return "";
  return record.view64 ? "64" : "32";
}

}  // namespace

std::string_view KindName(FindingKind kind) { return kKinds[static_cast<std::size_t>(kind)]; }

std::optional<FindingKind> FindKindName(std::string_view name) {
  for (std::size_t i = 0; i < kKindCount; ++i) {
    if (kKinds[i] == name) return static_cast<FindingKind>(i);
  }
  return std::nullopt;
}

std::string_view StateName(RemovalState state) { return kStates[static_cast<std::size_t>(state)]; }

std::optional<RemovalState> FindStateName(std::string_view name) {
  const auto found = std::ranges::find(kStates, name);
  if (found == std::end(kStates)) return std::nullopt;
  return static_cast<RemovalState>(found - std::begin(kStates));
}

bool IsInRegistry(FindingKind kind) {
  return kind == FindingKind::RegistryKey || kind == FindingKind::RegistryValue;
}

FindingRecord RecordOf(const Finding& finding, const std::optional<RemovalResult>& result) {
  FindingRecord record;
  record.kind = KindOf(finding.object);
  record.spy = finding.spy;
  std::visit([&](const auto& object) { Place(object, &record); }, finding.object);
  record.certainty = CertaintyWord(finding.certainty);
  record.source = SourceWord(finding.source);
  record.user = finding.user;
  if (result) record.state = StateName(result->state);
  return record;
}

std::string PlaceOf(const FindingRecord& record) {
  if (!IsInRegistry(record.kind)) return record.path;
  std::string place = record.kind == FindingKind::RegistryValue
                          ? AddPathToFileName(record.key, record.value)
                          : record.key;
  if (record.view64) place += kView64;
  return place;
}

std::string JsonLine(const FindingRecord& record) {
  std::string json = "{\"kind\": " + JsonText(KindName(record.kind));
  AddField("spy", record.spy, &json);
  if (IsInRegistry(record.kind)) {
    AddField("key", record.key, &json);
    if (record.kind == FindingKind::RegistryValue) AddField("value", record.value, &json);
    AddField("view", ViewName(record), &json);
  } else {
    AddField("path", record.path, &json);
  }
  AddField("certainty", record.certainty, &json);
  AddField("source", record.source, &json);
  if (!record.user.empty()) AddField("user", record.user, &json);
  if (!record.state.empty()) AddField("state", record.state, &json);
  return json + "}\n";
}

std::string JsonLine(const ScanSummary& summary) {
  std::string json = "{\"summary\": true, \"counts\": {";
  for (std::size_t i = 0; i < kKindCount; ++i) {
    if (i > 0) json += ", ";
    json += JsonText(kKinds[i]) + ": " + std::to_string(summary.counts[i]);
  }
  json += "}";
  AddField("version", summary.version, &json);
  AddField("definitions", summary.definitions, &json);
  json += ", \"seconds\": " + std::to_string(summary.milliseconds / 1000) + "." +
          Padded(summary.milliseconds % 1000, 3);
  json += std::string(", \"finished\": ") + (summary.finished ? "true" : "false");
  AddPlaces("unread", summary.unread, &json);
  AddPlaces("failed", summary.failed, &json);
  return json + "}\n";
}

std::string CsvHead() { return "kind,spy,path,key,value,view,certainty,source,user,state\r\n"; }

std::string CsvLine(const FindingRecord& record) {
  std::string line;
  for (const std::string_view text :
       {KindName(record.kind), std::string_view(record.spy), std::string_view(record.path),
        std::string_view(record.key), std::string_view(record.value), ViewName(record),
        std::string_view(record.certainty), std::string_view(record.source),
        std::string_view(record.user), std::string_view(record.state)}) {
    if (!line.empty()) line += ',';
    line += Cell(text);
  }
  return line + "\r\n";
}

}  // namespace scourwell
