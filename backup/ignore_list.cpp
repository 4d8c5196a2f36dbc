// SPDX-License-Identifier: MIT
#include "backup/ignore_list.h"

#include "machine/file_utils.h"
#include "scan/finding_texts.h"
#include "text/escaped.h"
#include "text/text.h"

namespace scourwell {
namespace {

constexpr char kIgnoreSection[] = "IgnoreList";
constexpr char kCodePage[] = "CodePage";

// Takes one field off the front of `rest`; `*ended` says that it was the last of its line.
std::string TakeField(std::string_view* rest, bool* ended) {
  while (!rest->empty() && rest->front() == ' ') rest->remove_prefix(1);
  std::string field;
  if (!rest->empty() && rest->front() == '"') {
    rest->remove_prefix(1);
    const std::size_t close = rest->find('"');
    field = rest->substr(0, close);
    rest->remove_prefix(close == std::string_view::npos ? rest->size() : close + 1);
    rest->remove_prefix(std::min(rest->find_first_of(",\r\n"), rest->size()));
  } else {
    const std::size_t end = std::min(rest->find_first_of(",\r\n"), rest->size());
    field = TrimBlanks(rest->substr(0, end));
    rest->remove_prefix(end);
  }
  *ended = rest->empty() || rest->front() != ',';
  if (!*ended) rest->remove_prefix(1);
  return field;
}

}  // namespace

IgnoreRecord IgnoreRecordOf(const Finding& finding) {
  return {std::string(KindWord(KindOf(finding.object))), PlaceText(finding.object), finding.spy};
}

std::vector<IgnoreRecord> ParseIgnoreRecords(std::string_view text) {
  std::vector<IgnoreRecord> records;
  for (;;) {
    text.remove_prefix(std::min(text.find_first_not_of("\r\n"), text.size()));
    if (text.empty()) return records;
    IgnoreRecord record;
    bool ended = false;
    for (std::string* field : {&record.kind, &record.details, &record.system}) {
      if (!ended) *field = TakeField(&text, &ended);
    }
    if (!ended) text.remove_prefix(std::min(text.find_first_of("\r\n"), text.size()));
    records.push_back(std::move(record));
  }
}

std::string IgnoreLine(const IgnoreRecord& record) {
  return "\"" + record.kind + "\",\"" + record.details + "\",\"" + record.system + "\"\r\n";
}

bool CanBeIgnored(const IgnoreRecord& record) {
  for (const std::string* field : {&record.kind, &record.details, &record.system}) {
    if (field->find_first_of("\"\r\n") != std::string::npos) return false;
  }
  return true;
}

Outcome IgnoreList::Load(std::vector<IgnoreRecord>* records) {
  records->clear();
  std::string content;
  Outcome read = files_.Read(path_, kLargest, &content);
  if (read.code() == kFileNotFound) return {};
  if (read.ok()) *records = ParseIgnoreRecords(FromFile(content));
  return read;
}

Outcome IgnoreList::Append(const std::vector<IgnoreRecord>& records) {
  if (records.empty()) return {};
  Outcome written = TurnOver();
  if (written.ok()) written = files_.Append(path_, ToFile(records));
  if (!written.ok()) return written;
  // Should the file not be readable now, they count all the same.
  for (const IgnoreRecord& record : records) keys_.insert(Key(record));
  return {};
}

// The list is replaced as a whole, so that it is there at every moment.
Outcome IgnoreList::Keep(const std::vector<IgnoreRecord>& kept) {
  const std::string scratch = AddPathToFileName(FolderPart(path_), "ignorespytemp.txt");
  if (!kept.empty()) {
    if (Outcome written = files_.Append(scratch, ToFile(kept)); !written.ok()) return written;
  }
  std::string content;
  Outcome read = files_.Read(scratch, kLargest, &content);
  if (read.code() == kFileNotFound) {
    Outcome gone = FileExists(files_, path_) ? files_.EraseFile(path_) : Outcome();
    return gone.ok() ? StateCodePage() : std::move(gone);
  }
  if (read.ok()) read = files_.Replace(path_, content);
  if (!read.ok()) return read;
  Outcome stated = StateCodePage();
  // What stayed here would come back into the next list.
  Outcome erased = files_.EraseFile(scratch);
  return stated.ok() ? std::move(erased) : std::move(stated);
}

Outcome IgnoreList::StateCodePage() {
  return kept_.Set(kIgnoreSection, kCodePage, std::to_string(code_pages_.System()));
}

unsigned IgnoreList::FileCodePage() {
  const std::int32_t stated = LeadingNumber(kept_.Get(kIgnoreSection, kCodePage));
  return stated > 0 ? static_cast<unsigned>(stated) : code_pages_.System();
}

std::string IgnoreList::FromFile(std::string_view bytes) {
  std::string text;
  const unsigned code_page = FileCodePage();
  if (code_page != code_pages_.System() && code_pages_.Decode(code_page, bytes, &text).ok()) {
    return Unescaped(text);
  }
  return code_pages_.FromFile(bytes);
}

std::string IgnoreList::ToFile(const std::vector<IgnoreRecord>& records) {
  std::string lines;
  for (const IgnoreRecord& record : records) lines += IgnoreLine(record);
  return code_pages_.ToFile(lines);
}

// Before a record is appended: the list of another code page is written anew in the present one.
Outcome IgnoreList::TurnOver() {
  if (FileCodePage() == code_pages_.System()) return StateCodePage();
  std::vector<IgnoreRecord> records;
  if (Outcome read = Load(&records); !read.ok()) return read;
  return Keep(records);
}

std::string IgnoreList::Key(const IgnoreRecord& record) {
  return record.kind + '\0' + record.details;
}

bool IgnoreList::Matches(const IgnoreRecord& record) {
  log_.Trap("AddSpyToListView", [&] { return Refresh(); });
  return !keys_.empty() && keys_.count(Key(record)) != 0;
}

Outcome IgnoreList::Refresh() {
  Outcome read = watched_.Refresh(path_, {}, [&](std::optional<std::string> content) {
    if (!content) return;
    std::unordered_set<std::string> keys;
    for (const IgnoreRecord& record : ParseIgnoreRecords(FromFile(*content))) {
      keys.insert(Key(record));
    }
    keys_ = std::move(keys);
    known_ = true;
  });
  if (read.code() != kFileNotFound) return read;
  keys_.clear();
  known_ = true;
  return {};
}

}  // namespace scourwell
