#include "TraceExits.h"

#include <algorithm>
#include <vector>

#include "MXString.h"
#include "MXStringVB.h"
#include "ProcText.h"

namespace {

constexpr TextView Separator = u": ";

bool IsNameUnit(char16_t cUnit) {
  return cUnit == u'_' || cUnit >= 0x80 || (cUnit >= u'0' && cUnit <= u'9') ||
         (cUnit >= u'A' && cUnit <= u'Z') || (cUnit >= u'a' && cUnit <= u'z');
}

/// Position from 0 in sLine of the first `Exit <type>` in code; npos when there is none.
std::size_t FindExit(TextView sLine, TextView sBaseType) {
  constexpr TextView sExit = u"Exit ";
  if (FindText(sLine, sExit) == TextView::npos) return TextView::npos;
  const Text sWork = MXStringVB::MaskVBLiterals(sLine.substr(0, CommentStart(sLine)), u"x");
  for (std::size_t lFirst = sWork.find(sExit); lFirst != Text::npos;
       lFirst = sWork.find(sExit, lFirst + 1)) {
    if (lFirst > 0 && sWork[lFirst - 1] != u' ') continue;
    const std::size_t lType = lFirst + sExit.size();
    if (TextView(sWork).substr(lType, sBaseType.size()) != sBaseType) continue;
    const std::size_t lBehind = lType + sBaseType.size();
    if (lBehind == sWork.size() || !IsNameUnit(sWork[lBehind])) return lFirst;
  }
  return TextView::npos;
}

Text Fold(TextView sText) {
  Text sFolded;
  MXString::FoldLine(sText, sFolded);
  return sFolded;
}

/// Length of the part of a statement behind which another statement may begin on the same line:
/// behind Then, Else or a line number. Longest first; 0 isn't among them.
std::vector<std::size_t> StatementStarts(TextView sPiece) {
  const Text sMasked = MXStringVB::MaskVBLiterals(LowerCase(sPiece), u"x");
  std::vector<std::size_t> alStart;
  for (TextView sWord : {u" then ", u" else ", u"else "}) {
    for (std::size_t l = sMasked.find(sWord); l != Text::npos; l = sMasked.find(sWord, l + 1)) {
      if (sWord.front() != u' ' && l > 0) continue;
      alStart.push_back(l + sWord.size());
    }
  }
  const std::size_t lNumber = sMasked.find_first_not_of(u"0123456789");
  if (lNumber != 0 && lNumber != Text::npos && sMasked[lNumber] == u' ') {
    alStart.push_back(sMasked.find_first_not_of(u' ', lNumber));
  }
  std::erase(alStart, Text::npos);
  std::sort(alStart.rbegin(), alStart.rend());
  return alStart;
}

/// The pieces of a line joined again without those that fit the pattern. lTraceCount: how many
/// statements the trace exit itself has.
Text DropFitting(const TextArray& asPiece, std::size_t lCount, std::size_t lTraceCount,
                 const LikePattern& oPattern) {
  Text sResult;
  const auto Joined = [&](std::size_t lFirst, std::size_t lSkip) {
    Text sJoined(TextView(asPiece[lFirst]).substr(lSkip));
    for (std::size_t k = 1; k < lTraceCount; ++k)
      sJoined.append(Separator).append(asPiece[lFirst + k]);
    return Fold(sJoined);
  };
  for (std::size_t i = 1; i <= lCount;) {
    const TextView sPiece = asPiece[i];
    const bool bRoom = i + lTraceCount - 1 <= lCount;
    if (bRoom && oPattern.Matches(Joined(i, 0))) {
      if (i == 1)
        sResult.append(
            sPiece.substr(0, static_cast<std::size_t>(MXString::LeadingSpaceCount(sPiece))));
      i += lTraceCount;
      continue;
    }
    std::size_t lKeep = 0;
    if (bRoom && i + lTraceCount <= lCount) {  // a statement must follow behind Then or Else
      for (std::size_t lStart : StatementStarts(sPiece)) {
        if (!oPattern.Matches(Joined(i, lStart))) continue;
        lKeep = lStart;
        break;
      }
    }
    if (lKeep > 0) {
      sResult.append(sPiece.substr(0, lKeep));
      i += lTraceCount;
      continue;
    }
    sResult.append(sPiece).append(Separator);
    ++i;
  }
  return sResult;
}

}  // namespace

Text TraceExits::GetTraceExit(const LineRow& oRow, const SectionValues& oValues) {
  Text sText;
  RenderRow(oRow, oValues, sText, Tokens::Names);
  return Text(Trim(sText));
}

Text TraceExits::Insert(TextView sLine, TextView sBaseType, TextView sTraceExit) {
  const std::size_t lExit = FindExit(sLine, sBaseType);
  Text sResult(sLine);
  if (lExit != TextView::npos) sResult.insert(lExit, Text(sTraceExit) + Text(Separator));
  return sResult;
}

Text TraceExits::Remove(TextView sLine, TextView sBaseType, TextView sTraceExit,
                        const LikePattern& oPattern) {
  Text sResult(sLine);
  const std::size_t lExit = FindExit(sLine, sBaseType);
  if (lExit != TextView::npos && !sTraceExit.empty()) {
    const Text sInserted = Text(sTraceExit) + Text(Separator);
    if (sLine.substr(0, lExit).ends_with(sInserted)) {
      sResult.erase(lExit - sInserted.size(), sInserted.size());
    }
  }
  const TextArray asPiece = MXStringVB::SplitStatements(sResult);
  std::size_t lCount = asPiece.size() - 1;
  const bool bComment = lCount > 0 && asPiece[lCount].starts_with(u'\'');
  if (bComment) --lCount;
  const std::size_t lTraceCount =
      std::max<std::size_t>(1, MXStringVB::SplitStatements(sTraceExit).size() - 1);
  Text sKept = DropFitting(asPiece, lCount, lTraceCount, oPattern);
  if (sKept.ends_with(Separator)) sKept.resize(sKept.size() - Separator.size());
  if (bComment) sKept.append(asPiece.back());
  return sKept;
}
