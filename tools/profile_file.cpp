// SPDX-License-Identifier: MIT
#include "tools/profile_file.h"

#include <algorithm>

#include "tools/stored_value.h"

namespace scourwell {
namespace {

constexpr std::string_view kHex = "hex:";

bool StandsOnALine(std::string_view field) {
  return !field.starts_with(kHex) && std::none_of(field.begin(), field.end(), [](char c) {
    return static_cast<unsigned char>(c) < 0x20 && c != '\t';
  });
}

// Digits as they stand in a profile.
class FileHex : public HexForm {
 public:
  explicit FileHex(CodePages& code_pages) : code_pages_(code_pages) {}

  std::string Write(std::string_view text) const override {
    const std::optional<std::string> bytes = code_pages_.Encode(text);
    return bytes ? HexOfBytes(*bytes) : kUtf8 + HexOfBytes(text);
  }
  bool Read(std::string_view digits, std::string* text) const override {
    if (digits.starts_with(kUtf8)) return BytesOfHex(digits.substr(1), text);
    std::string bytes;
    return BytesOfHex(digits, &bytes) && code_pages_.Decode(code_pages_.System(), bytes, text).ok();
  }

 private:
  static constexpr char kUtf8 = 'u';

  CodePages& code_pages_;
};

std::string ReadField(std::string_view line, CodePages& code_pages) {
  const FileHex form(code_pages);
  std::string field;
  if (line.starts_with(kHex) && form.Read(line.substr(kHex.size()), &field)) return field;
  return Rewritten(code_pages.FromFile(line), form, HexForm());
}

// Other people's texts may look like ours: only what is read back exactly stands as it is.
std::string WriteField(const std::string& field, CodePages& code_pages) {
  const FileHex form(code_pages);
  if (StandsOnALine(field)) {
    std::string line = code_pages.ToFile(Rewritten(field, HexForm(), form));
    if (ReadField(line, code_pages) == field) return line;
  }
  return std::string(kHex) + form.Write(field);
}

}  // namespace

std::string ProfileText(const std::vector<ProfileRecord>& records, CodePages& code_pages) {
  std::string text;
  for (const ProfileRecord& record : records) {
    for (const std::string& field : record.fields) text += WriteField(field, code_pages) + "\r\n";
  }
  return text;
}

ProfileReading ReadProfileText(std::string_view text, CodePages& code_pages) {
  ProfileReading reading;
  ProfileRecord record;
  while (!text.empty()) {
    reading.cut = reading.records.size() == kMostRecords;
    if (reading.cut) break;
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    // A last line without its end may have been cut off.
    const bool whole = end < text.size();
    text.remove_prefix(whole ? end + 1 : end);
    if (line.ends_with('\r')) line.remove_suffix(1);
    record.fields[reading.left_over++] = ReadField(line, code_pages);
    if (!whole || reading.left_over < ProfileRecord::kFields) continue;
    reading.records.push_back(std::move(record));
    record = {};
    reading.left_over = 0;
  }
  return reading;
}

Outcome LoadProfile(Files& files, CodePages& code_pages, const std::string& path,
                    std::vector<ProfileRecord>* records) {
  std::string text;
  if (Outcome read = files.Read(path, kLargestProfile, &text); !read.ok()) {
    const bool missing = read.code() == kFileNotFound;
    return missing ? Outcome() : std::move(read).With("File: ", path);
  }
  ProfileReading reading = ReadProfileText(text, code_pages);
  std::move(reading.records.begin(), reading.records.end(), std::back_inserter(*records));
  if (reading.cut) {
    return Outcome::Failed(kOverflow, "The profile has more than " + std::to_string(kMostRecords) +
                                          " records; the others are left out")
        .With("File: ", path);
  }
  if (reading.left_over == 0) return {};
  return Outcome::Failed(kPastEndOfFile, "The profile ends within a record, after " +
                                             std::to_string(reading.left_over) + " of its 6 lines")
      .With("File: ", path);
}

Outcome SaveProfile(Files& files, CodePages& code_pages, const std::string& path,
                    const std::vector<ProfileRecord>& records) {
  if (!records.empty()) return files.Replace(path, ProfileText(records, code_pages));
  Outcome erased = files.EraseFile(path);
  return erased.code() == kFileNotFound ? Outcome() : erased;
}

}  // namespace scourwell
