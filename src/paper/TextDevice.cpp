#include "TextDevice.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace Paper {

namespace {

// Twips, chosen so that the longest words of the reports' columns fit the default widths; a line
// between the margins of an A4 page has about 145 characters.
constexpr double CharacterWidth = 72;
constexpr double RowHeight = 180;  // an eighth of an inch; a choice

/// A pair of surrogates is one character.
std::size_t Characters(TextView sText) {
  return static_cast<std::size_t>(std::count_if(
      sText.begin(), sText.end(), [](char16_t c) { return c < 0xDC00 || c > 0xDFFF; }));
}

/// Replaces control characters, which a terminal would act on.
Text Shown(TextView sText) {
  Text sResult(sText);
  std::replace_if(
      sResult.begin(), sResult.end(),
      [](char16_t c) { return c < 0x20 || (c >= 0x7F && c <= 0x9F); }, u'?');
  return sResult;
}

/// One line that is written from left to right.
class LineOfText {
 public:
  void Put(std::size_t lColumn, TextView sText) {
    const std::size_t lFree = mlEnd == 0 ? 0 : mlEnd + 1;
    const std::size_t lStart = std::max(lColumn, lFree);
    msText.append(lStart - mlEnd, u' ').append(sText);
    mlEnd = lStart + Characters(sText);
  }
  std::string Take() {
    std::string sLine = ToUtf8(RightTrim(msText)) + '\n';
    *this = {};
    return sLine;
  }

 private:
  Text msText;
  std::size_t mlEnd = 0;  ///< characters written
};

}  // namespace

double TextDevice::LineWidth(TextView sLine, const PrintFont&) {
  return CharacterWidth * static_cast<double>(Characters(sLine));
}

double TextDevice::LineHeight(const PrintFont&) {
  return RowHeight;
}

void TextDevice::StartDocument(TextView) {
  moPieces.clear();
}

void TextDevice::StartPage(const Sheet&) {
  EndPage();
}

void TextDevice::DrawLine(double dX, double dY, TextView sLine, const PrintFont&) {
  moPieces.push_back({dX, dY, Shown(sLine)});
}

void TextDevice::EndDocument() {
  EndPage();
}

void TextDevice::KillDocument() noexcept {
  moPieces.clear();
}

void TextDevice::EndPage() {
  if (moPieces.empty()) return;
  std::stable_sort(moPieces.begin(), moPieces.end(), [](const Piece& oLeft, const Piece& oRight) {
    return oLeft.dY != oRight.dY ? oLeft.dY < oRight.dY : oLeft.dX < oRight.dX;
  });
  double dLeft = moPieces.front().dX;
  for (const Piece& oPiece : moPieces) dLeft = std::min(dLeft, oPiece.dX);
  std::string sPage(mbAnyPage ? "\f" : "");
  AppendRows(dLeft, sPage);
  mbAnyPage = true;
  moPieces.clear();
  mfnWrite(sPage);
}

void TextDevice::AppendRows(double dLeft, std::string& sPage) const {
  LineOfText oLine;
  double dLineY = moPieces.front().dY;
  for (const Piece& oPiece : moPieces) {
    if (oPiece.dY > dLineY) {
      sPage += oLine.Take();
      if (oPiece.dY >= dLineY + 2 * RowHeight) sPage += '\n';
      dLineY = oPiece.dY;
    }
    oLine.Put(static_cast<std::size_t>((oPiece.dX - dLeft) / CharacterWidth), oPiece.sText);
  }
  sPage += oLine.Take();
}

}  // namespace Paper
