// SPDX-License-Identifier: MIT
#include "tools/frm_startup_manager.h"

#include <optional>

#include "tools/frm_add_task.h"
#include "widgets/file_dialog.h"
#include "widgets/message_box.h"
#include "widgets/resource.h"

namespace scourwell {
namespace {

constexpr char kMenuMethod[] = "FRM Startup - Menu_Click";
constexpr char kExtension[] = "Pro";

struct MenuEntry {
  std::optional<Caption> group;  // of the menu that it begins; none: goes on
  int id;
  Caption caption;
};
constexpr MenuEntry kMenu[] = {
    {Caption::MenuEntry, IDM_keyEdit, Caption::MenuEditEntry},
    {{}, IDM_keyAutoexec, Caption::MenuAutoexec},
    {{}, IDM_keyConfig, Caption::MenuConfigSys},
    {{}, IDM_keyRegistry, Caption::MenuRegistryEditor},
    {Caption::MenuProfile, IDM_keySave, Caption::MenuSaveProfile},
    {{}, IDM_keyLoad, Caption::MenuLoadProfile},
    {Caption::MenuTasks, IDM_keyResetAll, Caption::MenuResetAll},
    {{}, IDM_keyAddTask, Caption::MenuAddTask},
};

}  // namespace

frmStartupManager::frmStartupManager(const WindowEnv& env, ToolBox& tools)
    : frmEntries(env, "frmStartupManager", "FRM Startup - ", tools,
                 {Caption::StartupManager, Caption::StartupManagerHint, Caption::NoStartupEntry}),
      manager_(tools.entry_needs()) {}

std::span<const Caption> frmStartupManager::ColumnCaptions() const {
  return StartupManager::ColumnCaptions();
}

std::span<const frmTool::Column> frmStartupManager::Columns() const {
  static constexpr Column kColumns[] = {{120, false}, {100, false}, {165, false},
                                        {75, false},  {145, false}, {200, true},
                                        {55, false},  {90, false},  {85, false}};
  return kColumns;
}

// What tells good from bad comes first.
std::span<const int> frmStartupManager::ColumnOrder() const {
  using M = StartupManager;
  static constexpr int kOrder[] = {M::kName,     M::kStatus,  M::kSpy,   M::kFile, M::kCompany,
                                   M::kLocation, M::kCommand, M::kScope, M::kWhen};
  return kOrder;
}

std::span<const frmTool::Command> frmStartupManager::Commands() const {
  static constexpr Command kCommands[] = {{IDC_cmdDisable, Caption::DisableEntry},
                                          {IDC_cmdToolRemove, Caption::RemoveEntry},
                                          {IDC_cmdApply, Caption::ApplyMarks}};
  return kCommands;
}

std::span<const frmTool::Command> frmStartupManager::MenuCommands() const {
  static constexpr Command kCommands[] = {{IDC_cmdDisable, Caption::DisableEntry},
                                          {IDC_cmdToolRemove, Caption::RemoveEntry},
                                          {IDM_keyEdit, Caption::MenuEditEntry},
                                          {IDC_cmdViewInfo, Caption::ShowDetails}};
  return kCommands;
}

HMENU frmStartupManager::Menu() {
  HMENU bar = CreateMenu();
  HMENU group = nullptr;
  for (const MenuEntry& entry : kMenu) {
    if (entry.group) {
      group = CreatePopupMenu();
      Calls().Append(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(group), Text(*entry.group));
    }
    Calls().Append(group, MF_STRING, static_cast<UINT_PTR>(entry.id), Text(entry.caption));
  }
  return bar;
}

void frmStartupManager::EnableCommands() {
  frmEntries::EnableCommands();
  std::size_t row = 0;
  const bool any = Selected(&row);
  ButtonOf(IDC_cmdToolRemove).Enable(any);
  const UINT edit = any && (manager_.MayEdit(row) || !manager_.ShortcutOf(row).empty());
  EnableMenuItem(GetMenu(hwnd()), IDM_keyEdit, edit ? MF_ENABLED : MF_GRAYED);
}

bool frmStartupManager::OnToolCommand(int id) {
  if (id != IDC_cmdToolRemove) return frmEntries::OnToolCommand(id) || OnMenu(id);
  MarkSelected([&](std::size_t row) { manager_.cmdRemove_Click(row); });
  return true;
}

bool frmStartupManager::OnMenu(int id) {
  const auto trapped = [&](auto&& body) {
    env_.log.Trap(kMenuMethod, body);
    return true;
  };
  switch (id) {
    case IDM_keyEdit:
      return trapped([&] { Edit(); });
    case IDM_keyAutoexec:
      return trapped([&] { return tools_.OpenText("c:\\autoexec.bat"); });
    case IDM_keyConfig:
      return trapped([&] { return tools_.OpenText("c:\\config.sys"); });
    case IDM_keyRegistry:
      return trapped([&] { return tools_.OpenRegistry({}); });
    case IDM_keySave:
      return trapped([&] { SaveProfile(); });
    case IDM_keyLoad:
      return trapped([&] { LoadProfile(); });
    case IDM_keyResetAll:
      manager_.ResetAll();
      return ShowResult(), true;
    case IDM_keyAddTask:
      return trapped([&] { AddTask(); });
    default:
      return false;
  }
}

// A shortcut has properties of its own, which are what there is to edit. What could not be written
// is asked for again, as it was typed.
void frmStartupManager::Edit() {
  std::size_t row = 0;
  if (!Selected(&row)) return;
  const std::string shortcut = manager_.ShortcutOf(row);
  if (!shortcut.empty()) {
    env_.log.Trap(kMenuMethod, [&] { return tools_.shell().ShowProperties(shortcut); });
    return;
  }
  if (!manager_.MayEdit(row)) return;
  const Entry& entry = manager_.entry(row);
  std::string name = entry.name;
  std::string command = manager_.EditedCommand(row);
  for (bool edited = false; !edited; ShowResult()) {
    frmAddTask dialog(env_, Caption::EditEntryTitle);
    dialog.AddPlace(manager_.PlaceName(*entry.place));
    dialog.SetEntry(name, command);
    if (!dialog.Ask(hwnd())) return;
    name = dialog.name();
    command = dialog.program();
    edited = manager_.Edit(row, name, command);
    ChooseRow(row);
  }
}

void frmStartupManager::AddTask() {
  const std::vector<const StartupLocation*> places = manager_.TaskPlaces();
  std::string name;
  std::string program;
  std::size_t chosen = 0;
  for (bool added = false; !added; ShowResult()) {
    frmAddTask dialog(env_, Caption::AddTaskTitle);
    for (const StartupLocation* place : places) dialog.AddPlace(manager_.PlaceName(*place));
    dialog.SetPlace(chosen);
    dialog.SetEntry(name, program);
    if (!dialog.Ask(hwnd())) return;
    chosen = dialog.place();
    name = dialog.name();
    program = dialog.program();
    added = manager_.AddTask(*places[chosen], name, program);
  }
}

void frmStartupManager::SaveProfile() {
  const std::string path =
      AskForFile(hwnd(), FileDialog::Save, Text(Caption::ProfileTypes), kExtension);
  if (path.empty()) return;
  manager_.SaveProfile(path);
  ShowResult();
}

void frmStartupManager::LoadProfile() {
  const std::string path =
      AskForFile(hwnd(), FileDialog::Open, Text(Caption::ProfileTypes), kExtension);
  if (path.empty()) return;
  manager_.LoadProfile(path);
  ShowResult();
}

}  // namespace scourwell
