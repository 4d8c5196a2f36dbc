// SPDX-License-Identifier: MIT
#include "console/folder_target.h"

#include "console/linux_paths.h"

namespace scourwell {
namespace {

constexpr unsigned kUtf8 = 65001;

}  // namespace

FolderTarget::FolderTarget(ProgramVersion version, Pump& pump, ScanReport& report)
    : files_({{'C', "/"}}),
      code_pages_(kUtf8),
      shell_(files_, code_pages_),
      versions_(files_, code_pages_) {
  const Ports ports = {files_, registry_, nullptr,    profiles_, clock_,     system_,
                       shell_, versions_, processes_, pump,      code_pages_};
  engine_ = std::make_unique<Engine>(ports, files_.FromLinux(UserFolder()), version, report,
                                     Engine::Records::ListenerAlone);
}

bool FolderTarget::Scan(const ScanScope&, const std::vector<std::string>& paths) {
  engine_->RunSession([&](ScanSession& session) { session.ScanFolders(paths); });
  return engine_->session().finished();
}

std::string FolderTarget::OwnPath(const std::string& path) {
  const std::string real = RealLinuxPath(path);
  return real.empty() ? std::string() : files_.FromLinux(real);
}

std::string FolderTarget::Shown(const std::string& path) const {
  const std::string shown = files_.ToLinux(path);
  return shown.empty() ? path : LinuxPathText(shown);
}

}  // namespace scourwell
