// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

namespace scourwell {

// Owns one reference to a COM object.
template <class Interface>
class ComPointer {
 public:
  ComPointer() = default;
  ComPointer(const ComPointer&) = delete;
  ComPointer& operator=(const ComPointer&) = delete;
  ~ComPointer() {
    if (object_) object_->Release();
  }
  Interface* operator->() const { return object_; }
  void** out() { return reinterpret_cast<void**>(&object_); }

 private:
  Interface* object_ = nullptr;
};

}  // namespace scourwell
