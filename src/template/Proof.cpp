#include "Proof.h"

#include <algorithm>
#include <map>
#include <set>

#include "Insertion.h"
#include "LogicalLine.h"
#include "MXString.h"
#include "MXStringVB.h"
#include "ProcText.h"

namespace {

/// A text without its clean-up comment lines, and the code of those, blank ones left out.
struct Parts {
  std::vector<std::size_t> alLine;
  std::vector<Text> asFire;
};

Parts Divide(const ProcText& oProc) {
  Parts oParts;
  for (std::size_t i = 0; i < oProc.Count(); ++i) {
    const TextView sFolded = oProc.Folded(i);
    if (!sFolded.starts_with(FireMark)) {
      oParts.alLine.push_back(i);
      continue;
    }
    TextView sCode = Trim(oProc.Line(i)).substr(FireMark.size());
    if (sCode.starts_with(u' ')) sCode.remove_prefix(1);
    if (!IsBlank(sCode)) oParts.asFire.emplace_back(sCode);
  }
  std::sort(oParts.asFire.begin(), oParts.asFire.end());
  return oParts;
}

/// A line as numbering leaves it comparable: without its number and its indentation.
Text Unnumbered(const ProcText& oProc, std::size_t i) {
  Text sLine(oProc.Line(i));
  if (!oProc.IsContinued(i)) MXStringVB::RemoveVBLineNumber(sLine);
  return Text(LeftTrim(sLine));
}

bool IsSpace(char16_t cUnit) {
  return cUnit == u' ' || cUnit == u'\t';
}
bool IsDigit(char16_t cUnit) {
  return cUnit >= u'0' && cUnit <= u'9';
}

/// The words and single signs of a statement, in lower case.
std::vector<TextView> Words(TextView sStatement) {
  std::vector<TextView> asWord;
  std::size_t i = 0;
  const auto IsWord = [](char16_t c) {
    return c == u'_' || c >= 0x80 || IsDigit(c) || (c >= u'a' && c <= u'z');
  };
  while (i < sStatement.size()) {
    if (IsSpace(sStatement[i])) {
      ++i;
      continue;
    }
    const std::size_t lStart = i++;
    if (IsWord(sStatement[lStart])) {
      while (i < sStatement.size() && IsWord(sStatement[i])) ++i;
    }
    asWord.push_back(sStatement.substr(lStart, i - lStart));
  }
  return asWord;
}

bool IsNumber(TextView sWord) {
  return std::all_of(sWord.begin(), sWord.end(), IsDigit);
}

/// Adds the line numbers that one statement names as targets or compares with Erl.
void AddTargets(TextView sStatement, bool& bSelectErl, std::set<Text>& asTarget) {
  const std::vector<TextView> asWord = Words(sStatement);
  const bool bErl = std::find(asWord.begin(), asWord.end(), u"erl") != asWord.end();
  const bool bCase = !asWord.empty() && asWord[0] == u"case";
  bool bList = false;  // behind GoTo or GoSub numbers may follow one another
  for (std::size_t i = 0; i < asWord.size(); ++i) {
    const TextView sWord = asWord[i];
    if (IsNumber(sWord)) {
      if (bList || bErl || (bCase && bSelectErl)) asTarget.emplace(sWord);
      continue;
    }
    if (sWord == u"goto" || sWord == u"gosub" || sWord == u"resume" || sWord == u"then" ||
        sWord == u"else") {
      bList = true;
    } else if (sWord != u",") {
      bList = false;
    }
  }
  if (asWord.size() > 2 && asWord[0] == u"select") bSelectErl = bErl;
  if (asWord.size() > 1 && asWord[0] == u"end" && asWord[1] == u"select") bSelectErl = false;
}

std::set<Text> JumpTargets(const std::vector<Text>& asLine) {
  std::set<Text> asTarget;
  bool bSelectErl = false;
  LogicalLines oLogical(asLine);
  while (oLogical.Next()) {
    TextView sStatement = oLogical.Statement();
    while (!sStatement.empty() && IsDigit(sStatement.front())) sStatement.remove_prefix(1);
    AddTargets(sStatement, bSelectErl, asTarget);
  }
  return asTarget;
}

/// The statement behind each line number of a text, folded.
std::map<Text, Text> NumberedStatements(const ProcText& oProc) {
  std::map<Text, Text> oStatements;
  for (std::size_t i = 0; i < oProc.Count(); ++i) {
    if (oProc.IsContinued(i)) continue;
    const TextView sFolded = oProc.Folded(i);
    std::size_t lEnd = 0;
    while (lEnd < sFolded.size() && IsDigit(sFolded[lEnd])) ++lEnd;
    if (lEnd == 0) continue;
    TextView sRest = sFolded.substr(lEnd);
    if (!sRest.empty() && sRest.front() != u' ' && sRest.front() != u':') continue;
    if (!sRest.empty()) sRest.remove_prefix(1);
    oStatements.emplace(sFolded.substr(0, lEnd), Trim(sRest));
  }
  return oStatements;
}

/// True when a line of the text begins with a digit, behind its blanks.
bool HoldsNumberedLine(TextView sText) {
  for (std::size_t i = 0; i < sText.size(); ++i) {
    while (i < sText.size() && sText[i] == u' ') ++i;
    if (i < sText.size() && IsDigit(sText[i])) return true;
    i = std::min(sText.find(u'\n', i), sText.size());
  }
  return false;
}

/// True when sAfter is sBefore with at most one piece put into it.
bool IsSameStatement(TextView sBefore, TextView sAfter) {
  if (sAfter.size() < sBefore.size()) return false;
  std::size_t lHead = 0;
  while (lHead < sBefore.size() && sBefore[lHead] == sAfter[lHead]) ++lHead;
  return sAfter.ends_with(sBefore.substr(lHead));
}

Text Named(TextView sText) {
  return u"[" + Text(sText) + u"]";
}

}  // namespace

