// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "platform/file_streams.h"
#include "platform/win/file_calls.h"

namespace scourwell {

// An item by a handle of its own, as the NT family has it.
Outcome OpenItemNt(const FileCalls& calls, const std::string& path,
                   std::unique_ptr<OpenedItem>* item);
// The mark of a browser does not count.
bool HasStreamsNt(const FileCalls& calls, const std::string& path);
Outcome IdentifyNt(const FileCalls& calls, const std::string& path, FileId* id);

}  // namespace scourwell
