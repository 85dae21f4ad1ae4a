#include "FSelectCustom.h"

#include <algorithm>

#include "LikePattern.h"
#include "MXHTMLHelp.h"
#include "MXRegistry.h"
#include "Put.h"
#include "Toolkit.h"

using namespace Forms;

namespace {

constexpr TextView PatternValue = u"Custom Select Pattern";
constexpr std::int32_t TypeColumn = 2, HelpContext = 2800;

bool IsEventType(TextView sType) {
  return sType.substr(0, 9) != u"Property " && sType != u"Sub" && sType != u"Function";
}

bool Holds(const ListBox& oList, TextView sItem) {
  for (std::int32_t i = 0; i < oList.ListCount(); ++i) {
    if (oList.List(i) == sItem) return true;
  }
  return false;
}

/// Says what is wrong with an invalid pattern: a list that isn't closed, or a range that runs
/// backwards. If the pattern is valid with a "]" appended, it was the first.
Text FaultOf(const LikePattern& oPattern) {
  return LikePattern(oPattern.Pattern() + u"]").IsValid()
             ? u"a list that begins with [ isn't closed by ]."
             : u"a range in a list runs backwards, as z-a does.";
}

Text Explained(const LikePattern& oPattern) {
  return u"The pattern " + oPattern.Pattern() + u" can't be used: " + FaultOf(oPattern) +
         u"\r\n\r\nWrite ? for any one character, * for any run of characters, # for a digit, "
         u"[abc] or [a-c] for one character of a list and [!abc] for one outside it. "
         u"Brackets also take the meaning from a character: [?], [*], [#], [[].";
}

}  // namespace

FSelectCustom::FSelectCustom(Toolkit& oToolkit)
    : FDialog(oToolkit, u"FSelectCustom", u"FSelectCustom") {
  On(chkProperty.Click, [this] { chkProperty_Click(); });
  On(cmdOK.Click, [this] { cmdOK_Click(); });
  On(cmdCancel.Click, [this] { Hide(); });
  On(cmdHelp.Click, [this] { MXHTMLHelp::ShowHelpTOC(App(), HelpContext); });
}

void FSelectCustom::Design() {
  DesignWindow(u"Custom Select", 6120, 4860);
  SetHelpContextID(HelpContext);
  DesignTypes();
  DesignPattern();
  Put(cmdOK, u"OK", {2490, 3840, 1080, 420});
  cmdOK.SetDefault(true);
  Put(cmdCancel, u"Cancel", {3675, 3840, 1080, 420});
  Put(cmdHelp, u"&Help", {4860, 3840, 1020, 420});
}

void FSelectCustom::DesignTypes() {
  Put(fraTypes, u"Procedure Types", {120, 120, 2820, 2700});
  const struct {
    CheckBox& oBox;
    TextView sCaption;
    bool bUnderProperty;
  } aoRow[] = {{chkSub, u"Su&b Procedures", false},
               {chkFunction, u"&Function Procedures", false},
               {chkProperty, u"&Properties", false},
               {chkLet, u"&Let", true},
               {chkSet, u"&Set", true},
               {chkGet, u"&Get", true}};
  std::int32_t lTop = 300;
  for (const auto& o : aoRow) {
    Put(o.oBox, o.sCaption,
        {o.bUnderProperty ? 480 : 150, lTop, o.bUnderProperty ? 2190 : 2520, 330});
    o.oBox.SetChecked(o.bUnderProperty);
    o.oBox.SetEnabled(!o.bUnderProperty);
    lTop += 390;
  }
}

void FSelectCustom::DesignPattern() {
  Put(fraEvent, u"&Event Hanlder Types", {3060, 120, 2820, 2700});
  lstEvent.SetMultiSelect(MultiSelect::Simple);
  lstEvent.Move(150, 300, 2520, 2250);
  Put(fraPattern, u"Procedures Li&ke", {120, 2910, 5760, 810});
  txtPattern.Move(150, 300, 5460, 360);
}

void FSelectCustom::Display(ListView& oListView) {
  moListView = &oListView;
  mbAccepted = false;
  Load();
  cmdHelp.SetEnabled(MXHTMLHelp::HelpExists());
  txtPattern.SetText(MXRegistry::GetRegString(hReg(), PatternValue, {}));
  FillEvents();
  RunModal();
  if (mbAccepted) {
    DoSelection();
    MXRegistry::SetRegString(hReg(), PatternValue, txtPattern.Text());
  }
  Unload();
}

void FSelectCustom::FillEvents() {
  ListItems& oRows = moListView->ListItems();
  lstEvent.Clear();
  for (std::int32_t i = 1; i <= oRows.Count(); ++i) {
    const Text& sType = oRows.Item(i).Cell(TypeColumn);
    if (IsEventType(sType) && !Holds(lstEvent, sType)) lstEvent.AddItem(sType);
  }
}

void FSelectCustom::chkProperty_Click() {
  for (CheckBox* po : {&chkLet, &chkSet, &chkGet}) po->SetEnabled(chkProperty.Checked());
}

void FSelectCustom::cmdOK_Click() {
  const LikePattern oPattern(txtPattern.Text());
  if (oPattern.IsValid()) {
    mbAccepted = true;
    return Hide();
  }
  App().MsgBox(Explained(oPattern), MsgBoxButtons::OkOnly, MsgBoxIcon::Exclamation, Caption());
  txtPattern.SetFocus();
}

Text FSelectCustom::WantedTypes() const {
  Text sWanted = u"|";
  for (std::int32_t i = 0; i < lstEvent.ListCount(); ++i) {
    if (lstEvent.Selected(i)) sWanted += lstEvent.List(i) + u"|";
  }
  if (chkSub.Checked()) sWanted += u"Sub|";
  if (chkFunction.Checked()) sWanted += u"Function|";
  if (!chkProperty.Checked()) return sWanted;
  if (chkLet.Checked()) sWanted += u"Property Let|";
  if (chkSet.Checked()) sWanted += u"Property Set|";
  if (chkGet.Checked()) sWanted += u"Property Get|";
  return sWanted;
}

void FSelectCustom::DoSelection() {
  const Text sWanted = WantedTypes();
  const LikePattern oPattern(txtPattern.Text());
  ListItems& oRows = moListView->ListItems();
  for (std::int32_t i = 1; i <= oRows.Count(); ++i) {
    ListItem& oRow = oRows.Item(i);
    const bool bType = sWanted.find(u"|" + oRow.Cell(TypeColumn) + u"|") != Text::npos;
    oRow.SetSelected(bType || (!oPattern.IsEmpty() && oPattern.Matches(oRow.Text())));
  }
}
