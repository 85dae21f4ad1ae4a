#include "MXStringVB.h"

#include <algorithm>
#include <iterator>

#include "MXString.h"

namespace {

constexpr std::size_t npos = TextView::npos;

// Every double quote flips the flag; a doubled quote in a literal flips it twice and needs no
// handling of its own.
class LiteralFlag {
 public:
  /// True for a unit that is part of a literal and no quote.
  bool Inside(char16_t cUnit) {
    if (cUnit == u'"') mbInside = !mbInside;
    return mbInside && cUnit != u'"';
  }

 private:
  bool mbInside = false;
};

template <std::size_t n>
bool IsOneOf(TextView sText, const TextView (&asText)[n]) {
  return std::any_of(std::begin(asText), std::end(asText), [=](TextView sOne) {
    // Length and first unit refuse nearly all without a call.
    return sOne.size() == sText.size() && sOne[0] == sText[0] && sOne == sText;
  });
}

template <std::size_t n>
bool StartsWithOneOf(TextView sText, const TextView (&asText)[n]) {
  return std::any_of(std::begin(asText), std::end(asText),
                     [=](TextView sPrefix) { return sText.starts_with(sPrefix); });
}

// Takes the first word, up to a blank, off the text. Two blanks in a row have an empty word
// between them, so that "end  if" isn't taken for "end if".
TextView TakeWord(TextView& sText, bool& bMore) {
  const std::size_t lEnd = sText.find(u' ');
  const TextView sWord = sText.substr(0, lEnd);
  bMore = lEnd != npos;
  sText.remove_prefix(bMore ? lEnd + 1 : sText.size());
  return sWord;
}

// True when the words stand in the text with a blank or an end of the text on either side.
// lEnd: where they end.
bool FindWords(TextView sText, TextView sWords, std::size_t lStart, std::size_t& lEnd) {
  for (std::size_t i = sText.find(sWords, lStart); i != npos; i = sText.find(sWords, i + 1)) {
    lEnd = i + sWords.size();
    const bool bFree = i == 0 || (i > lStart && sText[i - 1] == u' ');
    if (bFree && (lEnd == sText.size() || sText[lEnd] == u' ')) return true;
  }
  return false;
}

bool IsLogicWord(TextView sWord, TextView sBefore) {
  static constexpr TextView asAlone[] = {
      u"case",  u"do",   u"do:",   u"else",   u"else:",   u"for",  u"gosub", u"loop",
      u"loop:", u"next", u"next:", u"return", u"return:", u"wend", u"wend:", u"while"};
  static constexpr TextView asBehindEnd[] = {u"if", u"if:", u"select", u"select:"};
  return IsOneOf(sWord, asAlone) || (sBefore == u"end" && IsOneOf(sWord, asBehindEnd));
}

}  // namespace

namespace MXStringVB {

TextArray SplitStatements(TextView sLine) {
  const TextView sCode = TrimVBComments(sLine);
  TextArray asStatement;
  asStatement.reserve(3);  // a statement and a comment: what a line holds as a rule
  asStatement.emplace_back();
  LiteralFlag oLiteral;
  std::size_t lStart = 0;
  for (std::size_t i = 0; i + 1 < sCode.size(); ++i) {
    if (oLiteral.Inside(sCode[i]) || sCode[i] != u':' || sCode[i + 1] != u' ') continue;
    asStatement.emplace_back(sCode.substr(lStart, i - lStart));
    lStart = i + 2;
  }
  asStatement.emplace_back(sCode.substr(lStart));
  if (sCode.size() < sLine.size()) asStatement.emplace_back(sLine.substr(sCode.size()));
  return asStatement;
}

TextView TrimVBComments(TextView sLine) {
  if (sLine.find(u'\'') == npos) return sLine;
  LiteralFlag oLiteral;
  for (std::size_t i = 0; i < sLine.size(); ++i) {
    if (!oLiteral.Inside(sLine[i]) && sLine[i] == u'\'') return sLine.substr(0, i);
  }
  return sLine;
}

Text TrimVBLiterals(TextView sLine) {
  Text sResult;
  LiteralFlag oLiteral;
  for (const char16_t cUnit : sLine) {
    if (!oLiteral.Inside(cUnit) && cUnit != u'"') sResult += cUnit;
  }
  return sResult;
}

Text MaskVBLiterals(TextView sLine, TextView sMask) {
  Text sResult;
  sResult.reserve(sLine.size());
  LiteralFlag oLiteral;
  for (const char16_t cUnit : sLine) {
    sResult.append(oLiteral.Inside(cUnit) ? sMask : TextView(&cUnit, 1));
  }
  return sResult;
}

bool HasVBContinuation(TextView sLine) {
  return sLine.ends_with(u" _");
}

bool IsVBProcDataDeclaration(TextView sStatement) {
  static constexpr TextView asStart[] = {u"dim ", u"const ", u"static "};
  return StartsWithOneOf(sStatement, asStart);
}

bool IsVBLineLabel(TextView sStatement, bool& bAlone) {
  const std::size_t lColon = sStatement.find(u':');
  if (lColon == npos || !IsGoodVBLabel(sStatement.substr(0, lColon))) return false;
  bAlone = Trim(sStatement.substr(lColon + 1)).empty();
  return true;
}

// Meant so, odd as it looks: the slash passes, the underscore doesn't, and neither does a blank,
// so that indented text is no label.
bool IsGoodVBLabel(TextView sLabel) {
  return std::all_of(sLabel.begin(), sLabel.end(), [](char16_t c) {
    return (c >= u'/' && c <= u'9') || (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') ||
           c >= 0x80;
  });
}

void RemoveVBLineNumber(Text& sLine) {
  const std::size_t lEnd = std::min(sLine.find(u' '), sLine.size());
  if (MXString::IsDigits(TextView(sLine).substr(0, lEnd), {})) sLine.replace(0, lEnd, lEnd, u' ');
}

bool StartsVBSelectContext(TextView sStatement) {
  std::size_t lEnd = 0, lCaseEnd = 0;
  if (!FindWords(sStatement, u"select case", 0, lEnd)) return false;
  return !FindWords(sStatement, u"case", std::min(lEnd + 1, sStatement.size()), lCaseEnd);
}

bool ClearsVBSelectContext(TextView sStatement) {
  return sStatement == u"case" || sStatement.starts_with(u"case ");
}

bool IsVBEndStatement(TextView sStatement) {
  static constexpr TextView asEnd[] = {u"else",      u"end if",     u"end with", u"next",
                                       u"exit for",  u"loop",       u"exit do",  u"wend",
                                       u"case else", u"end select", u"return"};
  return IsOneOf(sStatement, asEnd);
}

bool IsVBSimpleEnd(TextView sStatement) {
  return sStatement == u"end with" || sStatement == u"return";
}

// The keywords count anywhere in the statement, not only where the grammar would have them.
bool IsVBLogicStatement(TextView sStatement) {
  bool bIf = false, bThen = false;
  TextView sBefore;
  for (bool bMore = true; bMore;) {
    const TextView sWord = TakeWord(sStatement, bMore);
    bIf |= sWord == u"if" || sWord == u"elseif";
    bThen |= sWord == u"then";
    if ((bIf && bThen) || IsLogicWord(sWord, sBefore)) return true;
    sBefore = sWord;
  }
  return false;
}

bool IsVBCompilerDirective(TextView sStatement) {
  static constexpr TextView asStart[] = {u"#const", u"#if", u"#elseif", u"#else", u"#end if"};
  return StartsWithOneOf(sStatement, asStart);
}

}  // namespace MXStringVB
