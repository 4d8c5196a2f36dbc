#include "definitions/builtin_lists.h"

namespace scourwell {

void BuiltInLists::AddBuiltIn(BuiltInStage stage, const WithdrawnValues& withdrawn) {
  for (const BuiltInList* list : stage) AddBuiltIn(*list, withdrawn);
}

void BuiltInLists::AddBuiltIn(const BuiltInList& list, const WithdrawnValues& withdrawn) {
  log_.Trap(list.name, [&]() -> Outcome {
    std::size_t n = 0;
    try {
      for (; n < list.rows.size(); ++n) {
        if (!pump_.Next()) return {};
        Deliver(list.rows[n], withdrawn);
      }
    } catch (const std::bad_alloc&) {
      return Outcome::Failed(kOutOfMemory).With("I: ", std::to_string(n));
    }
    return {};
  });
}

void BuiltInLists::Deliver(const BuiltInRow& row, const WithdrawnValues& withdrawn) {
  switch (row.kind) {
    case BuiltInKind::SearchedFile:
      FillListBox(lists_.lstSearch, "Spy File", row.spy, row.text);
      return;
    case BuiltInKind::SearchedFolder:
      FillListBox(lists_.lstSearch, "Spy Folder", row.spy, row.text);
      return;
    case BuiltInKind::Cookie:
      FillListBox(lists_.lstSearch, "Spy Cookie", row.spy, row.text);
      return;
    case BuiltInKind::RegistryKey:
      FillListBoxRegistrySType(lists_.lstSearch, row.text, row.spy);
      return;
    case BuiltInKind::RegistryValue:
      FillListBoxRegistryVType(lists_.lstRegistry, row.key, row.spy, row.text);
      return;
    case BuiltInKind::Process:
      if (!withdrawn.contains(row.text)) checks_.CheckProcess(row.spy, row.text);
      return;
    case BuiltInKind::DirectFile:
    case BuiltInKind::DirectFolder:
      break;
  }
  // A folder that the system does not know would leave a path below the current drive's root.
  const std::string& folder = folders_.*row.folder;
  if (folder.empty()) return;
  if (row.kind == BuiltInKind::DirectFile) {
    checks_.CheckFile(row.spy, folder + row.text);
  } else {
    checks_.CheckFolder(row.spy, folder + row.text);
  }
}

}  // namespace scourwell
