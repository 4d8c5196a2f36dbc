// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include <utility>

namespace scourwell {

// Owns one system handle. Traits: Type, Invalid(), Close(Type).
template <class Traits>
class UniqueHandle {
 public:
  using Type = typename Traits::Type;

  UniqueHandle() = default;
  explicit UniqueHandle(Type handle) : handle_(handle) {}
  UniqueHandle(UniqueHandle&& other) noexcept
      : handle_(std::exchange(other.handle_, Traits::Invalid())) {}
  UniqueHandle& operator=(UniqueHandle&& other) noexcept {
    if (this != &other) Reset(std::exchange(other.handle_, Traits::Invalid()));
    return *this;
  }
  ~UniqueHandle() { Reset(Traits::Invalid()); }

  explicit operator bool() const { return handle_ != Traits::Invalid(); }
  Type get() const { return handle_; }
  void Reset(Type handle) {
    if (handle_ != Traits::Invalid()) Traits::Close(handle_);
    handle_ = handle;
  }

 private:
  Type handle_ = Traits::Invalid();
};

struct FileTraits {
  using Type = HANDLE;
  static HANDLE Invalid() { return INVALID_HANDLE_VALUE; }
  static void Close(HANDLE handle) { CloseHandle(handle); }
};
struct FindTraits {
  using Type = HANDLE;
  static HANDLE Invalid() { return INVALID_HANDLE_VALUE; }
  static void Close(HANDLE handle) { FindClose(handle); }
};
struct KernelTraits {
  using Type = HANDLE;
  static HANDLE Invalid() { return nullptr; }
  static void Close(HANDLE handle) { CloseHandle(handle); }
};
struct KeyTraits {
  using Type = HKEY;
  static HKEY Invalid() { return nullptr; }
  static void Close(HKEY key) { RegCloseKey(key); }
};
struct ModuleTraits {
  using Type = HMODULE;
  static HMODULE Invalid() { return nullptr; }
  static void Close(HMODULE module) { FreeLibrary(module); }
};

using FileHandle = UniqueHandle<FileTraits>;
using FindHandle = UniqueHandle<FindTraits>;
using KernelHandle = UniqueHandle<KernelTraits>;
using KeyHandle = UniqueHandle<KeyTraits>;
using ModuleHandle = UniqueHandle<ModuleTraits>;

}  // namespace scourwell
