// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace scourwell {

enum class Caption : int;

// The classic run-time error numbers that error records carry.
enum class ErrorNumber : std::int32_t {
  kInvalidCall = 5,
  kOverflow = 6,
  kOutOfMemory = 7,
  kTypeMismatch = 13,
  kBadFileName = 52,
  kFileNotFound = 53,
  kDeviceError = 57,
  kFileExists = 58,
  kDiskFull = 61,
  kPastEndOfFile = 62,
  kPermissionDenied = 70,
  kDiskNotReady = 71,
  kPathFileAccess = 75,
  kPathNotFound = 76,
};
using enum ErrorNumber;

// Who gave a number its meaning: 6 is an overflow, an invalid handle or anything that a component
// likes.
enum class ErrorSpace : std::uint8_t {
  Classic,
  System,     // codes of the system's calls
  Registry,   // statuses of its registry calls
  Component,  // what the entry point of a component returned
};

// An error by space and number; 0 of any space is none. Codes of different spaces are never equal.
class ErrorCode {
 public:
  constexpr ErrorCode() = default;
  constexpr ErrorCode(ErrorNumber number) : number_(static_cast<std::int32_t>(number)) {}

  static constexpr ErrorCode System(std::uint32_t code) {
    return {ErrorSpace::System, static_cast<std::int32_t>(code)};
  }
  static constexpr ErrorCode Registry(std::int32_t status) {
    return {ErrorSpace::Registry, status};
  }
  static constexpr ErrorCode Component(std::int32_t result) {
    return {ErrorSpace::Component, result};
  }

  constexpr ErrorSpace space() const { return space_; }
  // The number alone, as records show it.
  constexpr std::int32_t number() const { return number_; }
  constexpr explicit operator bool() const { return number_ != 0; }
  friend constexpr bool operator==(ErrorCode, ErrorCode) = default;

 private:
  constexpr ErrorCode(ErrorSpace space, std::int32_t number) : space_(space), number_(number) {}

  ErrorSpace space_ = ErrorSpace::Classic;
  std::int32_t number_ = 0;
};

inline constexpr ErrorCode kNoError;

// The standing description of a classic number; "System error N" for any other.
std::string DescribeError(ErrorCode code);

// The result of an operation that can fail: success, or an error code with a description.
// A failure may carry notes, the values of the variables that were at work.
class [[nodiscard]] Outcome {
 public:
  Outcome() = default;

  static Outcome Failed(ErrorCode code) { return Outcome(code, DescribeError(code)); }
  // `description` should say what was refused or missing, in a sentence for the error log.
  static Outcome Failed(ErrorCode code, std::string description) {
    return Outcome(code, std::move(description));
  }
  // What a registry call answered; a refusal is the classic one.
  static Outcome OfRegistry(std::int32_t status);

  // What users read of it, where the code does not tell them enough.
  Outcome Because(Caption reason) &&;
  // Adds ", label value" behind the procedure name of the record, e.g. "sPath: ".
  Outcome With(std::string_view label, std::string_view value) &&;

  bool ok() const { return !code_; }
  ErrorCode code() const { return code_; }
  const std::string& description() const { return description_; }
  const std::string& notes() const { return notes_; }
  // The value of the last note: mostly the place where it failed.
  std::string_view last_value() const { return std::string_view(notes_).substr(last_value_); }
  std::optional<Caption> reason() const { return reason_; }

 private:
  Outcome(ErrorCode code, std::string description)
      : code_(code), description_(std::move(description)) {}

  ErrorCode code_;
  std::string description_;
  std::string notes_;
  std::size_t last_value_ = 0;  // where it begins in notes_
  std::optional<Caption> reason_;
};

}  // namespace scourwell
