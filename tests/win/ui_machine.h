// SPDX-License-Identifier: MIT
#pragma once

// The machine that the built program is tested on: what is planted there, what a run leaves behind.

#include <doctest/doctest.h>

#include <string>
#include <vector>

#include "tests/helpers.h"
#include "tests/win/driver.h"
#include "widgets/resource.h"

namespace scourwell::ui {

inline constexpr char kProgramFolder[] = "C:\\Scourwell\\";
inline constexpr char kReference[] = "C:\\Scourwell\\Ini\\update.ref";

// A fresh store, no logs, and definitions that name what stands in C:\planted.
void PlantMachine();
// The definitions that PlantMachine leaves.
test::Definitions PlantedDefinitions();
void PlantContent(const std::string& path, const std::string& content);
// A file with an access time that reading it does not change.
void PlantFile(const std::string& path, std::size_t size);

std::string Setting(const std::string& section, const std::string& key);
void SetSetting(const std::string& section, const std::string& key, const std::string& text);
// Wine's name of the Windows that the program runs on; empty: that of SCOURWELL_WINDOWS, or else of
// the prefix. It begins as that of the prefix.
void SetWindowsVersion(const std::string& version);
// True where that is Windows 95, 98 or Me.
bool RunsAs9x();

// Empty when there is no such file.
std::string Content(const std::string& path);
void Erase(const std::string& path);
// The records in the program folder.
std::string Errors();

// Full paths, in the program folder.
std::vector<std::string> ScanLogs();
std::string LogText();
bool LogIsComplete();
// What the log says of the planted items.
std::string ExpectedDriveSection();
// Goes on from the finished scan to the list and looks for the planted items there.
void CheckResults(HWND top);

}  // namespace scourwell::ui
