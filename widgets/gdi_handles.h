// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>
#include <commctrl.h>

#include "platform/win/unique_handle.h"

namespace scourwell {

template <class Object>
struct GdiTraits {
  using Type = Object;
  static Object Invalid() { return nullptr; }
  static void Close(Object object) { DeleteObject(object); }
};
struct MemoryDcTraits {
  using Type = HDC;
  static HDC Invalid() { return nullptr; }
  static void Close(HDC dc) { DeleteDC(dc); }
};
struct IconTraits {
  using Type = HICON;
  static HICON Invalid() { return nullptr; }
  static void Close(HICON icon) { DestroyIcon(icon); }
};
struct ImageListTraits {
  using Type = HIMAGELIST;
  static HIMAGELIST Invalid() { return nullptr; }
  static void Close(HIMAGELIST list) { ImageList_Destroy(list); }
};
struct MenuTraits {
  using Type = HMENU;
  static HMENU Invalid() { return nullptr; }
  static void Close(HMENU menu) { DestroyMenu(menu); }
};

using FontHandle = UniqueHandle<GdiTraits<HFONT>>;
using BrushHandle = UniqueHandle<GdiTraits<HBRUSH>>;
using BitmapHandle = UniqueHandle<GdiTraits<HBITMAP>>;
using MemoryDc = UniqueHandle<MemoryDcTraits>;
using IconHandle = UniqueHandle<IconTraits>;
using ImageListHandle = UniqueHandle<ImageListTraits>;
using MenuHandle = UniqueHandle<MenuTraits>;

}  // namespace scourwell
