#pragma once

#include <windows.h>

namespace scourwell {

// A function that some target Windows lacks, looked up at run time. Null when it is missing.
// The library stays loaded for the life of the process.
template <class Function>
Function LateBind(const char* library, const char* name) {
  HMODULE module = GetModuleHandleA(library);
  if (!module) module = LoadLibraryA(library);
  if (!module) return nullptr;
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

}  // namespace scourwell
