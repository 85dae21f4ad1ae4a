#include "LexicalScan.h"

#include <algorithm>

#include "ByteText.h"

namespace {

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
bool IsHigh(char c) {
  return static_cast<unsigned char>(c) >= 0x80;
}
bool IsWordStart(char c) {
  return IsLetter(c) || IsHigh(c) || c == '_';
}
bool IsWordPart(char c) {
  return IsWordStart(c) || IsDigit(c);
}
bool IsSuffix(char c) {
  return std::string_view("%&!#@$").find(c) != std::string_view::npos;
}
bool IsRadix(char c) {
  return AsciiLower(c) == 'h' || AsciiLower(c) == 'o';
}
bool IsHexDigit(char c) {
  return IsDigit(c) || (AsciiLower(c) >= 'a' && AsciiLower(c) <= 'f');
}

}  // namespace

LexicalScan::LexicalScan(const LineTable& oLines, const CodePage& oPage) : moLines(oLines) {
  for (unsigned n = 0x80; n < 0x100; ++n) {
    mabLead[n] = oPage.IsLeadByte(static_cast<unsigned char>(n));
  }
}

void LexicalScan::Load(std::int32_t lLine) {
  mlLine = lLine;
  msLine = moLines.TextOf(lLine);
  mlAt = 0;
  mbBrackets = true;
  const std::size_t lMark = ContinuationMark(msLine);
  mbContinued = lMark != std::string_view::npos;
  mlCode = mbContinued ? lMark : msLine.size();
}

void LexicalScan::Start(std::int32_t lLine, std::size_t lSkip) {
  Load(lLine);
  mlAt = std::min(lSkip, mlCode);
  mbDone = false;
  mbFirst = true;
}

bool LexicalScan::NextLine() {
  if (!mbContinued || mlLine >= moLines.Count()) return false;
  Load(mlLine + 1);
  return true;
}

// False when the logical line is over.
bool LexicalScan::SkipToCode() {
  while (!mbDone) {
    while (mlAt < mlCode && IsBlank(msLine[mlAt])) ++mlAt;
    if (mlAt < mlCode) break;
    if (NextLine()) continue;
    mbDone = true;
  }
  if (!mbDone && msLine[mlAt] == '\'') SkipComment();
  return !mbDone;
}

void LexicalScan::SkipComment() {
  while (NextLine()) continue;
  mbDone = true;
}

std::size_t LexicalScan::Step(std::size_t l) const {
  const bool bLead = IsHigh(msLine[l]) && mabLead[static_cast<unsigned char>(msLine[l])];
  return std::min(l + (bLead ? 2 : 1), msLine.size());
}

std::size_t LexicalScan::WordEnd(std::size_t l) const {
  while (l < mlCode && IsWordPart(msLine[l])) l = Step(l);
  return l;
}

std::size_t LexicalScan::NumberEnd(std::size_t l) const {
  if (msLine[l] == '&') {
    l += 2;
    while (IsHexDigit(Peek(l))) ++l;
    return l;
  }
  while (IsDigit(Peek(l)) || Peek(l) == '.') ++l;
  const std::size_t lSign = l + (Peek(l + 1) == '-' || Peek(l + 1) == '+' ? 2 : 1);
  if (AsciiLower(Peek(l)) == 'e' && IsDigit(Peek(lSign))) {
    for (l = lSign; IsDigit(Peek(l));) ++l;
  }
  return l;
}

// A date literal is told from a file number or a suffix by what stands between the signs; what
// matters is that each colon in it belongs to a time of day.
std::size_t LexicalScan::DateEnd(std::size_t l) const {
  for (std::size_t lEnd = l + 1; lEnd < mlCode; ++lEnd) {
    const char c = msLine[lEnd];
    if (c == '#') return lEnd + 1;
    const bool bTime = c == ':' && IsDigit(msLine[lEnd - 1]) && IsDigit(Peek(lEnd + 1));
    if (!bTime && !IsLetter(c) && !IsDigit(c) && c != ' ' && c != '/' && c != '-') break;
  }
  return l + 1;
}

