// SPDX-License-Identifier: MIT
#include "platform/win/late_bind.h"

#include <string>

#include "platform/win/system_calls.h"

namespace scourwell {

HMODULE LoadSystemLibrary(const char* library) {
  const SystemCalls& calls = RunningSystemCalls();
  if (HMODULE loaded = calls.Loaded(library)) return loaded;
  const std::string folder = calls.SystemFolder();
  return folder.empty() ? nullptr : calls.Load(folder + "\\" + library);
}

}  // namespace scourwell
