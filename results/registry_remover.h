// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "guard/key_remover.h"
#include "machine/reg_script.h"
#include "results/file_remover.h"
#include "scan/finding.h"
#include "text/captions.h"

namespace scourwell {

// Deletes registry keys and values, or writes down for the registry editor which it would delete.
class RegistryRemover {
 public:
  struct Parts {
    Files& files;
    Shell& shell;
    ErrorLog& log;
    CodePages& code_pages;
    const COpSysInfo& os;
    const SystemFolders& folders;
    const Captions& captions;
    Registry& registry;
    Registry* registry64;  // null where there is only one view
  };

  explicit RegistryRemover(const Parts& parts);

  RemovalResult Remove(const FoundKey& key);
  RemovalResult Remove(const FoundValue& value);

  // Makes "Remove.reg" anew: the rows of the 32-bit view, the only one that the editor sees, which
  // Remove would delete. Rows of other kinds are passed over.
  void WriteScript(const std::vector<const FoundObject*>& rows);
  // Runs the registry editor on that script, if it was written and says anything; does not wait for
  // it.
  void launchRegEditDelete();

 private:
  Outcome CreateRegistryDeleteFile(const std::vector<const FoundObject*>& rows);
  bool AddToScript(const FoundKey& key, RegScript* script);
  bool AddToScript(const FoundValue& value, RegScript* script);
  Outcome RunEditor();
  KeyRemover& KeysOf(bool view64) { return view64 ? keys64_ : keys_; }
  void TellDenied();
  std::string ScriptPath() const;

  Parts parts_;
  KeyRemover keys_;
  KeyRemover keys64_;
  bool script_written_ = false;  // and holds more than its header
};

}  // namespace scourwell