bool LexicalScan::IsRem() const {
  return StartsNoCase(msLine.substr(mlAt), "rem") &&
         (mlAt + 3 >= msLine.size() || IsBlank(msLine[mlAt + 3]));
}

void LexicalScan::SkipLabels() {
  if (!SkipToCode()) return;
  if (IsDigit(msLine[mlAt])) {
    while (IsDigit(Peek(mlAt))) ++mlAt;
    if (!SkipToCode()) return;
  }
  const std::size_t lEnd = IsLetter(msLine[mlAt]) ? WordEnd(mlAt) : mlAt;
  if (lEnd > mlAt && Peek(lEnd) == ':' && Peek(lEnd + 1) != '=') mlAt = lEnd + 1;
}

bool LexicalScan::NextStatement() {
  if (mbFirst) {
    SkipLabels();
  } else if (!mbDone && !mbContinued && msLine.find(':', mlAt) == std::string_view::npos) {
    mbDone = true;  // the usual case: no second statement, no need to read the rest
  } else {
    while (Next().eKind != TokenKind::End) continue;
  }
  mbFirst = false;
  while (SkipToCode() && msLine[mlAt] == ':') ++mlAt;
  if (!mbDone && IsRem()) SkipComment();
  return !mbDone;
}

std::int32_t LexicalScan::LastLine() {
  if (!mbContinued) return mlLine;
  while (NextStatement()) continue;
  return mlLine;
}

Token LexicalScan::Take(TokenKind eKind, std::size_t lEnd) {
  const Token oToken{eKind, msLine.substr(mlAt, lEnd - mlAt)};
  mlAt = lEnd;
  if ((eKind == TokenKind::Word || eKind == TokenKind::Number) && IsSuffix(Peek(mlAt))) ++mlAt;
  return oToken;
}

Token LexicalScan::TakeString() {
  const std::size_t lBegin = mlAt + 1;
  std::size_t lEnd = msLine.find('"', lBegin);
  while (lEnd != std::string_view::npos && Peek(lEnd + 1) == '"') {
    lEnd = msLine.find('"', lEnd + 2);
  }
  if (lEnd == std::string_view::npos) {
    // The line end closes it; a continuation mark in it was only text.
    lEnd = mlAt = mlCode = msLine.size();
    mbContinued = false;
  } else {
    mlAt = lEnd + 1;
  }
  return {TokenKind::Literal, msLine.substr(lBegin, lEnd - lBegin)};
}

Token LexicalScan::TakeBracket() {
  std::size_t lEnd = mbBrackets ? mlAt + 1 : mlCode;
  while (lEnd < mlCode && msLine[lEnd] != ']') lEnd = Step(lEnd);
  if (lEnd >= mlCode) {
    mbBrackets = false;  // nor has any later one a partner: don't look again
    return Take(TokenKind::Mark, mlAt + 1);
  }
  const Token oToken{TokenKind::Bracket, msLine.substr(mlAt + 1, lEnd - mlAt - 1)};
  mlAt = lEnd + 1;
  return oToken;
}

Token LexicalScan::Next() {
  if (mbDone || !SkipToCode() || msLine[mlAt] == ':') {
    // A named argument's := is no separator.
    if (mbDone || Peek(mlAt + 1) != '=') return {};
    return Take(TokenKind::Mark, mlAt + 2);
  }
  const char c = msLine[mlAt];
  if (IsWordStart(c)) return Take(TokenKind::Word, WordEnd(mlAt));
  if (IsDigit(c) || (c == '&' && IsRadix(Peek(mlAt + 1)) && IsHexDigit(Peek(mlAt + 2)))) {
    return Take(TokenKind::Number, NumberEnd(mlAt));
  }
  if (c == '"') return TakeString();
  if (c == '[') return TakeBracket();
  if (c == '#' && DateEnd(mlAt) > mlAt + 1) return Take(TokenKind::Literal, DateEnd(mlAt));
  return Take(TokenKind::Mark, mlAt + 1);
}
