// SPDX-License-Identifier: MIT
#include "shell/options.h"

#include <utility>
#include <variant>

#include "machine/cregister.h"
#include "machine/file_utils.h"
#include "text/text.h"

namespace scourwell {
namespace {

constexpr char kRunKey[] = "\\Software\\Microsoft\\Windows\\CurrentVersion\\Run";
constexpr char kRunValue[] = "ZURANTISPY";
constexpr char kMarked[] = "y";
constexpr char kUnmarked[] = "n";

// The rows of the settings that a control edits.
struct EditedSetting {
  SettingKind kind;
  std::variant<bool AppSettings::*, std::string AppSettings::*> setting;
  std::variant<bool OptionControls::*, std::string OptionControls::*> control;

  bool& FlagIn(AppSettings& settings) const {
    return settings.*std::get<bool AppSettings::*>(setting);
  }
  std::string& TextIn(AppSettings& settings) const {
    return settings.*std::get<std::string AppSettings::*>(setting);
  }
  bool& BoxOf(OptionControls& controls) const {
    return controls.*std::get<bool OptionControls::*>(control);
  }
  std::string& LineOf(OptionControls& controls) const {
    return controls.*std::get<std::string OptionControls::*>(control);
  }
};

#define SCOURWELL_ROW(kind, name, section, key, initial, control) \
  {SettingKind::kind, &AppSettings::name, &OptionControls::control},
#define SCOURWELL_NO_ROW(...)
constexpr EditedSetting kEdited[] = {SCOURWELL_SETTINGS(SCOURWELL_ROW, SCOURWELL_NO_ROW)};
#undef SCOURWELL_ROW
#undef SCOURWELL_NO_ROW

std::string LangFolder(const SystemFolders& folders) {
  return AddPathToFileName(folders.application, "Lang");
}

// The folder of a file; a drive root keeps its backslash, as the user would type it.
std::string ShownFolder(const std::string& path) {
  const std::string folder(FolderPart(path));
  return folder.size() == 2 && folder[1] == ':' ? folder + "\\" : folder;
}

}  // namespace

OptionsForm::OptionsForm(const Parts& parts)
    : parts_(parts),
      explorer_(parts.registry, parts.keys, parts.os, parts.folders.application),
      languages_(ListLanguages(parts.files, parts.log, LangFolder(parts.folders))) {
  for (const LanguageEntry& entry : languages_) {
    if (EqualsNoCase(entry.name + kPackExtension, parts_.settings.LanguageFile)) {
      controls_.CmbLang = entry.name;
    }
  }
  Show();
  controls_.chkExplorer = explorer_available() && explorer_.IsOn();
}

// The language pack has its own ways: what can be chosen is a list.
void OptionsForm::Show() {
  AppSettings& settings = parts_.settings;
  for (const EditedSetting& row : kEdited) {
    switch (row.kind) {
      case SettingKind::Flag:
        row.BoxOf(controls_) = row.FlagIn(settings);
        break;
      case SettingKind::Mark:
        row.BoxOf(controls_) = row.TextIn(settings) == kMarked;
        break;
      case SettingKind::Folder:
        row.LineOf(controls_) = row.TextIn(settings);
        break;
      case SettingKind::LogFile:
        row.LineOf(controls_) = ShownFolder(row.TextIn(settings));
        break;
      default:
        break;
    }
  }
}

void OptionsForm::Take() {
  AppSettings& settings = parts_.settings;
  for (const EditedSetting& row : kEdited) {
    switch (row.kind) {
      case SettingKind::Flag:
        row.FlagIn(settings) = row.BoxOf(controls_);
        break;
      case SettingKind::Mark:
        row.TextIn(settings) = row.BoxOf(controls_) ? kMarked : kUnmarked;
        break;
      case SettingKind::Folder:
        row.TextIn(settings) = row.LineOf(controls_);
        break;
      case SettingKind::LogFile: {
        // The run keeps the name of its log. An empty line stands for the program's own folder, as
        // it will at the next start.
        const std::string& folder = row.LineOf(controls_);
        std::string& path = row.TextIn(settings);
        path = AddPathToFileName(folder.empty() ? parts_.folders.application : folder,
                                 FileNamePart(path));
        break;
      }
      default:
        break;
    }
  }
}

int OptionsForm::language_index() const {
  for (std::size_t i = 0; i < languages_.size(); ++i) {
    if (languages_[i].name == controls_.CmbLang) return static_cast<int>(i);
  }
  return -1;
}

bool OptionsForm::IsMissing(const std::string& folder) const {
  return !IsAbsolutePath(AddPathToFileName(folder, "x")) || !FolderExists(parts_.files, folder);
}

Outcome OptionsForm::SetScanStartup(bool ticked) {
  return parts_.log.TrapOutcome("chkScanStartup", [&]() -> Outcome {
    RegStatus status = kRegOk;
    CRegister run(parts_.registry);
    if (ticked) {
      const std::string program = AddPathToFileName(parts_.folders.application, "Scourwell.exe");
      status = run.SetString(RootKey::CurrentUser, kRunKey, kRunValue,
                             "\"" + program + "\" /STARTUP" + '\0');
    } else {
      run.DeleteEntry(RootKey::CurrentUser, kRunKey, kRunValue, &status);
      if (status == kRegNotFound) status = kRegOk;
    }
    if (status != kRegOk) return Outcome::OfRegistry(status).With("Value: ", kRunValue);
    parts_.settings.RunStartup = controls_.chkScanStartup = ticked;
    return {};
  });
}

Outcome OptionsForm::EditLanguagePackFile() {
  return parts_.log.TrapOutcome("cmdEditLanguagePackFile", [&] {
    const std::string editor = AddPathToFileName(parts_.folders.windows, "notepad.exe");
    const std::string pack = AddPathToFileName(parts_.folders.application,
                                               "lang\\" + controls_.CmbLang + kPackExtension);
    return parts_.shell.StartCommand("\"" + editor + "\" \"" + pack + "\"");
  });
}

OptionsForm::Confirmed OptionsForm::Confirm() {
  Confirmed confirmed;
  parts_.log.Trap("CmdProceed", [&] {
    ConfirmLanguage(&confirmed);
    Take();
    for (const EditedSetting& row : kEdited) {
      if (row.kind != SettingKind::Folder && row.kind != SettingKind::LogFile) continue;
      const std::string& folder = row.LineOf(controls_);
      if (folder.empty() || !parts_.kept.WrittenFolder(folder).empty()) continue;
      confirmed.unkept.push_back(folder);
    }
    // It cannot be switched on here.
    confirmed.advanced_scanning = std::exchange(parts_.settings.AdvancedScanning, false);
    ConfirmExplorer(&confirmed);
  });
  return confirmed;
}

void OptionsForm::ConfirmLanguage(Confirmed* confirmed) {
  if (controls_.CmbLang.empty()) return;  // the pack is missing: the setting stays
  const std::string file = controls_.CmbLang + kPackExtension;
  if (file == parts_.settings.LanguageFile) return;
  parts_.settings.LanguageFile = file;
  confirmed->language = true;
}

// This comes after the language: the caption follows it.
void OptionsForm::ConfirmExplorer(Confirmed* confirmed) {
  if (!explorer_available()) return;
  const bool wanted = controls_.chkExplorer;
  if (!wanted && !explorer_.IsOn()) return;
  const Outcome done = parts_.log.TrapOutcome("chkExplorer", [&] {
    return wanted ? explorer_.TurnOn(parts_.captions.Text(Caption::ExplorerVerb))
                  : explorer_.TurnOff();
  });
  // A key that could not be deleted was told of already.
  confirmed->explorer_failed = wanted && !done.ok();
}

}  // namespace scourwell
