// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include <string_view>

#include "platform/system.h"

namespace scourwell {

// The extended record; the headers for the oldest target know only the basic one, `Basic`, in the
// form of either family.
template <class Basic>
struct ExtendedVersion {
  Basic basic;
  WORD service_pack_major;
  WORD service_pack_minor;
  WORD suite_mask;
  BYTE product_type;
  BYTE reserved;
};
static_assert(sizeof(ExtendedVersion<OSVERSIONINFOA>) == kExtendedVersionRecord);
static_assert(sizeof(OSVERSIONINFOA) == kBasicVersionRecord);

// Asks for a record of that kind; `to_text` makes a text of the service pack's array.
template <class Basic, class Call, class ToText>
bool ReadVersion(Call call, unsigned record_size, ToText&& to_text, VersionRecord* record) {
  ExtendedVersion<Basic> version = {};
  version.basic.dwOSVersionInfoSize =
      record_size == kExtendedVersionRecord ? sizeof version : sizeof version.basic;
  if (!call(&version.basic)) return false;
  record->major = version.basic.dwMajorVersion;
  record->minor = version.basic.dwMinorVersion;
  record->build = version.basic.dwBuildNumber;
  record->platform = version.basic.dwPlatformId;
  record->csd_version =
      to_text({version.basic.szCSDVersion, std::size(version.basic.szCSDVersion)});
  record->service_pack_major = version.service_pack_major;
  record->service_pack_minor = version.service_pack_minor;
  record->suite_mask = version.suite_mask;
  record->product_type = version.product_type;
  return true;
}

}  // namespace scourwell
