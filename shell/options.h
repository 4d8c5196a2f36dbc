// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "guard/key_remover.h"
#include "machine/system_folders.h"
#include "platform/shell.h"
#include "settings/app_settings.h"
#include "settings/kept_texts.h"
#include "shell/explorer_verb.h"
#include "shell/language_list.h"
#include "text/captions.h"

namespace scourwell {

// What the controls of the options dialog show, by their names: one for each row of the settings
// that names a control.
struct OptionControls {
#define SCOURWELL_CONTROL(kind, name, section, key, initial, control) \
  SettingTypes<SettingKind::kind>::Control control{};
#define SCOURWELL_NO_CONTROL(...)
  SCOURWELL_SETTINGS(SCOURWELL_CONTROL, SCOURWELL_NO_CONTROL)
#undef SCOURWELL_CONTROL
#undef SCOURWELL_NO_CONTROL

  bool chkExplorer = false;  // kept in Explorer's part of the registry
};

// The options dialog without its window.
class OptionsForm {
 public:
  struct Parts {
    Files& files;
    Registry& registry;
    KeyRemover& keys;
    Shell& shell;
    ErrorLog& log;
    const Captions& captions;
    const COpSysInfo& os;
    const SystemFolders& folders;
    AppSettings& settings;
    const KeptTexts& kept;
    bool portable = false;
  };
  // What the window has to tell the user or the program.
  struct Confirmed {
    bool language = false;           // another one: every caption has to be read again
    bool advanced_scanning = false;  // was asked for, in vain
    bool explorer_failed = false;
    std::vector<std::string> unkept;  // folders that count until the program ends
  };

  // Fills the controls.
  explicit OptionsForm(const Parts& parts);

  OptionControls& controls() { return controls_; }
  const std::vector<LanguageEntry>& languages() const { return languages_; }
  // The place of the chosen pack in the list, -1 when none is chosen.
  int language_index() const;
  // Windows would have to find a portable copy again.
  bool startup_available() const { return !parts_.portable; }
  bool explorer_available() const { return !parts_.portable && explorer_.Available(); }
  // Why not.
  Caption explorer_note() const {
    return parts_.portable ? Caption::PortableUnavailable : Caption::ExplorerUnavailable;
  }
  // What is typed there will not be used at the next start.
  bool IsMissing(const std::string& folder) const;

  // The box "Scan on windows startup", which acts at once. On failure nothing has changed.
  Outcome SetScanStartup(bool ticked);
  // The editor with the chosen pack.
  Outcome EditLanguagePackFile();
  // OK: the controls become the settings. The caller saves them.
  Confirmed Confirm();

 private:
  void Show();
  void Take();
  void ConfirmLanguage(Confirmed* confirmed);
  void ConfirmExplorer(Confirmed* confirmed);

  Parts parts_;
  ExplorerVerb explorer_;
  OptionControls controls_;
  std::vector<LanguageEntry> languages_;
};

}  // namespace scourwell
