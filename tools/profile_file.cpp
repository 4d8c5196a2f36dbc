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

std::string WriteField(const std::string& field) {
  return StandsOnALine(field) ? field : std::string(kHex) + HexOfBytes(field);
}

std::string ReadField(std::string_view line) {
  std::string bytes;
  if (line.starts_with(kHex) && BytesOfHex(line.substr(kHex.size()), &bytes)) return bytes;
  return std::string(line);
}

}  // namespace

std::string ProfileText(const std::vector<ProfileRecord>& records) {
  std::string text;
  for (const ProfileRecord& record : records) {
    for (const std::string& field : record.fields) text += WriteField(field) + "\r\n";
  }
  return text;
}

ProfileReading ReadProfileText(std::string_view text) {
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
    record.fields[reading.left_over++] = ReadField(line);
    if (!whole || reading.left_over < ProfileRecord::kFields) continue;
    reading.records.push_back(std::move(record));
    record = {};
    reading.left_over = 0;
  }
  return reading;
}

Outcome LoadProfile(Files& files, const std::string& path, std::vector<ProfileRecord>* records) {
  std::string text;
  if (Outcome read = files.Read(path, kLargestProfile, &text); !read.ok()) {
    const bool missing = read.number() == kFileNotFound;
    return missing ? Outcome() : std::move(read).With("File: ", path);
  }
  ProfileReading reading = ReadProfileText(text);
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

Outcome SaveProfile(Files& files, const std::string& path,
                    const std::vector<ProfileRecord>& records) {
  if (!records.empty()) return files.Replace(path, ProfileText(records));
  Outcome erased = files.EraseFile(path);
  return erased.number() == kFileNotFound ? Outcome() : erased;
}

}  // namespace scourwell
