// SPDX-License-Identifier: MIT
#include "results/registry_remover.h"

#include <utility>

#include "guard/protected_keys.h"
#include "machine/file_utils.h"
#include "machine/registry_place.h"
#include "scan/finding_texts.h"
#include "text/caption_ids.h"
#include "text/text.h"

namespace scourwell {
namespace {

RemovalResult FromStatus(RegStatus status) {
  if (status == kRegOk) return {};
  if (status == kRegNotFound) return {RemovalState::Gone, {}};
  return {RemovalState::Failed, status == kRegAccessDenied
                                    ? Outcome::Failed(kPermissionDenied)
                                    : Outcome::Failed(ErrorCode::Registry(status),
                                                      "Registry error " + std::to_string(status))};
}

// Empty when the object may be deleted.
std::optional<RemovalResult> Refusal(const RegistryPlace& place, bool is_protected) {
  Outcome why;
  if (NameFromRoot(place.root).empty()) {
    why = Outcome::Failed(kBadFileName, "Unknown registry root").Because(Caption::ReasonFailed);
  } else if (is_protected) {
    why = Outcome::Failed(kPermissionDenied, "It is protected: Windows needs it")
              .Because(Caption::ReasonProtected);
  }
  if (why.ok()) return std::nullopt;
  return RemovalResult{RemovalState::Refused, std::move(why)};
}

std::optional<RemovalResult> RefusalOf(const FoundKey& key) {
  return Refusal(key.place, IsProtectedKey(FullKeyPath(key.place)));
}

std::optional<RemovalResult> RefusalOf(const FoundValue& value) {
  return Refusal(value.key, IsProtectedValue(FullKeyPath(value.key), value.name));
}

}  // namespace

RegistryRemover::RegistryRemover(const Parts& parts)
    : parts_(parts),
      keys_(parts.registry, parts.log, [this] { TellDenied(); }),
      keys64_(parts.registry64 ? *parts.registry64 : parts.registry, parts.log,
              [this] { TellDenied(); }) {}

void RegistryRemover::TellDenied() {
  parts_.shell.Message(parts_.captions.Text(Caption::RegistryKeyAccessDenied),
                       parts_.captions.Text(Caption::AccessDenied));
}

RemovalResult RegistryRemover::Remove(const FoundKey& key) {
  if (auto refusal = RefusalOf(key)) return *std::move(refusal);
  return FromStatus(KeysOf(key.view64).DeleteKey(key.place.root, key.place.path));
}

RemovalResult RegistryRemover::Remove(const FoundValue& value) {
  if (auto refusal = RefusalOf(value)) return *std::move(refusal);
  return FromStatus(KeysOf(value.view64).DeleteValue(value.key.root, value.key.path, value.name));
}

std::string RegistryRemover::ScriptPath() const {
  return std::string(TrimBlanks(FullPath_With_Filename(parts_.folders.application, "Remove.reg")));
}

void RegistryRemover::WriteScript(const std::vector<const FoundObject*>& rows) {
  script_written_ = false;
  parts_.log.Trap("CreateRegistryDeleteFile", [&] { return CreateRegistryDeleteFile(rows); });
}

// Only what the registry functions themselves would delete: the editor knows no protection, and
// follows links.
bool RegistryRemover::AddToScript(const FoundKey& key, RegScript* script) {
  const std::string full_path = FullKeyPath(key.place);
  return CanStandInScript(full_path) && !RefusalOf(key) &&
         !keys_.HasLinks(key.place.root, key.place.path) && script->DeleteKey(full_path);
}

bool RegistryRemover::AddToScript(const FoundValue& value, RegScript* script) {
  const std::string full_path = FullKeyPath(value.key);
  return CanStandInScript(full_path) && CanStandInScript(value.name) && !RefusalOf(value) &&
         !keys_.LeadsAside(value.key.root, value.key.path) &&
         script->DeleteValue(full_path, value.name);
}

Outcome RegistryRemover::CreateRegistryDeleteFile(const std::vector<const FoundObject*>& rows) {
  // First of all the script of an earlier removal goes: nobody shall run that by mistake.
  Outcome erased = parts_.files.EraseFile(ScriptPath());
  if (!erased.ok() && erased.code() != kFileNotFound) {
    return std::move(erased).With("File: ", ScriptPath());
  }
  RegScript script(parts_.code_pages, ReaderOf(parts_.os));
  std::string left_out;
  for (const FoundObject* row : rows) {
    const bool written = std::visit(
        Overloaded{
            [&](const FoundKey& key) { return key.view64 || AddToScript(key, &script); },
            [&](const FoundValue& value) { return value.view64 || AddToScript(value, &script); },
            [](const FoundFile&) { return true; },
            [](const FoundFolder&) { return true; },
            [](const FoundCookie&) { return true; },
            [](const FoundProcess&) { return true; },
        },
        *row);
    if (!written) left_out = PlaceText(*row);
  }
  Outcome written = parts_.files.Replace(ScriptPath(), script.Bytes());
  if (!written.ok()) return std::move(written).With("File: ", ScriptPath());
  script_written_ = !script.empty();
  if (left_out.empty()) return {};
  return Outcome::Failed(kBadFileName, "A registry entry does not go into the script")
      .With("Entry: ", left_out);
}

void RegistryRemover::launchRegEditDelete() {
  if (!script_written_) return;
  parts_.log.Trap("launchRegEditDelete", [&] { return RunEditor(); });
}

Outcome RegistryRemover::RunEditor() {
  std::string editor;
  if (parts_.os.IsWin9x()) {
    editor = parts_.folders.windows + "\\Regedit.exe";
  } else if (parts_.os.IsWinNT()) {
    // That of Windows NT 4 and 2000 cannot read scripts.
    editor = parts_.os.IsWinXP() ? parts_.folders.system + "\\RegEdt32.exe"
                                 : parts_.folders.windows + "\\Regedit.exe";
  }
  if (editor.empty()) return {};
  // Not every system has the second editor.
  const std::string other = parts_.folders.windows + "\\Regedit.exe";
  if (!FileExists(parts_.files, editor) && FileExists(parts_.files, other)) editor = other;
  const std::string script = ScriptPath();
  Outcome started = parts_.shell.Launch(editor + " /S \"" + script + "\"");
  if (started.ok()) return {};
  const std::string number = std::to_string(started.code().number());
  return std::move(started)
      .With("regeditFileName: ", script)
      .With("regeditFileLocation: ", editor)
      .With("Ret: ", number);
}

}  // namespace scourwell
