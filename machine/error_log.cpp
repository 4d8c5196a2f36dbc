// SPDX-License-Identifier: MIT
#include "machine/error_log.h"

namespace scourwell {

void ErrorLog::LogError(std::string_view message) {
  ++count_;
  if (path_.empty()) return;
  try {
    const LocalTime now = clock_.Now();
    std::string record =
        "\"\r\nDate: " + clock_.ShortDate(now) + "\",\"Time: " + clock_.TimeOfDay(now) + "\",\"";
    record.append(message).append("\"\r\n");
    const Outcome ignored = files_.Append(path_, code_pages_.ToFile(record));
    static_cast<void>(ignored);
  } catch (const std::exception&) {
    // The log is the last resort: there is nowhere left to report to.
  }
}

void ErrorLog::LogProcError(ErrorCode code, std::string_view description, std::string_view method) {
  LogFailure(Outcome::Failed(code, std::string(description)), method);
}

void ErrorLog::LogFailure(const Outcome& outcome, std::string_view method) {
  if (listener_) listener_->HearFailure(outcome, method);
  std::string message = "Error Description: " + outcome.description() +
                        ", Error Number: " + std::to_string(outcome.code().number()) + ", Method: ";
  LogError(message.append(method).append(outcome.notes()));
}

void ErrorLog::deleteLogFile() {
  Trap("deleteLogFile", [&]() -> Outcome {
    DirEntry entry;
    if (path_.empty() || !files_.Stat(path_, &entry).ok() || entry.size <= kLimit) return {};
    return files_.EraseFile(path_);
  });
}

}  // namespace scourwell
