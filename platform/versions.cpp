#include "platform/versions.h"

namespace scourwell {

std::string VersionText(std::uint32_t high, std::uint32_t low) {
  return std::to_string(high >> 16) + "." + std::to_string(high & 0xFFFF) + "." +
         std::to_string(low >> 16) + "." + std::to_string(low & 0xFFFF);
}

std::string OperatingSystemText(std::uint32_t code) {
  switch (code) {
    case 0x10001:
      return "DOS-Win16";
    case 0x10004:
      return "DOS-Win32";
    case 0x20002:
      return "OS/2-16 PM-16";
    case 0x30003:
      return "OS/2-16 PM-32";
    case 0x40004:
      return "NT-Win32";
    default:
      return "Unknown";
  }
}

}  // namespace scourwell
