// SPDX-License-Identifier: MIT
#include "console/merge.h"

#include <algorithm>
#include <set>

#include "results/report_html.h"
#include "scan/finding_texts.h"

namespace scourwell {
namespace {

constexpr std::size_t kLongestLine = 4u << 20;  // a summary holds all that was not read

// A level's word of a line, for the user.
std::string CertaintyOf(const Captions& captions, std::string_view word) {
  for (const Certainty certainty : {Certainty::Place, Certainty::Name, Certainty::Part}) {
    if (CertaintyWord(certainty) == word) return CertaintyText(captions, certainty);
  }
  return std::string(word);
}

// What came of it, in the words of the window; a line says it in words of its own.
std::string StateOf(const Captions& captions, std::string_view word) {
  if (word.empty()) return captions.Text(Caption::StateNotTried);
  const auto state = FindStateName(word);
  return state ? RemovalStateWord(captions, *state) : std::string(word);
}

std::string PlaceIn(const JsonValue& line, FindingKind kind) {
  FindingRecord record;
  record.kind = kind;
  record.path = line.Text("path");
  record.key = line.Text("key");
  record.value = line.Text("value");
  record.view64 = line.Text("view") == "64";
  std::string place = PlaceOf(record);
  if (const std::string_view user = line.Text("user"); !user.empty()) {
    place.append(" [").append(user).append("]");
  }
  return place;
}

bool IsSummary(const JsonValue& line) {
  const JsonValue* summary = line.Find("summary");
  return summary && summary->flag;
}

}  // namespace

// Whatever the two are called.
bool MergedReport::IsSameFile(const std::string& a, const std::string& b) {
  FileId ids[2];
  return EqualsNoCase(a, b) ||
         (files_.Identify(a, &ids[0]).ok() && files_.Identify(b, &ids[1]).ok() &&
          ids[0].index != 0 && ids[0] == ids[1]);
}

Outcome MergedReport::ReadLines(const Input& input, const TakeLine& take) {
  std::string rest;
  Outcome broken;
  const auto line = [&](std::string_view text) {
    if (text.find_first_not_of(" \t\r") == text.npos) return;
    const auto value = ParseJson(text);
    if (value && value->kind == JsonValue::Kind::Object) {
      take(*value);
    } else if (broken.ok()) {
      broken = Outcome::Failed(kTypeMismatch, "A line is not of a scan");
    }
  };
  Outcome read = files_.ReadBlocks(input.path, [&](std::string_view block) {
    rest += block;
    std::size_t begin = 0;
    for (std::size_t end; (end = rest.find('\n', begin)) != rest.npos; begin = end + 1) {
      line(std::string_view(rest).substr(begin, end - begin));
    }
    rest.erase(0, begin);
    if (rest.size() > kLongestLine) broken = Outcome::Failed(kOverflow, "A line is too long");
    return rest.size() <= kLongestLine;
  });
  if (!rest.empty() && rest.size() <= kLongestLine) line(rest);
  return read.ok() ? std::move(broken) : std::move(read);
}

void MergedReport::Sum(const Input& input) {
  bool ended = false;
  std::uint64_t& rows = machines_[input.name];
  const Outcome read = ReadLines(input, [&](const JsonValue& line) {
    if (const auto kind = FindKindName(line.Text("kind"))) {
      ++kinds_[KindText(captions_, *kind)];
      ++spies_[std::string(line.Text("spy"))];
      ++rows;
      ++rows_;
    } else if (IsSummary(line)) {
      const JsonValue* finished = line.Find("finished");
      const JsonValue* unread = line.Find("unread");
      ended = !finished || finished->flag;
      if (unread && !unread->items.empty()) {
        incomplete_.push_back(
            {input.name, std::to_string(unread->items.size()) + " places were not read"});
      }
    }
  });
  if (!read.ok()) {
    incomplete_.push_back({input.name, read.description()});
  } else if (!ended) {
    incomplete_.push_back({input.name, "The scan did not come to its end"});
  }
}

void MergedReport::Show(const Input& input, ReportPage* page) {
  static_cast<void>(ReadLines(input, [&](const JsonValue& line) {
    const auto kind = FindKindName(line.Text("kind"));
    if (!kind) return;
    page->Row({{input.name, ReportPage::kName},
               {KindText(captions_, *kind), ReportPage::kWord},
               {std::string(line.Text("spy"))},
               {PlaceIn(line, *kind), ReportPage::kPlace},
               {CertaintyOf(captions_, line.Text("certainty")), ReportPage::kWord},
               {StateOf(captions_, line.Text("state")), ReportPage::kWord}});
  }));
}

void MergedReport::ShowInputs(ReportPage* page) const {
  page->BeginTable({"Scan", captions_.Text(Caption::ColumnCount)});
  for (const auto& [name, count] : machines_) page->Row({{name}, {std::to_string(count)}});
  page->EndTable();
  if (incomplete_.empty()) return;
  page->BeginTable({"Incomplete", "Reason"});
  for (const UnreadPlace& input : incomplete_) {
    page->Row({{input.place}, {input.reason, ReportPage::kBad}});
  }
  page->EndTable();
}

// A file that is named twice is one scan.
Outcome MergedReport::Write(std::vector<Input> inputs, const ReportHead& head,
                            const std::string& path) {
  std::set<std::string> paths;
  std::erase_if(inputs, [&](const Input& input) { return !paths.insert(input.path).second; });
  if (std::ranges::any_of(inputs,
                          [&](const Input& input) { return IsSameFile(input.path, path); })) {
    return Outcome::Failed(kFileExists,
                           "The page would take the place of a scan that it is made of");
  }
  for (const Input& input : inputs) Sum(input);
  std::unique_ptr<FileWriter> writer;
  if (Outcome opened = files_.OpenWriter(path, &writer); !opened.ok()) return opened;
  Outcome written;
  std::string pending;
  const auto flush = [&] {
    if (written.ok()) written = writer->Write(pending);
    pending.clear();
  };
  ReportPage page(captions_, [&](std::string_view piece) {
    pending += piece;
    if (pending.size() > Files::kBlockSize) flush();
  });
  page.Begin(head);
  page.Sums(captions_.Text(Caption::ReportByKind), captions_.Text(Caption::ColumnHitType), kinds_);
  page.Sums(captions_.Text(Caption::ReportBySpy), captions_.Text(Caption::ColumnHitSystem), spies_);
  ShowInputs(&page);
  std::vector<std::string> columns = ReportColumns(captions_);
  columns.insert(columns.begin(), "Scan");
  page.BeginTable(columns);
  for (const Input& input : inputs) Show(input, &page);
  page.EndTable();
  page.End();
  flush();
  return written.ok() ? writer->Commit() : std::move(written);
}

}  // namespace scourwell
