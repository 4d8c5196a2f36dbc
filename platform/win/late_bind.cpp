#include "platform/win/late_bind.h"

#include <cstring>
#include <string>

namespace scourwell {

HMODULE LoadSystemLibrary(const char* library) {
  if (std::strchr(library, '\\')) return LoadLibraryA(library);
  char folder[MAX_PATH] = "";
  const UINT size = GetSystemDirectoryA(folder, sizeof folder);
  if (size == 0 || size >= sizeof folder) return nullptr;
  return LoadLibraryA((std::string(folder, size) + "\\" + library).c_str());
}

}  // namespace scourwell
