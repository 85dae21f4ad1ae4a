// What is selected in the lists, the property sheet of it, and the edits in the sheet.
#include "FMain.h"
#include "PropertySheet.h"

using namespace Forms;

namespace {

bool IsDeclarations(const ListItem& oRow) {
  return oRow.Text() == MQuillon::DeclarationsName;
}

/// The selected rows, from the first on, at most lMost.
std::vector<ListItem*> SelectedRows(ListView& oList, std::size_t lMost) {
  std::vector<ListItem*> oSelected;
  ListItems& oRows = oList.ListItems();
  for (std::int32_t i = 1; i <= oRows.Count() && oSelected.size() < lMost; ++i) {
    if (oRows.Item(i).Selected()) oSelected.push_back(&oRows.Item(i));
  }
  return oSelected;
}

constexpr std::size_t All = static_cast<std::size_t>(-1);

}  // namespace

void FMain::ProcessProcListSelection() {
  const auto oRows = SelectedRows(lvwProcs, 2);
  mlSelectedCount = static_cast<std::int32_t>(oRows.size());
  if (oRows.empty()) {
    ClearSheet();
    ShowObjectCount(lvwProcs);
  } else if (oRows.size() == 1) {
    if (oRows.front()->Tag() > 0) ShowOne(*oRows.front());
    StatusBar1.Panels(1).SetText(u"1 Object(s) Selected");
  } else {
    ShowSeveral();
  }
}

void FMain::ProcessModListSelection() {
  mlSelectedCount = static_cast<std::int32_t>(SelectedRows(lvwMods, All).size());
  if (mlSelectedCount == 0) return ShowObjectCount(lvwMods);
  StatusBar1.Panels(1).SetText(ToText(mlSelectedCount) + u" Object(s) Selected");
}

void FMain::ListSelectionExists(bool& bExists) {
  ListView* poList = ListInFront();
  bExists = poList && !SelectedRows(*poList, 1).empty();
}

void FMain::ClearSheet() {
  lblProperties.SetCaption({});
  prlProperties.Clear();
  lblCode.SetCaption({});
  txtCode.SetText({});
}

void FMain::ShowOne(const ListItem& oRow) {
  const ProcedureHandle h(oRow.Tag());
  const Text sTitle = oIDEHandler->ComponentName(mhComponent) + u"." + oRow.Text();
  lblProperties.SetCaption(sTitle);
  PropertySheet::Subject oSubject;
  oSubject.bDeclarations = IsDeclarations(oRow);
  oIDEHandler->GetPendingSettings(h, oSubject.oPending);
  oIDEHandler->GetCurrentSettings(h, oSubject.oCurrent);
  oIDEHandler->GetSuggestSettings(h, oSubject.oSuggest);
  ShowSheet(oSubject);
  lblCode.SetCaption(sTitle);
  ShowCode(h);
}

void FMain::ShowSeveral() {
  const auto oRows = SelectedRows(lvwProcs, All);
  mlSelectedCount = static_cast<std::int32_t>(oRows.size());
  PropertySheet::Subject oSubject;
  oSubject.bSeveral = true;
  for (const ListItem* poRow : oRows) {
    const ProcedureHandle h(poRow->Tag());
    if (!h) continue;
    oSubject.bDeclarations = oSubject.bDeclarations || IsDeclarations(*poRow);
    const ProcedureRecord& oRecord = oIDEHandler->Procedure(h);
    oSubject.oPending.Aggregate(oRecord.oPending);
    oSubject.oCurrent.Aggregate(oRecord.oCurrent);
    oSubject.oSuggest.Aggregate(oRecord.oSuggest);
  }
  lblProperties.SetCaption(u"Selection");
  ShowSheet(oSubject);
  lblCode.SetCaption({});
  txtCode.SetText({});
  const Tab* poTab = tabView.SelectedItem();
  if (poTab && poTab->Key() == u"Code") SelectTab(u"Properties");
  StatusBar1.Panels(1).SetText(ToText(mlSelectedCount) + u" Object(s) Selected");
}

void FMain::ShowSheet(PropertySheet::Subject& oSubject) {
  oSubject.bReadOnly = mbReadOnly;
  prlProperties.Clear();
  for (const PropertySheet::Row& o : PropertySheet::Rows(oSubject)) {
    if (o.bHeading) {
      prlProperties.AddHeading(o.sName, o.lTipId);
    } else {
      prlProperties.AddRow(o.sName, o.sValue,
                           o.poLookup ? PropertyType::List : PropertyType::FreeText, o.bEnabled,
                           o.poLookup, o.sNote, o.lTipId);
    }
  }
  prlProperties.ShowProperties();
}

void FMain::prlProperties_PropertyChange(TextView sName, TextView sValue) {
  // Copies, because the sheet's texts don't exist any more once it is filled again.
  OnEvent(u"prlProperties_PropertyChange", [&, sOwnName = Text(sName), sOwnValue = Text(sValue)] {
    const std::int16_t nRow = prlProperties.Row();
    for (const ListItem* poRow : SelectedRows(lvwProcs, All)) {
      const ProcedureHandle h(poRow->Tag());
      if (h && oIDEHandler->ProcTemplate(h) != MQuillon::BespokeName)
        SetPending(*poRow, sOwnName, sOwnValue);
    }
    RefreshProcList(true, true);
    prlProperties.SetRow(nRow);
  });
}

namespace {

template <class Choice>
Choice Picked(const std::unique_ptr<CXLookup>& pLookup, TextView sItem) {
  return MQuillon::FromNumber<Choice>(pLookup->LookupItemData(sItem));
}

}  // namespace

void FMain::SetPending(const ListItem& oRow, TextView sName, TextView sValue) {
  const ProcedureHandle h(oRow.Tag());
  CIDEHandler& o = *oIDEHandler;
  if (sName == PropertySheet::Locked) {
    return o.SetLocked(h, Picked<MQuillon::TriState>(MQuillon::oLookupLocked, sValue));
  }
  if (o.Locked(h) != MQuillon::TriState::False) return;
  if (sName == PropertySheet::Template) {
    o.SetProcTemplate(h, sValue == MQuillon::NoneName ? TextView() : sValue);
  } else if (sName == PropertySheet::Boundary) {
    o.SetBoundaryId(h, Picked<MQuillon::Boundary>(MQuillon::oLookupBoundary, sValue));
  } else if (sName == PropertySheet::Severity) {
    o.SetSeverityId(h, Picked<MQuillon::Severity>(MQuillon::oLookupSeverity, sValue));
  } else if (sName == PropertySheet::Retry) {
    o.SetRetryType(h, Picked<MQuillon::Retry>(MQuillon::oLookupRetry, sValue));
  } else if (sName == PropertySheet::Trace && !IsDeclarations(oRow)) {
    o.SetTrace(h, Picked<MQuillon::TriState>(MQuillon::oLookupTrace, sValue));
  }
}
