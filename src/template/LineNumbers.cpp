#include "LineNumbers.h"

#include <algorithm>
#include <set>

#include "Failure.h"
#include "LogicalLine.h"
#include "MQuillon.h"
#include "MXString.h"
#include "MXStringVB.h"
#include "ProcText.h"

namespace {

constexpr std::size_t FieldWidth = 4;

bool StartsWithBlanks(TextView sLine) {
  return sLine.size() >= FieldWidth && IsBlank(sLine.substr(0, FieldWidth));
}

/// True when the statement has a line number of its own that stays: indented, or written `10:`.
bool HasOwnNumber(TextView sLogical) {
  const std::size_t lBehind = sLogical.find_first_not_of(u"0123456789");
  if (lBehind == 0) return false;
  return lBehind == TextView::npos || sLogical[lBehind] == u' ' || sLogical[lBehind] == u':';
}

/// An #If that is not yet ended: whether a Select Case waits for its first Case ahead of it and
/// behind a branch.
struct Branches {
  bool bOpenAhead, bOpenBehind, bElse;
};

/// The numbering of one body: what it needs to know of all lines first, then line by line.
class Numbering {
 public:
  Numbering(std::vector<Text> asLine, const MRules::Values& oRules)
      : masLine(std::move(asLine)), moRules(oRules) {}

  Text Run() {
    Measure();
    std::size_t lUnits = 0;
    for (const Text& sLine : masLine) lUnits += sLine.size() + FieldWidth + CrLf.size();
    msResult.reserve(lUnits);
    if (moRules.bLineNumSkipShort && mlStatements < moRules.lLineNumSkipShortSize) {
      for (const Text& sLine : masLine) msResult.append(sLine).append(CrLf);
      return std::move(msResult);
    }
    LogicalLines oLogical(masLine);
    while (oLogical.Next()) Number(oLogical);
    return std::move(msResult);
  }

 private:
  /// Clears old numbers, counts statements, and sees whether the margin has room.
  void Measure() {
    bool bComment = false;  // the line ahead is a comment that goes on
    bool bContinued = false;
    for (Text& sLine : masLine) {
      if (!bContinued) MXStringVB::RemoveVBLineNumber(sLine);
      const bool bInComment = bContinued && bComment;
      const TextView sCode = bInComment ? TextView() : RightTrim(MXStringVB::TrimVBComments(sLine));
      CheckMargin(sCode);
      bContinued = Continues(sLine);
      bComment = bInComment || CommentStart(sLine) < sLine.size();
      if (bComment || !bContinued)
        CountStatement(sCode);  // a comment goes on without its statement
    }
  }

  void CheckMargin(TextView sCode) {
    bool bAlone = false;
    if (mbShift || sCode.size() < FieldWidth || StartsWithBlanks(sCode)) return;
    mbShift = !MXStringVB::IsVBLineLabel(sCode, bAlone);
  }

  void CountStatement(TextView sCode) {
    const Text sStatement = FoldCode(sCode);
    if (sStatement.empty()) return;
    if (!MXStringVB::IsVBProcDataDeclaration(sStatement)) ++mlStatements;
  }

  void Number(const LogicalLines& oLogical) {
    const TextView sLogical = oLogical.Statement();
    const bool bWanted = Wants(sLogical);  // asked for each statement: it may open a Select Case
    // A number that the user wrote as a label keeps its line; it is not given out twice.
    if (!bWanted || HasOwnNumber(sLogical)) {
      WritePlain(oLogical, oLogical.First());
    } else {
      WriteNumbered(oLogical);
    }
  }

  bool Wants(TextView sLogical) {
    bool bAlone = false;
    if (sLogical.empty()) return false;
    if (MXStringVB::IsVBCompilerDirective(sLogical)) {
      FollowBranches(sLogical);
      return false;
    }
    if (MXStringVB::IsVBLineLabel(sLogical, bAlone) && bAlone) return false;
    if (MXStringVB::IsVBProcDataDeclaration(sLogical)) {
      return !moRules.bLineNumSkipData && WantsByMode(sLogical);
    }
    if (MXStringVB::IsVBSimpleEnd(sLogical)) {
      return !moRules.bLineNumSkipEnd && WantsByMode(sLogical);
    }
    if (mbInSelect && MXStringVB::ClearsVBSelectContext(sLogical)) {
      // The first Case of a Select Case can't have a number; another Select Case may follow on it.
      mbInSelect = MXStringVB::StartsVBSelectContext(sLogical);
      return false;
    }
    mbInSelect = MXStringVB::StartsVBSelectContext(sLogical);
    return WantsByMode(sLogical);
  }

