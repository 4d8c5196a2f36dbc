// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "platform/system.h"

namespace scourwell {

// The calls about the system itself in which the families of Windows differ. Texts come back empty
// where the system returns nothing; what fails leaves its reason in the last error.
class SystemCalls {
 public:
  virtual ~SystemCalls() = default;

  virtual bool QueryVersion(unsigned record_size, VersionRecord* record) const = 0;
  virtual std::string WindowsFolder() const = 0;
  virtual std::string SystemFolder() const = 0;
  // The system folder of 32-bit programs on a 64-bit Windows.
  virtual std::string Wow64Folder() const { return {}; }
  virtual std::string TemporaryFolder() const = 0;  // with its trailing "\"
  virtual std::string ShellFolder(int folder_id) const = 0;
  // The path of this program.
  virtual std::string OwnPath() const = 0;
  // A path made absolute against the current folder; one that names its place already stays.
  virtual std::string FullPath(const std::string& path) const = 0;
  // Makes the system folder the current one: what is asked for by its name alone, libraries among
  // it, must not come from wherever the program was started.
  virtual void EnterSystemFolder() const = 0;
  virtual std::string Environment(const std::string& name) const = 0;
  // The system's message for an error code, as it stands.
  virtual std::string MessageOf(DWORD code) const = 0;
  // With the rights to end a process and to wait for that; null where it is refused.
  virtual HANDLE OpenToEnd(DWORD process_id) const = 0;
  virtual bool DeleteAtReboot(const std::string& path) const = 0;
  // A library that the process has loaded already, by its bare name; else null.
  virtual HMODULE Loaded(const char* library) const = 0;
  // By its full path.
  virtual HMODULE Load(const std::string& library) const = 0;
  // A mutex that nobody holds yet.
  virtual HANDLE Mutex(const char* name) const = 0;

  virtual std::string ShortDate(const SYSTEMTIME& time) const = 0;
  virtual std::string TimeOfDay(const SYSTEMTIME& time) const = 0;

  virtual std::string ReadProfile(const std::string& section, const std::string& key,
                                  const std::string& file) const = 0;
  // No value deletes the key.
  virtual bool WriteProfile(const std::string& section, const std::string& key,
                            const std::optional<std::string>& value,
                            const std::string& file) const = 0;
};

// The calls of Windows NT, 2000, XP and later.
const SystemCalls& NtSystemCalls();
// The calls of Windows 95, 98 and Me.
const SystemCalls& W9xSystemCalls();
// Those of the Windows that runs.
const SystemCalls& RunningSystemCalls();

// Reads a text by a call of the kind that returns its length, or the room that it needs: calls
// `read(buffer, room)` once more when the first buffer is too small.
template <class Character, class Read>
std::basic_string<Character> ReadWithRoom(Read&& read) {
  std::basic_string<Character> text(MAX_PATH, Character());
  for (int i = 0; i < 2; ++i) {
    const DWORD size = read(text.data(), static_cast<DWORD>(text.size()));
    if (size < text.size()) {
      text.resize(size);
      return text;
    }
    text.resize(size + 1);
  }
  return {};
}

}  // namespace scourwell
