#pragma once

#include <memory>
#include <string>

#include "platform/file_streams.h"

namespace scourwell {

Outcome OpenReaderWin(const std::string& path, std::unique_ptr<FileReader>* reader);
Outcome OpenWriterWin(const std::string& path, std::unique_ptr<FileWriter>* writer);
Outcome HoldFolderWin(const std::string& path, std::unique_ptr<FolderHold>* hold);

// True for "X:\" and "\\server\share\".
bool IsRootPath(const std::string& path);

}  // namespace scourwell
