// SPDX-License-Identifier: MIT
#include "shell/frm_report.h"

#include "machine/reasons.h"
#include "widgets/file_dialog.h"
#include "widgets/message_box.h"

namespace scourwell {

void SaveReport(const WindowEnv& env, Application& app) {
  const std::string path =
      AskForFile(GetActiveWindow(), FileDialog::Save, env.Text(Caption::ReportFileTypes), "html",
                 env.Text(Caption::SaveReportTitle), "Scourwell.html");
  if (path.empty()) return;
  const Outcome saved = app.WriteReport(path);
  if (saved.ok()) return;
  ShowMessage(
      env.Text(Caption::ReportNotSaved) + "\r\n" + path + "\r\n" + ReasonText(env.captions, saved),
      env.Text(Caption::Error), MB_ICONERROR);
}

}  // namespace scourwell
