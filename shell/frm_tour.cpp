// SPDX-License-Identifier: MIT
#include "shell/frm_tour.h"

#include "widgets/layout.h"
#include "widgets/resource.h"

namespace scourwell {
namespace {

struct Topic {
  Caption heading;
  Caption text;
};
constexpr Topic kTopicTable[] = {
    {Caption::TourScan, Caption::TourScanText},
    {Caption::TourBackup, Caption::TourBackupText},
    {Caption::TourRights, Caption::TourRightsText},
};

}  // namespace

frmTour::frmTour(const WindowEnv& env)
    : ModalWindow(env, "frmTour"),
      header_(env, HeaderPane::Size::Small, {IDC_lblTourHeading, IDC_lblTourText, 0}) {}

void frmTour::OnCreate() {
  header_.Create(hwnd(), IDC_TourHeader);
  header_.SetHeading(Text(Caption::Welcome));
  header_.SetText(Text(Caption::TourAgain));
  for (std::size_t i = 0; i < kTopics; ++i) {
    const int id = IDC_lblTourTopic + 2 * static_cast<int>(i);
    headings_[i].Create(env_, hwnd(), id, Text(kTopicTable[i].heading));
    headings_[i].SetFont(metrics().bold());
    texts_[i].Create(env_, hwnd(), id + 1, Text(kTopicTable[i].text), SS_LEFT);
  }
  cmdOk_.Create(env_, hwnd(), IDOK, Text(Caption::Ok));
}

int frmTour::TextHeight(std::size_t topic) const {
  return metrics().TextHeight(Text(kTopicTable[topic].text), Width() - 2 * metrics().Margin());
}

SIZE frmTour::FirstSize() const {
  int height = header_.Height() + 2 * metrics().Margin() + metrics().ButtonHeight();
  for (std::size_t i = 0; i < kTopics; ++i) {
    height += metrics().LineHeight(metrics().bold()) + metrics().Scale(3) + TextHeight(i) +
              metrics().Margin();
  }
  return {Width(), height};
}

void frmTour::OnSize(Area area) {
  Layout layout;
  layout.Place(header_.hwnd(), area.CutTop(header_.Height()));
  Area inner = area.Shrunk(metrics().Margin(), metrics().Margin());
  for (std::size_t i = 0; i < kTopics; ++i) {
    layout.Place(headings_[i], inner.CutTop(metrics().LineHeight(metrics().bold())));
    inner.CutTop(metrics().Scale(3));
    layout.Place(texts_[i], inner.CutTop(TextHeight(i)));
    inner.CutTop(metrics().Margin());
  }
  layout.Place(cmdOk_, inner.CutBottom(metrics().ButtonHeight()).CutRight(cmdOk_.width()));
}

bool frmTour::OnCommand(int id) {
  if (id != IDOK && id != IDCANCEL) return false;
  Close();
  return true;
}

}  // namespace scourwell
