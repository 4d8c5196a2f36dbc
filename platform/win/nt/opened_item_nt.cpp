// SPDX-License-Identifier: MIT
#include "platform/win/nt/opened_item_nt.h"

#include <windows.h>

#include <cstring>
#include <utility>
#include <vector>

#include "platform/files.h"
#include "platform/win/late_bind.h"
#include "platform/win/native_text.h"
#include "platform/win/nt/device_path.h"
#include "platform/win/nt/native_path.h"
#include "platform/win/win_error.h"
#include "text/paths.h"

namespace scourwell {
namespace {

// The headers' own names are newer than the oldest target.
constexpr DWORD kOpenItself = FILE_FLAG_BACKUP_SEMANTICS | 0x00200000;
constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | 0x4;
constexpr DWORD kReadAttributes = 0x80;
constexpr DWORD kWriteAttributes = 0x100;
constexpr DWORD kLongestName = 32'768;  // characters

constexpr ULONG kBasicInformation = 4;
constexpr ULONG kRenameInformation = 10;
constexpr ULONG kDispositionInformation = 13;
constexpr ULONG kStreamInformation = 22;
constexpr ULONG kTagInformation = 35;
constexpr ULONG kObjectName = 1;

struct StatusBlock {
  void* status;
  ULONG_PTR information;
};
struct BasicInformation {
  LARGE_INTEGER times[4];  // 0: unchanged
  ULONG attributes;
};
struct CountedText {
  USHORT bytes;
  USHORT room;
  const wchar_t* text;
};
struct ObjectName {
  ULONG size;
  HANDLE folder;
  CountedText* name;
  ULONG flags;
  void* security;
  void* quality;
};

// Every system of the family has these, the last one excepted, which came with Vista.
struct ItemCalls {
  using Open = LONG(WINAPI*)(HANDLE*, ULONG, ObjectName*, StatusBlock*, ULONG, ULONG);
  using Set = LONG(WINAPI*)(HANDLE, StatusBlock*, void*, ULONG, ULONG);
  using QueryObject = LONG(WINAPI*)(HANDLE, ULONG, void*, ULONG, ULONG*);
  using ToError = ULONG(WINAPI*)(LONG);
  using FinalName = DWORD(WINAPI*)(HANDLE, LPWSTR, DWORD, DWORD);

  Open open = LateBind<Open>("ntdll.dll", "NtOpenFile");
  Set set = LateBind<Set>("ntdll.dll", "NtSetInformationFile");
  Set query = LateBind<Set>("ntdll.dll", "NtQueryInformationFile");
  QueryObject query_object = LateBind<QueryObject>("ntdll.dll", "NtQueryObject");
  ToError to_error = LateBind<ToError>("ntdll.dll", "RtlNtStatusToDosError");
  FinalName final_name = LateBind<FinalName>("kernel32.dll", "GetFinalPathNameByHandleW");

  bool complete() const { return open && set && query && query_object && to_error; }
};

const ItemCalls& Calls() {
  static const ItemCalls calls;
  return calls;
}

// What the newer call says, else what the kernel says and the letters of the drives make of it.
std::string FinalName(HANDLE item) {
  std::vector<wchar_t> text(kLongestName);
  if (Calls().final_name) {
    const DWORD size = Calls().final_name(item, text.data(), kLongestName, 0);
    if (size > 0 && size < kLongestName) {
      std::string path = WithoutNativePrefix(FromWide({text.data(), size}));
      if (IsAbsolutePath(path)) return path;
    }
  }
  ULONG needed = 0;
  const ULONG bytes = kLongestName * sizeof(wchar_t);
  if (Calls().query_object(item, kObjectName, text.data(), bytes, &needed) < 0) return {};
  CountedText name;
  std::memcpy(&name, text.data(), sizeof name);
  if (!name.text) return {};
  return DosPathOf(FromWide({name.text, name.bytes / sizeof(wchar_t)}));
}

// The mark alone does not tell: not everything that bears it stands for another place.
bool StandsForAnother(HANDLE item) {
  constexpr ULONG kStandsForAnother = 0x20000000;
  ULONG tag[2] = {};  // attributes and tag
  StatusBlock block = {};
  return Calls().query(item, &block, tag, sizeof tag, kTagInformation) < 0 || tag[1] == 0 ||
         (tag[1] & kStandsForAnother) != 0;
}

// What an item is opened by takes no part in sharing, so that it stands in nobody's way. To be
// changed it is opened once more through that handle, which no path can lead astray.
class ItemNt : public OpenedItem {
 public:
  ItemNt(FileHandle handle, std::uint32_t attributes, std::string true_path)
      : handle_(std::move(handle)), attributes_(attributes), true_path_(std::move(true_path)) {}

