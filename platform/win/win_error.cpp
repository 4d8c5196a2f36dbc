// SPDX-License-Identifier: MIT
#include "platform/win/win_error.h"

#include <optional>

#include "platform/win/system_calls.h"

namespace scourwell {
namespace {

struct Mapping {
  DWORD code;
  ErrorNumber number;
};

constexpr Mapping kMappings[] = {
    {ERROR_FILE_NOT_FOUND, kFileNotFound},     {ERROR_PATH_NOT_FOUND, kPathNotFound},
    {ERROR_ACCESS_DENIED, kPermissionDenied},  {ERROR_SHARING_VIOLATION, kPermissionDenied},
    {ERROR_LOCK_VIOLATION, kPermissionDenied}, {ERROR_WRITE_PROTECT, kPermissionDenied},
    {ERROR_NOT_ENOUGH_MEMORY, kOutOfMemory},   {ERROR_OUTOFMEMORY, kOutOfMemory},
    {ERROR_NOT_READY, kDiskNotReady},          {ERROR_DISK_FULL, kDiskFull},
    {ERROR_HANDLE_DISK_FULL, kDiskFull},       {ERROR_FILE_EXISTS, kFileExists},
    {ERROR_ALREADY_EXISTS, kFileExists},       {ERROR_INVALID_NAME, kBadFileName},
    {ERROR_BAD_PATHNAME, kBadFileName},        {ERROR_BAD_NETPATH, kPathNotFound},
    {ERROR_BAD_NET_NAME, kPathNotFound},       {ERROR_FILENAME_EXCED_RANGE, kPathNotFound},
    {ERROR_BUFFER_OVERFLOW, kPathNotFound},    {ERROR_DIRECTORY, kPathNotFound},
    {ERROR_DIR_NOT_EMPTY, kPathFileAccess},    {ERROR_CRC, kDeviceError},
    {ERROR_SECTOR_NOT_FOUND, kDeviceError},    {ERROR_GEN_FAILURE, kDeviceError},
    {ERROR_HANDLE_EOF, kPastEndOfFile},        {ERROR_INVALID_PARAMETER, kInvalidCall},
};

std::optional<ErrorNumber> ClassicNumber(DWORD code) {
  for (const Mapping& mapping : kMappings) {
    if (mapping.code == code) return mapping.number;
  }
  return std::nullopt;
}

}  // namespace

std::string SystemMessage(DWORD code) {
  std::string text = RunningSystemCalls().MessageOf(code);
  while (text.ends_with('\r') || text.ends_with('\n')) text.pop_back();
  return text;
}

Outcome FailedWith(DWORD code) {
  if (code == 0) return Outcome::Failed(kDeviceError);  // it failed without saying why
  if (const auto number = ClassicNumber(code)) return Outcome::Failed(*number);
  const std::string message = SystemMessage(code);
  return message.empty() ? Outcome::Failed(ErrorCode::System(code))
                         : Outcome::Failed(ErrorCode::System(code), message);
}

}  // namespace scourwell
