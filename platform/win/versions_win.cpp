#include "platform/win/versions_win.h"

#include <windows.h>

namespace scourwell {
namespace {

// A resource holds 64 KB at most; the system asks for up to three times of it.
constexpr DWORD kLargestBlock = 1 << 18;

}  // namespace

Outcome VersionsWin::ReadBlock(const std::string& path, std::string* block) {
  DWORD ignored = 0;
  const DWORD size = GetFileVersionInfoSizeA(path.c_str(), &ignored);
  if (size == 0 || size > kLargestBlock) return Outcome::Failed(kFileNotFound);
  block->assign(size, '\0');
  if (!GetFileVersionInfoA(path.c_str(), 0, size, block->data())) {
    return Outcome::Failed(kFileNotFound);
  }
  return {};
}

std::string VersionsWin::Narrow(std::u16string_view text) const {
  const std::wstring wide(text.begin(), text.end());
  const int size = static_cast<int>(wide.size());
  const int needed =
      WideCharToMultiByte(CP_ACP, 0, wide.data(), size, nullptr, 0, nullptr, nullptr);
  if (needed <= 0) return {};
  std::string result(static_cast<std::size_t>(needed), '\0');
  const int written =
      WideCharToMultiByte(CP_ACP, 0, wide.data(), size, result.data(), needed, nullptr, nullptr);
  result.resize(written > 0 ? static_cast<std::size_t>(written) : 0);
  return result;
}

}  // namespace scourwell
