// SPDX-License-Identifier: MIT
#include "refc/built_in.h"

#include "definitions/builtin_lists.h"

namespace scourwell::refc {
namespace {

const BuiltInStage kStages[] = {
    kBuiltInTrojanFolderStage,    kBuiltInTrojanFileStage,     kBuiltInDialerFolderStage,
    kBuiltInDialerFileStage,      kBuiltInHijackerFolderStage, kBuiltInHijackerFileStage,
    kBuiltInKeyLoggerFolderStage, kBuiltInKeyLoggerFileStage,  kBuiltInSpyFolderStage,
    kBuiltInSpyFileStage,         kBuiltInCookieStage,         kBuiltInMemoryStage,
    kBuiltInRegistryStage,
};

std::string Join(Kind kind, std::string_view value, std::string_view second) {
  std::string key(1, static_cast<char>('a' + static_cast<int>(kind)));
  return key.append(value).append("\n").append(second);
}

}  // namespace

const BuiltInRows& BuiltInRows::Get() {
  static const BuiltInRows rows;
  return rows;
}

BuiltInRows::BuiltInRows() {
  for (const BuiltInStage stage : kStages) {
    for (const BuiltInList* list : stage) {
      for (const BuiltInRow& row : list->rows) {
        spies_.insert(row.spy);
        rows_.insert(Join(row.kind, row.value, row.second));
        if (row.kind == Kind::File || row.kind == Kind::Folder || row.kind == Kind::Cookie ||
            row.kind == Kind::Process) {
          searched_.insert(row.value);
        }
      }
    }
  }
}

bool BuiltInRows::Has(Kind kind, std::string_view value, std::string_view second) const {
  return rows_.find(Join(kind, value, second)) != rows_.end();
}

bool BuiltInRows::CanWithdraw(std::string_view value) const {
  return searched_.find(value) != searched_.end();
}

bool BuiltInRows::Names(std::string_view spy) const { return spies_.contains(spy); }

}  // namespace scourwell::refc
