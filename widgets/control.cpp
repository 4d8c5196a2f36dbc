#include "widgets/control.h"

namespace scourwell {

void Control::CreateHandle(const WindowEnv& env, HWND parent, const char* window_class, DWORD style,
                           DWORD ex_style, int id, const std::string& text) {
  hwnd_ = CreateWindowExA(ex_style, window_class, text.c_str(), WS_CHILD | WS_VISIBLE | style, 0, 0,
                          0, 0, parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                          env.instance, nullptr);
  if (!hwnd_) {
    throw std::runtime_error(std::string("No window of the class ") + window_class +
                             " could be created");
  }
  SetFont(env.metrics.font());
}

std::string Control::Text() const {
  std::string text(static_cast<std::size_t>(GetWindowTextLengthA(hwnd_)) + 1, '\0');
  const int size = GetWindowTextA(hwnd_, text.data(), static_cast<int>(text.size()));
  text.resize(static_cast<std::size_t>(size));
  return text;
}

}  // namespace scourwell
