#include "platform/win/versions_win.h"

#include <windows.h>

#include "platform/win/native_text.h"

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
  return FromWide(std::wstring(text.begin(), text.end()));
}

}  // namespace scourwell
