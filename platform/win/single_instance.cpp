// SPDX-License-Identifier: MIT
#include "platform/win/single_instance.h"

#include "platform/win/system_calls.h"

namespace scourwell {

SingleInstance::SingleInstance() {
  mutex_.Reset(RunningSystemCalls().Mutex("Scourwell.SingleInstance"));
  const DWORD code = GetLastError();
  first_ = mutex_ ? code != ERROR_ALREADY_EXISTS : code != ERROR_ACCESS_DENIED;
}

}  // namespace scourwell
