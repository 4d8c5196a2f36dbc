// SPDX-License-Identifier: MIT
#include "guard/protected_keys.h"

#include <algorithm>
#include <string>
#include <vector>

#include "text/paths.h"
#include "text/text.h"

namespace scourwell {
namespace {

// The tables spell keys as Canonical does. A key is protected with all that hold it.
constexpr const char* kKeys[] = {
    "Classes\\CLSID",
    "Classes\\Interface",
    "Classes\\PROTOCOLS\\Filter",
    "Classes\\PROTOCOLS\\Handler",
    "Classes\\TypeLib",
    "HKEY_CURRENT_USER\\Control Panel\\Desktop",
    "HKEY_CURRENT_USER\\Environment",
    "HKEY_LOCAL_MACHINE\\Enum",
    "ControlSet\\Control\\SafeBoot\\Minimal",
    "ControlSet\\Control\\SafeBoot\\Network",
    "ControlSet\\Control\\SecurityProviders",
    "ControlSet\\Enum",
    "ControlSet\\Hardware Profiles\\Current",
    "ControlSet\\Services\\Tcpip\\Parameters",
    "ControlSet\\Services\\WinSock2\\Parameters\\NameSpace_Catalog5\\Catalog_Entries",
    "ControlSet\\Services\\WinSock2\\Parameters\\Protocol_Catalog9\\Catalog_Entries",
    "Software\\Microsoft\\Internet Explorer\\Extensions",
    "Software\\Microsoft\\Internet Explorer\\Main",
    "Software\\Microsoft\\Internet Explorer\\Search",
    "Software\\Microsoft\\Internet Explorer\\SearchUrl",
    "Software\\Microsoft\\Internet Explorer\\Toolbar",
    "Software\\Microsoft\\Internet Explorer\\URLSearchHooks",
    "Software\\Microsoft\\Windows NT\\CurrentVersion\\Drivers32",
    "Software\\Microsoft\\Windows NT\\CurrentVersion\\Image File Execution Options",
    "Software\\Microsoft\\Windows NT\\CurrentVersion\\Svchost",
    "Software\\Microsoft\\Windows NT\\CurrentVersion\\Windows",
    "Software\\Microsoft\\Windows NT\\CurrentVersion\\Winlogon\\Notify",
    "Software\\Microsoft\\Windows\\CurrentVersion\\App Paths",
    "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Browser Helper Objects",
    "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders",
    "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders",
    "Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings",
    "Software\\Microsoft\\Windows\\CurrentVersion\\Policies",
    "Software\\Microsoft\\Windows\\CurrentVersion\\Run",
    "Software\\Microsoft\\Windows\\CurrentVersion\\RunOnce",
    "Software\\Microsoft\\Windows\\CurrentVersion\\RunServices",
    "Software\\Microsoft\\Windows\\CurrentVersion\\SharedDLLs",
    "Software\\Microsoft\\Windows\\CurrentVersion\\ShellServiceObjectDelayLoad",
    "Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall",
    "Software\\Policies\\Microsoft",
};

// These are keys of the machine alone: one that a user has of its own only hides it.
constexpr const char* kFileTypes[] = {
    "Classes\\*\\shellex\\ContextMenuHandlers",
    "Classes\\.bat",
    "Classes\\.com",
    "Classes\\.dll",
    "Classes\\.exe",
    "Classes\\.lnk",
    "Classes\\Directory\\shell",
    "Classes\\Drive\\shell",
    "Classes\\Folder\\shell",
    "Classes\\batfile\\shell\\open\\command",
    "Classes\\comfile\\shell\\open\\command",
    "Classes\\exefile\\shell\\open\\command",
    "Classes\\lnkfile\\shellex",
};

// Everything below these is protected, too.
constexpr const char* kWholeKeys[] = {
    "HKEY_LOCAL_MACHINE\\HARDWARE",
    "HKEY_LOCAL_MACHINE\\SAM",
    "HKEY_LOCAL_MACHINE\\SECURITY",
    "HKEY_LOCAL_MACHINE\\SYSTEM\\DISK",
    "HKEY_LOCAL_MACHINE\\SYSTEM\\MountedDevices",
    "HKEY_LOCAL_MACHINE\\SYSTEM\\Select",
    "HKEY_LOCAL_MACHINE\\SYSTEM\\Setup",
    "ControlSet\\Control\\Class",
    "ControlSet\\Control\\ComputerName",
    "ControlSet\\Control\\CriticalDeviceDatabase",
    "ControlSet\\Control\\GroupOrderList",
    "ControlSet\\Control\\IDConfigDB",
    "ControlSet\\Control\\Keyboard Layouts",
    "ControlSet\\Control\\Lsa",
    "ControlSet\\Control\\Nls",
    "ControlSet\\Control\\ProductOptions",
    "ControlSet\\Control\\ServiceGroupOrder",
    "ControlSet\\Control\\Session Manager\\DOS Devices",
    "ControlSet\\Control\\Session Manager\\Environment",
    "ControlSet\\Control\\Session Manager\\KnownDLLs",
    "ControlSet\\Control\\Session Manager\\Memory Management",
    "ControlSet\\Control\\Session Manager\\SubSystems",
    "ControlSet\\Services\\Class",
    "Software\\Microsoft\\Windows NT\\CurrentVersion\\ProfileList",
};

// What Windows starts, shows a screen, takes input and logs on with: the whole key, and each value
// right in it.
constexpr char kServicesKey[] = "ControlSet\\Services\\";
constexpr const char* kServices[] = {
    "ACPI", "AFD", "BFE", "CLFS", "CNG", "CryptSvc", "DcomLaunch", "Dhcp", "Disk", "Dnscache",
    "Eventlog", "Fastfat", "FileInfo", "FltMgr", "Fs_Rec", "Ftdisk", "HidUsb", "IntelIde", "KSecDD",
    "Kbdclass", "LSM", "LanmanServer", "LanmanWorkstation", "MRxSmb", "MountMgr", "Mouclass",
    "Msfs", "Mup", "NDIS", "NetBIOS", "NetBT", "Netlogon", "Npfs", "Ntfs", "Null", "PCI", "PCIIde",
    "PartMgr", "PlugPlay", "Power", "ProfSvc", "Rdbss", "RpcEptMapper", "RpcSs", "SamSs", "TermDD",
    "TermService", "VgaSave", "VolSnap", "Wdf01000", "atapi", "dmboot", "dmio", "dmload", "gpsvc",
    "i8042prt", "isapnp", "kbdhid", "mouhid", "msahci", "msisadrv", "nsi", "pcw", "spaceport",
    "storahci", "stornvme", "swenum", "tdx", "usbehci", "usbhub", "usbohci", "usbuhci", "vdrvroot",
    "vga", "volmgr", "volmgrx", "volume",
    // of Windows 95, 98 and Me
    "VxD\\BIOS", "VxD\\CONFIGMG", "VxD\\IFSMGR", "VxD\\IOS", "VxD\\NTKERN", "VxD\\SHELL",
    "VxD\\V86MMGR", "VxD\\VCACHE", "VxD\\VCOMM", "VxD\\VDD", "VxD\\VFAT", "VxD\\VKD", "VxD\\VMM",
    "VxD\\VTDAPI", "VxD\\VWIN32", "VxD\\VXDLDR"};

// Keys of the machine. Without these Windows does not start, or nobody can log on, or no program
// starts. What others add beside them (GinaDLL, Taskman, AppInit_DLLs) is not here.
struct VitalValue {
  const char* key;
  const char* name;  // null: each value right in the key
};
constexpr VitalValue kValues[] = {
    {"Classes\\.exe", ""},
    {"Classes\\exefile\\shell\\open\\command", ""},
    {"HKEY_LOCAL_MACHINE\\SYSTEM\\MountedDevices", nullptr},
    {"HKEY_LOCAL_MACHINE\\SYSTEM\\Select", nullptr},
    {"ControlSet\\Control\\ComputerName\\ComputerName", "ComputerName"},
    {"ControlSet\\Control\\Lsa", "Authentication Packages"},
    {"ControlSet\\Control\\Lsa", "Security Packages"},
    {"ControlSet\\Control\\Nls\\CodePage", nullptr},
    {"ControlSet\\Control\\Nls\\Language", nullptr},
    {"ControlSet\\Control\\ProductOptions", nullptr},
    {"ControlSet\\Control\\ServiceGroupOrder", nullptr},
    {"ControlSet\\Control\\Session Manager", "ObjectDirectories"},
    {"ControlSet\\Control\\Session Manager\\DOS Devices", "PIPE"},
    {"ControlSet\\Control\\Session Manager\\Environment", "ComSpec"},
    {"ControlSet\\Control\\Session Manager\\Environment", "Path"},
    {"ControlSet\\Control\\Session Manager\\Environment", "windir"},
    {"ControlSet\\Control\\Session Manager\\KnownDLLs", "DllDirectory"},
    {"ControlSet\\Control\\Session Manager\\KnownDLLs", "kernel32"},
    {"ControlSet\\Control\\Session Manager\\SubSystems", "Kmode"},
    {"ControlSet\\Control\\Session Manager\\SubSystems", "Required"},
    {"ControlSet\\Control\\Session Manager\\SubSystems", "Windows"},
    {"ControlSet\\Control\\Windows", "SystemDirectory"},
    {"ControlSet\\Services\\DcomLaunch\\Parameters", "ServiceDll"},
    {"ControlSet\\Services\\RpcSs\\Parameters", "ServiceDll"},
    {"Software\\Microsoft\\Windows NT\\CurrentVersion", "SystemRoot"},
    {"Software\\Microsoft\\Windows NT\\CurrentVersion\\ProfileList", "ProfilesDirectory"},
    {"Software\\Microsoft\\Windows NT\\CurrentVersion\\Svchost", "DcomLaunch"},
    {"Software\\Microsoft\\Windows NT\\CurrentVersion\\Svchost", "netsvcs"},
    {"Software\\Microsoft\\Windows NT\\CurrentVersion\\Svchost", "rpcss"},
    {"Software\\Microsoft\\Windows NT\\CurrentVersion\\Winlogon", "Shell"},
    {"Software\\Microsoft\\Windows NT\\CurrentVersion\\Winlogon", "Userinit"},
};

struct Key {
  std::string path;
  bool of_user = false;
  bool is_root = false;
};

bool IsControlSet(std::string_view name) {
  constexpr std::string_view kNumbered = "ControlSet";
  return EqualsNoCase(name, "CurrentControlSet") || EqualsNoCase(name, "Clone") ||
         (StartsWithNoCase(name, kNumbered) &&
          name.find_first_not_of("0123456789", kNumbered.size()) == name.npos);
}

// The registry ends a path at a NUL and takes several "\" as one.
std::vector<std::string> PartsOf(std::string_view path) {
  std::vector<std::string> parts;
  path = TrimNull(path);
  while (!path.empty()) {
    const std::string_view part = TakePart(&path);
    if (!part.empty()) parts.emplace_back(part);
  }
  return parts;
}

// One spelling for the many of each key. "Classes" is HKEY_CLASSES_ROOT and each SOFTWARE\Classes,
// "Software" that of the machine and of every user, in both views, "ControlSet" each control set.
// Below HKEY_USERS the hive of a user stands for HKEY_CURRENT_USER.
Key Canonical(std::string_view full_path) {
  Key key;
  std::vector<std::string> parts = PartsOf(full_path);
  const auto is = [&](std::size_t i, std::string_view name) {
    return i < parts.size() && EqualsNoCase(parts[i], name);
  };
  const auto replace = [&](std::size_t count, const char* root) {
    parts.erase(parts.begin() + 1, parts.begin() + static_cast<std::ptrdiff_t>(count));
    parts[0] = root;
  };
  if (is(0, "HKEY_USERS") && parts.size() > 1) {
    constexpr std::string_view kClassesHive = "_Classes";
    const bool classes = EndsWithNoCase(parts[1], kClassesHive);
    key.of_user = true;
    replace(2, classes ? "HKEY_CLASSES_ROOT" : "HKEY_CURRENT_USER");
  }
  key.of_user = key.of_user || is(0, "HKEY_CURRENT_USER");
  if (is(0, "HKEY_CLASSES_ROOT")) replace(1, "Classes");
  const bool of_machine = is(0, "HKEY_LOCAL_MACHINE");
  if ((of_machine || is(0, "HKEY_CURRENT_USER")) && is(1, "SOFTWARE")) replace(2, "Software");
  if (is(0, "Classes") || is(0, "Software")) {
    std::erase_if(parts, [](const std::string& part) { return EqualsNoCase(part, "Wow6432Node"); });
  }
  if (is(0, "Software") && is(1, "Classes")) replace(2, "Classes");
  if (of_machine && is(1, "SYSTEM") && parts.size() > 2 && IsControlSet(parts[2])) {
    replace(3, "ControlSet");
  }
  key.is_root = parts.size() < 2;
  for (const std::string& part : parts) key.path += (key.path.empty() ? "" : "\\") + part;
  return key;
}

bool IsWhole(const std::string& path, std::string_view whole) {
  return IsAtOrBelow(path, whole) || IsAtOrBelow(whole, path);
}

}  // namespace

bool IsProtectedKey(std::string_view full_path) {
  const Key key = Canonical(full_path);
  const auto holds = [&](const char* each) { return IsAtOrBelow(each, key.path); };
  const auto is_whole = [&](const char* each) { return IsWhole(key.path, each); };
  const auto is_service = [&](const char* name) {
    return IsWhole(key.path, std::string(kServicesKey) + name);
  };
  return key.is_root || std::ranges::any_of(kKeys, holds) ||
         (!key.of_user && std::ranges::any_of(kFileTypes, holds)) ||
         std::ranges::any_of(kWholeKeys, is_whole) || std::ranges::any_of(kServices, is_service);
}

bool IsProtectedValue(std::string_view full_path, std::string_view name) {
  const Key key = Canonical(full_path);
  if (key.of_user) return false;
  name = TrimNull(name);
  return std::ranges::any_of(kValues,
                             [&](const VitalValue& value) {
                               return EqualsNoCase(key.path, value.key) &&
                                      (!value.name || EqualsNoCase(name, value.name));
                             }) ||
         std::ranges::any_of(kServices, [&](const char* service) {
           return EqualsNoCase(key.path, std::string(kServicesKey) + service);
         });
}

}  // namespace scourwell
