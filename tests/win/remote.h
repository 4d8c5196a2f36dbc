// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include "platform/win/native_text.h"
#include "tests/win/driver.h"

namespace scourwell::ui {

inline constexpr std::size_t kRemoteSize = 4096;
inline constexpr int kLongestText = 1000;

// Memory of the process that owns a window: messages with pointers need it.
class Remote {
 public:
  explicit Remote(HWND window) {
    DWORD id = 0;
    GetWindowThreadProcessId(window, &id);
    process_.Reset(
        OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, id));
    memory_ = static_cast<char*>(
        VirtualAllocEx(process_.get(), nullptr, kRemoteSize, MEM_COMMIT, PAGE_READWRITE));
  }
  ~Remote() { VirtualFreeEx(process_.get(), memory_, 0, MEM_RELEASE); }

  char* at(std::size_t offset = 0) { return memory_ + offset; }
  wchar_t* TextAt(std::size_t offset) { return reinterpret_cast<wchar_t*>(at(offset)); }
  void Put(const void* data, std::size_t size) {
    WriteProcessMemory(process_.get(), memory_, data, size, nullptr);
  }
  void Get(void* data, std::size_t size, std::size_t offset = 0) {
    ReadProcessMemory(process_.get(), memory_ + offset, data, size, nullptr);
  }
  std::string GetText(std::size_t offset) {
    wchar_t text[kLongestText + 1] = L"";
    Get(text, kLongestText * sizeof(wchar_t), offset);
    return FromWide(text);
  }

 private:
  KernelHandle process_;
  char* memory_ = nullptr;
};

// Fills an item with what a control says of it; returns its text.
template <class Item>
std::string AskItem(Remote* remote, HWND control, UINT message, LRESULT number, Item* item) {
  item->pszText = remote->TextAt(sizeof *item);
  item->cchTextMax = kLongestText;
  remote->Put(item, sizeof *item);
  Send(control, message, static_cast<WPARAM>(number), reinterpret_cast<LPARAM>(remote->at()));
  remote->Get(item, sizeof *item);
  return remote->GetText(sizeof *item);
}

}  // namespace scourwell::ui