Text Proof::FirstDifference(TextView sBefore, TextView sBack, bool bNumbered) {
  if (sBefore == sBack) return Text();
  const ProcText oBefore(sBefore), oBack(sBack);
  const Parts oLeft = Divide(oBefore), oRight = Divide(oBack);
  const std::size_t lCommon = std::min(oLeft.alLine.size(), oRight.alLine.size());
  for (std::size_t k = 0; k < lCommon; ++k) {
    const std::size_t i = oLeft.alLine[k], j = oRight.alLine[k];
    if (oBefore.Line(i) == oBack.Line(j)) continue;
    if (bNumbered && Unnumbered(oBefore, i) == Unnumbered(oBack, j)) continue;
    return u"Line " + ToText(static_cast<long long>(i) + 1) + u" would come back as " +
           Named(oBack.Line(j)) + u" and not as " + Named(oBefore.Line(i));
  }
  if (oLeft.alLine.size() > lCommon) {
    const std::size_t i = oLeft.alLine[lCommon];
    return u"Line " + ToText(static_cast<long long>(i) + 1) + u" would not come back " +
           Named(oBefore.Line(i));
  }
  if (oRight.alLine.size() > lCommon) {
    return u"A line would come back that was not there " +
           Named(oBack.Line(oRight.alLine[lCommon]));
  }
  if (oLeft.asFire != oRight.asFire) return u"The clean-up code would come back changed";
  return Text();
}

Text Proof::LostJumpTarget(TextView sBefore, TextView sAfter) {
  if (!HoldsNumberedLine(sBefore)) return Text();
  const ProcText oBefore(sBefore);
  const auto oOld = NumberedStatements(oBefore);
  if (oOld.empty()) return Text();
  const std::set<Text> asTarget =
      JumpTargets(std::vector<Text>(oBefore.Lines().begin(), oBefore.Lines().end()));
  const auto oNew = NumberedStatements(ProcText(sAfter));
  for (const Text& sTarget : asTarget) {
    const auto itOld = oOld.find(sTarget);
    if (itOld == oOld.end()) continue;
    const auto itNew = oNew.find(sTarget);
    if (itNew != oNew.end() && IsSameStatement(itOld->second, itNew->second)) continue;
    return u"Line number " + sTarget + u" is the target of a jump";
  }
  return Text();
}
