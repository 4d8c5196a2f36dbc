// SPDX-License-Identifier: MIT
#include "results/frm_results.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "scan/finding_texts.h"
#include "widgets/access_keys.h"
#include "widgets/image_list.h"
#include "widgets/layout.h"
#include "widgets/path_cell.h"
#include "widgets/resource.h"

namespace scourwell {
namespace {

struct Line {
  Caption caption;
  std::int32_t RemovalCounters::*counter;
};
constexpr Line kLineTable[] = {
    {Caption::TotalFound, &RemovalCounters::total_found},
    {Caption::FilesRemoved, &RemovalCounters::files},
    {Caption::FoldersRemoved, &RemovalCounters::folders},
    {Caption::RegistryKeysRemoved, &RemovalCounters::registry},
    {Caption::CookiesRemoved, &RemovalCounters::cookies},
    {Caption::ProcessesEnded, &RemovalCounters::processes},
};
constexpr int kObjectLines = 14;  // of the list
constexpr int kFewestLines = 5;
constexpr int kPicture = 16;
constexpr Caption kColumns[] = {Caption::ColumnHitType, Caption::ColumnHitSystem,
                                Caption::ColumnHitDetails, Caption::ColumnState};

}  // namespace

frmResults::frmResults(const WindowEnv& env, const Removal& removal,
                       std::function<void()> save_report)
    : ModalWindow(env, "frmResults"),
      removal_(removal),
      summary_(env.captions, removal.report()),
      save_report_(std::move(save_report)),
      header_(env, HeaderPane::Size::Small, {IDC_lblRemovalHeading, IDC_lblRemovalSummary, 0}) {}

SIZE frmResults::FirstSize() const { return SizeFor(740, kObjectLines); }

SIZE frmResults::SmallestSize() const { return SizeFor(600, kFewestLines); }

SIZE frmResults::SizeFor(int width, int objects) const {
  const int line = metrics().LineHeight() + metrics().Scale(4);
  const int height = header_.Height() + 2 * metrics().Margin() + kLines * line +
                     2 * metrics().Gap() + metrics().LineHeight() +
                     (objects + 2) * metrics().RowHeight() + metrics().Margin() +
                     metrics().ButtonHeight();
  return {metrics().Scale(width), height};
}

void frmResults::OnCreate() {
  header_.Create(hwnd(), IDC_RemovalHeader);
  header_.SetHeading(Text(Caption::RemovalResults));
  header_.SetText(summary_.Counts());
  for (int i = 0; i < kLines; ++i) {
    const auto at = static_cast<std::size_t>(i);
    captions_[at].Create(env_, hwnd(), IDC_lblTotalCaption + 2 * i, Text(kLineTable[i].caption));
    values_[at].Create(env_, hwnd(), IDC_lblTotalCaption + 2 * i + 1,
                       std::to_string(removal_.counters().*kLineTable[i].counter), SS_RIGHT);
    values_[at].SetFont(metrics().bold());
  }
  const bool any = summary_.size() > 0;
  lblObjects_.Create(env_, hwnd(), IDC_lblObjects,
                     Text(any ? Caption::StateOfEach : Caption::NoComponentChecked));
  CreateList();
  AccessKeys keys;
  cmdReport_.Create(env_, hwnd(), IDC_cmdReport, keys.Add(Text(Caption::SaveReport)));
  cmdOk_.Create(env_, hwnd(), IDOK, Text(Caption::Ok));
}

void frmResults::CreateList() {
  lstObjects_.row_count = [this] { return summary_.size(); };
  lstObjects_.cell_text = [this](std::size_t row, int column) {
    return summary_.Text(row, static_cast<RemovalSummary::Column>(column));
  };
  lstObjects_.row_image = [this](std::size_t row) {
    return KindIcon(KindOf(summary_.object(row)));
  };
  lstObjects_.Create(env_, hwnd(), IDC_lstObjects);
  lstObjects_.RememberWidths(env_, HelpTopic());
  lstObjects_.SetName(Text(Caption::StateOfEach));
  images_ = LoadScaledImageList(env_, IDB_Kinds16, kPicture);
  lstObjects_.SetSmallImages(images_.get());
  const int picture = 2 * kPicture * metrics().PictureFactor();
  const int widths[] = {metrics().WidestText(KindTexts(env_.captions)) + picture,
                        metrics().Scale(110), metrics().Scale(120), metrics().Scale(150)};
  for (int i = 0; i < static_cast<int>(std::size(widths)); ++i) {
    lstObjects_.AddColumn(i, Text(kColumns[i]), widths[i]);
  }
  lstObjects_.SetItemCount(summary_.size());
  lstObjects_.ShowSortArrow(summary_.sort_column(), summary_.ascending());
}

LRESULT frmResults::OnNotify(NMHDR* header) {
  if (const auto answer = lstObjects_.Answer(header)) return *answer;
  if (header->hwndFrom != lstObjects_.hwnd()) return 0;
  switch (header->code) {
    case LVN_COLUMNCLICK:
      summary_.SortBy(
          static_cast<RemovalSummary::Column>(reinterpret_cast<NMLISTVIEW*>(header)->iSubItem));
      lstObjects_.Select(-1, false);
      lstObjects_.ShowSortArrow(summary_.sort_column(), summary_.ascending());
      lstObjects_.Redraw();
      return 0;
    case NM_CUSTOMDRAW:
      return DrawPathColumn(lstObjects_, *reinterpret_cast<NMLVCUSTOMDRAW*>(header),
                            RemovalSummary::kDetails, summary_.size(), [this](std::size_t row) {
                              return summary_.Text(row, RemovalSummary::kDetails);
                            });
    default:
      return 0;
  }
}

void frmResults::OnSize(Area area) {
  {
    Layout layout;
    layout.Place(header_.hwnd(), area.CutTop(header_.Height()));
    Area inner = area.Shrunk(metrics().Margin(), metrics().Margin());
    Area buttons = inner.CutBottom(metrics().ButtonHeight());
    inner.CutBottom(metrics().Margin());
    layout.Place(cmdOk_, buttons.CutRight(cmdOk_.width()));
    layout.Place(cmdReport_, buttons.CutLeft(cmdReport_.width()));
    for (std::size_t i = 0; i < kLines; ++i) {
      Area line = inner.CutTop(metrics().LineHeight() + metrics().Scale(4));
      layout.Place(values_[i], line.CutRight(metrics().Scale(70)));
      layout.Place(captions_[i], line);
    }
    inner.CutTop(metrics().Gap());
    layout.Place(lblObjects_, inner.CutTop(metrics().LineHeight()));
    inner.CutTop(metrics().Scale(3));
    layout.Place(lstObjects_, inner);
  }
  if (lstObjects_.sized_by_user()) return;
  lstObjects_.FitColumns({RemovalSummary::kState, RemovalSummary::kSystem},
                         RemovalSummary::kDetails, metrics().Scale(130));
}

bool frmResults::OnCommand(int id) {
  switch (id) {
    case IDC_cmdReport:
      save_report_();
      return true;
    case IDOK:
      Close();
      return true;
    default:
      return false;
  }
}

}  // namespace scourwell
