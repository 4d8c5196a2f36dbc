// SPDX-License-Identifier: MIT
#pragma once

#include <new>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>

#include "platform/clock.h"
#include "platform/code_pages.h"
#include "platform/files.h"
#include "platform/outcome.h"

namespace scourwell {

// Hears of every failure that is put on record, as a program does that has no window to show it in.
class FailureListener {
 public:
  virtual ~FailureListener() = default;
  virtual void HearFailure(const Outcome& outcome, std::string_view method) = 0;
};

// "errorlog.txt" of the application folder: one record of three quoted fields per error. Field 1
// begins with a line break, so every record shows as a lone quotation mark and a "Date: " line.
class ErrorLog {
 public:
  static constexpr std::uint64_t kLimit = 1'000'000;  // bytes that survive a start

  ErrorLog(Files& files, Clock& clock, CodePages& code_pages, std::string path)
      : files_(files), clock_(clock), code_pages_(code_pages), path_(std::move(path)) {}

  // Without a path, records are counted and told to the listener alone.
  const std::string& path() const { return path_; }
  void set_listener(FailureListener* listener) { listener_ = listener; }
  // How many records there were since the start.
  unsigned count() const { return count_; }

  // Appends one record. Never fails visibly.
  void LogError(std::string_view message);
  void LogProcError(ErrorCode code, std::string_view description, std::string_view method);
  void LogFailure(const Outcome& outcome, std::string_view method);

  // At start-up: deletes a log that has grown past kLimit.
  void deleteLogFile();

  // The edge of a procedure: runs `body`, which returns an Outcome or nothing, and writes one
  // record under `method` when it fails. Nothing that the library throws gets past it.
  template <class Body>
  void Trap(const char* method, Body&& body) {
    static_cast<void>(TrapOutcome(method, body));
  }

  // The same for a caller that goes another way after a failure.
  template <class Body>
  [[nodiscard]] Outcome TrapOutcome(const char* method, Body&& body) {
    Outcome outcome;
    try {
      if constexpr (std::is_void_v<std::invoke_result_t<Body&>>) {
        body();
      } else {
        outcome = body();
      }
    } catch (const std::bad_alloc&) {
      outcome = Outcome::Failed(kOutOfMemory);
    } catch (const std::exception& error) {
      outcome = Outcome::Failed(kInvalidCall, error.what());
    }
    if (!outcome.ok()) LogFailure(outcome, method);
    return outcome;
  }

 private:
  Files& files_;
  Clock& clock_;
  CodePages& code_pages_;
  std::string path_;
  unsigned count_ = 0;
  FailureListener* listener_ = nullptr;
};

}  // namespace scourwell
