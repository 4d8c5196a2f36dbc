// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "platform/file_streams.h"
#include "platform/win/file_calls.h"

namespace scourwell {

// An item by its path: Windows 95, 98 and Me have no handle that deletes, and no links.
Outcome OpenItem9x(const FileCalls& calls, const std::string& path,
                   std::unique_ptr<OpenedItem>* item);

}  // namespace scourwell
