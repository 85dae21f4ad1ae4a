#include "ProcText.h"

#include <algorithm>
#include <span>

#include "MXStringVB.h"

namespace {

bool IsWhite(char16_t cUnit) {
  return cUnit == u' ' || cUnit == u'\t';
}

char16_t Lower(char16_t cUnit) {
  if (cUnit < 0x80) return static_cast<char16_t>(cUnit + (cUnit >= u'A' && cUnit <= u'Z' ? 32 : 0));
  return LowerCase(cUnit);
}

bool IsWordUnit(char16_t cUnit) {
  return cUnit == u'_' || cUnit >= 0x80 || (cUnit >= u'0' && cUnit <= u'9') ||
         (cUnit >= u'a' && cUnit <= u'z') || (cUnit >= u'A' && cUnit <= u'Z');
}

bool IsRem(TextView sRest) {
  return sRest.size() >= 3 && Lower(sRest[0]) == u'r' && Lower(sRest[1]) == u'e' &&
         Lower(sRest[2]) == u'm' && (sRest.size() == 3 || IsWhite(sRest[3]));
}

/// True when the statement is the end of a procedure of that type, in any spacing.
bool IsEndStatement(TextView sStatement, TextView sLowerType) {
  sStatement = TrimWhite(sStatement);
  if (!sStatement.starts_with(u"end") || sStatement.size() < 5) return false;
  TextView sRest = sStatement.substr(3);
  if (!IsWhite(sRest.front())) return false;
  return TrimWhite(sRest) == sLowerType;
}

/// False for nearly every line: no statement of it begins with End, literals and comments included.
bool MayHoldEnd(TextView sFolded) {
  const auto IsEnd = [](TextView sStatement) {
    while (!sStatement.empty() && IsWhite(sStatement.front())) sStatement.remove_prefix(1);
    return sStatement.size() > 3 && sStatement.starts_with(u"end") && IsWhite(sStatement[3]);
  };
  TextView sRest = sFolded;
  while (!sRest.empty() && sRest.front() >= u'0' && sRest.front() <= u'9') sRest.remove_prefix(1);
  for (std::size_t lColon = 0; !IsEnd(sRest); sRest.remove_prefix(lColon + 1)) {
    lColon = FindUnit(sRest, u':');
    if (lColon == TextView::npos) return false;
  }
  return true;
}

/// True when a folded line holds the end in a form that isn't a line of its own: behind a label,
/// a line number or a colon, or with a comment or statement behind it.
bool HoldsEnd(TextView sFolded, TextView sLowerType) {
  if (!MayHoldEnd(sFolded)) return false;
  const Text sMasked = MXStringVB::MaskVBLiterals(sFolded.substr(0, CommentStart(sFolded)), u"x");
  TextView sRest = sMasked;
  while (!sRest.empty() && sRest.front() >= u'0' && sRest.front() <= u'9') sRest.remove_prefix(1);
  while (!sRest.empty()) {
    const std::size_t lColon = sRest.find(u':');
    if (IsEndStatement(sRest.substr(0, lColon), sLowerType)) return true;
    if (lColon == TextView::npos) break;
    sRest.remove_prefix(lColon + 1);
  }
  return false;
}

enum class Directive { None, If, Else, EndIf };

Directive DirectiveOf(TextView sFolded) {
  if (sFolded.empty()) return Directive::None;
  sFolded = TrimWhite(sFolded);
  if (!sFolded.starts_with(u'#')) return Directive::None;
  sFolded = TrimWhite(sFolded.substr(1));
  std::size_t lEnd = 0;
  while (lEnd < sFolded.size() && IsWordUnit(sFolded[lEnd])) ++lEnd;
  const TextView sWord = sFolded.substr(0, lEnd);
  if (sWord == u"if") return Directive::If;
  if (sWord == u"else" || sWord == u"elseif") return Directive::Else;
  if (sWord == u"end" && TrimWhite(sFolded.substr(lEnd)).starts_with(u"if"))
    return Directive::EndIf;
  return Directive::None;
}

bool IsBalanced(const ProcText& oProc, std::size_t lFirst, std::size_t lLast) {
  if (!oProc.Holds(u'#')) return true;
  int nDepth = 0;
  for (std::size_t i = lFirst; i <= lLast; ++i) {
    switch (DirectiveOf(oProc.Folded(i))) {
      case Directive::If:
        ++nDepth;
        break;
      case Directive::Else:
        if (nDepth == 0) return false;
        break;
      case Directive::EndIf:
        if (--nDepth < 0) return false;
        break;
      case Directive::None:
        break;
    }
  }
  return nDepth == 0;
}

/// Lower-cases a text. Blocks without a branch and of one width of units: the compiler makes
/// vectors of them; the few blocks that hold more than ASCII are gone through again.
void LowerAll(Text& sText) {
  constexpr std::size_t Block = 64;
  for (std::size_t lStart = 0; lStart < sText.size(); lStart += Block) {
    const std::span oBlock =
        std::span(sText).subspan(lStart, std::min(Block, sText.size() - lStart));
    std::uint16_t nSeen = 0;
    for (char16_t& c : oBlock) {
      nSeen = static_cast<std::uint16_t>(nSeen | c);
      const auto nLetter = static_cast<std::uint16_t>(c - u'A');
      c = static_cast<char16_t>(c + (nLetter < 26 ? 32 : 0));
    }
    if (nSeen < 0x80) continue;
    for (char16_t& c : oBlock) {
      if (c >= 0x80) c = LowerCaseBeyondAscii(c);
    }
  }
}

/// Number of blanks with another blank ahead of them.
std::size_t CountDoubleBlanks(TextView sText) {
  constexpr std::size_t Block = 0x4000;  // of which the count fits 16 bits
  std::size_t lCount = 0;
  for (std::size_t lStart = 1; lStart < sText.size(); lStart += Block) {
    const std::size_t lEnd = std::min(sText.size(), lStart + Block);
    std::uint16_t nCount = 0;
    for (std::size_t i = lStart; i < lEnd; ++i) {
      const auto nOther = static_cast<std::uint16_t>((sText[i - 1] ^ u' ') | (sText[i] ^ u' '));
      nCount = static_cast<std::uint16_t>(nCount + (nOther == 0 ? 1 : 0));
    }
    lCount += nCount;
  }
  return lCount;
}

/// Makes one blank of each run of blanks in a trimmed text; gives the length that is left.
std::size_t CollapseBlanks(char16_t* pText, std::size_t lLength) {
  if (CountDoubleBlanks({pText, lLength}) == 0) return lLength;
  std::size_t lKept = 0;
  char16_t cLast = u'\0';
  for (std::size_t i = 0; i < lLength; ++i) {
    if (pText[i] == u' ' && cLast == u' ') continue;
    pText[lKept++] = cLast = pText[i];
  }
  return lKept;
}

Text LowerType(TextView sBaseType) {
  return LowerCase(sBaseType);
}

}  // namespace

