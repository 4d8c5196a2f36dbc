// SPDX-License-Identifier: MIT
#include "platform/outcome.h"

#include "platform/registry.h"

namespace scourwell {
namespace {

struct Text {
  ErrorNumber number;
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

std::string DescribeError(ErrorCode code) {
  for (const Text& text : kTexts) {
    if (code == text.number) return text.description;
  }
  return "System error " + std::to_string(code.number());
}

Outcome Outcome::OfRegistry(std::int32_t status) {
  if (status == kRegOk) return {};
  return Failed(status == kRegAccessDenied ? kPermissionDenied : ErrorCode::Registry(status));
}

Outcome Outcome::Because(Caption reason) && {
  if (!ok()) reason_ = reason;
  return std::move(*this);
}

Outcome Outcome::With(std::string_view label, std::string_view value) && {
  if (ok()) return std::move(*this);
  notes_.append(", ").append(label);
  last_value_ = notes_.size();
  notes_.append(value);
  return std::move(*this);
}

}  // namespace scourwell
