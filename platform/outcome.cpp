#include "platform/outcome.h"

namespace scourwell {
namespace {

struct Text {
  int number;
  const char* description;
};

constexpr Text kTexts[] = {
    {kInvalidCall, "Invalid procedure call or argument"},
    {kOverflow, "Overflow"},
    {kOutOfMemory, "Out of memory"},
    {kTypeMismatch, "Type mismatch"},
    {kBadFileName, "Bad file name or number"},
    {kFileNotFound, "File not found"},
    {kDeviceError, "Device I/O error"},
    {kFileExists, "File already exists"},
    {kDiskFull, "Disk full"},
    {kPastEndOfFile, "Input past end of file"},
    {kPermissionDenied, "Permission denied"},
    {kDiskNotReady, "Disk not ready"},
    {kPathFileAccess, "Path/File access error"},
    {kPathNotFound, "Path not found"},
};

}  // namespace

std::string DescribeError(int number) {
  for (const Text& text : kTexts) {
    if (text.number == number) return text.description;
  }
  return "System error " + std::to_string(number);
}

Outcome Outcome::With(std::string_view label, std::string_view value) && {
  if (!ok()) notes_.append(", ").append(label).append(value);
  return std::move(*this);
}

}  // namespace scourwell
