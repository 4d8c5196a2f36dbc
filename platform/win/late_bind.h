// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

namespace scourwell {

// One of the system's libraries, by its bare name: as the process has it already, else from the
// system's folder. The name alone would also find a file in the program's own folder or in the
// current one, on old systems before the system's own.
HMODULE LoadSystemLibrary(const char* library);

// A function that some target Windows lacks, looked up at run time. Null when it is missing.
// The library stays loaded for the life of the process.
template <class Function>
Function LateBind(const char* library, const char* name) {
  HMODULE module = LoadSystemLibrary(library);
  if (!module) return nullptr;
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

}  // namespace scourwell
