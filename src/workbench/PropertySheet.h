// The rows of the property sheet for one procedure or a selection of several: three groups, each
// under a heading.
//
//   Pending    what was asked for, where it differs from the code; can be edited
//   Current    what the code holds
//   Suggested  what the rules and the analysis propose
//
// A function of settings: what the rows say doesn't depend on any window. The words come from the
// process-wide lookups, which are there while a template is open.
#pragma once

#include <cstdint>
#include <vector>

#include "CProcSettings.h"
#include "MQuillon.h"

namespace PropertySheet {

/// Names of the rows, which say in a change what was changed.
inline constexpr TextView Template = u"Template", Locked = u"Locked", Boundary = u"Boundary",
                          Severity = u"Severity", Retry = u"Retry", Trace = u"Trace";

/// What the sheet is about: one procedure, or what several have in common.
struct Subject {
  CProcSettings oPending{}, oCurrent{}, oSuggest{};
  bool bSeveral = false;
  bool bDeclarations = false;  ///< it is, or one of them is, a declarations section
  bool bReadOnly = false;      ///< of a component that the rules pass over: Current only
};

struct Row {
  bool bHeading = false;
  Text sName{}, sValue{}, sNote{};
  bool bEnabled = false;
  /// The choices; null for rows that only show.
  const CXLookup* poLookup = nullptr;
  std::int32_t lTipId = 0;
};

std::vector<Row> Rows(const Subject& oSubject);

}  // namespace PropertySheet