bool Continues(TextView sLine) {
  while (!sLine.empty() && IsWhite(sLine.back())) sLine.remove_suffix(1);
  // An underscore alone counts too: any indentation makes it a continuation.
  if (sLine.empty() || sLine.back() != u'_') return false;
  if (sLine.size() > 1 && !IsWhite(sLine[sLine.size() - 2])) return false;
  const std::size_t lComment = CommentStart(sLine);
  if (lComment < sLine.size()) return true;
  return std::count(sLine.begin(), sLine.end(), u'"') % 2 == 0;
}

std::size_t CommentStart(TextView sLine) {
  // Most lines have no apostrophe and one statement: only its first word can make it a comment.
  if (FindUnit(sLine, u'\'') == TextView::npos && FindUnit(sLine, u':') == TextView::npos) {
    const std::size_t lWord = sLine.find_first_not_of(u"\t 0123456789");
    return lWord != TextView::npos && IsRem(sLine.substr(lWord)) ? lWord : sLine.size();
  }
  bool bLiteral = false;
  bool bStatementStart = true;
  for (std::size_t i = 0; i < sLine.size(); ++i) {
    const char16_t cUnit = sLine[i];
    if (cUnit == u'"') bLiteral = !bLiteral;
    if (bLiteral) continue;
    if (cUnit == u'\'') return i;
    if (bStatementStart && IsRem(sLine.substr(i))) return i;
    // A line number stands ahead of the first statement and doesn't end its start.
    bStatementStart =
        cUnit == u':' || (bStatementStart && (IsWhite(cUnit) || (cUnit >= u'0' && cUnit <= u'9')));
  }
  return sLine.size();
}

TextView TrimWhite(TextView sText) {
  while (!sText.empty() && IsWhite(sText.front())) sText.remove_prefix(1);
  while (!sText.empty() && IsWhite(sText.back())) sText.remove_suffix(1);
  return sText;
}

bool IsBlank(TextView sLine) {
  return sLine.find_first_not_of(u' ') == TextView::npos;
}

