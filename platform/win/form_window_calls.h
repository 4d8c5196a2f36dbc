// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win/window_calls.h"

namespace scourwell {

// The window calls of a family, written once for both. Form names the family's functions and
// structures and turns texts.
template <class Form>
class FormWindowCalls : public WindowCalls {
  using String = typename Form::String;

 public:
  FormWindowCalls() : WindowCalls(Form::Plain()) {}

  LRESULT NotifyFormat() const override { return Form::kNotifyFormat; }
  std::size_t LongestPath() const override { return Form::kLongestPath; }

  void Register(const NewClass& made) const override {
    const String name = Form::Native(made.name);
    typename Form::WindowClass window_class = {};
    window_class.style = CS_HREDRAW | CS_VREDRAW;  // what is drawn depends on the size
    window_class.lpfnWndProc = made.procedure;
    window_class.hInstance = made.instance;
    window_class.hIcon = made.icon;
    window_class.hCursor = made.cursor;
    window_class.hbrBackground = made.background;
    window_class.lpszClassName = name.c_str();
    Form::kRegisterClass(&window_class);
  }

  HWND Create(const NewWindow& made) const override {
    const RECT& place = made.place;
    return Form::kCreateWindow(made.ex_style, Form::Native(made.window_class).c_str(),
                               Form::Native(made.text).c_str(), made.style, place.left, place.top,
                               place.right - place.left, place.bottom - place.top, made.parent,
                               made.id_or_menu, made.instance, made.parameter);
  }

  void SetText(HWND window, const std::string& text) const override {
    Form::kSetWindowText(window, Form::Native(text).c_str());
  }

  std::string Text(HWND window) const override {
    String text(static_cast<std::size_t>(Form::kGetWindowTextLength(window)) + 1, '\0');
    const int size = Form::kGetWindowText(window, text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(size));
    return Form::FromNative(text);
  }

  std::string ClassName(HWND window) const override {
    String name(kLongestClassName + 1, '\0');
    const int size = Form::kGetClassName(window, name.data(), static_cast<int>(name.size()));
    name.resize(static_cast<std::size_t>(size));
    return Form::FromNative(name);
  }

  LRESULT SendText(HWND window, UINT message, WPARAM wparam,
                   const std::string& text) const override {
    const String native = Form::Native(text);
    return Send(window, message, wparam, reinterpret_cast<LPARAM>(native.c_str()));
  }

  int Ask(const NewBox& box) const override {
    const String text = Form::Native(box.text);
    const String title = Form::Native(box.title);
    typename Form::BoxParameters parameters = {};
    parameters.cbSize = sizeof parameters;
    parameters.hwndOwner = box.owner;
    parameters.lpszText = text.c_str();
    parameters.lpszCaption = title.c_str();
    parameters.dwStyle = box.flags;
    return Form::kMessageBox(&parameters);
  }

  void Append(HMENU menu, UINT flags, UINT_PTR id, const std::string& text) const override {
    Form::kAppendMenu(menu, flags, id, Form::Native(text).c_str());
  }

  HANDLE Image(HINSTANCE instance, int number, UINT type, int size, UINT flags) const override {
    return Form::kLoadImage(instance, Form::Number(number), type, size, size, flags);
  }

  HBITMAP Picture(const std::string& path) const override {
    const auto exact = Form::ExactNative(path);
    if (!exact) return nullptr;
    return static_cast<HBITMAP>(Form::kLoadImage(nullptr, exact->c_str(), IMAGE_BITMAP, 0, 0,
                                                 LR_LOADFROMFILE | LR_CREATEDIBSECTION));
  }

  HACCEL Accelerators(HINSTANCE instance, int number) const override {
    return Form::kLoadAccelerators(instance, Form::Number(number));
  }

  std::size_t CountOf(const std::string& text) const override { return Form::Native(text).size(); }

  void Draw(HDC dc, const std::string& text, RECT* area, UINT format) const override {
    const String native = Form::Native(text);
    Form::kDrawText(dc, native.c_str(), static_cast<int>(native.size()), area, format);
  }

  SIZE Extent(HDC dc, const std::string& text) const override {
    const String native = Form::Native(text);
    SIZE size = {};
    Form::kTextExtent(dc, native.c_str(), static_cast<int>(native.size()), &size);
    return size;
  }

  FontSize SizeOfFont(HDC dc) const override {
    typename Form::TextMetrics metrics = {};
    Form::kTextMetrics(dc, &metrics);
    return {metrics.tmHeight, metrics.tmAscent};
  }

  LOGFONTW MessageFont() const override {
    typename Form::FrameMetrics metrics = {};
    metrics.cbSize = sizeof metrics;
    const bool known = Parameter(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    return Form::Described(known ? metrics.lfMessageFont : Stock(DEFAULT_GUI_FONT));
  }

  LOGFONTW FixedFont() const override { return Form::Described(Stock(ANSI_FIXED_FONT)); }
  HFONT Font(const LOGFONTW& font) const override { return Form::MakeFont(font); }

 private:
  static constexpr std::size_t kLongestClassName = 256;

  typename Form::FontFacts Stock(int number) const {
    typename Form::FontFacts font = {};
    Facts(GetStockObject(number), sizeof font, &font);
    return font;
  }
};

}  // namespace scourwell
