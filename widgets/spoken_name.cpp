// SPDX-License-Identifier: MIT
#include "widgets/spoken_name.h"

#include <objbase.h>
#include <oleacc.h>

#include "platform/win/native_text.h"
#include "platform/win/window_calls.h"

namespace scourwell {
namespace {

constexpr CLSID kServices = {
    0xb5f8350b, 0x0548, 0x48b1, {0xa6, 0xee, 0x88, 0xbd, 0x00, 0xb4, 0xa5, 0xe7}};
constexpr IID kServicesInterface = {
    0x6e26e776, 0x04f0, 0x495d, {0x80, 0xe4, 0x33, 0x30, 0x35, 0x2e, 0x31, 0x69}};
constexpr MSAAPROPID kName = {
    0x608d3df8, 0x8128, 0x4aa7, {0xa4, 0x28, 0xf5, 0x5e, 0x49, 0x26, 0x72, 0x91}};
constexpr MSAAPROPID kRole = {
    0xcb905ff2, 0x7bd1, 0x4c05, {0xb3, 0xc8, 0xe6, 0xc2, 0x41, 0x36, 0x4d, 0x70}};

template <class Use>
void WithServices(Use&& use) {
  void* made = nullptr;
  if (FAILED(
          CoCreateInstance(kServices, nullptr, CLSCTX_INPROC_SERVER, kServicesInterface, &made))) {
    return;
  }
  auto* services = static_cast<IAccPropServices*>(made);
  use(*services);
  services->Release();
}

}  // namespace

void SetSpokenName(HWND control, const std::string& name) {
  WithServices([&](IAccPropServices& services) {
    services.SetHwndPropStr(control, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, kName,
                            Wide(name).c_str());
  });
}

void SetSpokenRole(HWND control, LONG role) {
  VARIANT number = {};
  number.vt = VT_I4;
  number.lVal = role;
  WithServices([&](IAccPropServices& services) {
    services.SetHwndProp(control, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, kRole, number);
  });
}

void ClearSpokenName(HWND control) {
  const MSAAPROPID both[] = {kName, kRole};
  WithServices([&](IAccPropServices& services) {
    services.ClearHwndProps(control, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, both, 2);
  });
}

}  // namespace scourwell
