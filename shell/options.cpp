#include "shell/options.h"

#include "machine/cregister.h"
#include "machine/file_utils.h"
#include "text/text.h"

namespace scourwell {
namespace {

constexpr char kRunKey[] = "\\Software\\Microsoft\\Windows\\CurrentVersion\\Run";
constexpr char kRunValue[] = "ZURANTISPY";
struct Box {
  bool OptionControls::*control;
  bool AppSettings::*setting;
};

// "Advanced Scanning" has a rule of its own.
constexpr Box kBoxes[] = {
    {&OptionControls::chkAutosaveLog, &AppSettings::AutoSave},
    {&OptionControls::chkUseRegEdit, &AppSettings::UseRegEdit},
    {&OptionControls::chkAutoCheckForUpdate, &AppSettings::AutoCheckForUpdate},
    {&OptionControls::chkSpywareAdware, &AppSettings::SpywareAdware},
    {&OptionControls::chkDialers, &AppSettings::Dialers},
    {&OptionControls::chkKeyLoggers, &AppSettings::KeyLoggers},
    {&OptionControls::chkExtraLogInfo, &AppSettings::ExtraLogInfo},
    {&OptionControls::chkAllCookies, &AppSettings::AllCookies},
    {&OptionControls::chkTrojans, &AppSettings::Trojans},
    {&OptionControls::chkBHO, &AppSettings::BHO},
    {&OptionControls::chkScanStartup, &AppSettings::RunStartup},
    {&OptionControls::ChkRemoveFile, &AppSettings::DeleteAfterReboot},
    {&OptionControls::ChkAutoRemove, &AppSettings::AutoRemove},
    {&OptionControls::chkBackupBeforeRemoval, &AppSettings::BackupBeforeRemoval},
};

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
  const AppSettings& settings = parts_.settings;
  for (const LanguageEntry& entry : languages_) {
    if (EqualsNoCase(entry.name + kPackExtension, settings.LanguageFile)) {
      controls_.CmbLang = entry.name;
    }
  }
  controls_.chkMarkChecked = settings.MarkChecked == "y";
  for (const Box& box : kBoxes) controls_.*box.control = settings.*box.setting;
  controls_.chkAdvancedScanning = settings.AdvancedScanning;
  controls_.chkExplorer = explorer_.IsOn();
  controls_.txtLogfiles = ShownFolder(settings.LogFilePath);
  controls_.txtBackup = settings.BackupFolder;
  controls_.txtRefFileLocation = settings.DefinitionsFolder;
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
      status =
          run.SetString(RootKey::CurrentUser, kRunKey, kRunValue, program + " /STARTUP" + '\0');
    } else {
      run.DeleteEntry(RootKey::CurrentUser, kRunKey, kRunValue, &status);
      if (status == kRegNotFound) status = kRegOk;
    }
    if (status != kRegOk) {
      return Outcome::Failed(status == kRegAccessDenied ? kPermissionDenied : status)
          .With("Value: ", kRunValue);
    }
    parts_.settings.RunStartup = controls_.chkScanStartup = ticked;
    return {};
  });
}

Outcome OptionsForm::EditLanguagePackFile() {
  return parts_.log.TrapOutcome("cmdEditLanguagePackFile", [&] {
    return parts_.shell.StartCommand("notepad.exe lang\\" + controls_.CmbLang + kPackExtension);
  });
}

OptionsForm::Confirmed OptionsForm::Confirm() {
  Confirmed confirmed;
  parts_.log.Trap("CmdProceed", [&] {
    AppSettings& settings = parts_.settings;
    ConfirmLanguage(&confirmed);
    settings.MarkChecked = controls_.chkMarkChecked ? "y" : "n";
    for (const Box& box : kBoxes) settings.*box.setting = controls_.*box.control;
    confirmed.advanced_scanning = controls_.chkAdvancedScanning;
    settings.AdvancedScanning = false;
    // The run keeps the name of its log. An empty box stands for the program's own folder, as it
    // will at the next start.
    const std::string& folder = controls_.txtLogfiles;
    settings.LogFilePath = AddPathToFileName(folder.empty() ? parts_.folders.application : folder,
                                             FileNamePart(settings.LogFilePath));
    settings.BackupFolder = controls_.txtBackup;
    settings.DefinitionsFolder = controls_.txtRefFileLocation;
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

// After the language: the caption follows it.
void OptionsForm::ConfirmExplorer(Confirmed* confirmed) {
  if (!explorer_.Available()) return;
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
