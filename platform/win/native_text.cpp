#include "platform/win/native_text.h"

#include <windows.h>

namespace scourwell {

std::wstring Wide(std::string_view text) {
  const int size = static_cast<int>(text.size());
  const int needed = MultiByteToWideChar(CP_ACP, 0, text.data(), size, nullptr, 0);
  if (needed <= 0) return {};
  std::wstring wide(static_cast<std::size_t>(needed), L'\0');
  const int written = MultiByteToWideChar(CP_ACP, 0, text.data(), size, wide.data(), needed);
  wide.resize(written > 0 ? static_cast<std::size_t>(written) : 0);
  return wide;
}

std::string FromWide(std::wstring_view wide) {
  const int size = static_cast<int>(wide.size());
  const int needed =
      WideCharToMultiByte(CP_ACP, 0, wide.data(), size, nullptr, 0, nullptr, nullptr);
  if (needed <= 0) return {};
  std::string text(static_cast<std::size_t>(needed), '\0');
  const int written =
      WideCharToMultiByte(CP_ACP, 0, wide.data(), size, text.data(), needed, nullptr, nullptr);
  text.resize(written > 0 ? static_cast<std::size_t>(written) : 0);
  return text;
}

std::string Narrow(std::string_view text) { return std::string(text); }

std::optional<std::string> ExactNarrow(std::string_view text) { return std::string(text); }

std::string FromNarrow(std::string_view narrow) { return std::string(narrow); }

}  // namespace scourwell
