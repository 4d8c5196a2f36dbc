// SPDX-License-Identifier: MIT
#include "machine/reasons.h"

namespace scourwell {
namespace {

struct Row {
  ErrorNumber number;
  Caption caption;
};
constexpr Row kRows[] = {
    {kInvalidCall, Caption::ReasonFailed},       {kOverflow, Caption::ReasonTooMuch},
    {kOutOfMemory, Caption::ReasonTooMuch},      {kTypeMismatch, Caption::ReasonDamaged},
    {kBadFileName, Caption::BackupNameUnusable}, {kFileNotFound, Caption::ReasonNotFound},
    {kDeviceError, Caption::ReasonFailed},       {kFileExists, Caption::ReasonExists},
    {kDiskFull, Caption::ReasonDiskFull},        {kPastEndOfFile, Caption::ReasonDamaged},
    {kPermissionDenied, Caption::AccessDenied},  {kDiskNotReady, Caption::ReasonNotReady},
    {kPathFileAccess, Caption::ReasonNoAccess},  {kPathNotFound, Caption::ReasonNotFound},
};

}  // namespace

std::string ReasonText(const Captions& captions, const Outcome& outcome) {
  if (outcome.ok()) return {};
  if (outcome.reason()) return captions.Text(*outcome.reason());
  const ErrorCode code = outcome.code();
  for (const Row& row : kRows) {
    if (code == row.number) return captions.Text(row.caption);
  }
  const bool system = code.space() == ErrorSpace::System;
  if (system && outcome.description() != DescribeError(code)) return outcome.description();
  return captions.Text(Caption::Error) + " " + std::to_string(code.number());
}

}  // namespace scourwell