  const std::string& true_path() const override { return true_path_; }
  std::uint32_t attributes() const override { return attributes_; }
  bool IsHeld() const override { return held_; }

  Outcome Erase() override {
    FileHandle item;
    if (const DWORD error = OpenToChange(&item); error != NO_ERROR) return FailedWith(error);
    DWORD error = MarkForDeletion(item.get());
    if (error == ERROR_ACCESS_DENIED && (attributes_ & kReadOnly) &&
        SetAttributes(item.get(), FILE_ATTRIBUTE_NORMAL) == NO_ERROR) {
      error = MarkForDeletion(item.get());
      if (error != NO_ERROR) {
        SetAttributes(item.get(), attributes_ & (kReadOnly | kHidden | kSystem | kArchive));
      }
    }
    if (error != NO_ERROR) return FailedWith(error);
    item.Reset(INVALID_HANDLE_VALUE);
    handle_.Reset(INVALID_HANDLE_VALUE);
    return {};
  }

  Outcome MoveTo(const std::string& path) override {
    std::optional<std::wstring> native = NativePath(path);
    if (!native) return FailedWith(ERROR_PATH_NOT_FOUND);
    FileHandle item;
    if (const DWORD error = OpenToChange(&item); error != NO_ERROR) return FailedWith(error);
    (*native)[1] = L'?';  // as the kernel spells the prefix
    struct Renaming {
      BOOLEAN replaces;
      HANDLE folder;
      ULONG bytes;
      wchar_t name[1];
    };
    const std::size_t bytes = native->size() * sizeof(wchar_t);
    std::vector<char> buffer(sizeof(Renaming) + bytes);
    const Renaming renaming = {FALSE, nullptr, static_cast<ULONG>(bytes), {}};
    std::memcpy(buffer.data(), &renaming, sizeof renaming);
    std::memcpy(buffer.data() + offsetof(Renaming, name), native->data(), bytes);
    const TrueNames true_names;
    const DWORD error = Set(item.get(), buffer.data(), buffer.size(), kRenameInformation);
    return error == NO_ERROR ? Outcome() : FailedWith(error);
  }

 private:
  // Attributes may be out of reach where the item itself is not.
  DWORD OpenToChange(FileHandle* item) {
    CountedText none = {0, 0, L""};
    ObjectName name = {sizeof name, handle_.get(), &none, 0, nullptr, nullptr};
    constexpr ULONG kOptions = 0x00200000 | 0x4000 | 0x20;  // itself, for a backup, one step a call
    LONG status = 0;
    for (const DWORD access : {DWORD{DELETE | kWriteAttributes}, DWORD{DELETE}}) {
      StatusBlock block = {};
      HANDLE opened = nullptr;
      status = Calls().open(&opened, access | SYNCHRONIZE, &name, &block, kShareAll, kOptions);
      if (status >= 0) {
        item->Reset(opened);
        return NO_ERROR;
      }
    }
    const DWORD error = Calls().to_error(status);
    held_ = error == ERROR_SHARING_VIOLATION;
    return error;
  }
  static DWORD Set(HANDLE item, void* data, std::size_t size, ULONG information) {
    StatusBlock block = {};
    const LONG status = Calls().set(item, &block, data, static_cast<ULONG>(size), information);
    return status < 0 ? Calls().to_error(status) : NO_ERROR;
  }
  // It goes when the handle is closed.
  static DWORD MarkForDeletion(HANDLE item) {
    BOOLEAN gone = TRUE;
    return Set(item, &gone, sizeof gone, kDispositionInformation);
  }
  static DWORD SetAttributes(HANDLE item, DWORD attributes) {
    BasicInformation basic = {{}, attributes};
    return Set(item, &basic, sizeof basic, kBasicInformation);
  }

