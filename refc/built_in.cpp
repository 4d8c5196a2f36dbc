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

struct Token {
  const std::string SystemFolders::*folder;
  const char* token;
};
const Token kTokens[] = {
    {&SystemFolders::windows, "%WIN%"},      {&SystemFolders::system, "%SYS%"},
    {&SystemFolders::app_data, "%AD%"},      {&SystemFolders::temporary, "%TMP%"},
    {&SystemFolders::program_files, "%PF%"}, {&SystemFolders::common_files, "%CF%"},
};

// In the order of BuiltInKind.
constexpr Kind kKinds[] = {Kind::File,  Kind::Folder,     Kind::Cookie,       Kind::KeyPart,
                           Kind::Value, Kind::DirectFile, Kind::DirectFolder, Kind::Process};

std::string Join(Kind kind, std::string_view value, std::string_view second) {
  std::string key(1, static_cast<char>('a' + static_cast<int>(kind)));
  return key.append(value).append("\n").append(second);
}

std::string ValueOf(const BuiltInRow& row) {
  if (row.key) return row.key;
  for (const Token& token : kTokens) {
    if (row.folder == token.folder) return std::string(token.token) + row.text;
  }
  return row.text;
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
        const Kind kind = kKinds[static_cast<std::size_t>(row.kind)];
        spies_.insert(row.spy);
        rows_.insert(Join(kind, ValueOf(row), row.key ? row.text : ""));
        if (kind == Kind::File || kind == Kind::Folder || kind == Kind::Cookie ||
            kind == Kind::Process) {
          searched_.insert(row.text);
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
