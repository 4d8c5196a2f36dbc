// SPDX-License-Identifier: MIT
#include "scan/progress_pane.h"

#include <algorithm>

#include "scan/finding_texts.h"
#include "text/text.h"
#include "widgets/image_list.h"
#include "widgets/resource.h"

namespace scourwell {
namespace {

// One line of the summary: what was looked at, what of it was found.
struct SummaryKind {
  int caption_id;
  int scanned_id;
  int infected_id;
  Caption caption;
  FindingKind kind;
  std::uint32_t ScanProgress::*scanned;
  std::int16_t HitCounters::*infected;
};
constexpr SummaryKind kSummary[] = {
    {IDC_lblFiles, IDC_lblFilesScanned, IDC_lblFilesInfected, Caption::SummaryFiles,
     FindingKind::File, &ScanProgress::scanned_files, &HitCounters::files},
    {IDC_lblFolders, IDC_lblFoldersScanned, IDC_lblFoldersInfected, Caption::SummaryFolders,
     FindingKind::Folder, &ScanProgress::scanned_folders, &HitCounters::folders},
    {IDC_lblKeys, IDC_lblKeysScanned, IDC_lblKeysInfected, Caption::SummaryRegistryKeys,
     FindingKind::RegistryKey, &ScanProgress::scanned_keys, &HitCounters::registry},
    {IDC_lblProcesses, IDC_lblProcessesScanned, IDC_lblProcessesInfected, Caption::SummaryProcesses,
     FindingKind::Process, &ScanProgress::scanned_processes, &HitCounters::processes},
};
constexpr int kPicture = 16;
constexpr char kWidestTime[] = " 00:00:00";

std::string PercentText(int percent) { return percent < 0 ? "" : std::to_string(percent) + " %"; }

}  // namespace

ProgressPane::ProgressPane(const WindowEnv& env, const ScanProgress& progress,
                           const HitCounters& found, Clock& clock)
    : Pane(env, "ScourwellProgress"),
      progress_(progress),
      found_(found),
      clock_(clock),
      header_(env, HeaderPane::Size::Small,
              {IDC_lblScanHeading, IDC_lblScanStatus, IDC_lblElapsed, IDC_lblRemaining}),
      activity_(env) {}

void ProgressPane::OnCreate() {
  header_.Create(hwnd(), IDC_ScanHeader);
  lblScanOption_.Create(env_, hwnd(), IDC_lblScanOption);
  prgLoading_.Create(env_, hwnd(), IDC_prgLoading);
  prgLoading_.Show(false);
  activity_.Create(hwnd(), IDC_ActivityBar);
  lblPercent_.Create(env_, hwnd(), IDC_lblPercent, DT_RIGHT | DT_VCENTER);
  lblCurrentItem_.Create(env_, hwnd(), IDC_lblCurrentItem);
  lblScan_.Create(env_, hwnd(), IDC_lblScan, DT_PATH_ELLIPSIS);
  lblSFoldersCaption_.Create(env_, hwnd(), IDC_lblSFoldersCaption);
  lblSFolders_.Create(env_, hwnd(), IDC_lblSFolders);
  lblFScanCaption_.Create(env_, hwnd(), IDC_lblFScanCaption);
  lblFScan_.Create(env_, hwnd(), IDC_lblFScan);
  CreateSummary();
  cmdAbort_.Create(env_, hwnd(), IDC_cmdAbort, "");
  cmdNext_.Create(env_, hwnd(), IDC_cmdNext, "");
  cmdCancel_.Create(env_, hwnd(), IDC_cmdCancel, "");
  cmdAbort_.Enable(false);
  cmdNext_.Enable(false);
  images_ = LoadScaledImageList(env_, IDB_Kinds16, kPicture);
  SetCaptions();
}

void ProgressPane::CreateSummary() {
  lblScanSummary_.Create(env_, hwnd(), IDC_lblScanSummary);
  lblScanSummary_.SetFont(metrics().bold());
  lblScanned_.Create(env_, hwnd(), IDC_lblScanned, DT_RIGHT);
  lblInfected_.Create(env_, hwnd(), IDC_lblInfected, DT_RIGHT);
  for (int i = 0; i < kRows; ++i) {
    const SummaryKind& kind = kSummary[i];
    rows_[i].caption.Create(env_, hwnd(), kind.caption_id);
    rows_[i].scanned.Create(env_, hwnd(), kind.scanned_id, DT_RIGHT | DT_VCENTER);
    rows_[i].infected.Create(env_, hwnd(), kind.infected_id, DT_RIGHT | DT_VCENTER);
  }
  lblDetectedCaption_.Create(env_, hwnd(), IDC_lblDetectedCaption);
  lblDetectedCaption_.SetFont(metrics().bold());
  lblDetected_.Create(env_, hwnd(), IDC_lblDetected, DT_RIGHT | DT_VCENTER);
  lblDetected_.SetFont(metrics().bold());
}

void ProgressPane::SetCaptions() {
  header_.SetHeading(Text(Caption::ScanningForSpyware));
  header_.ReserveRight(Text(Caption::ElapsedTime) + kWidestTime,
                       Text(Caption::RemainingTime) + kWidestTime);
  prgLoading_.SetName(Text(Caption::LoadingDefinitions));
  activity_.SetName(Text(Caption::ScanInProgress));
  lblCurrentItem_.SetText(Text(Caption::CurrentItem));
  lblSFoldersCaption_.SetText(Text(Caption::FoldersEntered));
  lblFScanCaption_.SetText(Text(Caption::FoldersSearched));
  lblScanSummary_.SetText(Text(Caption::ScanSummary));
  lblScanned_.SetText(Text(Caption::SummaryScanned));
  lblInfected_.SetText(Text(Caption::SummaryInfected));
  for (int i = 0; i < kRows; ++i) rows_[i].caption.SetText(Text(kSummary[i].caption));
  lblDetectedCaption_.SetText(Text(Caption::DetectedComponents));
  cmdAbort_.SetCaption(metrics(), Text(Caption::StopScan));
  cmdNext_.SetCaption(metrics(), Text(Caption::NextPage));
  cmdCancel_.SetCaption(metrics(), Text(Caption::Cancel));
}

void ProgressPane::LanguageChanged() {
  SetCaptions();
  if (ended_) ShowEnd();
  OnSize(ClientArea());
}

void ProgressPane::OnSize(Area area) {
  Layout layout;
  layout.Place(header_.hwnd(), area.CutTop(header_.Height()));
  Area inner = area.Shrunk(metrics().Margin(), metrics().Margin());
  LayOutButtons(layout, inner.CutBottom(metrics().ButtonHeight()));
  LayOutProgress(layout, &inner);
  inner.CutTop(metrics().Margin());
  LayOutSummary(layout, &inner);
}

void ProgressPane::LayOutProgress(Layout& layout, Area* area) {
  const int line = metrics().LineHeight();
  const int gap = metrics().Scale(5);
  layout.Place(lblScanOption_, area->CutTop(line));
  area->CutTop(gap);
  Area bar = area->CutTop(std::max(metrics().Scale(15), line));
  layout.Place(lblPercent_, bar.CutRight(metrics().TextWidth(PercentText(100)) + metrics().Gap()));
  layout.Place(prgLoading_, bar);
  layout.Place(activity_.hwnd(), bar);
  area->CutTop(gap + metrics().Scale(2));
  Area item = area->CutTop(line);
  layout.Place(lblCurrentItem_,
               item.CutLeft(metrics().TextWidth(lblCurrentItem_.Text()) + metrics().Gap()));
  layout.Place(lblScan_, item);
  area->CutTop(gap);
  Area counters = area->CutTop(line);
  Area right = counters.CutRight(counters.width() / 2);
  layout.Place(lblSFoldersCaption_,
               counters.CutLeft(metrics().TextWidth(lblSFoldersCaption_.Text()) + metrics().Gap()));
  layout.Place(lblSFolders_, counters);
  layout.Place(lblFScanCaption_,
               right.CutLeft(metrics().TextWidth(lblFScanCaption_.Text()) + metrics().Gap()));
  layout.Place(lblFScan_, right);
}

int ProgressPane::PictureSize() const { return kPicture * metrics().PictureFactor(); }

int ProgressPane::NumberWidth() const {
  return std::max({metrics().TextWidth(lblScanned_.Text()),
                   metrics().TextWidth(lblInfected_.Text()), metrics().Scale(70)}) +
         metrics().Margin();
}

void ProgressPane::LayOutSummary(Layout& layout, Area* area) {
  const int heading = metrics().LineHeight(metrics().bold());
  const int inset = metrics().Gap();
  row_height_ = std::max(metrics().LineHeight(), PictureSize()) + metrics().Scale(3);
  const int number = NumberWidth();
  Area table = area->CutTop(heading + (kRows + 1) * row_height_ + 3 * metrics().Scale(4));
  table.right = std::min(table.right, table.left + metrics().Scale(520));
  summary_ = table;
  Area top = table.CutTop(heading);
  layout.Place(lblInfected_, top.CutRight(number));
  layout.Place(lblScanned_, top.CutRight(number));
  layout.Place(lblScanSummary_, top);
  table.CutTop(2 * metrics().Scale(4));
  icon_rows_ = table.top;
  const int lower = (row_height_ - metrics().LineHeight()) / 2;
  for (SummaryRow& each : rows_) {
    Area row = table.CutTop(row_height_);
    layout.Place(each.infected, row.CutRight(number));
    layout.Place(each.scanned, row.CutRight(number));
    row.CutLeft(PictureSize() + 2 * inset);
    row.CutTop(lower);
    layout.Place(each.caption, row);
  }
  table.CutTop(metrics().Scale(4));
  Area total = table.CutTop(row_height_);
  layout.Place(lblDetected_, total.CutRight(number));
  total.CutTop(lower);
  layout.Place(lblDetectedCaption_, total);
}

void ProgressPane::LayOutButtons(Layout& layout, Area area) {
  layout.Place(cmdCancel_, area.CutRight(cmdCancel_.width()));
  area.CutRight(metrics().Gap());
  layout.Place(cmdNext_, area.CutRight(cmdNext_.width()));
  layout.Place(cmdAbort_, area.CutLeft(cmdAbort_.width()));
}

// The pictures of the summary's rows and the rules above and below them.
void ProgressPane::OnPaint(HDC dc) {
  const int inset = metrics().Gap();
  const int rows_end = icon_rows_ + kRows * row_height_;
  for (int y : {icon_rows_ - metrics().Scale(4), rows_end + metrics().Scale(1)}) {
    RECT rule = {summary_.left, y, summary_.right, y + 2};
    DrawEdge(dc, &rule, EDGE_ETCHED, BF_TOP);
  }
  for (int i = 0; i < kRows; ++i) {
    const int y = icon_rows_ + i * row_height_ + (row_height_ - PictureSize()) / 2;
    ImageList_Draw(images_.get(), KindIcon(kSummary[i].kind), dc, summary_.left + inset, y,
                   ILD_NORMAL);
  }
}

void ProgressPane::ScanBegan() {
  began_ = clock_.Ticks();
  time_left_.Restart();
  cmdAbort_.Enable(true);
  cmdNext_.Enable(false);
  activity_.SetState(ActivityBar::State::Moving);
}

void ProgressPane::ScanEnded(bool finished) {
  Refresh();
  cmdAbort_.Enable(false);
  cmdNext_.Enable(true);
  activity_.SetState(finished ? ActivityBar::State::Done : ActivityBar::State::Idle);
  lblPercent_.SetText(finished ? PercentText(100) : "");
  header_.SetRightBelow("");
  ended_ = true;
  finished_ = finished;
  ShowEnd();
}

void ProgressPane::ShowEnd() {
  const std::string state = Text(finished_ ? Caption::ScanFinished : Caption::ScanStopped);
  header_.SetText(state);
  lblScanOption_.SetText(state);
  if (finished_) lblScan_.SetText(state);
  ShowElapsed();
}

void ProgressPane::ShowMissing(const std::string& path) {
  header_.SetText(Text(Caption::ScanPathMissing) + " " + path);
  lblScan_.SetText(path);
  RefreshSummary();
}

void ProgressPane::Refresh() {
  header_.SetText(progress_.lblScanStatus);
  RefreshTimes();
  lblScanOption_.SetText(progress_.loading ? Text(Caption::LoadingDefinitions)
                                           : progress_.lblScanOption);
  lblScan_.SetText(progress_.lblScan);
  lblSFolders_.SetText(std::to_string(progress_.lblSFolders));
  lblFScan_.SetText(std::to_string(progress_.lblFScan));
  RefreshBars();
  RefreshSummary();
}

void ProgressPane::RefreshBars() {
  if (progress_.loading) {
    prgLoading_.SetRange(progress_.load_maximum);
    prgLoading_.SetPosition(progress_.load_done);
  }
  if (prgLoading_.Shown() != progress_.loading) {
    prgLoading_.Show(progress_.loading);
    activity_.Show(!progress_.loading);
  }
  lblPercent_.SetText(PercentText(progress_.Percentage()));
  activity_.Step(progress_.Percentage());
}

void ProgressPane::RefreshTimes() {
  const std::uint32_t now = clock_.Ticks();
  elapsed_ = now - began_;
  ShowElapsed();
  time_left_.Update(now, progress_.phase);
  const auto left = time_left_.Seconds();
  header_.SetRightBelow(left ? Text(Caption::RemainingTime) + " " + ClockText(*left) : "");
}

void ProgressPane::ShowElapsed() {
  header_.SetRight(Text(Caption::ElapsedTime) + " " + ClockText(elapsed_ / 1000));
}

void ProgressPane::RefreshSummary() {
  for (int i = 0; i < kRows; ++i) {
    rows_[i].scanned.SetText(std::to_string(progress_.*kSummary[i].scanned));
    rows_[i].infected.SetText(std::to_string(found_.*kSummary[i].infected));
  }
  lblDetected_.SetText(std::to_string(found_.Total()));
}

HWND ProgressPane::FirstFocus() const {
  if (cmdAbort_.enabled()) return cmdAbort_.hwnd();
  return cmdNext_.enabled() ? cmdNext_.hwnd() : cmdCancel_.hwnd();
}

}  // namespace scourwell