// Every operation begins with this, so it makes up much of a run: all units are folded at once, and
// lines are only cut out of them. Where the blanks at the ends of lines are not all that stand side
// by side, the lines are gone through once more.
ProcText::ProcText(TextView sProcCode) : mlUnits(sProcCode.size()), msFolded(sProcCode) {
  LowerAll(msFolded);
  moLines.reserve(sProcCode.size() / 24 + 2);
  moFolds.reserve(moLines.capacity());
  std::size_t lDoubles = CountDoubleBlanks(sProcCode);
  for (std::size_t lStart = 0;;) {
    const std::size_t lEnd = FindLineEnd(sProcCode, lStart);
    const TextView sLine = sProcCode.substr(lStart, lEnd - lStart);
    const TextView sRight = LeftTrim(sLine);
    const TextView sTrimmed = RightTrim(sRight);
    moLines.push_back(sLine);
    moFolds.push_back({static_cast<std::uint32_t>(sRight.data() - sProcCode.data()),
                       static_cast<std::uint32_t>(sTrimmed.size())});
    lDoubles -= std::max<std::size_t>(sLine.size() - sRight.size(), 1) - 1;
    lDoubles -= std::max<std::size_t>(sRight.size() - sTrimmed.size(), 1) - 1;
    if (lEnd == sProcCode.size()) break;
    lStart = lEnd + CrLf.size();
  }
  if (lDoubles == 0) return;
  for (Fold& oFold : moFolds) {
    oFold.lLength =
        static_cast<std::uint32_t>(CollapseBlanks(msFolded.data() + oFold.lStart, oFold.lLength));
  }
}

std::size_t BehindHead(const ProcText& oProc, std::int32_t lBodyLine) {
  if (lBodyLine < 1 || static_cast<std::size_t>(lBodyLine) > oProc.Count()) return oProc.Count();
  std::size_t i = static_cast<std::size_t>(lBodyLine) - 1;
  while (i < oProc.Count() && Continues(oProc.Line(i))) ++i;
  return i < oProc.Count() ? i + 1 : i;
}

bool HeadHoldsEnd(const ProcText& oProc, std::int32_t lBodyLine) {
  const std::size_t lBehind = BehindHead(oProc, lBodyLine);
  if (lBodyLine < 1) return false;
  for (std::size_t i = static_cast<std::size_t>(lBodyLine) - 1; i < lBehind; ++i) {
    if (!MayHoldEnd(oProc.Folded(i))) continue;
    for (TextView sType : {u"sub", u"function", u"property"}) {
      if (HoldsEnd(oProc.Folded(i), sType)) return true;
    }
  }
  return false;
}

ProcPlaces FindPlaces(const ProcText& oProc, std::int32_t lBodyLine, TextView sBaseType) {
  ProcPlaces oPlaces;
  if (lBodyLine < 1 || static_cast<std::size_t>(lBodyLine) > oProc.Count()) {
    oPlaces.sRefusal = u"    Procedure Head Not Found";
    return oPlaces;
  }
  if (HeadHoldsEnd(oProc, lBodyLine)) {
    oPlaces.sRefusal = u"    Procedure Head and End share a Line";
    return oPlaces;
  }
  oPlaces.lFirstBody = BehindHead(oProc, lBodyLine);
  const Text sType = LowerType(sBaseType);
  const Text sEnd = u"end " + sType;
  bool bFound = false;
  for (std::size_t i = oPlaces.lFirstBody; i < oProc.Count() && !bFound; ++i) {
    if (oProc.IsContinued(i)) continue;
    oPlaces.lEnd = i;
    bFound = oProc.Folded(i) == sEnd;
    // An end in another form closes the procedure all the same: what follows is other code.
    if (!bFound && HoldsEnd(oProc.Folded(i), sType)) break;
  }
  if (!bFound) {
    oPlaces.sRefusal = u"    Procedure End Not Found";
  } else if (!IsBalanced(oProc, static_cast<std::size_t>(lBodyLine) - 1, oPlaces.lEnd)) {
    oPlaces.sRefusal = u"    Conditional Compilation in Procedure is not balanced";
  }
  return oPlaces;
}

TextView BaseType(TextView sProcType) {
  constexpr TextView sProperty = u"Property";
  return sProcType.starts_with(sProperty) ? sProperty : sProcType;
}

TextView PropertyKind(TextView sProcType) {
  constexpr TextView sProperty = u"Property ";
  return sProcType.starts_with(sProperty) ? sProcType.substr(sProperty.size()) : TextView();
}

std::size_t BehindOptions(const ProcText& oProc) {
  const auto Code = [&](std::size_t l) {
    const TextView sFolded = oProc.Folded(l);
    return Trim(MXStringVB::TrimVBComments(sFolded));
  };
  std::size_t i = 0;
  // A line that continues the one ahead of it belongs to that one, whatever it looks like.
  while (i < oProc.Count() && (oProc.IsContinued(i) || Code(i).empty())) ++i;
  while (i < oProc.Count() &&
         (oProc.IsContinued(i) || Code(i).starts_with(u"option ") || Code(i).starts_with(u"def"))) {
    ++i;
  }
  return i;
}
