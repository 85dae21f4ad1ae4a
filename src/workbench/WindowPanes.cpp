#include "WindowPanes.h"

#include "MOptions.h"
#include "MXForm.h"
#include "MXString.h"
#include "Workbench.h"

using namespace Forms;

namespace {

/// Ignores the failure of one font property (such as a face that isn't installed), so that the
/// others are still set.
template <class Set>
void IgnoringFailure(Set&& set) {
  try {
    set();
  } catch (const Failure&) {
  }
}

template <class Pane>
void TakeFont(Pane& pane, const MOptions::Font& font, bool weight) {
  IgnoringFailure([&] { pane.SetFontName(font.sFace); });
  IgnoringFailure([&] { pane.SetFontSize(font.lSize); });
  if (!weight) return;
  pane.SetFontBold(font.bBold);
  pane.SetFontItalic(font.bItalic);
}

}  // namespace

void WindowPanes::AddTabs() {
  Tabs& tabs = window.form.tabView.Tabs();
  tabs.Add(1, u"Code", u"&Code");
  tabs.Add(1, u"Properties", u"&Properties");
  SelectTab(u"Results");
}

void WindowPanes::RemoveTabs() {
  window.form.tabView.Tabs().Remove(u"Code");
  window.form.tabView.Tabs().Remove(u"Properties");
}

void WindowPanes::SelectTab(TextView key) {
  Tabs& tabs = window.form.tabView.Tabs();
  if (tabs.Exists(key)) tabs.Item(key).SetSelected(true);
}

bool WindowPanes::ShowsTab(TextView key) const {
  const Tab* tab = window.form.tabView.SelectedItem();
  return tab && tab->Key() == key;
}

void WindowPanes::TabClick() {
  MainForm& form = window.form;
  struct Pane {
    TextView key;
    Control &content, &title;
  };
  const Pane panes[] = {{u"Properties", form.prlProperties, form.lblProperties},
                        {u"Code", form.txtCode, form.lblCode},
                        {u"Results", form.srlResults, form.lblResults}};
  // The others are hidden first, so that two panes are never visible at once.
  for (const bool shown : {false, true}) {
    for (const Pane& pane : panes) {
      if (ShowsTab(pane.key) != shown) continue;
      pane.content.SetVisible(shown);
      pane.title.SetVisible(shown);
    }
  }
}

void WindowPanes::HideErrors() {
  mbErrors = false;
  window.form.picSplit3.SetVisible(false);
  window.form.fraErrors.SetVisible(false);
  for (Control* list : window.form.Lists()) list->SetHeight(window.form.tvwProjects.Height());
}

void WindowPanes::ShowErrors() {
  constexpr std::int32_t LeastPane = 645, LeastList = 600;
  MainForm& form = window.form;
  mbErrors = true;
  const std::int32_t target = form.StatusBar1.Top() - LeastPane;
  if (form.picSplit3.Top() > target && form.tvwProjects.Top() + LeastList < target)
    form.picSplit3.SetTop(target);
  window.layout.FitErrors();
  form.picSplit3.SetVisible(true);
  form.fraErrors.SetVisible(true);
  if (form.srlErrors.Usable()) form.srlErrors.SetFocus();
}

void WindowPanes::ShowCount(std::size_t number, TextView what) {
  window.form.StatusBar1.Panels(1).SetText(ToText(static_cast<long long>(number)) + Text(what));
}

void WindowPanes::ShowPath(TextView path) {
  window.form.StatusBar1.Panels(2).SetTag(path);
  FitPath();
}

void WindowPanes::FitPath() {
  constexpr std::int32_t PanelEdges = 360;  // twips for the panel's borders and gaps; an estimate
  Panel& panel = window.form.StatusBar1.Panels(2);
  panel.SetText(MXString::TrimPathToFit(
      panel.Tag(), [&](TextView s) { return static_cast<double>(window.form.TextWidth(s)); },
      panel.Width() - PanelEdges, true));
}

void WindowPanes::TakeFonts(bool weightOfTexts) {
  TakeFont(window.form.txtCode, MOptions::oCodeFont, true);
  TakeFont(window.form.srlResults, MOptions::oResultsFont, weightOfTexts);
  TakeFont(window.form.srlErrors, MOptions::oErrorFont, weightOfTexts);
}
