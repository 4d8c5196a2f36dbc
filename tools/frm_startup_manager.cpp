#include "tools/frm_startup_manager.h"

#include "tools/frm_add_task.h"
#include "widgets/file_dialog.h"
#include "widgets/message_box.h"
#include "widgets/resource.h"

namespace scourwell {
namespace {

constexpr char kMenuMethod[] = "FRM Startup - Menu_Click";
constexpr char kExtension[] = "Pro";

struct MenuEntry {
  int group;  // caption of the menu that it begins; 0: goes on
  int id;
  int caption;
};
constexpr MenuEntry kMenu[] = {
    {17206, IDM_keyEdit, 17207},     {0, IDM_keyAutoexec, 17209}, {0, IDM_keyConfig, 17210},
    {0, IDM_keyRegistry, 17208},     {17211, IDM_keySave, 17212}, {0, IDM_keyLoad, 17213},
    {17214, IDM_keyResetAll, 17215}, {0, IDM_keyAddTask, 17216},
};

}  // namespace

frmStartupManager::frmStartupManager(const WindowEnv& env, ToolBox& tools)
    : frmEntries(env, "frmStartupManager", "FRM Startup - ", tools, {1744, 17244, 17237}),
      manager_(tools.entry_needs()) {}

std::span<const int> frmStartupManager::ColumnCaptions() const {
  return StartupManager::ColumnCaptions();
}

std::span<const frmTool::Column> frmStartupManager::Columns() const {
  static constexpr Column kColumns[] = {{120, false}, {60, false},  {165, false},
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
  static constexpr Command kCommands[] = {
      {IDC_cmdDisable, 17221}, {IDC_cmdToolRemove, 17223}, {IDC_cmdApply, 17224}};
  return kCommands;
}

HMENU frmStartupManager::Menu() {
  HMENU bar = CreateMenu();
  HMENU group = nullptr;
  for (const MenuEntry& entry : kMenu) {
    if (entry.group != 0) {
      group = CreatePopupMenu();
      Calls().Append(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(group), Text(entry.group));
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
  std::size_t row = 0;
  if (Selected(&row)) manager_.cmdRemove_Click(row);
  return ShowResult(), true;
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

// A shortcut has properties of its own, which are what there is to edit.
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
  frmAddTask dialog(env_, 17249);
  dialog.AddPlace(manager_.PlaceName(*entry.place));
  dialog.SetEntry(entry.name, manager_.EditedCommand(row));
  if (!dialog.Ask(hwnd())) return;
  manager_.Edit(row, dialog.name(), dialog.program());
  ShowResult();
}

void frmStartupManager::AddTask() {
  frmAddTask dialog(env_, 17248);
  const std::vector<const StartupLocation*> places = manager_.TaskPlaces();
  for (const StartupLocation* place : places) dialog.AddPlace(manager_.PlaceName(*place));
  if (!dialog.Ask(hwnd())) return;
  manager_.AddTask(*places[dialog.place()], dialog.name(), dialog.program());
  ShowResult();
}

void frmStartupManager::SaveProfile() {
  const std::string path = AskForFile(hwnd(), FileDialog::Save, Text(17245), kExtension);
  if (path.empty()) return;
  manager_.SaveProfile(path);
  ShowResult();
}

void frmStartupManager::LoadProfile() {
  const std::string path = AskForFile(hwnd(), FileDialog::Open, Text(17245), kExtension);
  if (path.empty()) return;
  manager_.LoadProfile(path);
  ShowResult();
}

}  // namespace scourwell
