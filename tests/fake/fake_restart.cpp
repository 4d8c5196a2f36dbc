// SPDX-License-Identifier: MIT

// The next start of the fake machine, and what is noted for it.
#include <utility>

#include "tests/fake/fake_machine.h"
#include "text/paths.h"

namespace scourwell::test {
namespace {

constexpr char kSessionManager[] = "SYSTEM\\CurrentControlSet\\Control\\Session Manager";
constexpr char kMoves[] = "PendingFileRenameOperations";
constexpr std::string_view kNative = "\\??\\";

void SetFree(Node* node) {
  node->locked = node->running = false;
  for (const auto& child : node->children) SetFree(child.get());
}

}  // namespace

// Pairs of a path and its target, which is empty for what is deleted; an empty text ends them.
Outcome FakeSystem::DeleteAtReboot(const std::string& path) {
  if (record.platform != 2 || !IsAbsolutePath(path)) return Outcome::Failed(kPathFileAccess);
  if (const ErrorCode fault = port_faults ? port_faults->Next() : ErrorCode()) {
    return Outcome::Failed(fault);
  }
  journal.push_back("Delete " + path);
  if (refuses_at != 0 && --refuses_at == 0) return Outcome::Failed(kPermissionDenied);
  if (!registry_) return {};
  Faults* const faults = std::exchange(registry_->port_faults, nullptr);  // one call in all
  RegValue list;
  registry_->QueryValue(RootKey::LocalMachine, kSessionManager, kMoves, &list);
  if (!list.data.empty()) list.data.pop_back();
  list.data.append(kNative).append(path).append(3, '\0');
  registry_->SetValue(RootKey::LocalMachine, kSessionManager, kMoves, {kRegMultiText, list.data});
  registry_->port_faults = faults;
  return {};
}

void FakeMachine::Restart() {
  for (const Drive& drive : files.Drives()) SetFree(files.Find({drive.letter, ':', '\\'}));
  std::vector<std::string> gone;
  RegValue list;
  registry.QueryValue(RootKey::LocalMachine, kSessionManager, kMoves, &list);
  std::vector<std::string> texts;
  for (std::size_t at = 0; at < list.data.size(); at += texts.back().size() + 1) {
    texts.emplace_back(list.data.c_str() + at);
  }
  for (std::size_t i = 0; i + 1 < texts.size(); i += 2) {
    if (texts[i + 1].empty()) gone.push_back(texts[i].substr(kNative.size()));
  }
  registry.DeleteValue(RootKey::LocalMachine, kSessionManager, kMoves);
  const std::string ini = system.windows + "\\WinInit.ini";
  const std::string lines = ReplaceAll(Content(ini), "DIRNUL=", "NUL=");
  for (std::size_t at = 0; (at = lines.find("\nNUL=", at)) != lines.npos; ++at) {
    gone.push_back(lines.substr(at + 5, lines.find("\r\n", at) - at - 5));
  }
  files.Remove(ini);
  for (const std::string& path : gone) {
    const Node* node = files.Find(path);
    if (node && (node->IsLink() || node->children.empty())) files.Remove(path);
  }
}

}  // namespace scourwell::test
