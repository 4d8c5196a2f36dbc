// SPDX-License-Identifier: MIT
#include "widgets/window_place.h"

#include <algorithm>
#include <vector>

#include "platform/win/window_calls.h"
#include "settings/kept_numbers.h"

namespace scourwell {
namespace {

constexpr char kWindows[] = "Windows";
constexpr char kColumns[] = "Columns";
enum Kept { kLeft, kTop, kWidth, kHeight, kMaximized, kKept };

Area WorkArea() {
  RECT desktop = {};
  Calls().Parameter(SPI_GETWORKAREA, 0, &desktop, 0);
  return Area(desktop);
}

// "frmMain 1024x768"
std::string OnThisScreen(const char* name) {
  return std::string(name) + " " + std::to_string(GetSystemMetrics(SM_CXSCREEN)) + "x" +
         std::to_string(GetSystemMetrics(SM_CYSCREEN));
}

std::vector<int> Read(const WindowEnv& env, const char* section, const std::string& key) {
  return env.kept ? UnpackNumbers(env.kept->Get(section, key)) : std::vector<int>();
}

// What cannot be written is forgotten, and that is all.
void Write(const WindowEnv& env, const char* section, const std::string& key,
           const std::vector<int>& numbers) {
  if (env.kept) static_cast<void>(env.kept->Set(section, key, PackNumbers(numbers)));
}

}  // namespace

std::optional<Area> WindowPlace::Find(SIZE smallest) const {
  const std::vector<int> kept = Read(env_, kWindows, OnThisScreen(window_));
  if (kept.size() != kKept) return {};
  const Area work = WorkArea();
  const auto fit = [](int size, int least, int room) {
    return std::min(std::max(size, least), room);
  };
  const int width = fit(kept[kWidth], static_cast<int>(smallest.cx), work.width());
  const int height = fit(kept[kHeight], static_cast<int>(smallest.cy), work.height());
  const int left = std::clamp(kept[kLeft], work.left, work.right - width);
  const int top = std::clamp(kept[kTop], work.top, work.bottom - height);
  return Area{left, top, left + width, top + height};
}

bool WindowPlace::maximized() const {
  const std::vector<int> kept = Read(env_, kWindows, OnThisScreen(window_));
  return kept.size() == kKept && kept[kMaximized] != 0;
}

// The system tells places as if the taskbar were not there.
void WindowPlace::Keep(HWND window) const {
  WINDOWPLACEMENT placement = {};
  placement.length = sizeof placement;
  if (!env_.kept || !GetWindowPlacement(window, &placement)) return;
  const Area work = WorkArea();
  const RECT& normal = placement.rcNormalPosition;
  const bool maximized = placement.showCmd == SW_SHOWMAXIMIZED ||
                         (IsIconic(window) && (placement.flags & WPF_RESTORETOMAXIMIZED));
  Write(env_, kWindows, OnThisScreen(window_),
        {static_cast<int>(normal.left) + work.left, static_cast<int>(normal.top) + work.top,
         static_cast<int>(normal.right - normal.left), static_cast<int>(normal.bottom - normal.top),
         maximized});
}

std::vector<int> KeptWidths(const WindowEnv& env, const char* list) {
  std::vector<int> widths = Read(env, kColumns, OnThisScreen(list));
  const bool plain = std::ranges::all_of(widths, [](int width) { return width >= 0; });
  return plain ? widths : std::vector<int>();
}

void KeepWidths(const WindowEnv& env, const char* list, const std::vector<int>& widths) {
  Write(env, kColumns, OnThisScreen(list), widths);
}

}  // namespace scourwell
