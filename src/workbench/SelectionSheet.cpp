#include "SelectionSheet.h"

#include "LineDifferences.h"
#include "PropertySheet.h"
#include "Workbench.h"

using namespace Forms;

namespace {

bool IsDeclarations(const ListItem& row) {
  return row.Text() == MQuillon::DeclarationsName;
}

template <class Choice>
Choice Picked(const std::unique_ptr<CXLookup>& lookup, TextView item) {
  return MQuillon::FromNumber<Choice>(lookup->LookupItemData(item));
}

/// Shown beside the line, since not everybody can tell the colours apart.
TextView SignOf(LineFate fate) {
  if (fate == LineFate::Stays) return u"";
  return fate == LineFate::Goes ? u"-" : u"+";
}

/// Both versions of a procedure in one text.
std::vector<CodeLine> BothVersions(TextView present, const Rewrite& coming) {
  const std::vector<TextView> oldLines = SplitLines(present), newLines = SplitLines(coming.text);
  std::vector<CodeLine> rows;
  VisitLines({0, oldLines.size(), 0, newLines.size(), coming.changes},
             [&](LineFate fate, std::size_t line) {
               const TextView text = (fate == LineFate::Goes ? oldLines : newLines)[line];
               rows.push_back({MarkOf(fate), Text(SignOf(fate)), Text(text)});
             });
  return rows;
}

}  // namespace

void SelectionSheet::ProcessProcListSelection() {
  const auto rows = SelectedRows(window.form.lvwProcs, 2);
  if (rows.empty()) {
    ClearSheet();
    window.lists.ShowObjectCount();
  } else if (rows.size() == 1) {
    if (rows.front()->Tag() > 0) ShowOne(*rows.front());
    window.panes.ShowCount(1, u" Object(s) Selected");
  } else {
    ShowSeveral();
  }
}

void SelectionSheet::ClearSheet() {
  MainForm& form = window.form;
  form.lblProperties.SetCaption({});
  form.prlProperties.Clear();
  form.lblCode.SetCaption({});
  form.txtCode.SetText({});
}

void SelectionSheet::ShowOne(const ListItem& row) {
  const ProcedureHandle h(row.Tag());
  CIDEHandler& model = *window.session.Model();
  const Text title = model.ComponentName(window.tree.Component()) + u"." + row.Text();
  window.form.lblProperties.SetCaption(title);
  PropertySheet::Subject subject;
  subject.bDeclarations = IsDeclarations(row);
  model.GetPendingSettings(h, subject.oPending);
  model.GetCurrentSettings(h, subject.oCurrent);
  model.GetSuggestSettings(h, subject.oSuggest);
  ShowSheet(subject);
  window.form.lblCode.SetCaption(title);
  ShowCode(h);
}

void SelectionSheet::ShowSeveral() {
  const auto rows = SelectedRows(window.form.lvwProcs);
  PropertySheet::Subject subject;
  subject.bSeveral = true;
  for (const ListItem* row : rows) {
    const ProcedureHandle h(row->Tag());
    if (!h) continue;
    subject.bDeclarations = subject.bDeclarations || IsDeclarations(*row);
    const ProcedureRecord& record = window.session.Model()->Procedure(h);
    subject.oPending.Aggregate(record.oPending);
    subject.oCurrent.Aggregate(record.oCurrent);
    subject.oSuggest.Aggregate(record.oSuggest);
  }
  window.form.lblProperties.SetCaption(u"Selection");
  ShowSheet(subject);
  window.form.lblCode.SetCaption({});
  window.form.txtCode.SetText({});
  if (window.panes.ShowsTab(u"Code")) window.panes.SelectTab(u"Properties");
  window.panes.ShowCount(rows.size(), u" Object(s) Selected");
}

void SelectionSheet::ShowSheet(PropertySheet::Subject& subject) {
  PropertyList& sheet = window.form.prlProperties;
  subject.bReadOnly = window.tree.ReadOnly();
  sheet.Clear();
  for (const PropertySheet::Row& o : PropertySheet::Rows(subject)) {
    if (o.bHeading) {
      sheet.AddHeading(o.sName, o.lTipId);
    } else {
      sheet.AddRow(o.sName, o.sValue, o.poLookup ? PropertyType::List : PropertyType::FreeText,
                   o.bEnabled, o.poLookup, o.sNote, o.lTipId);
    }
  }
  sheet.ShowProperties();
}

void SelectionSheet::PropertyChange(TextView sName, TextView sValue) {
  // Copies, because the sheet's texts don't exist any more once it is filled again.
  const Text name(sName), value(sValue);
  const std::int16_t rowOfSheet = window.form.prlProperties.Row();
  for (const ListItem* row : SelectedRows(window.form.lvwProcs)) {
    const ProcedureHandle h(row->Tag());
    if (h && window.session.Model()->ProcTemplate(h) != MQuillon::BespokeName)
      SetPending(*row, name, value);
  }
  window.lists.RefreshProcList(true, true);
  window.form.prlProperties.SetRow(rowOfSheet);
}

void SelectionSheet::SetPending(const ListItem& row, TextView sName, TextView sValue) {
  const ProcedureHandle h(row.Tag());
  CIDEHandler& o = *window.session.Model();
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
  } else if (sName == PropertySheet::Trace && !IsDeclarations(row)) {
    o.SetTrace(h, Picked<MQuillon::TriState>(MQuillon::oLookupTrace, sValue));
  }
}

void SelectionSheet::ShowCode(ProcedureHandle hProcedure) {
  std::int32_t bodyStart = 0;
  CIDEHandler& model = *window.session.Model();
  const Text code = model.GetProcCode(hProcedure, bodyStart);
  window.form.txtCode.SetLineNumbers(false);
  window.form.txtCode.SetText(code);
  if (pendingCode && !window.tree.ReadOnly() && model.ProcedureIsDirty(hProcedure))
    ShowPendingCode(hProcedure, code);
}

void SelectionSheet::ShowPendingCode(ProcedureHandle hProcedure, TextView present) {
  Forms::CodePane& pane = window.form.txtCode;
  const Rewrite rewrite = window.session.Model()->PendingRewrite(hProcedure, true);
  if (rewrite.Refused()) {
    pane.SetText(u"Can't be applied: " + MessageOf(rewrite.refusals.front()) + Text(CrLf) +
                 Text(present));
    return pane.SetMark(1, LineMark::Heading);
  }
  pane.SetLineNumbers(true);
  pane.SetLines(BothVersions(present, rewrite));
}

void SelectionSheet::TurnPendingCode() {
  pendingCode = !pendingCode;
  if (window.lists.ShowsProcs()) ProcessProcListSelection();
  if (pendingCode) window.panes.SelectTab(u"Code");
}
