// SPDX-License-Identifier: MIT
#include "shell/frm_main.h"

#include "machine/counting.h"
#include "machine/file_utils.h"
#include "machine/reasons.h"
#include "platform/win/single_instance.h"
#include "shell/frm_splash.h"
#include "widgets/layout.h"
#include "widgets/message_box.h"
#include "widgets/pointers.h"
#include "widgets/resource.h"
#include "widgets/window_place.h"

namespace scourwell {
namespace {

constexpr UINT_PTR kTimer1 = 1;
constexpr UINT kUpdateDelay = 1500;  // milliseconds
// Pixels that a page keeps, whatever else would like to stand beside it.
constexpr int kLeastHome = 290;
constexpr int kLeastScan = 440;

// Only top-level windows hear of new colours, but the common controls keep copies of them.
BOOL CALLBACK ForwardColours(HWND window, LPARAM) {
  Calls().Send(window, WM_SYSCOLORCHANGE, 0, 0);
  return TRUE;
}

}  // namespace

frmMain::frmMain(Application& app, PumpWin& pump, HINSTANCE instance)
    : Window(shared_, kName),
      shared_{instance, metrics_, app.log(), app.language()},
      app_(app),
      pump_(pump),
      help_(app.ports().files, app.ports().shell, app.log(), app.language(),
            app.folders().application),
      tree_(shared_, app.scope()) {
  shared_.kept = &app.kept();
  shared_.help = [this](const char* window) { help_.ShowPage(window); };
}

int frmMain::Run(const CommandLine& command, int show) {
  const Outcome loaded = app_.log().TrapOutcome("MDIForm_Load", [&] { Load(command, show); });
  if (!loaded.ok()) {
    ShowMessage(Text(Caption::CouldNotStart) + "\r\n" + ReasonText(app_.language(), loaded),
                Text(Caption::Error), MB_ICONERROR);
    return 1;
  }
  return pump_.Run();
}

void frmMain::Load(const CommandLine& command, int show) {
  InitCommonControls();
  keys_.Load(shared_.instance, IDA_Main);
  Frame frame;
  frame.style = WS_OVERLAPPEDWINDOW;
  frame.place = FirstPlace();
  frame.title = app_.Title();
  wanted_.Add(command);
  started_plainly_ = command.kind == CommandLine::Kind::Normal;
  CreateHandle(frame);
  ReceiveRequests(hwnd());
  ReceiveFiles(hwnd());
  app_.ReadLanguage();
  frmSplash splash(shared_, app_);
  splash.ShowModal(hwnd());
  app_.Start();
  app_.FillTree();
  tree_.FillTree();
  CreateMenu();
  FillSideMenu();
  pump_.translate = [this](MSG* message) { return keys_.Translate(hwnd(), page(), message); };
  OpenFirstPage();
  ShowTitle();
  ShowComplete(show);
  splash.Close();
  ready_ = true;
  if (wanted_.TakeEverything()) static_cast<void>(StartScan());
  SetTimer(hwnd(), kTimer1, kUpdateDelay, nullptr);
}

void frmMain::OpenFirstPage() {
  if (wanted_.HasPaths()) {
    OpenFolders(frmScanSpy::First::Scan);
  } else {
    static_cast<void>(ShowHome());
  }
}

void frmMain::OnCreate() {
  sbrMain_.Create(shared_, hwnd(), IDC_StatusBar);
  MenuXP1_.Create(shared_, hwnd(), IDC_MenuXP1);
  MenuXP1_.on_command = [this](int id) { PostCommand(id, "MenuXP1_Click"); };
  tree_.Create(hwnd(), IDC_frmTree);
  CLIENTCREATESTRUCT create = {nullptr, IDC_FirstPage};
  NewWindow made;
  made.window_class = "MDICLIENT";
  made.style = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | MDIS_ALLCHILDSTYLES;
  made.ex_style = WS_EX_CONTROLPARENT;
  made.parent = hwnd();
  made.id_or_menu = reinterpret_cast<HMENU>(IDC_MdiClient);
  made.instance = shared_.instance;
  made.parameter = &create;
  client_ = Calls().Create(made);
  if (!client_) throw std::runtime_error("The window could not be created: MDICLIENT");
}

LRESULT frmMain::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_SIZE:
      // The frame's own answer would spread the pages under the tree and the status bar.
      if (wparam != SIZE_MINIMIZED) OnSize(ClientArea());
      return 0;
    case WM_GETMINMAXINFO: {
      const SIZE smallest = SmallestSize();
      reinterpret_cast<MINMAXINFO*>(lparam)->ptMinTrackSize = {smallest.cx, smallest.cy};
      return 0;
    }
    case WM_ACTIVATE:
      if (LOWORD(wparam) == WA_INACTIVE) focus_.Note(hwnd());
      break;
    case WM_SETFOCUS:
      focus_.Restore(hwnd(), PageFocus());
      return 0;
    case WM_ENABLE:
      // Closing had to wait for a message box.
      if (wparam && close_wanted_) Calls().Post(hwnd(), WM_CLOSE, 0, 0);
      break;
    case WM_SYSCOLORCHANGE:
      EnumChildWindows(hwnd(), ForwardColours, 0);
      break;
    case WM_DEVICECHANGE:
      drives_changed_ = true;
      FollowDrives();
      break;
    case WM_SETCURSOR:
      if (!app_.progress().loading || LOWORD(lparam) != HTCLIENT) break;
      SetCursor(SystemPointer(kBusyPointer));
      return TRUE;
    case WM_COPYDATA:
      return TakeRequest(wparam, lparam);
    case WM_DROPFILES:
      return TakeFiles(wparam);
    case WM_CLOSE:
      Close();
      return 0;
    case WM_ENDSESSION:
      // The system ends the process next; pages may have procedures under way.
      if (wparam) {
        WindowPlace(shared_, kName).Keep(hwnd());
        pump_.set_closing(true);
        app_.Shutdown();
      }
      return 0;
    case WM_DESTROY:
      PostQuitMessage(0);
      return 0;
    default:
      break;
  }
  return Window::OnMessage(message, wparam, lparam);
}

