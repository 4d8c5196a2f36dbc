// SPDX-License-Identifier: MIT
#include "shell/frm_definitions.h"

#include "widgets/file_dialog.h"
#include "widgets/message_box.h"

namespace scourwell {
namespace {

bool Load(const WindowEnv& env, Application& app, const std::string& path,
          Caption question = Caption::AskLoadDefinitions) {
  DefinitionsOffer offer;
  if (const auto refused = app.exchange().Examine(path, &offer)) {
    ShowMessage(
        env.Text(Caption::DefinitionsRefused) + "\r\n" + path + "\r\n\r\n" + env.Text(*refused),
        env.Text(Caption::LoadDefinitionsTitle), MB_ICONERROR);
    return false;
  }
  if (offer.older && question == Caption::AskLoadDefinitions) question = Caption::AskLoadOlder;
  if (!AskYesNo(app.exchange().Describe(offer) + "\r\n\r\n" + env.Text(question),
                env.Text(Caption::LoadDefinitionsTitle),
                offer.older ? kBeforeLoss : MB_ICONQUESTION)) {
    return false;
  }
  const Outcome taken = app.TakeDefinitions(offer);
  if (!taken.ok()) {
    ShowMessage(env.Text(Caption::DefinitionsNotWritten) + "\r\n\r\n" + taken.description() +
                    "\r\n" + std::string(taken.last_value()),
                env.Text(Caption::Error), MB_ICONERROR);
    return false;
  }
  ShowMessage(env.Text(Caption::DefinitionsLoaded), env.Text(Caption::LoadDefinitionsTitle));
  return true;
}

}  // namespace

bool ChooseDefinitions(const WindowEnv& env, Application& app) {
  const std::string path =
      AskForFile(GetActiveWindow(), FileDialog::Open, env.Text(Caption::DefinitionsFileTypes),
                 "ref", env.Text(Caption::LoadDefinitionsTitle));
  return !path.empty() && Load(env, app, path);
}

bool LoadDropped(const WindowEnv& env, Application& app, const std::vector<std::string>& paths) {
  if (paths.size() == 1) return Load(env, app, paths[0]);
  ShowMessage(env.Text(Caption::DropOneFile), env.Text(Caption::LoadDefinitionsTitle));
  return false;
}

bool LoadFormerDefinitions(const WindowEnv& env, Application& app) {
  const std::string path = app.exchange().FormerFound();
  if (!path.empty()) return Load(env, app, path, Caption::AskFormerDefinitions);
  ShowMessage(env.Text(Caption::NoFormerDefinitions), env.Text(Caption::LoadDefinitionsTitle));
  return false;
}

}  // namespace scourwell
