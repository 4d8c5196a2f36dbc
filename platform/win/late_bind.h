#pragma once

#include <windows.h>

namespace scourwell {

// A library by its full path, or one of the system's by its name. A bare name would also find a
// file of that name in the current folder, on old systems before the system's own.
HMODULE LoadSystemLibrary(const char* library);

// A function that some target Windows lacks, looked up at run time. Null when it is missing.
// The library stays loaded for the life of the process.
template <class Function>
Function LateBind(const char* library, const char* name) {
  HMODULE module = GetModuleHandleA(library);
  if (!module) module = LoadSystemLibrary(library);
  if (!module) return nullptr;
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

}  // namespace scourwell
