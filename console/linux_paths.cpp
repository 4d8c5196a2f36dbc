// SPDX-License-Identifier: MIT
#include "console/linux_paths.h"

#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <cstdlib>

#include "text/unicode.h"

namespace scourwell {
namespace {

constexpr char32_t kStrayHalf = 0xDC00;

std::string Resolved(const std::string& path) {
  char* const real = realpath(path.c_str(), nullptr);
  if (!real) return {};
  std::string text = real;
  std::free(real);
  return text;
}

std::string Join(const std::string& folder, const std::string& name) {
  return folder == "/" ? folder + name : folder + "/" + name;
}

}  // namespace

std::string RealLinuxPath(const std::string& path) {
  if (std::string whole = Resolved(path); !whole.empty()) return whole;
  const std::size_t slash = path.rfind('/');
  const std::string name = slash == path.npos ? path : path.substr(slash + 1);
  if (name.empty() || name == "." || name == "..") return {};
  const std::string folder = Resolved(slash == path.npos ? "." : path.substr(0, slash + 1));
  return folder.empty() ? std::string() : Join(folder, name);
}

std::string LinuxFolder(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == 0 || slash == path.npos ? "/" : path.substr(0, slash);
}

std::string LinuxName(const std::string& path) { return path.substr(path.rfind('/') + 1); }

std::string LinuxPathText(std::string_view path) {
  std::string text;
  for (std::size_t at = 0; at < path.size();) {
    const std::size_t begin = at;
    const char32_t code = NextCode(path, &at);
    if (code < kStrayByte && !IsSurrogate(code)) {
      AppendCode(code, &text);
      continue;
    }
    for (const char byte : path.substr(begin, at - begin)) {
      AppendCode(kStrayHalf + static_cast<unsigned char>(byte), &text);
    }
  }
  return text;
}

bool IsLinuxFile(const std::string& path) {
  struct stat state = {};
  return stat(path.c_str(), &state) == 0 && S_ISREG(state.st_mode);
}

bool MakeLinuxFolder(const std::string& path) {
  for (std::size_t slash = path.find('/', 1); slash != path.npos;
       slash = path.find('/', slash + 1)) {
    mkdir(path.substr(0, slash).c_str(), 0700);
  }
  mkdir(path.c_str(), 0700);
  struct stat state = {};
  return stat(path.c_str(), &state) == 0 && S_ISDIR(state.st_mode);
}

std::string FindDefinitions() {
  const std::string program = Resolved("/proc/self/exe");
  if (program.empty()) return {};
  const std::string folder = LinuxFolder(program);
  for (const char* place : {"update.ref", "Ini/update.ref", "share/scourwell/update.ref",
                            "../share/scourwell/update.ref"}) {
    if (const std::string path = Join(folder, place); IsLinuxFile(path)) return RealLinuxPath(path);
  }
  return {};
}

std::string UserFolder() {
  const char* const data = std::getenv("XDG_DATA_HOME");
  if (data && *data == '/') return Join(data, "scourwell");
  const char* const home = std::getenv("HOME");
  return home && *home == '/' ? Join(home, ".local/share/scourwell") : std::string();
}

}  // namespace scourwell
