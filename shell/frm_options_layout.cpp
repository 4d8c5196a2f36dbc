// SPDX-License-Identifier: MIT

// How the controls of the options dialog are made and where they lie.
#include <algorithm>
#include <optional>

#include "shell/frm_options.h"
#include "shell/options_table.h"
#include "widgets/access_keys.h"

namespace scourwell {

using namespace options_table;

namespace {

constexpr int kWidth = 420;  // pixels at 96 dots per inch
constexpr int kUnfolded = 160;

// The strips of a page, from the top down.
class Column {
 public:
  Column(const Metrics& metrics, Area area) : metrics_(metrics), area_(area), top_(area.top) {}

  Area Take(int height) { return area_.CutTop(height); }
  void Skip(int pixels) { area_.CutTop(metrics_.Scale(pixels)); }
  int width() const { return area_.width(); }
  int used() const { return area_.top - top_; }
  Area rest() const { return area_; }

 private:
  const Metrics& metrics_;
  Area area_;
  int top_;
};

}  // namespace

void frmOptions::OnCreate() {
  for (int tab = 0; tab < kTabs; ++tab) {
    pages_[static_cast<std::size_t>(tab)].Create(hwnd());
    CreateTab(tab);
  }
  cmdProceed_.Create(env_, hwnd(), IDC_CmdProceed, Text(Caption::DialogOk));
  cmdCancelOptions_.Create(env_, hwnd(), IDC_cmdCancelOptions, Text(Caption::DialogCancel));
  tabs_.Create(env_, hwnd(), IDC_OptionsTabs);
  for (const Caption caption : kTabCaptions) tabs_.Add(Text(caption));
  Fill();
  ShowTab(tabs_.Selected());
}

void frmOptions::CreateTab(int tab) {
  HWND page = pages_[static_cast<std::size_t>(tab)].hwnd();
  // OK and Cancel belong to every tab.
  AccessKeys keys({Text(Caption::DialogOk), Text(Caption::DialogCancel)});
  std::optional<Caption> section;
  const auto begin_section = [&](Caption caption) {
    auto& lines = sections_[static_cast<std::size_t>(tab)];
    lines.push_back(std::make_unique<SectionLine>());
    lines.back()->Create(env_, page, Text(caption));
    section = caption;
  };
  for (std::size_t i = 0; i < kBoxes; ++i) {
    const BoxRow& row = kBoxRows[i];
    if (row.tab != tab) continue;
    if (row.id == IDC_chkExplorer) {
      begin_section(Caption::SectionLanguage);
      CreateLanguage(page, &keys);
    }
    if (row.section != section) begin_section(row.section);
    boxes_[i].Create(env_, page, row.id, keys.Add(Text(row.caption)));
  }
  if (tab == kGeneralTab && !form_.explorer_available()) {
    lblExplorerNote_.Create(env_, page, IDC_lblExplorerNote, Text(form_.explorer_note()), SS_LEFT);
  }
  if (tab != kPathsTab) return;
  for (std::size_t i = 0; i < kPaths; ++i) CreatePath(i, page, &keys);
}

void frmOptions::CreateLanguage(HWND page, AccessKeys* keys) {
  lblLang_.CreateWithKey(env_, page, IDC_lblLang, keys->Add(Text(Caption::LabelLanguagePack)));
  CmbLang_.Create(env_, page, IDC_CmbLang);
  cmdEditLanguagePackFile_.Create(env_, page, IDC_cmdEditLanguagePackFile,
                                  keys->Add(Text(Caption::EditLanguagePack)));
}

void frmOptions::CreatePath(std::size_t index, HWND page, AccessKeys* keys) {
  const PathRow& row = kPathRows[index];
  PathControls& path = paths_[index];
  path.caption.CreateWithKey(env_, page, row.label, keys->Add(Text(row.caption)));
  path.text.Create(env_, page, row.text);
  Calls().Send(path.text.hwnd(), EM_LIMITTEXT, Calls().LongestPath(), 0);
  path.browse.Create(env_, page, row.browse, keys->Add(Text(Caption::BrowseFolder)));
  path.hint.Create(env_, page, row.hint, Text(Caption::FolderMissing), SS_LEFT);
}

void frmOptions::Fill() {
  OptionControls& controls = form_.controls();
  for (std::size_t i = 0; i < kBoxes; ++i) boxes_[i].Check(controls.*kBoxRows[i].control);
  boxes_[BoxIndex(IDC_chkScanStartup)].Enable(form_.startup_available());
  boxes_[BoxIndex(IDC_chkExplorer)].Enable(form_.explorer_available());
  for (const LanguageEntry& language : form_.languages()) {
    CmbLang_.Add(language.name, language.picture);
  }
  CmbLang_.Select(form_.language_index());
  LanguageChosen();
  for (std::size_t i = 0; i < kPaths; ++i) {
    paths_[i].text.SetText(controls.*kPathRows[i].control);
    CheckFolder(i);
  }
}

// The dialog is as high as the highest tab asks for.
SIZE frmOptions::FirstSize() const {
  const int inner = metrics().Scale(kWidth);
  const int margins = 2 * metrics().Margin();
  int highest = 0;
  for (int tab = 0; tab < kTabs; ++tab) {
    highest = std::max(highest, ArrangeTab(tab, {0, 0, inner, 0}, nullptr));
  }
  return {inner + 2 * margins + TabControl::FrameWidth(metrics()),
          highest + margins + TabControl::FrameHeight(metrics()) + margins + metrics().Gap() +
              metrics().ButtonHeight()};
}

void frmOptions::OnSize(Area area) {
  if (!tabs_.hwnd()) return;
  Layout layout;
  Area inner = area.Shrunk(metrics().Margin(), metrics().Margin());
  Area buttons = inner.CutBottom(metrics().ButtonHeight());
  inner.CutBottom(metrics().Gap());
  layout.Place(cmdCancelOptions_, buttons.CutRight(cmdCancelOptions_.width()));
  buttons.CutRight(metrics().Gap());
  layout.Place(cmdProceed_, buttons.CutRight(cmdProceed_.width()));
  layout.Place(tabs_, inner);
  const Area page = tabs_.Inside(inner);
  for (int tab = 0; tab < kTabs; ++tab) {
    Layout inside;
    const HWND window = pages_[static_cast<std::size_t>(tab)].hwnd();
    layout.Place(window, page);
    const Area own(0, 0, page.width(), page.height());
    ArrangeTab(tab, own.Shrunk(metrics().Margin(), metrics().Margin()), &inside);
  }
}

int frmOptions::ArrangeTab(int tab, Area area, Layout* layout) const {
  Column column(metrics(), area);
  std::size_t line = 0;  // sections were made in this order
  std::optional<Caption> section;
  const auto begin_section = [&](Caption caption) {
    if (section) column.Skip(9);
    const Area place = column.Take(metrics().LineHeight());
    if (layout) sections_[static_cast<std::size_t>(tab)][line++]->Place(layout, place);
    column.Skip(4);
    section = caption;
  };
  for (std::size_t i = 0; i < kBoxes; ++i) {
    const BoxRow& row = kBoxRows[i];
    if (row.tab != tab) continue;
    if (row.id == IDC_chkExplorer) {
      begin_section(Caption::SectionLanguage);
      column.Take(ArrangeLanguage(column.rest(), layout));
    }
    if (row.section != section) begin_section(row.section);
    // Its key may lie behind the caption, where it takes room, whatever key it is.
    const std::string caption = AccessKeys().Add(Text(row.caption));
    const Area place = column.Take(CheckBox::Height(metrics(), caption, column.width()));
    column.Skip(2);
    if (layout) layout->Place(boxes_[i], place);
  }
  if (tab == kGeneralTab && !form_.explorer_available()) {
    const int indent = metrics().Scale(CheckBox::kBox);  // below the caption
    Area place =
        column.Take(metrics().TextHeight(Text(form_.explorer_note()), column.width() - indent));
    place.CutLeft(indent);
    if (layout) layout->Place(lblExplorerNote_, place);
  }
  if (tab == kPathsTab) {
    for (std::size_t i = 0; i < kPaths; ++i) column.Take(ArrangePath(i, column.rest(), layout));
  }
  return column.used();
}

int frmOptions::ArrangeLanguage(Area area, Layout* layout) const {
  const int height = metrics().FieldHeight();
  if (!layout) return height;
  Area line = area.CutTop(height);
  Area label = line.CutLeft(metrics().CaptionWidth(lblLang_.Text()) + metrics().Gap());
  label.CutTop(metrics().Scale(4));
  layout->Place(lblLang_, label);
  layout->Place(cmdEditLanguagePackFile_, line.CutRight(cmdEditLanguagePackFile_.width()));
  line.CutRight(metrics().Gap());
  line.bottom += metrics().Scale(kUnfolded);  // of a combo box: with its list unfolded
  layout->Place(CmbLang_, line);
  return height;
}

int frmOptions::ArrangePath(std::size_t index, Area area, Layout* layout) const {
  Column column(metrics(), area);
  const Area caption = column.Take(metrics().LineHeight());
  column.Skip(3);
  Area line = column.Take(metrics().FieldHeight());
  column.Skip(3);
  const Area hint = column.Take(metrics().TextHeight(Text(Caption::FolderMissing), column.width()));
  column.Skip(index + 1 < kPaths ? 8 : 0);
  if (layout) {
    const PathControls& path = paths_[index];
    layout->Place(path.caption, caption);
    layout->Place(path.browse, line.CutRight(path.browse.width()));
    line.CutRight(metrics().Gap());
    layout->Place(path.text, line);
    layout->Place(path.hint, hint);
  }
  return column.used();
}

}  // namespace scourwell
