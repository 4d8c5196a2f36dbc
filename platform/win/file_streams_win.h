// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "platform/win/file_calls.h"

namespace scourwell {

Outcome OpenReaderWin(const FileCalls& calls, const std::string& path,
                      std::unique_ptr<FileReader>* reader);
Outcome OpenWriterWin(const FileCalls& calls, const std::string& path,
                      std::unique_ptr<FileWriter>* writer);
Outcome HoldFolderWin(const FileCalls& calls, const std::string& path,
                      std::unique_ptr<FolderHold>* hold);

// All bytes, or a failure.
Outcome WriteAll(HANDLE file, std::string_view bytes);
Outcome SizeOf(HANDLE file, std::uint64_t* size);

// True for "X:\" and "\\server\share\".
bool IsRootPath(const std::string& path);

}  // namespace scourwell
