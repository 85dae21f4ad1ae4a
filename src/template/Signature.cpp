#include "Signature.h"

#include <algorithm>

#include "MXString.h"

namespace {

constexpr TextView SignatureToken = u"%signature";

Text Fold(TextView sLine) {
  Text sFolded;
  MXString::FoldLine(sLine, sFolded);
  return sFolded;
}

std::size_t CountOf(TextView sText, TextView sPart) {
  std::size_t lCount = 0;
  for (std::size_t l = sText.find(sPart); l != TextView::npos; l = sText.find(sPart, l + 1)) {
    ++lCount;
  }
  return lCount;
}

SignatureValue Parse(TextView sSignature) {
  SignatureValue oValue;
  bool bFirst = true;
  while (bFirst || !sSignature.empty()) {
    const std::size_t lMark = sSignature.find(u'&');
    const TextView sPart = Trim(sSignature.substr(0, lMark));
    sSignature = lMark == TextView::npos ? TextView() : sSignature.substr(lMark + 1);
    if (sPart == u"locked") {
      oValue.bLocked = true;
    } else if (bFirst) {
      oValue.sTemplate = sPart;
    }
    bFirst = false;
  }
  return oValue;
}

/// Position of the first apostrophe at lStart or behind it with nothing but blanks ahead of it on
/// its line, or the text's length.
std::size_t FindComment(TextView sText, std::size_t lStart) {
  for (std::size_t l = lStart; (l = FindUnit(sText, u'\'', l)) != TextView::npos; ++l) {
    std::size_t lLine = l;
    while (lLine > lStart && sText[lLine - 1] == u' ') --lLine;
    if (lLine == lStart || sText.substr(0, lLine).ends_with(CrLf)) return l;
  }
  return sText.size();
}

bool IsTemplateName(TextView sName) {
  return MXString::IsAlphaNumeric(sName, u"_.");
}

}  // namespace

std::optional<Text> ExtractTokenValue(TextView sTemplateLine, TextView sCodeLine, TextView sToken) {
  Text sMark = u"<";
  sMark.append(sToken).append(u">");
  // A token that stands twice has no one value.
  if (CountOf(sTemplateLine, sMark) != 1) return std::nullopt;
  TextArray asPiece;
  MXString::StringTokenize2(Text(sTemplateLine) + u"|", asPiece, u"<>");
  const Text sCode = Text(sCodeLine) + u"|";
  TextView sRest = sCode;
  for (std::size_t i = 1; i < asPiece.size(); ++i) {
    const TextView sPiece = asPiece[i];
    if (!sPiece.starts_with(u'%')) {
      const std::size_t lPiece = sRest.find(sPiece);
      sRest = lPiece == TextView::npos ? TextView() : sRest.substr(lPiece + sPiece.size());
      continue;
    }
    if (i + 1 >= asPiece.size()) break;
    const std::size_t lNext = sRest.find(asPiece[i + 1]);
    if (lNext == TextView::npos) continue;
    if (sPiece == sToken) return Text(sRest.substr(0, lNext));
    sRest.remove_prefix(lNext);
  }
  return std::nullopt;
}

Signature::Signature(const std::vector<TemplateRow>& oTemplates,
                     const std::vector<LineRow>& oLines) {
  if (oTemplates.size() < 2) return;
  const TemplateRow& oTemplate = oTemplates[1];
  const std::int32_t lStart = std::max(oTemplate.lStart[Section::Start], 0);
  const std::int32_t lEnd =
      std::min(oTemplate.lStart[Section::End], static_cast<std::int32_t>(oLines.size()) - 1);
  for (std::int32_t l = lStart; l <= lEnd; ++l) {
    const LineRow& oRow = oLines[static_cast<std::size_t>(l)];
    if (!oRow.bScript) continue;
    const Text& sPattern = oRow.sLike.Pattern();
    const bool bWide = sPattern.find_first_not_of(u"* '") == Text::npos;
    const Text sBegin = sPattern.substr(0, sPattern.find_first_of(u"*?#[ "));
    moRows.push_back({&oRow, Fold(oRow.sLine), sBegin, bWide});
    if (l == oTemplate.lStart[Section::Start] + 1) mpFirst = &oRow;
  }
  mbComments = std::all_of(moRows.begin(), moRows.end(), [](const Row& oRow) {
    return oRow.pRow->sLike.IsEmpty() || oRow.sBegin.starts_with(u'\'');
  });
}

