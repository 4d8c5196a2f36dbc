// SPDX-License-Identifier: MIT
#include "tests/win/spoken.h"

#include <oleacc.h>
#include <oleauto.h>

#include "platform/win/late_bind.h"
#include "platform/win/native_text.h"

namespace scourwell::ui {
namespace {

constexpr IID kAccessible = {
    0x618736e0, 0x3c3d, 0x11cf, {0x81, 0x0c, 0x00, 0xaa, 0x00, 0x38, 0x9b, 0x71}};

using OfWindow = HRESULT(WINAPI*)(HWND, DWORD, REFIID, void**);
OfWindow Lookup() { return LateBind<OfWindow>("oleacc.dll", "AccessibleObjectFromWindow"); }

class Client {
 public:
  explicit Client(HWND window) {
    void* made = nullptr;
    const OfWindow of_window = Lookup();
    if (of_window &&
        SUCCEEDED(of_window(window, static_cast<DWORD>(OBJID_CLIENT), kAccessible, &made))) {
      object_ = static_cast<IAccessible*>(made);
    }
  }
  Client(const Client&) = delete;
  Client& operator=(const Client&) = delete;
  ~Client() {
    if (object_) object_->Release();
  }

  explicit operator bool() const { return object_ != nullptr; }
  IAccessible* operator->() const { return object_; }
  std::string Name(long child) const {
    BSTR name = nullptr;
    if (object_->get_accName(Number(child), &name) != S_OK) return {};
    const std::string text = FromWide(name);
    SysFreeString(name);
    return text;
  }
  static VARIANT Number(long child) {
    VARIANT number = {};
    number.vt = VT_I4;
    number.lVal = child;
    return number;
  }

 private:
  IAccessible* object_ = nullptr;
};

}  // namespace

bool CanSpeak() { return Lookup() != nullptr; }

std::optional<Spoken> SpokenOf(HWND window) {
  const Client client(window);
  VARIANT role = {};
  if (!client || client->get_accRole(Client::Number(CHILDID_SELF), &role) != S_OK) return {};
  return Spoken{role.lVal, client.Name(CHILDID_SELF)};
}

std::vector<std::string> SpokenItems(HWND window) {
  const Client client(window);
  long count = 0;
  if (!client || client->get_accChildCount(&count) != S_OK) return {};
  std::vector<std::string> names;
  for (long child = 1; child <= count; ++child) names.push_back(client.Name(child));
  return names;
}

}  // namespace scourwell::ui
