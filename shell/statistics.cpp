// SPDX-License-Identifier: MIT
#include "shell/statistics.h"

#include <algorithm>
#include <cstdint>

#include "text/text.h"

namespace scourwell {
namespace {

constexpr char kSection[] = "Statistics";
constexpr char kScans[] = "NUMBER OF SCANS";
constexpr char kLastScan[] = "LAST SCAN DATE";
constexpr char kObjects[] = "NUMBER OF OBJECTS";

}  // namespace

std::string Statistics::getNumberOfScans() { return Number(kScans); }
Outcome Statistics::setNumberOfScans() { return Raise(kScans, 1); }
std::string Statistics::getNumberOfObjectsRemoved() { return Number(kObjects); }
Outcome Statistics::setNumberOfObjectsRemoved(int removed) { return Raise(kObjects, removed); }

std::string Statistics::getLastSystemScanDate() {
  const std::string date = store_.Get(kSection, kLastScan);
  return date.empty() ? captions_.Text(Caption::NeverScanned) : date;
}

Outcome Statistics::setLastSystemScanDate() {
  const LocalTime now = clock_.Now();
  return store_.Set(kSection, kLastScan,
                    Padded(static_cast<unsigned>(now.day), 2) + "-" +
                        Padded(static_cast<unsigned>(now.month), 2) + "-" +
                        Padded(static_cast<unsigned>(now.year % 100), 2) + " @ " +
                        clock_.TimeOfDay(now));
}

std::string Statistics::Number(const char* key) {
  const std::string number = store_.Get(kSection, key);
  return number.empty() ? "0" : number;
}

Outcome Statistics::Raise(const char* key, int by) {
  const std::int64_t sum = std::int64_t{LeadingNumber(Number(key))} + by;
  return store_.Set(kSection, key, std::to_string(std::clamp<std::int64_t>(sum, 0, INT32_MAX)));
}

}  // namespace scourwell
