// SPDX-License-Identifier: MIT
#include "platform/win/handed_call.h"

#include <cstdint>

#include "platform/win/random_bytes.h"
#include "text/text.h"

namespace scourwell {
namespace {

constexpr std::string_view kSwitch = "/CALL:";
constexpr DWORD kLongest = 8192;  // bytes; no loader takes paths of that length
constexpr std::size_t kSecretDigits = 32;
constexpr char kDigits[] = "0123456789ABCDEF";

bool FromHex(std::string_view text, std::uint32_t* number) {
  *number = 0;
  for (const char c : text) {
    const char* digit = c ? strchr(kDigits, c) : nullptr;
    if (!digit) return false;
    *number = *number << 4 | static_cast<std::uint32_t>(digit - kDigits);
  }
  return text.size() == 8;
}

}  // namespace

bool CallPipe::Send(const HandedCall& call) {
  secret_.clear();
  for (const char byte : RandomBytes(kSecretDigits / 2)) {
    secret_ += Hex(static_cast<unsigned char>(byte), 2);
  }
  const std::string text = secret_ + call.name + "|" + call.library;
  if (text.size() > kLongest) {
    SetLastError(ERROR_FILENAME_EXCED_RANGE);
    return false;
  }
  HANDLE reading = nullptr;
  HANDLE writing = nullptr;
  if (!CreatePipe(&reading, &writing, nullptr, kLongest)) return false;
  const KernelHandle written(writing);
  const KernelHandle read(reading);
  HANDLE inherited = nullptr;
  if (!DuplicateHandle(GetCurrentProcess(), reading, GetCurrentProcess(), &inherited, 0, TRUE,
                       DUPLICATE_SAME_ACCESS)) {
    return false;
  }
  reading_end_ = KernelHandle(inherited);
  DWORD done = 0;
  return WriteFile(writing, text.data(), static_cast<DWORD>(text.size()), &done, nullptr) &&
         done == text.size();
}

// Handles of the NT family fit into 32 bits on every Windows.
std::string CallPipe::Arguments() const {
  const auto handle = reinterpret_cast<std::uintptr_t>(reading_end_.get());
  return std::string(kSwitch) + Hex(static_cast<std::uint32_t>(handle), 8) + ":" + secret_;
}

std::optional<HandedCall> ReceiveCall(std::string_view arguments) {
  if (!arguments.starts_with(kSwitch)) return std::nullopt;
  arguments.remove_prefix(kSwitch.size());
  std::uint32_t number = 0;
  if (arguments.size() != 9 + kSecretDigits || !FromHex(arguments.substr(0, 8), &number)) {
    return std::nullopt;
  }
  const std::string_view secret = arguments.substr(9);
  const auto pipe = reinterpret_cast<HANDLE>(static_cast<std::uintptr_t>(number));
  if (GetFileType(pipe) != FILE_TYPE_PIPE) return std::nullopt;
  std::string text(kLongest, '\0');
  DWORD size = 0;
  // What waits is all there is: reading an empty pipe could take for ever.
  if (!PeekNamedPipe(pipe, text.data(), kLongest, &size, nullptr, nullptr)) return std::nullopt;
  text.resize(size);
  if (!text.starts_with(secret)) return std::nullopt;
  CloseHandle(pipe);  // what the library starts inherits nothing of it
  text.erase(0, kSecretDigits);
  const std::size_t bar = text.find('|');
  if (bar == text.npos) return std::nullopt;
  return HandedCall{text.substr(bar + 1), text.substr(0, bar)};
}

}  // namespace scourwell
