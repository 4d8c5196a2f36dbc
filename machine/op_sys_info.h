// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "platform/system.h"

namespace scourwell {

// The running Windows, read once. The program knows six names; a later system reads as the
// nearest of them ("at least" comparisons), which is what its branches need.
class COpSysInfo {
 public:
  explicit COpSysInfo(System& system);

  std::uint32_t BuildNumber() const { return record_.build; }
  const std::string& CSDVersion() const { return record_.csd_version; }
  std::uint32_t MajorVersion() const { return record_.major; }
  std::uint32_t MinorVersion() const { return record_.minor; }
  std::uint32_t PlatformID() const { return record_.platform; }
  std::uint8_t ProductType() const { return record_.product_type; }
  std::uint16_t ServicePackMajor() const { return record_.service_pack_major; }
  std::uint16_t ServicePackMinor() const { return record_.service_pack_minor; }
  std::uint16_t SuiteMask() const { return record_.suite_mask; }
  bool IsWinXP() const { return win_xp_; }
  bool IsWin2K() const { return win_2k_; }
  bool IsWin7() const { return win_nt_ && MajorVersion() * 100 + MinorVersion() >= 601; }
  bool IsWinNT() const { return win_nt_; }
  bool IsWin9x() const { return win_9x_; }
  bool IsWin95() const { return win_95_; }
  bool IsWin98() const { return win_98_; }
  bool IsWinME() const { return win_me_; }
  // "Windows 95", "Windows 98", "Windows Me", "Windows NT", "Windows 2000", "Windows XP", or
  // empty when the system is none of them. For showing only: decisions ask the predicates above.
  std::string Platform() const;
  // E.g. "Windows XP v5.1, Build 2600".
  std::string Version() const;
  std::string ProductTypeName() const;
  // The family: "Windows NT" or "Windows 95/98".
  std::string WindowsVer() const { return win_nt_ ? "Windows NT" : "Windows 95/98"; }

 private:
  VersionRecord record_;
  bool win_xp_ = false;
  bool win_2k_ = false;
  bool win_nt_ = false;
  bool win_9x_ = false;
  bool win_95_ = false;
  bool win_98_ = false;
  bool win_me_ = false;
};

}  // namespace scourwell
