#include "PropertySheet.h"

#include "Reasons.h"

using namespace MQuillon;

namespace PropertySheet {

namespace {

/// The properties that are numbers, in the order of their rows.
struct Property {
  TextView sName;
  std::int32_t lTipId;
  std::int32_t (*Id)(const CProcSettings&);
  const std::unique_ptr<CXLookup>& pLookup;
};

template <auto pValue>
std::int32_t NumberOf(const CProcSettings& o) {
  return ToNumber((o.*pValue)());
}

const Property LockedRow{Locked, 12, NumberOf<&CProcSettings::eLocked>, oLookupLocked};
const Property BoundaryRow{Boundary, 13, NumberOf<&CProcSettings::eBoundary>, oLookupBoundary};
const Property SeverityRow{Severity, 14, NumberOf<&CProcSettings::eSeverity>, oLookupSeverity};
const Property RetryRow{Retry, 15, NumberOf<&CProcSettings::eRetry>, oLookupRetry};
const Property TraceRow{Trace, 16, NumberOf<&CProcSettings::eTrace>, oLookupTrace};

constexpr std::int32_t TemplateTip = 11;

Row Heading(TextView sName, std::int32_t lTipId) {
  return {.bHeading = true, .sName = Text(sName), .lTipId = lTipId};
}

/// A row that only shows a value.
Row Shown(const CProcSettings& o, const Property& oProperty, TextView sNote = {}) {
  return {.sName = Text(oProperty.sName),
          .sValue = oProperty.pLookup->LookupItem(oProperty.Id(o)),
          .sNote = Text(sNote),
          .lTipId = oProperty.lTipId};
}

Row ShownTemplate(const CProcSettings& o, TextView sNote = {}) {
  return {.sName = Text(Template),
          .sValue = o.sTemplateSelectionName(),
          .sNote = Text(sNote),
          .lTipId = TemplateTip};
}

bool HasTraceRow(const Subject& o) {
  return o.bSeveral || !o.bDeclarations;
}

Row PendingRow(const Subject& o, const Property& oProperty, bool bEnabled) {
  Row oRow = Shown(o.oPending, oProperty);
  if (oProperty.Id(o.oPending) == oProperty.Id(o.oCurrent)) oRow.sValue.clear();
  oRow.bEnabled = bEnabled;
  oRow.poLookup = oProperty.pLookup.get();
  return oRow;
}

Row PendingTemplate(const Subject& o, bool bEnabled) {
  Row oRow = ShownTemplate(o.oPending);
  if (oRow.sValue == o.oCurrent.sTemplateSelectionName()) oRow.sValue.clear();
  oRow.bEnabled = bEnabled;
  oRow.poLookup =
      o.bDeclarations && !o.bSeveral ? oLookupModTemplate.get() : oLookupProcTemplate.get();
  return oRow;
}

void AddPending(const Subject& o, std::vector<Row>& oRows) {
  const bool bOwn = !o.oPending.bForeign();
  const bool bUnlocked = bOwn && o.oPending.eLocked() == TriState::False;
  // For several procedures, lock and template of each are checked when the edit is applied.
  const bool bValues = o.bSeveral ? bOwn : bUnlocked && !o.oPending.sTemplate().empty();
  oRows.push_back(Heading(u"Pending", 1));
  oRows.push_back(PendingTemplate(o, bUnlocked && !(o.bSeveral && o.bDeclarations)));
  oRows.push_back(PendingRow(o, LockedRow, bOwn));
  for (const Property* po : {&BoundaryRow, &SeverityRow, &RetryRow})
    oRows.push_back(PendingRow(o, *po, bValues));
  if (HasTraceRow(o)) oRows.push_back(PendingRow(o, TraceRow, bValues));
}

TextView Inherited(bool bInherited) {
  return bInherited ? TextView(u"[Inherited]") : TextView();
}

void AddCurrent(const Subject& oSubject, std::vector<Row>& oRows) {
  const CProcSettings& o = oSubject.oCurrent;
  oRows.push_back(Heading(u"Current", 2));
  oRows.push_back(ShownTemplate(o));
  oRows.push_back(Shown(o, LockedRow));
  oRows.push_back(Shown(o, BoundaryRow, Inherited(o.BoundaryInherited)));
  oRows.push_back(Shown(o, SeverityRow, Inherited(o.SeverityInherited)));
  oRows.push_back(Shown(o, RetryRow, Inherited(o.RetryInherited)));
  if (HasTraceRow(oSubject)) oRows.push_back(Shown(o, TraceRow));
}

void AddSuggested(const Subject& oSubject, std::vector<Row>& oRows) {
  using Suggestions::Note;
  const CProcSettings& o = oSubject.oSuggest;
  const auto suggestion = Suggestions::SuggestionOf(o, oSubject.bSeveral);
  oRows.push_back(Heading(u"Suggested", 3));
  oRows.push_back(ShownTemplate(o, Note(suggestion.templateName.reason)));
  oRows.push_back(Shown(o, BoundaryRow, Note(suggestion.boundary.reason)));
  oRows.push_back(Shown(o, SeverityRow, Note(suggestion.severity.reason)));
  oRows.push_back(Shown(o, RetryRow, Note(suggestion.retry.reason)));
  if (HasTraceRow(oSubject)) oRows.push_back(Shown(o, TraceRow, Note(suggestion.trace.reason)));
}

}  // namespace

std::vector<Row> Rows(const Subject& oSubject) {
  std::vector<Row> oRows;
  if (!oSubject.bReadOnly && oSubject.oCurrent.sTemplate() != BespokeName) {
    AddPending(oSubject, oRows);
  }
  AddCurrent(oSubject, oRows);
  if (!oSubject.bReadOnly) AddSuggested(oSubject, oRows);
  return oRows;
}

}  // namespace PropertySheet
