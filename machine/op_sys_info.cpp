// SPDX-License-Identifier: MIT
#include "machine/op_sys_info.h"

#include "text/text.h"

namespace scourwell {

COpSysInfo::COpSysInfo(System& system) {
  if (!system.QueryVersion(kExtendedVersionRecord, &record_)) {
    VersionRecord basic;
    static_cast<void>(system.QueryVersion(kBasicVersionRecord, &basic));
    record_ = basic;
    record_.service_pack_major = record_.service_pack_minor = record_.suite_mask = 0;
    record_.product_type = 0;
  }
  record_.csd_version = std::string(TrimNull(record_.csd_version));
  if (record_.platform == 1) {
    // Windows 95, 98 and Me repeat the version in the high half of the build number.
    record_.build &= 0xFFFF;
    win_9x_ = win_95_ = true;
    win_98_ = record_.minor >= 10;
    win_me_ = record_.build >= 3000;
  } else if (record_.platform == 2) {
    win_nt_ = true;
    win_2k_ = record_.major >= 5;
    win_xp_ = record_.major >= 5 && record_.minor >= 1;
  }
}

std::string COpSysInfo::Platform() const {
  if (win_me_) return "Windows Me";
  if (win_98_) return "Windows 98";
  if (win_95_) return "Windows 95";
  if (win_xp_) return "Windows XP";
  if (win_2k_) return "Windows 2000";
  if (win_nt_) return "Windows NT";
  return "";
}

std::string COpSysInfo::Version() const {
  return Platform() + " v" + std::to_string(record_.major) + "." + std::to_string(record_.minor) +
         ", Build " + std::to_string(record_.build);
}

std::string COpSysInfo::ProductTypeName() const {
  switch (record_.product_type) {
    case 0:
      return "Unknown";
    case 1:
      return "NT Workstation";
    case 2:
      return "Domain Controller";
    case 3:
      return "NT Server";
    default:
      return "";
  }
}

}  // namespace scourwell