LRESULT frmMain::Default(UINT message, WPARAM wparam, LPARAM lparam) {
  return Calls().FrameDefault(hwnd(), client_, message, wparam, lparam);
}

void frmMain::OnSize(Area area) {
  if (!client_) return;
  area.CutBottom(sbrMain_.Fit());
  {
    Layout layout;
    const bool tree = TreeFits(area.width());
    const bool side_menu = tree && SideMenuFits(area.width());
    if (side_menu) layout.Place(MenuXP1_, area.CutLeft(MenuXP1_.Width()));
    MenuXP1_.Show(side_menu);
    if (tree) layout.Place(tree_.hwnd(), area.CutLeft(tree_.Width()));
    tree_.Show(tree);
    layout.Place(client_, area);
  }
  FitPage();
}

void frmMain::OnTimer(UINT_PTR id) {
  if (id != kTimer1) return StartWantedScan();
  KillTimer(hwnd(), kTimer1);
  app_.log().Trap("Timer1_Timer", [&]() -> Outcome {
    if (!app_.settings().AutoCheckForUpdate) return {};
    return app_.companions().Start(Companion::Updater);
  });
  WelcomeNewUser();
  static_cast<void>(ShowChangeReport());
}

void frmMain::PageChanged() {
  const bool scanning = app_.busy();
  FollowDrives();
  EnableCommands();
  tree_.Enable(!scanning);
  ShowProgress();
  focus_.Move(hwnd(), PageFocus());
  if (close_wanted_ && !scanning) Calls().Post(hwnd(), WM_CLOSE, 0, 0);
  if (!scanning) PostCommand(IDM_mnuChangeReport);
}

void frmMain::ShowProgress() {
  ShowPointer();
  sbrMain_.SetPart(StatusBar::kState, Text(app_.scanning() ? Caption::Scanning : Caption::Ready));
  sbrMain_.SetPart(
      StatusBar::kFound,
      CountedText(shared_.captions, static_cast<std::uint64_t>(app_.hits().counters().Total()),
                  Caption::ComponentsFound));
  sbrMain_.SetPart(StatusBar::kLanguage, app_.language().StatusText());
  ShowTitle();
}

// The system asks for a pointer only when the mouse moves.
void frmMain::ShowPointer() {
  if (app_.progress().loading == shows_busy_) return;
  shows_busy_ = !shows_busy_;
  SetCursor(SystemPointer(shows_busy_ ? kBusyPointer : kArrowPointer));
}

// The percentage stands first: the button of a minimized window has room for little more.
void frmMain::ShowTitle() {
  const PhaseMeter& phase = app_.progress().phase;
  const int percent = app_.scanning() ? Percent(phase.done(), phase.total()) : -1;
  std::string title = app_.Title();
  if (percent >= 0) title = std::to_string(percent) + " % - " + title;
  if (title == title_) return;
  title_ = std::move(title);
  Calls().SetText(hwnd(), title_);
}

Page* frmMain::page() const {
  if (scan_) return scan_.get();
  return home_.get();
}

void frmMain::FitPage() {
  RECT area = {};
  GetClientRect(client_, &area);
  for (Page* each : {static_cast<Page*>(home_.get()), static_cast<Page*>(scan_.get())}) {
    if (each) MoveWindow(each->hwnd(), 0, 0, area.right, area.bottom, TRUE);
  }
}

// It waits while a scan is in front, and leaves a small screen to that.
bool frmMain::TreeFits(int width) const {
  return tree_wanted_ && (!scan_ || width >= tree_.Width() + metrics().Scale(kLeastScan));
}

// Its commands are in the menu bar, too.
bool frmMain::SideMenuFits(int width) const {
  return home_ && home_->Shown() &&
         width >= MenuXP1_.Width() + tree_.Width() + metrics().Scale(kLeastHome);
}

// No window may go while a scan or a message box still runs inside one of its procedures: both
// are asked to end, and closing goes on when they have.
void frmMain::Close() {
  close_wanted_ = true;
  if (app_.busy()) pump_.set_closing(true);
  if (!IsWindowEnabled(hwnd())) {
    HWND popup = GetLastActivePopup(hwnd());
    if (popup != hwnd()) Calls().Send(popup, WM_CLOSE, 0, 0);
    // It stays when the user wants to: then so does the program. The splash screen is nobody's
    // wish.
    if (!IsWindowEnabled(hwnd()) && !app_.busy() && ready_) close_wanted_ = false;
    return;
  }
  if (app_.busy()) return;
  Unload();
  DestroyWindow(hwnd());
}

void frmMain::Unload() {
  WindowPlace(shared_, kName).Keep(hwnd());
  if (!app_.busy()) {
    ShowWindow(hwnd(), SW_HIDE);
    scan_.reset();
    home_.reset();
    tree_.Destroy();
  }
  pump_.set_closing(true);
  app_.Shutdown();
}

}  // namespace scourwell
