// SPDX-License-Identifier: MIT
#include "platform/win/w9x/opened_item_9x.h"

#include <windows.h>

#include <utility>

#include "platform/files.h"
#include "platform/win/win_error.h"

namespace scourwell {
namespace {

class Item9x : public OpenedItem {
 public:
  Item9x(const FileCalls& calls, std::string path, std::uint32_t attributes)
      : calls_(calls), path_(std::move(path)), attributes_(attributes) {}

  const std::string& true_path() const override { return path_; }
  std::uint32_t attributes() const override { return attributes_; }
  // No answer tells who lets nobody in from who merely runs.
  bool IsHeld() const override { return true; }

  Outcome Erase() override {
    constexpr std::uint32_t kInTheWay = kReadOnly | kHidden | kSystem;
    const bool in_the_way = (attributes_ & kInTheWay) != 0;
    if (in_the_way) calls_.SetAttributes(path_, FILE_ATTRIBUTE_NORMAL);
    const bool erased = attributes_ & kFolder ? calls_.RemoveFolder(path_) : calls_.Delete(path_);
    if (erased) {
      calls_.DropAside(path_);
      return {};
    }
    const DWORD error = GetLastError();
    if (in_the_way) calls_.SetAttributes(path_, attributes_ & (kInTheWay | kArchive));
    return FailedWith(error);
  }

  Outcome MoveTo(const std::string& path) override {
    return calls_.Move(path_, path) ? Outcome() : FailedWith(GetLastError());
  }

 private:
  const FileCalls& calls_;
  std::string path_;
  std::uint32_t attributes_;
};

}  // namespace

Outcome OpenItem9x(const FileCalls& calls, const std::string& path,
                   std::unique_ptr<OpenedItem>* item) {
  const DWORD attributes = calls.Attributes(path);
  if (attributes == kNoAttributes) return FailedWith(GetLastError());
  *item = std::make_unique<Item9x>(calls, path, attributes);
  return {};
}

}  // namespace scourwell
