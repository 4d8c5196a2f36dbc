// SPDX-License-Identifier: MIT
#include "platform/security_descriptor.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace scourwell {
namespace {

using std::string_view_literals::operator""sv;

constexpr std::string_view kSystem = "\1\1\0\0\0\0\0\5\x12\0\0\0"sv;
constexpr std::string_view kAdministrators = "\1\2\0\0\0\0\0\5\x20\0\0\0\x20\2\0\0"sv;
// Newer systems keep their own files from administrators, too.
constexpr std::string_view kInstaller =
    "\1\6\0\0\0\0\0\5\x50\0\0\0\xB5\x89\xFB\x38\x19\x84\xC2\xCB\x5C\x6C\x23\x6D\x57\x00\x77\x6E\xC0\x02\x64\x87"sv;
constexpr std::string_view kTrusted[] = {kSystem, kAdministrators, kInstaller};
// Everyone, whoever has logged on, whoever sits at the machine, its users, its guests.
constexpr std::string_view kEveryUser[] = {
    "\1\1\0\0\0\0\0\1\0\0\0\0"sv, "\1\1\0\0\0\0\0\5\xB\0\0\0"sv, "\1\1\0\0\0\0\0\5\4\0\0\0"sv,
    "\1\2\0\0\0\0\0\5\x20\0\0\0\x21\2\0\0"sv, "\1\2\0\0\0\0\0\5\x20\0\0\0\x22\2\0\0"sv};

constexpr std::size_t kHeader = 20;
constexpr std::size_t kListHeader = 8;
constexpr std::size_t kEntryHeader = 8;
constexpr std::size_t kSidHeader = 8;

// To add files (which is also the right to make a link of it), to delete what lies in it, to change
// its attributes, to delete it, to change its rights and its owner; everything; writing.
constexpr std::uint32_t kChanging =
    0x2 | 0x40 | 0x100 | 0x10000 | 0x40000 | 0x80000 | 0x10000000 | 0x40000000;
constexpr std::uint32_t kEverything = 0x001F01FF;

constexpr std::uint8_t kAllows = 0;
constexpr std::uint8_t kDenies = 1;
constexpr std::uint8_t kForChildrenOnly = 0x08;
constexpr std::uint8_t kForAllChildren = 0x03;
// A list is there, takes over nothing, and all is one run.
constexpr std::uint16_t kHasList = 0x0004;
constexpr std::uint16_t kControl = kHasList | 0x1000 | 0x8000;

// A number of `size` bytes, or as if nothing were there.
std::uint32_t NumberAt(std::string_view bytes, std::size_t at, std::size_t size) {
  if (at > bytes.size() || bytes.size() - at < size) return 0;
  std::uint32_t number = 0;
  for (std::size_t i = size; i > 0; --i) {
    number = number << 8 | static_cast<unsigned char>(bytes[at + i - 1]);
  }
  return number;
}

void AddNumber(std::uint32_t number, std::size_t size, std::string* bytes) {
  for (; size > 0; --size, number >>= 8) *bytes += static_cast<char>(number & 0xFF);
}

// Empty where there is no whole one.
std::string_view SidAt(std::string_view bytes, std::size_t at) {
  if (at > bytes.size() || bytes.size() - at < kSidHeader) return {};
  const std::size_t size = kSidHeader + 4 * NumberAt(bytes, at + 1, 1);
  return bytes.size() - at < size ? std::string_view() : bytes.substr(at, size);
}

bool IsTrusted(std::string_view sid) {
  return std::ranges::find(kTrusted, sid) != std::end(kTrusted);
}

// An entry that gives somebody a right to change the folder itself. `holder` is empty where it
// cannot be understood.
struct Grant {
  std::uint32_t type;
  std::string_view holder;
};

// False when `visit` says so, or when the list is not whole.
template <class Visit>
bool EachGrant(std::string_view descriptor, Visit&& visit) {
  const std::size_t list = NumberAt(descriptor, 16, 4);
  if (list < kHeader || list > descriptor.size() || descriptor.size() - list < kListHeader) {
    return false;
  }
  std::size_t at = list + kListHeader;
  for (std::uint32_t left = NumberAt(descriptor, list + 4, 2); left > 0; --left) {
    const std::size_t size = NumberAt(descriptor, at + 2, 2);
    if (size < kEntryHeader || at > descriptor.size() || descriptor.size() - at < size) {
      return false;
    }
    const std::uint32_t type = NumberAt(descriptor, at, 1);
    const bool applies = (NumberAt(descriptor, at + 1, 1) & kForChildrenOnly) == 0;
    if (applies && type != kDenies && (NumberAt(descriptor, at + 4, 4) & kChanging) != 0 &&
        !visit(Grant{type, SidAt(descriptor.substr(0, at + size), at + kEntryHeader)})) {
      return false;
    }
    at += size;
  }
  return true;
}

void AddEntry(std::string_view sid, std::string* list) {
  AddNumber(kAllows, 1, list);
  AddNumber(kForAllChildren, 1, list);
  AddNumber(static_cast<std::uint32_t>(kEntryHeader + sid.size()), 2, list);
  AddNumber(kEverything, 4, list);
  list->append(sid);
}

}  // namespace

// Denials are passed over: what they take away is not worth a mistake.
bool IsClosedToUsers(std::string_view descriptor) {
  const std::size_t owner = NumberAt(descriptor, 4, 4);
  if (owner < kHeader || !IsTrusted(SidAt(descriptor, owner))) return false;
  return EachGrant(descriptor, [](const Grant& grant) {
    return grant.type == kAllows && IsTrusted(grant.holder);
  });
}

bool LetsEveryUserChange(std::string_view descriptor) {
  if (descriptor.size() < kHeader) return false;
  // Without a list nobody is kept out.
  if ((NumberAt(descriptor, 2, 2) & kHasList) == 0 || NumberAt(descriptor, 16, 4) == 0) return true;
  bool lets = false;
  EachGrant(descriptor, [&](const Grant& grant) {
    lets = grant.type == kAllows &&
           std::ranges::find(kEveryUser, grant.holder) != std::end(kEveryUser);
    return !lets;
  });
  return lets;
}

std::string ClosedDescriptor() {
  std::string entries;
  AddEntry(kSystem, &entries);
  AddEntry(kAdministrators, &entries);
  std::string descriptor;
  AddNumber(1, 2, &descriptor);  // the version
  AddNumber(kControl, 2, &descriptor);
  AddNumber(kHeader, 4, &descriptor);  // the owner
  AddNumber(kHeader, 4, &descriptor);  // the group
  AddNumber(0, 4, &descriptor);
  AddNumber(static_cast<std::uint32_t>(kHeader + kAdministrators.size()), 4, &descriptor);
  descriptor.append(kAdministrators);
  AddNumber(2, 2, &descriptor);  // the version of the list
  AddNumber(static_cast<std::uint32_t>(kListHeader + entries.size()), 2, &descriptor);
  AddNumber(2, 4, &descriptor);  // so many entries
  return descriptor + entries;
}

}  // namespace scourwell
