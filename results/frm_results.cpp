// SPDX-License-Identifier: MIT
#include "results/frm_results.h"

#include "results/scan_log.h"
#include "scan/finding_texts.h"
#include "text/escaped.h"
#include "widgets/layout.h"
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
constexpr int kObjectLines = 7;

}  // namespace

frmResults::frmResults(const WindowEnv& env, const Removal& removal)
    : ModalWindow(env, "frmResults"),
      removal_(removal),
      header_(env, HeaderPane::Size::Small, {IDC_lblRemovalHeading, IDC_lblRemovalSummary, 0}) {}

SIZE frmResults::FirstSize() const {
  const int line = metrics().LineHeight() + metrics().Scale(4);
  const int height = header_.Height() + 2 * metrics().Margin() + kLines * line +
                     2 * metrics().Gap() + metrics().LineHeight() +
                     kObjectLines * metrics().LineHeight() + metrics().Margin() +
                     metrics().ButtonHeight();
  return {metrics().Scale(560), height};
}

void frmResults::OnCreate() {
  header_.Create(hwnd(), IDC_RemovalHeader);
  header_.SetHeading(Text(Caption::RemovalResults));
  header_.SetText(Summary());
  for (int i = 0; i < kLines; ++i) {
    const auto at = static_cast<std::size_t>(i);
    captions_[at].Create(env_, hwnd(), IDC_lblTotalCaption + 2 * i, Text(kLineTable[i].caption));
    values_[at].Create(env_, hwnd(), IDC_lblTotalCaption + 2 * i + 1,
                       std::to_string(removal_.counters().*kLineTable[i].counter), SS_RIGHT);
    values_[at].SetFont(metrics().bold());
  }
  lblObjects_.Create(env_, hwnd(), IDC_lblObjects, Text(Caption::StateOfEach));
  txtObjects_.Create(env_, hwnd(), IDC_txtObjects);
  txtObjects_.SetText(Objects());
  cmdOk_.Create(env_, hwnd(), IDOK, Text(Caption::Ok));
}

std::string frmResults::Summary() const {
  const RemovalReport& report = removal_.report();
  const auto part = [&](RemovalState state, Caption caption) {
    const std::size_t count = report.Count(state);
    return count ? ", " + std::to_string(count) + " " + Text(caption) : std::string();
  };
  return std::to_string(report.Count(RemovalState::Removed)) + " " + Text(Caption::StateRemoved) +
         part(RemovalState::Gone, Caption::StateGone) +
         part(RemovalState::PendingRestart, Caption::StatePendingRestart) +
         part(RemovalState::Refused, Caption::StateRefused) +
         part(RemovalState::Failed, Caption::StateFailed);
}

std::string frmResults::Objects() const {
  std::string text;
  for (const RemovedObject& object : removal_.report().objects) {
    text += ForShowing(PlaceText(object.object)) + " - " +
            RemovalStateText(env_.captions, object.result) + "\r\n";
  }
  return text.empty() ? Text(Caption::NoComponentChecked) : text;
}

void frmResults::OnSize(Area area) {
  Layout layout;
  layout.Place(header_.hwnd(), area.CutTop(header_.Height()));
  Area inner = area.Shrunk(metrics().Margin(), metrics().Margin());
  Area buttons = inner.CutBottom(metrics().ButtonHeight());
  inner.CutBottom(metrics().Margin());
  layout.Place(cmdOk_, buttons.CutRight(cmdOk_.width()));
  for (std::size_t i = 0; i < kLines; ++i) {
    Area line = inner.CutTop(metrics().LineHeight() + metrics().Scale(4));
    layout.Place(values_[i], line.CutRight(metrics().Scale(70)));
    layout.Place(captions_[i], line);
  }
  inner.CutTop(metrics().Gap());
  layout.Place(lblObjects_, inner.CutTop(metrics().LineHeight()));
  inner.CutTop(metrics().Scale(3));
  layout.Place(txtObjects_, inner);
}

bool frmResults::OnCommand(int id) {
  if (id != IDOK) return false;
  Close();
  return true;
}

}  // namespace scourwell