  FileHandle handle_;
  std::uint32_t attributes_;
  std::string true_path_;
  bool held_ = false;
};

FileHandle OpenToAsk(const FileCalls& calls, const std::string& path) {
  return calls.Open(path, kReadAttributes, kShareAll, OPEN_EXISTING, kOpenItself);
}

}  // namespace

Outcome OpenItemNt(const FileCalls& calls, const std::string& path,
                   std::unique_ptr<OpenedItem>* item) {
  if (!Calls().complete()) return FailedWith(ERROR_CALL_NOT_IMPLEMENTED);
  FileHandle handle = OpenToAsk(calls, path);
  if (!handle) return FailedWith(GetLastError());
  BY_HANDLE_FILE_INFORMATION facts = {};
  if (!GetFileInformationByHandle(handle.get(), &facts)) return FailedWith(GetLastError());
  std::string true_path = FinalName(handle.get());
  if (true_path.empty()) {
    return Outcome::Failed(kPathFileAccess, "The system does not say where it really lies");
  }
  std::uint32_t attributes = facts.dwFileAttributes;
  if ((attributes & kLink) && !StandsForAnother(handle.get())) attributes &= ~std::uint32_t{kLink};
  *item = std::make_unique<ItemNt>(std::move(handle), attributes, std::move(true_path));
  return {};
}

// Each entry: where the next one lies behind it, bytes of the name, two sizes, the name.
bool HasStreamsNt(const FileCalls& calls, const std::string& path) {
  constexpr std::size_t kHeader = 24;
  constexpr std::size_t kMost = 1 << 16;
  const FileHandle handle = OpenToAsk(calls, path);
  if (!handle || !Calls().query) return false;
  std::vector<char> buffer(kMost);
  StatusBlock block = {};
  const LONG status = Calls().query(handle.get(), &block, buffer.data(), kMost, kStreamInformation);
  constexpr LONG kMoreThanFits = static_cast<LONG>(0x80000005);
  if (status == kMoreThanFits) return true;
  if (status < 0) return false;
  for (std::size_t at = 0; block.information >= kHeader && at <= block.information - kHeader;) {
    ULONG head[2] = {};
    std::memcpy(head, buffer.data() + at, sizeof head);
    const bool inside = head[0] <= block.information && head[1] <= block.information - kHeader - at;
    if (!inside) return true;
    std::wstring name(head[1] / sizeof(wchar_t), L'\0');
    std::memcpy(name.data(), buffer.data() + at + kHeader, name.size() * sizeof(wchar_t));
    if (name != L"::$DATA" && name != L":Zone.Identifier:$DATA") return true;
    if (head[0] == 0) break;
    at += head[0];
  }
  return false;
}

Outcome IdentifyNt(const FileCalls& calls, const std::string& path, FileId* id) {
  const FileHandle handle = OpenToAsk(calls, path);
  BY_HANDLE_FILE_INFORMATION facts = {};
  if (!handle || !GetFileInformationByHandle(handle.get(), &facts)) {
    Outcome failed = FailedWith(GetLastError());
    return failed.code() == kPathNotFound ? Outcome::Failed(kFileNotFound) : std::move(failed);
  }
  *id = {facts.dwVolumeSerialNumber,
         static_cast<std::uint64_t>(facts.nFileIndexHigh) << 32 | facts.nFileIndexLow};
  return {};
}

}  // namespace scourwell
