// SPDX-License-Identifier: MIT
#include "shell/frm_home.h"

#include <algorithm>

#include "platform/security_descriptor.h"
#include "results/row_rights.h"
#include "widgets/access_keys.h"
#include "widgets/resource.h"

namespace scourwell {
namespace {

struct FactRow {
  int caption_id;
  int value_id;
  Caption caption;
};
constexpr FactRow kRows[] = {
    {IDC_lblScansCaption, IDC_lblScans, Caption::NumberOfScans},
    {IDC_lblLastScanCaption, IDC_lblLastScan, Caption::LastScan},
    {IDC_lblRemovedCaption, IDC_lblRemoved, Caption::ObjectsRemoved},
    {IDC_lblLanguageCaption, IDC_lblLanguage, Caption::CurrentLanguage},
    {IDC_lblDefinitionsCaption, IDC_lblDefinitions, Caption::DefinitionsNumber},
};
constexpr int kStatistics = 3;  // the first rows
constexpr int kTaskPicture = 48;
constexpr int kCompanionPicture = 32;

}  // namespace

frmHome::frmHome(const WindowEnv& env, Application& app, FormHost& host)
    : Page(env, "frmHome"),
      app_(app),
      host_(host),
      header_(env, HeaderPane::Size::Large, {IDC_lblWelcome, IDC_lblWelcomeText, 0}) {}

void frmHome::OnCreate() {
  header_.Create(hwnd(), IDC_HomeHeader);
  tip_.Create(env_, hwnd());
  for (int i = 0; i < kTasks; ++i) {
    const StartPageButton& row = kTaskPictures[i];
    tasks_[i].Create(env_, hwnd(), row.control, {}, row.icon, kTaskPicture);
  }
  tasks_[0].SetFont(metrics().bold());
  lblResults_.Create(env_, hwnd(), IDC_lblResultsHeading);
  lblComputer_.Create(env_, hwnd(), IDC_lblComputerHeading);
  for (int i = 0; i < kFacts; ++i) {
    facts_[i].caption.Create(env_, hwnd(), kRows[i].caption_id);
    facts_[i].value.Create(env_, hwnd(), kRows[i].value_id);
  }
  lblRights_.Create(env_, hwnd(), IDC_lblRights, {}, SS_LEFT);
  lblFolderOpen_.Create(env_, hwnd(), IDC_lblFolderOpen, {}, SS_LEFT);
  for (int i = 0; i < kLinkCount; ++i) links_[i].Create(env_, hwnd(), kLinks[i].control, {});
  lblCompanions_.Create(env_, hwnd(), IDC_lblCompanionsHeading);
  for (int i = 0; i < kCompanions; ++i) {
    const StartPageButton& row = kCompanionPictures[i];
    companions_[i].Create(env_, hwnd(), row.control, {}, row.icon, kCompanionPicture);
  }
  lblCompanionsFolder_.Create(env_, hwnd(), IDC_lblCompanionsFolder, {}, SS_LEFT);
  for (const Label* heading : {&lblResults_, &lblComputer_, &lblCompanions_}) {
    heading->SetFont(metrics().bold());
  }
}

void frmHome::Refresh() {
  header_.SetHeading(Text(Caption::Welcome));
  header_.SetText(
      Text(app_.settings().AutoRemove ? Caption::WelcomeAutoRemove : Caption::WelcomeHint));
  lblResults_.SetText(Text(Caption::LastResults));
  lblComputer_.SetText(Text(Caption::YourComputer));
  lblRights_.SetText(Text(Caption::HintAdministrator));
  lblRights_.Show(!HasAllRights(app_.ports().registry));
  lblFolderOpen_.SetText(Text(Caption::FolderIsOpen));
  lblFolderOpen_.Show(LetsEveryUserChange(app_.ports().files.Security(app_.folders().application)));
  lblCompanions_.SetText(Text(Caption::CompanionPrograms));
  lblCompanionsFolder_.SetText(Text(Caption::CompanionsBelongIn) + " " +
                               app_.folders().application);
  RefreshButtons();
  RefreshFacts();
  Arrange();
}

void frmHome::RefreshButtons() {
  AccessKeys keys({Text(Caption::MenuScan), Text(Caption::MenuTools), Text(Caption::MenuHelp)});
  const auto refresh = [&](DrawnButton& button, const StartPageButton& row) {
    const std::string hindrance = host_.Hindrance(row.command);
    button.SetText(keys.Add(Text(row.caption)));
    button.SetFaded(!hindrance.empty());
    tip_.Set(button.hwnd(), hindrance.empty() && row.tip ? Text(*row.tip) : hindrance);
  };
  for (int i = 0; i < kTasks; ++i) refresh(tasks_[i], kTaskPictures[i]);
  for (int i = 0; i < kLinkCount; ++i) refresh(links_[i], kLinks[i]);
  present_.clear();
  for (int i = 0; i < kCompanions; ++i) {
    refresh(companions_[i], kCompanionPictures[i]);
    const bool there = host_.Hindrance(kCompanionPictures[i].command).empty();
    companions_[i].Show(there);
    if (there) present_.push_back(&companions_[i]);
  }
}

void frmHome::RefreshFacts() {
  Statistics& statistics = app_.statistics();
  const std::string values[kFacts] = {
      statistics.getNumberOfScans(), statistics.getLastSystemScanDate(),
      statistics.getNumberOfObjectsRemoved(), app_.language().Name(), DefinitionsNumber()};
  for (int i = 0; i < kFacts; ++i) {
    facts_[i].caption.SetText(Text(kRows[i].caption));
    facts_[i].value.SetText(values[i]);
  }
}

std::string frmHome::DefinitionsNumber() {
  const std::string number = app_.reference().updateListfromINI("SETTINGS", "UPDATE-FILE-NUMBER");
  if (!number.empty()) return number;
  const bool readable = app_.reference().readable();
  return readable ? "0-0-0-0" : "0-0-0-0 (" + Text(Caption::BuiltInDefinitionsOnly) + ")";
}

int frmHome::CaptionWidth() const {
  int width = 0;
  for (const Fact& fact : facts_) width = std::max(width, metrics().TextWidth(fact.caption.Text()));
  return width + metrics().Scale(16);
}

void frmHome::OnSize(Area) { Arrange(); }

// A page that is too low does without its header first, then it scrolls.
void frmHome::Arrange() {
  if (!tip_.hwnd()) return;
  const Area view = ClientArea();
  bool header = true;
  int needed = 0;
  {
    Layout trial(Layout::kMeasure);
    needed = LayOut(trial, view, true);
    if (needed > view.height()) {
      header = false;
      needed = LayOut(trial, view, false);
    }
  }
  scroll_.Fit(hwnd(), needed, view.height());
  Area area = ClientArea();
  area.top = -scroll_.position();
  header_.Show(header);
  Layout layout;
  LayOut(layout, area, header);
  InvalidateRect(hwnd(), nullptr, TRUE);
}

int frmHome::LayOut(Layout& layout, Area area, bool header) {
  const int margin = metrics().Margin();
  const int start = area.top;
  rule_ = 0;
  if (header) layout.Place(header_.hwnd(), area.CutTop(header_.Height()));
  Area inner = area.Shrunk(margin, 0);
  inner.top += margin;
  PictureButton* const tasks[] = {&tasks_[0], &tasks_[1], &tasks_[2], &tasks_[3]};
  static_assert(std::size(tasks) == kTasks);
  LayOutPictures(layout, &inner, tasks);
  inner.CutTop(margin);
  LayOutHeading(layout, &inner, lblResults_);
  LayOutFacts(layout, &inner, 0, kStatistics);
  inner.CutTop(margin);
  LayOutHeading(layout, &inner, lblComputer_);
  LayOutFacts(layout, &inner, kStatistics, kFacts);
  for (const Label* hint : {&lblRights_, &lblFolderOpen_}) {
    if (hint->Shown()) LayOutText(layout, &inner, *hint);
  }
  inner.CutTop(metrics().Scale(4));
  LayOutLinks(layout, &inner);
  inner.CutTop(margin);
  LayOutHeading(layout, &inner, lblCompanions_);
  LayOutText(layout, &inner, lblCompanionsFolder_);
  LayOutPictures(layout, &inner, present_);
  return inner.top + metrics().Gap() - start;
}

// They take as many rows as their longest words ask for.
void frmHome::LayOutPictures(Layout& layout, Area* area, std::span<PictureButton* const> pictures) {
  if (pictures.empty()) return;
  const auto count = static_cast<int>(pictures.size());
  int least = 0;
  for (const PictureButton* each : pictures) least = std::max(least, each->LeastWidth());
  const int most = std::clamp(area->width() / least, 1, count);
  const int rows = (count + most - 1) / most;
  const int columns = (count + rows - 1) / rows;
  const int width = std::min(std::max(metrics().Scale(112), least), area->width() / columns);
  int height = 0;
  for (const PictureButton* each : pictures) height = std::max(height, each->HeightFor(width));
  Area row;
  int column = 0;
  for (const PictureButton* each : pictures) {
    if (column == 0) row = area->CutTop(height);
    layout.Place(*each, row.CutLeft(width));
    column = (column + 1) % columns;
  }
}

// In as many lines as it takes.
void frmHome::LayOutText(Layout& layout, Area* area, const Label& text) {
  const int width = area->width() - metrics().Gap();
  Area row = area->CutTop(metrics().TextHeight(text.Text(), width) + metrics().Scale(4));
  row.CutLeft(metrics().Gap());
  layout.Place(text, row);
}

// The heading with a rule to its right.
void frmHome::LayOutHeading(Layout& layout, Area* area, const Label& heading) {
  Area row = area->CutTop(metrics().LineHeight(metrics().bold()));
  const int width = metrics().TextWidth(metrics().bold(), heading.Text()) + metrics().Scale(2);
  layout.Place(heading, row.CutLeft(std::min(width, row.width())));
  row.CutLeft(metrics().Gap());
  row.CutTop(row.height() / 2);
  rules_[rule_++] = row;
  area->CutTop(metrics().Scale(4));
}

void frmHome::LayOutFacts(Layout& layout, Area* area, int first, int end) {
  const int width = CaptionWidth();
  for (int i = first; i < end; ++i) {
    Area row = area->CutTop(metrics().LineHeight() + metrics().Scale(3));
    row.CutLeft(metrics().Gap());
    layout.Place(facts_[i].caption, row.CutLeft(width));
    layout.Place(facts_[i].value, row);
  }
}

// Side by side while they fit.
void frmHome::LayOutLinks(Layout& layout, Area* area) {
  Area row = area->CutTop(links_[0].height());
  row.CutLeft(metrics().Scale(4));
  for (const LinkLabel& link : links_) {
    if (link.width() > row.width() && row.left > area->left + metrics().Gap()) {
      row = area->CutTop(link.height());
      row.CutLeft(metrics().Scale(4));
    }
    layout.Place(link, row.CutLeft(std::min(link.width(), row.width())));
    row.CutLeft(metrics().Margin());
  }
}

void frmHome::OnPaint(HDC dc) {
  for (const Area& rule : rules_) {
    RECT line = rule.rect();
    line.bottom = line.top + 2;
    if (line.right > line.left) DrawEdge(dc, &line, EDGE_ETCHED, BF_TOP);
  }
}

LRESULT frmHome::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
  if (scroll_.OnMessage(hwnd(), message, wparam, metrics().LineHeight())) {
    Arrange();
    return 0;
  }
  if (message == WM_COMMAND && HIWORD(wparam) == BN_SETFOCUS &&
      scroll_.Reveal(hwnd(), reinterpret_cast<HWND>(lparam))) {
    Arrange();
  }
  return Page::OnMessage(message, wparam, lparam);
}

bool frmHome::OnCommand(int id) {
  const auto carry = [&](const auto& rows) {
    for (const StartPageButton& row : rows) {
      if (row.control == id) return host_.PostCommand(row.command, row.method), true;
    }
    return false;
  };
  return carry(kTaskPictures) || carry(kLinks) || carry(kCompanionPictures);
}

}  // namespace scourwell
