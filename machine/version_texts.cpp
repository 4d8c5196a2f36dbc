// SPDX-License-Identifier: MIT
#include "machine/version_texts.h"

#include <span>

namespace scourwell {
namespace {

struct Name {
  std::uint32_t code;
  const char* text;
};

constexpr Name kFlags[] = {{1, "Debug "},   {2, "PreRel "}, {4, "Patched "},
                           {8, "Private "}, {16, "Info "},  {32, "Special "}};
constexpr Name kSystems[] = {{0x10001, "DOS-Win16"},
                             {0x10004, "DOS-Win32"},
                             {0x20002, "OS/2-16 PM-16"},
                             {0x30003, "OS/2-16 PM-32"},
                             {0x40004, "NT-Win32"}};
constexpr std::uint32_t kDriver = 3;
constexpr std::uint32_t kFont = 4;
constexpr Name kTypes[] = {{1, "Executable"}, {2, "DLL"}, {kDriver, "Driver"},
                           {kFont, "Font"},   {5, "VxD"}, {7, "Lib"}};
constexpr Name kDrivers[] = {{1, "Printer drv"}, {2, "Keyboard drv"}, {3, "Language drv"},
                             {4, "Display drv"}, {5, "Mouse drv"},    {6, "Network drv"},
                             {7, "System drv"},  {8, "Installable"},  {9, "Sound drv"},
                             {10, "Comm drv"}};
constexpr Name kFonts[] = {{1, "Raster Font"}, {2, "Vector Font"}, {3, "TrueType Font"}};

const char* TextOf(std::span<const Name> names, std::uint32_t code) {
  for (const Name& name : names) {
    if (name.code == code) return name.text;
  }
  return "Unknown";
}

}  // namespace

std::string VersionText(std::uint32_t high, std::uint32_t low) {
  return std::to_string(high >> 16) + "." + std::to_string(high & 0xFFFF) + "." +
         std::to_string(low >> 16) + "." + std::to_string(low & 0xFFFF);
}

std::string FileFlagsText(std::uint32_t flags) {
  std::string text;
  for (const Name& flag : kFlags) {
    if (flags & flag.code) text += flag.text;
  }
  return text;
}

std::string OperatingSystemText(std::uint32_t code) { return TextOf(kSystems, code); }

std::string FileTypeText(std::uint32_t type) { return TextOf(kTypes, type); }

std::string FileSubtypeText(std::uint32_t type, std::uint32_t subtype) {
  if (type == kDriver) return TextOf(kDrivers, subtype);
  return type == kFont ? TextOf(kFonts, subtype) : "";
}

}  // namespace scourwell
