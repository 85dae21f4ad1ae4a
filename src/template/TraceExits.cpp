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
  // Most lines hold neither a literal nor a comment, and are searched as they are.
  Text sMasked;
  TextView sWork = sLine.substr(0, CommentStart(sLine));
  if (FindUnit(sWork, u'"') != TextView::npos) {
    sWork = sMasked = MXStringVB::MaskVBLiterals(sWork, u"x");
  }
  for (std::size_t lFirst = sWork.find(sExit); lFirst != TextView::npos;
       lFirst = sWork.find(sExit, lFirst + 1)) {
    if (lFirst > 0 && sWork[lFirst - 1] != u' ') continue;
    const std::size_t lType = lFirst + sExit.size();
    if (sWork.substr(lType, sBaseType.size()) != sBaseType) continue;
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

/// Lengths of the parts of a statement behind which another statement may begin on the same line:
/// behind Then, Else or a line number. Longest first; 0 isn't among them.
struct StatementStarts {
  std::vector<std::size_t> alBranch;
  std::size_t lBehindNumber = 0;  ///< 0: no line number

  explicit StatementStarts(TextView sPiece) {
    const Text sMasked = MXStringVB::MaskVBLiterals(LowerCase(sPiece), u"x");
    for (TextView sWord : {u" then ", u" else "}) {
      if (sMasked.starts_with(sWord.substr(1))) alBranch.push_back(sWord.size() - 1);
      for (std::size_t l = sMasked.find(sWord); l != Text::npos; l = sMasked.find(sWord, l + 1)) {
        alBranch.push_back(l + sWord.size());
      }
    }
    std::sort(alBranch.rbegin(), alBranch.rend());
    const std::size_t lFirst = sMasked.find_first_not_of(u' ');
    if (lFirst == Text::npos) return;
    const std::size_t lNumber = sMasked.find_first_not_of(u"0123456789", lFirst);
    if (lNumber == lFirst || lNumber == Text::npos || sMasked[lNumber] != u' ') return;
    const std::size_t lCode = sMasked.find_first_not_of(u' ', lNumber);
    if (lCode != Text::npos) lBehindNumber = lCode;
  }
};

/// Takes statements that fit the pattern of a trace exit out of the pieces of a line.
class TraceDropper {
 public:
  TraceDropper(const TextArray& asPiece, TextView sTraceExit, const LikePattern& oPattern)
      : masPiece(asPiece),
        msTraceExit(sTraceExit),
        mlCount(asPiece.size() - 1),
        mlTraceCount(std::max<std::size_t>(1, MXStringVB::SplitStatements(sTraceExit).size() - 1)),
        moPattern(oPattern) {}

  /// The pieces joined again without them.
  Text Run() const {
    Text sResult;
    for (std::size_t i = 1; i <= mlCount;) {
      const TextView sPiece = masPiece[i];
      const bool bRoom = i + mlTraceCount - 1 <= mlCount;
      const bool bFollowed = i + mlTraceCount <= mlCount;
      const bool bWhole = bRoom && Fits(i, 0);
      // A pattern may fit the Then ahead of the trace exit as well, which is the user's.
      const std::size_t lKeep = bWhole || bFollowed ? FindStart(i) : 0;
      if (lKeep > 0 && bFollowed) {  // a statement must follow behind Then or Else
        sResult.append(sPiece.substr(0, lKeep));
        i += mlTraceCount;
      } else if (lKeep == 0 && bWhole) {
        if (i == 1)
          sResult.append(
              sPiece.substr(0, static_cast<std::size_t>(MXString::LeadingSpaceCount(sPiece))));
        i += mlTraceCount;
      } else {
        sResult.append(sPiece).append(Separator);
        ++i;
      }
    }
    return sResult;
  }

 private:
  bool Fits(std::size_t lFirst, std::size_t lSkip) const {
    Text sJoined(TextView(masPiece[lFirst]).substr(lSkip));
    for (std::size_t k = 1; k < mlTraceCount; ++k)
      sJoined.append(Separator).append(masPiece[lFirst + k]);
    return moPattern.Matches(Fold(sJoined));
  }

  /// Where the trace exit begins within piece i; 0 when nowhere behind its start. Only the last
  /// Then or Else can be its place, apart from those that the trace exit has itself.
  std::size_t FindStart(std::size_t i) const {
    const StatementStarts oStarts(masPiece[i]);
    std::size_t lTries = oStarts.alBranch.size();
    if (lTries > 1) lTries = std::min(lTries, StatementStarts(msTraceExit).alBranch.size() + 1);
    for (std::size_t k = 0; k < lTries; ++k)
      if (Fits(i, oStarts.alBranch[k])) return oStarts.alBranch[k];
    return oStarts.lBehindNumber > 0 && Fits(i, oStarts.lBehindNumber) ? oStarts.lBehindNumber : 0;
  }

  const TextArray& masPiece;
  TextView msTraceExit;
  std::size_t mlCount;
  std::size_t mlTraceCount;  ///< how many statements the trace exit itself has
  const LikePattern& moPattern;
};

}  // namespace

Text TraceExits::GetTraceExit(const LineRow& oRow, const SectionValues& oValues) {
  Text sText;
  RenderRow(oRow, oValues, sText, Tokens::Names);
  return Text(Trim(TextView(sText).substr(0, CommentStart(sText))));
}

Text TraceExits::Insert(TextView sLine, TextView sBaseType, TextView sTraceExit) {
  const std::size_t lExit = FindExit(sLine, sBaseType);
  if (lExit == TextView::npos) return Text(sLine);
  Text sResult;
  sResult.reserve(sLine.size() + sTraceExit.size() + Separator.size());
  return sResult.append(sLine, 0, lExit)
      .append(sTraceExit)
      .append(Separator)
      .append(sLine.substr(lExit));
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
  // Nearly always one statement is left, and it is the user's.
  const bool bMore =
      FindUnit(sResult, u':') != Text::npos || FindUnit(sResult, u'\'') != Text::npos;
  if (!bMore && !oPattern.Matches(Fold(sResult))) return sResult;
  const Text sComment = sResult.substr(CommentStart(sResult));
  sResult.resize(sResult.size() - sComment.size());
  const TextArray asPiece = MXStringVB::SplitStatements(sResult);
  Text sKept = TraceDropper(asPiece, sTraceExit, oPattern).Run();
  if (sKept.ends_with(Separator)) sKept.resize(sKept.size() - Separator.size());
  sKept.append(sComment);
  return sKept;
}
