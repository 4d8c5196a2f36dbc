#include "platform/protected_keys.h"

#include <string>

#include "platform/path_guard.h"

namespace scourwell {
namespace {

// Below HKEY_LOCAL_MACHINE\SOFTWARE, HKEY_CURRENT_USER\SOFTWARE and each user's SOFTWARE.
constexpr const char* kSoftwareKeys[] = {
    "Classes\\CLSID",
    "Classes\\Interface",
    "Classes\\TypeLib",
    "Microsoft\\Internet Explorer\\Extensions",
    "Microsoft\\Internet Explorer\\Main",
    "Microsoft\\Internet Explorer\\Search",
    "Microsoft\\Internet Explorer\\SearchUrl",
    "Microsoft\\Internet Explorer\\Toolbar",
    "Microsoft\\Internet Explorer\\URLSearchHooks",
    "Microsoft\\Windows NT\\CurrentVersion\\Windows",
    "Microsoft\\Windows NT\\CurrentVersion\\Winlogon",
    "Microsoft\\Windows\\CurrentVersion\\App Paths",
    "Microsoft\\Windows\\CurrentVersion\\Explorer\\Browser Helper Objects",
    "Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders",
    "Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders",
    "Microsoft\\Windows\\CurrentVersion\\Internet Settings",
    "Microsoft\\Windows\\CurrentVersion\\Policies",
    "Microsoft\\Windows\\CurrentVersion\\Run",
    "Microsoft\\Windows\\CurrentVersion\\RunOnce",
    "Microsoft\\Windows\\CurrentVersion\\RunServices",
    "Microsoft\\Windows\\CurrentVersion\\SharedDLLs",
    "Microsoft\\Windows\\CurrentVersion\\ShellServiceObjectDelayLoad",
    "Microsoft\\Windows\\CurrentVersion\\Uninstall",
};

constexpr const char* kOtherKeys[] = {
    "HKEY_CLASSES_ROOT\\CLSID",
    "HKEY_CLASSES_ROOT\\Interface",
    "HKEY_CLASSES_ROOT\\PROTOCOLS\\Filter",
    "HKEY_CLASSES_ROOT\\PROTOCOLS\\Handler",
    "HKEY_CLASSES_ROOT\\TypeLib",
    "HKEY_CLASSES_ROOT\\exefile\\shell\\open\\command",
    "HKEY_CURRENT_USER\\Control Panel\\Desktop",
    "HKEY_CURRENT_USER\\Environment",
    "HKEY_LOCAL_MACHINE\\HARDWARE",
    "HKEY_LOCAL_MACHINE\\SAM",
    "HKEY_LOCAL_MACHINE\\SECURITY",
    "HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Control",
    "HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Enum",
    "HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Services\\Tcpip\\Parameters",
    "HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Services\\WinSock2\\Parameters",
};

// Below HKEY_USERS the hive of a user stands for HKEY_CURRENT_USER.
std::string AsCurrentUser(std::string_view path) {
  constexpr std::string_view kUsers = "HKEY_USERS\\";
  if (!IsAtOrBelow(path, kUsers)) return std::string(path);
  const std::size_t end = path.find('\\', kUsers.size());
  return "HKEY_CURRENT_USER" + std::string(end == path.npos ? "" : path.substr(end));
}

}  // namespace

bool IsProtectedKey(std::string_view full_path) {
  while (full_path.ends_with('\\')) full_path.remove_suffix(1);
  if (full_path.find('\\') == full_path.npos) return true;
  const std::string path = AsCurrentUser(full_path);
  for (const char* key : kOtherKeys) {
    if (IsAtOrBelow(key, path)) return true;
  }
  for (const char* root : {"HKEY_LOCAL_MACHINE\\SOFTWARE\\", "HKEY_CURRENT_USER\\SOFTWARE\\",
                           "HKEY_LOCAL_MACHINE\\SOFTWARE\\Wow6432Node\\"}) {
    for (const char* key : kSoftwareKeys) {
      if (IsAtOrBelow(std::string(root) + key, path)) return true;
    }
  }
  return false;
}

}  // namespace scourwell
