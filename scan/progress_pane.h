// SPDX-License-Identifier: MIT
#pragma once

#include <array>

#include "platform/clock.h"
#include "scan/hit_counters.h"
#include "scan/scan_progress.h"
#include "scan/time_left.h"
#include "widgets/activity_bar.h"
#include "widgets/button.h"
#include "widgets/header_pane.h"
#include "widgets/label.h"
#include "widgets/layout.h"
#include "widgets/live_label.h"
#include "widgets/pane.h"
#include "widgets/progress_bar.h"

namespace scourwell {

// SpyStatusFrame: how far the scan has got. Mirrors ScanProgress and the counters of the hits.
class ProgressPane : public Pane {
 public:
  ProgressPane(const WindowEnv& env, const ScanProgress& progress, const HitCounters& found,
               Clock& clock);

  void ScanBegan();
  void ScanEnded(bool finished);
  // There is nothing at the path to scan, so no scan begins.
  void ShowMissing(const std::string& path);
  void Refresh();
  // Everything anew in the language of now. Not while a scan runs.
  void LanguageChanged();

  HWND DefaultButton() const { return cmdNext_.enabled() ? cmdNext_.hwnd() : nullptr; }
  HWND EscapeButton() const { return cmdAbort_.enabled() ? cmdAbort_.hwnd() : cmdCancel_.hwnd(); }
  HWND FirstFocus() const;

 private:
  static constexpr int kRows = 4;
  struct SummaryRow {
    Label caption;
    LiveLabel scanned;
    LiveLabel infected;
  };

  void OnCreate() override;
  void OnSize(Area area) override;
  void OnPaint(HDC dc) override;

  void CreateSummary();
  void SetCaptions();
  void ShowEnd();
  void LayOutProgress(Layout& layout, Area* area);
  void LayOutSummary(Layout& layout, Area* area);
  void LayOutButtons(Layout& layout, Area area);
  void RefreshBars();
  void RefreshTimes();
  void ShowElapsed();
  void RefreshSummary();
  int PictureSize() const;
  int NumberWidth() const;

  const ScanProgress& progress_;
  const HitCounters& found_;
  Clock& clock_;

  HeaderPane header_;
  LiveLabel lblScanOption_;
  ProgressBar prgLoading_;
  ActivityBar activity_;
  LiveLabel lblPercent_;
  Label lblCurrentItem_;
  LiveLabel lblScan_;
  Label lblSFoldersCaption_;
  LiveLabel lblSFolders_;
  Label lblFScanCaption_;
  LiveLabel lblFScan_;
  Label lblScanSummary_;
  LiveLabel lblScanned_;
  LiveLabel lblInfected_;
  std::array<SummaryRow, kRows> rows_;
  Label lblDetectedCaption_;
  LiveLabel lblDetected_;
  Button cmdAbort_;
  Button cmdNext_;
  Button cmdCancel_;
  ImageListHandle images_;

  TimeLeft time_left_;
  std::uint32_t began_ = 0;
  std::uint32_t elapsed_ = 0;  // milliseconds
  bool ended_ = false;
  bool finished_ = false;
  Area summary_;       // the table below its heading
  int icon_rows_ = 0;  // y of the first row
  int row_height_ = 0;
};

}  // namespace scourwell
