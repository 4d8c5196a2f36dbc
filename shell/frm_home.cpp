#include "shell/frm_home.h"

#include <algorithm>

#include "widgets/layout.h"
#include "widgets/resource.h"

namespace scourwell {
namespace {

struct FactRow {
  int caption_id;
  int value_id;
  int caption;
};
constexpr FactRow kRows[] = {
    {IDC_lblScansCaption, IDC_lblScans, 1756},
    {IDC_lblLastScanCaption, IDC_lblLastScan, 1757},
    {IDC_lblRemovedCaption, IDC_lblRemoved, 1758},
    {IDC_lblLanguageCaption, IDC_lblLanguage, 1759},
    {IDC_lblDefinitionsCaption, IDC_lblDefinitions, 1760},
};
constexpr int kStatistics = 3;  // the first rows; a gap follows them

}  // namespace

frmHome::frmHome(const WindowEnv& env, Application& app, FormHost& host)
    : Page(env, "frmHome"),
      app_(app),
      host_(host),
      header_(env, HeaderPane::Size::Large, {IDC_lblWelcome, IDC_lblWelcomeText, 0}) {}

void frmHome::OnCreate() {
  header_.Create(hwnd(), IDC_HomeHeader);
  cmdStartScan_.Create(env_, hwnd(), IDC_cmdStartScan, Text(1702));
  cmdStartScan_.SetFont(metrics().bold());
  cmdScanFolder_.Create(env_, hwnd(), IDC_cmdScanFolder, Text(1719));
  for (int i = 0; i < kFacts; ++i) {
    facts_[i].caption.Create(env_, hwnd(), kRows[i].caption_id, Text(kRows[i].caption));
    facts_[i].value.Create(env_, hwnd(), kRows[i].value_id);
  }
  header_.SetHeading(Text(1754));
  header_.SetText(Text(1755));
}

void frmHome::Refresh() {
  Statistics& statistics = app_.statistics();
  const std::string values[kFacts] = {
      statistics.getNumberOfScans(), statistics.getLastSystemScanDate(),
      statistics.getNumberOfObjectsRemoved(), LanguageName(), DefinitionsNumber()};
  for (int i = 0; i < kFacts; ++i) facts_[i].value.SetText(values[i]);
}

std::string frmHome::DefinitionsNumber() {
  const std::string number = app_.reference().updateListfromINI("SETTINGS", "UPDATE-FILE-NUMBER");
  return number.empty() ? "0-0-0-0" : number;
}

// The pack's file name without ".ini".
std::string frmHome::LanguageName() const {
  const std::string& file = app_.settings().LanguageFile;
  return file.substr(0, file.size() - std::min<std::size_t>(file.size(), 4));
}

int frmHome::CaptionWidth() const {
  int width = 0;
  for (const FactRow& row : kRows) width = std::max(width, metrics().TextWidth(Text(row.caption)));
  return width + metrics().Scale(16);
}

void frmHome::OnSize(Area area) {
  Layout layout;
  layout.Place(header_.hwnd(), area.CutTop(header_.Height()));
  Area inner = area.Shrunk(metrics().WideMargin(), metrics().WideMargin());
  Area buttons = inner.CutTop(metrics().LineHeight() + metrics().Scale(20));
  const int width = std::max(
      {metrics().Scale(140), cmdStartScan_.width() + metrics().Scale(30), cmdScanFolder_.width()});
  layout.Place(cmdStartScan_, buttons.CutLeft(width));
  buttons.CutLeft(metrics().Margin());
  layout.Place(cmdScanFolder_, buttons.CutLeft(width));
  inner.CutTop(metrics().WideMargin());
  line_y_ = inner.top;
  inner.CutTop(metrics().Scale(16));
  const int caption_width = CaptionWidth();
  for (int i = 0; i < kFacts; ++i) {
    if (i == kStatistics) inner.CutTop(metrics().Margin());
    Area row = inner.CutTop(metrics().LineHeight() + metrics().Scale(5));
    layout.Place(facts_[i].caption, row.CutLeft(caption_width));
    layout.Place(facts_[i].value, row);
  }
}

void frmHome::OnPaint(HDC dc) {
  RECT line = ClientArea().Shrunk(metrics().WideMargin(), 0).rect();
  line.top = line_y_;
  line.bottom = line_y_ + 2;
  DrawEdge(dc, &line, EDGE_ETCHED, BF_TOP);
}

bool frmHome::OnCommand(int id) {
  if (id == IDC_cmdStartScan) return host_.PostCommand(IDM_mnuStartScan), true;
  if (id == IDC_cmdScanFolder) return host_.PostCommand(IDM_mnuScanFolder), true;
  return false;
}

}  // namespace scourwell
