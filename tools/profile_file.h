// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/code_pages.h"
#include "platform/files.h"

namespace scourwell {

// One disabled entry: its name and the five columns that follow.
struct ProfileRecord {
  enum Field { kName, kStatus, kLocation, kScope, kWhen, kCommand, kFields };
  std::array<std::string, kFields> fields;
};

// Six lines a record, no header, no count, in the system's ANSI code page (see CodePages::ToFile).
// A field that cannot stand on a line of its own (line breaks, other control characters) is written
// as "hex:" and its bytes. Digits stand for bytes of the code page too, behind a "u" for UTF-8
// where it lacks a letter.
std::string ProfileText(const std::vector<ProfileRecord>& records, CodePages& code_pages);

struct ProfileReading {
  std::vector<ProfileRecord> records;  // the whole ones
  std::size_t left_over = 0;           // lines behind them that are no whole record
  bool cut = false;                    // there is more than is read
};
ProfileReading ReadProfileText(std::string_view text, CodePages& code_pages);

// The most that is read of a profile, in bytes and in records: far more than anybody disables, and
// no more than a window lists at once.
inline constexpr std::uint64_t kLargestProfile = 16u << 20;
inline constexpr std::size_t kMostRecords = 2000;

// Appends the whole records. A missing file holds none. kPastEndOfFile: the file ends within a
// record; kOverflow: it has more than kMostRecords; *records still gets those before. Any other
// failure leaves *records alone.
Outcome LoadProfile(Files& files, CodePages& code_pages, const std::string& path,
                    std::vector<ProfileRecord>* records);

// Replaces the file as a whole; without records it is deleted.
Outcome SaveProfile(Files& files, CodePages& code_pages, const std::string& path,
                    const std::vector<ProfileRecord>& records);

}  // namespace scourwell
