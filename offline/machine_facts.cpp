// SPDX-License-Identifier: MIT
#include "offline/machine_facts.h"

#include <cstdlib>

#include "offline/little_endian.h"
#include "text/text.h"

namespace scourwell {
namespace {

constexpr RootKey kMachine = RootKey::LocalMachine;
constexpr char kNtVersion[] = "SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion";
constexpr char kVersion[] = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion";
constexpr char kControl[] = "SYSTEM\\CurrentControlSet\\Control\\";
constexpr unsigned kFirstBuildOf11 = 22000;

std::uint32_t NumberBehindDots(std::string_view text, int dots) {
  while (dots-- > 0) {
    const std::size_t dot = text.find('.');
    if (dot == text.npos) return 0;
    text.remove_prefix(dot + 1);
  }
  return static_cast<std::uint32_t>(LeadingNumber(text));
}

std::uint8_t ProductTypeOf(const std::string& text) {
  if (EqualsNoCase(text, "WinNT")) return 1;
  if (EqualsNoCase(text, "LanmanNT")) return 2;
  return EqualsNoCase(text, "ServerNT") ? 3 : 0;
}

unsigned CodePageOf(Registry& registry, const std::string& key) {
  const std::int32_t number = LeadingNumber(TextValue(registry, kMachine, key, "ACP"));
  return number > 0 ? static_cast<unsigned>(number) : 1252;
}

void AddPart(const std::string& part, std::string* name) {
  if (!part.empty()) *name += ", " + part;
}

}  // namespace

std::string TextValue(Registry& registry, RootKey root, const std::string& path,
                      const std::string& name) {
  RegValue value;
  if (registry.QueryValue(root, path, name, &value) != kRegOk) return {};
  return IsTextType(value.type) ? std::string(TrimNull(value.data)) : std::string();
}

std::uint32_t NumberValue(Registry& registry, RootKey root, const std::string& path,
                          const std::string& name) {
  RegValue value;
  if (registry.QueryValue(root, path, name, &value) != kRegOk) return 0;
  return value.type == kRegDword ? DwordAt(value.data, 0) : 0;
}

MachineFacts FactsOfNt(Registry& registry) {
  MachineFacts facts;
  const auto text = [&](const char* name) {
    return TextValue(registry, kMachine, kNtVersion, name);
  };
  VersionRecord& version = facts.version;
  version.platform = 2;
  const std::string number = text("CurrentVersion");
  version.major = NumberBehindDots(number, 0);
  version.minor = NumberBehindDots(number, 1);
  // The number has stood still since 6.3.
  if (const auto major = NumberValue(registry, kMachine, kNtVersion, "CurrentMajorVersionNumber")) {
    version.major = major;
    version.minor = NumberValue(registry, kMachine, kNtVersion, "CurrentMinorVersionNumber");
  }
  std::string build = text("CurrentBuildNumber");
  if (build.empty()) build = text("CurrentBuild");
  version.build = static_cast<std::uint32_t>(LeadingNumber(build));
  version.csd_version = text("CSDVersion");
  const std::string pack = "Service Pack ";
  if (StartsWithNoCase(version.csd_version, pack)) {
    version.service_pack_major =
        static_cast<std::uint16_t>(LeadingNumber(version.csd_version.substr(pack.size())));
  }
  version.product_type = ProductTypeOf(
      TextValue(registry, kMachine, std::string(kControl) + "ProductOptions", "ProductType"));
  facts.name = text("ProductName");
  if (facts.name.empty()) facts.name = "Windows NT";
  const std::size_t ten = facts.name.find("Windows 10");
  if (ten != facts.name.npos && version.build >= kFirstBuildOf11) facts.name[ten + 9] = '1';
  AddPart(version.csd_version, &facts.name);
  if (version.build != 0) AddPart("Build " + std::to_string(version.build), &facts.name);
  facts.system_root = text("SystemRoot");
  RegCounts counts;
  facts.is_64 = registry.Count(kMachine, "SOFTWARE\\Wow6432Node", &counts) == kRegOk;
  facts.code_page = CodePageOf(registry, std::string(kControl) + "Nls\\CodePage");
  return facts;
}

MachineFacts FactsOfW9x(Registry& registry) {
  MachineFacts facts;
  const auto text = [&](const char* name) { return TextValue(registry, kMachine, kVersion, name); };
  VersionRecord& version = facts.version;
  version.platform = 1;
  const std::string number = text("VersionNumber");  // "4.10.2222"
  version.major = number.empty() ? 4 : NumberBehindDots(number, 0);
  version.minor = NumberBehindDots(number, 1);
  version.build = NumberBehindDots(number, 2);
  version.csd_version = text("SubVersionNumber");
  facts.name = text("ProductName");
  if (facts.name.empty()) facts.name = text("Version");
  if (facts.name.empty()) facts.name = "Windows 95";
  AddPart(number, &facts.name);
  facts.system_root = text("SystemRoot");
  facts.code_page = CodePageOf(registry, std::string(kControl) + "Nls\\Codepage");
  return facts;
}

}  // namespace scourwell
