// SPDX-License-Identifier: MIT
#include "platform/win/w9x/process_list_9x.h"

#include <windows.h>

#include <tlhelp32.h>

#include <cstring>

#include "platform/win/late_bind.h"
#include "platform/win/native_text.h"
#include "platform/win/unique_handle.h"
#include "platform/win/win_error.h"

namespace scourwell {
namespace {

// Windows NT 4 has no snapshots.
struct SnapshotCalls {
  using Create = HANDLE(WINAPI*)(DWORD, DWORD);
  using Walk = BOOL(WINAPI*)(HANDLE, PROCESSENTRY32*);

  Create create = LateBind<Create>("kernel32.dll", "CreateToolhelp32Snapshot");
  Walk first = LateBind<Walk>("kernel32.dll", "Process32First");
  Walk next = LateBind<Walk>("kernel32.dll", "Process32Next");

  bool complete() const { return create && first && next; }
};

}  // namespace

Outcome ListProcesses9x(const Processes::Visit& visit) {
  const SnapshotCalls calls;
  if (!calls.complete()) return FailedWith(ERROR_CALL_NOT_IMPLEMENTED);
  const FileHandle snapshot(calls.create(TH32CS_SNAPPROCESS, 0));
  if (!snapshot) return FailedWith(GetLastError());
  PROCESSENTRY32 entry = {};
  entry.dwSize = sizeof entry;
  for (BOOL more = calls.first(snapshot.get(), &entry); more;
       more = calls.next(snapshot.get(), &entry)) {
    const std::size_t length = strnlen(entry.szExeFile, sizeof entry.szExeFile);
    if (!visit({FromNarrow({entry.szExeFile, length}), entry.th32ProcessID, 0})) break;
  }
  return {};
}

}  // namespace scourwell
