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

// Windows 95, 98 and Me replace a file by two moves. What a crash between them left beside the path
// takes its place again, unless there is a file: true when it did. Elsewhere nothing happens.
bool BringBack(const std::string& path);
// Erases what a crash after the second move left beside the path.
void DropAside(const std::string& path);

}  // namespace scourwell