  /// Whichever branch is compiled, a Case that may be the first is taken for it.
  void FollowBranches(TextView sDirective) {
    if (sDirective.starts_with(u"#if")) {
      moBranches.push_back({mbInSelect, false, false});
    } else if (moBranches.empty()) {
      return;
    } else if (sDirective.starts_with(u"#else")) {
      Branches& oBranches = moBranches.back();
      oBranches.bOpenBehind |= mbInSelect;
      oBranches.bElse |= !sDirective.starts_with(u"#elseif");
      mbInSelect = oBranches.bOpenAhead;
    } else if (sDirective.starts_with(u"#end")) {
      const Branches& oBranches = moBranches.back();
      mbInSelect |= oBranches.bOpenBehind || (oBranches.bOpenAhead && !oBranches.bElse);
      moBranches.pop_back();
    }
  }

  bool WantsByMode(TextView sLogical) {
    if (moRules.eLineNumWhat == MQuillon::LineNumWhat::LogicStatements)
      return MXStringVB::IsVBLogicStatement(sLogical);
    if (moRules.bLineNumSkipEnd && MXStringVB::IsVBEndStatement(sLogical)) return false;
    if (moRules.eLineNumWhat != MQuillon::LineNumWhat::EveryNth) return true;
    if (++mlCounter == 1) return true;
    if (mlCounter >= moRules.lLineNumInterval) mlCounter = 0;
    return false;
  }

  void WritePlain(const LogicalLines& oLogical, std::size_t lFirst) {
    for (std::size_t i = lFirst; i <= oLogical.Last(); ++i) {
      if (mbShift) msResult.append(FieldWidth, u' ');
      msResult.append(masLine[i]).append(CrLf);
    }
  }

  void WriteNumbered(const LogicalLines& oLogical) {
    const TextView sLine = masLine[oLogical.First()];
    const TextView sRest = !mbShift && StartsWithBlanks(sLine) ? sLine.substr(FieldWidth) : sLine;
    const Text sField = NextField();
    msResult.append(sField);
    // A full field touches what follows; a number must stay a word of its own to be found again.
    if (sField.size() >= FieldWidth && sField.back() != u' ' && !sRest.empty() &&
        sRest.front() != u' ') {
      msResult.push_back(u' ');
    }
    msResult.append(sRest).append(CrLf);
    WritePlain(oLogical, oLogical.First() + 1);
  }

  Text NextField() {
    do {
      ++mlNumber;
    } while (Reserved().contains(mlNumber));
    Text sField = ToText(mlNumber);
    if (sField.size() > FieldWidth) {
      throw Failure(6, u"Line number " + sField + u" does not fit its field of four digits",
                    u"LineNumbers");
    }
    sField.resize(FieldWidth, u' ');
    return sField;
  }

  const std::set<std::int64_t>& Reserved() {
    if (mbReservedKnown) return moReserved;
    mbReservedKnown = true;
    LogicalLines oLogical(masLine);
    while (oLogical.Next()) {
      const TextView sLogical = oLogical.Statement();
      if (!HasOwnNumber(sLogical)) continue;
      std::int64_t lNumber = 0;
      for (char16_t cUnit : sLogical.substr(0, 9)) {
        if (cUnit < u'0' || cUnit > u'9') break;
        lNumber = lNumber * 10 + (cUnit - u'0');
      }
      moReserved.insert(lNumber);
    }
    return moReserved;
  }

  std::vector<Text> masLine;
  const MRules::Values& moRules;
  Text msResult;
  std::int32_t mlStatements = 0;
  std::int64_t mlNumber = 0;
  std::int32_t mlCounter = 0;
  bool mbShift = false;
  bool mbInSelect = false;
  std::vector<Branches> moBranches;
  bool mbReservedKnown = false;
  std::set<std::int64_t> moReserved;
};

Text RemoveNumbers(std::span<const TextView> asLine) {
  Text sResult;
  bool bContinued = false;
  for (TextView sView : asLine) {
    Text sLine(sView);
    if (!bContinued) MXStringVB::RemoveVBLineNumber(sLine);
    bContinued = Continues(sView);
    sResult.append(sLine).append(CrLf);
  }
  return sResult;
}

}  // namespace

Text LineNumbers::DoLineNumbers(std::span<const TextView> asLine,
                                MQuillon::LineNumAction eLineNumAction,
                                const MRules::Values& oRules) {
  if (eLineNumAction == MQuillon::LineNumAction::Remove) return RemoveNumbers(asLine);
  if (eLineNumAction == MQuillon::LineNumAction::Leave) {
    Text sResult;
    for (TextView sLine : asLine) sResult.append(sLine).append(CrLf);
    return sResult;
  }
  return Numbering(std::vector<Text>(asLine.begin(), asLine.end()), oRules).Run();
}