Text Signature::Line(TextView sTemplate, bool bLocked) const {
  Text sValue(sTemplate);
  if (bLocked) sValue.append(sValue.empty() ? u"Locked" : u"&Locked");
  if (sValue.empty() || !mpFirst) return Text();
  return MXString::StringReplace(mpFirst->sLine, u"<%Signature>", sValue);
}

bool Signature::IsReadable(TextView sTemplate, bool bLocked) const {
  if (!msAsked.empty() && msAsked == sTemplate && mbAskedLocked == bLocked) return mbReadable;
  const auto oValue = Read(Fold(Line(sTemplate, bLocked)));
  msAsked = sTemplate;
  mbAskedLocked = bLocked;
  mbReadable = oValue && oValue->sTemplate == LowerCase(sTemplate) && oValue->bLocked == bLocked;
  return mbReadable;
}

std::optional<SignatureValue> Signature::ReadRow(const Row& oRow, TextView sFolded) const {
  const auto sValue = ExtractTokenValue(oRow.sFolded, sFolded, SignatureToken);
  if (!sValue || Trim(*sValue).empty()) return std::nullopt;
  // Written again, the value must give the same line: else it isn't what stood in the token.
  // With further tokens in the row the line may differ in their places.
  const Text sAgain = MXString::StringReplace(oRow.sFolded, u"<%signature>", *sValue);
  if (CountOf(oRow.sFolded, u"<%") == 1 && Fold(sAgain) != sFolded) return std::nullopt;
  SignatureValue oValue = Parse(*sValue);
  if (oRow.bWide && !IsTemplateName(oValue.sTemplate)) return std::nullopt;
  return oValue;
}

bool Signature::IsSignature(TextView sFolded) const {
  return std::any_of(moRows.begin(), moRows.end(), [&](const Row& oRow) {
    if (oRow.pRow->sLike.IsEmpty() || !oRow.pRow->sLike.Matches(sFolded)) return false;
    return !oRow.bWide || ReadRow(oRow, sFolded).has_value();
  });
}

std::optional<SignatureValue> Signature::Read(TextView sFolded) const {
  for (const Row& oRow : moRows) {
    if (oRow.pRow->sLike.IsEmpty() || !oRow.pRow->sLike.Matches(sFolded)) continue;
    return ReadRow(oRow, sFolded);
  }
  return std::nullopt;
}

bool Signature::MayBegin(TextView sLine) const {
  return std::any_of(moRows.begin(), moRows.end(), [&](const Row& oRow) {
    if (oRow.pRow->sLike.IsEmpty() || sLine.size() < oRow.sBegin.size()) return false;
    return std::equal(oRow.sBegin.begin(), oRow.sBegin.end(), sLine.begin(),
                      [](char16_t cLower, char16_t c) { return cLower == LowerCase(c); });
  });
}

std::optional<SignatureValue> Signature::Find(TextView sProcCode) const {
  // From one comment line to the next; few lines need to be folded and compared whole.
  Text sFolded;
  for (std::size_t lStart = 0; lStart < sProcCode.size();) {
    if (mbComments) lStart = FindComment(sProcCode, lStart);
    const std::size_t lEnd = FindLineEnd(sProcCode, lStart);
    std::size_t lFirst = lStart;
    while (lFirst < lEnd && sProcCode[lFirst] == u' ') ++lFirst;
    if (lFirst < lEnd && MayBegin(sProcCode.substr(lFirst, lEnd - lFirst))) {
      MXString::FoldLine(sProcCode.substr(lStart, lEnd - lStart), sFolded);
      if (auto oValue = Read(sFolded)) return oValue;
    }
    lStart = lEnd + CrLf.size();
  }
  return std::nullopt;
}
