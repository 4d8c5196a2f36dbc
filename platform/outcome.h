#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace scourwell {

// The classic run-time error numbers that error records carry.
enum ErrorNumber : int {
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

// The standing description of a classic number; "System error N" for any other.
std::string DescribeError(int number);

// The result of an operation that can fail: success, or an error number with a description.
// A failure may carry notes, the values of the variables that were at work.
class [[nodiscard]] Outcome {
 public:
  Outcome() = default;

  static Outcome Failed(int number) { return Outcome(number, DescribeError(number)); }
  // `description` should say what was refused or missing, in a sentence for the error log.
  static Outcome Failed(int number, std::string description) {
    return Outcome(number, std::move(description));
  }

  // Adds ", label value" behind the procedure name of the record, e.g. "sPath: ".
  Outcome With(std::string_view label, std::string_view value) &&;

  bool ok() const { return number_ == 0; }
  int number() const { return number_; }
  const std::string& description() const { return description_; }
  const std::string& notes() const { return notes_; }

 private:
  Outcome(int number, std::string description)
      : number_(number), description_(std::move(description)) {}

  int number_ = 0;
  std::string description_;
  std::string notes_;
};

}  // namespace scourwell
